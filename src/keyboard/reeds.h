// The harmonium keyboard's fixed tables: the colour of each reed and the
// range of reeds shown at each tonic, the range in use now, and the colours
// the keys and their labels are drawn in.
//
// Reeds are numbered 1 to 40 by absolute note number, so a reed keeps its
// pitch and only its label changes with the tonic.
#pragma once

#include <array>
#include <cstdint>

constexpr std::int16_t kWhiteReed = 1;
constexpr std::int16_t kBlackReed = 2;
constexpr std::int16_t kLowestReed = 1;
constexpr std::int16_t kHighestReed = 40;

// Colours, 24-bit with blue in the high byte.
constexpr int kWhiteReedColor = 0xC0E0FF;   // cream: white reed and its label
constexpr int kBlackReedColor = 0x808080;   // grey: black reed and its label
constexpr int kSoundingReedColor = 0x0000FF;  // red: the note sounding now
constexpr int kGraceReedColor = 0xC0C0FF;   // pink: its grace note
constexpr int kTonicLabelColor = 0xFFFFFF;  // white text on the middle Sa
// The system's window-text colour (0x80000008): the screen's own default.
constexpr int kWindowTextColor = static_cast<int>(0x80000008u);

// Colour of each reed 0 to 40 (1 white, 2 black); entry 41 unused.
extern std::array<std::int16_t, 42> gReedColorType;
// Range of reeds shown at each tonic id 1 to 12; entry 0 unused.
extern std::array<std::int16_t, 13> gFirstReedForTonic;
extern std::array<std::int16_t, 13> gLastReedForTonic;
// The range in use at the current tonic.
extern std::int16_t gFirstReed;
extern std::int16_t gLastReed;

void sInitReedColorType();
// The default colour of a reed and its label: cream for a white reed, grey
// for a black one (reed 0, the template, is black).
int fReedDefaultColor(std::int16_t reed);
void sInitReedsDisplayedData();
