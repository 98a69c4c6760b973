// Preparing the composition at hand for its wave files: its two parts (or
// a comparison's two ragas, or a film song's one phrase) as phrases of
// gPhraseSet, and the music buffers' captions, starting beats, theka tokens
// and beat counts. No state of its own beyond those.
#pragma once

#include <cstddef>
#include <string>

// What the screen says while part `part` (0 or 1) of a comparison sounds:
// "Playing comparison of Ragas " + the two parts' ragas + ". Currently
// playing " + the raga of that part. Every name is the Mukhada of the part
// that holds the phrase, so the name shown is always the raga heard.
std::string fComparisonCaption(std::size_t part);

// Loads the phrases of gCompInfo into gPhraseSet and fills buffers 0 and 1
// by gCurrPhraseKind: 7 a comparison's captions; 8 a composition's
// captions, tala, starting beats, theka and beat counts. Leaves
// gPrefetchMode at 2: every file is built before playing starts.
void sPreprocCompDataFromT();

// The most rows of the composition grid: eight cycles still read at the
// smallest common desktop (1366x768) with the longest tala (16 beats).
constexpr int kMaxGridRows = 8;

// Why the composition at hand (kind 8, gCompInfo) cannot be played on its
// grid, as the message that names it and what to do; "" when it can. A
// present part is refused when its syllables and notes last different
// numbers of matras, when a word has no length (or a length that is not a
// positive number), when its starting beat is not a beat of its tala, or
// when its notes run past the last of kMaxGridRows rows.
std::string fCompositionRefusal();
