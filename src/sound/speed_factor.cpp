// The current screen's tempo factor (see speed_factor.h).
#include "sound/speed_factor.h"

#include <cstddef>

#include "core/errors.h"
#include "core/session.h"
#include "notation/durations.h"
#include "notation/text_utils.h"
#include "platform/screen.h"

int fCurrSliderValue() {
  return gCurrForm == nullptr ? kNeutralSlider : gCurrForm->control("cSlider").value();
}

double fCurrSpeedFactor() {
  const int slider = fCurrSliderValue();
  if (slider < 0 || slider >= static_cast<int>(gSpeedFactors.size())) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fCurrSpeedFactor");
    return 1.0;
  }
  return gSpeedFactors[static_cast<std::size_t>(slider)];
}

int fCurrBeatMs() { return fRoundToInt32(gBaseMatraMs * fCurrSpeedFactor() * 10.0); }
