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

// Space between a white key's label and the black keys above it, and
// between the label and the key's foot.
constexpr float kLabelGapPx = 2;

// The key and label measures at one tonic, in whole pixels. A white key's
// label fills the strip of the key below the black keys, so that no black
// key covers the top of its text (a komal mark, a curl, a tivra stroke); a
// black key's label sits at the foot of its key.
struct KeyMeasures {
  float whiteWidth, whiteHeight, blackWidth, blackHeight, labelWidth, blackLabelHeight,
      whiteLabelHeight;
};

KeyMeasures measuresFor(float keyboardWidth, float formHeight, int whiteCount) {
  KeyMeasures m{};
  m.whiteHeight = std::round(formHeight / 4);
  m.whiteWidth = std::round(keyboardWidth / static_cast<float>(whiteCount));
  m.blackHeight = std::round(formHeight / 5.5f);
  m.blackWidth = std::round(m.whiteWidth / 1.5f);
  m.labelWidth = std::round(m.blackWidth * 0.9f);
  m.blackLabelHeight = m.blackWidth;
  m.whiteLabelHeight = m.whiteHeight - m.blackHeight - 2 * kLabelGapPx;
  return m;
}

std::vector<std::int16_t> reedsOfColour(std::int16_t colourType) {
  std::vector<std::int16_t> reeds;
  for (std::int16_t n = gFirstReed; n <= gLastReed; ++n)
    if (gReedColorType[static_cast<std::size_t>(n)] == colourType) reeds.push_back(n);
  return reeds;
}

bool hasKeyboard(platform::Screen& form) { return form.hasControl("cR", 0); }

// Places a reed's label centred on its key: on a white key in the strip
// below the black keys, on a black key at its foot.
void placeLabel(platform::Screen& form, std::int16_t n, const KeyMeasures& m, bool show) {
  platform::Control& key = form.control("cR", n);
  platform::Control& label = form.control("cL", n);
  const bool white = gReedColorType[static_cast<std::size_t>(n)] == kWhiteReed;
  const float height = white ? m.whiteLabelHeight : m.blackLabelHeight;
  label.setHeight(height);
  label.setWidth(m.labelWidth);
  label.setLeft(key.left() + std::round((key.width() - m.labelWidth) / 2));
  label.setTop(white ? key.top() + m.blackHeight + kLabelGapPx
                     : key.top() + key.height() - std::round(1.1f * height));
  label.setBackColor(fReedLabelBackColor(form, n));
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
  // The keyboard spans cLine1 as the screen's layout placed it, so that it
  // follows the window's width, maximised or not.
  platform::Control& line = form.control("cLine1");
  const float x1 = std::round(line.x1());
  const float x2 = std::round(line.x2());
  const float top = std::round(line.y1());
  line.setLine(x1, top, x2, top);
  line.setVisible(true);

  gFirstReed = gFirstReedForTonic[static_cast<std::size_t>(gCurrTonicNoteId)];
  gLastReed = gLastReedForTonic[static_cast<std::size_t>(gCurrTonicNoteId)];
  hideReedsOutsideRange(form);

  const std::vector<std::int16_t> whites = reedsOfColour(kWhiteReed);
  if (whites.empty()) return;
  const KeyMeasures m = measuresFor(x2 - x1, form.height(), static_cast<int>(whites.size()));
  // Neighbouring keys share their borders. Each key's edges are rounded
  // from the exact pitch, so that the last key ends at the line's end
  // however many keys share its width.
  const float border = static_cast<float>(form.control("cR", whites.front()).borderStyle());
  const float pitch = (x2 - x1 - border) / static_cast<float>(whites.size());
  for (std::size_t i = 0; i < whites.size(); ++i) {
    const float left = x1 + std::round(static_cast<float>(i) * pitch);
    const float right = x1 + std::round(static_cast<float>(i + 1) * pitch) + border;
    placeKey(form.control("cR", whites[i]), left, top, right - left, m.whiteHeight, kWhiteReedColor,
             visible);
    placeLabel(form, whites[i], m, visible);
  }
  // A black key sits centred on the joint before the next white key.
  for (std::int16_t n : reedsOfColour(kBlackReed)) {
    const float left = form.control("cR", n + 1).left() - std::round(m.blackWidth / 2);
    placeKey(form.control("cR", n), left, top, m.blackWidth, m.blackHeight, kBlackReedColor,
             visible);
    placeLabel(form, n, m, visible);
  }
}

void sRelayKeyboard(platform::Screen& form) {
  NV_PROC("sRelayKeyboard");
  if (!hasKeyboard(form) || gFirstReed < kLowestReed || !form.hasControl("cR", gFirstReed)) return;
  if (form.control("cR", gFirstReed).visible()) sDisplayKeyboardAlt(form, 1);
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
