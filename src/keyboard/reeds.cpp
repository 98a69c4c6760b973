// Fixed tables of the harmonium keyboard (see reeds.h).
#include "keyboard/reeds.h"

#include "core/errors.h"

std::array<std::int16_t, 42> gReedColorType = {};
std::array<std::int16_t, 13> gFirstReedForTonic = {};
std::array<std::int16_t, 13> gLastReedForTonic = {};
std::int16_t gFirstReed = 0;
std::int16_t gLastReed = 0;

void sInitReedColorType() {
  NV_PROC("sInitReedColorType");
  // Pitch classes from reed 0: reed 12 is the black C# at tonic 3.
  constexpr std::array<std::int16_t, 41> kColours = {2, 1, 2, 1, 1, 2, 1, 2, 1, 2, 1, 1, 2, 1,
                                                     2, 1, 1, 2, 1, 2, 1, 2, 1, 1, 2, 1, 2, 1,
                                                     1, 2, 1, 2, 1, 2, 1, 1, 2, 1, 2, 1, 1};
  for (std::size_t i = 0; i < kColours.size(); ++i) gReedColorType[i] = kColours[i];
}

void sInitReedsDisplayedData() {
  NV_PROC("sInitReedsDisplayedData");
  // Each range begins and ends on a white reed.
  gFirstReedForTonic = {0, 3, 4, 4, 4, 6, 6, 8, 10, 11, 11, 11, 13};
  gLastReedForTonic = {0, 30, 32, 32, 32, 34, 34, 35, 37, 39, 39, 39, 40};
}

int fReedDefaultColor(std::int16_t reed) {
  if (reed < 0 || reed > kHighestReed) return kWhiteReedColor;
  return gReedColorType[static_cast<std::size_t>(reed)] == kBlackReed ? kBlackReedColor
                                                                       : kWhiteReedColor;
}
