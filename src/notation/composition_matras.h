// Matra counts of a composition's two parts, from their stored matra words
// and starting beats; the store-free arithmetic behind the composition grid.
// No state of its own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// One stored part of a composition: its "NotesDuration" (matras) and its
// "Starting Beat".
struct CompositionPartMatras {
  std::string notesDuration;
  std::int16_t startingBeat = 1;
};

struct CompositionMatraCount {
  std::int16_t asthaiMatras = 0;  // part 1's matras, without its starting beat
  std::int16_t antaraMatras = 0;  // part 2's matras + its starting beat - 1
  std::int16_t gridMatras = 0;    // the larger part, starting beats included
};

// The matra counts of a composition from its parts (absent parts count 0).
// Matras are summed in single precision; the two stored counts are rounded
// halves to even, the grid count is the integer part. Part 2's count includes
// its starting beat and part 1's does not: the composition grid relies on
// this.
CompositionMatraCount fCountCompositionMatras(const std::optional<CompositionPartMatras>& asthai,
                                              const std::optional<CompositionPartMatras>& antara);
