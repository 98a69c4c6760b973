// Conversion of float samples to 16-bit PCM: the one place where samples are
// rounded and clamped. Stateless.
#include "pcm.h"

#include <algorithm>
#include <array>

namespace tonvex {

float peakOf(std::span<const float> samples) {
  // Eight running maxima, one per lane, so that the loop vectorises (a
  // single running maximum is a reduction the compiler keeps scalar).
  constexpr size_t kLanes = 8;
  std::array<float, kLanes> lanes{};
  const size_t whole = samples.size() - samples.size() % kLanes;
  for (size_t i = 0; i < whole; i += kLanes)
    for (size_t j = 0; j < kLanes; ++j) {
      const float magnitude = samples[i + j] < 0.0f ? -samples[i + j] : samples[i + j];
      lanes[j] = magnitude > lanes[j] ? magnitude : lanes[j];
    }
  float peak = 0.0f;
  for (size_t i = whole; i < samples.size(); ++i)
    peak = std::max(peak, samples[i] < 0.0f ? -samples[i] : samples[i]);
  for (float lane : lanes) peak = std::max(peak, lane);
  return peak;
}

}  // namespace tonvex
