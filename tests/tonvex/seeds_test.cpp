// Note seeds: the ONPR corrections that tune every note of every tonic to
// its just ratio, the harmonium seed's spectrum, and declaring, loading,
// tuning and freeing seeds with their bad arguments. (The seeds' absolute
// pitch and the just ratios themselves are measured on the built store, in
// rendered notes, in sound/.)
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "library_state.h"
#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

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

// Each call's result beside the one expected, in order: set names must be
// distinct letters; loading checks every argument; tuning adds up and a
// reload clears it; freeing forgets one set only.
TEST(SeedOpsTest, CallsCheckTheirArgumentsAndKeepTheirState) {
  const SeedSpec seed = makeSeed(kInstrumentMain, 12);
  const int16_t* s = seed.samples.data();
  const int32_t spc = seed.samPerCyc;
  const double frac = seed.fractional;
  auto tuned = [] { return findSeed(*findNoteSet("c"), 12)->effectiveSpc(); };
  auto tunedBy = [&](double delta) { return int(std::fabs(tuned() - (spc + frac + delta)) < 1e-9); };
  const struct { const char* what; int got, expected; } calls[] = {
      {"no set names", FWavSetGlobalVariables(""), 0},
      {"a name twice", FWavSetGlobalVariables("cc"), 0},
      {"three sets", FWavSetGlobalVariables("cev"), 1},
      {"a declared set", FWavSetCurrInstr("v"), 1},
      {"an undeclared set", FWavSetCurrInstr("x"), 0},
      {"load", FWavLoadInstrNoteSeeds("c", 12, spc, frac, s), 1},
      {"load into another set", FWavLoadInstrNoteSeeds("e", 12, spc, frac, s), 1},
      {"load: note 41", FWavLoadInstrNoteSeeds("c", 41, spc, frac, s), 0},
      {"load: period of 7", FWavLoadInstrNoteSeeds("c", 12, 7, 0.0, s), 0},
      {"load: fraction 1", FWavLoadInstrNoteSeeds("c", 12, spc, 1.0, s), 0},
      {"load: no samples", FWavLoadInstrNoteSeeds("c", 12, spc, frac, nullptr), 0},
      {"tune down", FWavTuneNote("c", 12, -1.5) + FWavTuneNote("c", 12, 0.5), 2},
      {"tunings add up", tunedBy(-1.0), 1},
      {"tune: note not loaded", FWavTuneNote("c", 13, 0.1), 0},
      {"tune: the whole period", FWavTuneNote("c", 12, -tuned()), 0},
      {"tune: NaN", FWavTuneNote("c", 12, std::nan("")), 0},
      {"reload", FWavLoadInstrNoteSeeds("c", 12, spc, frac, s), 1},
      {"a reload clears the tuning", tunedBy(0.0), 1},
      {"free", FWavFreeNoteSeedsMemory("c"), 1},
      {"freed", findSeed(*findNoteSet("c"), 12) == nullptr, 1},
      {"the other set kept", findSeed(*findNoteSet("e"), 12) != nullptr, 1},
      {"free an unknown set", FWavFreeNoteSeedsMemory("z"), 0},
  };
  for (const auto& c : calls) EXPECT_EQ(c.got, c.expected) << c.what;
}

}  // namespace
