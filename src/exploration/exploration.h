// Raga exploration: the MainOperations screen (form id 28), on which one raga
// is demonstrated, learnt and practised.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open, 20 leave.
void sMainOperations(std::int16_t event);
void sInitMainOperations();
void sTerminateMainOperations();
void sBindMainOperationsEvents(platform::Screen& screen);
