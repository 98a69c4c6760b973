// Theka tokens of a composition part: for each note, how many tabla strokes
// begin inside it, which bols they are and how far into the note the first
// one falls. Reads the store table "ThekaTypeBolsForTaal" of the library
// store and the composition at hand, gCompInfo; keeps no state.
//
// A token is "0" (no stroke) or "count/bol/.../bol/offset", the offset in
// beats. Beats are counted 1 to `beats` round the tala cycle.
#pragma once

#include <cstdint>
#include <string>

namespace platform {
class Recordset;
}

// The stroke token of a note that starts at beat position `position`
// (0-based, within the cycle) and lasts `duration` beats: "0" when no beat
// begins inside it, else "count/beat/offset" with the 1-based beat on which
// the first stroke sounds, whose bol it plays (for a note that starts off
// the beat, the next beat; see theka_tokens.cpp), and the offset of that
// stroke from the note's start in beats. Advances position by the duration,
// wrapping past the cycle's end.
std::string fGetTalaStringForNote(float& position, float duration, std::int16_t beats);

// A stroke token with its beat number replaced by the bols of the theka
// type's strokes from that beat on: "2/1/0" in a cycle where beats 1 and 2
// are bols 5 and 7 gives "2/5/7/0". The recordset is a table-type one on
// "ThekaTypeBolsForTaal"; a beat without a row gives bol 0, a rest.
std::string fGetThekaStringForTalaString(const std::string& talaString, std::int16_t talaId,
                                         std::int16_t thekaType, platform::Recordset& recordset,
                                         std::int16_t beats);

// The theka token list of a run of notes, one token for each blank-separated
// matra duration, joined by one blank; the first note falls on beat
// startingBeat of a `beats`-beat cycle of the tala.
std::string fCreateThekaTokens(const std::string& matraDurations, std::int16_t talaId,
                               std::int16_t startingBeat, std::int16_t thekaType,
                               std::int16_t beats);

// The theka token list of part `part` (1 Asthai, 2 Antara) of gCompInfo, from
// its NotesDuration, TalaId and StartingBeat, in a cycle of gFormBeatCount
// beats. Another part is a range error and gives "".
std::string fCreateTalaStringForCompFromT(std::int16_t part, std::int16_t thekaType);
