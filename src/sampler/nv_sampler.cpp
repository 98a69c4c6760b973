// Controller of the NVSampler screen, which plays random pieces of the
// collection once or in a loop. Keeps no state of its own yet.
#include "sampler/sampler.h"

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/trace.h"
#include "platform/screen.h"

// Enters the screen with the current screen as its parent and sets the
// check marks of its menus from the session.
void sInitNVSampler() {
  NV_PROC("sInitNVSampler");
  sEnterForm(kFormNVSampler);
  sMnuTraceCheck();
}

void sTerminateNVSampler() {
  NV_PROC("sTerminateNVSampler");
  sStructuredTermination(1);
}

void sNVSampler(std::int16_t event) {
  NV_PROC("sNVSampler");
  switch (event) {
    case 0:
      sInitNVSampler();
      break;
    case 20:
      sTerminateNVSampler();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindNVSamplerEvents(platform::Screen& screen) {
  screen.on("cReturn", platform::EventKind::Click, [](const platform::Event&) { sNVSampler(20); });
  sBindTraceMenuEvents(screen);
}
