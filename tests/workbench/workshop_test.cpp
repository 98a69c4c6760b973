// The Workshop screen in the whole program, entered from the main window on
// Qt offscreen with the silent device on a virtual clock: the modes and the
// question dialogue, every standard pattern over every thata and ten ragas,
// a scale picked on the keys, a pattern defined by ear, saved, found again
// after the store is reopened, renamed and deleted, bad stored patterns,
// the notes quiz, the meend demo and the drone on its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "control/screen_manager.h"
#include "core/random.h"
#include "core/session.h"
#include "platform/audio.h"
#include "platform/store.h"
#include "program_harness.h"
#include "sound/music_buffers.h"
#include "store/lookups.h"
#include "workbench/pattern_expansion.h"
#include "workbench/pattern_language.h"
#include "workbench/scale_notes.h"
#include "workbench/workbench_state.h"

namespace {

using platform::EventKind;

class WorkshopTest : public ::testing::Test {
 protected:
  void SetUp() override {
    program.start();
    program.finishStartUp();
    sFixRandomSeed(15);
    program.fire("Nadavik", "cMnuOpeWor", EventKind::Click);
    click("cMnuEng");
  }
  void TearDown() override { sReleaseRandomSeed(); }
  platform::Control& ctl(const char* name) { return program.screen("Workshop").control(name); }
  void click(const char* control) { program.fire("Workshop", control, EventKind::Click); }
  void clickKey(std::int32_t place) {
    platform::Event e;
    e.index = gCurrTonicNoteId + 4 + place;
    program.fire("Workshop", "cL", EventKind::Click, e);
  }
  void pick(const std::string& entry) {
    platform::Control& list = ctl("cRagaList");
    for (int i = 0; i < list.listCount(); ++i)
      if (list.list(i) == entry) list.setListIndex(i);
    click("cRagaList");
  }
  platform::Control& label(std::int32_t place) {
    return program.screen("Workshop").control("cL", gCurrTonicNoteId + 4 + place);
  }
  bool playing() { return ctl("cMM").device().mode() == platform::kModePlaying; }
  void runOut() {
    for (int step = 0; step < 8000 && playing(); ++step) program.clock().advance(50);
    program.fire("Workshop", "cTimer1", EventKind::Timer);
  }
  std::vector<std::string> messages() {
    std::vector<std::string> texts;
    for (const auto& m : program.messages()) texts.push_back(m.title + ": " + m.text);
    return texts;
  }
  // From now on every box is answered Yes, and recorded in `boxes`.
  void answerYes() {
    static_cast<platform::QtWindowSystem&>(platform::windowSystem())
        .setMessageBoxResponder([this](const std::string& text, int, const std::string& title) {
          boxes.push_back(title + ": " + text);
          return platform::kAnswerYes;
        });
  }
  std::vector<std::string> boxes;
  ProgramHarness program;
};

TEST_F(WorkshopTest, MajorScalePatternsPlayInLearningAndPractice) {
  EXPECT_EQ(ctl("Label10").caption(), "No Workbench Mode selected currently");
  EXPECT_TRUE(ctl("cMnuPlaDro").visible());
  EXPECT_FALSE(ctl("cMnuSca").visible() || ctl("cSwitchWBMode").enabled());
  click("cMajorScale");
  EXPECT_EQ(ctl("Label10").caption(), "Working with Major Scale - Select desired Music Pattern");
  EXPECT_EQ(ctl("cScaleType").text(), "Major Scale (Shuddha Saptak)");
  EXPECT_EQ(ctl("cPattern").text(), "S R G m P D N S> ");
  EXPECT_EQ(ctl("cMnuSToS").caption(), "S To S>");
  EXPECT_FALSE(ctl("cMajorScale").enabled() || ctl("cSelNewSca").visible());
  click("cMnu1UC");
  EXPECT_TRUE(playing());
  EXPECT_EQ(ctl("cPatName").text(), "S   R");
  EXPECT_EQ(fPhraseWords(gSelPhrase).size(), 28u);
  EXPECT_EQ(gPlaySet.Count, 4);  // files of at most 8 notes, played back to back
  EXPECT_NEAR(ctl("cMM").device().length(), 8 * 700, 300);
  EXPECT_FALSE(ctl("cPlay").enabled() || ctl("cReturn").enabled());
  long playedMs = 0;
  for (; playedMs < 60000 && !ctl("cPlay").enabled(); playedMs += 50) program.clock().advance(50);
  EXPECT_NEAR(playedMs, 28 * 700, 300);
  EXPECT_TRUE(ctl("cReturn").enabled());
  click("cOPract");  // the pattern again, one pass a segment
  EXPECT_EQ(gPlaySet.Count, 14);
  EXPECT_TRUE(playing());
  runOut();
  click("cSwitchWBMode");
  EXPECT_TRUE(ctl("cMajorScale").enabled());
  EXPECT_EQ(ctl("cPrompts").text(), fGetPrompts("34"));
  EXPECT_EQ(messages(), std::vector<std::string>{});
}

// Every standard pattern over the ten thatas and the first ten ragas, in
// Practice (the first passes are built at once), without a message.
TEST_F(WorkshopTest, EveryStandardPatternPlaysOverEveryThataAndTenRagas) {
  const char* entries[] = {"cMnuSToS", "cMnu1UC", "cMnu2UC", "cMnu3UC",
                           "cMnu1UC2UC", "cMnu2UC3UC", "cMnu2UJD1J", "cMnuPToP"};
  auto playAll = [&](const std::string& over) {
    for (const char* entry : entries) {
      click(entry);
      EXPECT_TRUE(playing()) << over << " " << entry;
      EXPECT_FALSE(gSelPhrase.empty()) << over << " " << entry;
      click("cStop");
      runOut();
    }
  };
  click("cNotePatterns");
  EXPECT_EQ(ctl("Frame2").caption(), "Scale Category");
  click("cO1");
  const int thatas = ctl("cRagaList").listCount();
  EXPECT_EQ(thatas, 10);
  for (int t = 0; t < thatas; ++t) {
    const std::string thata = ctl("cRagaList").list(t);
    pick(thata);
    EXPECT_EQ(ctl("cScaleType").text(), "Scale for Thata '" + thata + "'");
    click("cOPract");
    playAll(thata);
    click("cSelNewSca");
    click("cO1");
  }
  click("cSwitchWBMode");
  click("cNotesForRaga");
  std::vector<std::string> ragas;
  for (int r = 0; r < 10; ++r) ragas.push_back(ctl("cRagaList").list(r * 5));
  for (const std::string& raga : ragas) {
    pick(raga);
    EXPECT_EQ(ctl("cScaleType").text(), "Notes for raga '" + raga + "'");
    click("cOPract");
    playAll(raga);
    click("cSelNewSca");
  }
  EXPECT_EQ(messages(), std::vector<std::string>{});
}

TEST_F(WorkshopTest, AScalePickedOnTheKeysHidesEachSwarsOtherFormAndChoosesTheDrone) {
  const struct {
    std::int16_t size;  // the dialogue's answer: 1 Audav, 2 Shadav
    std::vector<std::int32_t> places;
    std::int32_t drone;
    std::string caption;
    std::string wholeScale;
  } rows[] = {
      {1, {7, 9, 12, 14}, 1, "Selected Audav (5 Notes) Scale", "S R G P D S> S> D P G R S"},
      {1, {6, 8, 13, 15}, 3, "Selected Audav (5 Notes) Scale", "S r g d n S> S> n d g r S"},
      {2, {7, 9, 10, 14, 16}, 2, "Selected Shadav (6 Notes) Scale", "S R G m D N S> S> N D m G R S"},
  };
  for (const auto& row : rows) {
    click("cNotePatterns");
    click("cO2");
    EXPECT_EQ(ctl("Label4").caption(), "Select Scale Type");
    click(row.size == 1 ? "cO1" : "cO2");
    for (std::int32_t place : row.places) {
      EXPECT_TRUE(label(place).visible());
      clickKey(place);
      if (place == row.places.back()) break;  // complete: the scale's labels show again
      const std::int32_t other = place == 12 ? 12 : place < 12 ? (place % 2 ? place - 1 : place + 1)
                                                              : (place % 2 ? place + 1 : place - 1);
      EXPECT_FALSE(label(place).visible() || label(other).visible()) << place;
    }
    EXPECT_EQ(ctl("cScaleType").text(), row.caption);
    EXPECT_EQ(gCurrDroneType, row.drone);
    EXPECT_EQ(ctl("Label10").caption(), "Working with Note Scales - Select desired Music Pattern");
    click("cMnuSToS");
    EXPECT_EQ(gSelPhrase, row.wholeScale);
    click("cStop");
    runOut();
    click("cSwitchWBMode");
  }
  EXPECT_EQ(messages(), std::vector<std::string>{});
}

// A pattern defined by clicking keys is saved, found again once the user
// store has been closed and reopened, clashes by name, is renamed and
// deleted after the user confirms.
TEST_F(WorkshopTest, AUserPatternIsSavedFoundAgainRenamedAndDeleted) {
  click("cMajorScale");
  click("cMnuDefPat");
  EXPECT_EQ(ctl("Frame2").caption(), "Pattern Type");
  clickKey(9);  // G: a jump of 2
  clickKey(7);  // R: a jump of 1
  EXPECT_EQ(gPatternSpec, "bUJ2bUJ1");
  EXPECT_EQ(ctl("cPatName").text(), "G   R");
  click("cO2");  // Series
  EXPECT_EQ(ctl("Label4").caption(), "Save Defined Pattern?");
  click("cO1");
  EXPECT_EQ(ctl("Label6").caption(), "Enter Name and click OK");
  ctl("cPatName").setText("Zigzag");
  click("cOK");
  EXPECT_EQ(program.messages().back().text, "Pattern Saved as Zigzag");
  EXPECT_TRUE(playing());
  runOut();

  gDbB->close();
  gDbB = gWorkspace->openDatabase(gStoreBPath, true, false, "");
  gPatternSpec.clear();
  click("cMnuUsePat");
  pick("Zigzag");
  EXPECT_EQ(gPatternSpec, "bUJ2bUJ1");
  EXPECT_EQ(gPatternKind, 2);
  EXPECT_EQ(gSelPhrase.substr(0, 12), "G R m G P m ");
  runOut();

  click("cMnuDefPat");
  clickKey(7);
  click("cO1");
  click("cO1");
  ctl("cPatName").setText("ZIGZAG");
  click("cOK");
  EXPECT_EQ(program.messages().back().text, "Pattern Name already used. Enter different Name.");
  EXPECT_EQ(ctl("cPatName").text(), "");

  answerYes();
  click("cMnuUsePat");
  pick("Zigzag");
  runOut();
  click("cMnuRenPat");
  ctl("cPatName").setText("Zag");
  click("cOK");
  click("cMnuDelPat");
  click("cMnuUsePat");
  EXPECT_EQ(boxes, (std::vector<std::string>{
                       "Message: Rename your pattern 'Zigzag' to 'Zag'?",
                       "Message: Pattern Renamed as Zag",
                       "Message: Delete your pattern 'Zag'? It cannot be brought back.",
                       "Message: Pattern Deleted: Zag",
                       "Message': No User-defined Patterns are available",
                   }));
}

// Stored patterns that are no pattern, or that walk off the scale, get a
// message and leave the screen working.
TEST_F(WorkshopTest, BadStoredPatternsAreToldNeverFatal) {
  const std::string overshoot = kOvershootMessage;
  const struct {
    std::string patternText;
    std::string message;
  } rows[] = {
      {"", "Messge: Error in phrase patternText"},
      {"Sa Re Ga", "Messge: Error in phrase patternText"},
      {"\xe0\xa4\xb8\xe0\xa4\xbe", "Messge: Error in phrase patternText"},
      {std::string(10000, '9'), "Messge: Error in phrase patternText"},
      {"BUC1;", "Messge: Error in phrase patternText"},
      {"BUC30", "Message: " + overshoot},
  };
  for (const auto& row : rows) {
    platform::Transaction t(*gDbB);
    gDbB->execute("DELETE FROM \"User Patterns\"");
    auto table = gDbB->openRecordset("User Patterns", platform::RecordsetType::Table);
    table->addNew();
    table->setField("PatternName", platform::Value("bad"));
    table->setField("PatternPhrase", platform::Value(row.patternText));
    table->setField("PatternMode", platform::Value(1));
    table->update();
    t.commit();
  }
  click("cMajorScale");
  for (const auto& row : rows) {
    gDbB->execute("UPDATE \"User Patterns\" SET \"PatternPhrase\" = '" + row.patternText + "'");
    click("cMnuUsePat");
    pick("bad");
    EXPECT_EQ(messages().back(), row.message) << row.patternText.substr(0, 10);
    EXPECT_FALSE(playing());
  }
  EXPECT_EQ(gCurrFormId, kFormWorkshop);
  click("cMnu1UC");
  EXPECT_TRUE(playing());
}

TEST_F(WorkshopTest, TheNoteQuizDrawsByKindAndJudgesTheKeyClicked) {
  click("cNotesQuiz");
  EXPECT_EQ(ctl("Frame2").caption(), "Notes Type");
  click("cO2");  // shuddha notes only
  EXPECT_EQ(ctl("Label10").caption(), "Taking Note Recognition Quiz");
  EXPECT_FALSE(ctl("cMnuMusPat").enabled() || ctl("cMnuTonNot").enabled());
  for (int draw = 0; draw < 12; ++draw) {
    click("cSelNewSca");
    runOut();
    const auto place = std::find(gNoteNames.begin(), gNoteNames.end(), gQuizNote) - gNoteNames.begin();
    EXPECT_TRUE(fIsShuddha(static_cast<std::int32_t>(place + 1))) << gQuizNote;
  }
  const std::string note = gQuizNote;
  const auto place = static_cast<std::int32_t>(std::find(gNoteNames.begin(), gNoteNames.end(), note) - gNoteNames.begin());
  click("cPlay");
  EXPECT_TRUE(playing());
  runOut();
  clickKey(place == 5 ? 7 : 5);
  EXPECT_EQ(ctl("Label4").caption().rfind("Not ", 0), 0u);
  runOut();
  clickKey(place);
  EXPECT_EQ(ctl("Label4").caption(), "Right! The note is " + note);
  runOut();
  click("cShowNote");
  EXPECT_TRUE(playing());
  runOut();
  EXPECT_TRUE(ctl("cShowNote").enabled());
  EXPECT_EQ(messages(), std::vector<std::string>{});
}

// At another tonic the keys' labels move with it: the glide's notes are
// still found by the notes they name.
TEST_F(WorkshopTest, MeendPlaysBothNotesAndTheGlideAtAnyTonic) {
  click("cMajorScale");
  click("cMnuW4");
  EXPECT_EQ(gCurrTonicNoteId, 7);
  EXPECT_TRUE(label(kPlaceOfSa).visible() && !label(kPlaceOfSa + 1).visible());
  click("cMnuMeePat");
  EXPECT_EQ(ctl("Label10").caption(), "Meend Pattern Demo - select first note");
  clickKey(5);
  EXPECT_EQ(ctl("Label10").caption(), "Meend Pattern Demo - select second Note");
  clickKey(9);
  EXPECT_EQ(gSelPhrase, "S G S'G");
  EXPECT_TRUE(playing());
  EXPECT_EQ(ctl("Label10").caption(), "Meend Pattern Demo - select first Note");
}

// The drone alone goes back to its start at half its length, so it plays
// on past the end of its file until Stop Looping; the close box silences a
// pattern, whose end then asks nothing of the screen that is gone.
TEST_F(WorkshopTest, TheDroneAloneLoopsUntilStoppedAndTheCloseBoxSilencesIt) {
  click("cMnuWitM");
  ASSERT_TRUE(playing());
  const long length = ctl("cMM").device().length();
  EXPECT_GT(length, 6000);
  for (long t = 0; t < 3 * length; t += 50) program.clock().advance(50);
  EXPECT_TRUE(playing());
  EXPECT_TRUE(ctl("cStopLoop").enabled());
  click("cStopLoop");
  runOut();
  EXPECT_FALSE(playing());
  EXPECT_TRUE(ctl("cMajorScale").enabled());
  click("cMajorScale");
  click("cMnu1UC");
  ASSERT_TRUE(playing());
  program.closeWindow("Workshop");
  for (int step = 0; step < 100; ++step) program.clock().advance(50);
  EXPECT_EQ(gCurrFormId, kFormNadavik);
  EXPECT_EQ(messages(), std::vector<std::string>{});
}

}  // namespace
