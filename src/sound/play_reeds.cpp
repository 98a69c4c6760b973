// Reed marks of the sounding note (see play_reeds.h).
#include "sound/play_reeds.h"

#include "core/errors.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reed_marks.h"
#include "keyboard/reeds.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/play_state.h"

namespace {

constexpr int kMarkedTextColor = 0x0000FF;

MusicBuffer* currentBuffer() {
  if (gCurrBuffer < 0 || gCurrBuffer >= kMusicBufferCount) return nullptr;
  return &gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
}

// Code of note `index` (0-based) of the buffer, or -1 when there is none.
std::int32_t codeAt(const MusicBuffer& buffer, int index) {
  if (index < 0 || index >= buffer.Count || index >= static_cast<int>(buffer.NoteCodes.size()))
    return -1;
  return buffer.NoteCodes[static_cast<std::size_t>(index)];
}

// Shared by both marking forms: restore the previous note, then mark.
template <typename Mark>
void markCurrentNote(platform::Screen& form, Mark mark) {
  const MusicBuffer* buffer = currentBuffer();
  if (buffer == nullptr) return;
  const int c = buffer->CurrNote;
  if (c != 1) sSetReedLabelColorToDefault(form, static_cast<std::int16_t>(c - 2));
  const std::int32_t code = codeAt(*buffer, c - 1);
  if (code >= 0) mark(code);
}

}  // namespace

void sPlayReedsAlt(platform::Screen& form) {
  NV_PROC("sPlayReedsAlt");
  markCurrentNote(form, [&form](std::int32_t code) {
    sColorReedLabel(form, fReedOfNote(code), kSoundingReedColor);
  });
}

void sPlayReeds1Alt(platform::Screen& form) {
  NV_PROC("sPlayReeds1Alt");
  markCurrentNote(form, [&form](std::int32_t code) { sMarkNoteReeds(form, code, true); });
}

void sSetReedLabelColorToDefault(platform::Screen& form, std::int16_t index) {
  NV_PROC("sSetReedLabelColorToDefault");
  const MusicBuffer* buffer = currentBuffer();
  if (buffer == nullptr) return;
  const std::int32_t code = codeAt(*buffer, index);
  if (code >= 0) sRestoreNoteReeds(form, code);
}

void sToggleCurrKBNote(std::int16_t mode, platform::Screen& form) {
  NV_PROC("sToggleCurrKBNote");
  const MusicBuffer* buffer = currentBuffer();
  if (buffer == nullptr) return;
  const std::int32_t code = codeAt(*buffer, buffer->CurrNote - 1);
  const std::int16_t reed = fReedOfNote(fMainNoteOfCode(code));
  if (code < 0 || reed < kLowestReed || reed > kHighestReed || !form.hasControl("cL", reed)) return;
  if (mode == 1) form.control("cL", reed).setForeColor(fReedLabelTextColor(reed));
  if (mode == 2) form.control("cL", reed).setForeColor(kMarkedTextColor);
}

void sUnMarkCurrentReeds(platform::Screen& form) {
  NV_PROC("sUnMarkCurrentReeds");
  MusicBuffer* buffer = currentBuffer();
  if (buffer == nullptr) return;
  for (std::int16_t i = 1; i <= buffer->Count; ++i) {
    buffer->CurrNote = i;
    sToggleCurrKBNote(1, form);
  }
}
