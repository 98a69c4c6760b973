// Shared play state (see play_state.h).
#include "sound/play_state.h"

std::int16_t gCurrBuffer = 0;
bool gBufferRotation = true;
std::int16_t gPrefetchMode = kPrefetchNext;
std::int16_t gPhraseStep = 1;

std::int16_t fBufferForPhrase(std::int16_t position) {
  return static_cast<std::int16_t>((position + 1) % 2);
}
