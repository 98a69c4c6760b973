// Modal synthesis of tabla strokes: each mode of the drum head is an
// exponentially decaying sinusoid (or a pair split symmetrically about it, for
// the beating of near-degenerate modes), the bayan's pitch can rise during the
// decay, and a low-passed noise burst gives the finger's click. Stateless.
#pragma once

#include <vector>

#include "tabla_kit.h"

namespace tonvex {

// Longest stroke rendered, in milliseconds; later sound is faded out.
inline constexpr int kMaxStrokeMs = 1200;

// One stroke of a voice with the drum at drumHz, unnormalised.
std::vector<float> renderKitVoice(const KitVoice& voice, double drumHz);

// Renders every voice of a kit for a middle Sa of saHz, scaled together so
// that the loudest stroke's body (after its first 5 ms, the crack) peaks at 0.9.
std::vector<std::vector<float>> renderKitVoices(const TablaKit& kit, double saHz);

}  // namespace tonvex
