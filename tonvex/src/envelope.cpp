// Envelope of a harmonium note: a smooth rise to the peak (bellows pressure
// building in the reed), a settling to the sustain level over one more attack
// time, a hold, and a linear release. Short notes get shorter ramps: the
// attack and an inner release take at most 40 % of the note. Stateless.
#include "envelope.h"

#include <algorithm>

#include "tonvex/tonvex.h"

namespace tonvex {
namespace {

int64_t msToSamples(int32_t ms) { return int64_t(ms) * kSampleRate / 1000; }

// A ramp no longer than 40 % of the hold and no shorter than 1 ms (or the
// hold itself, for a note shorter than that).
int64_t fitRamp(int64_t wanted, int64_t holdSamples) {
  const int64_t ramp = std::min(wanted, holdSamples * 2 / 5);
  return std::min(std::max(ramp, kMinFadeSamples), std::max<int64_t>(holdSamples / 2, 1));
}

}  // namespace

std::optional<EnvelopeShape> makeEnvelopeShape(int32_t peakPermille, int32_t attackMs,
                                               int32_t sustainPct, int32_t releaseMs) {
  if (peakPermille < 1 || peakPermille > 1000) return std::nullopt;
  if (attackMs < 0 || attackMs > 1000 || releaseMs < 0 || releaseMs > 1000) return std::nullopt;
  if (sustainPct < 0 || sustainPct > 100) return std::nullopt;
  return EnvelopeShape{peakPermille / 1000.0f, msToSamples(attackMs), sustainPct / 100.0f,
                       msToSamples(releaseMs)};
}

void fillNoteEnvelope(const EnvelopeShape& shape, int64_t holdSamples, bool lastNote,
                      std::vector<float>& env) {
  const int64_t attack = fitRamp(shape.attackSamples, holdSamples);
  const int64_t release = lastNote ? fitRamp(shape.releaseSamples, holdSamples)
                                   : std::max(shape.releaseSamples, kMinFadeSamples);
  const int64_t releaseStart = lastNote ? holdSamples - release : holdSamples;
  const float sustain = shape.peak * shape.sustain;
  env.resize(static_cast<size_t>(releaseStart + release));
  // Attack, fall to the sustain over as long again, then the sustain: three
  // loops without a branch in them.
  const int64_t attackEnd = std::min(attack, releaseStart);
  const int64_t fallEnd = std::min(2 * attack, releaseStart);
  for (int64_t n = 0; n < attackEnd; ++n) {
    const float t = float(n) / float(attack);
    env[static_cast<size_t>(n)] = shape.peak * t * t * (3.0f - 2.0f * t);
  }
  for (int64_t n = attackEnd; n < fallEnd; ++n)
    env[static_cast<size_t>(n)] = shape.peak + (sustain - shape.peak) * float(n - attack) / float(attack);
  std::fill(env.begin() + fallEnd, env.begin() + releaseStart, sustain);
  const float from = releaseStart > 0 ? env[static_cast<size_t>(releaseStart - 1)] : 0.0f;
  for (int64_t n = 0; n < release; ++n)
    env[static_cast<size_t>(releaseStart + n)] = from * float(release - 1 - n) / float(release);
}

}  // namespace tonvex
