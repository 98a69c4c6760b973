// The event handlers of the Quiz screen: each sets the session values its
// event needs and calls the controller. No state of its own.
#include "control/trace_menu.h"
#include "core/session.h"
#include "platform/screen.h"
#include "quiz/quiz.h"
#include "sound/playback.h"
#include "sound/sound_state.h"

namespace {

using platform::Event;
using platform::EventKind;

void onClick(platform::Screen& s, const char* control, void (*handler)()) {
  s.on(control, EventKind::Click, [handler](const Event&) { handler(); });
}

void raise(std::int16_t event) { sTakeQuiz(event); }

}  // namespace

void sBindQuizEvents(platform::Screen& screen) {
  onClick(screen, "cRagaList", [] { raise(1); });
  onClick(screen, "cOK", [] { raise(2); });
  onClick(screen, "cPlay", [] { raise(3); });
  onClick(screen, "cGuess", [] { raise(4); });
  onClick(screen, "cShow", [] { raise(5); });
  onClick(screen, "cExplore", [] { raise(6); });
  onClick(screen, "cMnuShoNot", [] { gNotationDisplay = 1; raise(7); });
  onClick(screen, "cMnuDonShoNot", [] { gNotationDisplay = 0; raise(7); });
  onClick(screen, "cMnuDev", [] { gNotationScript = 1; raise(8); });
  onClick(screen, "cMnuEng", [] { gNotationScript = 2; raise(8); });
  onClick(screen, "cMnuDroLou", [] { gDroneStep = 1; raise(9); });
  onClick(screen, "cMnuDroSof", [] { gDroneStep = -1; raise(9); });
  onClick(screen, "cReturn", [] { raise(20); });
  // The end of the sample's file: the file is closed as on every screen,
  // and the quiz, whose sample is its one file, takes back its controls.
  screen.on("cMM", EventKind::Done, [](const Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
    raise(19);
  });
  sBindTraceMenuEvents(screen);
}
