// Showing phrases in notation boxes of the current screen (gCurrForm), in
// the script and with the grace-note choice in force. No state of its own.
#pragma once

#include <string>

namespace platform {
class Control;
}

// Sets the control's text to the phrase's display form: glides removed when
// gGraceNotes is 1, Devanagari key map when gNotationScript is 1, words
// joined by three blanks.
void sLoadNotation(platform::Control& control, const std::string& phrase);

// Disables cPlay, cStop, cStopLoop and cStartLoop of the current screen,
// before a pattern's notation is shown and nothing can be played yet.
void sDisplayPatternNotation();

// Fills cVadi, cSamvadi, cAroha, cAvroha and cPakad of the current screen
// from the row of gCurrRagaId in "Raga - Technical Information" (gDbA), each
// in the font of the current script; the pakad without its colons. A raga
// missing from the store leaves the boxes as they are.
void sAdjustNotation();
