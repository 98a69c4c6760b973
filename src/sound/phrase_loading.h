// Taking the current item's phrases from the working raga record into
// gPhraseSet, and stepping the notation box through them.
// No state of its own beyond gPhraseSet and gPrefetchMode.
#pragma once

#include <cstdint>

namespace platform {
class Control;
}

constexpr std::int16_t kSegmentedText = 1;    // notes keep their ":" segment marks
constexpr std::int16_t kUnsegmentedText = 2;

// Fills gPhraseSet for gCurrItemType: one phrase for the scale (1) or the
// pakad (2), with gPrefetchMode 2; one phrase per alap, layakari or taan
// phrase (3 to 5) of the store gCurrDbSelector; the two parts of a
// composition (6, kind 8) or a comparison (7), one part of a film song
// (kind 9). Glides go when gGraceNotes is 1. Each duration phrase is also
// the phrase's timing script, and the cursor is left at the last phrase.
// Any other item type leaves an empty set.
void sLoadMNFromT(std::int16_t kind);

// Moves gPhraseSet.Position by gPhraseStep, wrapping at either end, and
// shows that phrase in box. An empty set does nothing.
void sLoadScriptFromMN(platform::Control& box);
