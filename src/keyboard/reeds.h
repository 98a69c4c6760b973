// The harmonium keyboard's fixed tables: the colour of each reed and the
// range of reeds shown at each tonic, and the range in use now.
//
// Reeds are numbered 1 to 40 by absolute note number, so a reed keeps its
// pitch and only its label changes with the tonic.
#pragma once

#include <array>
#include <cstdint>

constexpr std::int16_t kWhiteReed = 1;
constexpr std::int16_t kBlackReed = 2;

// Colour of each reed 0 to 40 (1 white, 2 black); entry 41 unused.
extern std::array<std::int16_t, 42> gReedColorType;
// Range of reeds shown at each tonic id 1 to 12; entry 0 unused.
extern std::array<std::int16_t, 13> gFirstReedForTonic;
extern std::array<std::int16_t, 13> gLastReedForTonic;
// The range in use at the current tonic.
extern std::int16_t gFirstReed;
extern std::int16_t gLastReed;

void sInitReedColorType();
void sInitReedsDisplayedData();
