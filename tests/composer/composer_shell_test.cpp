// The composer screen's shell on real screens: entered from the main window
// and left by Go Back, its script and note palette menus checked from the
// session on entry, and its trace switch.
#include <gtest/gtest.h>

#include "composer/composer.h"
#include "screen_harness.h"

namespace {

class ComposerShell : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormComposer, "Composer", sComposer, sBindComposerEvents}}),
              "");
    screenharness::startAtMainWindow();
  }
};

TEST_F(ComposerShell, EntersFromTheMainWindowAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormComposer, sComposer);
}

TEST_F(ComposerShell, TraceMenuSwitchesTracing) {
  screenharness::expectTraceMenuSwitchesTracing(kFormComposer, sComposer);
}

TEST_F(ComposerShell, EntryChecksScriptAndNotePalette) {
  struct Case {
    std::int16_t script, pallet;
    std::vector<std::string> checked;
  };
  const Case cases[] = {
      {1, 1, {"cMnuDev", "cMnuNotForRag"}},
      {2, 2, {"cMnuEng", "cMnuAllNot"}},
  };
  for (const auto& c : cases) {
    screenharness::startAtMainWindow();
    gNotationScript = c.script;
    gNotePallet = c.pallet;
    sComposer(0);
    EXPECT_EQ(screenharness::checkedEntries({"cMnuDev", "cMnuEng", "cMnuNotForRag", "cMnuAllNot"}),
              c.checked);
    sComposer(20);
  }
}

}  // namespace
