// The phrase sets and the music buffers (see music_buffers.h).
#include "sound/music_buffers.h"

PhraseSet gPhraseSet;
PhraseSet gPracticeSet;
PhraseSet gPlaySet;
std::array<MusicBuffer, kMusicBufferCount> gMusicBuffers;

std::int16_t gFormBeatCount = 0;
std::int16_t gRowsPerCycle = 0;
std::int16_t gCompStartBeat = 1;
