// Tanpura synthesis: four plucked strings over one drone cycle, each string
// resynthesised from its drone-set seed with a moving jawari formant. Stateless.
#pragma once

#include <array>
#include <vector>

#include "note_seed.h"

namespace tonvex {

struct TanpuraString {
  const NoteSeed* seed = nullptr;
  double ringMs = 7000.0;  // time to fall by 60 dB
  double pluckMs = 0.0;    // when in the cycle it is plucked
  double gain = 1.0;
};

// One drone cycle of cycleSamples samples with the strings plucked once each.
// Tails ring on into the following cycles and are wrapped into this one, so
// the cycle repeats seamlessly. Peaks at 1.0.
std::vector<float> renderTanpuraCycle(const std::array<TanpuraString, 4>& strings,
                                      size_t cycleSamples);

}  // namespace tonvex
