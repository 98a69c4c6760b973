// Preparing the composition at hand for its wave files: its two parts (or
// a comparison's two ragas, or a film song's one phrase) as phrases of
// gPhraseSet, and the music buffers' captions, starting beats, theka tokens
// and beat counts. No state of its own beyond those.
#pragma once

// Loads the phrases of gCompInfo into gPhraseSet and fills buffers 0 and 1
// by gCurrPhraseKind: 7 a comparison's captions; 8 a composition's
// captions, tala, starting beats, theka and beat counts. Leaves
// gPrefetchMode at 2: every file is built before playing starts.
void sPreprocCompDataFromT();
