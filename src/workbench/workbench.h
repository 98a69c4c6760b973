// Workbench: the Workshop screen (form id 13), ear training on notes and
// scales. Four modes: the major scale, other scales (a thata's, or one the
// user picks on the keyboard), the notes of a raga, and a note recognition
// quiz. Over a scale or raga the user picks a pattern from the Music
// Patterns menu (pattern_language.h), or defines and saves one
// (user_patterns.h); it is expanded and plays in Learning or Practice
// mode. Also a meend (glide) demo and a drone that plays on its own.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen; every call makes the workbench the owner of
// the playing (gCallbackContext 8). Events: 0 open; 1 a mode button
// (gWBMode set); 2 a click in cRagaList; 3 a click on key label
// gLabelIndex; 4 a thata's scale; 5 Play or Start Looping; 6 a pattern
// chosen, or the playing mode changed; 7 play the pattern; 8 Show Note;
// 9 Select New Scale, Raga or Note; 10 cTimer1; 11 to 13 an answer of the
// dialogue; 14 grace notes; 15 tonic; 16 meend demo; 17 a single play;
// 18 keyboard shown or hidden; 19 end of a run; 20 leave; 21 Switch Mode;
// 22 Stop; 23 status of cMM; 24 script; 25 drone only; 26 define a
// pattern; 27 define a scale; 28 cOK; 29 the user's patterns; 30 the notes
// quiz starts; 31 rename and 32 delete the user's pattern in force.
void sWorkshop(std::int16_t event);
void sInitWorkshop();
void sTerminateWorkshop();
void sBindWorkshopEvents(platform::Screen& screen);

// The set-up of the pattern for Learning or Practice: source 1 takes
// gSelPhrase (and shows it in cCurrentItem), source 2 the text of
// cCurrentItem, which the user may have changed in Practice. Split at ":"
// into segments, a long segment cut into files of a few notes that play
// back to back, timed, and the first file built. A failure is told and
// leaves gPlaySet empty (Count 0).
void sSetUpForWorkbenchModeIllustrations(std::int16_t source);
// Before a loop of Practice starts again: the first segment built anew.
void sSetUpForWBModeLoop();
