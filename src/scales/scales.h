// Scale shifting: the ScaleShifting screen (form id 7), where pitch-shifted
// scales are defined by ear, refined note by note, renamed and deleted.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 enter; 1 a key label (gLabelIndex)
// clicked; 2 tune the selected note; 3 refine a stored scale; 4 set a new
// tonic; 5 play; 6 create the scale with the tuned tone as Sa; 7 save the
// refinement; 8 name confirmed; 9, 10 play the major or the full scale; 11
// drone louder or softer (gDroneStep); 12 a click in cScalesList; 13, 14
// the note higher or lower; 15 apply that; 16 list the ragas; 17 the
// listening period ended; 18, 21 play the raga's scale or pakad; 20 leave;
// 22 switch operation; and, our additions, 24 rename and 25 delete the
// scale being refined. 19, 23 and others do nothing.
void sShiftScale(std::int16_t event);
void sTerminateShiftScale();
// What leaving by the window's close box does before the screen unloads:
// the music set and tonic of the entry back in force, as Go Back does.
void sRestoreEntryScale();
void sBindScaleShiftingEvents(platform::Screen& screen);
