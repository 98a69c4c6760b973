// The state of a playing run that the chain of phrases shares: which music
// buffer sounds, whether the buffer follows the phrase, and whether the next
// phrase's file is built while one sounds.
//
// State: gCurrBuffer, gBufferRotation, gPrefetchMode, gPhraseStep.
#pragma once

#include <cstdint>

constexpr std::int16_t kPrefetchNext = 1;    // build the next phrase's file while one sounds
constexpr std::int16_t kPrefetchNone = 2;    // the files exist already

// The buffer whose file is sounding (0 A.wav, 1 B.wav, 2 C.wav).
extern std::int16_t gCurrBuffer;
// True: phrase p plays buffer (p + 1) mod 2. The composition player clears
// it to play one chosen buffer.
extern bool gBufferRotation;
extern std::int16_t gPrefetchMode;
// Direction in which the notation box steps through the item's phrases: 1
// forward, -1 back.
extern std::int16_t gPhraseStep;

// The buffer of phrase position p: 0 for odd positions, 1 for even ones.
std::int16_t fBufferForPhrase(std::int16_t position);
