// The seed design: pitches, exact periods, harmonium spectrum, just ratios and
// the ONPR corrections that tune the seeds to them.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tonvex/seed_design.h"

namespace {

using namespace tonvex;

double cents(double ratio) { return 1200.0 * std::log2(ratio); }

TEST(SeedDesignTest, AbsoluteElevenIsC3AndTheDroneSetSoundsAnOctaveLower) {
  EXPECT_NEAR(seedHz(kInstrumentMain, 11), 130.8128, 1e-4);
  EXPECT_NEAR(seedHz(kInstrumentMain, 12), 138.5913, 1e-4);
  EXPECT_NEAR(seedHz(kInstrumentMain, 0) * std::exp2(40 / 12.0), seedHz(kInstrumentMain, 40), 1e-9);
  for (int note : {0, 17, 40})
    EXPECT_DOUBLE_EQ(seedHz(kInstrumentDrone, note) * 2.0, seedHz(kInstrumentMain, note));
}

TEST(SeedDesignTest, PeriodIsExactAndTheSeedCoversIt) {
  for (int type : {kInstrumentMain, kInstrumentDrone})
    for (int note : {0, 11, 25, 40}) {
      const SeedSpec seed = makeSeed(type, note);
      EXPECT_NEAR(seed.samPerCyc + seed.fractional, 44100.0 / seedHz(type, note), 1e-9);
      EXPECT_GE(seed.fractional, 0.0);
      EXPECT_LT(seed.fractional, 1.0);
      EXPECT_EQ(seed.samples.size(), size_t(seed.samPerCyc) + 1);
    }
}

// Magnitude of harmonic k of a seed (its samples span one period).
double harmonic(const SeedSpec& seed, int k) {
  const double period = seed.samPerCyc + seed.fractional;
  double re = 0, im = 0;
  for (int j = 0; j < seed.samPerCyc; ++j) {
    re += seed.samples[size_t(j)] * std::cos(2 * std::numbers::pi * k * j / period);
    im += seed.samples[size_t(j)] * std::sin(2 * std::numbers::pi * k * j / period);
  }
  return std::hypot(re, im);
}

TEST(SeedDesignTest, BassHarmoniumSeedIsRichWithEvenHarmonics) {
  const SeedSpec seed = makeSeed(kInstrumentMain, 0);
  double strongest = 0;
  for (int k = 1; k <= 16; ++k) strongest = std::max(strongest, harmonic(seed, k));
  EXPECT_GT(20 * std::log10(harmonic(seed, 16) / strongest), -40.0);
  EXPECT_GT(harmonic(seed, 2), 0.1 * harmonic(seed, 1));
}

TEST(SeedDesignTest, JustRatiosMatchTheirCents) {
  const double expectedCents[12] = {0,     111.73, 203.91, 315.64, 386.31,  498.04,
                                    590.22, 701.96, 813.69, 884.36, 1017.60, 1088.27};
  for (int s = 0; s < 12; ++s) {
    EXPECT_NEAR(cents(justRatio(s)), expectedCents[s], 0.1) << "semitone " << s;
    EXPECT_DOUBLE_EQ(justRatio(s - 12) * 2, justRatio(s));
    EXPECT_DOUBLE_EQ(justRatio(s + 12) / 2, justRatio(s));
  }
}

TEST(SeedDesignTest, OnprColumnsRunFromLowerMaToUpperPa) {
  const auto main = onprRatios(kInstrumentMain), drone = onprRatios(kInstrumentDrone);
  EXPECT_DOUBLE_EQ(main[0], 2.0 / 3);  // m<
  EXPECT_DOUBLE_EQ(main[7], 1.0);      // S
  EXPECT_DOUBLE_EQ(main[26], 3.0);     // P>
  for (int i = 0; i < kOnprColumns; ++i) EXPECT_DOUBLE_EQ(drone[size_t(i)] * 2, main[size_t(i)]);
}

TEST(SeedDesignTest, CorrectionsTuneEveryNoteToItsRatio) {
  for (int tonic = 1; tonic <= 12; ++tonic)
    for (int type : {kInstrumentMain, kInstrumentDrone}) {
      const auto corrections = onprCorrections(tonic, type);
      const auto ratios = onprRatios(type);
      const double saHz = seedHz(kInstrumentMain, tonic + 9);
      for (int i = 0; i < kOnprColumns; ++i) {
        const int note = tonic + 2 + i;
        if (note > 40) {
          EXPECT_EQ(corrections[size_t(i)], 0.0) << "tonic " << tonic << " column " << i;
          continue;
        }
        const double tunedHz = 44100.0 / (44100.0 / seedHz(type, note) + corrections[size_t(i)]);
        EXPECT_NEAR(cents(tunedHz / (saHz * ratios[size_t(i)])), 0.0, 0.01);
        EXPECT_LT(std::fabs(cents(tunedHz / seedHz(type, note))), 20.0);
      }
    }
}

}  // namespace
