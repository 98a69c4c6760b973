// Conversion of float samples (full scale = 1.0) to 16-bit PCM, and the peak
// of a buffer. Stateless.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tonvex {

// Rounds x * 32767 to the nearest integer (halves away from zero) and clamps
// it to -32768..32767. NaN gives 0. Inline and branch-free, so that the
// loops that convert blocks vectorise.
inline int16_t toPcm16(float x) {
  float scaled = x * 32767.0f;
  scaled = scaled == scaled ? scaled : 0.0f;  // NaN
  scaled = scaled > 32767.0f ? 32767.0f : scaled;
  scaled = scaled < -32768.0f ? -32768.0f : scaled;
  // Round half away from zero; the truncating conversion is one instruction.
  return static_cast<int16_t>(static_cast<int32_t>(scaled + (scaled >= 0.0f ? 0.5f : -0.5f)));
}

// Largest absolute value of a buffer (0 for an empty one).
float peakOf(std::span<const float> samples);

}  // namespace tonvex
