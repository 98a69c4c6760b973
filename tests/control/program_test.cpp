// The whole program from start to stop: the opening screen, the start-up
// order, the greeting and tips, entering and leaving every screen, the
// usage parameters kept between runs, and the refusals of bad starts.
#include <gtest/gtest.h>

#include <QApplication>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "control/screen_manager.h"
#include "control/user_store.h"
#include "core/session.h"
#include "platform/audio.h"
#include "platform/store.h"
#include "program_harness.h"

namespace fs = std::filesystem;
using platform::EventKind;

namespace {

std::string readFile(const fs::path& p) {
  std::ifstream in(p);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

std::string parameter(const fs::path& userStore, const std::string& name) {
  auto db = platform::defaultWorkspace().openDatabase(userStore.string(), false, true, "");
  auto rs = db->openRecordset("User Parameters", platform::RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {platform::Value(name)});
  std::string value = rs->noMatch() ? "<missing>" : rs->field("Parameter Value").asText();
  rs->close();
  db->close();
  return value;
}

bool enabled(ProgramHarness& p, const char* control) {
  return p.screen("Nadavik").control(control).enabled();
}

// Runs the greeting out and the start-up timer, answering the tips with OK.
void finishStartUp(ProgramHarness& p) {
  p.clock().advance(7000);
  p.fire("Nadavik", "cTimer", EventKind::Timer);
  if (gTipSignal == 1) p.fire("Nadavik", "cOK", EventKind::Click);
}

TEST(Program, CancelOnTheOpeningScreenEndsBeforeAnyFileIsTouched) {
  ProgramHarness p;
  std::ofstream(p.folder() / "errtrace.txt") << "last run\n";
  p.start(false);
  EXPECT_FALSE(p.mainWindowLoaded());
  EXPECT_EQ(readFile(p.folder() / "errtrace.txt"), "last run\n");
  EXPECT_FALSE(fs::exists(p.folder() / "mrB.nvy"));
  EXPECT_TRUE(p.messages().empty());
}

TEST(Program, StartGreetsWithTheDroneThenShowsTipsThenEnablesTheMenu) {
  ProgramHarness p;
  p.start();
  ASSERT_TRUE(p.mainWindowLoaded());
  for (const auto& m : p.messages()) ADD_FAILURE() << "unexpected message: " << m.text;

  std::string trace = readFile(p.folder() / "errtrace.txt");
  EXPECT_EQ(trace.rfind("\nOpened Error Trace File\n", 0), 0u) << trace;
  EXPECT_TRUE(fs::exists(p.folder() / "mrB.nvy"));
  EXPECT_EQ(gDevnagariOk, -1);

  platform::Screen& main = p.screen("Nadavik");
  EXPECT_TRUE(main.visible());
  EXPECT_FALSE(enabled(p, "cExit"));
  EXPECT_FALSE(enabled(p, "cMnuMaiOpe"));
  EXPECT_EQ(main.control("cMnuExpRag").caption(), "Explore Ragas");
  EXPECT_EQ(main.control("cTimer").interval(), 6500);
  EXPECT_TRUE(main.control("cTimer").enabled());
  EXPECT_EQ(main.control("cMM").device().mode(), platform::kModePlaying);
  EXPECT_EQ(gCurrMusicFile, gDroneWavFile);
  EXPECT_GE(gImageIndex, 1);
  EXPECT_LE(gImageIndex, 8);

  p.clock().advance(7000);  // the drone plays out and is closed
  EXPECT_NE(main.control("cMM").device().mode(), platform::kModePlaying);

  p.fire("Nadavik", "cTimer", EventKind::Timer);
  EXPECT_FALSE(main.control("cTimer").enabled());
  EXPECT_TRUE(main.control("cTip").visible());
  EXPECT_EQ(gLastTip, 1);  // a new installation begins with tip 1
  EXPECT_FALSE(main.control("cTip").text().empty());
  p.fire("Nadavik", "cShowNext", EventKind::Click);
  EXPECT_EQ(gLastTip, 2);

  p.fire("Nadavik", "cOK", EventKind::Click);
  EXPECT_FALSE(main.control("cTip").visible());
  EXPECT_TRUE(enabled(p, "cExit"));
  EXPECT_TRUE(enabled(p, "cMnuMaiOpe"));
  EXPECT_TRUE(main.control("Label1").visible());
  EXPECT_FALSE(main.control("cPrompts").text().empty());
}

// The parameters one by one are tested in parameters_test.cpp; here, that
// Exit saves them and the next start reads them, seen by the tips.
TEST(Program, ExitSavesTheSettingsAndTheNextStartRestoresThem) {
  ProgramHarness p;
  p.start();
  finishStartUp(p);
  gTipSignal = 0;
  p.fire("Nadavik", "cExit", EventKind::Click);
  p.settle();
  EXPECT_FALSE(p.mainWindowLoaded());
  EXPECT_FALSE(gDbA);
  EXPECT_EQ(parameter(p.folder() / "mrB.nvy", "TipSignal"), "0");
  EXPECT_FALSE(fs::exists(gDroneWavFile));  // Exit deletes the last played file

  gTipSignal = 1;
  p.start();  // the same folder again
  p.clock().advance(7000);
  p.fire("Nadavik", "cTimer", EventKind::Timer);
  EXPECT_FALSE(p.screen("Nadavik").control("cTip").visible());
  EXPECT_TRUE(enabled(p, "cExit"));
  p.fire("Nadavik", "cExit", EventKind::Click);
}

TEST(Program, TheCloseBoxSavesTheSettings) {
  ProgramHarness p;
  p.start();
  finishStartUp(p);
  gSortingMode = 4;
  p.closeWindow("Nadavik");
  EXPECT_FALSE(p.mainWindowLoaded());
  EXPECT_EQ(gCloseReason, 2);
  EXPECT_EQ(parameter(p.folder() / "mrB.nvy", "SortingMode"), "4");
}

TEST(Program, EveryScreenIsEnteredFromTheMenuAndLeftByReturnOrCloseBox) {
  ProgramHarness p;
  p.start();
  finishStartUp(p);
  struct Entry {
    const char* menu;
    const char* screen;
    std::int16_t formId;
  };
  const Entry entries[] = {
      {"cMnuExpRag", "RagaSelection1", kFormRagaSelection1},
      {"cMnuTakQui", "Quiz", kFormQuiz},
      {"cMnuUseMusSam", "NVSampler", kFormNVSampler},
      {"cMnuOpeWor", "Workshop", kFormWorkshop},
      {"cMnuInvCom", "Composer", kFormComposer},
      {"cMnuDefPitShi", "ScaleShifting", kFormScaleShifting},
      {"cMnuRevRagGro", "ReviewRagas", kFormReviewRagas},
  };
  for (const auto& e : entries) {
    for (bool byCloseBox : {false, true}) {
      SCOPED_TRACE(std::string(e.screen) + (byCloseBox ? " close box" : " return"));
      p.fire("Nadavik", e.menu, EventKind::Click);
      ASSERT_EQ(gCurrFormId, e.formId);
      EXPECT_EQ(gParentFormIds[e.formId - 1], kFormNadavik);
      EXPECT_TRUE(p.screen(e.screen).visible());
      EXPECT_FALSE(p.screen("Nadavik").visible());
      if (byCloseBox)
        p.closeWindow(e.screen);
      else
        p.fire(e.screen, "cReturn", EventKind::Click);
      p.settle();
      EXPECT_EQ(gCurrFormId, kFormNadavik);
      EXPECT_EQ(gInternalClose, 0);
      EXPECT_FALSE(p.screen(e.screen).loaded());
      EXPECT_TRUE(p.screen("Nadavik").visible());
    }
  }
  for (const auto& m : p.messages()) ADD_FAILURE() << "unexpected message: " << m.text;
  p.fire("Nadavik", "cExit", EventKind::Click);
}

TEST(Program, ScreensAreLaidOutFromTheirRatiosOfTheWindow) {
  ProgramHarness p;
  p.start();
  finishStartUp(p);
  p.fire("Nadavik", "cMnuTakQui", EventKind::Click);
  platform::Screen& quiz = p.screen("Quiz");
  auto rows = gDbA->openRecordset("NVFormControls", platform::RecordsetType::Table);
  rows->setIndex("PrimaryKey");
  rows->seek("=", {platform::Value(kFormQuiz), platform::Value(0)});
  int checked = 0;
  for (int i = 0; i < quiz.controlCount() && !rows->eof(); ++i, rows->moveNext()) {
    platform::Control& c = quiz.controlAt(i);
    if (c.kind() == platform::ControlKind::Menu || c.kind() == platform::ControlKind::Timer ||
        c.kind() == platform::ControlKind::MediaControl ||
        c.kind() == platform::ControlKind::Line || c.kind() == platform::ControlKind::SysInfo)
      continue;
    SCOPED_TRACE(c.name());
    EXPECT_NEAR(c.left(), rows->field("LocRatX").asDouble() * gFormW, 1.0);
    EXPECT_NEAR(c.top(), rows->field("LocRatY").asDouble() * gFormH, 1.0);
    EXPECT_NEAR(c.width(), rows->field("SizRatWidth").asDouble() * gFormW, 1.0);
    ++checked;
  }
  rows->close();
  EXPECT_GT(checked, 3);
  p.fire("Quiz", "cReturn", EventKind::Click);
  p.fire("Nadavik", "cExit", EventKind::Click);
}

TEST(Program, ASecondRunningCopyIsRefusedAtOpenAndNothingIsDamaged) {
  ProgramHarness p;
  const fs::path library = p.folder() / "mrA.nvy";
  const std::string before = readFile(library);
  // The copy that runs already holds the library store.
  auto running = platform::defaultWorkspace().openDatabase(library.string(), true, true, "");
  p.start();
  EXPECT_FALSE(p.mainWindowLoaded());
  ASSERT_FALSE(p.messages().empty());
  EXPECT_EQ(p.messages().back().text.rfind("A program error has occured", 0), 0u);
  EXPECT_NE(readFile(p.folder() / "errtrace.txt").find("mrA.nvy"), std::string::npos);
  running->close();
  EXPECT_EQ(readFile(library), before);
}

TEST(Program, AMissingLibraryStoreIsReportedByName) {
  ProgramHarness p;
  fs::remove(p.folder() / "mrA.nvy");
  p.start();
  EXPECT_FALSE(p.mainWindowLoaded());
  EXPECT_FALSE(fs::exists(p.folder() / "mrA.nvy"));
  EXPECT_NE(readFile(p.folder() / "errtrace.txt").find("mrA.nvy"), std::string::npos);
}

// A fatal error once the stores are open (here a user store that is not a
// store at all) halts with one message and gives both store files up before
// the program ends, so that nothing is left for the exit's destructors.
TEST(Program, AFatalErrorAtStartReleasesBothStores) {
  ProgramHarness p;
  {
    std::ofstream garbage(p.folder() / "mrB.nvy", std::ios::binary);
    for (int i = 0; i < 69632; ++i) garbage.put(static_cast<char>((i * 7919 + 13) % 251));
  }
  p.start();
  EXPECT_FALSE(p.mainWindowLoaded());
  EXPECT_EQ(p.messages().size(), 1u);
  for (const char* store : {"mrA.nvy", "mrB.nvy"}) {
    SCOPED_TRACE(store);
    const std::string path = (p.folder() / store).string();
    long refused = 0;
    try {
      platform::defaultWorkspace().openDatabase(path, true, true, "")->close();
    } catch (const platform::StoreError& e) {
      refused = e.number;
    }
    EXPECT_NE(refused, 3045) << "still held by the halted program";
  }
}

// A library store that lacks a table or column the program reads ends the
// start with one message that names the file and the first missing item;
// the user store is not even made.
TEST(Program, ADamagedLibraryIsNamedInOneMessageAndTheStartEnds) {
  const std::pair<const char*, const char*> damages[] = {
      {"DROP TABLE \"NVTips\";", "the table 'NVTips'"},
      {"DROP TABLE \"NVVersion\";", "the table 'NVVersion'"},
      {"DROP TABLE \"RagaNameList\";", "the table 'RagaNameList'"},
      {"ALTER TABLE \"Raga - Technical Information\" RENAME COLUMN \"Jati\" TO \"Jaati\";",
       "the column 'Jati' of the table 'Raga - Technical Information'"},
  };
  for (const auto& [damage, named] : damages) {
    SCOPED_TRACE(damage);
    ProgramHarness p;
    const std::string library = (p.folder() / "mrA.nvy").string();
    {
      auto store = platform::defaultWorkspace().openDatabase(library, true, false, "");
      store->execute(damage);
      store->close();
    }
    p.start();
    EXPECT_FALSE(p.mainWindowLoaded());
    ASSERT_EQ(p.messages().size(), 1u);
    const std::string& text = p.messages()[0].text;
    EXPECT_NE(text.find("'" + library + "'"), std::string::npos) << text;
    EXPECT_NE(text.find(named), std::string::npos) << text;
    EXPECT_NE(text.find("reinstall"), std::string::npos) << text;
    EXPECT_FALSE(fs::exists(p.folder() / "mrB.nvy"));
  }
}

// A missing or hostile screen definition is found before anything starts:
// one message names the file (and the line at fault), and nothing is made.
TEST(Program, AMissingOrDamagedScreenDefinitionIsNamedInOneMessage) {
  struct Case {
    const char* screen;
    const char* replacedBy;  // nullptr: the file is removed
    const char* named;
  };
  const Case cases[] = {
      {"Nadavik", nullptr, "Nadavik.screen: the file is missing"},
      {"RagaSelection1", "screen RagaSelection1 id=9\ngrid cRagaList rows=2000000000\n",
       "RagaSelection1.screen, line 2: rows=2000000000 is out of range"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.screen);
    ProgramHarness p;
    const fs::path file = p.folder() / "screens" / (std::string(c.screen) + ".screen");
    if (c.replacedBy)
      std::ofstream(file, std::ios::trunc) << c.replacedBy;
    else
      fs::remove(file);
    p.start();
    ASSERT_EQ(p.messages().size(), 1u);
    EXPECT_NE(p.messages()[0].text.find(c.named), std::string::npos) << p.messages()[0].text;
    EXPECT_NE(p.messages()[0].text.find("reinstall"), std::string::npos);
    EXPECT_FALSE(fs::exists(p.folder() / "errtrace.txt"));
  }
}

TEST(Program, WithoutTheNotationFontTheUserIsToldAndEnglishIsUsed) {
  ProgramHarness p;
  fs::remove(p.folder() / "Shusha.ttf");
  p.start();
  ASSERT_FALSE(p.messages().empty());
  EXPECT_EQ(p.messages().front().text,
            "There was a problem installing Font Shusha. This installation will always show "
            "notation using English script.");
  EXPECT_EQ(gDevnagariOk, 0);
  EXPECT_EQ(gNotationScript, 2);
  finishStartUp(p);
  p.fire("Nadavik", "cExit", EventKind::Click);
}

TEST(Program, TraceMenuEntriesShowOnlyWhenTracingIsOffered) {
  {
    ProgramHarness p;
    p.start();
    EXPECT_FALSE(p.screen("Nadavik").control("cMnuTraOn").visible());
    finishStartUp(p);
    p.fire("Nadavik", "cExit", EventKind::Click);
  }
  ProgramHarness p;
  p.start(true, "x1");
  platform::Screen& main = p.screen("Nadavik");
  EXPECT_TRUE(main.control("cMnuTraOn").visible());
  EXPECT_TRUE(main.control("cMnuTraOn").checked());
  EXPECT_NE(readFile(p.folder() / "errtrace.txt").find("Entering sSetGlobalVariables(1)"),
            std::string::npos);
  p.fire("Nadavik", "cMnuTraOff", EventKind::Click);
  EXPECT_EQ(gTraceOn, 0);
  EXPECT_TRUE(main.control("cMnuTraOff").checked());
  finishStartUp(p);
  p.fire("Nadavik", "cExit", EventKind::Click);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
