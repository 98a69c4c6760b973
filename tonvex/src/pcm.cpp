// Conversion of float samples to 16-bit PCM: the one place where samples are
// rounded and clamped. Stateless.
#include "pcm.h"

#include <cmath>

namespace tonvex {

int16_t toPcm16(float x) {
  if (std::isnan(x)) return 0;
  const float scaled = std::nearbyint(x * 32767.0f);
  if (scaled >= 32767.0f) return 32767;
  if (scaled <= -32768.0f) return -32768;
  return static_cast<int16_t>(scaled);
}

std::vector<int16_t> toPcm16(std::span<const float> samples, float gain) {
  std::vector<int16_t> out(samples.size());
  for (size_t i = 0; i < samples.size(); ++i) out[i] = toPcm16(samples[i] * gain);
  return out;
}

float peakOf(std::span<const float> samples) {
  float peak = 0.0f;
  for (float s : samples) peak = std::fmax(peak, std::fabs(s));
  return peak;
}

}  // namespace tonvex
