// Controller of RagaSelection1, the grid of all ragas from which one is
// chosen for exploration. Keeps no state of its own; the sort order lives
// in gSortingMode.
#include "browsing/browsing.h"
#include "control/errors.h"
#include "control/screen_manager.h"
#include "control/trace.h"
#include "control/trace_menu.h"
#include "platform/screen.h"

// Enters the screen with the current screen as its parent.
void sInitRagaSelection() {
  NV_PROC("sInitRagaSelection");
  sEnterForm(kFormRagaSelection1);
  sMnuTraceCheck();
}

void sTerminateRagaSelection() {
  NV_PROC("sTerminateRagaSelection");
  sStructuredTermination(1);
}

void sSelectRaga(std::int16_t event) {
  NV_PROC("sSelectRaga");
  switch (event) {
    case 0:
      sInitRagaSelection();
      sMnuRagaSortingModeCheck();
      break;
    case 20:
      sTerminateRagaSelection();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindRagaSelection1Events(platform::Screen& screen) {
  screen.on("cReturn", platform::EventKind::Click, [](const platform::Event&) { sSelectRaga(20); });
  sBindTraceMenuEvents(screen);
}
