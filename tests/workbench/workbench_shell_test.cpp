// The workbench screen's shell on real screens: entered from the main window
// and left by Go Back, its shared menus checked from the session on entry,
// and its trace switch.
#include <gtest/gtest.h>

#include "screen_harness.h"
#include "workbench/workbench.h"

namespace {

class WorkbenchShell : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormWorkshop, "Workshop", sWorkshop, sBindWorkshopEvents}}),
              "");
    screenharness::startAtMainWindow();
    gCurrMusicSetId = 3;
    gCurrTonicNoteId = 3;
  }
};

TEST_F(WorkbenchShell, EntersFromTheMainWindowAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormWorkshop, sWorkshop);
}

TEST_F(WorkbenchShell, TraceMenuSwitchesTracing) {
  screenharness::expectTraceMenuSwitchesTracing(kFormWorkshop, sWorkshop);
}

TEST_F(WorkbenchShell, EntryChecksScriptKeyboardTonicAndGraceNotes) {
  gNotationScript = 2;
  gKeyboardDisplay = 1;
  gGraceNotes = 1;
  gCurrTonicNoteId = 7;
  gCurrMusicSetId = 7;
  sWorkshop(0);
  EXPECT_EQ(screenharness::checkedEntries({"cMnuDev", "cMnuEng", "cMnuShoKey", "cMnuDonShoKey",
                                           "cMnuUseGraNot", "cMnuNoGraNot", "cMnuW4", "cMnuB1"}),
            (std::vector<std::string>{"cMnuEng", "cMnuShoKey", "cMnuNoGraNot", "cMnuW4"}));
  sWorkshop(20);
}

}  // namespace
