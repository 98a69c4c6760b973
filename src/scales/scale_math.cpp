// The arithmetic of tuning by ear (see scale_math.h). Stateless.
#include "scales/scale_math.h"

#include <algorithm>
#include <cmath>

double fRoundToTenth(double value) {
  // nearbyint rounds by the current mode, to nearest with halves to even.
  return std::nearbyint(value * 10.0) / 10.0;
}

double fSliderSPC(int slider, double baseSpc, double belowSpc, double aboveSpc) {
  const int v = std::clamp(slider, kSliderLowest, kSliderHighest);
  double spc = baseSpc;
  if (v < 0) spc = baseSpc + (belowSpc - baseSpc) * -v / kSliderHighest;
  if (v > 0) spc = baseSpc - (baseSpc - aboveSpc) * v / kSliderHighest;
  return fRoundToTenth(spc);
}

float fRoundOffSPCVal(float value, const std::string& direction) {
  const long tenths = std::lrint(static_cast<double>(value) * 10.0);
  long moved = tenths;
  if (tenths % 10 == 0 && direction == "Up") moved = tenths + 1;
  if (tenths % 10 == 0 && direction == "Down") moved = tenths - 1;
  return static_cast<float>(static_cast<double>(moved) / 10.0);
}
