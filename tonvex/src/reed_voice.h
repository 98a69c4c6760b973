// Harmonium voice: one token (a note, or a grace note leading into a main
// note) played by two slightly detuned unison reeds read from the seed's wave
// table by fixed-point phase accumulators.
// The reeds' phases are carried from token to token by ReedPhases.
#pragma once

#include <cstdint>
#include <span>

#include "note_seed.h"
#include "variation.h"

namespace tonvex {

struct ReedPhases {
  uint32_t a = 0;           // first reed, in 2^-32 cycles
  uint32_t b = 0x4CCCCCCC;  // second reed, starting 0.3 cycle apart
};

struct TokenVoice {
  const NoteSeed* grace = nullptr;  // nullptr for a plain note
  const NoteSeed* main = nullptr;
  int64_t graceSamples = 0;         // length of the grace lead
  int64_t nextStart = 0;            // where the next token starts, from this one's start
};

// Length of the grace lead for a token of durationMs: a quarter of it,
// 30 to 70 ms, and never more than half the token; in samples.
int64_t graceLeadSamples(double durationMs);

// Adds the voice, shaped by env (one value per sample from the token's start),
// into out (as long as env), and advances phases to the next token's start.
void addTokenVoice(const TokenVoice& voice, std::span<const float> env, float gain,
                   ReedPhases& phases, float* out);

// Adds the noisy first few ms of a reed that starts to speak at out[0], at
// the note's gain; out holds at least `length` samples.
void addReedOnset(Variation& variation, float gain, float* out, int64_t length);

}  // namespace tonvex
