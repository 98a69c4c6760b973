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
