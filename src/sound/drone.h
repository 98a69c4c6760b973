// The drone: its parameters reach the synthesis library, which builds the
// tanpura sound from the drone set's seeds and mixes it under the music.
// Reads gCurrTonicNoteId, gDroneSetName, gDroneMode, gDataPath; keeps
// gCurrDroneType and gCurrDroneFactor (loudness, 0.5 to 1.5).
#pragma once

#include <cstdint>


// Hands the drone's parameters to the library: in mode 1 (the one in use)
// the upper S (tonic + 21) as the drone's note, in mode 2 the middle S
// (tonic + 9). 1 on success; 0 after "Error in FWavLoadDroneData".
std::int16_t fBuildDroneData();

// When a raga's drone type (as the library stores it; negative for a raga
// missing from the library) differs from gCurrDroneType, takes it and
// rebuilds the drone ("Error in loading drone data" on failure). The same
// drone type, or a missing raga, changes nothing.
void sAdjustDroneType(std::int32_t droneType);

// The drone factor after one loudness step, in whole tenths: +1 gives one
// tenth more while the factor (rounded to tenths) is below 1.5, -1 one
// tenth less while it is above 0.5; otherwise the factor stays as it is.
// A stepped factor is always a whole number of tenths, so no number of
// steps passes 0.5 or 1.5.
double fSteppedDroneFactor(double factor, std::int16_t step);

// Steps gCurrDroneFactor by gDroneStep and rebuilds the drone whether or not
// the factor moved. Sets gWavOption to 1. 1 on success; 0 after "Error in
// Building DroneData". The change is heard in the next file generated.
std::int16_t fAdjustDroneVolume();
