// Music sampler: the NVSampler screen (form id 22), which plays random pieces
// of the collection.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open, 20 leave.
void sNVSampler(std::int16_t event);
void sInitNVSampler();
void sTerminateNVSampler();
void sBindNVSamplerEvents(platform::Screen& screen);
