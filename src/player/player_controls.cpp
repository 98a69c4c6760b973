// The composition player's controls in its two states, idle and sounding,
// the stretch fields of Practice mode, the prompt line and the part's
// caption. No state of its own.
#include <array>

#include "core/errors.h"
#include "core/session.h"
#include "platform/screen.h"
#include "player/player.h"
#include "sound/music_set.h"
#include "sound/playback.h"
#include "store/lookups.h"

namespace {

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }

constexpr std::array<const char*, 14> kIdleControls = {
    "cMnuHel", "cMnuNotScr", "cMnuGraNot", "cMnuThe", "cMnuDro", "cMnuTonKey", "cMnuSyn", "cMnuXpt",
    "Frame1",  "Frame2",     "cReturn",    "cPlay",   "cStartLoop", "cSlider"};
constexpr std::array<const char*, 4> kStretchFields = {"cFRow", "cFBeat", "cTRow", "cTBeat"};
constexpr std::array<const char*, 15> kStretchControls = {
    "Line1",  "Line2",   "Line3",   "Line4",   "Line5", "Label1", "Label12", "Label13",
    "Label14", "Label15", "Label16", "cFRow", "cFBeat", "cTRow",  "cTBeat"};

void sShowStretchControls(bool on) {
  for (const char* name : kStretchControls) ctl(name).setVisible(on);
}

void sShowPrompts(const char* ids) {
  ctl("cPrompts").setText(fGetScaleInfo() + gSeparator + fGetPrompts(ids));
}

}  // namespace

void sEnableF14Selections() {
  NV_PROC("sEnableF14Selections");
  for (const char* name : kIdleControls) ctl(name).setEnabled(true);
  ctl("cStop").setEnabled(false);
  ctl("cStopLoop").setEnabled(false);
  for (const char* name : kStretchFields) ctl(name).setLocked(false);
}

void sDisableF14Selections() {
  NV_PROC("sDisableF14Selections");
  for (const char* name : kIdleControls) ctl(name).setEnabled(false);
  ctl("cStop").setEnabled(false);
  ctl("cStopLoop").setEnabled(false);
  if (gCurrMode == 3)
    for (const char* name : kStretchFields) ctl(name).setLocked(true);
  ctl(gLooping ? "cStopLoop" : "cStop").setEnabled(true);
}

void sDisplayPracticeParams() {
  NV_PROC("sDisplayPracticeParams");
  sShowStretchControls(true);
  for (const char* name : kStretchFields) ctl(name).setText("");
}

void sHidePracticeParams() {
  NV_PROC("sHidePracticeParams");
  sShowStretchControls(false);
}

void sDisplayLearningModePromptsForCompositions() {
  NV_PROC("sDisplayLearningModePromptsForCompositions");
  sShowPrompts("24,26,28,30");
}

void sDisplayPracticeModePromptsForCompositions() {
  NV_PROC("sDisplayPracticeModePromptsForCompositions");
  sShowPrompts("25,26,28,29,30");
}

void sSetupForCurrCompPart() {
  NV_PROC("sSetupForCurrCompPart");
  ctl("Label22").setCaption(gCompPart == 2 ? "Antara" : "Asthai");
}

void sGetReadyToPlaySegment() {
  NV_PROC("sGetReadyToPlaySegment");
  sDisableF14Selections();
}
