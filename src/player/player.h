// Composition player: the PlayComposition1 screen (form id 14), a composition
// on its tala grid in Learning or Practice mode.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open, 20 leave.
void sPlayCompositions(std::int16_t event);
void sInitPlayCompositions();
void sTerminatePlayCompositions();
void sBindPlayComposition1Events(platform::Screen& screen);
