// The trace switch of the Help menu, shared by every screen that has one.
#include "control/trace_menu.h"

#include "control/session.h"
#include "control/trace.h"
#include "platform/screen.h"

void sBindTraceMenuEvents(platform::Screen& screen) {
  screen.on("cMnuTraOn", platform::EventKind::Click, [](const platform::Event&) {
    gTraceOn = -1;
    sMnuTraceCheck();
  });
  screen.on("cMnuTraOff", platform::EventKind::Click, [](const platform::Event&) {
    gTraceOn = 0;
    sMnuTraceCheck();
  });
}
