// The raga exploration screen's shell on real screens: entered over raga
// selection and left back to it, its shared menus checked from the session
// on entry, and its trace switch.
#include <gtest/gtest.h>

#include "browsing/browsing.h"
#include "exploration/exploration.h"
#include "screen_harness.h"
#include "store/queries.h"

namespace {

class ExplorationShell : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormRagaSelection1, "RagaSelection1", sSelectRaga, sBindRagaSelection1Events},
                   {kFormMainOperations, "MainOperations", sMainOperations,
                    sBindMainOperationsEvents}}),
              "");
    screenharness::startAtMainWindow();
    sSetSQLStrings();  // the raga grid runs its query on entry
    gCurrMusicSetId = 3;
    gCurrTonicNoteId = 3;
  }
};

TEST_F(ExplorationShell, EntersFromTheMainWindowAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormMainOperations, sMainOperations);
}

TEST_F(ExplorationShell, TraceMenuSwitchesTracing) {
  screenharness::expectTraceMenuSwitchesTracing(kFormMainOperations, sMainOperations);
}

TEST_F(ExplorationShell, GoBackUnwindsOneScreenOfTheChain) {
  sSelectRaga(0);
  sMainOperations(0);
  EXPECT_EQ(gParentFormIds[kFormMainOperations - 1], kFormRagaSelection1);
  EXPECT_FALSE(screenharness::screenOf(kFormRagaSelection1).visible());

  screenharness::click(kFormMainOperations, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormRagaSelection1);
  EXPECT_TRUE(screenharness::screenOf(kFormRagaSelection1).visible());
  screenharness::click(kFormRagaSelection1, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormNadavik);
}

TEST_F(ExplorationShell, EntryChecksGraceNotesScriptTonicAndKeyboard) {
  const std::vector<std::string> entries = {
      "cMnuUseGraNot", "cMnuNoGraNot", "cMnuDev", "cMnuEng", "cMnuShoKey", "cMnuDonShoKey",
      "cMnuW7", "cMnuW1", "cMnuB1", "cMnuW2", "cMnuB2", "cMnuW3",
      "cMnuW4", "cMnuB3", "cMnuW5", "cMnuB4", "cMnuW6", "cMnuB5"};
  struct Case {
    std::int16_t grace, script, keyboard, tonic, musicSet;
    std::vector<std::string> checked;
  };
  const Case cases[] = {
      {2, 1, 1, 3, 3, {"cMnuUseGraNot", "cMnuDev", "cMnuShoKey", "cMnuB1"}},
      {1, 2, 2, 12, 12, {"cMnuNoGraNot", "cMnuEng", "cMnuDonShoKey", "cMnuB5"}},
      {2, 2, 1, 1, 1, {"cMnuUseGraNot", "cMnuEng", "cMnuShoKey", "cMnuW7"}},
      // A user-defined scale has its own tonic: no tonic entry is checked.
      {2, 1, 1, 5, 13, {"cMnuUseGraNot", "cMnuDev", "cMnuShoKey"}},
  };
  for (const auto& c : cases) {
    screenharness::startAtMainWindow();
    gGraceNotes = c.grace;
    gNotationScript = c.script;
    gKeyboardDisplay = c.keyboard;
    gCurrTonicNoteId = c.tonic;
    gCurrMusicSetId = c.musicSet;
    sMainOperations(0);
    EXPECT_EQ(screenharness::checkedEntries(entries), c.checked) << "tonic " << c.tonic;
    sMainOperations(20);
  }
}

}  // namespace
