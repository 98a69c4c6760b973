// Phrases into notation boxes, and disabling play while a pattern is shown.
#include "display/notation_display.h"

#include "core/errors.h"
#include "core/session.h"
#include "notation/phrase_forms.h"
#include "platform/screen.h"

void sLoadNotation(platform::Control& control, const std::string& phrase) {
  NV_PROC("sLoadNotation");
  control.setText(fPrepareNotationDisplayString(fPrepareNotesForScript(phrase, gNotationScript, gGraceNotes)));
}

void sDisplayPatternNotation() {
  NV_PROC("sDisplayPatternNotation");
  if (gCurrForm == nullptr) return;
  for (const char* name : {"cPlay", "cStop", "cStopLoop", "cStartLoop"})
    gCurrForm->control(name).setEnabled(false);
}
