// Conversion of float samples (full scale = 1.0) to 16-bit PCM and back.
// Stateless.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tonvex {

// Rounds x * 32767 to the nearest integer and clamps it to -32768..32767.
// NaN gives 0.
int16_t toPcm16(float x);

// Converts a whole buffer, multiplying each sample by gain first.
std::vector<int16_t> toPcm16(std::span<const float> samples, float gain);

// Largest absolute value of a buffer (0 for an empty one).
float peakOf(std::span<const float> samples);

}  // namespace tonvex
