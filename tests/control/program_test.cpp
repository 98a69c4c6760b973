// The whole program from start to stop: the opening screen, the start-up
// order, the greeting and tips, entering and leaving every screen with its
// menus checked from the session and its trace entries, the usage
// parameters kept between runs, and the refusals of bad starts.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

#include "composer/composer.h"
#include "control/screen_manager.h"
#include "control/screen_table.h"
#include "control/user_store.h"
#include "core/session.h"
#include "core/trace.h"
#include "exploration/exploration.h"
#include "platform/audio.h"
#include "platform/screendef.h"
#include "platform/store.h"
#include "player/player.h"
#include "program_harness.h"
#include "quiz/quiz.h"
#include "workbench/workbench.h"

namespace fs = std::filesystem;
using platform::EventKind;
using Names = std::vector<std::string>;

namespace {

std::string parameter(const fs::path& userStore, const std::string& name) {
  auto db = platform::defaultWorkspace().openDatabase(userStore.string(), false, true, "");
  auto rs = db->openRecordset("User Parameters", platform::RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {platform::Value(name)});
  return rs->noMatch() ? "<missing>" : rs->field("Parameter Value").asText();
}

bool enabled(ProgramHarness& p, const char* control) { return p.screen("Nadavik").control(control).enabled(); }

TEST(Program, CancelOnTheOpeningScreenEndsBeforeAnyFileIsTouched) {
  ProgramHarness p;
  std::ofstream(p.folder() / "errtrace.txt") << "last run\n";
  p.start(false);
  EXPECT_FALSE(p.mainWindowLoaded());
  EXPECT_EQ(p.readFile(p.folder() / "errtrace.txt"), "last run\n");
  EXPECT_FALSE(fs::exists(p.folder() / "mrB.nvy"));
  EXPECT_TRUE(p.messages().empty());
}

// The library is read-only data, stamped with the program's version when it
// is built: a whole run, start to Exit, works with a library file that may
// not be written, and leaves its every byte and its time of change alone.
TEST(Program, AWholeRunLeavesAReadOnlyLibraryUntouched) {
  ProgramHarness p;
  const fs::path library = p.folder() / "mrA.nvy";
  fs::permissions(library, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  const std::string bytes = p.readFile(library);
  const auto changed = fs::last_write_time(library);
  p.start();
  p.finishStartUp();
  p.fire("Nadavik", "cExit", EventKind::Click);
  p.settle();
  for (const auto& m : p.messages()) ADD_FAILURE() << "unexpected message: " << m.text;
  EXPECT_EQ(fExitStatus(), 0);
  EXPECT_EQ(p.readFile(library), bytes);
  EXPECT_EQ(fs::last_write_time(library), changed);
  EXPECT_EQ(p.readFile(p.folder() / "errtrace.txt").find("stamped with version"), std::string::npos);
}

// A folder the start cannot write is named in one message with the cause.
// A temporary folder that is no folder leaves the program running without
// music; a full disk, for which a limit on file size stands in, ends the
// start and leaves the last run's trace whole rather than empty.
TEST(Program, AFolderTheStartCannotWriteIsNamedInOneMessage) {
  rlimit usual{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
  std::signal(SIGXFSZ, SIG_IGN);  // an over-long write then fails with EFBIG
  const char* tmpdir = std::getenv("TMPDIR");
  const std::string usualTmpdir = tmpdir != nullptr ? tmpdir : "/tmp";
  const struct {
    bool tmpdirUnderAFile;
    rlim_t fileSizeLimit;
    const char* cause;
  } cases[] = {{true, usual.rlim_cur, "Not a directory"}, {false, 16, "File too large"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.cause);
    ProgramHarness p;
    std::ofstream(p.folder() / "errtrace.txt") << "the last run's trace\n";
    const fs::path underAFile =
        p.folder() / "mrA.nvy" / ("nadavik-" + std::to_string(getuid()) + "-" + std::to_string(getpid()));
    if (c.tmpdirUnderAFile) setenv("TMPDIR", underAFile.parent_path().c_str(), 1);
    const rlimit limit{std::min(c.fileSizeLimit, usual.rlim_max), usual.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    p.start();
    setrlimit(RLIMIT_FSIZE, &usual);
    setenv("TMPDIR", usualTmpdir.c_str(), 1);
    const std::string folder = c.tmpdirUnderAFile ? underAFile.string() + "/" : p.folder().string();
    ASSERT_EQ(p.messages().size(), 1u);
    EXPECT_NE(p.messages()[0].text.find("'" + folder + "' (" + c.cause + ")"), std::string::npos)
        << p.messages()[0].text;
    EXPECT_EQ(fExitStatus(), c.tmpdirUnderAFile ? 0 : 1);
    EXPECT_EQ(p.readFile(p.folder() / "errtrace.txt") == "the last run's trace\n", !c.tmpdirUnderAFile);
    EXPECT_FALSE(fs::exists(p.folder() / "errtrace.txt.new"));
    if (c.tmpdirUnderAFile) p.closeWindow("Nadavik");
  }
}

TEST(Program, StartGreetsWithTheDroneThenShowsTipsThenEnablesTheMenu) {
  ProgramHarness p;
  p.start();
  ASSERT_TRUE(p.mainWindowLoaded());
  for (const auto& m : p.messages()) ADD_FAILURE() << "unexpected message: " << m.text;
  EXPECT_EQ(p.readFile(p.folder() / "errtrace.txt").rfind("\nOpened Error Trace File\n", 0), 0u);
  EXPECT_TRUE(fs::exists(p.folder() / "mrB.nvy"));
  EXPECT_EQ(gDevnagariOk, -1);

  platform::Screen& main = p.screen("Nadavik");
  EXPECT_TRUE(main.visible() && !main.control("cMnuTraOn").visible());  // tracing is not offered
  EXPECT_FALSE(enabled(p, "cExit") || enabled(p, "cMnuMaiOpe"));
  EXPECT_TRUE(main.control("cTimer").enabled() && main.control("cTimer").interval() == 6500);
  EXPECT_EQ(main.control("cMM").device().mode(), platform::kModePlaying);
  EXPECT_EQ(gCurrMusicFile, gDroneWavFile);
  EXPECT_TRUE(gImageIndex >= 1 && gImageIndex <= 8);
  p.clock().advance(7000);  // the drone plays out and is closed
  EXPECT_NE(main.control("cMM").device().mode(), platform::kModePlaying);

  p.fire("Nadavik", "cTimer", EventKind::Timer);
  EXPECT_FALSE(main.control("cTimer").enabled());
  EXPECT_TRUE(main.control("cTip").visible() && !main.control("cTip").text().empty());
  EXPECT_EQ(gLastTip, 1);  // a new installation begins with tip 1
  p.fire("Nadavik", "cShowNext", EventKind::Click);
  EXPECT_EQ(gLastTip, 2);
  p.fire("Nadavik", "cOK", EventKind::Click);
  EXPECT_FALSE(main.control("cTip").visible());
  EXPECT_TRUE(enabled(p, "cExit") && enabled(p, "cMnuMaiOpe") && main.control("Label1").visible());
  EXPECT_FALSE(main.control("cPrompts").text().empty());
}

// The parameters one by one are tested in parameters_test.cpp; here, that
// the close box and Exit save them and the next start reads them, seen by
// the tips. (No drone file left: exits_test.)
TEST(Program, TheCloseBoxAndExitSaveTheSettingsAndTheNextStartRestoresThem) {
  ProgramHarness p;
  p.start();
  p.finishStartUp();
  gTipSignal = 0;
  gSortingMode = 4;
  p.closeWindow("Nadavik");
  EXPECT_FALSE(p.mainWindowLoaded());
  EXPECT_EQ(gCloseReason, 2);
  EXPECT_EQ(parameter(p.folder() / "mrB.nvy", "SortingMode") + parameter(p.folder() / "mrB.nvy", "TipSignal"),
            "40");

  gTipSignal = 1;
  p.start();  // the same folder again
  p.clock().advance(7000);
  p.fire("Nadavik", "cTimer", EventKind::Timer);
  EXPECT_FALSE(p.screen("Nadavik").control("cTip").visible());
  EXPECT_TRUE(enabled(p, "cExit"));
  p.fire("Nadavik", "cExit", EventKind::Click);
  p.settle();
  EXPECT_FALSE(p.mainWindowLoaded());
  EXPECT_FALSE(gDbA);
}

// Every screen entered from the main menu is laid out from the ratios of its
// definition (through the layout rows of the library store) at the size of
// the window the user keeps (gFormW x gFormH); with tracing
// offered on the command line, it shows the trace entries and they switch
// tracing; it is left by Return or by its close box.
TEST(Program, EveryScreenIsEnteredFromTheMenuAndLeftByReturnOrCloseBox) {
  ProgramHarness p;
  p.start(true, "x1");
  platform::Screen& main = p.screen("Nadavik");
  EXPECT_TRUE(main.control("cMnuTraOn").visible() && main.control("cMnuTraOn").checked());
  EXPECT_NE(p.readFile(p.folder() / "errtrace.txt").find("Entering sSetGlobalVariables(1)"), std::string::npos);
  p.finishStartUp();
  const struct {
    const char* menu;
    const char* screen;
    std::int16_t formId;
  } entries[] = {
      {"cMnuExpRag", "RagaSelection1", kFormRagaSelection1}, {"cMnuTakQui", "Quiz", kFormQuiz},
      {"cMnuUseMusSam", "NVSampler", kFormNVSampler},       {"cMnuOpeWor", "Workshop", kFormWorkshop},
      {"cMnuInvCom", "Composer", kFormComposer},            {"cMnuDefPitShi", "ScaleShifting", kFormScaleShifting},
      {"cMnuRevRagGro", "ReviewRagas", kFormReviewRagas},   {"", "Nadavik", kFormNadavik},
  };
  for (const auto& e : entries) {
    for (bool byCloseBox : {false, true}) {
      SCOPED_TRACE(std::string(e.screen) + (byCloseBox ? " close box" : " return"));
      if (*e.menu) {
        p.fire("Nadavik", e.menu, EventKind::Click);
        ASSERT_EQ(gCurrFormId, e.formId);
        EXPECT_EQ(gParentFormIds[e.formId - 1], kFormNadavik);
        EXPECT_FALSE(p.screen("Nadavik").visible());
      }
      platform::Screen& screen = p.screen(e.screen);
      EXPECT_TRUE(screen.visible());
      const auto def = platform::loadScreenDefinition((p.folder() / "screens" / e.screen).string() + ".screen");
      for (const auto& c : def->controls)
        if (*e.menu && platform::hasGeometry(c.kind) && c.kind != platform::ControlKind::Line) {
          EXPECT_NEAR(screen.control(c.name, c.index).left(), c.x * gFormW, 1.0) << c.name;
          EXPECT_NEAR(screen.control(c.name, c.index).top(), c.y * gFormH, 1.0) << c.name;
          EXPECT_NEAR(screen.control(c.name, c.index).width(), c.w * gFormW, 1.0) << c.name;
        }
      if (e.formId != kFormReviewRagas) {
        for (const char* entry : {"cMnuTraOn", "cMnuTraOff", "cMnuTraOn"}) {
          p.fire(e.screen, entry, EventKind::Click);
          EXPECT_EQ(gTraceOn, std::string(entry) == "cMnuTraOn" ? -1 : 0);
          EXPECT_TRUE(screen.control(entry).checked() && screen.control("cMnuTraOn").visible());
        }
      }
      if (!*e.menu) break;
      if (byCloseBox)
        p.closeWindow(e.screen);
      else
        p.fire(e.screen, "cReturn", EventKind::Click);
      p.settle();
      EXPECT_EQ(gCurrFormId, kFormNadavik);
      EXPECT_EQ(gInternalClose, 0);
      EXPECT_TRUE(!screen.loaded() && p.screen("Nadavik").visible());
    }
  }
  for (const auto& m : p.messages()) ADD_FAILURE() << "unexpected message: " << m.text;
  p.fire("Nadavik", "cExit", EventKind::Click);
}

// The screens whose own behaviour is still to come check their menus from
// the session on entry (any script but 1 is English); the composition
// player goes back to exploration and hands it the playback.
TEST(Program, LaterScreensCheckTheirMenusFromTheSession) {
  ProgramHarness p;
  p.start();
  p.finishStartUp();
  const Names notation = {"cMnuShoNot", "cMnuDonShoNot", "cMnuDev", "cMnuEng"};
  const Names composer = {"cMnuDev", "cMnuEng", "cMnuNotForRag", "cMnuAllNot"};
  const Names workbench = {"cMnuDev",       "cMnuEng",      "cMnuShoKey", "cMnuDonShoKey",
                           "cMnuUseGraNot", "cMnuNoGraNot", "cMnuW4",     "cMnuB1"};
  const Names player = {"cMnuUseThe", "cMnuNoThe", "cMnuUseGraNot", "cMnuNoGraNot", "cMnuDev", "cMnuEng", "cMnuW5"};
  const struct {
    Controller controller;
    std::function<void()> session;
    const Names& entries;
    Names checked;
  } cases[] = {
      // The quiz starts every visit without notation.
      {sTakeQuiz, [] { gNotationDisplay = 1, gNotationScript = 1; }, notation, {"cMnuDonShoNot", "cMnuDev"}},
      {sTakeQuiz, [] { gNotationDisplay = 0, gNotationScript = 7; }, notation, {"cMnuDonShoNot", "cMnuEng"}},
      {sComposer, [] { gNotationScript = 1, gNotePallet = 1; }, composer, {"cMnuDev", "cMnuNotForRag"}},
      // The composer's palette always opens on the raga's own notes.
      {sComposer, [] { gNotationScript = 2, gNotePallet = 2; }, composer, {"cMnuEng", "cMnuNotForRag"}},
      {sWorkshop, [] { gNotationScript = 2, gKeyboardDisplay = 1, gGraceNotes = 1, gCurrTonicNoteId = 7; },
       workbench, {"cMnuEng", "cMnuShoKey", "cMnuNoGraNot", "cMnuW4"}},
      {sPlayCompositions, [] { gThekaMode = 1, gGraceNotes = 2, gNotationScript = 1, gCurrTonicNoteId = 9; },
       player, {"cMnuUseThe", "cMnuUseGraNot", "cMnuDev", "cMnuW5"}},
      // The composition player always opens with the theka: a composition
      // is learnt over its tala.
      {sPlayCompositions, [] { gThekaMode = 2, gGraceNotes = 1, gNotationScript = 2, gCurrTonicNoteId = 9; },
       player, {"cMnuUseThe", "cMnuNoGraNot", "cMnuEng", "cMnuW5"}},
  };
  for (const auto& c : cases) {
    c.session();
    gCurrMusicSetId = gCurrTonicNoteId;
    c.controller(0);
    Names checked;
    for (const auto& name : c.entries)
      if (gCurrForm->control(name).checked()) checked.push_back(name);
    EXPECT_EQ(checked, c.checked) << c.checked.front();
    c.controller(20);
  }
  EXPECT_EQ(gCurrFormId, kFormNadavik);

  gCurrMusicSetId = gCurrTonicNoteId = 3;
  sMainOperations(0);
  sPlayCompositions(0);
  EXPECT_EQ(gParentFormIds[kFormPlayComposition1 - 1], kFormMainOperations);
  gCallbackContext = 3;
  p.fire("PlayComposition1", "cReturn", EventKind::Click);
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_FALSE(p.screen("PlayComposition1").loaded());
  EXPECT_EQ(gCallbackContext, 12);
  sMainOperations(20);
}

// A missing library store is reported by name and not made. (A held one
// meets the same refusal in the engine: store_engine_test.)
TEST(Program, AMissingLibraryStoreIsReportedByNameAndNotMade) {
  ProgramHarness p;
  fs::remove(p.folder() / "mrA.nvy");
  p.start();
  EXPECT_FALSE(p.mainWindowLoaded());
  ASSERT_FALSE(p.messages().empty());
  EXPECT_EQ(p.messages().back().text.rfind("A program error has occured", 0), 0u);
  EXPECT_NE(p.readFile(p.folder() / "errtrace.txt").find("mrA.nvy"), std::string::npos);
  EXPECT_FALSE(fs::exists(p.folder() / "mrA.nvy"));
}

// A library store that lacks a column the program reads ends the start with
// one message naming the file and the item (which item is missing is the
// schema check's test); the user store is not even made.
TEST(Program, ADamagedLibraryIsNamedInOneMessageAndTheStartEnds) {
  ProgramHarness p;
  const std::string library = (p.folder() / "mrA.nvy").string();
  platform::defaultWorkspace().openDatabase(library, true, false, "")->execute(
      "ALTER TABLE \"Raga - Technical Information\" RENAME COLUMN \"Jati\" TO \"Jaati\";");
  p.start();
  EXPECT_FALSE(p.mainWindowLoaded());
  ASSERT_EQ(p.messages().size(), 1u);
  const std::string& text = p.messages()[0].text;
  for (const std::string& part : {"'" + library + "'",
                                  std::string("the column 'Jati' of the table 'Raga - Technical Information'"),
                                  std::string("reinstall")})
    EXPECT_NE(text.find(part), std::string::npos) << text;
  EXPECT_FALSE(fs::exists(p.folder() / "mrB.nvy"));
}

// A missing screen definition is found before anything starts: one message
// names the file, and nothing is made. (The lines at fault in a damaged one
// are screendef_test's.)
TEST(Program, AMissingScreenDefinitionIsNamedInOneMessage) {
  ProgramHarness p;
  fs::remove(p.folder() / "screens" / "Nadavik.screen");
  p.start();
  ASSERT_EQ(p.messages().size(), 1u);
  EXPECT_NE(p.messages()[0].text.find("Nadavik.screen: the file is missing"), std::string::npos);
  EXPECT_NE(p.messages()[0].text.find("reinstall"), std::string::npos);
  EXPECT_FALSE(fs::exists(p.folder() / "errtrace.txt"));
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
  p.finishStartUp();
  p.fire("Nadavik", "cExit", EventKind::Click);
}

}  // namespace
