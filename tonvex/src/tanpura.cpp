// Additive tanpura strings. The seed's harmonics (found by a DFT of its wave
// table) are resynthesised, up to 12 kHz with a gentle roll-off rather than a
// ceiling, as partials whose envelopes are shaped by:
//   * an exponential decay, faster for higher partials;
//   * the fundamental rising within a few ms and partials 2 to 5 more slowly,
//     so that they peak after it as the string settles against the bridge
//     (measured on the tanbur and in bridge simulations);
//   * the jawari: the curved bridge feeds energy into the upper partials
//     after the pluck, a band that blooms over the first 50 to 150 ms and
//     falls as the string decays, with a centre that slides down from about
//     6 kHz towards 1.7 kHz (the "precursor" band whose frequency falls as
//     the string decays). It is a Gaussian formant 0.55 octave wide in log
//     frequency lifting the partials it passes; below it the plain string's
//     partials fall at 12 dB per octave above 2 kHz;
//   * a slow shimmer, different per partial.
// Each pluck is varied, as a player's plucks are, by up to +-0.05 % in pitch,
// +-1.5 dB in level and +-2 dB in the strength of the jawari, drawn for each
// variant and string from the drone's own seed, so that no cycle repeats the
// one before it and the same drone always sounds the same.
// A pluck is followed for two cycles and faded over the last quarter of them,
// so that the tail wrapped into the loop joins without a step.
// Envelopes are evaluated once per 512-sample block (11.6 ms) with running
// products instead of exponentials, and interpolated within the block.
// Stateless.
#include "tanpura.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>

#include "tonvex/tonvex.h"
#include "variation.h"

namespace tonvex {
namespace {

constexpr int kBlock = 512;
constexpr double kBlockSeconds = double(kBlock) / kSampleRate;
constexpr double kTopHz = 12000.0;
constexpr double kRenderCycles = 2.0;  // how long a pluck is followed
// A partial below kQuiet (-90 dB in a file), once the jawari has passed, stops.
constexpr double kQuiet = 1e-4;
constexpr double kQuietAfterSeconds = 0.6;

// The jawari band: strength, width, and how its centre and level move.
constexpr double kJawariGain = 2.0;
constexpr double kJawariOctaves = 0.55;
constexpr double kJawariHighHz = 6000.0, kJawariLowHz = 1700.0, kJawariSlideSeconds = 0.7;
constexpr double kJawariBloomSeconds = 0.05, kJawariFallSeconds = 0.45;
constexpr double kPlainRollOffHz = 1500.0;  // the plain string's partials fall above it

struct PluckVariation {
  double pitch = 1.0, level = 1.0, brightness = 1.0;
};

double fromDb(double db) { return std::pow(10.0, db / 20.0); }

PluckVariation pluckVariation(uint64_t seed, int variant, int string) {
  Variation v(seed + uint64_t(variant * 4 + string + 1) * 0xD1B54A32D192ED03ull);
  const double pitch = 1.0 + 0.0005 * v.symmetric();
  const double level = fromDb(1.5 * v.symmetric());
  return {pitch, level, fromDb(2.0 * v.symmetric())};
}

std::vector<double> harmonicAmplitudes(const NoteSeed& seed, int count) {
  std::vector<double> h(static_cast<size_t>(count) + 1);
  for (int k = 1; k <= count; ++k) {
    std::complex<double> sum = 0.0, rotation = 1.0;
    const std::complex<double> step = std::polar(1.0, -2.0 * std::numbers::pi * k / kWaveTableSize);
    for (int m = 0; m < kWaveTableSize; ++m) {
      sum += double(seed.wave[size_t(m)]) * rotation;
      rotation *= step;
    }
    h[size_t(k)] = std::abs(sum) * (2.0 / kWaveTableSize);
  }
  return h;
}

// What changes from block to block for every partial of a pluck alike: the
// jawari's centre (log2 Hz) and its bloom.
struct JawariTrack {
  std::vector<double> centreLog2, bloom;
};

JawariTrack jawariTrack(size_t blocks) {
  JawariTrack track{std::vector<double>(blocks), std::vector<double>(blocks)};
  for (size_t b = 0; b < blocks; ++b) {
    const double t = double(b + 1) * kBlockSeconds;
    track.centreLog2[b] =
        std::log2(kJawariLowHz + (kJawariHighHz - kJawariLowHz) * std::exp(-t / kJawariSlideSeconds));
    track.bloom[b] = (1.0 - std::exp(-t / kJawariBloomSeconds)) * std::exp(-t / kJawariFallSeconds);
  }
  return track;
}

struct PartialSpec {
  int k;
  double hz, amplitude, jawari, decayPerSecond, riseSeconds, shimmerHz;
};

// Adds amplitude x envelope x sin(2 pi hz t + k) over out. Within a block the
// oscillator is the block's start phasor times a table of the block's
// rotations, so every sample is independent (and the loop vectorises); the
// level ramps linearly from block to block.
void addPartial(const PartialSpec& p, const JawariTrack& track, std::vector<float>& out) {
  const double w = 2.0 * std::numbers::pi * p.hz / kSampleRate;
  std::array<float, kBlock> cosTable, sinTable;
  std::complex<double> r = 1.0;
  const std::complex<double> sampleStep = std::polar(1.0, w);
  for (int n = 0; n < kBlock; ++n, r *= sampleStep) {
    cosTable[size_t(n)] = float(r.real());
    sinTable[size_t(n)] = float(r.imag());
  }
  const std::complex<double> blockStep = std::polar(1.0, w * kBlock);
  const std::complex<double> shimmerStep =
      std::polar(1.0, 2.0 * std::numbers::pi * p.shimmerHz * kBlockSeconds);
  std::complex<double> z = std::polar(1.0, double(p.k)), shimmer = std::polar(1.0, 1.7 * p.k);
  const double decayStep = std::exp(-p.decayPerSecond * kBlockSeconds);
  const double riseStep = std::exp(-kBlockSeconds / p.riseSeconds);
  const double logHz = std::log2(p.hz);
  double decay = decayStep, unrisen = riseStep;
  const size_t length = out.size(), fadeLength = std::max<size_t>(1, length / 4);
  double level = 0.0;
  for (size_t b = 0, block = 0; b < length; b += kBlock, ++block) {
    const double octaves = (logHz - track.centreLog2[block]) / kJawariOctaves;
    const double band = p.jawari * track.bloom[block] * std::exp(-0.5 * octaves * octaves);
    const double fadeOut = std::min(1.0, double(length - std::min(length, b + kBlock)) / double(fadeLength));
    const double target = (1.0 - unrisen) * (p.amplitude * decay + band) *
                          (1.0 + 0.08 * shimmer.imag()) * fadeOut;
    if (double(block) * kBlockSeconds > kQuietAfterSeconds && target < kQuiet && level < kQuiet) break;
    const float re = float(z.real()), im = float(z.imag());
    const float from = float(level), slope = float((target - level) / kBlock);
    float* dest = out.data() + b;
    const int n = int(std::min<size_t>(kBlock, length - b));
    for (int i = 0; i < n; ++i)  // an int counter converts to float in SIMD
      dest[i] += (from + slope * float(i)) * (im * cosTable[size_t(i)] + re * sinTable[size_t(i)]);
    level = target;
    z *= blockStep;
    shimmer *= shimmerStep;
    decay *= decayStep;
    unrisen *= riseStep;
  }
}

// How fast partial k at hz decays, per second: the string's own rate, faster
// for higher partials.
double decayRate(double hz, double ringMs) { return 6.9 / (ringMs / 1000.0) * (1.0 + hz / 800.0); }

// Time constant of a partial's rise: the fundamental at once, 2 to 5 later.
double riseSeconds(int k) { return k == 1 ? 0.004 : k <= 5 ? 0.02 * k : 0.01; }

// The plain string's roll-off above kPlainRollOffHz and a fade towards kTopHz.
double plainShape(double hz) {
  const double x = hz / kPlainRollOffHz;
  return 1.0 / (1.0 + x * x);
}
double topFade(double hz) { return std::clamp((kTopHz - hz) / 2000.0, 0.0, 1.0); }

// How many partials a string has, at most, below kTopHz.
int partialCount(const TanpuraString& s) {
  return std::max(1, int(std::min(kTopHz, 0.45 * kSampleRate) * s.seed.effectiveSpc() / kSampleRate));
}

// One pluck of a string whose seed has these harmonic amplitudes, followed
// for `length` samples.
std::vector<float> renderPluck(const TanpuraString& s, const std::vector<double>& harmonics,
                               const PluckVariation& v, const JawariTrack& track, size_t length) {
  const double f0 = kSampleRate / s.seed.effectiveSpc() * v.pitch;
  const int count = std::min(int(harmonics.size()) - 1, int(std::min(kTopHz, 0.45 * kSampleRate) / f0));
  std::vector<float> out(length, 0.0f);
  for (int k = 1; k <= count; ++k) {
    const double hz = k * f0, amplitude = harmonics[size_t(k)] * s.gain * v.level * topFade(hz);
    const PartialSpec p{k,
                        hz,
                        amplitude * plainShape(hz),
                        amplitude * kJawariGain * v.brightness,
                        decayRate(hz, s.ringMs),
                        riseSeconds(k),
                        0.4 + 0.05 * (k % 7)};
    if (amplitude >= kQuiet) addPartial(p, track, out);
  }
  return out;
}

}  // namespace

std::vector<float> renderTanpuraLoop(const std::array<TanpuraString, 4>& strings,
                                     size_t cycleSamples, int loopCycles, uint64_t variationSeed) {
  const size_t loopSamples = cycleSamples * size_t(loopCycles);
  const size_t length = static_cast<size_t>(kRenderCycles * double(cycleSamples));
  const JawariTrack track = jawariTrack((length + kBlock - 1) / kBlock);
  std::vector<float> loop(loopSamples, 0.0f);
  // Each variant's pluck is rendered once and placed in every cycle it plays in.
  for (size_t i = 0; i < strings.size(); ++i) {
    const TanpuraString& s = strings[i];
    const auto harmonics = harmonicAmplitudes(s.seed, partialCount(s));
    for (int variant = 0; variant < std::min(loopCycles, kDroneVariants); ++variant) {
      const auto pluck =
          renderPluck(s, harmonics, pluckVariation(variationSeed, variant, int(i)), track, length);
      for (int cycle = variant; cycle < loopCycles; cycle += kDroneVariants) {
        const size_t start =
            size_t(cycle) * cycleSamples + static_cast<size_t>(s.pluckMs * kSampleRate / 1000.0);
        for (size_t done = 0; done < length;) {  // wrapped into the loop
          const size_t at = (start + done) % loopSamples;
          const size_t n = std::min(length - done, loopSamples - at);
          for (size_t j = 0; j < n; ++j) loop[at + j] += pluck[done + j];
          done += n;
        }
      }
    }
  }
  return loop;
}

}  // namespace tonvex
