// One note's seed as the library keeps it: the loaded period of samples, its
// exact length in samples per cycle (SPC), the tuning delta, and a wave table
// resampled from the seed for the phase-accumulator oscillators.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tonvex {

// Points of one period in a wave table (a power of two, for the fixed-point
// phase accumulator), plus one guard point equal to the first.
inline constexpr int kWaveTableBits = 11;
inline constexpr int kWaveTableSize = 1 << kWaveTableBits;

struct NoteSeed {
  std::vector<int16_t> samples;  // samPerCyc + 1 values, as loaded
  int32_t samPerCyc = 0;
  double fractional = 0.0;       // 0 <= fractional < 1
  double spcDelta = 0.0;         // tuning, added to the stored period
  std::vector<float> wave;       // kWaveTableSize + 1 points, full scale 1.0

  double storedSpc() const { return samPerCyc + fractional; }
  double effectiveSpc() const { return storedSpc() + spcDelta; }
};

// Builds a seed from loaded samples (samPerCyc + 1 of them).
NoteSeed makeNoteSeed(std::span<const int16_t> samples, int32_t samPerCyc, double fractional);

}  // namespace tonvex
