// Stroke placement: each bol of the kit is a list of voice hits at fractions
// of the beat (Tirakita is four hits a quarter-beat apart), each hit a copy of
// the voice's rendered stroke, at the stroke's accent and varied level.
// Stateless apart from retuneTheka's update of the kit it is given.
#include "theka_mix.h"

#include <algorithm>
#include <cmath>

#include "tabla_synth.h"
#include "variation.h"

namespace tonvex {
namespace {

constexpr double kSamAccentDb = 2.5, kStrokeSpreadDb = 1.5;

// The gain of a stroke that begins a beat at beatStart samples into the file.
float strokeGain(const ThekaCycle& cycle, double beatStart, double beatSamples, Variation& variation) {
  const int64_t beat = cycle.startBeat - 1 + std::llround(beatStart / beatSamples);
  const double accentDb = beat % std::max(1, cycle.beatCount) == 0 ? kSamAccentDb : 0.0;
  return float(std::pow(10.0, (accentDb + kStrokeSpreadDb * variation.symmetric()) / 20.0));
}

void addStroke(std::span<const float> stroke, int64_t at, float gain, std::vector<float>& out) {
  const int64_t size = static_cast<int64_t>(out.size());
  if (at >= size) return;
  const int64_t n = std::min<int64_t>(static_cast<int64_t>(stroke.size()), size - at);
  float* dest = out.data() + at;
  for (int64_t i = 0; i < n; ++i) dest[i] += gain * stroke[static_cast<size_t>(i)];
}

}  // namespace

void retuneTheka(LibraryState& state) {
  if (!state.theka) return;
  const double saHz = state.droneSaHz > 0.0 ? state.droneSaHz : kDefaultSaHz;
  LoadedKit& kit = *state.theka;
  if (!kit.strokes.empty() && kit.dayanHz == saHz) return;
  std::swap(kit.strokes, kit.previousStrokes);
  std::swap(kit.dayanHz, kit.previousHz);
  if (kit.strokes.empty() || kit.dayanHz != saHz) {
    kit.strokes = renderKitVoices(kit.kit, saHz);
    kit.dayanHz = saHz;
  }
}

void addTheka(const LoadedKit& kit, std::span<const ThekaToken> tokens,
              std::span<const int64_t> noteStarts, double beatSamples, float gain,
              const ThekaCycle& cycle, std::vector<float>& out) {
  Variation variation(cycle.variationSeed);
  for (size_t i = 0; i < tokens.size() && i < noteStarts.size(); ++i) {
    const ThekaToken& token = tokens[i];
    for (size_t j = 0; j < token.bolIds.size(); ++j) {
      const int bol = token.bolIds[j];
      if (bol == 0) continue;  // a rest
      const double beatStart = double(noteStarts[i]) + (token.offsetBeats + double(j)) * beatSamples;
      for (const KitHit& hit : kit.kit.bols[size_t(bol - 1)].hits) {
        const int64_t at = std::llround(beatStart + hit.beatFraction * beatSamples);
        const float hitGain = gain * float(hit.gain) * strokeGain(cycle, beatStart, beatSamples, variation);
        addStroke(kit.strokes[size_t(hit.voice)], at, hitGain, out);
      }
    }
  }
}

}  // namespace tonvex
