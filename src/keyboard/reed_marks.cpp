// Reed marks by note code (see reed_marks.h).
#include "keyboard/reed_marks.h"

#include <string>

#include "core/errors.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "platform/screen.h"

namespace {

// The last reed whose label text the unmarking of all reeds reaches.
constexpr std::int16_t kLastUnmarkedReed = 31;

bool onKeyboard(platform::Screen& form, std::int32_t reed) {
  return reed >= kLowestReed && reed <= kHighestReed && form.hasControl("cL", static_cast<int>(reed));
}

}  // namespace

std::int16_t fMainNoteOfCode(std::int32_t code) {
  return static_cast<std::int16_t>(code < 0 ? code : code % 100);
}

std::int16_t fGraceNoteOfCode(std::int32_t code) {
  if (code < 1000 || code > 9999) return -1;
  return static_cast<std::int16_t>(code / 100);
}

std::int16_t fReedOfNote(std::int32_t noteNumber) {
  return static_cast<std::int16_t>(noteNumber - gReedOffset);
}

void sColorReedLabel(platform::Screen& form, std::int32_t reed, int colour) {
  if (onKeyboard(form, reed)) form.control("cL", static_cast<int>(reed)).setBackColor(colour);
}

void sRestoreReedLabel(platform::Screen& form, std::int32_t reed) {
  if (onKeyboard(form, reed))
    form.control("cL", static_cast<int>(reed))
        .setBackColor(fReedLabelBackColor(form, reed));
}

void sMarkNoteReeds(platform::Screen& form, std::int32_t code, bool withGrace) {
  sColorReedLabel(form, fReedOfNote(fMainNoteOfCode(code)), kSoundingReedColor);
  const std::int16_t grace = fGraceNoteOfCode(code);
  if (withGrace && grace >= 0) sColorReedLabel(form, fReedOfNote(grace), kGraceReedColor);
}

void sRestoreNoteReeds(platform::Screen& form, std::int32_t code) {
  sRestoreReedLabel(form, fReedOfNote(fMainNoteOfCode(code)));
  const std::int16_t grace = fGraceNoteOfCode(code);
  if (grace >= 0) sRestoreReedLabel(form, fReedOfNote(grace));
}

void sUnMarkAllReeds(platform::Screen& form) {
  NV_PROC("sUnMarkAllReeds");
  for (std::int16_t n = kLowestReed; n <= kLastUnmarkedReed; ++n)
    if (form.hasControl("cL", n)) form.control("cL", n).setForeColor(fReedLabelTextColor(n));
}
