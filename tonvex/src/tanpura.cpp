// Additive tanpura strings. The seed's harmonics (found by a DFT of its wave
// table) are resynthesised as partials whose envelopes are shaped by:
//   * an exponential decay, faster for higher partials;
//   * a slower rise for partials 2 to 8, so that they bloom after the
//     fundamental as the string settles against the bridge;
//   * the jawari: a Gaussian formant 1.5 octaves wide whose centre falls
//     exponentially from 4 kHz towards 700 Hz, lifting the partials it passes
//     (the sweeping "buzz" of the curved bridge);
//   * a little frequency jitter and a slow shimmer, different per string;
//   * a fade over the last quarter of the two cycles a pluck is followed for,
//     so that the wrapped tail joins without a step.
// Envelopes are evaluated once per 256-sample block and interpolated within it.
// Stateless.
#include "tanpura.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>

#include "pcm.h"
#include "tonvex/tonvex.h"

namespace tonvex {
namespace {

constexpr int kBlock = 256;  // 5.8 ms: envelopes change slowly against it
constexpr int kMaxPartials = 32;
constexpr double kTopHz = 7000.0;
constexpr double kRenderCycles = 2.0;  // how long a pluck is followed

std::vector<std::complex<double>> harmonicsOf(const NoteSeed& seed, int count) {
  std::vector<std::complex<double>> h(static_cast<size_t>(count) + 1);
  for (int k = 1; k <= count; ++k) {
    std::complex<double> sum = 0.0, rotation = 1.0;
    const std::complex<double> step = std::polar(1.0, -2.0 * std::numbers::pi * k / kWaveTableSize);
    for (int m = 0; m < kWaveTableSize; ++m) {
      sum += double(seed.wave[size_t(m)]) * rotation;
      rotation *= step;
    }
    h[size_t(k)] = sum * (2.0 / kWaveTableSize);
  }
  return h;
}

// Envelope of partial k (frequency hz) at time t seconds after the pluck.
double partialEnvelope(int k, double hz, double t, double tau) {
  const double decay = std::exp(-t * (1.0 + 0.12 * (k - 1)) / tau);
  const double riseSeconds = k == 1 ? 0.008 : (k <= 8 ? 0.03 * k : 0.012);
  const double rise = 1.0 - std::exp(-t / riseSeconds);
  const double centreHz = 700.0 + 3300.0 * std::exp(-t / 0.9);
  const double octaves = std::log2(hz / centreHz);
  const double formant = std::exp(-0.5 * octaves * octaves / (0.75 * 0.75));
  return decay * rise * (0.3 + 1.4 * formant);
}

struct PartialSpec {
  int k;
  double hz, amplitude, phase, tau, shimmerHz;
};

// Adds amplitude x envelope x cos(2 pi hz t + phase) over out. Within a block
// the oscillator is the block's start phasor times a table of the block's
// rotations, so every sample is independent (and the loop vectorises); the
// level ramps linearly from block to block.
void addPartial(const PartialSpec& p, std::vector<float>& out) {
  const double w = 2.0 * std::numbers::pi * p.hz / kSampleRate;
  std::array<float, kBlock> cosTable, sinTable;
  for (int n = 0; n < kBlock; ++n) {
    cosTable[size_t(n)] = float(std::cos(w * n));
    sinTable[size_t(n)] = float(std::sin(w * n));
  }
  const std::complex<double> blockStep = std::polar(1.0, w * kBlock);
  std::complex<double> z = std::polar(1.0, p.phase);
  const size_t length = out.size();
  double level = 0.0;
  for (size_t b = 0; b < length; b += kBlock) {
    const double t = double(b + kBlock) / kSampleRate;
    const double shimmer = 1.0 + 0.1 * std::sin(2.0 * std::numbers::pi * p.shimmerHz * t + p.k);
    const double fadeOut = std::min(1.0, double(length - b) / (0.25 * double(length)));
    const double target = p.amplitude * partialEnvelope(p.k, p.hz, t, p.tau) * shimmer * fadeOut;
    const float re = float(z.real()), im = float(z.imag());
    const float from = float(level), slope = float((target - level) / kBlock);
    float* dest = out.data() + b;
    const int n = int(std::min<size_t>(kBlock, length - b));
    for (int i = 0; i < n; ++i)  // an int counter converts to float in SIMD
      dest[i] += (from + slope * float(i)) * (re * cosTable[size_t(i)] - im * sinTable[size_t(i)]);
    level = target;
    z *= blockStep;
    z /= std::abs(z);
  }
}

void addString(const TanpuraString& s, uint32_t variation, size_t cycleSamples,
               std::vector<float>& cycle) {
  const double f0 = kSampleRate / s.seed->effectiveSpc();
  const int count = std::clamp(int(kTopHz / f0), 1, kMaxPartials);
  const auto harmonics = harmonicsOf(*s.seed, count);
  const double tau = s.ringMs / 1000.0 / 6.9;
  const size_t length = static_cast<size_t>(kRenderCycles * double(cycleSamples));
  const size_t start = static_cast<size_t>(s.pluckMs * kSampleRate / 1000.0);
  const double jitter = 1.0 + 0.0003 * (double(variation % 7) - 3.0) / 3.0;
  const double shimmerHz = 0.5 + 0.1 * (variation % 5);
  std::vector<float> out(length, 0.0f);
  for (int k = 1; k <= count; ++k) {
    const PartialSpec p{k, k * f0 * jitter, std::abs(harmonics[size_t(k)]) * s.gain,
                        std::arg(harmonics[size_t(k)]), tau, shimmerHz};
    if (p.hz < 0.45 * kSampleRate && p.amplitude >= 1e-5) addPartial(p, out);
  }
  for (size_t done = 0; done < length;) {  // wrapped into the cycle
    const size_t at = (start + done) % cycleSamples;
    const size_t n = std::min(length - done, cycleSamples - at);
    for (size_t i = 0; i < n; ++i) cycle[at + i] += out[done + i];
    done += n;
  }
}

}  // namespace

std::vector<float> renderTanpuraCycle(const std::array<TanpuraString, 4>& strings,
                                      size_t cycleSamples) {
  std::vector<float> cycle(cycleSamples, 0.0f);
  uint32_t variation = 1;
  for (const TanpuraString& s : strings) addString(s, variation++, cycleSamples, cycle);
  const float peak = peakOf(cycle);
  if (peak > 0.0f)
    for (float& v : cycle) v /= peak;
  return cycle;
}

}  // namespace tonvex
