// The screens whose own behaviour is still to come, on real screens: entry
// sets the check marks of their menus from the session and shows the trace
// entries only when tracing is offered, the trace entries switch tracing,
// and the composition player goes back to exploration with the playback.
// (Entering and leaving them from the main menu is in program_test.)
#include <gtest/gtest.h>

#include <functional>

#include "composer/composer.h"
#include "exploration/exploration.h"
#include "player/player.h"
#include "quiz/quiz.h"
#include "sampler/sampler.h"
#include "scales/scales.h"
#include "screen_harness.h"
#include "store/queries.h"
#include "workbench/workbench.h"

namespace {

using Names = std::vector<std::string>;

class ScreenShells : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormQuiz, "Quiz", sTakeQuiz, sBindQuizEvents},
                   {kFormNVSampler, "NVSampler", sNVSampler, sBindNVSamplerEvents},
                   {kFormScaleShifting, "ScaleShifting", sShiftScale, sBindScaleShiftingEvents},
                   {kFormWorkshop, "Workshop", sWorkshop, sBindWorkshopEvents},
                   {kFormComposer, "Composer", sComposer, sBindComposerEvents},
                   {kFormMainOperations, "MainOperations", sMainOperations,
                    sBindMainOperationsEvents},
                   {kFormPlayComposition1, "PlayComposition1", sPlayCompositions,
                    sBindPlayComposition1Events}}),
              "");
    sSetSQLStrings();  // the exploration screen runs its queries on entry
  }
  void SetUp() override {
    screenharness::startAtMainWindow();
    gCurrMusicSetId = gCurrTonicNoteId = 3;
  }
};

struct Shell {
  std::int16_t formId;
  Controller controller;
};

const Shell kShells[] = {{kFormQuiz, sTakeQuiz},         {kFormNVSampler, sNVSampler},
                         {kFormScaleShifting, sShiftScale}, {kFormWorkshop, sWorkshop},
                         {kFormComposer, sComposer},     {kFormPlayComposition1, sPlayCompositions}};

TEST_F(ScreenShells, TraceEntriesShowOnlyWhenOfferedAndSwitchTracing) {
  for (const Shell& s : kShells) {
    SCOPED_TRACE(s.formId);
    screenharness::startAtMainWindow();
    s.controller(0);
    EXPECT_FALSE(gCurrForm->control("cMnuTraOn").visible());
    EXPECT_FALSE(gCurrForm->control("cMnuTraOff").visible());
    s.controller(20);
    screenharness::expectTraceMenuSwitchesTracing(s.formId, s.controller);
  }
}

TEST_F(ScreenShells, EntryChecksTheMenusFromTheSession) {
  struct Case {
    Controller controller;
    std::function<void()> session;
    Names entries, checked;
  };
  const Names notation = {"cMnuShoNot", "cMnuDonShoNot", "cMnuDev", "cMnuEng"};
  const Names composer = {"cMnuDev", "cMnuEng", "cMnuNotForRag", "cMnuAllNot"};
  const Names workbench = {"cMnuDev",       "cMnuEng",      "cMnuShoKey", "cMnuDonShoKey",
                           "cMnuUseGraNot", "cMnuNoGraNot", "cMnuW4",     "cMnuB1"};
  const Names player = {"cMnuUseThe", "cMnuNoThe", "cMnuUseGraNot", "cMnuNoGraNot",
                        "cMnuDev",    "cMnuEng",   "cMnuW5"};
  const Case cases[] = {
      {sTakeQuiz, [] { gNotationDisplay = 1, gNotationScript = 1; }, notation,
       {"cMnuShoNot", "cMnuDev"}},
      {sTakeQuiz, [] { gNotationDisplay = 0, gNotationScript = 2; }, notation,
       {"cMnuDonShoNot", "cMnuEng"}},
      // any script but 1 is English
      {sTakeQuiz, [] { gNotationDisplay = 0, gNotationScript = 7; }, notation,
       {"cMnuDonShoNot", "cMnuEng"}},
      {sComposer, [] { gNotationScript = 1, gNotePallet = 1; }, composer,
       {"cMnuDev", "cMnuNotForRag"}},
      {sComposer, [] { gNotationScript = 2, gNotePallet = 2; }, composer,
       {"cMnuEng", "cMnuAllNot"}},
      {sWorkshop,
       [] { gNotationScript = 2, gKeyboardDisplay = 1, gGraceNotes = 1, gCurrTonicNoteId = 7; },
       workbench, {"cMnuEng", "cMnuShoKey", "cMnuNoGraNot", "cMnuW4"}},
      {sPlayCompositions,
       [] { gThekaMode = 1, gGraceNotes = 2, gNotationScript = 1, gCurrTonicNoteId = 9; },
       player, {"cMnuUseThe", "cMnuUseGraNot", "cMnuDev", "cMnuW5"}},
      {sPlayCompositions,
       [] { gThekaMode = 2, gGraceNotes = 1, gNotationScript = 2, gCurrTonicNoteId = 9; },
       player, {"cMnuNoThe", "cMnuNoGraNot", "cMnuEng", "cMnuW5"}},
  };
  for (const Case& c : cases) {
    screenharness::startAtMainWindow();
    c.session();
    gCurrMusicSetId = gCurrTonicNoteId;
    c.controller(0);
    EXPECT_EQ(screenharness::checkedEntries(c.entries), c.checked) << c.checked.front();
    c.controller(20);
  }
}

TEST_F(ScreenShells, ThePlayerGoesBackToExplorationAndHandsItThePlayback) {
  sMainOperations(0);
  sPlayCompositions(0);
  EXPECT_EQ(gParentFormIds[kFormPlayComposition1 - 1], kFormMainOperations);
  gCallbackContext = 3;
  screenharness::click(kFormPlayComposition1, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_FALSE(screenharness::screenOf(kFormPlayComposition1).loaded());
  EXPECT_EQ(gCallbackContext, 12);
  sMainOperations(20);
}

}  // namespace
