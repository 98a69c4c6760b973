// Tanpura synthesis: four plucked strings, each resynthesised from its
// drone-set seed with a jawari band that blooms after the pluck and falls,
// every pluck a little different from the one a cycle before. Stateless.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "note_seed.h"

namespace tonvex {

// Cycles after which the plucks' variations repeat: a drone played under the
// music is this many different cycles, looped.
inline constexpr int kDroneVariants = 3;

struct TanpuraString {
  NoteSeed seed;           // a copy, so that a drone file can still be written after a reload
  double ringMs = 7000.0;  // time to fall by 60 dB
  double pluckMs = 0.0;    // when in the cycle it is plucked
  double gain = 1.0;
};

// loopCycles cycles of cycleSamples samples; in cycle i every string is
// plucked once, varied as variant i % kDroneVariants of variationSeed (so a
// loop of any length agrees with any other cycle for cycle, except for the
// tails that wrap into its first cycle). Tails ring on past the loop's end
// and are wrapped into its start, so the loop repeats seamlessly.
// Unnormalised: the strings peak at about their gains.
std::vector<float> renderTanpuraLoop(const std::array<TanpuraString, 4>& strings,
                                     size_t cycleSamples, int loopCycles, uint64_t variationSeed);

}  // namespace tonvex
