// The labels on the reeds: the note names that fall on each key at the
// current tonic, in the script in force, and their default colours.
//
// State: gReedOffset, which turns a reed number into a note id at the
// current tonic (note id = reed + gReedOffset).
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

extern std::int16_t gReedOffset;

// Recomputes gReedOffset from gCurrTonicNoteId and writes the note names on
// the reeds gFirstReed to gLastReed: Devanagari in the notation font
// "Shusha" (gNotationScript 1) or English in "Times New Roman" (2). The
// middle Sa, on reed tonic + 9, is written in white.
void sUpdateReedLabelsAlt(platform::Screen& form);

// Gives every label, 0 to 40, the colour of its reed: no mark remains.
void sSetAllReedLabelColorToDefault(platform::Screen& form);
