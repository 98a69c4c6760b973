// Reed oscillators. Each reed is a 32-bit phase accumulator whose top
// kWaveTableBits bits index the wave table and whose rest interpolates
// linearly, so the period is the note's exact fractional SPC. A second, much
// quieter reed (-18 dB) sounds 2 cents above the first (weighted so that the
// perceived pitch stays on the note): it gives the unison reeds' slow beating
// a life without the swell of two equal reeds, which beat by 5 dB and made
// each harmonic's level depend on where the beat stood (a dry Indian
// harmonium detunes its unisons by 0 to 3 cents). A held note so swells by
// under 2 dB, and harmonics keep their level from note to note.
// Every fresh key press speaks with a few ms of reed noise (addReedOnset).
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
constexpr float kReedA = 1.0f / 1.12f, kReedB = 0.12f / 1.12f;
constexpr double kCentsA = -2.0 * 0.12 / 1.12, kCentsB = 2.0 / 1.12;
constexpr int64_t kCrossfadeSamples = 353;  // 8 ms
constexpr float kOnsetLevel = 0.5f;           // reed noise, against the note's gain

uint32_t phaseIncrement(const NoteSeed& seed, double cents) {
  const double cyclesPerSample = std::exp2(cents / 1200.0) / seed.effectiveSpc();
  return static_cast<uint32_t>(std::llround(cyclesPerSample * 4294967296.0));
}

// The two reeds of one seed: phases, increments and amplitudes.
struct ReedPair {
  uint32_t phaseA, phaseB, incA, incB;
  float ampA, ampB;
};

inline float tableValue(const float* table, uint32_t phase) {
  const uint32_t idx = phase >> kFracBits;
  const float frac = float(phase & kFracMask) * kFracScale;
  return table[idx] + frac * (table[idx + 1] - table[idx]);
}

// Adds n samples of both reeds, scaled by env and a gain ramp (gain,
// gain + step, ...), and advances their phases.
void addRun(const float* table, ReedPair& r, float gain, float gainStep, const float* env,
            float* out, int64_t n) {
  uint32_t a = r.phaseA, b = r.phaseB;
  for (int64_t i = 0; i < n; ++i) {
    out[i] += (tableValue(table, a) * r.ampA + tableValue(table, b) * r.ampB) * env[i] * gain;
    gain += gainStep;
    a += r.incA;
    b += r.incB;
  }
  r.phaseA = a;
  r.phaseB = b;
}

// addRun at a steady gain of 1, where nearly every sample of a note is: the
// same sums (a product by 1 is exact) without the gain ramp, with the pair's
// constants held in registers (out may alias them, as far as the compiler
// knows) and each sample's phases taken from the run's start.
void addSteadyRun(const float* table, ReedPair& r, const float* env, float* out, int64_t n) {
  const uint32_t a = r.phaseA, b = r.phaseB, incA = r.incA, incB = r.incB;
  const float ampA = r.ampA, ampB = r.ampB;
  for (int64_t i = 0; i < n; ++i) {
    const uint32_t step = static_cast<uint32_t>(i);
    out[i] += (tableValue(table, a + incA * step) * ampA + tableValue(table, b + incB * step) * ampB) *
              env[i];
  }
  r.phaseA = a + incA * static_cast<uint32_t>(n);
  r.phaseB = b + incB * static_cast<uint32_t>(n);
}

struct Span {
  int64_t from, to;          // samples from the token's start
  int64_t fadeInEnd;         // gain rises 0 -> 1 over [from, fadeInEnd)
  int64_t fadeOutStart;      // gain falls 1 -> 0 over [fadeOutStart, to)
};

// Both reeds of one seed over a span, starting at phases p, in three runs:
// fade in, flat, fade out.
void addSeed(const NoteSeed& seed, ReedPhases p, float gain, const Span& s, const float* env,
             float* out) {
  ReedPair reeds{p.a, p.b, phaseIncrement(seed, kCentsA), phaseIncrement(seed, kCentsB),
                 kReedA * gain, kReedB * gain};
  const float* table = seed.wave.data();
  const int64_t fadeIn = s.fadeInEnd - s.from, fadeOut = s.to - s.fadeOutStart;
  int64_t at = s.from;
  if (fadeIn > 0) {
    addRun(table, reeds, 0.0f, 1.0f / float(fadeIn), env + at, out + at, fadeIn);
    at = s.fadeInEnd;
  }
  addSteadyRun(table, reeds, env + at, out + at, s.fadeOutStart - at);
  at = s.fadeOutStart;
  if (fadeOut > 0) addRun(table, reeds, 1.0f, -1.0f / float(fadeOut), env + at, out + at, fadeOut);
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

void addReedOnset(Variation& variation, float gain, float* out, int64_t length) {
  // Noise band-passed to 3 to 5.6 kHz (a one-pole high-pass into a one-pole
  // low-pass) under a 1.2 ms decay, followed for 6 ms; its level varies by
  // +-2 dB from press to press.
  const int64_t n = std::min<int64_t>(length, kSampleRate * 6 / 1000);
  const float decay = std::exp(-1.0f / (0.0012f * kSampleRate));
  const float level = gain * kOnsetLevel * float(std::pow(10.0, 0.1 * variation.symmetric()));
  float envelope = level, low = 0.0f, band = 0.0f;
  for (int64_t i = 0; i < n; ++i) {
    const float white = float(variation.symmetric());
    low += 0.35f * (white - low);           // below 3 kHz, taken away
    band += 0.55f * (white - low - band);   // above 5.6 kHz, rolled off
    out[i] += envelope * band * std::min(1.0f, float(i) / 13.0f);  // rises over 0.3 ms
    envelope *= decay;
  }
}

}  // namespace tonvex
