// Planning a note phrase (generation tokens and durations): its checks, the
// voice of each note and where each starts. Reads the seeds and drone of
// the state it is given.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "envelope.h"
#include "library_state.h"
#include "reed_voice.h"

namespace tonvex {

struct MusicRequest {
  int32_t noteCount = 0;
  std::string_view notes, durations;
  int32_t droneMix = 0;
  double level = 0.2;
  int32_t synthVolume = 1;
  int32_t peakPermille = 1000, attackMs = 60, sustainPct = 80, releaseMs = 50;
  size_t dronePhase = 0;  // sample of the drone cycle the file's drone begins at
};

// A checked phrase, ready to be mixed (mix_render.h).
struct MelodyPlan {
  std::vector<TokenVoice> voices;     // one per note
  std::vector<int64_t> noteStarts;    // first sample of each note, then the total
  EnvelopeShape shape;
  float gain = 0.0f;                  // the melody's gain from level and synthVolume
  uint64_t onsetSeed = 0;             // seeds the reeds' noisy onsets
};

// Checks the request against the state (notes, durations, envelope
// constants, level, volume, drone mix; every note's seed loaded, the drone
// prepared if it is to sound) and plans the melody; nullopt on anything bad.
std::optional<MelodyPlan> planMelody(const LibraryState& state, const MusicRequest& request);

// The drone's gain for a drone mix of 0 (none), 1 or 2 at the drone's factor.
float droneGainFor(const LibraryState& state, int32_t droneMix);

}  // namespace tonvex
