// Taking a copy of what the program would play into a Score: the raga's
// particulars, the tonic, drone, script and tempo in force, and the item
// the screen has loaded. The screens call it on their own thread when an
// export starts; the copy is all the export reads afterwards.
// No state of its own.
#pragma once

#include <string>

#include "export/score.h"

// A score of the current raga with no items yet: name, header particulars,
// tonic, drone type and notation script as they are now.
Score fCaptureRagaScore();

// The item loaded now, under `title`: a composition (phrase kind 8) from its
// parts (gCompInfo) on the beat grid at the current tempo, with its theka
// when the theka is on; any other item from its phrases (gPhraseSet), each
// timed as the player times it, with the grace-note choice in force.
ScoreItem fCaptureItemAtHand(const std::string& title);
