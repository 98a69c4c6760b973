// Tuning the loaded note sets: by a music set's stored corrections, or by
// pitch ratios to a (possibly shifted) tonic. The corrections go to the
// synthesis library as SPC deltas on freshly loaded seeds. Works on
// gNoteAdjust and saves copies into gMainAdjust and gDroneAdjust.
#pragma once

#include <cstdint>
#include <string>

#include "sound/sound_state.h"

// Tunes every note of the set whose gNoteAdjust entry is not 0 by that
// delta, after giving the notes outside the music set's 27 columns at
// gCurrTonicNoteId the deltas that tune them by the octave
// (fExtendTuningByOctaves). 1 on success; 0 after "Error adjusting SPC" at the first note the
// library refuses. instrumentType is 1 for the main set, 2 for the drone set.
std::int16_t fAdjustNoteSeeds(const std::string& setName, std::int16_t instrumentType);

// Puts each note of the set at its "ONPRSets" ratio to the reference note
// shift.RefNote (the middle S), whose period is the main set's recorded one
// moved by NewSPC - BaseSPC, and the notes outside the 27 ratios by the
// octave (fExtendTuningByOctaves); fills gNoteAdjust with the deltas and tunes the
// notes, each from its recorded period (the note is reloaded first). With
// NewSPC equal to BaseSPC the ratios still apply. A refused delta shows
// "Error adjusting SPC", a note that cannot be reloaded its load message;
// either ends the tuning. Without the
// reference note or the ratio row of its tonic nothing is tuned.
void sAdjustNotesForFreqRat(const ScaleShiftSpec& shift, const std::string& setName,
                            std::int16_t instrumentType);

// Copies gNoteAdjust[0..40] into gMainAdjust (kind 1) or gDroneAdjust (kind 2).
void sSaveAdjustments(std::int16_t kind);

// Retunes the main and then the drone set to the shifted scale and saves both
// vectors. Always 1.
std::int16_t fApplyScaleShift(const ScaleShiftSpec& shift);
