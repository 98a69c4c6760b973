// Phrases into notation boxes, and disabling play while a pattern is shown.
#include "notation/display.h"

#include "control/errors.h"
#include "control/session.h"
#include "notation/phrase_forms.h"
#include "platform/screen.h"

void sLoadNotation(platform::Control& control, const std::string& phrase) {
  NV_PROC("sLoadNotation");
  control.setText(fPrepareNotationDisplayString(fPrepareNotesForScript(phrase)));
}

void sDisplayPatternNotation() {
  NV_PROC("sDisplayPatternNotation");
  if (gCurrForm == nullptr) return;
  for (const char* name : {"cPlay", "cStop", "cStopLoop", "cStartLoop"})
    gCurrForm->control(name).setEnabled(false);
}
