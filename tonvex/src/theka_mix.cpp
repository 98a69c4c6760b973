// Stroke placement: each bol of the kit is a list of voice hits at fractions
// of the beat (Tirakita is four hits a quarter-beat apart), each hit a copy of
// the voice's rendered stroke, at the stroke's accent and varied level,
// added block by block. Stateless apart from retuneTheka's update of the kit
// it is given and a ThekaBlocks' cursor.
#include "theka_mix.h"

#include <algorithm>
#include <cmath>

#include "tabla_synth.h"
#include "variation.h"
#include "vector_clones.h"

namespace tonvex {
namespace {

constexpr double kSamAccentDb = 2.5, kStrokeSpreadDb = 1.5;

// The gain of a stroke that begins a beat at beatStart samples into the file.
float strokeGain(const ThekaCycle& cycle, double beatStart, double beatSamples, Variation& variation) {
  const int64_t beat = cycle.startBeat - 1 + std::llround(beatStart / beatSamples);
  const double accentDb = beat % std::max(1, cycle.beatCount) == 0 ? kSamAccentDb : 0.0;
  return float(std::pow(10.0, (accentDb + kStrokeSpreadDb * variation.symmetric()) / 20.0));
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

std::vector<PlacedStroke> placeTheka(const LoadedKit& kit, std::span<const ThekaToken> tokens,
                                     std::span<const int64_t> noteStarts, double beatSamples,
                                     float gain, const ThekaCycle& cycle) {
  Variation variation(cycle.variationSeed);
  std::vector<PlacedStroke> placed;
  for (size_t i = 0; i < tokens.size() && i < noteStarts.size(); ++i) {
    const ThekaToken& token = tokens[i];
    for (size_t j = 0; j < token.bolIds.size(); ++j) {
      const int bol = token.bolIds[j];
      if (bol == 0) continue;  // a rest
      const double beatStart = double(noteStarts[i]) + (token.offsetBeats + double(j)) * beatSamples;
      for (const KitHit& hit : kit.kit.bols[size_t(bol - 1)].hits) {
        const float hitGain =
            gain * float(hit.gain) * strokeGain(cycle, beatStart, beatSamples, variation);
        placed.push_back({std::llround(beatStart + hit.beatFraction * beatSamples),
                          kit.strokes[size_t(hit.voice)], hitGain});
      }
    }
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const PlacedStroke& a, const PlacedStroke& b) { return a.at < b.at; });
  return placed;
}

TONVEX_VECTOR_CLONES void ThekaBlocks::add(int64_t from, int64_t n, float* out) {
  const int64_t to = from + n;
  auto ended = [from](const PlacedStroke& s) {
    return s.at + static_cast<int64_t>(s.samples.size()) <= from;
  };
  while (firstSounding_ < strokes_.size() && ended(strokes_[firstSounding_])) ++firstSounding_;
  for (size_t k = firstSounding_; k < strokes_.size() && strokes_[k].at < to; ++k) {
    const PlacedStroke& s = strokes_[k];
    const int64_t begin = std::max(s.at, from);
    const int64_t end = std::min(s.at + static_cast<int64_t>(s.samples.size()), to);
    const float* src = s.samples.data() + (begin - s.at);
    float* dest = out + (begin - from);
    for (int64_t i = 0; i < end - begin; ++i) dest[i] += s.gain * src[i];
  }
}

}  // namespace tonvex
