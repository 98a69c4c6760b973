// Keeping the display in step with the sound: at each status notification
// of cMM the current note of the sounding buffer moves on once the
// device's position has reached that note's start, less a lead that grows
// by delayMs with each note (it makes up for a steady lag between the
// reported position and the ear). One note per notification: with short
// notes the display trails and catches up. No state of its own.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Moves the current note of gMusicBuffers[gCurrBuffer] on by one when
// form's cMM has reached it; true when it did.
bool fAdvanceCurrentNote(platform::Screen& form, std::int16_t delayMs);

// The status step of the screens that show the notes in cCurrentItem and on
// the keyboard: first marks an owed first note once it sounds
// (sMarkOwedFirstNote); then, on advancing, appends the new note's word of the buffer's
// text to cCurrentItem (three blanks before it) and marks its reed.
void sTrackPlayingNote(platform::Screen& form, std::int16_t delayMs);
