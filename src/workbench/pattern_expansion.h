// Expanding an interpreted pattern (gPatternOffsets) into the note phrase
// the workbench plays, gSelPhrase: over the notes of a scale (gSelNotes) or
// over a raga's aroha and avroha.
//
// A pattern that walks past the notes it runs over has no graceful way on
// inside the walk: the expansion raises run-time error 6 (overflow), which
// the error handling logs to "ignoerr.txt" as a forgiven fault, and leaves
// gSelPhrase empty; the controller then tells the user in plain words
// (kOvershootMessage) and the screen stays as it was. (Ending the program
// over a pattern the dialogue lets anyone build would lose the session.)
//
// State: gPatternKind, gBaseNoteIndex, gBasePhrase, gPhraseStartWord,
// gPatternSpec.
#pragma once

#include <cstdint>
#include <string>

extern std::int32_t gPatternKind;      // 1 One Time, 2 Series
extern std::int32_t gBaseNoteIndex;    // place of the base note: 5 "S", 0 "P<"
extern std::string gBasePhrase;        // the first pass, shown as the base pattern
extern std::int16_t gPhraseStartWord;  // word (from 1) where a raga pass starts
extern std::string gPatternSpec;       // the pattern being defined or in use

constexpr const char* kOvershootMessage =
    "The selected pattern goes beyond the notes of the scale (P< to P>) and cannot be played. "
    "Please select a pattern with smaller steps, or another scale.";

// Over the scale: from the base note's position in gSelNotes, the notes at
// that position plus each offset. One Time (gPatternKind 1): one pass.
// Series (2): passes moving one note up each time until a pass ends on
// "S>", then passes from "S>" moving down until one ends on "S"; in
// Practice (gCurrMode 3) each pass ends with " :", a practice segment.
// A base note missing from the scale, or a position outside it, is the
// overshoot: error 6 and an empty gSelPhrase.
void sCreateScalePatternFromBP();

// Over a raga's own phrases, given as note phrases (straightened and
// augmented already): the ascent from its word "S" in passes moving one
// word on until gSelPhrase ends in "S>" (One Time: the first pass only),
// then the descent from its word "S>" until gSelPhrase ends in "S". The
// first note of a pass that is a grace pair "x'y" gives y alone. False when
// a pass needs a word the phrase lacks; gSelPhrase is then empty.
bool fExpandRagaPattern(const std::string& ascent, const std::string& descent);

// The same over the aroha and avroha of the raga at hand (the working
// record), without glides when gGraceNotes is 1. A phrase that cannot carry
// the pattern is told ("The selected phrase cannot be illustrated. Please
// select another.", titled "MEssage") and leaves gSelPhrase empty.
void sCreateRagaPatternFromBP();
