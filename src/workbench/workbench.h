// Workbench: the Workshop screen (form id 13), ear training on notes, scales
// and patterns.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open, 20 leave.
void sWorkshop(std::int16_t event);
void sInitWorkshop();
void sTerminateWorkshop();
void sBindWorkshopEvents(platform::Screen& screen);
