// Play controls of the current screen (see play_buttons.h).
#include "sound/play_buttons.h"

#include <string>

#include "core/errors.h"
#include "core/session.h"
#include "platform/screen.h"
#include "sound/playback.h"

namespace {

void setEnabled(const std::string& name, bool on) {
  if (gCurrForm != nullptr && gCurrForm->hasControl(name)) gCurrForm->control(name).setEnabled(on);
}

}  // namespace

void sDisplayPlayControlButtons() {
  NV_PROC("sDisplayPlayControlButtons");
  if (gCurrForm == nullptr) return;
  for (const char* name : {"cPlay", "cStop", "cStartLoop", "cStopLoop"})
    if (gCurrForm->hasControl(name)) gCurrForm->control(name).setVisible(true);
}

void sEnablePlayStartButtons() {
  NV_PROC("sEnablePlayStartButtons");
  setEnabled("cPlay", true);
  setEnabled("cStop", false);
  setEnabled("cStartLoop", true);
  setEnabled("cStopLoop", false);
  setEnabled("cReturn", true);
}

void sEnablePlayStopButtons() {
  NV_PROC("sEnablePlayStopButtons");
  setEnabled("cPlay", false);
  setEnabled("cStartLoop", false);
  setEnabled("cReturn", false);
  setEnabled("cStopLoop", gLooping);
  setEnabled("cStop", !gLooping);
}
