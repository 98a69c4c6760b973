// Conversion of float samples to 16-bit PCM: the one place where samples are
// rounded and clamped. Stateless.
#include "pcm.h"

#include <algorithm>

namespace tonvex {

int16_t toPcm16(float x) {
  if (!(x == x)) return 0;  // NaN
  const float scaled = std::clamp(x * 32767.0f, -32768.0f, 32767.0f);
  // Round half away from zero; the truncating cast is a single instruction.
  return static_cast<int16_t>(scaled + (scaled >= 0.0f ? 0.5f : -0.5f));
}

std::vector<int16_t> toPcm16(std::span<const float> samples, float gain) {
  std::vector<int16_t> out(samples.size());
  for (size_t i = 0; i < samples.size(); ++i) out[i] = toPcm16(samples[i] * gain);
  return out;
}

float peakOf(std::span<const float> samples) {
  float peak = 0.0f;
  for (float s : samples) {
    const float magnitude = s < 0.0f ? -s : s;
    peak = magnitude > peak ? magnitude : peak;
  }
  return peak;
}

}  // namespace tonvex
