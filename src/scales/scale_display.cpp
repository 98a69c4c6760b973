// The ScaleShifting screen's control groups and key labels (see
// scale_display.h). Remembers the masks in force in gGrp....
#include "scales/scale_display.h"

#include <array>

#include "core/errors.h"
#include "core/session.h"
#include "display/fonts.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reeds.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "scales/scale_state.h"

namespace {

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }
void show(const char* name, bool on) { ctl(name).setVisible(on); }

// The first and last reed offered as a tonic: tonic ids 1 to 12 + 9.
constexpr std::int16_t kFirstTonicReed = 10;
constexpr std::int16_t kLastTonicReed = 21;
constexpr std::int16_t kMarkedLabelColor = 255;

void sGrpDispButtons(std::int16_t mask) {
  static constexpr std::array<const char*, 7> kButtons{"cSwitch", "cTuneNote", "cAdjust", "cPlay",
                                                       "cSave",   "cRename",   "cDelete"};
  for (std::size_t bit = 0; bit < kButtons.size(); ++bit) show(kButtons[bit], (mask >> bit) & 1);
}

void sGrpDispHeaders(std::int16_t mask) {
  for (const char* box : {"cScale", "cNote", "cRaga"}) ctl(box).setText("");
  if (mask & 1) ctl("cScale").setText(gCurrMusicSetName);
  if (mask & 2) sDisplayCurrNoteName(gPlayedLabel, ctl("cNote"));
  if (mask & 4) ctl("cRaga").setText(gCurrRagaName);
}

void sGrpDispKB(std::int16_t mask) {
  sKeyboardDisplayOff(*gCurrForm);
  if (mask == 1) {
    gNotationScript = 2;
    sKeyBoardDisplayOn(*gCurrForm, 1);
    sDisplayTonicNoteLabels();
  } else if (mask == 2) {
    gNotationScript = gSavedNotationScript;
    sKeyBoardDisplayOn(*gCurrForm, 1);
  }
}

void sGrpDispOperations(std::int16_t mask) {
  if (mask == 0) return;
  ctl("Label7").setCaption(mask == 1 ? "Pitch-shifting Operations - Select One"
                                     : "Current Pitch-shifting Operation");
  show("cSetTonic", mask != 4);
  ctl("cSetTonic").setEnabled(mask == 1);
  show("cRefineNotes", mask != 2);
  ctl("cRefineNotes").setEnabled(mask == 1);
}

void sGrpDispOptFrms(std::int16_t mask) {
  show("Frame2", mask == 1);
  show("Frame3", mask == 1);
  for (const char* option : {"Option3", "Option4", "Option5", "Option6", "Option7"})
    ctl(option).setValue(0);
}

void setLabelsEnabled(bool on) {
  for (std::int16_t reed = kLowestReed; reed <= kHighestReed; ++reed)
    if (gCurrForm->hasControl("cL", reed)) gCurrForm->control("cL", reed).setEnabled(on);
  if (gCurrForm->hasControl("cL", gLabelIndex))
    gCurrForm->control("cL", gLabelIndex).setForeColor(kMarkedLabelColor);
}

}  // namespace

void sGrpDispControls(std::int16_t mask) {
  for (const char* name : {"Label5", "cScalesList", "Label3", "Label4", "Label6", "cSlider",
                           "Label2", "cSettingName", "cOK"})
    show(name, false);
  if (mask & 3) {
    ctl("Label5").setCaption(mask & 1 ? "Select a Scale to Refine" : "Select a Raga");
    show("Label5", true);
    show("cScalesList", true);
  }
  for (const char* name : {"Label3", "Label4", "Label6", "cSlider"}) show(name, mask & 4);
  for (const char* name : {"Label2", "cSettingName", "cOK"}) show(name, mask & 8);
}

void sGrpDispAll(std::int16_t mode, const GroupMasks& masks) {
  NV_PROC("sGrpDispAll");
  const bool all = mode == 0;
  if (all || masks.buttons != gGrpButtons) sGrpDispButtons(masks.buttons);
  if (all || masks.controls != gGrpControls) sGrpDispControls(masks.controls);
  if (all || masks.headers != gGrpHeaders) sGrpDispHeaders(masks.headers);
  if (all || masks.kb != gGrpKB) sGrpDispKB(masks.kb);
  if (all || masks.operations != gGrpOperations) sGrpDispOperations(masks.operations);
  if (all || masks.optFrms != gGrpOptFrms) sGrpDispOptFrms(masks.optFrms);
  gGrpButtons = masks.buttons;
  gGrpControls = masks.controls;
  gGrpHeaders = masks.headers;
  gGrpKB = masks.kb;
  gGrpOperations = masks.operations;
  gGrpOptFrms = masks.optFrms;
}

void sDisplayTonicNoteLabels() {
  NV_PROC("sDisplayTonicNoteLabels");
  static constexpr std::array<const char*, 12> kCaptions{"W7", "W1", "B1", "W2", "B2", "W3",
                                                         "W4", "B3", "W5", "B4", "B6", "B5"};
  for (std::int16_t reed = kLowestReed; reed <= kHighestReed; ++reed) {
    const bool offered = reed >= kFirstTonicReed && reed <= kLastTonicReed;
    for (const char* array : {"cR", "cL"})
      if (gCurrForm->hasControl(array, reed)) gCurrForm->control(array, reed).setVisible(offered);
    if (offered && gCurrForm->hasControl("cL", reed)) {
      platform::Control& label = gCurrForm->control("cL", reed);
      sSetEnglishFont(label);
      label.setCaption(kCaptions[reed - kFirstTonicReed]);
    }
  }
}

void sDisableNoteLabels() { setLabelsEnabled(false); }
void sEnableNoteLabels() { setLabelsEnabled(true); }

void sDisplayCurrNoteName(std::int16_t reed, platform::Control& textBox) {
  if (reed == 0) return;
  const auto noteId = static_cast<std::int16_t>(3 - gCurrTonicNoteId + reed);
  sAdjustFont(textBox);
  // A reed beyond the notes named at this tonic gets an empty box.
  textBox.setText(noteId >= 0 && noteId < kNoteCount ? fGetStringForNote(noteId, gNotationScript)
                                                          : "");
}
