// The music set in use: loading and tuning both note sets for the current
// tonic and music set, rebuilding them with a scale shift, and naming the
// scale for the status line. Reads gCurrMusicSetId, gCurrMusicSetName,
// gMainSetName, gDroneSetName; sets gCurrTonicNoteId from the music set.
#pragma once

#include <cstdint>
#include <string>

// Loads and tunes the main set, then the drone set, then prepares the
// drone. 1 on success; the first failure shows its message and gives 0.
std::int16_t fCreateNoteSeedsForUse();

// Rebuilds the sets with the scale shift gScaleShiftSpec: the music set,
// the shift, the drone. Every step runs; a failing one shows its message
// and makes the result 0. setId is the set being refined, which the caller
// has made gCurrMusicSetId.
std::int16_t fAdjustScaleNotesToCurrentSetting(std::int16_t setId);

// Status-line text naming the scale in use and its tonic.
std::string fGetScaleInfo();
