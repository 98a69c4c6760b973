// Creating, laying out, showing and hiding the reed keyboard (see
// keyboard_layout.h). Measures are in the screen's pixels.
#include "keyboard/keyboard_layout.h"

#include <cmath>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "platform/screen.h"

namespace {

// Space between the keyboard and the window's sides.
constexpr float kSideMarginPx = 2;

// The key and label measures at one tonic, in whole pixels.
struct KeyMeasures {
  float whiteWidth, whiteHeight, blackWidth, blackHeight, labelWidth, labelHeight;
};

KeyMeasures measuresFor(float keyboardWidth, int whiteCount) {
  KeyMeasures m{};
  m.whiteHeight = std::round(gFormH / 4);
  m.whiteWidth = std::round(keyboardWidth / static_cast<float>(whiteCount));
  m.blackHeight = std::round(gFormH / 5.5f);
  m.blackWidth = std::round(m.whiteWidth / 1.5f);
  m.labelWidth = std::round(m.blackWidth * 0.9f);
  m.labelHeight = m.blackWidth;
  return m;
}

std::vector<std::int16_t> reedsOfColour(std::int16_t colourType) {
  std::vector<std::int16_t> reeds;
  for (std::int16_t n = gFirstReed; n <= gLastReed; ++n)
    if (gReedColorType[static_cast<std::size_t>(n)] == colourType) reeds.push_back(n);
  return reeds;
}

bool hasKeyboard(platform::Screen& form) { return form.hasControl("cR", 0); }

// Places a reed's label centred at the foot of its key.
void placeLabel(platform::Screen& form, std::int16_t n, const KeyMeasures& m, bool show) {
  platform::Control& key = form.control("cR", n);
  platform::Control& label = form.control("cL", n);
  label.setHeight(m.labelHeight);
  label.setWidth(m.labelWidth);
  label.setLeft(key.left() + std::round((key.width() - m.labelWidth) / 2));
  label.setTop(key.top() + key.height() - std::round(1.1f * m.labelHeight));
  label.setBackColor(fReedDefaultColor(n));
  if (show) label.setVisible(true);
}

void placeKey(platform::Control& key, float left, float top, float width, float height, int colour,
              bool show) {
  key.setLeft(left);
  key.setTop(top);
  key.setWidth(width);
  key.setHeight(height);
  key.setBackColor(colour);
  if (show) key.setVisible(true);
}

void setReedVisible(platform::Screen& form, std::int16_t n, bool on) {
  if (form.hasControl("cR", n)) form.control("cR", n).setVisible(on);
  if (form.hasControl("cL", n)) form.control("cL", n).setVisible(on);
}

void hideReedsOutsideRange(platform::Screen& form) {
  for (std::int16_t n = kLowestReed; n <= kHighestReed; ++n)
    if (n < gFirstReed || n > gLastReed) setReedVisible(form, n, false);
}

}  // namespace

void sLoadKBReedsAndLabels(platform::Screen& form) {
  NV_PROC("sLoadKBReedsAndLabels");
  if (!hasKeyboard(form)) return;
  for (std::int16_t colour : {kWhiteReed, kBlackReed})
    for (const char* array : {"cR", "cL"})
      for (std::int16_t n = kLowestReed; n <= kHighestReed; ++n)
        if (gReedColorType[static_cast<std::size_t>(n)] == colour)
          form.loadElement(array, n).setBackColor(fReedDefaultColor(n));
}

void sDisplayKeyboardAlt(platform::Screen& form, std::int16_t show) {
  NV_PROC("sDisplayKeyboardAlt");
  if (!hasKeyboard(form) || gCurrTonicNoteId < 1 || gCurrTonicNoteId > 12) return;
  sLoadKBReedsAndLabels(form);
  const bool visible = show == 1;
  platform::Control& line = form.control("cLine1");
  const float x1 = kSideMarginPx;
  const float x2 = form.width() - kSideMarginPx;
  const float top = std::round(line.y1());
  line.setLine(x1, top, x2, top);
  line.setVisible(true);

  gFirstReed = gFirstReedForTonic[static_cast<std::size_t>(gCurrTonicNoteId)];
  gLastReed = gLastReedForTonic[static_cast<std::size_t>(gCurrTonicNoteId)];
  hideReedsOutsideRange(form);

  const std::vector<std::int16_t> whites = reedsOfColour(kWhiteReed);
  const KeyMeasures m = measuresFor(x2 - x1, static_cast<int>(whites.size()));
  float x = x1;
  for (std::int16_t n : whites) {
    platform::Control& key = form.control("cR", n);
    placeKey(key, x, top, m.whiteWidth, m.whiteHeight, kWhiteReedColor, visible);
    // Neighbouring keys share their borders.
    x += m.whiteWidth - static_cast<float>(key.borderStyle());
    placeLabel(form, n, m, visible);
  }
  // A black key sits centred on the joint before the next white key.
  for (std::int16_t n : reedsOfColour(kBlackReed)) {
    const float left = form.control("cR", n + 1).left() - std::round(m.blackWidth / 2);
    placeKey(form.control("cR", n), left, top, m.blackWidth, m.blackHeight, kBlackReedColor,
             visible);
    placeLabel(form, n, m, visible);
  }
}

void sHideKeyboard(platform::Screen& form) {
  NV_PROC("sHideKeyboard");
  if (!hasKeyboard(form)) return;
  for (std::int16_t n = 0; n <= kHighestReed; ++n) setReedVisible(form, n, false);
  form.control("cLine1").setVisible(false);
}

void sKeyboardDisplayOff(platform::Screen& form) {
  NV_PROC("sKeyboardDisplayOff");
  if (!hasKeyboard(form)) return;
  for (std::int16_t n = kLowestReed; n <= kHighestReed; ++n) setReedVisible(form, n, false);
  form.control("cLine1").setVisible(false);
  sSetAllReedLabelColorToDefault(form);
}

// Shows the keyboard with the labels of the tonic and script in force, so
// that every screen that shows it (on entry, after a tonic or script change)
// names its reeds.
void sKeyBoardDisplayOn(platform::Screen& form, std::int16_t show) {
  NV_PROC("sKeyBoardDisplayOn");
  sDisplayKeyboardAlt(form, show);
  sUpdateReedLabelsAlt(form);
  // The workbench and the scale shifting keep cNotes beside the keyboard,
  // and so does a screen that owns no chain (context 13), as the keyboard
  // always has.
  const bool keepsNotes = gCallbackContext == kContextWorkbench ||
                          gCallbackContext == kContextScaleShifting ||
                          gCallbackContext == kContextNone;
  if (!keepsNotes && form.hasControl("cNotes")) form.control("cNotes").setVisible(false);
}

void sImplementCurrKBDisplayMode() {
  NV_PROC("sImplementCurrKBDisplayMode");
  if (gCurrForm == nullptr) return;
  if (gKeyboardDisplay == 1) sKeyBoardDisplayOn(*gCurrForm, 1);
  if (gKeyboardDisplay == 2) sKeyboardDisplayOff(*gCurrForm);
}
