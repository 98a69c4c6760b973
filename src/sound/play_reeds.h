// Marking the sounding note of the current music buffer on the reed
// keyboard, and taking the marks off again. Reads gMusicBuffers[gCurrBuffer]
// and its current note (CurrNote, 1-based); codes whose reed lies off the
// keyboard make no mark. No state of its own.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Restores the previous note's reed and marks the current note's reed red.
// The reed is the whole code less gReedOffset, so a grace code marks
// nothing here.
void sPlayReedsAlt(platform::Screen& form);
// The same for phrases with grace notes: the main note (last two digits)
// red and, for a four-digit code, the grace note (first two) pink.
void sPlayReeds1Alt(platform::Screen& form);
// Restores the reeds of note `index` (0-based) of the current buffer, grace
// note included. An index outside the buffer does nothing.
void sSetReedLabelColorToDefault(platform::Screen& form, std::int16_t index);
// Label text of the current note's main reed: mode 1 its resting colour
// (black, white on the middle Sa), mode 2 red.
void sToggleCurrKBNote(std::int16_t mode, platform::Screen& form);
// Sets the label text of every note of the current buffer back to black;
// leaves the buffer's current note at its count.
void sUnMarkCurrentReeds(platform::Screen& form);
