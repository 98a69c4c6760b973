// Composer: the Composer screen (form id 27), where the user writes and saves
// music of his own.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Which items the item lists show: 1 those with a notation, 2 those
// without one.
extern std::int16_t gCompListMode;

// Controller of the screen. Events: 0 open, 20 leave.
void sComposer(std::int16_t event);
void sInitComposer();
void sTerminateComposer();
void sBindComposerEvents(platform::Screen& screen);
