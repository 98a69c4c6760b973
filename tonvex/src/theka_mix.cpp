// Stroke placement: each bol of the kit is a list of voice hits at fractions
// of the beat (Tirakita is four hits a quarter-beat apart), each hit a copy of
// the voice's rendered stroke. Stateless apart from retuneTheka's update of
// the kit it is given.
#include "theka_mix.h"

#include <algorithm>
#include <cmath>

#include "tabla_synth.h"

namespace tonvex {
namespace {

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
  if (!state.theka->strokes.empty() && state.theka->dayanHz == saHz) return;
  state.theka->strokes = renderKitVoices(state.theka->kit, saHz);
  state.theka->dayanHz = saHz;
}

void addTheka(const LoadedKit& kit, std::span<const ThekaToken> tokens,
              std::span<const int64_t> noteStarts, double beatSamples, float gain,
              std::vector<float>& out) {
  for (size_t i = 0; i < tokens.size() && i < noteStarts.size(); ++i) {
    const ThekaToken& token = tokens[i];
    for (size_t j = 0; j < token.bolIds.size(); ++j) {
      const int bol = token.bolIds[j];
      if (bol == 0) continue;  // a rest
      const double beatStart = double(noteStarts[i]) + (token.offsetBeats + double(j)) * beatSamples;
      for (const KitHit& hit : kit.kit.bols[size_t(bol - 1)].hits) {
        const int64_t at = std::llround(beatStart + hit.beatFraction * beatSamples);
        addStroke(kit.strokes[size_t(hit.voice)], at, gain * float(hit.gain), out);
      }
    }
  }
}

}  // namespace tonvex
