// The current raga's basic data on the current screen (gCurrForm), from the
// working record or straight from the store, and the scale or pakad in the
// generation form the scale-shifting screen plays. No state of its own.
#pragma once

#include <cstdint>
#include <string>

// cRaga gets gCurrRagaName; cAroha, cAvroha, cPakad, cVadi and cSamvadi get
// the font of the script in force and their notation from gTRaga (the
// pakad without segment marks); these, Label2 to Label7 and cLine1 are
// made visible.
void sDisplayFromT_RagaBasicData();

// The same from the row of gCurrRagaId in "Raga - Technical Information";
// a raga missing from the store shows empty boxes.
void sDisplayRagaBasicData();

// The scale (phraseKind 6: aroha then avroha) or pakad (7) of gCurrRagaId
// as the synthesis library takes it: each note word as two-digit absolute
// note numbers for the tonic gCurrTonicNoteId (a grace pair gives four
// digits), durations in milliseconds. Another kind, or a raga missing from
// the store, gives "" for both.
void sCreateRagaPhraseData(std::int16_t phraseKind, std::string& notesOut,
                           std::string& durationsOut);
