// Scale shifting: the ScaleShifting screen (form id 7), where pitch-shifted
// scales are defined and refined by ear.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open, 20 leave.
void sShiftScale(std::int16_t event);
void sInitShiftScale();
void sTerminateShiftScale();
void sBindScaleShiftingEvents(platform::Screen& screen);
