// The shipped screen definitions (screens/*.screen): each parses, carries the
// controls the logic reaches by name, has its form id, fits its window at
// every size, keeps the shared menu groups whole, and explains itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "platform/screendef.h"

namespace platform {
namespace {

// The part of the outer height below the title and menu bars that the
// client area keeps at 1366x768; nothing may be placed lower.
constexpr double kClientBottom = 0.92;

struct ScreenSpec {
  const char* name;
  int formId;
  bool hasTraceMenu;
  // Names the logic reaches; "name:0" is element 0 of a control array.
  const char* required;
};

// Names the test in failure messages instead of printing the bytes.
void PrintTo(const ScreenSpec& spec, std::ostream* out) { *out << spec.name; }

const char* const kBasicData =
    " cRaga cAroha cAvroha cVadi cSamvadi cPakad Label2 Label3 Label4 Label5 Label6 Label7";
const char* const kTonicMenu =
    " cMnuW7 cMnuW1 cMnuB1 cMnuW2 cMnuB2 cMnuW3 cMnuW4 cMnuB3 cMnuW5 cMnuB4 cMnuW6 cMnuB5";
const char* const kPlayButtons = " cPlay cStop cStartLoop cStopLoop";
const char* const kKeyboard = " cL:0 cR:0 cLine1";

const std::vector<ScreenSpec>& screenSpecs() {
  static const std::vector<ScreenSpec> specs = {
      {"Nadavik", 1, true,
       "cExit cOK cShowNext cTip cPrompts Label11 Label4 Label5 Label3 Label1 cTimer cMM cSysInfo "
       "cMnuMaiOpe cMnuExpRag cMnuTakQui cMnuUseMusSam cMnuOpeWor cMnuInvCom cMnuDefPitShi "
       "cMnuSupOpe cMnuRevRagGro cMnuTip cMnuShoTip cMnuDonShoTip cMnuHel cMnuPreF1"},
      {"OpeningScreen", 0, false, "Picture1 Text1 OKButton CancelButton"},
      {"ReviewRagas", 3, false,
       "cRagaList1 cRagaList2 cRagaList3 cRagaList cReturn Label3 Label4 Label5 Label7 Label8 "
       "Label1 cMnuHel cMnuPreF1"},
      {"RagaInfoSummary", 15, false,
       "cRaga cThata cTime Label2 Label4 Label6 Label7 Label8 cSimRagas cCompositions cFilmSongs "
       "cReturn cMnuHel cMnuPreF1"},
      {"RagaSelection1", 9, true,
       "cRagaListT cRagaList cPrompts Label1 cReturn cMnuSorBy cMnuRag cMnuTha cMnuVad cMnuSam "
       "cMnuJat cMnuAppTim cMnuHel cMnuPreF1"},
      {"MainOperations", 28, true,
       "cNVIllusList cUserIllusList cScaleList Label1 Label8 Label16 Label17 Frame1 Option1 "
       "Option2 Option3 cInfo cCurrentItem cPrompts cNotes cSlider Label11 Label12 cStopCur "
       "Frame2 Option4 Option5 cReturn cMM cLine2 cMnuDro cMnuDroLou cMnuDroSof cMnuGraNot "
       "cMnuUseGraNot cMnuNoGraNot cMnuKebDis cMnuShoKey cMnuDonShoKey cMnuNotScr cMnuDev cMnuEng "
       "cMnuRagInf cMnuSyn cMnuSlo cMnuSpe cMnuTonKey cMnuHel cMnuPreF1"},
      {"Quiz", 20, true,
       "cPrompts Frame1 cOScale cOPakad cOAlap Label1 cOK cPlay cGuess cShow cRagaList cExplore "
       "cNotation Label4 Label5 cReturn cMM cMnuDro cMnuDroLou cMnuDroSof cMnuNot cMnuShoNot "
       "cMnuDonShoNot cMnuNotScr cMnuDev cMnuEng cMnuHel cMnuPreF1"},
      {"Workshop", 13, true,
       "cMajorScale cNotePatterns cNotesForRaga cNotesQuiz Label7 Label10 cSwitchWBMode "
       "cSelNewSca cShowNote Frame1 cOLearn cOPract Frame2 cO1 cO2 cO3 Label4 Label1 cScaleType "
       "Label3 cPattern Label5 cCurrentItem Label6 cRagaList cPatName cOK cSlider Label8 Label9 "
       "cPrompts cTimer1 cMM cReturn cMnuMusPat cMnuPlaDro cMnuWitP cMnuWitM cMnuWitN cMnuLin1 "
       "cMnuSca cMnuSToS cMnuPToP cMnuNotPat cMnuStdPat cMnu1UC cMnu2UC cMnu3UC cMnu1UC2UC "
       "cMnu2UC3UC cMnu2UJD1J cMnuUsePat cMnuLin2 cMnuDefPat cMnuLin3 cMnuMeePat cMnuGraNot "
       "cMnuUseGraNot cMnuNoGraNot cMnuKebDis cMnuShoKey cMnuDonShoKey cMnuNotScr cMnuDev cMnuEng "
       "cMnuSyn cMnuSlo cMnuSpe cMnuTonNot cMnuHel cMnuPreF1"},
      {"PlayComposition1", 14, true,
       "cReturn Frame1 cAsthai cAntara Frame2 cLearn cPractice cSlider Label27 Label8 cFRow "
       "cFBeat cTRow cTBeat Label1 Label14 Label12 Label15 Label13 Label16 Line1 Line2 Line3 "
       "Line4 Line5 Line6 Line7 Line8 Line9 cLine1 cPrompts cComposition Label24 cMukhada "
       "Label22 Label25 Label26 cRow:0 cBeat:0 cMatra:0 cNote:0 cMM cMnuDro cMnuDroLou "
       "cMnuDroSof cMnuGraNot cMnuUseGraNot cMnuNoGraNot cMnuNotScr cMnuDev cMnuEng cMnuSyn "
       "cMnuSlo cMnuSpe cMnuThe cMnuUseThe cMnuNoThe cMnuTonKey cMnuHel cMnuPreF1"},
      {"Composer", 27, true,
       "cRagaList Label1 cFMusCat cOAlap cOLayakari cOTaan cOCompN cOCompE cLine1 cAsthai "
       "cAntara Label12 Label13 cTaal Label18 cMukhada Label17 cStartBeatAst cStartBeatAnt "
       "Label16 Label15 cSpeed Label14 Label8 cOK Frame1 cOAsthai cOAntara Frame2 cOIns cODel "
       "cNotation:0 cTimeVal:0 cGNote:0 cNote:0 cTime:0 cCompSyl:0 cLabel:0 Label9 Label10 "
       "cMoveU cMoveD cPlay cSave cNewCat cNewRaga cReturn cPrompts cMM cSlider cMnuNotScr "
       "cMnuDev cMnuEng cMnuNotPal cMnuNotForRag cMnuAllNot cMnuSyn cMnuSlo cMnuSpe cMnuHel "
       "cMnuPreF1"},
      {"ScaleShifting", 7, true,
       "Label7 cSetTonic cRefineNotes cSwitch cTuneNote cAdjust cPlay cSave cReturn cScale "
       "cNote cRaga Label9 Label11 Label10 Frame2 Option3 Option4 Option5 Frame3 Option6 "
       "Option7 cSlider Label3 Label4 Label6 Label5 cScalesList Label2 cSettingName cOK "
       "cL:0 cR:0 cPrompts cTimer cMM Line1 Line2 Line3 Line4 Line5 Line6 Line7 cLine1 cMnuDro "
       "cMnuDroLou cMnuDroSof cMnuPlaSca cMnuScaBasNot cMnuPlaMajSca cMnuPlaFulSca "
       "cMnuScaBasRag cMnuScaRag cMnuPakRag cMnuSelRag cMnuHel cMnuPreF1"},
      {"NVSampler", 22, true,
       "cPlay cStop cStartLoop cStopLoop cReturn cPrompts cDesc cRaga cTimer cTimer1 cMM "
       "cMnuHel"},
  };
  return specs;
}

// Names each screen needs beyond its own list, shared by several screens.
std::string fullRequiredList(const ScreenSpec& spec) {
  std::string names = spec.required;
  const std::string name = spec.name;
  if (name == "MainOperations" || name == "PlayComposition1" || name == "Composer")
    names += kBasicData;
  if (name == "MainOperations" || name == "PlayComposition1" || name == "Workshop")
    names += kTonicMenu;
  if (name == "MainOperations" || name == "Workshop" || name == "PlayComposition1")
    names += kPlayButtons;
  if (name == "MainOperations" || name == "Workshop" || name == "ScaleShifting")
    names += kKeyboard;
  return names;
}

ScreenDefinition loadOrFail(const std::string& name) {
  ScreenParseError error;
  auto def = loadScreenDefinition(std::string(NADAVIK_SCREENS_DIR) + "/" + name + ".screen", &error);
  if (!def) ADD_FAILURE() << error.message;
  return def.value_or(ScreenDefinition{});
}

const ControlDefinition* find(const ScreenDefinition& def, const std::string& name, int index = -1) {
  for (const auto& c : def.controls)
    if (c.name == name && c.index == index) return &c;
  return nullptr;
}

bool interactive(const ControlDefinition& c) {
  switch (c.kind) {
    case ControlKind::TextBox:
    case ControlKind::CommandButton:
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
    case ControlKind::ListBox:
    case ControlKind::ComboBox:
    case ControlKind::Grid:
    case ControlKind::Slider:
      return true;
    case ControlKind::Menu:
      return c.caption != "-";  // a named separator is not clicked
    default:
      return false;
  }
}

bool inside(const ControlDefinition& inner, const ControlDefinition& outer) {
  const double eps = 1e-9;
  return inner.x >= outer.x - eps && inner.y >= outer.y - eps &&
         inner.x + inner.w <= outer.x + outer.w + eps &&
         inner.y + inner.h <= outer.y + outer.h + eps;
}

class ScreenFile : public ::testing::TestWithParam<ScreenSpec> {};

TEST_P(ScreenFile, ParsesWithItsNameFormIdAndHelp) {
  const auto& spec = GetParam();
  auto def = loadOrFail(spec.name);
  EXPECT_EQ(def.name, spec.name);
  EXPECT_EQ(def.formId, spec.formId);
  EXPECT_FALSE(def.caption.empty());
  EXPECT_FALSE(def.help.empty());
}

TEST_P(ScreenFile, HasEveryControlTheLogicNames) {
  const auto& spec = GetParam();
  auto def = loadOrFail(spec.name);
  std::istringstream names(fullRequiredList(spec));
  std::string word;
  while (names >> word) {
    auto colon = word.find(':');
    int index = colon == std::string::npos ? -1 : std::stoi(word.substr(colon + 1));
    EXPECT_NE(find(def, word.substr(0, colon), index), nullptr) << spec.name << " lacks " << word;
  }
}

TEST_P(ScreenFile, NoNameIsBothASingleControlAndAnArray) {
  auto def = loadOrFail(GetParam().name);
  std::map<std::string, std::set<bool>> forms;
  for (const auto& c : def.controls) forms[c.name].insert(c.index >= 0);
  for (const auto& [name, arrayness] : forms)
    EXPECT_EQ(arrayness.size(), 1u) << GetParam().name << ": " << name;
}

TEST_P(ScreenFile, EveryControlFitsInsideTheWindowOrItsFrame) {
  auto def = loadOrFail(GetParam().name);
  for (const auto& c : def.controls) {
    SCOPED_TRACE(std::string(GetParam().name) + "." + c.name);
    if (!hasGeometry(c.kind)) {
      EXPECT_EQ(c.x + c.y + c.w + c.h, 0.0) << "menus, timers and devices have no place";
      continue;
    }
    for (double ratio : {c.x, c.y, c.w, c.h}) {
      EXPECT_GE(ratio, 0.0);
      EXPECT_LE(ratio, 1.0);
    }
    if (c.kind == ControlKind::Line) {
      EXPECT_LE(std::max(c.y, c.h), kClientBottom);
      continue;
    }
    EXPECT_GT(c.w, 0.0);
    EXPECT_GT(c.h, 0.0);
    EXPECT_LE(c.x + c.w, 1.0);
    EXPECT_LE(c.y + c.h, kClientBottom);
    if (!c.frame.empty()) {
      // Controls in a frame are placed in window coordinates like all others.
      const auto* frame = find(def, c.frame);
      ASSERT_NE(frame, nullptr) << "unknown frame " << c.frame;
      EXPECT_EQ(frame->kind, ControlKind::Frame);
      EXPECT_TRUE(inside(c, *frame)) << "sticks out of " << c.frame;
    }
  }
}

bool overlaps(const ControlDefinition& a, const ControlDefinition& b) {
  const double eps = 1e-9;
  return a.x + a.w > b.x + eps && b.x + b.w > a.x + eps && a.y + a.h > b.y + eps &&
         b.y + b.h > a.y + eps;
}

// A frame and the controls placed in it may overlap; nothing else may.
bool mayOverlap(const ControlDefinition& a, const ControlDefinition& b) {
  return a.frame == b.name || b.frame == a.name;
}

// What the user sees when a screen opens must not overlap; controls that the
// logic shows later share places by design and are left out. A control in a
// hidden frame is hidden with it.
TEST_P(ScreenFile, ControlsShownAtOpeningDoNotOverlap) {
  auto def = loadOrFail(GetParam().name);
  std::vector<const ControlDefinition*> shown;
  for (const auto& c : def.controls) {
    const auto* frame = c.frame.empty() ? nullptr : find(def, c.frame);
    bool frameShown = !frame || frame->visible;
    if (c.visible && frameShown && hasGeometry(c.kind) && c.kind != ControlKind::Line)
      shown.push_back(&c);
  }
  for (size_t i = 0; i < shown.size(); ++i)
    for (size_t j = i + 1; j < shown.size(); ++j)
      if (!mayOverlap(*shown[i], *shown[j])) {
        EXPECT_FALSE(overlaps(*shown[i], *shown[j]))
            << GetParam().name << ": " << shown[i]->name << " and " << shown[j]->name;
      }
}

TEST_P(ScreenFile, MenuEntriesHangUnderAnEarlierMenu) {
  auto def = loadOrFail(GetParam().name);
  std::set<std::string> menusSoFar;
  for (const auto& c : def.controls) {
    if (c.kind != ControlKind::Menu) {
      EXPECT_TRUE(c.parentMenu.empty()) << c.name;
      continue;
    }
    if (!c.parentMenu.empty()) {
      EXPECT_TRUE(menusSoFar.count(c.parentMenu)) << c.name << " under " << c.parentMenu;
    }
    menusSoFar.insert(c.name);
  }
}

TEST_P(ScreenFile, TraceEntriesStandExactlyWhereTheTraceCheckLooksForThem) {
  const auto& spec = GetParam();
  auto def = loadOrFail(spec.name);
  const auto* on = find(def, "cMnuTraOn");
  const auto* off = find(def, "cMnuTraOff");
  if (!spec.hasTraceMenu) {
    EXPECT_EQ(on, nullptr);
    EXPECT_EQ(off, nullptr);
    return;
  }
  ASSERT_NE(on, nullptr);
  ASSERT_NE(off, nullptr);
  EXPECT_EQ(on->caption, "Trace On");
  EXPECT_EQ(off->caption, "TraceOff");
  EXPECT_EQ(on->parentMenu, "cMnuHel");
  EXPECT_EQ(off->parentMenu, "cMnuHel");
}

// A check-mark routine touches every entry of its group, so a screen that
// has one entry of a group must have them all.
TEST_P(ScreenFile, SharedMenuGroupsAreWhole) {
  const std::vector<std::vector<std::string>> groups = {
      {"cMnuNoGraNot", "cMnuUseGraNot"},
      {"cMnuShoKey", "cMnuDonShoKey"},
      {"cMnuDonShoNot", "cMnuShoNot"},
      {"cMnuDev", "cMnuEng"},
      {"cMnuNotForRag", "cMnuAllNot"},
      {"cMnuRag", "cMnuTha", "cMnuJat", "cMnuVad", "cMnuSam", "cMnuAppTim"},
      {"cMnuUseThe", "cMnuNoThe"},
      {"cMnuShoTip", "cMnuDonShoTip"},
      {"cMnuW7", "cMnuW1", "cMnuB1", "cMnuW2", "cMnuB2", "cMnuW3", "cMnuW4", "cMnuB3", "cMnuW5",
       "cMnuB4", "cMnuW6", "cMnuB5"},
      {"cMnuTraOn", "cMnuTraOff"},
  };
  auto def = loadOrFail(GetParam().name);
  for (const auto& group : groups) {
    size_t present = 0;
    for (const auto& name : group) {
      const auto* entry = find(def, name);
      if (!entry) continue;
      ++present;
      EXPECT_EQ(entry->kind, ControlKind::Menu) << name;
    }
    EXPECT_TRUE(present == 0 || present == group.size())
        << GetParam().name << " has " << present << " of the group of " << group.front();
  }
}

TEST_P(ScreenFile, EveryInteractiveControlExplainsItself) {
  auto def = loadOrFail(GetParam().name);
  for (const auto& c : def.controls) {
    if (interactive(c)) {
      EXPECT_FALSE(c.help.empty()) << GetParam().name << "." << c.name;
    }
  }
}

std::string screenName(const ::testing::TestParamInfo<ScreenSpec>& param) {
  return param.param.name;
}

INSTANTIATE_TEST_SUITE_P(Shipped, ScreenFile, ::testing::ValuesIn(screenSpecs()), screenName);

// Captions the logic compares or the user is told to look for, as written.
TEST(ScreenCaptions, KeepTheProgramsOwnWording) {
  struct Case {
    const char* screen;
    const char* control;
    int index;
    const char* caption;
  };
  const Case cases[] = {
      {"Nadavik", "cMnuOpeWor", -1, "Use 'Workbench'"},
      {"Nadavik", "cMnuDonShoTip", -1, "Don't Show Tips at start"},
      {"Nadavik", "cOK", -1, "O&K"},
      {"MainOperations", "cMnuDev", -1, "Devnagari"},
      {"MainOperations", "cMnuDro", -1, "D&rone"},
      {"MainOperations", "cReturn", -1, "Go &Back"},
      {"Workshop", "cNotesQuiz", -1, "Take Note Recognition  &Quiz"},
      {"Workshop", "cMnuWitM", -1, "with Madhyam"},
      {"Workshop", "Label10", -1, "No Workbench Mode Selected currently"},
      {"Quiz", "cMnuDonShoNot", -1, "Don't show Notation"},
      {"Quiz", "cShow", -1, "&What is it?"},
      {"PlayComposition1", "cAntara", -1, "A&ntara"},
      {"Composer", "cMnuNotPal", -1, "Note Pallet"},
      {"ScaleShifting", "cAdjust", -1, "&Create Scale with Current Tone As 'sA' (Tonic)"},
      {"ReviewRagas", "Label3", -1, "30 Ragas available in Group 1"},
  };
  for (const auto& c : cases) {
    auto def = loadOrFail(c.screen);
    const auto* control = find(def, c.control, c.index);
    ASSERT_NE(control, nullptr) << c.screen << "." << c.control;
    EXPECT_EQ(control->caption, c.caption) << c.screen << "." << c.control;
  }
}

// Every screen id of the screen manager has exactly one definition file.
TEST(ScreenFiles, FormIdsAreDistinct) {
  std::map<int, std::string> seen;
  for (const auto& spec : screenSpecs()) {
    auto def = loadOrFail(spec.name);
    if (def.formId == 0) continue;  // the opening screen has no id
    EXPECT_TRUE(seen.emplace(def.formId, def.name).second)
        << def.name << " and " << seen[def.formId] << " share id " << def.formId;
  }
  EXPECT_EQ(seen.size(), 11u);
}

}  // namespace
}  // namespace platform
