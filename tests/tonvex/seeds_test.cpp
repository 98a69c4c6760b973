// Note seeds: the ONPR corrections that tune every note of every tonic to
// its just ratio, and the harmonium seed's spectrum. (The seeds' absolute
// pitch and the just ratios themselves are measured on the built store, in
// rendered notes, in sound/, where loading, tuning and freeing seeds and
// their failures are driven as the program drives them.)
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tonvex/seed_design.h"

namespace {

using namespace tonvex;

double cents(double ratio) { return 1200.0 * std::log2(ratio); }

TEST(SeedDesignTest, CorrectionsTuneEveryNoteToItsRatio) {
  for (int tonic = 1; tonic <= 12; ++tonic)
    for (int type : {kInstrumentMain, kInstrumentDrone}) {
      const auto corrections = onprCorrections(tonic, type);
      const auto ratios = onprRatios(type);
      const double saHz = seedHz(kInstrumentMain, tonic + 9);
      for (size_t i = 0; i < kOnprColumns; ++i) {
        const int note = tonic + 2 + int(i);
        SCOPED_TRACE(testing::Message() << "tonic " << tonic << " column " << i);
        if (note > 40) {
          EXPECT_EQ(corrections[i], 0.0);
          continue;
        }
        const double tunedHz = 44100.0 / (44100.0 / seedHz(type, note) + corrections[i]);
        EXPECT_NEAR(cents(tunedHz / (saHz * ratios[i])), 0.0, 0.01);
        EXPECT_LT(std::fabs(cents(tunedHz / seedHz(type, note))), 20.0);
      }
    }
}

TEST(SeedDesignTest, BassHarmoniumSeedIsRichWithEvenHarmonics) {
  const SeedSpec seed = makeSeed(kInstrumentMain, 0);
  const double period = seed.samPerCyc + seed.fractional;
  auto harmonic = [&](int k) {  // the seed's samples span one period
    double re = 0, im = 0;
    for (int j = 0; j < seed.samPerCyc; ++j) {
      re += seed.samples[size_t(j)] * std::cos(2 * std::numbers::pi * k * j / period);
      im += seed.samples[size_t(j)] * std::sin(2 * std::numbers::pi * k * j / period);
    }
    return std::hypot(re, im);
  };
  double strongest = 0;
  for (int k = 1; k <= 16; ++k) strongest = std::max(strongest, harmonic(k));
  EXPECT_GT(20 * std::log10(harmonic(16) / strongest), -40.0);
  EXPECT_GT(harmonic(2), 0.1 * harmonic(1));
}

}  // namespace
