// Modal tabla strokes. Modes are damped complex rotations (one multiply per
// sample); a gliding voice recomputes its rotations every 32 samples. The noise
// burst comes from a fixed linear congruential generator, so strokes are the
// same on every run. Stateless.
#include "tabla_synth.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

#include "pcm.h"
#include "tonvex/tonvex.h"

namespace tonvex {
namespace {

constexpr int kGlideBlock = 32;
constexpr int kFadeOutSamples = kSampleRate / 10;
// The first 5 ms of a stroke, where its crack is: the kit is scaled by the
// strokes' bodies after it, so that a loud crack does not make every
// stroke quieter (a crack's peak goes to the mix's soft limiter).
constexpr size_t kCrackSamples = kSampleRate / 200;

// The voice with every number held to its range (tabla_kit.h). The parser
// refuses numbers outside them; a voice made in code is clamped here, so that
// no length overflows and no sample becomes infinite or NaN.
KitVoice clampedVoice(const KitVoice& voice) {
  KitVoice v = voice;
  for (KitMode& m : v.modes) {
    m.ratio = kModeRatioRange.clamp(m.ratio);
    m.amplitude = kAmplitudeRange.clamp(m.amplitude);
    m.decayMs = kDecayMsRange.clamp(m.decayMs);
    m.twinHz = kTwinHzRange.clamp(m.twinHz);
  }
  v.glideSemitones = kGlideSemitonesRange.clamp(v.glideSemitones);
  v.glideMs = kGlideMsRange.clamp(v.glideMs);
  v.clickMs = kClickMsRange.clamp(v.clickMs);
  v.clickAmplitude = kAmplitudeRange.clamp(v.clickAmplitude);
  v.clickLowpassHz = kLowpassHzRange.clamp(v.clickLowpassHz);
  return v;
}

size_t strokeLength(const KitVoice& voice) {
  double ms = voice.clickMs;
  for (const KitMode& m : voice.modes) ms = std::max(ms, m.decayMs * 6.9);  // -60 dB
  return static_cast<size_t>(std::min<double>(ms, kMaxStrokeMs) * kSampleRate / 1000.0) + 1;
}

// Pitch multiplier of a gliding voice at time t seconds.
double glideFactor(const KitVoice& voice, double t) {
  if (voice.glideSemitones == 0.0) return 1.0;
  const double progress = 1.0 - std::exp(-t * 1000.0 / voice.glideMs);
  return std::exp2(voice.glideSemitones * progress / 12.0);
}

void addPartial(const KitVoice& voice, double hz, double amplitude, double decayMs,
                std::vector<float>& out) {
  if (!(std::abs(hz) < 0.45 * kSampleRate) || amplitude == 0.0) return;  // NaN too
  const double damping = std::exp(-1000.0 / (decayMs * kSampleRate));
  std::complex<double> z(0.0, amplitude);  // imaginary part: a sine from phase 0
  for (size_t start = 0; start < out.size(); start += kGlideBlock) {
    const double w = 2.0 * std::numbers::pi * hz * glideFactor(voice, double(start) / kSampleRate) /
                     kSampleRate;
    const std::complex<double> step = std::polar(damping, w);
    const size_t end = std::min(out.size(), start + kGlideBlock);
    for (size_t n = start; n < end; ++n) {
      out[n] += static_cast<float>(z.imag());
      z *= step;
    }
  }
}

void addClick(const KitVoice& voice, std::vector<float>& out) {
  const size_t length =
      std::min(out.size(), static_cast<size_t>(voice.clickMs * kSampleRate / 1000.0) + 1);
  const double alpha = 1.0 - std::exp(-2.0 * std::numbers::pi * voice.clickLowpassHz / kSampleRate);
  uint32_t noise = 0x2545F491u;
  double y = 0.0;
  for (size_t n = 0; n < length; ++n) {
    noise = noise * 1664525u + 1013904223u;
    const double white = (noise >> 8) / double(1u << 24) * 2.0 - 1.0;
    y += alpha * (white - y);
    const double decay = 1.0 - double(n) / double(length);
    out[n] += static_cast<float>(voice.clickAmplitude * 3.0 * y * decay * decay);
  }
}

// A 0.5 ms rise at the start and a fade over the last 100 ms.
void shapeEnds(std::vector<float>& out) {
  const size_t rise = std::min<size_t>(22, out.size());
  for (size_t n = 0; n < rise; ++n) out[n] *= float(n) / float(rise);
  const size_t fade = std::min<size_t>(kFadeOutSamples, out.size());
  for (size_t n = 0; n < fade; ++n) out[out.size() - 1 - n] *= float(n) / float(fade);
}

}  // namespace

std::vector<float> renderKitVoice(const KitVoice& kitVoice, double drumHz) {
  const KitVoice voice = clampedVoice(kitVoice);
  std::vector<float> out(strokeLength(voice), 0.0f);
  for (const KitMode& m : voice.modes) {
    if (m.twinHz > 0) {  // a split pair, symmetric about the mode
      addPartial(voice, m.ratio * drumHz - m.twinHz / 2, m.amplitude / 2, m.decayMs, out);
      addPartial(voice, m.ratio * drumHz + m.twinHz / 2, m.amplitude / 2, m.decayMs, out);
    } else {
      addPartial(voice, m.ratio * drumHz, m.amplitude, m.decayMs, out);
    }
  }
  if (voice.clickAmplitude > 0) addClick(voice, out);
  shapeEnds(out);
  return out;
}

std::vector<std::vector<float>> renderKitVoices(const TablaKit& kit, double saHz) {
  std::vector<std::vector<float>> strokes;
  float loudest = 0.0f;
  for (const KitVoice& voice : kit.voices) {
    strokes.push_back(renderKitVoice(voice, saHz * (voice.onBayan ? kit.bayanRatio : kit.dayanRatio)));
    const auto& stroke = strokes.back();
    if (stroke.size() > kCrackSamples)
      loudest = std::max(loudest, peakOf(std::span(stroke).subspan(kCrackSamples)));
  }
  const float scale = loudest > 0.0f ? 0.9f / loudest : 0.0f;
  for (auto& stroke : strokes)
    for (float& s : stroke) s *= scale;
  return strokes;
}

}  // namespace tonvex
