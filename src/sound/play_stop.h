// Stopping a playing run from a screen's Stop controls. The device still
// answers the stopped play with one done notification, which closes the
// file and lets the chain find its end. No state of its own.
#pragma once

namespace platform {
class Screen;
}

// Stop: moves the playlist's cursor past its end, stops and closes the
// file on form's cMM and clears the notation box, so that the run ends.
void sStopMusicPhrases(platform::Screen& form);
// Stop Current: stops the sounding phrase only and clears the reed marks;
// the chain goes on with the next phrase.
void sStopCurrentPhrase(platform::Screen& form);
