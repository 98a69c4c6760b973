// Resampling of a seed's period (samPerCyc + fractional samples long, so the
// last interval before the wrap is only `fractional` wide) into a wave table
// of kWaveTableSize points. Interior points use Catmull-Rom interpolation; the
// intervals next to the wrap use linear interpolation. Stateless.
#include "note_seed.h"

#include <cmath>

namespace tonvex {
namespace {

float catmullRom(float y0, float y1, float y2, float y3, float t) {
  const float a = -0.5f * y0 + 1.5f * y1 - 1.5f * y2 + 0.5f * y3;
  const float b = y0 - 2.5f * y1 + 2.0f * y2 - 0.5f * y3;
  const float c = -0.5f * y0 + 0.5f * y2;
  return ((a * t + b) * t + c) * t + y1;
}

// Value of the periodic seed at position x, 0 <= x < samPerCyc + fractional.
float seedValueAt(std::span<const float> s, int32_t samPerCyc, double fractional, double x) {
  const int32_t j = static_cast<int32_t>(x);
  if (j >= samPerCyc) {  // the short interval that closes the period
    const double t = fractional > 0.0 ? (x - samPerCyc) / fractional : 0.0;
    return static_cast<float>(s[samPerCyc] + t * (s[0] - s[samPerCyc]));
  }
  const float t = static_cast<float>(x - j);
  if (j == 0 || j + 2 > samPerCyc) return s[j] + t * (s[j + 1] - s[j]);
  return catmullRom(s[j - 1], s[j], s[j + 1], s[j + 2], t);
}

}  // namespace

NoteSeed makeNoteSeed(std::span<const int16_t> samples, int32_t samPerCyc, double fractional) {
  NoteSeed seed;
  seed.samples.assign(samples.begin(), samples.end());
  seed.samPerCyc = samPerCyc;
  seed.fractional = fractional;
  std::vector<float> asFloat(samples.size());
  for (size_t i = 0; i < samples.size(); ++i) asFloat[i] = samples[i] / 32768.0f;
  const double period = seed.storedSpc();
  seed.wave.resize(kWaveTableSize + 1);
  for (int m = 0; m < kWaveTableSize; ++m)
    seed.wave[m] = seedValueAt(asFloat, samPerCyc, fractional, m * period / kWaveTableSize);
  seed.wave[kWaveTableSize] = seed.wave[0];
  return seed;
}

}  // namespace tonvex
