// The composition player's shell on real screens: opened over raga
// exploration and left back to it, its shared menus checked from the session
// on entry, and its trace switch.
#include <gtest/gtest.h>

#include "exploration/exploration.h"
#include "player/player.h"
#include "screen_harness.h"
#include "store/queries.h"

namespace {

class PlayerShell : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormMainOperations, "MainOperations", sMainOperations,
                    sBindMainOperationsEvents},
                   {kFormPlayComposition1, "PlayComposition1", sPlayCompositions,
                    sBindPlayComposition1Events}}),
              "");
    screenharness::startAtMainWindow();
    sSetSQLStrings();  // the screens it passes through run their queries on entry
    gCurrMusicSetId = 3;
    gCurrTonicNoteId = 3;
  }
};

TEST_F(PlayerShell, EntersAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormPlayComposition1, sPlayCompositions);
}

TEST_F(PlayerShell, TraceMenuSwitchesTracing) {
  screenharness::expectTraceMenuSwitchesTracing(kFormPlayComposition1, sPlayCompositions);
}

TEST_F(PlayerShell, GoBackReturnsToExplorationAndHandsItThePlayback) {
  sMainOperations(0);
  sPlayCompositions(0);
  EXPECT_EQ(gParentFormIds[kFormPlayComposition1 - 1], kFormMainOperations);
  gCallbackContext = 3;
  screenharness::click(kFormPlayComposition1, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_EQ(gCallbackContext, 12);
  sMainOperations(20);
}

TEST_F(PlayerShell, EntryChecksThekaGraceNotesScriptAndTonic) {
  const std::vector<std::string> entries = {"cMnuUseThe", "cMnuNoThe", "cMnuUseGraNot",
                                            "cMnuNoGraNot", "cMnuDev", "cMnuEng", "cMnuW5"};
  struct Case {
    std::int16_t theka, grace, script;
    std::vector<std::string> checked;
  };
  const Case cases[] = {
      {1, 2, 1, {"cMnuUseThe", "cMnuUseGraNot", "cMnuDev", "cMnuW5"}},
      {2, 1, 2, {"cMnuNoThe", "cMnuNoGraNot", "cMnuEng", "cMnuW5"}},
  };
  for (const auto& c : cases) {
    screenharness::startAtMainWindow();
    gThekaMode = c.theka;
    gGraceNotes = c.grace;
    gNotationScript = c.script;
    gCurrTonicNoteId = 9;
    gCurrMusicSetId = 9;
    sPlayCompositions(0);
    EXPECT_EQ(screenharness::checkedEntries(entries), c.checked);
    sPlayCompositions(20);
  }
}

}  // namespace
