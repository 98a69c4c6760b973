// Placing tabla strokes of the loaded kit into a mix, and keeping the kit's
// rendered strokes tuned to the drone's Sa.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "library_state.h"
#include "tokens.h"

namespace tonvex {

// Middle Sa assumed before any drone is prepared: C#3, the neutral tonic.
inline constexpr double kDefaultSaHz = 138.591;

// Re-renders the loaded kit's strokes if the drone's Sa has changed, unless
// it is the Sa before, whose strokes are kept.
void retuneTheka(LibraryState& state);

// Where a file's strokes stand in the tala cycle, and the seed of their
// variation: the file begins on beat startBeat (1-based) of beatCount.
struct ThekaCycle {
  int32_t startBeat = 1, beatCount = 16;
  uint64_t variationSeed = 0;
};

// Adds the strokes of each note's theka token into out. noteStarts[i] is the
// first sample of note i; strokes fall at offset, offset + 1, ... beats of
// beatSamples each. A stroke on the sam (the cycle's first beat) is accented
// by 2.5 dB, and every stroke's level varies by up to +-1.5 dB, as a
// player's hands do, drawn from the cycle's seed. Strokes past the end are
// cut off.
void addTheka(const LoadedKit& kit, std::span<const ThekaToken> tokens,
              std::span<const int64_t> noteStarts, double beatSamples, float gain,
              const ThekaCycle& cycle, std::vector<float>& out);

}  // namespace tonvex
