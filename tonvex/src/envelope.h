// A harmonium note's loudness envelope, from the four constants the
// application passes with every music call (peak per mille, attack in ms,
// sustain in percent of the peak, release in ms). Stateless.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace tonvex {

struct EnvelopeShape {
  float peak = 1.0f;            // 0 to 1
  int64_t attackSamples = 0;    // silence to peak
  float sustain = 1.0f;         // level after the bloom, 0 to 1
  int64_t releaseSamples = 0;   // fade after the note's end
};

// nullopt when a constant is out of its range (see tonvex.h).
std::optional<EnvelopeShape> makeEnvelopeShape(int32_t peakPermille, int32_t attackMs,
                                               int32_t sustainPct, int32_t releaseMs);

// Shortest fade, in samples (1 ms): no note starts or stops faster.
inline constexpr int64_t kMinFadeSamples = 44;

// Fills env with the envelope of one note that sounds holdSamples samples
// and then releases. An inner note releases after its hold, into the next
// note (env gets holdSamples + release values); the last note of a file fades
// inside its hold (env gets holdSamples values).
void fillNoteEnvelope(const EnvelopeShape& shape, int64_t holdSamples, bool lastNote,
                      std::vector<float>& env);

}  // namespace tonvex
