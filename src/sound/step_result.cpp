// Reporting a failed sound step. Keeps no state.
#include "sound/step_result.h"

#include "core/messages.h"

bool fStepFailed(std::int16_t result, const std::string& message) {
  if (result == 1) return false;
  sShowMessage(message);
  return true;
}
