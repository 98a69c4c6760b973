// Controller of the Composer screen (see composer.h).
#include "composer/composer.h"

#include <algorithm>

#include "composer/composer_play.h"
#include "composer/composer_save.h"
#include "composer/composer_slots.h"
#include "composer/composer_store.h"
#include "composer/row_images.h"
#include "control/raga_setup.h"
#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "display/raga_display.h"
#include "notation/text_utils.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "sound/music_buffers.h"
#include "sound/music_set.h"
#include "store/lookups.h"
#include "store/queries.h"
#include "store/query_open.h"
#include "store/tala_beats.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

std::int16_t gListUse = 1;
std::int16_t gOKUse = 0;
std::int16_t gSelNotation = -1;
std::int16_t gPrevSelNotation = -1;
std::int16_t gSelTimeVal = -1;
std::int16_t gPrevSelTimeVal = -1;
bool gInsertPending = false;
bool gDeletePending = false;
std::int16_t gBaseItemType = 0;
std::int16_t gSavedMode = 1;
std::int16_t gCompTalaId = 0;

namespace {

constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kAlap = 1;
constexpr std::int16_t kLayakari = 2;
constexpr std::int16_t kTaan = 3;
constexpr std::int16_t kNewComposition = 4;
constexpr std::int16_t kExistingComposition = 5;
constexpr std::int16_t kCompositionKind = 8;
constexpr std::int16_t kDefaultBeatDuration = 60;  // hundredths of a second
constexpr float kGap = 0.02f;                     // of the screen's height
platform::Screen& form() { return *gCurrForm; }
platform::Control& ctl(const char* name, int index = -1) { return gCurrForm->control(name, index); }
// The screen's width and height as its controls are laid out from their
// ratios.
float fScreenH() { return gFormH; }
float fBottom(platform::Control& c) { return c.top() + c.height(); }
bool fIsComposition() { return gCurrAltType == kNewComposition || gCurrAltType == kExistingComposition; }

void sShow(std::initializer_list<const char*> names, bool on = true) {
  for (const char* name : names) ctl(name).setVisible(on);
}

void sCentre(platform::Control& c) { c.setLeft((gFormW - c.width()) / 2); }

// Puts `c` below `above` by H x gap and shows it.
void sPlaceBelow(platform::Control& c, platform::Control& above, float gap = kGap) {
  c.setTop(fBottom(above) + fScreenH() * gap);
}

void sPrompt(const std::string& ids) { ctl("cPrompts").setText(fGetScaleInfo() + gSeparator + fGetPrompts(ids)); }

// The prompt of each stage.
void sDisplayPromptComposer(int stage) {
  static const char* const kPrompts[] = {
      "41",
      "42",
      "43,45,46,47,48,49,50,52,53,54,56,57,58,59,63,64,68,69",
      "44,45,46,47,48,49,50,52,53,54,56,57,58,59,63,64,68,69",
      "51,47,48,49,50,52,55,56,57,58,59,63,64,68,69",
      "44,45,46,47,48,49,50,52,53,60,61,57,58,59,62,63,64,68,69",
      "65",
      "66",
      "67",
  };
  sPrompt(kPrompts[stage]);
}

// Kind 1: Label1 and cRagaList below the raga's data; 2: below cAntara.
void sLocateDisplayList(int kind) {
  platform::Control& heading = ctl("Label1");
  platform::Control& list = ctl("cRagaList");
  platform::Control& above = kind == 1 ? ctl("cPakad") : ctl("cAntara");
  sPlaceBelow(heading, above);
  sCentre(heading);
  sPlaceBelow(list, heading, kGap / 2);
  sCentre(list);
}

void sLoadAndDisplayRagaList() {
  std::vector<std::string> names;
  sLoadRagaList(names);
  platform::Control& list = ctl("cRagaList");
  list.clear();
  for (const std::string& name : names) list.addItem(name);
  sShow({"Label1", "cRagaList"});
}

void sLoadAndDisplayTalaList() {
  platform::Control& list = ctl("cRagaList");
  list.clear();
  if (auto talas = fOpenQuery(*gDbA, gSQLStr3))
    for (; !talas->eof(); talas->moveNext()) list.addItem(talas->field("Tala Name").asText());
  ctl("Label1").setCaption("Select Tala");
  sShow({"Label1", "cRagaList"});
}

void sShowCategoryFrame() {
  platform::Control& frame = ctl("cFMusCat");
  frame.setTop(ctl("cRagaList").top());
  sCentre(frame);
  frame.setVisible(true);
}

// --- event 1: a list choice --------------------------------------------------

void sRagaChosen(const std::string& name) {
  const std::int16_t id = fGetRagaId(name);
  if (id == 0) return;
  gCurrRagaName = name;
  gCurrRagaId = id;
  ctl("cRagaList").setVisible(false);
  sSetupRagaAndSound();
  sDisplayFromT_RagaBasicData();
  ctl("Label1").setCaption("Select Musical Category to work with");
  sShowCategoryFrame();
  sDisplayPromptComposer(1);
}

void sTalaChosen(const std::string& name) {
  gCompTalaId = fGetTalaId(name);
  gFormBeatCount = fGetBeatCountForTala(gCompTalaId);
  ctl("cTaal").setText(name);
  sShow({"Label18", "cTaal"});
  sShow({"cRagaList", "Label1"}, false);
  sShow({"cOK", "Label17", "cMukhada", "Label16", "cStartBeatAst", "Label15", "cStartBeatAnt", "Label14", "cSpeed"});
  platform::Control& instruction = ctl("Label8");
  sPlaceBelow(instruction, ctl("cMukhada"));
  instruction.setCaption("Enter 'Mukhada' Text, Starting beats for Asthai, Antara, beat duration, and click OK");
  instruction.setVisible(true);
  sPlaceBelow(ctl("cOK"), instruction);
  ctl("cMukhada").setFocus();
  sDisplayPromptComposer(8);
  gOKUse = 5;
}

void sDisplayCompTemplate() {
  float top = fBottom(ctl("cTaal")) + fScreenH() * kGap;
  sLoadTimeValuesArrayToForm(top);
  top = fBottom(ctl("cTimeVal", 0)) + fScreenH() * kGap;
  sLoadNotesPalletToForm(top);
  sAdjustNotesPalletForRaga();
  gFirstDisplayRow = 1;
  sLoadNotesArrayToForm();
}

void sDisplayCompDataFromT() {
  ctl("cAsthai").setText(gCompInfo[0].Text);
  ctl("cStartBeatAst").setText(std::to_string(gCompInfo[0].StartingBeat));
  ctl("cAntara").setText(gCompInfo[1].Text);
  ctl("cStartBeatAnt").setText(std::to_string(gCompInfo[1].StartingBeat));
  ctl("cTaal").setText(gCompInfo[0].TalaId != 0 ? fGetTalaName(gCompInfo[0].TalaId) : "");
  ctl("cMukhada").setText(gCompInfo[0].Mukhada);
  ctl("cSpeed").setText(std::to_string(gCompInfo[0].PlayingSpeed));
  sDisplayCompTemplate();
}

void sDisplayExistingUserCompLayout() {
  sShow({"cRagaList", "Label1", "Label8"}, false);
  sShow({"Label12", "Label13", "cAsthai", "cAntara", "Frame1", "Label14", "Label15", "Label16", "Label17",
         "Label18", "cMukhada", "cSpeed", "cStartBeatAst", "cStartBeatAnt", "cTaal"});
  sDisplayCompDataFromT();
}

void sCompositionChosen(const std::string& name) {
  gCurrCompName = name;
  const std::int32_t index = fFindUserComposition(*gDbB, gCurrRagaId, name);
  if (index == 0) {
    sShowMessage("Composition Not Available");
    return;
  }
  gCurrCompIndex = index;
  gCurrPhraseKind = kCompositionKind;
  sDBToTCompInfo(2, kCompositionInfoType, name);
  sDBToTCompData(2, index);
  sDisplayExistingUserCompLayout();
  ctl("cOAsthai").setValue(-1);
}

void sListChoice() {
  platform::Control& list = ctl("cRagaList");
  const int index = list.listIndex();
  if (index < 0) return;
  const std::string choice = list.list(index);
  list.setListIndex(-1);
  switch (gListUse) {
    case 1: sRagaChosen(choice); break;
    case 2: sTalaChosen(choice); break;
    case 3: sCompositionChosen(choice); break;
    default: break;
  }
}

// --- event 2: a category -----------------------------------------------------

void sSizeRowImages(std::size_t rows) {
  gNotesRowImages.assign(rows, "");
  gDurRowImages.assign(rows, "");
  gSylRowImages.assign(rows, "");
}

// The Ins and Del frame: under the buttons for a phrase, whose rows of
// slots begin high on the screen; beside Frame1 for a composition.
void sShowActionFrame() {
  platform::Control& frame = ctl("Frame2");
  if (fIsComposition()) {
    platform::Control& part = ctl("Frame1");
    frame.setLeft(part.left() + part.width() + fScreenH() * kGap);
    frame.setTop(part.top());
  } else if (ctl("cPlay").visible()) {
    frame.setLeft(ctl("cPlay").left());
    sPlaceBelow(frame, ctl("cPlay"), kGap / 2);
  }
  frame.setVisible(true);
  ctl("cOIns").setValue(0);
  ctl("cODel").setValue(0);
}

// Where the beat duration stands in the composition's data; a layakari
// shows it beside the buttons instead, below its rows of slots.
struct DesignedPlace {
  float labelLeft = 0, labelTop = 0, boxLeft = 0, boxTop = 0;
};
DesignedPlace gBeatDurationPlace;

void sRememberBeatDurationPlace() {
  gBeatDurationPlace = {ctl("Label14").left(), ctl("Label14").top(), ctl("cSpeed").left(), ctl("cSpeed").top()};
}

void sRestoreBeatDurationPlace() {
  ctl("Label14").setLeft(gBeatDurationPlace.labelLeft);
  ctl("Label14").setTop(gBeatDurationPlace.labelTop);
  ctl("cSpeed").setLeft(gBeatDurationPlace.boxLeft);
  ctl("cSpeed").setTop(gBeatDurationPlace.boxTop);
}

// A layakari is shown in beats of the beat duration in cSpeed, which
// stands beside the buttons so that a new one can be given its own.
void sShowBeatDuration() {
  platform::Control& label = ctl("Label14");
  platform::Control& speed = ctl("cSpeed");
  platform::Control& last = ctl("cDelete");
  label.setLeft(last.left() + last.width() + fScreenH() * kGap);
  label.setTop(last.top());
  speed.setLeft(label.left() + label.width());
  speed.setTop(last.top());
  if (speed.text().empty()) speed.setText(std::to_string(kDefaultBeatDuration));
  sShow({"Label14", "cSpeed"});
}

void sOpenPhraseCategory() {
  ctl("cMnuNotScr").setEnabled(true);
  for (const char* option : {"cOAlap", "cOLayakari", "cOTaan"}) ctl(option).setValue(0);
  float top = ctl("cLine1").y1() + fScreenH() * kGap;
  if (gCurrAltType != kTaan) {
    sLoadTimeValuesArrayToForm(top);
    top = fBottom(ctl("cTimeVal", 0)) + fScreenH() * kGap;
  }
  sLoadNotesPalletToForm(top);
  sAdjustNotesPalletForRaga();
  gFirstDisplayRow = 1;
  sLoadNotesArrayToForm();
  ctl("cSpeed").setText("");
  sTToALTRowImages(gCurrAltType);
  if (gCurrAltType == kLayakari) sShowBeatDuration();
  sDisplayRowImages();
  sDisplayPromptComposer(gCurrAltType + 1);
}

void sOpenNewComposition() {
  sDisplayPromptComposer(6);
  ctl("cOCompN").setValue(0);
  sShow({"cRagaList", "Label1"}, false);
  sShow({"Label12", "Label13", "cAsthai", "cAntara"});
  platform::Control& instruction = ctl("Label8");
  sPlaceBelow(instruction, ctl("cAntara"));
  instruction.setCaption("Enter Composition Astai and Antara and click 'OK'");
  instruction.setVisible(true);
  sPlaceBelow(ctl("cRagaList"), instruction);
  sPlaceBelow(ctl("cOK"), instruction);
  ctl("cOK").setVisible(true);
  ctl("cAsthai").setFocus();
  sShow({"cNewCat", "cNewRaga"});
  gOKUse = 2;
}

void sOpenExistingComposition() {
  ctl("cOCompE").setValue(0);
  sLocateDisplayList(1);
  if (fLoadAndDisplayCompositionList() == kTrue) {
    gListUse = 3;
    sShow({"Label8", "cOK"}, false);
    return;
  }
  ctl("Label1").setCaption("Select Musical Category to work with");
  ctl("Label1").setVisible(true);
  sShowCategoryFrame();
}

void sCategoryChosen() {
  sShow({"cFMusCat", "Label1"}, false);
  sSizeRowImages(2);
  gRowImageCount = 0;
  switch (gCurrAltType) {
    case kAlap:
    case kLayakari:
    case kTaan: sOpenPhraseCategory(); break;
    case kNewComposition: sOpenNewComposition(); break;
    case kExistingComposition: sOpenExistingComposition(); break;
    default: break;
  }
  sShowActionFrame();
}

// --- event 3: OK ---------------------------------------------------------------

void sWordsDone() {
  if (ctl("cAsthai").text().empty() || ctl("cAntara").text().empty()) {
    sShowMessage(std::string("You must specify at least some text (need not be") +
                 " complete) for both Asthai and Antara");
    return;
  }
  sDisplayPromptComposer(7);
  sLocateDisplayList(2);
  sLoadAndDisplayTalaList();
  gListUse = 2;
  sShow({"Label8", "cOK"}, false);
}

void sDataDone() {
  if (fCheckCompData() == 0) {
    sShowMessage(std::string("All data (Mukhada, Starting beats for Asthai and Antara,") +
                 " and Beat Duration) must be specified");
    return;
  }
  if (fCheckCompDataValues() == 0) return;
  sDisplayPromptComposer(5);
  sShow({"cOK", "Label8"}, false);
  sSetInitialValuesInCompT();
  sDisplayCompTemplate();
  ctl("Frame1").setVisible(true);
  ctl("cOAsthai").setValue(-1);
}

// --- events 4 to 8: palettes and slots ---------------------------------------

void sMarkPaletteEntry(const char* palette, std::int16_t& previous, std::int16_t selected) {
  if (previous >= 0 && form().hasControl(palette, previous)) ctl(palette, previous).setForeColor(0);
  previous = selected;
  if (selected >= 0 && form().hasControl(palette, selected)) ctl(palette, selected).setForeColor(kComposerMarkColor);
}

// A pending insertion or deletion at slot s; true when one was done.
bool fDonePendingEdit(std::int16_t s) {
  if (!gInsertPending && !gDeletePending) return false;
  if (gInsertPending)
    sInsertBlankSlot(s);
  else
    sDeleteCurrentSlot(s);
  gInsertPending = gDeletePending = false;
  ctl("cOIns").setValue(0);
  ctl("cODel").setValue(0);
  return true;
}

std::string fSelectedNoteCaption() {
  const auto id = static_cast<std::size_t>(gSelNotation);
  return gNotationScript == 1 ? gNoteDev[id] : gNoteEng[id];
}

std::int16_t fDisplayRowOf(std::int16_t s) { return static_cast<std::int16_t>(s / kSlotsPerRow + 1); }

// One note a slot: a note clicked into an occupied slot takes its place
// (joining the two in one caption would make a word of no note).
void sNoteSlotClicked(std::int16_t s) {
  if (fDonePendingEdit(s)) return;
  platform::Control& note = ctl("cNote", s);
  if (gSelNotation == -1) {
    note.setCaption("");
  } else if (gSelNotation == kPaletteComma) {
    note.setFontName("Times New Roman");
    note.setCaption(",");
    if (fCategoryHasDurations()) ctl("cTime", s).setCaption(",");
  } else {
    if (gNotationScript == 1) note.setFontName("Shusha");
    note.setCaption(fSelectedNoteCaption());
  }
  if (s + 1 > gSlotsUsed) gSlotsUsed = static_cast<std::int16_t>(s + 1);
  sCreateNotesRowImageFromDisplay(fDisplayRowOf(s));
  if (gSelNotation == kPaletteComma) sCreateDurRowImageFromDisplay(fDisplayRowOf(s));
}

void sGraceSlotClicked(std::int16_t s) {
  if (fDonePendingEdit(s)) return;
  platform::Control& grace = ctl("cGNote", s);
  grace.setCaption(gSelNotation == -1 || gSelNotation == kPaletteComma ? "" : fSelectedNoteCaption());
  sCreateNotesRowImageFromDisplay(fDisplayRowOf(s));
}

// Two clicks of 0.25 make 0.5: a filled slot adds the value chosen.
void sTimeSlotClicked(std::int16_t s) {
  if (fDonePendingEdit(s)) return;
  platform::Control& time = ctl("cTime", s);
  if (gSelTimeVal == -1) {
    time.setCaption("");
  } else {
    const std::string chosen = ctl("cTimeVal", gSelTimeVal).caption();
    time.setCaption(time.caption().empty() || time.caption() == ","
                        ? chosen
                        : fFormatNumber(fNumericValue(time.caption()) + fNumericValue(chosen)));
  }
  sCreateDurRowImageFromDisplay(fDisplayRowOf(s));
}

// --- events 11 to 14 -----------------------------------------------------------

void sMoveRows(int step) {
  if (fIsComposition()) {
    sCreateNotesRowImageFromDisplay(1);
    sCreateNotesRowImageFromDisplay(2);
  }
  const int row = gFirstDisplayRow + step;
  if (row >= 1 && row <= gRowImageCount) {
    gFirstDisplayRow = static_cast<std::int16_t>(row);
    sDisplayRowImages();
  }
  sShowRowCaptions();
}

void sLeaveWorkArea() {
  sInitCompInfo();
  sRestoreBeatDurationPlace();
  ctl("cMnuNotScr").setEnabled(false);
  sUnloadPhraseArrayElements();
  sHidePhraseDisplayControls();
  ctl("Frame2").setVisible(false);
}

void sNewCategory() {
  if (fCheckForComp(1) == 0) return;
  sLeaveWorkArea();
  platform::Control& heading = ctl("Label1");
  heading.setTop(ctl("cLine1").y1() + fScreenH() * kGap);
  sCentre(heading);
  heading.setCaption("Select Musical Category to work with");
  heading.setVisible(true);
  platform::Control& frame = ctl("cFMusCat");
  sPlaceBelow(frame, heading, kGap / 2);
  sCentre(frame);
  frame.setVisible(true);
  sDisplayPromptComposer(1);
}

void sNewRaga() {
  if (fCheckForComp(2) == 0) return;
  sLeaveWorkArea();
  sHideRagaInfoDisplayControls();
  sLocateDisplayList(1);
  sLoadAndDisplayRagaList();
  ctl("Label1").setCaption("Select Raga");
  ctl("Label1").setVisible(true);
  sDisplayPromptComposer(0);
  gListUse = 1;
}

// --- events 16 to 18 -------------------------------------------------------------

void sSave() {
  if (!fRowImagesIntoRecord()) return;
  sSaveMusicToDatabase();
  sShowMessage("Music Saved");
}

void sDisplayCompPartNotationFromT(std::int16_t part) {
  const CompPartRecord& record = gCompInfo[static_cast<std::size_t>(part - 1)];
  sSizeRowImages(fRowWords(record.Notation).size() / kSlotsPerRow + 1);
  sCreateRowImagesFromSource(record.Notation, gNotesRowImages);
  sCreateRowImagesFromSource(record.NotesDuration, gDurRowImages);
  if (!record.Syllables.empty())
    sCreateRowImagesFromSource(
        fCreateExpandedSylString(record.Syllables, record.SyllableDuration, record.NotesDuration), gSylRowImages);
  // Durations or syllables longer than the notes keep rows of their own.
  const std::size_t rows = std::max({gNotesRowImages.size(), gDurRowImages.size(), gSylRowImages.size()});
  for (std::vector<std::string>* set : {&gNotesRowImages, &gDurRowImages, &gSylRowImages}) set->resize(rows);
  gRowImageCount = static_cast<std::int16_t>(rows);
  gFirstDisplayRow = 1;
  sDisplayRowImages();
}

void sCompPartChosen(std::int16_t part) {
  gCompPart = part;
  ctl("cMnuNotScr").setEnabled(true);
  sDisplayCompPartNotationFromT(part);
}

// --- events 25, 26: the user's own music renamed or deleted ---------------------

void sRenameComposition() {
  if (!fIsComposition() || gTCompInfo.NotationIndex == 0) return;
  const std::string newName = ctl("cMukhada").text();
  if (newName.empty() || newName == gTCompInfo.Name) {
    sShowMessage("Type the new name in the Mukhada box, then click Rename.");
    return;
  }
  if (fFindUserComposition(*gDbB, gCurrRagaId, newName) != 0) {
    sShowMessage("You already have a composition named '" + newName + "' for Raga " + gCurrRagaName +
                 ". Please choose another name.");
    return;
  }
  if (fAskYesNo("Rename the composition '" + gTCompInfo.Name + "' to '" + newName + "'?") != platform::kAnswerYes)
    return;
  sRenameUserComposition(*gDbB, gTCompInfo.NotationIndex, newName);
  gTCompInfo.Name = gCurrCompName = newName;
  for (CompPartRecord& part : gCompInfo) part.Mukhada = newName;
  sShowMessage("Composition renamed");
}

void sDeleteOwnMusic() {
  if (fIsComposition()) {
    if (fAskYesNo("Delete your composition '" + gTCompInfo.Name + "' of Raga " + gCurrRagaName +
                  ", both Asthai and Antara? This cannot be undone.") != platform::kAnswerYes)
      return;
    sDeleteUserComposition(*gDbB, gTCompInfo.NotationIndex);
    gTCompInfo.NotationIndex = 0;
    sNewCategory();
    return;
  }
  if (gCurrAltType < kAlap || gCurrAltType > kTaan) return;
  if (fAskYesNo(std::string("Delete all your ") + fCategoryName() + " phrases of Raga " + gCurrRagaName +
                "? This cannot be undone.") != platform::kAnswerYes)
    return;
  sDeleteUserPhrases(*gDbB, gCurrRagaId, gCurrAltType);
  sDBToTALTInfo();
  sTToALTRowImages(gCurrAltType);
  gFirstDisplayRow = 1;
  sDisplayRowImages();
}

}  // namespace

const char* fCategoryName() {
  static const char* const kNames[] = {"Alap", "Layakari", "Taan"};
  return kNames[gCurrAltType - 1];
}

void sInitComposer() {
  NV_PROC("sInitComposer");
  gCurrDbSelector = 2;
  gCallbackContext = kContextComposer;
  sEnterForm(kFormComposer);
  gSavedMode = gCurrMode;
  gCurrMode = 1;
  gThekaMode = 1;
  gNotePallet = 1;
  gRowImageCount = 0;
  gCurrAltType = 0;
  gCurrItemType = 0;
  gBaseItemType = 0;
  sMnuNotationScriptCheck();
  sMnuNotePalletCheck();
  sMnuTraceCheck();
  ctl("cMnuNotScr").setEnabled(false);
  ctl("cMnuXpt").setEnabled(true);  // a play left running when the screen was left never ended here
  sRememberBeatDurationPlace();
}

void sTerminateComposer() {
  NV_PROC("sTerminateComposer");
  gCurrDbSelector = 1;
  sStructuredTermination(1);
  gCurrMode = gSavedMode;
}

void sInitCompInfo() {
  NV_PROC("sInitCompInfo");
  gTCompInfo = TCompInfoRecord{};
  for (const char* field : {"cAsthai", "cAntara", "cTaal", "cMukhada", "cStartBeatAst", "cStartBeatAnt", "cSpeed"})
    ctl(field).setText("");
  ctl("cOAsthai").setValue(0);
  ctl("cOAntara").setValue(0);
}

void sComposer(std::int16_t event) {
  NV_PROC("sComposer");
  gCallbackContext = kContextComposer;
  switch (event) {
    case 0:
      sInitComposer();
      gInsertPending = gDeletePending = false;
      gSelNotation = gPrevSelNotation = gSelTimeVal = gPrevSelTimeVal = -1;
      sLocateDisplayList(1);
      sLoadAndDisplayRagaList();
      ctl("Label1").setCaption("Select Raga");
      ctl("Label1").setVisible(true);
      gListUse = 1;
      ctl("cRagaList").setFocus();
      sDisplayPromptComposer(0);
      break;
    case 1: sListChoice(); break;
    case 2: sCategoryChosen(); break;
    case 3:
      if (gOKUse == 2) sWordsDone();
      if (gOKUse == 5) sDataDone();
      break;
    case 4: sMarkPaletteEntry("cNotation", gPrevSelNotation, gSelNotation); break;
    case 5: sMarkPaletteEntry("cTimeVal", gPrevSelTimeVal, gSelTimeVal); break;
    case 6: sNoteSlotClicked(gCurrNotationSlot); break;
    case 7: sGraceSlotClicked(gCurrNotationSlot); break;
    case 8: sTimeSlotClicked(gCurrNotationSlot); break;
    case 9: sComposerPlay(); break;
    case 11: sMoveRows(1); break;
    case 12: sMoveRows(-1); break;
    case 13: sNewCategory(); break;
    case 14: sNewRaga(); break;
    case 15: sCreateSylRowImageFromDisplay(fDisplayRowOf(gCurrNotationSlot)); break;
    case 16: sSave(); break;
    case 17: sCompPartChosen(1); break;
    case 18: sCompPartChosen(2); break;
    case 19:
      if (gCurrItemType == 1 || gCurrItemType == 2) gCurrItemType = gBaseItemType;
      ctl("cMnuXpt").setEnabled(true);
      break;
    case 20:
      if (fCheckForComp(3) != 0) {
        sInitCompInfo();
        sTerminateComposer();
      }
      break;
    case 21:
      if (gCurrItemType != 1 && gCurrItemType != 2) sPlayNotationSlot();
      break;
    case 22: sAdjustNotesPalletForRaga(); break;
    case 23: sShowAllNotesInPallet(); break;
    case 24:
      if (gCurrRagaId != 0 && ctl("cRaga").visible()) sDisplayFromT_RagaBasicData();
      sLoadPalletNotes();
      sDisplayRowImages();
      break;
    case 25: sRenameComposition(); break;
    case 26: sDeleteOwnMusic(); break;
    default: break;  // 10 and numbers from 27 up do nothing
  }
}
