// Controller of the Composer screen, where phrases and compositions are
// written, played and saved. Keeps no state of its own yet.
#include "composer/composer.h"

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/trace.h"
#include "platform/screen.h"
#include "sound/play_chain.h"

// Enters the screen with the current screen as its parent and sets the
// check marks of its menus from the session.
void sInitComposer() {
  NV_PROC("sInitComposer");
  sEnterForm(kFormComposer);
  sMnuTraceCheck();
  sMnuNotationScriptCheck();
  sMnuNotePalletCheck();
}

void sTerminateComposer() {
  NV_PROC("sTerminateComposer");
  sStructuredTermination(1);
}

void sComposer(std::int16_t event) {
  NV_PROC("sComposer");
  switch (event) {
    case 0:
      sInitComposer();
      break;
    case 20:
      sTerminateComposer();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindComposerEvents(platform::Screen& screen) {
  screen.on("cReturn", platform::EventKind::Click, [](const platform::Event&) { sComposer(20); });
  sBindTraceMenuEvents(screen);
  gPlayScreenProcedures.owners[kContextComposer] = sComposer;
}
