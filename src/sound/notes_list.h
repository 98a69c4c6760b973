// Turning the phrase at the playlist's cursor into a music buffer: the
// display text with its word positions, the note codes, the durations and
// the running times. Keeps no state of its own; writes gMusicBuffers.
#pragma once

#include <cstdint>

// Fills gMusicBuffers[buffer] from phrase gPlaySet.Position of gPlaySet and
// returns its note count, which the caller stores in the buffer's Count.
// Durations are the phrase's words x 10 ms (whole values, except for kinds
// 6 and 9, which keep a decimal part); an empty duration phrase gives
// 1000 ms a note. A composition (gCurrPhraseKind 8) outside Demo
// (gCurrMode not 1) gets times on the beat grid, gRowsPerCycle x
// gFormBeatCount slots at the slider's tempo, instead of per note. More than
// 501 words is a range error; a buffer outside 0..2 or a cursor outside the
// set is a range error and gives 0.
std::int16_t fCreateNotesList1(std::int16_t buffer);

// After the notation script changes: converts the text of buffers 0 and 1
// (those not empty) from the script it was made in to gNotationScript and
// finds its word positions again.
void sAdjustMDMStr();
