// The harmonium keyboard on a screen: creating its keys, laying them out as
// a real harmonium's white and black keys under the line cLine1, and
// showing or hiding the keyboard.
//
// Each reed n (1 to 40) is a pair of control array elements: cR(n), the key,
// and cL(n), a small label on it. Element 0 of each array is the screen's
// designed template. No state of its own: the range on show is gFirstReed to
// gLastReed (reeds.h), the choice to show it gKeyboardDisplay.
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// Creates cR(n) and cL(n) for n from 1 to 40, once per screen with a
// keyboard; elements that exist already are kept. The white keys are made
// before the black ones, so that a black key lies on top of its neighbours.
void sLoadKBReedsAndLabels(platform::Screen& form);

// Lays out the reeds of the current tonic's range along cLine1, from its
// left end to its right end as the screen's layout placed it, with key
// heights in proportion to the window's height, and sets their resting
// colours; show 1 makes them visible. Reeds outside the range are hidden.
// A tonic outside 1 to 12 leaves the keyboard as it is.
void sDisplayKeyboardAlt(platform::Screen& form, std::int16_t show);
// Lays a keyboard on show out again after the window changed its size (the
// screen's layout moves cLine1 but knows nothing of the keys); a hidden
// keyboard stays hidden.
void sRelayKeyboard(platform::Screen& form);

// Hides every key, label and cLine1.
void sHideKeyboard(platform::Screen& form);
// Hides the keyboard and clears all marks, so that turning it on again
// shows no stale marks.
void sKeyboardDisplayOff(platform::Screen& form);
// Lays the keyboard out; outside the workbench, scale shifting and the
// sampler it takes the place of the raga notes box cNotes.
void sKeyBoardDisplayOn(platform::Screen& form, std::int16_t show);
// Shows or hides the current screen's keyboard by gKeyboardDisplay.
void sImplementCurrKBDisplayMode();
