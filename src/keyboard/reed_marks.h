// Marking notes on the reed keyboard: which reeds a note code names, and
// colouring or restoring those reeds' labels.
//
// A note code holds a note's two-digit numbers written together, a grace
// note first: 12 is the middle Sa, 1214 Sa grace on Re. The reed of a note
// is its number less gReedOffset. No state of its own.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// The main note of a code: its last two digits (the whole code below 100).
std::int16_t fMainNoteOfCode(std::int32_t code);
// The grace note of a code written with exactly four digits, its first
// two; -1 when the code has no grace note. A three-digit code (a grace
// note whose leading zero was lost) has none.
std::int16_t fGraceNoteOfCode(std::int32_t code);
// The reed of a note number at the current tonic.
std::int16_t fReedOfNote(std::int32_t noteNumber);

// Sets the label of reed n to colour; a reed off the keyboard (0 or less,
// above 40, or not on this screen) is left alone without error.
void sColorReedLabel(platform::Screen& form, std::int32_t reed, int colour);
// Gives reed n's label its resting colour again; off the keyboard as above.
void sRestoreReedLabel(platform::Screen& form, std::int32_t reed);

// Marks the reeds of a note code: the main note red and, when withGrace is
// set, its grace note pink.
void sMarkNoteReeds(platform::Screen& form, std::int32_t code, bool withGrace);
// Restores the reeds of a note code, grace note included.
void sRestoreNoteReeds(platform::Screen& form, std::int32_t code);

// Sets the label text colour of reeds 1 to 31 back to its resting colour.
void sUnMarkAllReeds(platform::Screen& form);
