// Controller of the Workshop screen, the workbench of note, scale and pattern
// exercises. Keeps no state of its own yet.
#include "workbench/workbench.h"

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/trace.h"
#include "platform/screen.h"
#include "sound/play_chain.h"

// Enters the screen with the current screen as its parent and sets the
// check marks of its menus from the session.
void sInitWorkshop() {
  NV_PROC("sInitWorkshop");
  sEnterForm(kFormWorkshop);
  sMnuTraceCheck();
  sMnuNotationScriptCheck();
  sMnuKeyboardDisplayCheck();
  sMnuTonicNoteCheck();
  sMnuGraceNotesCheck();
}

void sTerminateWorkshop() {
  NV_PROC("sTerminateWorkshop");
  sStructuredTermination(1);
}

void sWorkshop(std::int16_t event) {
  NV_PROC("sWorkshop");
  switch (event) {
    case 0:
      sInitWorkshop();
      break;
    case 20:
      sTerminateWorkshop();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindWorkshopEvents(platform::Screen& screen) {
  screen.on("cReturn", platform::EventKind::Click, [](const platform::Event&) { sWorkshop(20); });
  sBindTraceMenuEvents(screen);
  gPlayScreenProcedures.owners[kContextWorkbench] = sWorkshop;
}
