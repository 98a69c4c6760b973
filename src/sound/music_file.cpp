// Writing a music buffer's wave file through the synthesis library (see
// music_file.h).
#include "sound/music_file.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "notation/text_utils.h"
#include "sound/music_buffers.h"
#include "sound/speed_factor.h"
#include "sound/wave_folder.h"
#include "tonvex/tonvex.h"

namespace {

// Codes below this are the notes S<, r<, R<, which no tonic lets sound.
constexpr std::int16_t kLowestNoteCode = 3;
// A note this short or shorter has no room for a grace note.
constexpr std::int32_t kGraceMinMs = 250;
// Melody level and the envelope constants of every music file.
constexpr double kMusicLevel = 0.2;
constexpr std::int32_t kPeakPermille = 1000, kAttackMs = 60, kSustainPct = 80,
                       kReleaseMs = 50;

void sDeleteBuildFile() {
  std::error_code ec;
  std::filesystem::remove(gCurrBuildFile, ec);
}

// The library's result and the file it wrote: 0 or an empty file fails.
bool fBuildSucceeded(std::int16_t result) {
  std::error_code ec;
  const auto bytes = std::filesystem::file_size(gCurrBuildFile, ec);
  return result != 0 && !ec && bytes > 0;
}

}  // namespace

bool fCreateGenerationLists(const std::vector<std::int16_t>& noteCodes,
                            const std::vector<std::int32_t>& durationsMs, std::int16_t count,
                            GenerationLists& lists) {
  NV_PROC("fCreateGenerationLists");
  lists = {};
  if (count < 0 || static_cast<std::size_t>(count) > noteCodes.size() ||
      static_cast<std::size_t>(count) > durationsMs.size()) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fCreateGenerationLists");
    return false;
  }
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    if (noteCodes[i] < kLowestNoteCode) {
      sShowMessage("Error in creating current musical illustration. Note value outside range.");
      return false;
    }
    std::string token = fGetFnameForCurrTonicNote(noteCodes[i]);
    if (durationsMs[i] <= kGraceMinMs && token.size() > 2) token = token.substr(token.size() - 2);
    const bool last = i + 1 == static_cast<std::size_t>(count);
    if (i > 0) lists.notes += ' ';
    lists.notes += token;
    lists.durations += std::to_string(durationsMs[i]);
    if (!last) {
      lists.notes += ' ';
      lists.durations += ' ';
    }
  }
  return true;
}

std::string fGetFnameForCurrTonicNote(std::int16_t noteCode) {
  NV_PROC("fGetFnameForCurrTonicNote");
  std::string digits = std::to_string(noteCode);
  if (noteCode < 10 || (noteCode >= 101 && noteCode <= 999)) digits = "0" + digits;
  std::string token;
  for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
    const std::int32_t m = ZenvoVal(digits.substr(at, 2)) + gCurrTonicNoteId - 3;
    token += (m < 10 ? "0" : "") + std::to_string(m);
  }
  return token;
}

std::int16_t fCreateMusicFile(const std::vector<std::int16_t>& noteCodes,
                              const std::vector<std::int32_t>& durationsMs, std::int16_t count) {
  NV_PROC("fCreateMusicFile");
  GenerationLists lists;
  if (!fCreateGenerationLists(noteCodes, durationsMs, count, lists)) return 0;
  sDeleteBuildFile();
  const std::int16_t result =
      FWavGenerateMusicFile(count, lists.notes, lists.durations, gCurrBuildFile, gWavOption,
                            kMusicLevel, gSynthVolume, kPeakPermille, kAttackMs, kSustainPct,
                            kReleaseMs);
  if (!fBuildSucceeded(result)) {
    if (!fToldWaveFolderFault(gCurrBuildFile)) sShowMessage("Error creating music file");
    return 0;
  }
  return 1;
}

std::int16_t fCreateMusicFileWithTaal1(std::int16_t count,
                                       const std::vector<std::int16_t>& noteCodes,
                                       const std::vector<std::int32_t>& durationsMs,
                                       const std::string& theka, std::int32_t beatMs,
                                       std::int16_t /*buffer*/) {
  NV_PROC("fCreateMusicFileWithTaal1");
  GenerationLists lists;
  if (!fCreateGenerationLists(noteCodes, durationsMs, count, lists)) return 0;
  sDeleteBuildFile();
  const std::int16_t result = FWavGenerateMusicFile1(
      count, lists.notes, lists.durations, gCompStartBeat, gFormBeatCount, theka,
      gThekaInstrument, beatMs, gCurrBuildFile, gWavOption, kMusicLevel, gSynthVolume,
      kPeakPermille, kAttackMs, kSustainPct, kReleaseMs);
  if (!fBuildSucceeded(result)) {
    if (!fToldWaveFolderFault(gCurrBuildFile)) sShowMessage("Music File Generation Failed");
    return 0;
  }
  return 1;
}

std::int16_t fPrepareToPlaySelection1(std::int16_t buffer) {
  NV_PROC("fPrepareToPlaySelection1");
  if (buffer < 0 || buffer >= kMusicBufferCount) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fPrepareToPlaySelection1");
    return 0;
  }
  const MusicBuffer& b = gMusicBuffers[static_cast<std::size_t>(buffer)];
  gCurrBuildFile = gWavFiles[static_cast<std::size_t>(buffer)];
  sBeginWaveBuild();
  std::int16_t result = 0;
  if (gCurrItemType != 6 || gCurrPhraseKind != 8 || gThekaMode != 1) {
    result = fCreateMusicFile(b.NoteCodes, b.DurationsMs, b.Count);
  } else {
    gCompStartBeat = b.StartingBeat;
    result = fCreateMusicFileWithTaal1(b.Count, b.NoteCodes, b.DurationsMs, b.Theka,
                                       fCurrBeatMs(), buffer);
  }
  if (result == 0) {
    if (!fToldWaveFolderFault(gCurrBuildFile)) sShowMessage("Error Preparing Music File");
    return 0;
  }
  return 1;
}
