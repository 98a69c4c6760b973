// Placing tabla strokes of the loaded kit into a mix, block by block, and
// keeping the kit's rendered strokes tuned to the drone's Sa.
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

// One stroke of a voice placed in a mix: where it starts, what it adds.
struct PlacedStroke {
  int64_t at = 0;                   // first sample, from the file's start
  std::span<const float> samples;   // the voice's rendered stroke
  float gain = 0.0f;
};

// The strokes of each note's theka token, in order of their start.
// noteStarts[i] is the first sample of note i; strokes fall at offset,
// offset + 1, ... beats of beatSamples each. A stroke on the sam (the
// cycle's first beat) is accented by 2.5 dB, and every stroke's level
// varies by up to +-1.5 dB, as a player's hands do, drawn from the cycle's
// seed.
std::vector<PlacedStroke> placeTheka(const LoadedKit& kit, std::span<const ThekaToken> tokens,
                                     std::span<const int64_t> noteStarts, double beatSamples,
                                     float gain, const ThekaCycle& cycle);

// Adds the placed strokes, block by block: each call adds what sounds in
// samples [from, from + n) into out (n values). Strokes past the file's end
// are cut off by the caller's last block.
class ThekaBlocks {
 public:
  explicit ThekaBlocks(std::vector<PlacedStroke> strokes) : strokes_(std::move(strokes)) {}
  void add(int64_t from, int64_t n, float* out);

 private:
  std::vector<PlacedStroke> strokes_;
  size_t firstSounding_ = 0;  // every stroke before it has ended
};

}  // namespace tonvex
