// The trace menu entries cMnuTraOn and cMnuTraOff, the same on every screen
// that has them.
#pragma once

namespace platform {
class Screen;
}

void sBindTraceMenuEvents(platform::Screen& screen);

// Checks cMnuTraOn or cMnuTraOff of the current screen as tracing is on or
// off; hides both when the command line did not offer tracing.
void sMnuTraceCheck();
