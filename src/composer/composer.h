// Composer: the Composer screen (form id 27), where the user writes and saves
// music of his own.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open, 20 leave.
void sComposer(std::int16_t event);
void sInitComposer();
void sTerminateComposer();
void sBindComposerEvents(platform::Screen& screen);
