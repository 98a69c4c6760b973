// Handlers of the trace menu entries: switch tracing and update the marks.
#include "control/trace_menu.h"

#include "core/session.h"
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

void sMnuTraceCheck() {
  platform::Screen& s = *gCurrForm;
  if (gTraceEnabled == 0) {
    s.control("cMnuTraOn").setVisible(false);
    s.control("cMnuTraOff").setVisible(false);
    return;
  }
  s.control("cMnuTraOn").setChecked(gTraceOn != 0);
  s.control("cMnuTraOff").setChecked(gTraceOn == 0);
}
