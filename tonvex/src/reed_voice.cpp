// Reed oscillators. Each reed is a 32-bit phase accumulator whose top
// kWaveTableBits bits index the wave table and whose rest interpolates
// linearly, so the period is the note's exact fractional SPC. The second reed
// sounds 2 cents above the first (weighted so that the perceived pitch stays
// on the note), giving the slow beating of a harmonium's unison reeds.
// A grace lead crossfades into the main note over up to 8 ms with the phase
// carried across the switch. Stateless apart from the caller's ReedPhases.
#include "reed_voice.h"

#include <algorithm>
#include <cmath>

#include "tonvex/tonvex.h"

namespace tonvex {
namespace {

constexpr int kFracBits = 32 - kWaveTableBits;
constexpr uint32_t kFracMask = (1u << kFracBits) - 1;
constexpr float kFracScale = 1.0f / float(1u << kFracBits);

// Reed amplitudes and detunings in cents: amplitude-weighted mean 0 cents.
constexpr float kReedA = 1.0f / 1.7f, kReedB = 0.7f / 1.7f;
constexpr double kCentsA = -0.8235, kCentsB = 1.1765;
constexpr int64_t kCrossfadeSamples = 353;  // 8 ms

uint32_t phaseIncrement(const NoteSeed& seed, double cents) {
  const double cyclesPerSample = std::exp2(cents / 1200.0) / seed.effectiveSpc();
  return static_cast<uint32_t>(std::llround(cyclesPerSample * 4294967296.0));
}

// Adds n samples of one table oscillator, scaled by env, amp and a gain
// ramp (gain, gain + step, ...), and returns the advanced phase.
uint32_t addRun(const float* table, uint32_t phase, uint32_t inc, float amp, float gain,
                float gainStep, const float* env, float* out, int64_t n) {
  for (int64_t i = 0; i < n; ++i) {
    const uint32_t idx = phase >> kFracBits;
    const float frac = float(phase & kFracMask) * kFracScale;
    const float v = table[idx] + frac * (table[idx + 1] - table[idx]);
    out[i] += v * env[i] * amp * gain;
    gain += gainStep;
    phase += inc;
  }
  return phase;
}

struct Span {
  int64_t from, to;          // samples from the token's start
  int64_t fadeInEnd;         // gain rises 0 -> 1 over [from, fadeInEnd)
  int64_t fadeOutStart;      // gain falls 1 -> 0 over [fadeOutStart, to)
};

// One reed of one seed over a span, in three runs: fade in, flat, fade out.
uint32_t addReed(const NoteSeed& seed, uint32_t phase, uint32_t inc, float amp, const Span& s,
                 const float* env, float* out) {
  const int64_t fadeIn = s.fadeInEnd - s.from, fadeOut = s.to - s.fadeOutStart;
  int64_t at = s.from;
  if (fadeIn > 0) {
    phase = addRun(seed.wave.data(), phase, inc, amp, 0.0f, 1.0f / fadeIn, env + at, out + at, fadeIn);
    at = s.fadeInEnd;
  }
  phase = addRun(seed.wave.data(), phase, inc, amp, 1.0f, 0.0f, env + at, out + at,
                 s.fadeOutStart - at);
  at = s.fadeOutStart;
  if (fadeOut > 0)
    phase = addRun(seed.wave.data(), phase, inc, amp, 1.0f, -1.0f / fadeOut, env + at, out + at,
                   fadeOut);
  return phase;
}

// Both reeds of one seed over a span, starting at phases p.
void addSeed(const NoteSeed& seed, ReedPhases p, float gain, const Span& s, const float* env,
             float* out) {
  const uint32_t incA = phaseIncrement(seed, kCentsA), incB = phaseIncrement(seed, kCentsB);
  addReed(seed, p.a, incA, kReedA * gain, s, env, out);
  addReed(seed, p.b, incB, kReedB * gain, s, env, out);
}

ReedPhases advanced(ReedPhases p, const NoteSeed& seed, int64_t samples) {
  p.a += phaseIncrement(seed, kCentsA) * static_cast<uint32_t>(samples);
  p.b += phaseIncrement(seed, kCentsB) * static_cast<uint32_t>(samples);
  return p;
}

}  // namespace

int64_t graceLeadSamples(double durationMs) {
  const double leadMs = std::min(std::clamp(durationMs / 4.0, 30.0, 70.0), durationMs / 2.0);
  return std::llround(leadMs * kSampleRate / 1000.0);
}

void addTokenVoice(const TokenVoice& voice, std::span<const float> env, float gain,
                   ReedPhases& phases, float* out) {
  const int64_t length = static_cast<int64_t>(env.size());
  if (voice.grace == nullptr) {
    addSeed(*voice.main, phases, gain, Span{0, length, 0, length}, env.data(), out);
    phases = advanced(phases, *voice.main, voice.nextStart);
    return;
  }
  const int64_t lead = std::min(voice.graceSamples, length);
  const int64_t fade = std::min(kCrossfadeSamples, lead / 2);
  const int64_t switchAt = lead - fade;
  addSeed(*voice.grace, phases, gain, Span{0, lead, 0, switchAt}, env.data(), out);
  const ReedPhases mainStart = advanced(phases, *voice.grace, switchAt);
  addSeed(*voice.main, mainStart, gain, Span{switchAt, length, lead, length},
          env.data(), out);
  phases = advanced(mainStart, *voice.main, voice.nextStart - switchAt);
}

}  // namespace tonvex
