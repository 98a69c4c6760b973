// Rendering of a note phrase (generation tokens and durations) into a float
// mix, with the drone under it, and the final writing of a mix to a file.
// Reads the seeds and drone of the state it is given.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "envelope.h"
#include "library_state.h"

namespace tonvex {

struct MusicRequest {
  int32_t noteCount = 0;
  std::string_view notes, durations;
  int32_t droneMix = 0;
  double level = 0.2;
  int32_t synthVolume = 1;
  int32_t peakPermille = 1000, attackMs = 60, sustainPct = 80, releaseMs = 50;
};

struct Mix {
  std::vector<float> samples;
  std::vector<int64_t> noteStarts;  // first sample of each note, then the total
};

// Checks the request against the state and renders melody and drone; nullopt
// on any bad argument or missing seed or drone.
std::optional<Mix> renderMelodyAndDrone(const LibraryState& state, const MusicRequest& request);

// Scales the mix down if it would clip, converts it and writes the file.
bool writeMix(const std::string& outFile, const Mix& mix);

}  // namespace tonvex
