// Seed waveforms and just-intonation tables. The harmonium reed's harmonics
// follow one smooth curve, the same for every note: falling at 4 dB per
// octave to the 16th (the fundamental strongest, the low partials of a free
// reed plainly heard) and at 16 dB per octave above, band-limited to 20 kHz.
// The phases are those of two unequal air pulses per period, which gives the
// reed's waveform its shape; the amplitudes are not taken from the pulses,
// whose comb made the fundamental 5 dB weaker than the 2nd harmonic and, with
// the beating of the reeds, up to 20 dB weaker on some notes. The tanpura string has a bright, slowly
// falling spectrum with fixed pseudo-random phases; its drone-time colour
// comes from the library's jawari resynthesis. Stateless.
#include "tonvex/seed_design.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

#include "tonvex/tonvex.h"

namespace tonvex {
namespace {

constexpr double kC3Hz = 130.81278265029931;  // 440 * 2^(-21/12)
constexpr double kTopHz = 20000.0;
constexpr double kSeedPeak = 0.9 * 32767.0;

// Amplitude and phase (radians) of harmonic k of a seed.
struct Partial {
  double amplitude, phase;
};

Partial harmoniumPartial(int k) {
  const double slope = std::pow(double(k), -0.66) * (k <= 16 ? 1.0 : std::pow(16.0 / k, 2.0));
  // Second pulse: 0.6 of the first, 0.47 of a period later.
  const double angle = -2.0 * std::numbers::pi * k * 0.47;
  return {slope, std::atan2(0.6 * std::sin(angle), 1.0 + 0.6 * std::cos(angle))};
}

Partial tanpuraPartial(int k) {
  const double amplitude = std::pow(double(k), -0.85) * (k % 2 == 0 ? 1.15 : 1.0);
  const double phase = std::fmod(k * 2.399963, 2.0 * std::numbers::pi);  // golden angle
  return {amplitude, phase};
}

}  // namespace

double seedHz(int instrumentType, int noteId) {
  const double hz = kC3Hz * std::exp2((noteId - 11) / 12.0);
  return instrumentType == kInstrumentDrone ? hz / 2.0 : hz;
}

SeedSpec makeSeed(int instrumentType, int noteId) {
  const double hz = seedHz(instrumentType, noteId);
  const double period = kSampleRate / hz;
  SeedSpec seed;
  seed.samPerCyc = static_cast<int32_t>(period);
  seed.fractional = period - seed.samPerCyc;
  const int harmonics = static_cast<int>(kTopHz / hz);
  std::vector<double> wave(static_cast<size_t>(seed.samPerCyc) + 1, 0.0);
  for (int k = 1; k <= harmonics; ++k) {
    const Partial p = instrumentType == kInstrumentDrone ? tanpuraPartial(k) : harmoniumPartial(k);
    // cos(2 pi k j / period + phase) by rotation from j = 0.
    std::complex<double> z = std::polar(p.amplitude, p.phase);
    const std::complex<double> step = std::polar(1.0, 2.0 * std::numbers::pi * k / period);
    for (double& v : wave) {
      v += z.real();
      z *= step;
    }
  }
  double peak = 0.0;
  for (double v : wave) peak = std::max(peak, std::fabs(v));
  for (double v : wave) seed.samples.push_back(static_cast<int16_t>(std::lround(v * kSeedPeak / peak)));
  return seed;
}

double justRatio(int semitonesFromSa) {
  static constexpr double kRatios[12] = {1.0,       16.0 / 15, 9.0 / 8,  6.0 / 5,
                                         5.0 / 4,   4.0 / 3,   45.0 / 32, 3.0 / 2,
                                         8.0 / 5,   5.0 / 3,   9.0 / 5,  15.0 / 8};
  const int octave = (semitonesFromSa >= 0 ? semitonesFromSa : semitonesFromSa - 11) / 12;
  return kRatios[semitonesFromSa - 12 * octave] * std::exp2(octave);
}

std::array<double, kOnprColumns> onprRatios(int instrumentType) {
  std::array<double, kOnprColumns> ratios{};
  for (int i = 0; i < kOnprColumns; ++i)
    ratios[size_t(i)] = justRatio(i - 7) / (instrumentType == kInstrumentDrone ? 2.0 : 1.0);
  return ratios;
}

double justCorrection(int tonicId, int instrumentType, int noteId) {
  const double saPeriod = kSampleRate / seedHz(kInstrumentMain, tonicId + 9);
  const double ratio =
      justRatio(noteId - tonicId - 9) / (instrumentType == kInstrumentDrone ? 2.0 : 1.0);
  return saPeriod / ratio - kSampleRate / seedHz(instrumentType, noteId);
}

std::array<double, kOnprColumns> onprCorrections(int tonicId, int instrumentType) {
  std::array<double, kOnprColumns> corrections{};
  for (int i = 0; i < kOnprColumns; ++i) {
    const int noteId = tonicId + 2 + i;
    if (noteId <= kMaxNoteId) corrections[size_t(i)] = justCorrection(tonicId, instrumentType, noteId);
  }
  return corrections;
}

}  // namespace tonvex
