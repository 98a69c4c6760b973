// The workbench's pattern language: a short text such as "BUC1BUC2" that
// says by how many notes to move from a base note. Interpreted, it gives a
// list of offsets that the expansions (pattern_expansion.h) walk over the
// notes of a scale or of a raga's phrases.
//
// A pattern is a run of tokens with no separator. Each token is a start
// letter ("B" the base, including the starting note; "b" the base without
// it; "L" the previous token's end, including it; "l" that end without it),
// a direction ("U" up, "D" down), a kind ("C" every note on the way, "J"
// only the note arrived at) and a decimal count of notes to move. Offsets
// count places in the note set, not semitones.
//
// Also here: the 25 note places the workbench counts by ("P<" to "P>") and
// the pure text procedures on raga phrases that the raga expansion uses.
//
// State: gNoteNames, gNoteDevNames and gStdPatterns (fixed tables),
// gPatternOffsets (the last interpretation).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// Note places 0 to 24, "P<" to "P>": place i is entry i + 7 of the note
// vocabulary. "S" is place 5 and "S>" place 17.
constexpr int kNotePlaces = 25;
constexpr std::int16_t kPlaceOfSa = 5;
constexpr std::int16_t kPlaceOfUpperSa = 17;
constexpr int kVocabularyOffsetOfPlaces = 7;
extern const std::array<std::string, kNotePlaces> gNoteNames;     // English
extern const std::array<std::string, kNotePlaces> gNoteDevNames;  // Devanagari key map

// The standard patterns, by gStdPatternIndex 0 to 7 (entry 8 unused): the
// whole scale S to S>, the two octaves P< to P>, and six exercises.
constexpr int kStdPatternCount = 8;
extern const std::array<std::string, kStdPatternCount> gStdPatterns;

// The offsets of the last successful interpretation, in order.
extern std::vector<std::int32_t> gPatternOffsets;

// Interprets a pattern into gPatternOffsets: -1 on success, 0 when the
// text is no pattern (empty, a letter outside the table, a count that is no
// decimal number or above 32767); gPatternOffsets is then empty.
// Tokenising: while 8 or more characters are left, the next token has 5
// characters when the fifth is a digit, else 4; the rest, however long, is
// the last token (so only the last token may have a count of 3 digits or
// more). Counts are decimal digits only.
std::int16_t fInterpretPattern(const std::string& patternText);

// The standard pattern `index` for a scale of gScaleSize `scaleSize` (0
// Audav, 1 Shadav, 2 Sampoorna): the two whole-scale patterns 0 and 1 are
// made to span one octave (z + 5 notes) and two octaves (2z + 10 notes) of
// that scale; the others are the same for every size. The table itself is
// never rewritten, so a later mode gets the seven-note patterns again.
std::string fStdPatternForScale(int index, std::int16_t scaleSize);

// Note id 1 to 25 (place + 1): true for the shuddha (natural) notes.
bool fIsShuddha(std::int32_t id);

// A raga phrase with its back-steps removed, so that a pattern has a
// straight ladder to walk. Each word's note (its first "'"-part) is looked
// up in the vocabulary as note number k = id + 1. Rising (direction > 0):
// a word whose k is above the last note seen and below 26 takes slot k;
// falling: a word whose k is below the last note seen and 12 or more.
// Either way the last note seen becomes k. The words of the filled slots
// are returned from the lowest slot up (rising) or the highest down
// (falling); a repeated note keeps its last word.
std::string fStraightenOutPhrase(const std::string& phrase, std::int16_t direction);

// A middle-octave phrase extended to both sides: the words of Re to Pa
// ("r R g G m M P" as last character) an octave up as the upper tail, and
// the words of Pa to Ni ("P d D n N") an octave down as the lower head; a
// word already marked "<" or ">" at its end is not copied. Direction 1
// gives head + phrase + tail, 2 gives tail + phrase + head. Empty when a
// part to move up already ends in ">", or a part to move down in "<".
// headWords receives the number of words in the lower head.
std::string fAugmentRagaPhraseNotes(const std::string& phrase, std::int16_t direction,
                                    std::int16_t& headWords);

// The blank-separated words of a text, empty words dropped; no limit on
// their number.
std::vector<std::string> fPhraseWords(const std::string& text);
