// Texts and lengths of the composition at hand: the beat-marked line of a
// part and the matra count the composition grid must hold.
// State: gAsthaiMatras and gAntaraMatras, set by the matra count.
#pragma once

#include <cstdint>
#include <string>

extern std::int16_t gAsthaiMatras;  // part 1's matras, without its starting beat
extern std::int16_t gAntaraMatras;  // part 2's matras + its starting beat - 1

// The single-line text of part partIndex (1 or 2) of gCompInfo with the
// first beat of each cycle of its tala marked: kind 1 the syllables with
// SyllableDuration, kind 2 the notes (made ready for the script in force)
// with NotesDuration. The mark is ".1." for notes in Devanagari, "(1)"
// otherwise. Another partIndex is run-time error 9.
std::string fCreateCompStringFromT(std::int16_t partIndex, std::int16_t kind);

// The matras the grid must hold for composition gCurrCompIndex in the store
// gCurrDbSelector names: the larger part, starting beats included. Sets
// gAsthaiMatras and gAntaraMatras. 0 when no store is open.
std::int16_t fGetMatraCountForComposition();
