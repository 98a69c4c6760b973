// One note or one phrase on cMM (see play_selection.h).
#include "sound/play_selection.h"

#include <filesystem>
#include <system_error>

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "sound/playback.h"
#include "sound/wave_folder.h"
#include "tonvex/tonvex.h"

namespace {

// The synthesis library's envelope for single notes and phrases.
constexpr int kPeakPermille = 1000;
constexpr int kAttackMs = 60;
constexpr int kSustainPct = 80;
constexpr int kReleaseMs = 50;

std::int16_t generate(std::int32_t count, const std::string& notes, const std::string& durations,
                      std::int32_t droneMix, double level) {
  const std::string& file = gWavFiles[0];
  sBeginWaveBuild();
  std::error_code ignored;
  std::filesystem::remove(file, ignored);
  return FWavGenerateMusicFile(count, notes, durations, file, droneMix, level, gSynthVolume,
                               kPeakPermille, kAttackMs, kSustainPct, kReleaseMs);
}

void playFile(const std::string& file) {
  gCurrMusicFile = file;
  gFileOpened = 0;
  sPlayMusicFile(file);
}

bool fileHasContent(const std::string& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  return !error && size > 0;
}

}  // namespace

bool fPlaySelectedNote(std::int16_t noteNumber, std::int32_t durationMs, std::int32_t droneMix) {
  NV_PROC("fPlaySelectedNote");
  const std::string token = (noteNumber >= 0 && noteNumber < 10 ? "0" : "") + std::to_string(noteNumber);
  const std::int16_t result = generate(1, token, std::to_string(durationMs), droneMix, 0.2);
  if (result == 0 || !fileHasContent(gWavFiles[0])) {
    if (!fToldWaveFolderFault(gWavFiles[0])) sShowMessage("Error creating music file");
    return false;
  }
  playFile(gWavFiles[0]);
  return true;
}

void sPlaySelectedPhrase(std::int32_t count, const std::string& notes, const std::string& durations,
                         std::int32_t droneMix) {
  NV_PROC("sPlaySelectedPhrase");
  generate(count, notes, durations, droneMix, 1.0);
  playFile(gWavFiles[0]);
}
