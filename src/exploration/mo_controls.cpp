// The controls of the Raga Exploration screen (see mo_controls.h).
#include "exploration/mo_controls.h"

#include <array>
#include <string>

#include "core/errors.h"
#include "core/session.h"
#include "display/fonts.h"
#include "display/notation_display.h"
#include "exploration/exploration_state.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/play_buttons.h"
#include "sound/playback.h"
#include "store/working_record_comp.h"

namespace {

constexpr std::int16_t kFilmSongKind = 9;

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }

constexpr std::array<const char*, 24> kSelections = {
    "cAroha",   "cAvroha",   "cPakad",    "cNVIllusList", "cUserIllusList", "cScaleList",
    "Frame1",   "Option1",   "Option2",   "Option3",      "cReturn",        "Frame2",
    "Option4",  "Option5",   "cSlider",   "cMnuRagInf",   "cMnuDro",        "cMnuGraNot",
    "cMnuKebDis", "cMnuNotScr", "cMnuSyn", "cMnuTonKey",  "cMnuHel",  "cMnuXpt"};

void sSetSelections(bool on) {
  for (const char* name : kSelections) ctl(name).setEnabled(on);
}

bool fIsPhraseGroup() { return gCurrItemType >= 3 && gCurrItemType <= 5; }

void sOfferParts(const std::string& first, const std::string& second) {
  ctl("Frame2").setVisible(true);
  ctl("Option4").setCaption(first);
  ctl("Option5").setCaption(second);
  ctl("Option4").setVisible(true);
  ctl("Option5").setVisible(true);
  ctl("Frame2").setEnabled(false);
}

void sDisplayDemoControls() {
  ctl("cCurrentItem").setLocked(true);
  sEnablePlayStopButtons();
  const bool film = gCurrItemType == 6 && gCurrPhraseKind == kFilmSongKind;
  ctl("cStopCur").setEnabled(fIsPhraseGroup() || gCurrItemType == 7 ||
                             (gCurrItemType == 6 && !film));
  if (gCurrItemType == 6 && gCurrPhraseKind == 8) sOfferParts("Asthai", "Antara");
  // A comparison's buttons replay part 1 and part 2: each is named by the
  // raga whose phrase that part holds.
  if (gCurrItemType == 7) sOfferParts(gCompInfo[0].Mukhada, gCompInfo[1].Mukhada);
}

void sDisplayStudyControls() {
  ctl("cCurrentItem").setLocked(gCurrMode != 3);
  sEnablePlayStartButtons();
  ctl("cSlider").setVisible(true);
  ctl("Label11").setVisible(true);
  ctl("Label12").setVisible(true);
  if (!fIsPhraseGroup()) return;
  ctl("Frame2").setVisible(true);
  ctl("Frame2").setCaption("Select Desired");
  ctl("Option4").setCaption("Next");
  ctl("Option5").setCaption("Prev");
  ctl("Option4").setVisible(true);
  ctl("Option5").setVisible(true);
  ctl("Frame2").setEnabled(true);
}

}  // namespace

void sDisplayMOControls() {
  NV_PROC("sDisplayMOControls");
  ctl("cInfo").setVisible(true);
  ctl("cCurrentItem").setVisible(true);
  sDisplayPlayControlButtons();
  ctl("cStopCur").setVisible(true);
  sDisplayPatternNotation();
  ctl("cStopCur").setEnabled(false);
  if (gCurrMode == 1)
    sDisplayDemoControls();
  else
    sDisplayStudyControls();
}

void sHideMOControls() {
  NV_PROC("sHideMOControls");
  for (const char* name : {"cInfo", "cCurrentItem", "cPlay", "cStop", "cStartLoop", "cStopLoop",
                           "cStopCur", "cSlider", "Label11", "Label12", "Frame2"})
    ctl(name).setVisible(false);
}

void sEnableF28Selections() {
  NV_PROC("sEnableF28Selections");
  sSetSelections(true);
}

void sDisableF28Selections() {
  NV_PROC("sDisableF28Selections");
  sSetSelections(false);
}

void sUpdateF28NotationItemFonts() {
  NV_PROC("sUpdateF28NotationItemFonts");
  sAdjustFont(ctl("cCurrentItem"));
}

void sSetCurrItemDesc() {
  NV_PROC("sSetCurrItemDesc");
  const std::string position =
      std::to_string(gPhraseSet.Position) + "/" + std::to_string(gPhraseSet.Count);
  switch (gCurrPhraseKind) {
    case 1: ctl("cInfo").setText("Aroha and Avroha"); break;
    case 3: ctl("cInfo").setText("Pakad pattern"); break;
    case 4: ctl("cInfo").setText("(Alap " + position + ")"); break;
    case 5: ctl("cInfo").setText("(Layakari Phrase " + position + ")"); break;
    case 6: ctl("cInfo").setText("(Taan " + position + ")"); break;
    default: break;  // the avroha and other kinds keep the text they find
  }
}

void sClearNotationBox() {
  NV_PROC("sClearNotationBox");
  ctl("cInfo").setText("");
  ctl("cCurrentItem").setText("");
}
