// The quiz screen's shell on real screens: entered from the main window and
// left by Go Back, its notation menus checked from the session on entry,
// and its trace switch.
#include <gtest/gtest.h>

#include "quiz/quiz.h"
#include "screen_harness.h"

namespace {

class QuizShell : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(screenharness::setUpScreens({{kFormQuiz, "Quiz", sTakeQuiz, sBindQuizEvents}}), "");
  }
};

TEST_F(QuizShell, EntersFromTheMainWindowAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormQuiz, sTakeQuiz);
}

TEST_F(QuizShell, TraceMenuSwitchesTracing) {
  screenharness::expectTraceMenuSwitchesTracing(kFormQuiz, sTakeQuiz);
}

TEST_F(QuizShell, EntryChecksTheNotationMenusFromTheSession) {
  struct Case {
    std::int16_t display, script;
    std::vector<std::string> checked;
  };
  const Case cases[] = {
      {1, 1, {"cMnuShoNot", "cMnuDev"}},
      {0, 2, {"cMnuDonShoNot", "cMnuEng"}},
      {0, 7, {"cMnuDonShoNot", "cMnuEng"}},  // any script but 1 is English
  };
  for (const auto& c : cases) {
    screenharness::startAtMainWindow();
    gNotationDisplay = c.display;
    gNotationScript = c.script;
    sTakeQuiz(0);
    EXPECT_EQ(screenharness::checkedEntries(
                  {"cMnuShoNot", "cMnuDonShoNot", "cMnuDev", "cMnuEng"}),
              c.checked);
    sTakeQuiz(20);
  }
}

TEST_F(QuizShell, EventsWithoutBehaviourLeaveTheScreenAsItIs) {
  screenharness::startAtMainWindow();
  sTakeQuiz(0);
  for (std::int16_t event : {1, 2, 19, 21, -1}) sTakeQuiz(event);
  EXPECT_EQ(gCurrFormId, kFormQuiz);
  sTakeQuiz(20);
  EXPECT_EQ(gCurrFormId, kFormNadavik);
}

}  // namespace
