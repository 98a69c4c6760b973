// The practised stretch and the record of the composition's wave files (see
// composition_segment.h).
#include "sound/composition_segment.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

#include "core/errors.h"
#include "core/session.h"
#include "notation/durations.h"
#include "notation/text_utils.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/play_state.h"
#include "sound/speed_factor.h"
#include "tonvex/tonvex.h"

std::array<CompositionFileState, kCompositionFileStates> CS;
std::array<std::int16_t, 3> gSegmentBounds{};

namespace {

// The library's own constant for a cut (it checks it only).
constexpr double kSegmentLevel = 0.2;
constexpr std::int16_t kWavOptionSegment = 2;

float fPresentTempo() { return static_cast<float>(fCurrSpeedFactor()); }

std::int16_t fStretchField(const char* name) {
  return fRoundToInt16(fNumericValue(gCurrForm->control(name).text()));
}

bool fFieldDiffers(const char* name, std::int16_t stored) {
  return fNumericValue(gCurrForm->control(name).text()) != stored;
}

}  // namespace

void sInitCS(std::int16_t kind) {
  NV_PROC("sInitCS");
  if (kind == 2) {
    CS[0].Part = 1;
    CS[1].Part = 2;
    CS[0].Tempo = CS[1].Tempo = fPresentTempo();
  } else if (kind == 3) {
    CS[kStretchState] = CompositionFileState{};
  }
}

void sUpdateCS(std::int16_t kind) {
  NV_PROC("sUpdateCS");
  const float tempo = fPresentTempo();
  for (std::size_t i = 0; i <= kStretchState; ++i) CS[i].Tempo = tempo;
  if (kind != 3) return;
  CompositionFileState& stretch = CS[kStretchState];
  stretch.Part = gCompPart;
  stretch.FRow = fStretchField("cFRow");
  stretch.FBeat = fStretchField("cFBeat");
  stretch.TRow = fStretchField("cTRow");
  stretch.TBeat = fStretchField("cTBeat");
}

std::int16_t fNewCompSegment() {
  NV_PROC("fNewCompSegment");
  const CompositionFileState& stretch = CS[kStretchState];
  if (stretch.Part != gCompPart) return -1;
  if (fPresentTempo() != stretch.Tempo) return -1;
  if (fFieldDiffers("cFRow", stretch.FRow) || fFieldDiffers("cFBeat", stretch.FBeat) ||
      fFieldDiffers("cTRow", stretch.TRow) || fFieldDiffers("cTBeat", stretch.TBeat))
    return -1;
  return 0;
}

StretchCut fStretchCut(std::int16_t firstSlot, std::int16_t lastSlot, std::int16_t startingBeat,
                       std::int16_t baseMatraMs, double factor) {
  StretchCut cut;
  const std::int32_t startOffset = firstSlot - startingBeat;
  const std::int32_t slots = lastSlot - firstSlot + 1;
  cut.startMs = fRoundToInt32(static_cast<double>(startOffset * baseMatraMs * 10) * factor);
  cut.lengthMs = fRoundToInt32(static_cast<double>(slots * baseMatraMs * 10) * factor);
  cut.firstNote = static_cast<std::int16_t>(startOffset);
  cut.count = static_cast<std::int16_t>(slots);
  return cut;
}

std::int16_t fCreateCompSegmentMusicFile() {
  NV_PROC("fCreateCompSegmentMusicFile");
  std::error_code ec;
  std::filesystem::remove(gWavC, ec);
  const std::size_t part = gCompPart == 2 ? 1 : 0;
  const MusicBuffer& whole = gMusicBuffers[part];
  const StretchCut cut = fStretchCut(gSegmentBounds[0], gSegmentBounds[1], whole.StartingBeat,
                                     gBaseMatraMs, fCurrSpeedFactor());
  gWavOption = kWavOptionSegment;
  gCurrBuildFile = gWavC;
  if (FWavCreateSegmentFile(gWavFiles[part], cut.startMs, cut.lengthMs, gCurrBuildFile,
                            gWavOption, kSegmentLevel) == 0)
    return 0;
  gBufferRotation = false;
  gCurrBuffer = 2;
  MusicBuffer& stretch = gMusicBuffers[2];
  stretch.StartingBeat = whole.StartingBeat;
  stretch.Count = cut.count;
  stretch.TimesMs.assign(static_cast<std::size_t>(cut.count) + 2, 0);
  for (std::int32_t i = 0; i < cut.count; ++i) {
    const std::size_t from = static_cast<std::size_t>(cut.firstNote + i);
    const std::int32_t at = from < whole.TimesMs.size() ? whole.TimesMs[from] : 0;
    stretch.TimesMs[static_cast<std::size_t>(i)] = at - cut.startMs;
  }
  stretch.CurrNote = 1;
  stretch.FirstNotationCell = cut.firstNote;
  return -1;
}
