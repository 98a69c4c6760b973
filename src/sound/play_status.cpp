// The status step (see play_status.h).
#include "sound/play_status.h"

#include <string>

#include "core/errors.h"
#include "core/session.h"
#include "notation/tokenizer.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/play_chain.h"
#include "sound/play_reeds.h"
#include "sound/play_state.h"

namespace {

// Word `number` (1-based) of the buffer's text, "" when it has none.
std::string wordOf(const MusicBuffer& buffer, int number) {
  if (number < 1 || number > static_cast<int>(buffer.WordStarts.size()) ||
      buffer.WordLengths.size() != buffer.WordStarts.size())
    return "";
  return fGetWord1(buffer.Text, static_cast<std::int16_t>(number), buffer.WordStarts,
                   buffer.WordLengths);
}

}  // namespace

bool fAdvanceCurrentNote(platform::Screen& form, std::int16_t delayMs) {
  if (gCurrBuffer < 0 || gCurrBuffer >= kMusicBufferCount || !form.hasControl("cMM")) return false;
  MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  const int c = buffer.CurrNote;
  if (c < 1 || c >= buffer.Count || c >= static_cast<int>(buffer.TimesMs.size())) return false;
  const long dueMs = static_cast<long>(buffer.TimesMs[static_cast<std::size_t>(c)]) -
                     static_cast<long>(c) * delayMs;
  if (form.control("cMM").device().position() < dueMs) return false;
  buffer.CurrNote = static_cast<std::int16_t>(c + 1);
  return true;
}

void sTrackPlayingNote(platform::Screen& form, std::int16_t delayMs) {
  NV_PROC("sTrackPlayingNote");
  sMarkOwedFirstNote(form);
  if (gFirstNoteOwed || !fAdvanceCurrentNote(form, delayMs)) return;
  const MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  if (form.hasControl("cCurrentItem")) {
    platform::Control& box = form.control("cCurrentItem");
    box.setText(box.text() + "   " + wordOf(buffer, buffer.CurrNote));
    box.refresh();
  }
  if (gGraceNotes == 2)
    sPlayReeds1Alt(form);
  else
    sPlayReedsAlt(form);
}
