// The mixing pipeline of a music file: melody, drone and theka rendered in
// cache-sized blocks and handed to a sink block by block, so that a file of
// any length needs memory only for a block and for the notes still sounding
// (at most the longest note), never for the whole mix. Stateless.
#pragma once

#include <cstdint>
#include <span>

#include "envelope.h"
#include "library_state.h"
#include "reed_voice.h"
#include "sample_sink.h"
#include "theka_mix.h"
#include "tokens.h"

namespace tonvex {

// Samples per block: 4096 floats (16 KB) stay in the first-level cache
// with the block's 16-bit copy. A multiple of the bellows' 256.
inline constexpr int64_t kMixBlockSamples = 4096;

// Everything one music file is made of.
struct MixPlan {
  std::span<const TokenVoice> voices;  // one per note, in order
  std::span<const int64_t> noteStarts; // first sample of each note, then the total
  EnvelopeShape shape;                 // every note's envelope
  float melodyGain = 0.0f;
  uint64_t onsetSeed = 0;              // seeds the reeds' noisy onsets
  const DroneSound* drone = nullptr;   // nullptr: no drone
  float droneGain = 0.0f;
  size_t dronePhase = 0;               // sample of the drone cycle the file begins at
  const LoadedKit* kit = nullptr;      // nullptr: no theka
  std::span<const ThekaToken> theka;   // one per note
  double beatSamples = 0.0;
  float thekaGain = 0.0f;
  ThekaCycle thekaCycle;               // the strokes' place in the tala cycle
};

// Renders the plan and writes it to the sink: the melody (each note's voice
// with its envelope and a noisy reed onset, the reeds' phases carried across
// notes, a note that repeats the one before it struck again, a slow bellows
// swell, 3 ms fades at the file's edges), the drone under it from its
// phase (no fades, so that successive files join into one drone), the
// theka's strokes, and a soft limiter that bends peaks above 0.8 of full
// scale towards 0.97, so nothing clips. False when the sink refuses a block.
bool renderMix(const MixPlan& plan, SampleSink& sink);

}  // namespace tonvex
