// Controller of the Quiz screen. Every control's handler sets a session
// value or two and calls sTakeQuiz with its event number. State: the quiz
// state (quiz_state.h).
#include "quiz/quiz.h"

#include <cstddef>
#include <string>

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "platform/screen.h"
#include "quiz/quiz_sample.h"
#include "quiz/quiz_state.h"
#include "sound/drone.h"
#include "sound/music_set.h"
#include "store/lookups.h"
#include "store/query_open.h"
#include "store/working_record.h"

std::int16_t gQuizStage = 1;
std::int16_t gQuizItemCount = 0;
std::array<std::int16_t, 4> gQuizItems{};
std::int16_t gQuizItem = 0;
std::int16_t gQuizSavedTheka = 2;
std::int16_t gQuizTheka = 2;
std::int16_t gSavedKeyboard = 1;
std::int16_t gQuizKeyboard = 2;
bool gQuizSamplePlaying = false;

namespace {

constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kNoTheka = 2;
constexpr std::int16_t kNoKeyboard = 2;

// The ragas offered for a guess: those with technical data, by name.
const char* const kGuessListQuery =
    "SELECT RagaNameList.Raga FROM [Raga - Technical Information] INNER JOIN RagaNameList ON "
    "[Raga - Technical Information].[Raga Index] = RagaNameList.[Raga Index] ORDER BY "
    "RagaNameList.Raga;";

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }

void sFillGuessList() {
  platform::Control& list = ctl("cRagaList");
  list.clear();
  auto rows = fOpenQuery(*gDbA, kGuessListQuery);
  if (!rows) return;
  for (; !rows->eof(); rows->moveNext()) list.addItem(rows->field("Raga").asText());
}

// Event 2 in stage 1: the ticked kinds, in the order of the boxes.
void sTakeTickedKinds() {
  const struct {
    const char* box;
    std::int16_t kind;
  } boxes[] = {{"cOScale", kQuizScale}, {"cOPakad", kQuizPakad}, {"cOAlap", kQuizAlap}};
  bool anyTicked = false;
  for (const auto& b : boxes) anyTicked = anyTicked || ctl(b.box).value() != 0;
  if (!anyTicked) {
    sShowMessage("You must elect at least one item");
    return;
  }
  ctl("Frame1").setEnabled(false);
  ctl("cReturn").setFocus();
  ctl("Label1").setVisible(false);
  gQuizItemCount = 0;
  for (const auto& b : boxes)
    if (ctl(b.box).value() != 0) gQuizItems[static_cast<std::size_t>(++gQuizItemCount)] = b.kind;
  sFillGuessList();
  ctl("cOK").setCaption("&Select New Music Sample");
  gQuizStage = 2;
  ctl("cPrompts").setText(fGetPrompts("32") + gSeparator + fGetScaleInfo());
}

// The sample is over, named by the user or given away: Explore is offered
// and a new sample can be asked for.
void sSampleAnswered() {
  ctl("cExplore").setVisible(true);
  ctl("cRagaList").setListIndex(-1);
  for (const char* name : {"cRagaList", "cGuess", "cShow", "cPlay"}) ctl(name).setVisible(false);
  ctl("cOK").setCaption("&Select New Music Sample");
  ctl("cOK").setEnabled(true);
}

// Event 1: a raga picked from the list.
void sGuessMade() {
  platform::Control& list = ctl("cRagaList");
  const std::string choice = list.text();
  if (gQuizStage != 2 || choice.empty()) return;
  ctl("Label4").setCaption("You Selected " + choice);
  ctl("Label4").setVisible(true);
  if (choice != gCurrRagaName) {
    ctl("Label5").setCaption("Guess Again");
    list.setListIndex(-1);
  } else {
    ctl("Label5").setCaption("It IS " + choice + "!   Well Done!");
    sSampleAnswered();
  }
  ctl("Label5").setVisible(true);
}

// Event 5: the user gives up.
void sAnswerShown() {
  ctl("Label5").setCaption("It is " + gCurrRagaName);
  ctl("Label5").setVisible(true);
  sSampleAnswered();
}

void sOpenGuessList() {
  platform::Control& list = ctl("cRagaList");
  list.setListIndex(-1);
  list.setVisible(true);
  list.setFocus();
}

// Event 6: the raga of the sample on the exploration screen, with the quiz
// underneath as its parent, shown again when the user goes back.
void sExploreRaga() {
  gKeyboardDisplay = gSavedKeyboard;
  sSetupForCurrRaga();
  sMainOperations(0);
}

}  // namespace

void sInitTakeQuiz() {
  NV_PROC("sInitTakeQuiz");
  sEnterForm(kFormQuiz);
  ctl("cMnuDev").setVisible(gDevnagariOk == kTrue);
  sMnuTraceCheck();
  gQuizStage = 1;
  gQuizItemCount = 0;
  gQuizSamplePlaying = false;
  gNotationDisplay = 0;
  sMnuNotationCheck();
  sMnuNotationScriptCheck();
  gCurrMode = 1;
  gCurrDbSelector = 1;
  gQuizTheka = kNoTheka;
  gQuizSavedTheka = gThekaMode;
  gThekaMode = kNoTheka;
  gQuizKeyboard = kNoKeyboard;
  gSavedKeyboard = gKeyboardDisplay;
  gKeyboardDisplay = kNoKeyboard;
  ctl("cPrompts").setText(fGetPrompts("31"));
}

void sTerminateTakeQuiz() {
  NV_PROC("sTerminateTakeQuiz");
  gThekaMode = gQuizSavedTheka;
  sStructuredTermination(1);
}

void sTakeQuiz(std::int16_t event) {
  NV_PROC("sTakeQuiz");
  gCallbackContext = kContextQuiz;
  switch (event) {
    case 0:
      sInitTakeQuiz();
      ctl("Frame1").setVisible(true);
      break;
    case 1: sGuessMade(); break;
    case 2:
      if (gQuizStage == 1)
        sTakeTickedKinds();
      else
        sSelectQuizSample();
      break;
    case 3: sPlayQuizSample(); break;
    case 4: sOpenGuessList(); break;
    case 5: sAnswerShown(); break;
    case 6: sExploreRaga(); break;
    case 7: sMnuNotationCheck(); break;
    case 8: sMnuNotationScriptCheck(); break;
    case 9:
      if (fAdjustDroneVolume() != 1) sShowMessage("Error in Building DroneData");
      break;
    case 19: sQuizSamplePlayed(); break;
    case 20:
      gKeyboardDisplay = gSavedKeyboard;
      sTerminateTakeQuiz();
      break;
    default: break;  // other events do nothing
  }
}
