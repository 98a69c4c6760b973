// The notes a workbench pattern runs over: flags by note place (0 "P<" to
// 24 "P>", pattern_language.h) for the scale, thata or raga at hand, and
// the flagged places in rising order.
//
// State: gScaleNoteFlags, gSelNotes, gSelNoteCount, gScaleSize,
// gQuizNoteKind.
#pragma once

#include <array>
#include <cstdint>
#include <string>

constexpr int kScaleTableEntries = 26;

// 1 where the place's note belongs to the scale at hand, else 0.
extern std::array<std::int16_t, kScaleTableEntries> gScaleNoteFlags;
// The flagged places in rising order, at positions 1 to gSelNoteCount.
extern std::array<std::int16_t, kScaleTableEntries> gSelNotes;
extern std::int16_t gSelNoteCount;
// 0 Audav (5 notes), 1 Shadav (6), 2 Sampoorna (7).
extern std::int16_t gScaleSize;
// The notes quiz: 1 any note, 2 shuddha notes only, 3 the others.
extern std::int16_t gQuizNoteKind;

void sInitScaleNotes();
// The major scale (shuddha saptak) over all 25 places.
void sSetScaleNotesForMajorScale();
// Flags the places of the English note words of a phrase (words that are
// no note place are passed over), copies the middle octave out to both
// sides and lists the notes.
void sSetScaleAndSelNotesForPhrase(const std::string& phrase);
// The scale of the thata named by cRagaList's text ("ThataScales" of the
// library store); a name the table lacks gives the empty scale.
void sSetScaleNotesForThata();
// Flags the notes of gCurrRagaId's "Raga - Notes" row (note ids, place =
// id - 7; ids off the 25 places are passed over); gSelNoteCount = number
// of ids, gScaleSize = that number less 6. The number of ids, 0 when the
// raga has no row.
std::int16_t fLoadRagaNotesInVector();
// Copies the middle octave's flags (places 5 to 12 and 12 to 16) to places
// 0 to 4 and 18 to 24, counting each copied note in gSelNoteCount.
void sAugmentScaleNotes();
// Lists the flagged places from `from` to `to` in gSelNotes.
void sSetUpSelNotes1(std::int16_t from, std::int16_t to);

// How many scale notes lie above Sa up to the clicked note of place
// `place` (Sa itself counts 0): the jump count of a note clicked while a
// pattern is defined by ear. (Counted by note place, so that every tonic
// gives the same count; the label index and tonic are turned into the
// place by the caller.)
std::int16_t fNoteOrdinalInScale(std::int16_t place);

// A random note id 1 to 25 (place + 1) of the kind gQuizNoteKind asks for,
// drawn from the program's generator.
std::int16_t fGetValidNoteId();
