// The Raga Exploration screen in the whole program: entering for Yaman shows
// its data and lists; Demo plays an item through with the notation and the
// reeds following the sound; Learning steps through phrases; Practice
// refuses bad notation with the screen's messages; Stop ends a run.
// Runs on Qt offscreen with the silent device on a virtual clock.
#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "control/screen_manager.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "exploration/exploration_state.h"
#include "keyboard/reeds.h"
#include "platform/qt/qt_screen.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "program_harness.h"
#include "sound/music_buffers.h"
#include "sound/play_state.h"
#include "sound/playback.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"
#include "store/working_record_comp_text.h"

using platform::EventKind;

namespace {

constexpr std::int16_t kYaman = 1;

std::string fRepeated(const std::string& piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

// Runs the virtual clock until the run has ended (the selections are back).
void runOut(ProgramHarness& program, platform::Control& list) {
  for (int step = 0; step < 2000 && !list.enabled(); ++step) program.clock().advance(50);
}

class MainOperationsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    program.start();
    program.clock().advance(7000);
    program.fire("Nadavik", "cTimer", EventKind::Timer);
    if (gTipSignal == 1) program.fire("Nadavik", "cOK", EventKind::Click);
    program.fire("Nadavik", "cMnuExpRag", EventKind::Click);
    gCurrRagaId = kYaman;
    gCurrRagaName = fGetRagaName(kYaman);
    sSetupForCurrRaga();
    sMainOperations(0);
  }

  platform::Screen& screen() { return program.screen("MainOperations"); }
  platform::Control& ctl(const char* name) { return screen().control(name); }

  std::vector<std::string> listItems(const char* name) {
    std::vector<std::string> items;
    for (int i = 0; i < ctl(name).listCount(); ++i) items.push_back(ctl(name).list(i));
    return items;
  }

  // Clicks the entry of cNVIllusList that begins with `start`.
  void clickItem(const std::string& start) {
    platform::Control& list = ctl("cNVIllusList");
    for (int i = 0; i < list.listCount(); ++i) {
      if (list.list(i).rfind(start, 0) != 0) continue;
      list.setListIndex(i);
      program.fire("MainOperations", "cNVIllusList", EventKind::Click);
      return;
    }
    FAIL() << "no item " << start;
  }

  void click(const char* control) { program.fire("MainOperations", control, EventKind::Click); }

  int markedReedCount() {
    int marked = 0;
    for (std::int16_t n = kLowestReed; n <= kHighestReed; ++n)
      if (screen().hasControl("cL", n) && screen().control("cL", n).backColor() != fReedDefaultColor(n))
        ++marked;
    return marked;
  }

  std::vector<std::string> messageTexts() {
    std::vector<std::string> texts;
    for (const RecordedMessage& m : program.messages()) texts.push_back(m.text);
    return texts;
  }

  ProgramHarness program;
};

TEST_F(MainOperationsTest, EnteringShowsTheRagasDataListsAndDemoPrompts) {
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_EQ(ctl("cRaga").text(), "Yaman");
  EXPECT_EQ(gCurrMode, 1);
  EXPECT_EQ(ctl("Option1").value(), -1);
  EXPECT_EQ(listItems("cNVIllusList"),
            (std::vector<std::string>{"Aroha and Avroha", "Pakad", "Alap Phrases(5)",
                                      "Layakari Phrases(2)", "Taan Phrases(4)",
                                      "Composition - Saanjh bhayi",
                                      "Composition - Tarana in drut Teentaal",
                                      "Similar Raga - Yaman Kalyan",
                                      "Similar Raga - Shuddha Kalyan"}));
  EXPECT_TRUE(ctl("cNVIllusList").visible());
  // A fresh user store has no items and no scales: their columns stay hidden.
  EXPECT_FALSE(ctl("cUserIllusList").visible());
  EXPECT_FALSE(ctl("cScaleList").visible());
  EXPECT_EQ(ctl("cNotes").text().rfind("Thata = Kalyan; Jati = Sampoorna - Sampoorna; Time = ", 0),
            0u);
  EXPECT_TRUE(ctl("cNotes").visible());
  EXPECT_EQ(ctl("cPrompts").text().rfind("Using NV Scale with ", 0), 0u);
  EXPECT_FALSE(ctl("cPlay").visible());
  EXPECT_LT(ctl("cNVIllusList").left(), ctl("Frame1").left());
  // The mode buttons stay inside their frame when it moves.
  for (const char* option : {"Option1", "Option2", "Option3"}) {
    EXPECT_GT(ctl(option).left(), ctl("Frame1").left()) << option;
    EXPECT_LT(ctl(option).left(), ctl("Frame1").left() + ctl("Frame1").width()) << option;
  }
}

// The user's own taan and a scale of his make their columns appear, in
// order, between the library's items and the mode frame.
TEST_F(MainOperationsTest, UserItemsAndScalesGetTheirOwnColumns) {
  {
    auto alt = gDbB->openRecordset("Raga - ALT Phrases", platform::RecordsetType::Table);
    alt->addNew();
    alt->setField("RagaIndex", kYaman);
    alt->setField("PhraseType", 3);
    alt->setField("NotesPhrase", "S R G : M P , P M G R S");
    alt->update();
    auto scales = gDbB->openRecordset("Scale Shift Specs", platform::RecordsetType::Table);
    scales->addNew();
    scales->setField("NPSetId", 13);
    scales->setField("NPSetName", "Just Yaman");
    scales->setField("TonicNoteId", 3);
    scales->update();
  }
  click("cReturn");
  sSetupForCurrRaga();
  sMainOperations(0);
  EXPECT_EQ(listItems("cUserIllusList"), std::vector<std::string>{"Taan Phrases(2)"});
  EXPECT_EQ(listItems("cScaleList"), std::vector<std::string>{"Just Yaman"});
  EXPECT_EQ(gUserItemsShown, -1);
  EXPECT_EQ(gUserScalesShown, -1);
  EXPECT_TRUE(ctl("Label8").visible());
  EXPECT_TRUE(ctl("Label16").visible());
  EXPECT_LT(ctl("cNVIllusList").left(), ctl("cUserIllusList").left());
  EXPECT_LT(ctl("cUserIllusList").left(), ctl("cScaleList").left());
  EXPECT_LT(ctl("cScaleList").left(), ctl("Frame1").left());
  EXPECT_EQ(ctl("Label8").left(), ctl("cUserIllusList").left());

  click("Option2");
  ctl("cUserIllusList").setListIndex(0);
  program.fire("MainOperations", "cUserIllusList", EventKind::Click);
  EXPECT_EQ(gCurrDbSelector, 2);
  EXPECT_EQ(ctl("cInfo").text(), "(Taan 1/2)");

  ctl("cScaleList").setListIndex(0);
  program.fire("MainOperations", "cScaleList", EventKind::Click);
  EXPECT_EQ(gCurrMusicSetId, 13);
  EXPECT_EQ(gCurrMusicSetName, "Just Yaman");
  for (const std::string& m : messageTexts()) ADD_FAILURE() << m;
  EXPECT_EQ(ctl("cPrompts").text().rfind("Using User-defined scale 'Just Yaman' with ", 0), 0u);
}

TEST_F(MainOperationsTest, DemoOfTheArohaPlaysThroughWithNotationAndReedsStepping) {
  clickItem("Aroha");
  EXPECT_EQ(ctl("cNVIllusList").listIndex(), -1);
  EXPECT_EQ(ctl("cInfo").text(), "Playing Aroha + Avroha");
  EXPECT_FALSE(ctl("cPlay").enabled());
  EXPECT_TRUE(ctl("cStop").enabled());
  EXPECT_FALSE(ctl("cNVIllusList").enabled());
  const std::string first = ctl("cCurrentItem").text();
  EXPECT_FALSE(first.empty());
  int longest = static_cast<int>(first.size());
  bool reedsLit = markedReedCount() > 0;
  for (int step = 0; step < 200 && !ctl("cNVIllusList").enabled(); ++step) {
    program.clock().advance(50);
    if (!ctl("cCurrentItem").visible()) break;
    longest = std::max(longest, static_cast<int>(ctl("cCurrentItem").text().size()));
    reedsLit = reedsLit || markedReedCount() > 0;
  }
  // Fifteen notes of aroha and avroha, each appended after three blanks.
  EXPECT_GT(longest, static_cast<int>(first.size()) + 14 * 3);
  EXPECT_TRUE(reedsLit);
  EXPECT_TRUE(ctl("cNVIllusList").enabled());  // event 19 gave the selections back
  EXPECT_FALSE(ctl("cCurrentItem").visible());
  EXPECT_EQ(markedReedCount(), 0);
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MainOperationsTest, LearningStepsThroughPhrasesAndThePrevDirectionSticks) {
  click("Option2");
  EXPECT_EQ(gCurrMode, 2);
  clickItem("Alap");
  EXPECT_EQ(ctl("cInfo").text(), "(Alap 1/5)");
  EXPECT_TRUE(ctl("cPlay").enabled());
  EXPECT_TRUE(ctl("Frame2").visible());
  EXPECT_EQ(ctl("Option4").caption(), "Next");
  const std::string phrase1 = ctl("cCurrentItem").text();

  click("Option4");
  EXPECT_EQ(ctl("cInfo").text(), "(Alap 2/5)");
  click("Option5");
  click("Option5");
  EXPECT_EQ(ctl("cInfo").text(), "(Alap 5/5)");  // Prev wraps from the first to the last
  click("Option4");
  EXPECT_EQ(ctl("cCurrentItem").text(), phrase1);

  click("cPlay");
  EXPECT_FALSE(ctl("cPlay").enabled());
  EXPECT_TRUE(ctl("cStop").enabled());
  program.clock().advance(300);
  click("cStop");
  program.clock().advance(100);
  EXPECT_TRUE(ctl("cPlay").enabled());
  EXPECT_EQ(ctl("cCurrentItem").text(), phrase1);
  EXPECT_TRUE(messageTexts().empty());

  // The step direction outlives the item: after a Prev the next item opens
  // on its last-but-one phrase.
  click("Option5");
  EXPECT_EQ(gPhraseStep, -1);
  clickItem("Taan");
  EXPECT_EQ(ctl("cInfo").text(), "(Taan 3/4)");
}

// Practice refuses illegal notation, commas, empty segments and more than
// 501 words with the screen's messages, and gives the selections back; a
// phrase longer than the item's timing plays out, its extra notes as long
// as the last.
TEST_F(MainOperationsTest, PracticeRefusesBadNotationAndPlaysLongPhrases) {
  const std::string notAllowed =
      "One or more changes you made are not allowable. Please check and correct errors.";
  click("cMnuEng");
  click("Option3");
  clickItem("Pakad");
  EXPECT_FALSE(ctl("cCurrentItem").locked());
  const struct {
    std::string notation;
    std::string message;  // "" when it plays
  } cases[] = {
      {"x", notAllowed},
      {std::string(10000, 'S'), notAllowed},
      {"S R , G", notAllowed},
      {fRepeated("S R G ", 1000), notAllowed},
      {":", notAllowed},
      {"S R :", notAllowed},
      {": : S", notAllowed},
      {"", "Please select an item to play"},
      {"   ", "Please select an item to play"},
      {"S R G M P D N S> R> G> M> P> D> N>", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.notation.substr(0, 20));
    ctl("cCurrentItem").setText(c.notation);
    const std::size_t before = program.messages().size();
    click("cPlay");
    runOut(program, ctl("cNVIllusList"));
    ASSERT_EQ(program.messages().size(), before + (c.message.empty() ? 0 : 1));
    if (!c.message.empty()) {  // the refusals go on to name the first wrong word
      EXPECT_EQ(program.messages().back().text.rfind(c.message, 0), 0u);
    }
    EXPECT_TRUE(ctl("cPlay").enabled());
    EXPECT_TRUE(ctl("cNVIllusList").enabled());
  }
  EXPECT_EQ(gPlaySet.DurPhrases[0], "50 50 50 90 50 50 90 50 50 50 90 140 140 140");
}

TEST_F(MainOperationsTest, PracticePlaysTheEditedNotationSegmentBySegment) {
  click("cMnuEng");
  EXPECT_EQ(gNotationScript, 2);
  click("Option3");
  clickItem("Pakad");
  ctl("cCurrentItem").setText("S R G : M P");
  click("cPlay");
  ASSERT_TRUE(messageTexts().empty()) << messageTexts().front();
  ASSERT_EQ(gPlaySet.Count, 2);
  EXPECT_EQ(gPlaySet.NotePhrases[0], "S R G");
  EXPECT_EQ(gPlaySet.NotePhrases[1], "M P");
  // The pakad's timing, handed out word by word across the segments.
  EXPECT_EQ(gPlaySet.DurPhrases[0], "50 50 50");
  EXPECT_EQ(gPlaySet.DurPhrases[1], "90 50");
  EXPECT_EQ(ctl("cInfo").text(), "Pakad -practice pattern 1/2");
  for (int step = 0; step < 100 && !ctl("cPlay").enabled(); ++step) program.clock().advance(50);
  EXPECT_TRUE(ctl("cPlay").enabled());
  EXPECT_EQ(ctl("cCurrentItem").text(), "S R G : M P");
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MainOperationsTest, ACompositionInDemoPlaysBothPartsThenOffersThemForReplay) {
  clickItem("Composition - Saanjh bhayi");
  EXPECT_EQ(gCurrCompName, "Saanjh bhayi");
  EXPECT_EQ(gCurrPhraseKind, 8);
  EXPECT_NE(gMusicBuffers[1].Caption.find(" - Antara part) : "), std::string::npos);
  EXPECT_EQ(ctl("cInfo").text(), "Playing Composition 'Saanjh bhayi' in Taal '" +
                                     fGetTalaName(gCompInfo[0].TalaId) + "' - 16Beats(" +
                                     gCompInfo[0].Text + " - Astai part) : " +
                                     fCreateCompStringFromT(1, 1));
  EXPECT_EQ(gMusicBuffers[0].StartingBeat, gCompInfo[0].StartingBeat);
  EXPECT_EQ(gMusicBuffers[1].StartingBeat, gCompInfo[1].StartingBeat);
  EXPECT_FALSE(gMusicBuffers[0].Theka.empty());
  EXPECT_EQ(gPrefetchMode, 2);  // both files were built before playing
  EXPECT_TRUE(ctl("cStopCur").enabled());
  EXPECT_EQ(ctl("Option4").caption(), "Asthai");
  EXPECT_EQ(ctl("Option5").caption(), "Antara");
  runOut(program, ctl("cNVIllusList"));
  ASSERT_TRUE(ctl("cNVIllusList").enabled());
  EXPECT_EQ(ctl("Frame2").caption(), "Select to Play");
  EXPECT_TRUE(ctl("Frame2").enabled());
  EXPECT_FALSE(ctl("cStopCur").enabled());

  click("Option5");  // replay the Antara alone
  EXPECT_EQ(gCompPart, 2);
  EXPECT_EQ(gPlaySet.FirstPhrase, 2);
  EXPECT_FALSE(ctl("cNVIllusList").enabled());
  runOut(program, ctl("cNVIllusList"));
  EXPECT_TRUE(ctl("cNVIllusList").enabled());
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MainOperationsTest, ASimilarRagaIsComparedInDemoWhateverTheMode) {
  click("Option2");
  clickItem("Similar Raga - Yaman Kalyan");
  EXPECT_EQ(gCurrMode, 1);
  EXPECT_EQ(ctl("Option1").value(), -1);
  EXPECT_EQ(gComparedRagaName, "Yaman Kalyan");
  EXPECT_EQ(ctl("cInfo").text(),
            "Playing comparison of Ragas Yaman and Yaman Kalyan. Currently playing Yaman");
  EXPECT_TRUE(ctl("Option4").visible());
  EXPECT_FALSE(ctl("Option5").visible());
  for (int step = 0; step < 2000 && gCurrBuffer == 0; ++step) program.clock().advance(50);
  EXPECT_EQ(ctl("cInfo").text(),
            "Playing comparison of Ragas Yaman and Yaman Kalyan. Currently playing Yaman Kalyan");
  EXPECT_EQ(ctl("Frame2").caption(), "Playing");
  EXPECT_TRUE(ctl("Option5").visible());
  EXPECT_FALSE(ctl("Option4").visible());
  runOut(program, ctl("cNVIllusList"));
  EXPECT_TRUE(ctl("cNVIllusList").enabled());
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MainOperationsTest, ACompositionInLearningGoesToTheCompositionPlayer) {
  click("Option2");
  clickItem("Composition - Saanjh bhayi");
  EXPECT_EQ(gCompPart, 1);
  EXPECT_EQ(gCurrFormId, kFormPlayComposition1);
}

TEST_F(MainOperationsTest, ATonicFromTheMenuRetunesAndSaysSoInThePrompts) {
  click("cMnuW5");
  EXPECT_EQ(gCurrTonicNoteId, 9);
  EXPECT_EQ(gCurrMusicSetId, 9);
  EXPECT_NE(ctl("cPrompts").text().find("Using NV Scale with "), std::string::npos);
  EXPECT_TRUE(ctl("cNVIllusList").enabled());
  EXPECT_TRUE(messageTexts().empty());
}

// A tonic or a scale whose seeds cannot be made (here: a drone loudness the
// synthesis library refuses), or a scale deleted since the list was filled,
// gives the screen back: the pointer normal and the selections enabled.
TEST_F(MainOperationsTest, AFailedTonicOrScaleGivesTheScreenBack) {
  {
    auto scales = gDbB->openRecordset("Scale Shift Specs", platform::RecordsetType::Table);
    scales->addNew();
    scales->setField("NPSetId", 13);
    scales->setField("NPSetName", "Just Yaman");
    scales->setField("TonicNoteId", 3);
    scales->update();
  }
  click("cReturn");
  sSetupForCurrRaga();
  sMainOperations(0);
  auto chooseScale = [&] {
    ctl("cScaleList").setListIndex(0);
    program.fire("MainOperations", "cScaleList", EventKind::Click);
  };
  struct Case {
    const char* what;
    std::function<void()> choose;
    bool told;
  };
  const Case cases[] = {
      {"tonic", [&] { gCurrDroneFactor = 9; click("cMnuW5"); }, true},
      {"scale", [&] { gCurrDroneFactor = 9; chooseScale(); }, true},
      {"deleted scale", [&] { gDbB->execute("DELETE FROM \"Scale Shift Specs\";"); chooseScale(); },
       false},
  };
  QWidget* window = static_cast<platform::QtScreen&>(screen()).drawingArea()->window();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const std::size_t before = program.messages().size();
    c.choose();
    gCurrDroneFactor = 1.0;
    EXPECT_NE(window->cursor().shape(), Qt::WaitCursor);
    for (const char* name : {"cNVIllusList", "cScaleList", "Option1", "cReturn", "cMnuTonKey"})
      EXPECT_TRUE(ctl(name).enabled()) << name;
    const bool told = program.messages().size() > before &&
                      program.messages().back().text == "Error Creating Mote Seeds";
    EXPECT_EQ(told, c.told);
  }
}

TEST_F(MainOperationsTest, DemoOfAlapNamesEachPatternAndStopCurrentSkipsOne) {
  clickItem("Alap");
  EXPECT_EQ(ctl("cInfo").text(), "Playing Alap pattern 1/5");
  EXPECT_TRUE(ctl("cStopCur").enabled());
  click("cStopCur");
  program.clock().advance(100);
  EXPECT_EQ(ctl("cInfo").text(), "Playing Alap pattern 2/5");
  click("cStop");
  program.clock().advance(100);
  EXPECT_TRUE(ctl("cNVIllusList").enabled());
  EXPECT_FALSE(ctl("cCurrentItem").visible());
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MainOperationsTest, LoopingRepeatsThePhraseUntilStopLooping) {
  click("Option2");
  clickItem("Pakad");
  click("cStartLoop");
  EXPECT_TRUE(ctl("cStopLoop").enabled());
  EXPECT_FALSE(ctl("cStop").enabled());
  program.clock().advance(30000);  // the pakad lasts under ten seconds
  EXPECT_FALSE(ctl("cNVIllusList").enabled());
  EXPECT_TRUE(ctl("cStopLoop").enabled());
  click("cStopLoop");
  EXPECT_FALSE(gLooping);
  program.clock().advance(100);
  EXPECT_TRUE(ctl("cPlay").enabled());
  EXPECT_TRUE(ctl("cNVIllusList").enabled());
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MainOperationsTest, MenusSwitchKeyboardScriptAndDrone) {
  click("cMnuDonShoKey");
  EXPECT_EQ(gKeyboardDisplay, 2);
  EXPECT_FALSE(screen().control("cL", 12).visible());
  click("cMnuShoKey");
  EXPECT_EQ(gKeyboardDisplay, 1);
  EXPECT_TRUE(screen().control("cMnuShoKey").checked());

  click("Option2");
  clickItem("Pakad");
  EXPECT_FALSE(ctl("cCurrentItem").text().empty());
  click("cMnuEng");
  EXPECT_EQ(gNotationScript, 2);
  EXPECT_EQ(ctl("cCurrentItem").text(), "");  // the box is cleared for the new script

  click("cMnuDroLou");
  click("cMnuDroSof");
  EXPECT_TRUE(messageTexts().empty());
}

// In Devanagari the box is read back into English notes, the box's blanks
// and grace marks kept.
TEST_F(MainOperationsTest, PracticeInDevanagariPlaysTheBoxAsEnglishNotes) {
  if (gNotationScript != 1) GTEST_SKIP() << "the notation font is not available";
  click("Option3");
  clickItem("Alap");
  click("Option5");  // the fifth phrase ends on a grace pair
  click("cPlay");
  EXPECT_TRUE(messageTexts().empty());
  ASSERT_EQ(gPlaySet.Count, 3);
  EXPECT_EQ(gPlaySet.NotePhrases[0], "N<   R   G   M   P");
  EXPECT_EQ(gPlaySet.NotePhrases[2], "N<'R   S");
  runOut(program, ctl("cNVIllusList"));
  EXPECT_TRUE(ctl("cPlay").enabled());
}

TEST_F(MainOperationsTest, AClickBesideTheItemsChoosesNothing) {
  const std::string prompts = ctl("cPrompts").text();
  ctl("cNVIllusList").setListIndex(-1);
  program.fire("MainOperations", "cNVIllusList", EventKind::Click);
  EXPECT_EQ(ctl("cPrompts").text(), prompts);
  EXPECT_FALSE(ctl("cCurrentItem").visible());
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MainOperationsTest, SynchronizationDelayNeverGoesBelowZero) {
  gDelayMO = 1;
  click("cMnuSlo");
  click("cMnuSlo");
  EXPECT_EQ(gDelayMO, 0);
  click("cMnuSpe");
  EXPECT_EQ(gDelayMO, 1);
}

TEST_F(MainOperationsTest, RagaInfoShowsTheNotesAgainAfterAnItem) {
  click("Option2");
  clickItem("Pakad");
  EXPECT_FALSE(ctl("cNotes").visible());
  click("cMnuRagInf");
  EXPECT_TRUE(ctl("cNotes").visible());
  EXPECT_NE(ctl("cNotes").text().find("Time = First quarter of the night (6 pm - 9 pm)"),
            std::string::npos);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
