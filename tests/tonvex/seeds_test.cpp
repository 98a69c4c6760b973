// Note seeds: the ONPR corrections that tune every note of every tonic to
// its just ratio. (The seeds' absolute
// pitch and the just ratios themselves are measured on the built store, in
// rendered notes, in sound/, where loading, tuning and freeing seeds and
// their failures are driven as the program drives them.)
#include <gtest/gtest.h>

#include <cmath>

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

}  // namespace
