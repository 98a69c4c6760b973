// What the Workshop screen shows (see workshop_display.h).
#include "workbench/workshop_display.h"

#include <array>
#include <cstddef>

#include "control/screen_manager.h"
#include "core/errors.h"
#include "core/session.h"
#include "display/fonts.h"
#include "display/notation_display.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "notation/phrase_forms.h"
#include "notation/text_utils.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "sound/playback.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "workbench/pattern_expansion.h"
#include "workbench/pattern_language.h"
#include "workbench/scale_notes.h"
#include "workbench/user_patterns.h"
#include "workbench/workbench.h"
#include "workbench/workbench_state.h"

namespace {

constexpr std::int16_t kNotes = 1;

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }

void sShow(std::initializer_list<const char*> names, bool on) {
  for (const char* name : names) ctl(name).setVisible(on);
}

void sEnable(std::initializer_list<const char*> names, bool on) {
  for (const char* name : names) ctl(name).setEnabled(on);
}

constexpr std::array<const char*, 7> kRecordedMenus = {
    "cMnuMusPat", "cMnuKebDis", "cMnuNotScr", "cMnuTonNot", "cMnuHel", "cMnuGraNot", "cMnuSyn"};

// One question of the dialogue: its frame caption, question and answers
// ("" for no third answer; stage 6's counts are made from gCountPage).
struct OptionStage {
  const char* frame;
  const char* question;
  const char* first;
  const char* second;
  const char* third;
};

constexpr std::array<OptionStage, 12> kOptionStages = {{
    {"", "", "", "", ""},
    {"Scale Category", "Select Scale Category", "Use Scale for a Thata", "Define Scale", ""},
    {"Scale Types", "Select Scale Type", "Audav(5 notes)", "Shadav(6 notes)", "Sampoorna(7 notes)"},
    {"Starting Note", "Select Starting Note", "Base Note", "Last Note", ""},
    {"Inclusion", "Include Starting Note?", "Yes", "No", ""},
    {"Direction", "Select Direction", "Up", "Down", ""},
    {"Note Count", "Select Note Count", "", "", "Other"},
    {"Notes to Use", "Indicate Notes Usage", "Include in-between Notes", "Jump to Note", ""},
    {"Pattern Definition", "Continue Pattern Definition?", "Yes", "No", ""},
    {"Pattern Type", "Select Pattern Type", "One Time only", "Series", ""},
    {"Save Pattern", "Save Defined Pattern?", "Yes", "No", ""},
    {"Notes Type", "Select Notes Type for Quiz", "Any Note", "'Shuddha' Notes only",
     "Other than 'Shuddha' Notes"},
}};

// The mode's own captions, by gWBMode 1 to 4.
struct ModeCaptions {
  const char* mode;
  const char* selectNew;  // "" hides cSelNewSca
  const char* scaleMenu;
  const char* wholeScale;
  const char* twoOctaves;
};

constexpr std::array<ModeCaptions, 5> kModeCaptions = {{
    {"", "", "", "", ""},
    {"Working with Major Scale - Select desired Music Pattern", "", "Major Scale (Shuddha Saptak)",
     "S To S>", "P< To P>"},
    {"Working with Note Scales", "Select New Scale", "Selected Scale", "S To S>", "P< To P>"},
    {"Working with Raga Notes - Select desired Music Pattern", "Select New Raga", "Selected Raga",
     "Aroha/Avroha", "Pakad"},
    {"Taking Note Recognition Quiz", "Select New Note", "", "", ""},
}};

void sSetNoModeDisplay() {
  sEnableWSModeSelections();
  ctl("Label10").setCaption("No Workbench Mode selected currently");
  sEnable({"cSelNewSca", "cShowNote", "cSwitchWBMode"}, false);
  sShow({"cSelNewSca", "cShowNote", "cSlider", "Frame1"}, false);
  ctl("cMnuPlaDro").setVisible(true);
  sShow({"cMnuLin1", "cMnuSca", "cMnuNotPat", "cMnuLin2", "cMnuDefPat", "cMnuLin3", "cMnuMeePat"},
        false);
  sEnable({"cMnuGraNot", "cMnuSyn"}, false);
  sWorkbenchPrompt("34");
}

void sShowRagaScale() {
  sDBToTBaseInfo();
  gSelPhrase = fGetFromT_ScalePhraseUnSeg(kNotes);
  if (gGraceNotes == 1) gSelPhrase = fRemoveGlides(gSelPhrase);
  gRagaScalePhrase = gSelPhrase;
  sAdjustFont(ctl("cPattern"));
  sLoadNotation(ctl("cPattern"), gRagaScalePhrase);
  ctl("Label3").setCaption("Aroha/Avroha");
}

void sSetModeOwnDisplay() {
  const ModeCaptions& captions = kModeCaptions[static_cast<std::size_t>(gWBMode)];
  ctl("Label10").setCaption(captions.mode);
  ctl("cSelNewSca").setCaption(captions.selectNew);
  const bool selectNew = captions.selectNew[0] != '\0';
  ctl("cSelNewSca").setVisible(selectNew);
  ctl("cSelNewSca").setEnabled(selectNew);
  ctl("cShowNote").setVisible(gWBMode == 4);
  ctl("cMnuSca").setCaption(captions.scaleMenu);
  ctl("cMnuSToS").setCaption(captions.wholeScale);
  ctl("cMnuPToP").setCaption(captions.twoOctaves);
  ctl("cMnuGraNot").setEnabled(gWBMode == 3);
  switch (gWBMode) {
    case 1:
      ctl("cScaleType").setText("Major Scale (Shuddha Saptak)");
      sShowSelectedNotes();
      sShowUserData(1);
      sWorkbenchPrompt("40,35");
      break;
    case 2:
      ctl("cScaleType").setText(fSelectedScaleCaption());
      sShowSelectedNotes();
      sShowUserData(1);
      break;
    case 3:
      ctl("cScaleType").setText("Notes for raga '" + gCurrRagaName + "'");
      sShowRagaScale();
      break;
    default:
      sEnable({"cMnuMusPat", "cMnuSyn", "cMnuTonNot", "cMnuKebDis"}, false);
      break;
  }
}

// The English notes of the flagged places from "S" to "S>".
std::string fSelectedNotesText() {
  std::string text;
  for (int place = kPlaceOfSa; place <= kPlaceOfUpperSa; ++place) {
    if (gScaleNoteFlags[static_cast<std::size_t>(place)] != 1) continue;
    if (gNotationScript == 1) {
      if (!text.empty()) text += ' ';
      text += gNoteDevNames[static_cast<std::size_t>(place)];
    } else {
      text += gNoteNames[static_cast<std::size_t>(place)] + " ";
    }
  }
  return text;
}

}  // namespace

void sWorkbenchPrompt(const std::string& ids) { ctl("cPrompts").setText(fGetPrompts(ids)); }

std::string fSelectedScaleCaption() {
  switch (gScaleSize) {
    case 0: return "Selected Audav (5 Notes) Scale";
    case 1: return "Selected Shadav (6 Notes) Scale";
    default: return "Selected Sampoorna (7 Notes) Scale";
  }
}

void sSetModeDisplay() {
  NV_PROC("sSetModeDisplay");
  sEnableF13Selections();
  sDisplayPatternNotation();
  sShow({"Label6", "cPatName", "Label7"}, false);
  sShow({"Label10", "cSelNewSca", "cShowNote", "cSwitchWBMode"}, true);
  for (const char* box : {"cPattern", "cScaleType", "cCurrentItem", "cPatName"}) ctl(box).setText("");
  sShow({"cSlider", "Frame1"}, true);
  sEnable({"cMnuMusPat", "cMnuGraNot", "cMnuSyn", "cMnuTonNot", "cMnuKebDis"}, true);
  if (gWBMode == 0) {
    sSetNoModeDisplay();
    return;
  }
  gWBPlayKind = 2;
  sDisableWSModeSelections();
  sEnable({"cSwitchWBMode", "cSelNewSca"}, true);
  sShow({"cMnuSca", "cMnuNotPat", "cMnuLin2", "cMnuDefPat", "cMnuLin3", "cMnuMeePat"}, true);
  sShow({"cMnuPlaDro", "cMnuLin1"}, false);
  sSetModeOwnDisplay();
}

void sSetOptionsDisplay() {
  NV_PROC("sSetOptionsDisplay");
  const auto stage = static_cast<std::size_t>(gOptionStage);
  if (stage < 1 || stage >= kOptionStages.size()) return;
  const OptionStage& s = kOptionStages[stage];
  ctl("Frame2").setCaption(s.frame);
  ctl("Label4").setCaption(s.question);
  if (gOptionStage == 6) {
    ctl("cO1").setCaption(std::to_string(2 * gCountPage - 1));
    ctl("cO2").setCaption(std::to_string(2 * gCountPage));
  } else {
    ctl("cO1").setCaption(s.first);
    ctl("cO2").setCaption(s.second);
  }
  const bool third = s.third[0] != '\0';
  if (third) ctl("cO3").setCaption(s.third);
  ctl("cO3").setVisible(third);
  for (const char* option : {"cO1", "cO2", "cO3"}) ctl(option).setValue(0);
  sShow({"Frame2", "Label4"}, true);
}

void sScaleTypeSelection() {
  gOptionStage = 2;
  sSetOptionsDisplay();
  ctl("cO3").setVisible(true);
}

void sInitPatternSpec() {
  gSpecStart.clear();
  gSpecDir.clear();
  gSpecKind.clear();
  gSpecCount = 0;
}

void sUpdatePatternPhrase() {
  NV_PROC("sUpdatePatternPhrase");
  gPatternSpec += gSpecStart + gSpecDir + gSpecKind + std::to_string(gSpecCount);
  if (fInterpretPattern(gPatternSpec) == 0) {
    platform::windowSystem().messageBox("Error in phrase patternText", platform::kMsgInformation, "Messge");
    return;
  }
  gBaseNoteIndex = kPlaceOfSa;
  gPatternKind = 1;
  sCreateScalePatternFromBP();
  platform::Control& name = ctl("cPatName");
  sAdjustFont(name);
  sLoadNotation(name, gSelPhrase);
  ctl("cPattern").setVisible(true);
}

namespace {

void sHideDialogue() { sShow({"Frame2", "Label4"}, false); }

void sNextStage(std::int16_t stage) {
  gOptionStage = stage;
  sSetOptionsDisplay();
}

void sTokenKindChosen(const char* kind) {
  gSpecKind = kind;
  sUpdatePatternPhrase();
  sNextStage(8);
}

void sPatternKindChosen(std::int32_t kind) {
  gPatternKind = kind;
  sNextStage(10);
  sKeyBoardDisplayOn(*gCurrForm, 1);
  sHideUnselectedNoteLabels();
}

void sAskPatternName() {
  sHideDialogue();
  gPatNameUse = 1;
  platform::Control& name = ctl("cPatName");
  name.setVisible(true);
  name.setText("");
  sSetEnglishFont(name);
  ctl("cOK").setVisible(true);
  ctl("Label6").setCaption("Enter Name and click OK");
  ctl("Label6").setVisible(true);
}

void sQuizKindChosen(std::int16_t kind) {
  gQuizNoteKind = kind;
  sHideDialogue();
  sWorkshop(30);
}

void sScaleSizeChosen(std::int16_t size) {
  gScaleSize = size;
  ctl("Frame2").setVisible(false);
  sWorkshop(27);
}

}  // namespace

void sProcessOptionSelection(std::int16_t choice) {
  NV_PROC("sProcessOptionSelection");
  const bool first = choice == 1;
  switch (gOptionStage) {
    case 1:
      if (first) {
        ctl("Frame2").setVisible(false);
        sWorkshop(4);
      } else if (choice == 2) {
        sWorkbenchPrompt("37,35");
        gKeyboardDisplay = 1;
        sScaleTypeSelection();
        sShow({"Label7", "Frame1"}, false);
        sHideSlider();
      }
      break;
    case 2: sScaleSizeChosen(static_cast<std::int16_t>(choice - 1)); break;
    case 3:
      if (choice > 2) break;
      gSpecStart = first ? "B" : "L";
      sNextStage(4);
      break;
    case 4:
      if (choice > 2) break;
      gSpecStart = gSpecStart == "B" || gSpecStart == "b" ? (first ? "B" : "b") : (first ? "L" : "l");
      sNextStage(5);
      break;
    case 5:
      if (choice > 2) break;
      gSpecDir = first ? "U" : "D";
      gCountPage = 1;
      sNextStage(6);
      break;
    case 6:
      if (choice == 3) {
        ++gCountPage;
        sSetOptionsDisplay();
        break;
      }
      gSpecCount = 2 * gCountPage - (first ? 1 : 0);
      sNextStage(7);
      break;
    case 7:
      if (choice <= 2) sTokenKindChosen(first ? "C" : "J");
      break;
    case 8:
      if (choice > 2) break;
      if (first) {
        sInitPatternSpec();
        sNextStage(3);
      } else {
        sNextStage(9);
      }
      break;
    case 9:
      if (choice <= 2) sPatternKindChosen(choice);
      break;
    case 10:
      if (first) {
        sAskPatternName();
      } else if (choice == 2) {
        sHideDialogue();
        gPatternSource = 2;
        sWorkshop(6);
      }
      break;
    case 11: sQuizKindChosen(choice); break;
    default: break;
  }
}

void sCaptureMenuBarItemStatus() {
  for (std::size_t i = 0; i < kRecordedMenus.size(); ++i)
    gMenuBarItemStatus[i] = ctl(kRecordedMenus[i]).enabled();
}

void sDisableF13Selections() {
  ctl("cRagaList").setEnabled(false);
  for (const char* menu : kRecordedMenus) ctl(menu).setEnabled(false);
  sEnable({"cMajorScale", "cNotePatterns", "cNotesForRaga", "cNotesQuiz", "cSelNewSca", "cShowNote",
           "cSwitchWBMode", "cReturn", "cSlider", "Frame1"},
          false);
}

void sEnableF13Selections() {
  ctl("cRagaList").setEnabled(true);
  for (std::size_t i = 0; i < kRecordedMenus.size(); ++i)
    if (gMenuBarItemStatus[i]) ctl(kRecordedMenus[i]).setEnabled(true);
  sEnable({"cMajorScale", "cNotePatterns", "cNotesForRaga", "cNotesQuiz"}, gWBMode == 0);
  sEnable({"cSelNewSca", "cShowNote"}, gWBMode >= 2);
  sEnable({"cSwitchWBMode", "cReturn", "cSlider", "Frame1"}, true);
}

void sEnableWSModeSelections() {
  sEnable({"cMajorScale", "cNotePatterns", "cNotesForRaga", "cNotesQuiz"}, true);
  ctl("Label7").setVisible(true);
}

void sDisableWSModeSelections() {
  sEnable({"cMajorScale", "cNotePatterns", "cNotesForRaga", "cNotesQuiz"}, false);
  ctl("Label7").setVisible(false);
}

void sHideDetails() {
  sShow({"Label1", "Label3", "Label4", "Label5", "Label6", "cScaleType", "cPattern", "cCurrentItem",
         "cRagaList", "cPatName", "Frame2"},
        false);
}

void sHideSlider() { sShow({"cSlider", "Label8", "Label9"}, false); }
void sShowSlider() { sShow({"cSlider", "Label8", "Label9"}, true); }

void sShowUserData(std::int16_t mask) {
  if (mask & 1) sShow({"Label1", "cScaleType"}, true);
  if (mask & 2) sShow({"Label3", "cPattern"}, true);
  if (mask & 4) sShow({"Label5", "cCurrentItem"}, true);
}

void sShowCurrentItem() {
  ctl("Label5").setVisible(true);
  platform::Control& box = ctl("cCurrentItem");
  sAdjustFont(box);
  sLoadNotation(box, gWBShownNotation);
}

void sShowSelectedNotes() {
  platform::Control& box = ctl("cPattern");
  sAdjustFont(box);
  if (gWBMode == 3) {
    sLoadNotation(box, gRagaScalePhrase);
    return;
  }
  box.setText(fSelectedNotesText());
  box.setVisible(true);
  ctl("Label3").setCaption("Selected Notes");
  ctl("Label3").setVisible(true);
}

void sShowBasePattern() {
  ctl("Label6").setCaption("Selected Base pattern");
  ctl("Label6").setVisible(true);
  ctl("cRagaList").setVisible(false);
  platform::Control& name = ctl("cPatName");
  sAdjustFont(name);
  sLoadNotation(name, gBasePhrase);
  name.setVisible(true);
}

void sDisplayKBForNoteSelection() {
  sKeyBoardDisplayOn(*gCurrForm, 1);
  sHideNonOctaveNotes();
}

void sEnableKeyLabels() {
  for (int i = 1; i <= 31; ++i)
    if (gCurrForm->hasControl("cL", i)) gCurrForm->control("cL", i).setEnabled(true);
}

void sHideNonOctaveNotes() {
  for (int i = 0; i <= kHighestReed; ++i) {
    if (i >= gCurrTonicNoteId + 9 && i <= gCurrTonicNoteId + 21) continue;
    for (const char* array : {"cR", "cL"})
      if (gCurrForm->hasControl(array, i)) gCurrForm->control(array, i).setVisible(false);
  }
}

std::int16_t fLabelOfPlace(std::int32_t place) {
  return static_cast<std::int16_t>(gCurrTonicNoteId + 4 + place);
}

void sHideUnselectedNoteLabels() {
  for (int i = gFirstReed; i <= gLastReed; ++i)
    if (gCurrForm->hasControl("cL", i)) gCurrForm->control("cL", i).setVisible(false);
  for (std::int16_t p = 1; p <= gSelNoteCount; ++p) {
    const int label = fLabelOfPlace(gSelNotes[static_cast<std::size_t>(p)]);
    if (gCurrForm->hasControl("cL", label)) gCurrForm->control("cL", label).setVisible(true);
  }
}

void sAdjustF13NotationFonts() {
  sUpdateReedLabelsAlt(*gCurrForm);
  for (const char* box : {"cPattern", "cCurrentItem", "cPatName"}) sAdjustFont(ctl(box));
}

void sLoadThataList() {
  NV_PROC("sLoadThataList");
  platform::Control& list = ctl("cRagaList");
  list.clear();
  auto table = gDbA->openRecordset("ThataScales", platform::RecordsetType::Table);
  for (; !table->eof(); table->moveNext()) list.addItem(table->field("ThataName").asText());
}
