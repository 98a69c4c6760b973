// Rows of "ONPR" (a music set's SPC corrections, per instrument type) and
// "ONPRSets" (the pitch ratios of the notes around a tonic): columns "00" to
// "26" hold 27 consecutive notes, column "nn" being note tonic + 2 + nn.
// Reads and writes gNoteAdjust and gCurrTonicNoteId as described below.
#pragma once

#include <cstdint>
#include <string>

#include "platform/store.h"
#include "sound/sound_state.h"

// The value of column "00" to "26" of the recordset's current row as a
// Single; a column outside 0 to 26 gives 0, and so does a Null.
float fGetSPCFactor(const platform::Recordset& recordset, std::int16_t column);

// Writes vector[gCurrTonicNoteId + 2 + i] into column i, for i from 0 to 26,
// of the current row, which the caller has put in Edit or AddNew. A tonic
// that reaches outside the vector is a subscript-out-of-range fault.
void sUpdateNoteAdjustmentSPCs(platform::Recordset& recordset, const NoteAdjustVector& vector);

// Fills gNoteAdjust from the "ONPR" row (musicSetId, instrumentType): the
// library store for the built-in sets 1 to 12, the user store above. Sets
// gCurrTonicNoteId to the row's tonic, so loading a music set changes the
// tonic. Without such a row the vector stays zero (the notes keep their
// recorded tuning) and the tonic is left alone. setName names the set the
// vector is meant for; the row does not depend on it.
void sLoadNoteAdjustSPCVector(const std::string& setName, std::int16_t instrumentType,
                              std::int16_t musicSetId);
