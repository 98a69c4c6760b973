// Controller of the Quiz screen, where the user names the raga of a random
// sample. Keeps no state of its own yet.
#include "quiz/quiz.h"

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/trace.h"
#include "platform/screen.h"

// Enters the screen with the current screen as its parent and sets the
// check marks of its menus from the session.
void sInitTakeQuiz() {
  NV_PROC("sInitTakeQuiz");
  sEnterForm(kFormQuiz);
  sMnuTraceCheck();
  sMnuNotationCheck();
  sMnuNotationScriptCheck();
}

void sTerminateTakeQuiz() {
  NV_PROC("sTerminateTakeQuiz");
  sStructuredTermination(1);
}

void sTakeQuiz(std::int16_t event) {
  NV_PROC("sTakeQuiz");
  switch (event) {
    case 0:
      sInitTakeQuiz();
      break;
    case 20:
      sTerminateTakeQuiz();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindQuizEvents(platform::Screen& screen) {
  screen.on("cReturn", platform::EventKind::Click, [](const platform::Event&) { sTakeQuiz(20); });
  sBindTraceMenuEvents(screen);
}
