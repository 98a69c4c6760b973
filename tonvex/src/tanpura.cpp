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
// Partials are damped-free complex rotations; envelopes are evaluated once per
// 64-sample block and interpolated. Stateless.
#include "tanpura.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

#include "pcm.h"
#include "tonvex/tonvex.h"

namespace tonvex {
namespace {

constexpr int kBlock = 64;
constexpr int kMaxPartials = 32;
constexpr double kTopHz = 7000.0;
constexpr double kRenderCycles = 2.0;  // how long a pluck is followed

std::vector<std::complex<double>> harmonicsOf(const NoteSeed& seed, int count) {
  std::vector<std::complex<double>> h(static_cast<size_t>(count) + 1);
  for (int k = 1; k <= count; ++k) {
    std::complex<double> sum = 0.0;
    for (int m = 0; m < kWaveTableSize; ++m)
      sum += double(seed.wave[m]) *
             std::polar(1.0, -2.0 * std::numbers::pi * k * m / kWaveTableSize);
    h[k] = sum * (2.0 / kWaveTableSize);
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
    const double hz = k * f0 * jitter;
    const double amplitude = std::abs(harmonics[k]) * s.gain;
    if (hz >= 0.45 * kSampleRate || amplitude < 1e-5) continue;
    std::complex<double> z = std::polar(1.0, std::arg(harmonics[k]));
    const std::complex<double> step = std::polar(1.0, 2.0 * std::numbers::pi * hz / kSampleRate);
    double level = 0.0;
    for (size_t b = 0; b < length; b += kBlock) {
      const double t = double(b + kBlock) / kSampleRate;
      const double shimmer = 1.0 + 0.1 * std::sin(2.0 * std::numbers::pi * shimmerHz * t + k);
      const double fadeOut = std::min(1.0, double(length - b) / (0.25 * double(length)));
      const double target = amplitude * partialEnvelope(k, hz, t, tau) * shimmer * fadeOut;
      const double stepLevel = (target - level) / kBlock;
      const size_t end = std::min(length, b + kBlock);
      for (size_t n = b; n < end; ++n) {
        out[n] += static_cast<float>(level * z.imag());
        level += stepLevel;
        z *= step;
      }
      z /= std::abs(z);
    }
  }
  for (size_t n = 0; n < length; ++n) cycle[(start + n) % cycleSamples] += out[n];
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
