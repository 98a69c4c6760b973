// Reed labels: note names and default colours (see reed_labels.h).
#include "keyboard/reed_labels.h"

#include "core/errors.h"
#include "core/session.h"
#include "keyboard/reeds.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"

std::int16_t gReedOffset = 0;

namespace {

// Reed of the middle Sa above the reed numbered like the tonic.
constexpr std::int16_t kMiddleSaAboveTonic = 9;

void setLabelFont(platform::Control& label) {
  label.setFontBold(true);
  if (gNotationScript == 1) {
    label.setFontName("Shusha");
    label.setFontSize(16);
  } else {
    label.setFontName("Times New Roman");
    label.setFontSize(12);
  }
}

std::string noteNameOnReed(std::int16_t reed) {
  const int noteId = reed + gReedOffset;
  if (noteId < 0 || noteId >= kNoteCount) return "";
  const auto id = static_cast<std::size_t>(noteId);
  return gNotationScript == 1 ? gNoteDev[id] : gNoteEng[id];
}

}  // namespace

void sUpdateReedLabelsAlt(platform::Screen& form) {
  NV_PROC("sUpdateReedLabelsAlt");
  gReedOffset = static_cast<std::int16_t>(kNeutralTonicId - gCurrTonicNoteId);
  for (std::int16_t n = gFirstReed; n <= gLastReed; ++n) {
    if (n < kLowestReed || !form.hasControl("cL", n)) continue;
    platform::Control& label = form.control("cL", n);
    setLabelFont(label);
    label.setCaption(noteNameOnReed(n));
    label.setForeColor(kWindowTextColor);
  }
  const int middleSa = gCurrTonicNoteId + kMiddleSaAboveTonic;
  if (form.hasControl("cL", middleSa)) form.control("cL", middleSa).setForeColor(kTonicLabelColor);
}

void sSetAllReedLabelColorToDefault(platform::Screen& form) {
  NV_PROC("sSetAllReedLabelColorToDefault");
  for (std::int16_t n = 0; n <= kHighestReed; ++n)
    if (form.hasControl("cL", n)) form.control("cL", n).setBackColor(fReedDefaultColor(n));
}
