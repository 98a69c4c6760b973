// The composition grid's sounding cell (see play_bols.h).
#include "sound/play_bols.h"

#include "core/errors.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/play_state.h"

namespace {

constexpr int kCellColor = 0x8080FF;
constexpr int kSoundingCellColor = 0x0000FF;

void colourCell(platform::Screen& form, int cell, int colour) {
  if (form.hasControl("cNote", cell)) form.control("cNote", cell).setBackColor(colour);
}

}  // namespace

void sPlayCurrBol1Alt(platform::Screen& form) {
  NV_PROC("sPlayCurrBol1Alt");
  if (gCurrBuffer < 0 || gCurrBuffer >= kMusicBufferCount) return;
  const MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  const int c = buffer.CurrNote;
  const int before = buffer.FirstNotationCell + buffer.StartingBeat;
  if (c != 1) colourCell(form, c + before - 3, kCellColor);
  if (c < gRowsPerCycle * gFormBeatCount) colourCell(form, c + before - 2, kSoundingCellColor);
}
