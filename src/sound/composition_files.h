// Building the wave files of both parts of the composition at hand before it
// plays: the Asthai into A.wav from music buffer 0 and, unless the item is a
// film song (one phrase), the Antara into B.wav from music buffer 1.
// Keeps no state of its own.
#pragma once

#include <cstdint>

// Prepares the parts (sPreprocCompDataFromT), copies gPhraseSet into
// gPlaySet phrase by phrase, fills the buffers and builds the files. 1 on
// success; 0 as soon as a build fails (its message already shown). Leaves
// gPhraseSet.Position at 1.
std::int16_t fCreateCompositionMusicFilesFromT();
