// The trace switch of the Help menu (cMnuTraOn, cMnuTraOff), bound the same
// way on every screen that carries it. Keeps no state of its own: it sets
// gTraceOn and lets sMnuTraceCheck show the check mark.
#pragma once

namespace platform {
class Screen;
}

// Registers the Click handlers of cMnuTraOn and cMnuTraOff of `screen`:
// on turns tracing on (gTraceOn -1), off turns it off (0); both then update
// the check marks. Only for screens that have both entries.
void sBindTraceMenuEvents(platform::Screen& screen);
