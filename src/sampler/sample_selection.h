// Drawing a random piece for the sampler: a raga of the library's first 70,
// a kind of piece the raga has, one item of that kind; shown on the screen
// and played. State: gSampleItemCounts, gSampleKind, gSampleItem.
#pragma once

#include <array>
#include <cstdint>

// The kinds of piece, as gSampleKind holds them.
enum SampleKind : std::int16_t {
  kSampleScale = 1,        // aroha and avroha
  kSamplePakad = 2,
  kSampleAlap = 3,
  kSampleComposition = 4,
  kSampleFilmSong = 5,
  kSampleLayakari = 6,
  kSampleTaan = 7,
};
constexpr std::int16_t kSampleKindCount = 7;

// How many items of each kind the drawn raga has, by kind (entry 0 unused).
extern std::array<std::int16_t, 8> gSampleItemCounts;
extern std::int16_t gSampleKind;
extern std::int16_t gSampleItem;  // from 1; the part for a composition is drawn apart

// Draws a piece, shows its raga in cRaga and what it is in cDesc, makes the
// next background picture the screen's, and starts playing it on cMM.
// False after "Error playing music phrases" when the play could not start,
// or after a message when no raga yields a piece.
bool fSelectSample();
