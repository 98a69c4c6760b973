// Controller of MainOperations, the screen on which one raga is explored in
// Demo, Learning or Practice mode. Keeps no state of its own yet.
#include "exploration/exploration.h"

#include "control/errors.h"
#include "control/screen_manager.h"
#include "control/trace.h"
#include "control/trace_menu.h"
#include "platform/screen.h"

// Enters the screen with the current screen as its parent and sets the
// check marks of its menus from the session.
void sInitMainOperations() {
  NV_PROC("sInitMainOperations");
  sSetFormParameters();
  sEnterForm(kFormMainOperations);
  sMnuTraceCheck();
  sMnuGraceNotesCheck();
  sMnuNotationScriptCheck();
  sMnuTonicNoteCheck();
  sMnuKeyboardDisplayCheck();
}

void sTerminateMainOperations() {
  NV_PROC("sTerminateMainOperations");
  sStructuredTermination(1);
}

void sMainOperations(std::int16_t event) {
  NV_PROC("sMainOperations");
  switch (event) {
    case 0:
      sInitMainOperations();
      break;
    case 20:
      sTerminateMainOperations();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindMainOperationsEvents(platform::Screen& screen) {
  screen.on("cReturn", platform::EventKind::Click,
            [](const platform::Event&) { sMainOperations(20); });
  sBindTraceMenuEvents(screen);
}
