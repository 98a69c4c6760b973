// The trace menu entries cMnuTraOn and cMnuTraOff, the same on every screen
// that has them.
#pragma once

namespace platform {
class Screen;
}

void sBindTraceMenuEvents(platform::Screen& screen);
