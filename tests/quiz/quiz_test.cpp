// The Quiz screen in the whole program: choosing the kinds, samples drawn
// from a seeded generator and played while the screen waits without
// blocking, guesses and the answer, exploring the raga with the quiz as its
// parent, and the menus between samples.
#include <set>

#include "control/screen_manager.h"
#include "exploration/exploration_state.h"
#include "quiz/quiz_state.h"
#include "random_screen_fixture.h"

namespace {

class QuizTest : public RandomScreenTest {
 protected:
  void SetUp() override { enter("cMnuTakQui", "Quiz"); }
  void tick(const Names& boxes) {
    for (const char* box : {"cOScale", "cOPakad", "cOAlap"}) ctl(box).setValue(0);
    for (const std::string& box : boxes) ctl(box.c_str()).setValue(1);
    click("cOK");
  }
  void guess(const std::string& raga) {
    click("cGuess");
    for (int i = 0; i < ctl("cRagaList").listCount(); ++i)
      if (ctl("cRagaList").list(i) == raga) ctl("cRagaList").setListIndex(i);
    click("cRagaList");
  }
  // The phrase of the raga at hand that a sample of `kind` may play, read
  // from the working record apart from the quiz.
  bool isPhraseOfKind(std::int16_t kind, const std::string& phrase) {
    if (kind == kQuizScale) return phrase == fGetFromT_ScalePhraseUnSeg(1);
    if (kind == kQuizPakad) return phrase == fGetFromT_PakadPhraseUnSeg(1);
    for (std::int16_t p = 1; p <= fAlapCount(gCurrRagaId, 1); ++p)
      if (phrase == fGetFromT_AnALTPhraseUnSeg(1, 1, 1, p)) return true;
    return false;
  }
};

TEST_F(QuizTest, OkTakesTheTickedKindsInOrderOrRefusesNone) {
  EXPECT_EQ(ctl("cPrompts").text(), fGetPrompts("31"));
  tick({});
  ASSERT_EQ(program.messages().size(), 1u);
  EXPECT_EQ(program.messages()[0].text, "You must elect at least one item");
  EXPECT_EQ(gQuizStage, 1);
  tick({"cOAlap", "cOScale"});
  EXPECT_EQ(gQuizStage, 2);
  EXPECT_EQ(gQuizItemCount, 2);
  EXPECT_EQ(gQuizItems[1], kQuizScale);
  EXPECT_EQ(gQuizItems[2], kQuizAlap);
  EXPECT_FALSE(ctl("Frame1").enabled() || ctl("Label1").visible());
  EXPECT_EQ(ctl("cOK").caption(), "&Select New Music Sample");
  EXPECT_EQ(ctl("cRagaList").listCount(), 70);
  EXPECT_EQ(ctl("cRagaList").list(0), "Adana");
  EXPECT_EQ(ctl("cPrompts").text().rfind(fGetPrompts("32") + " - ", 0), 0u);
}

// Each sample plays one stored phrase of the drawn raga and kind, in a file
// as long as its durations; the screen stays disabled until it has played.
// The same seed draws the same samples again.
TEST_F(QuizTest, SamplesPlayAPhraseOfTheDrawnRagaAndKindThenOfferTheAnswer) {
  tick({"cOScale", "cOPakad", "cOAlap"});
  std::set<std::int16_t> kinds;
  std::set<std::int16_t> ragas;
  Names drawn;
  sFixRandomSeed(7);
  for (int sample = 0; sample < 15; ++sample) {
    if (sample == 12) sFixRandomSeed(7);
    click("cOK");
    ASSERT_TRUE(playing()) << sample;
    kinds.insert(gQuizItem);
    ragas.insert(gCurrRagaId);
    drawn.push_back(gCurrRagaName + ":" + gSelPhrase);
    EXPECT_EQ(gCurrRagaName, fGetRagaName(gCurrRagaId));
    EXPECT_TRUE(isPhraseOfKind(gQuizItem, gSelPhrase)) << gCurrRagaName << ": " << gSelPhrase;
    EXPECT_NEAR(ctl("cMM").device().length(), phraseMs(gSelDurPhrase), 250) << gSelPhrase;
    EXPECT_EQ(ctl("cOK").caption(), "Selected and Playing");
    for (const char* control : {"cOK", "cPlay", "cReturn", "cMnuDro", "cMnuNot", "cRagaList"})
      EXPECT_FALSE(ctl(control).enabled()) << control;
    EXPECT_FALSE(ctl("cGuess").visible() || ctl("cShow").visible());
    runOut();
    EXPECT_EQ(ctl("cOK").caption(), "Selected");
    EXPECT_FALSE(ctl("cOK").enabled());
    for (const char* control : {"cPlay", "cGuess", "cShow"}) EXPECT_TRUE(ctl(control).visible()) << control;
    for (const char* control : {"cPlay", "cReturn", "cMnuDro"}) EXPECT_TRUE(ctl(control).enabled()) << control;
    click("cShow");
  }
  EXPECT_EQ(Names(drawn.begin() + 12, drawn.end()), Names(drawn.begin(), drawn.begin() + 3));
  EXPECT_EQ(kinds.size(), 3u);
  EXPECT_GT(ragas.size(), 8u);
  EXPECT_TRUE(program.messages().empty());
}

TEST_F(QuizTest, GuessesAreJudgedAndTheAnswerOffersExploring) {
  tick({"cOPakad"});
  click("cOK");
  runOut();
  const std::string answer = gCurrRagaName;
  const std::string wrong = answer == "Yaman" ? "Bhupali" : "Yaman";
  const struct {
    std::string pick;  // "" gives up with What is it?
    std::string verdict;
    bool finished;
  } steps[] = {
      {wrong, "Guess Again", false},
      {answer, "It IS " + answer + "!   Well Done!", true},
      {"", "It is " + answer, true},
  };
  for (const auto& step : steps) {
    if (step.pick.empty())
      click("cShow");
    else
      guess(step.pick);
    EXPECT_EQ(ctl("Label5").caption(), step.verdict);
    if (!step.pick.empty()) {
      EXPECT_EQ(ctl("Label4").caption(), "You Selected " + step.pick);
    }
    EXPECT_EQ(ctl("cExplore").visible(), step.finished) << step.verdict;
    EXPECT_EQ(ctl("cOK").enabled(), step.finished) << step.verdict;
    EXPECT_EQ(ctl("cPlay").visible(), !step.finished) << step.verdict;
    EXPECT_EQ(ctl("cRagaList").listIndex(), -1);
  }
  EXPECT_EQ(ctl("cOK").caption(), "&Select New Music Sample");

  click("cExplore");
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_EQ(program.screen("MainOperations").control("cRaga").text(), answer);
  EXPECT_EQ(gParentFormIds[kFormMainOperations - 1], kFormQuiz);
  program.fire("MainOperations", "cReturn", platform::EventKind::Click);
  EXPECT_EQ(gCurrFormId, kFormQuiz);
  click("cOK");  // the quiz goes on where it was
  EXPECT_TRUE(playing());
  EXPECT_EQ(gCallbackContext, kContextQuiz);
}

// Play again plays the same sample; the notation is shown while it plays
// when asked for; the drone and script menus act between samples.
TEST_F(QuizTest, PlayAgainShowsTheNotationWhenAskedAndTheMenusWorkBetweenSamples) {
  tick({"cOScale"});
  click("cOK");
  EXPECT_FALSE(ctl("cNotation").visible());
  runOut();
  const std::string phrase = gSelPhrase;
  const std::int16_t raga = gCurrRagaId;
  click("cMnuShoNot");
  EXPECT_TRUE(ctl("cMnuShoNot").checked() && !ctl("cMnuDonShoNot").checked());
  click("cMnuEng");
  EXPECT_TRUE(ctl("cMnuEng").checked());
  const double drone = gCurrDroneFactor;
  click("cMnuDroSof");
  EXPECT_LT(gCurrDroneFactor, drone);
  click("cPlay");
  EXPECT_TRUE(playing());
  EXPECT_EQ(gSelPhrase, phrase);
  EXPECT_EQ(gCurrRagaId, raga);
  EXPECT_TRUE(ctl("cNotation").visible());
  EXPECT_EQ(ctl("cNotation").text().substr(0, 1), phrase.substr(0, 1));  // English script
  runOut();
  EXPECT_FALSE(ctl("cNotation").visible());
  click("cReturn");
  EXPECT_EQ(gCurrFormId, kFormNadavik);
  EXPECT_TRUE(program.messages().empty());
}

}  // namespace
