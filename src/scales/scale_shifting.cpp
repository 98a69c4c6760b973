// Controller of the ScaleShifting screen, where a new tonic is tuned by ear
// and the notes of stored scales are refined. Keeps no state of its own yet.
#include "scales/scales.h"

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/trace.h"
#include "platform/screen.h"

// Enters the screen with the current screen as its parent and sets the
// check marks of its menus from the session.
void sInitShiftScale() {
  NV_PROC("sInitShiftScale");
  sEnterForm(kFormScaleShifting);
  sMnuTraceCheck();
}

void sTerminateShiftScale() {
  NV_PROC("sTerminateShiftScale");
  sStructuredTermination(1);
}

void sShiftScale(std::int16_t event) {
  NV_PROC("sShiftScale");
  switch (event) {
    case 0:
      sInitShiftScale();
      break;
    case 20:
      sTerminateShiftScale();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindScaleShiftingEvents(platform::Screen& screen) {
  screen.on("cReturn", platform::EventKind::Click, [](const platform::Event&) { sShiftScale(20); });
  sBindTraceMenuEvents(screen);
}
