// Handlers of the trace menu entries: switch tracing and update the marks.
#include "control/trace_menu.h"

#include "control/session.h"
#include "control/trace.h"
#include "platform/screen.h"

void sBindTraceMenuEvents(platform::Screen& screen) {
  using platform::EventKind;
  screen.on("cMnuTraOn", EventKind::Click, [](const platform::Event&) {
    gTraceOn = -1;
    sMnuTraceCheck();
  });
  screen.on("cMnuTraOff", EventKind::Click, [](const platform::Event&) {
    gTraceOn = 0;
    sMnuTraceCheck();
  });
}
