// Scale shifting in the whole program, on the built data files, offscreen
// with the silent device on a virtual clock: the slider and rounding
// arithmetic, a scale tuned by ear, named, refined and saved, its id, names
// a user may type, and the scale chosen on the Raga Exploration screen.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "audio_measure.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "platform/qt/qt_window_system.h"
#include "platform/store.h"
#include "program_harness.h"
#include "scales/scale_math.h"
#include "scales/scale_state.h"
#include "sound/sound_state.h"
#include "notation/vocabulary.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "tonvex/tonvex.h"

using platform::EventKind;

namespace {

TEST(ScaleArithmetic, SliderReachesTheNeighboursInTenthsRoundedHalfToEven) {
  struct Row { int slider; double spc; };
  // Sa recorded at 300.0, the note below at 318.04 and the one above at 283.17.
  for (const Row& r : std::vector<Row>{{0, 300.0}, {10, 283.2}, {-10, 318.0}, {5, 291.6},
                                       {-3, 305.4}, {11, 283.2}, {-40, 318.0}})
    EXPECT_DOUBLE_EQ(fSliderSPC(r.slider, 300.0, 318.04, 283.17), r.spc) << r.slider;
  EXPECT_DOUBLE_EQ(fRoundToTenth(0.25), 0.2);
  EXPECT_DOUBLE_EQ(fRoundToTenth(0.75), 0.8);
}

TEST(ScaleArithmetic, ACorrectionNeverRestsOnAWholeNumberOfSamples) {
  struct Row { float value; const char* direction; float rounded; };
  for (const Row& r : std::vector<Row>{{3.04f, "Up", 3.1f}, {3.04f, "Down", 2.9f},
                                       {3.26f, "Up", 3.3f}, {0.0f, "Up", 0.1f},
                                       {0.0f, "Down", -0.1f}, {3.0f, "Sideways", 3.0f},
                                       {-2.96f, "Down", -3.1f}, {-0.3f, "Down", -0.3f}})
    EXPECT_FLOAT_EQ(fRoundOffSPCVal(r.value, r.direction), r.rounded)
        << r.value << " " << r.direction;
}

struct StoredRow {
  int id;
  std::string name;
  int tonic;
};

class ScaleShiftingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    program.start();
    program.finishStartUp();
    static_cast<platform::QtWindowSystem&>(platform::windowSystem())
        .setMessageBoxResponder([this](const std::string& text, int style, const std::string& title) {
          boxes.push_back(title + ": " + text);
          return (style & platform::kMsgYesNo) ? answer : platform::kAnswerOk;
        });
    enter();
  }
  void enter() { program.fire("Nadavik", "cMnuDefPitShi", EventKind::Click); }
  platform::Control& ctl(const char* name) { return program.screen("ScaleShifting").control(name); }
  void click(const char* control) { program.fire("ScaleShifting", control, EventKind::Click); }
  void clickKey(int reed) {
    platform::Event e;
    e.index = reed;
    program.fire("ScaleShifting", "cL", EventKind::Click, e);
  }
  void listenOut() { program.fire("ScaleShifting", "cTimer", EventKind::Timer); }
  bool keysLocked() { return !program.screen("ScaleShifting").control("cL", 14).enabled(); }
  void tune(int tonic, int slider) {
    if (gScaleState != kIdentifyTonic) {
      click("cSwitch");
      click("cSetTonic");
    }
    clickKey(tonic + 9);
    listenOut();
    click("cTuneNote");
    ctl("cSlider").setValue(slider);
    click("cPlay");
    listenOut();
    click("cAdjust");
  }
  void name(const std::string& text) {
    ctl("cSettingName").setText(text);
    click("cOK");
  }
  void makeScale(int tonic, int slider, const std::string& text) {
    tune(tonic, slider);
    name(text);
  }
  std::vector<StoredRow> stored() {
    std::vector<StoredRow> rows;
    auto rs = gDbB->openRecordset(
        "SELECT NPSetId, NPSetName, TonicNoteId FROM [Scale Shift Specs] ORDER BY NPSetId",
        platform::RecordsetType::Snapshot);
    for (; !rs->eof(); rs->moveNext())
      rows.push_back({static_cast<int>(rs->field("NPSetId").asInteger()),
                      rs->field("NPSetName").asText(),
                      static_cast<int>(rs->field("TonicNoteId").asInteger())});
    return rows;
  }
  std::vector<std::string> tuningNames(int id) {
    std::vector<std::string> names;
    auto rs = gDbB->openRecordset("SELECT NPSetName FROM ONPR WHERE NPSetId = " +
                                      std::to_string(id) + " ORDER BY InstrumentType",
                                  platform::RecordsetType::Snapshot);
    for (; !rs->eof(); rs->moveNext()) names.push_back(rs->field("NPSetName").asText());
    return names;
  }
  double correction(int id, int type, const char* column) {
    auto rs = gDbB->openRecordset("SELECT [" + std::string(column) + "] AS c FROM ONPR WHERE NPSetId = " +
                                      std::to_string(id) + " AND InstrumentType = " + std::to_string(type),
                                  platform::RecordsetType::Snapshot);
    return rs->eof() ? -999 : rs->field("c").asDouble();
  }
  std::string lastBox() { return boxes.empty() ? "" : boxes.back(); }

  ProgramHarness program;
  std::vector<std::string> boxes;
  int answer = platform::kAnswerYes;
};

TEST_F(ScaleShiftingTest, ATonicTunedByEarBecomesAStoredScaleThatIsRefinedAndSaved) {
  clickKey(14);  // tonic 5
  EXPECT_TRUE(keysLocked());
  EXPECT_FALSE(ctl("cTuneNote").enabled());
  EXPECT_EQ(ctl("cNote").text(), fGetTonicNoteName(5).substr(0, 7));
  listenOut();
  EXPECT_FALSE(keysLocked());
  EXPECT_TRUE(ctl("cTuneNote").enabled());
  click("cTuneNote");
  EXPECT_EQ(gScaleState, kTuneTonic);
  EXPECT_EQ(ctl("cPrompts").text(), fGetPrompts("10"));
  ctl("cSlider").setValue(10);
  click("cPlay");
  EXPECT_DOUBLE_EQ(gNewSPC, fRoundToTenth(gSPCOfNoteAbove));
  EXPECT_FALSE(ctl("cPlay").enabled());
  listenOut();
  ctl("cSlider").setValue(-2);
  click("cPlay");
  listenOut();
  const double shift = gNewSPC - gBaseSPC;
  EXPECT_GT(shift, 0.0);
  click("cAdjust");
  EXPECT_TRUE(ctl("cSettingName").visible());

  name("   ");
  EXPECT_EQ(lastBox(), "Messag: Please specify a Name to save the current setting under");
  name(std::string(10000, 'x'));
  EXPECT_NE(lastBox().find("please use at most 60"), std::string::npos) << lastBox();
  EXPECT_TRUE(stored().empty());
  const std::string typed = "Ravi's \"own\" \xe0\xa4\xb8\xe0\xa4\xbe";  // ends in Devanagari "sA"
  name("  " + typed + " ");
  EXPECT_EQ(lastBox(), "Message: Scale " + typed + " Saved. Switching to Scale Refinement Mode");
  ASSERT_EQ(stored().size(), 1u);
  EXPECT_EQ(stored()[0].id, 13);
  EXPECT_EQ(stored()[0].name, typed);
  EXPECT_EQ(stored()[0].tonic, 5);
  EXPECT_EQ(tuningNames(13), (std::vector<std::string>{typed, typed}));
  EXPECT_EQ(gScaleState, kRefineNotes);
  EXPECT_EQ(ctl("cScale").text(), typed);

  // Sa (column 07) two Medium steps higher, heard with the drone each time.
  const double sa = correction(13, 1, "07");
  const double droneSa = correction(13, 2, "07");
  EXPECT_NEAR(sa, gNoteAdjust[14], 1e-4);
  clickKey(14);
  listenOut();
  click("Option4");
  click("Option6");
  EXPECT_FALSE(ctl("Frame3").enabled());
  listenOut();
  click("Option6");
  listenOut();
  const float expected = fRoundOffSPCVal(fRoundOffSPCVal(static_cast<float>(sa) - 0.3f, "Down") - 0.3f, "Down");
  EXPECT_FLOAT_EQ(gNoteAdjust[14], expected);
  click("cSave");
  EXPECT_EQ(lastBox(), "Message: Changes Saved");
  EXPECT_NEAR(correction(13, 1, "07"), expected, 1e-4);
  EXPECT_NEAR(correction(13, 2, "07"), droneSa, 1e-6);
}

TEST_F(ScaleShiftingTest, AnIdIsNeverGivenTwiceAndARedefinitionKeepsItsOwn) {
  makeScale(5, 3, "A");
  makeScale(7, -3, "B");
  answer = platform::kAnswerNo;
  click("cDelete");
  EXPECT_EQ(stored().size(), 2u);  // No keeps it
  answer = platform::kAnswerYes;
  click("cDelete");
  EXPECT_EQ(lastBox(), "Message: Scale B Deleted");
  makeScale(7, -3, "C");
  EXPECT_EQ(stored().back().id, 15) << "rows + 13 would give 14 again";

  // "A" is the scale in use when the screen is entered, then redefined.
  click("cReturn");
  gCurrMusicSetId = 13;
  gCurrMusicSetName = "A";
  enter();
  answer = platform::kAnswerNo;
  makeScale(9, 0, "A");
  EXPECT_EQ(boxes[boxes.size() - 2], "Message: Name already used. Want to redefine?");
  EXPECT_EQ(lastBox(), "Message: Enter Another Name");
  EXPECT_EQ(stored()[0].tonic, 5);
  answer = platform::kAnswerYes;
  name("A");
  EXPECT_EQ(stored()[0].id, 13);
  EXPECT_EQ(stored()[0].tonic, 9);
  click("cReturn");
  EXPECT_EQ(gCurrMusicSetId, 13);
  EXPECT_EQ(gCurrTonicNoteId, 9);

  enter();
  click("cRefineNotes");
  ctl("cScalesList").setListIndex(0);
  click("cScalesList");
  click("cRename");
  name("C");
  EXPECT_EQ(lastBox(), "Message: Name already used by another scale. Enter Another Name");
  name("A minor");
  EXPECT_EQ(stored()[0].name, "A minor");
  EXPECT_EQ(tuningNames(13), (std::vector<std::string>{"A minor", "A minor"}));
  for (int i = 0; i < 2; ++i) {
    click("cDelete");
    ctl("cScalesList").setListIndex(0);
    click("cScalesList");
  }
  EXPECT_TRUE(stored().empty());
  makeScale(5, 0, "D");
  EXPECT_EQ(stored().back().id, 16);
}

TEST_F(ScaleShiftingTest, ShiftsAtTheSlidersEndsAtTheOuterTonicsMakeWholeScales) {
  for (int tonic : {1, 12})
    for (int slider : {-10, 10}) {
      const std::string label = std::to_string(tonic) + "/" + std::to_string(slider);
      makeScale(tonic, slider, label);
      EXPECT_EQ(lastBox(), "Message: Scale " + label + " Saved. Switching to Scale Refinement Mode");
      EXPECT_EQ(tuningNames(stored().back().id).size(), 2u) << label;
    }
  EXPECT_EQ(stored().size(), 4u);
  program.closeWindow("ScaleShifting");  // leaves as Go Back does
  EXPECT_EQ(gCurrMusicSetId, 3);
  EXPECT_EQ(gCurrTonicNoteId, 3);
}

TEST_F(ScaleShiftingTest, ASavedScaleOnTheExplorationScreenRetunesHarmoniumAndLabels) {
  tune(5, -2);
  const double baseSpc = gBaseSPC, newSpc = gNewSPC;
  name("Mine");
  click("cReturn");
  EXPECT_EQ(gCurrMusicSetId, 3);
  EXPECT_EQ(gCurrTonicNoteId, 3);

  program.fire("Nadavik", "cMnuExpRag", EventKind::Click);
  gCurrRagaId = 1;
  gCurrRagaName = fGetRagaName(1);
  sSetupForCurrRaga();
  sMainOperations(0);
  platform::Screen& explore = program.screen("MainOperations");
  platform::Control& list = explore.control("cScaleList");
  ASSERT_EQ(list.listCount(), 1);
  list.setListIndex(0);
  program.fire("MainOperations", "cScaleList", EventKind::Click);
  EXPECT_EQ(gCurrMusicSetId, 13);
  EXPECT_EQ(gCurrTonicNoteId, 5);
  // The middle Sa's label is on reed 14.
  EXPECT_EQ(explore.control("cL", 14).caption(), fGetStringForNote(12, gNotationScript));

  // Sa sounds at its tuned period: the recorded pitch moved by the shift.
  const std::string wav = (program.folder() / "sa.wav").string();
  ASSERT_EQ(FWavGenerateMusicFile(1, "14", "1000", wav, 0, 0.2, 1, 1000, 60, 80, 50), 1);
  const double hz = tonvex_test::measureHz(tonvex_test::readSamples(wav), tonvex_test::at(200),
                                           tonvex_test::at(900), 44100.0 / newSpc);
  EXPECT_NEAR(tonvex_test::centsBetween(hz, 44100.0 / baseSpc),
              1200.0 * std::log2(baseSpc / newSpc), 2.0);
}

}  // namespace
