// Raga exploration: the MainOperations screen (form id 28), on which one raga
// is demonstrated, learnt and practised.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open; 1, 2 a click in the library's or
// the user's item list; 3 mode change; 5 scale or pakad; 6 alap, layakari or
// taan; 7 composition or film song; 8 similar-raga comparison; 9 Stop;
// 10 Stop Current; 11 Next/Prev or a part's replay; 12 user-defined scale;
// 13 keyboard on or off; 14 tonic; 15 script; 16 drone volume; 17 raga
// info; 18 status step of the device; 19 end of a run; 20 leave; 21 Play
// or Start Looping; 22 grace notes. Others do nothing.
void sMainOperations(std::int16_t event);
void sInitMainOperations();
void sTerminateMainOperations();
// Lays out the row of lists, the mode frame and the prompts by the lists
// that have items; on entry and after every change of the window's size.
void sLayOutMOColumns(platform::Screen& form);
// Binds the handlers of the screen's controls and menus, and makes
// sDisplayMPPrompt the chain's prompt procedure.
void sBindMainOperationsEvents(platform::Screen& screen);
