// Music sampler: the NVSampler screen (form id 22), which plays random pieces
// of the collection, once or one after another until stopped.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Controller of the screen. Events: 0 open; 1 draw a piece and play it
// (Play, Start Looping, and the loop's next piece); 2 Stop and Stop
// Looping; 3 the tick of cTimer1, which watches for the end of the piece;
// 20 leave. Others do nothing.
void sNVSampler(std::int16_t event);
void sInitNVSampler();
void sTerminateNVSampler();
void sBindNVSamplerEvents(platform::Screen& screen);
