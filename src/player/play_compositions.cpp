// Controller of PlayComposition1, which plays a composition beat by beat on
// its tala grid. Keeps no state of its own yet.
#include "player/player.h"

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/trace.h"
#include "platform/screen.h"
#include "sound/play_chain.h"

// Enters the screen with the current screen as its parent and sets the
// check marks of its menus from the session.
void sInitPlayCompositions() {
  NV_PROC("sInitPlayCompositions");
  sSetFormParameters();
  sEnterForm(kFormPlayComposition1);
  sMnuTraceCheck();
  sMnuGraceNotesCheck();
  sMnuNotationScriptCheck();
  sMnuThekaCheck();
  sMnuTonicNoteCheck();
}

void sTerminatePlayCompositions() {
  NV_PROC("sTerminatePlayCompositions");
  sStructuredTermination(1);
}

void sPlayCompositions(std::int16_t event) {
  NV_PROC("sPlayCompositions");
  switch (event) {
    case 0:
      sInitPlayCompositions();
      break;
    case 20:
      sTerminatePlayCompositions();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindPlayComposition1Events(platform::Screen& screen) {
  screen.on("cReturn", platform::EventKind::Click,
            [](const platform::Event&) { sPlayCompositions(20); });
  sBindTraceMenuEvents(screen);
  gPlayScreenProcedures.owners[kContextComposition] = sPlayCompositions;
}
