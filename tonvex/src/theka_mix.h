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

// Re-renders the loaded kit's strokes if the drone's Sa has changed.
void retuneTheka(LibraryState& state);

// Adds the strokes of each note's theka token into out. noteStarts[i] is the
// first sample of note i; strokes fall at offset, offset + 1, ... beats of
// beatSamples each. Strokes past the end are cut off.
void addTheka(const LoadedKit& kit, std::span<const ThekaToken> tokens,
              std::span<const int64_t> noteStarts, double beatSamples, float gain,
              std::vector<float>& out);

}  // namespace tonvex
