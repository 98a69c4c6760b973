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
  size_t dronePhase = 0;  // sample of the drone cycle the file's drone begins at
};

struct Mix {
  std::vector<float> samples;
  std::vector<int64_t> noteStarts;  // first sample of each note, then the total
};

// Checks the request against the state and renders melody and drone; nullopt
// on any bad argument or missing seed or drone. The melody fades in and out
// over its first and last 3 ms; the drone does not, so that files played one
// after another, each beginning its drone where the one before ended it
// (dronePhase), join into one unbroken drone.
std::optional<Mix> renderMelodyAndDrone(const LibraryState& state, const MusicRequest& request);

// Bends peaks above 0.8 of full scale smoothly towards 0.97 (so nothing
// clips and every file keeps the same loudness), converts the mix and
// writes the file.
bool writeMix(const std::string& outFile, Mix& mix);

}  // namespace tonvex
