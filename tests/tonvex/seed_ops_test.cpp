// Declaring sets, loading, freeing and tuning seeds, with their bad arguments.
#include <gtest/gtest.h>

#include <cmath>

#include "library_state.h"
#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace {

using namespace tonvex;

class SeedOpsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(FWavSetGlobalVariables("ce"), 1);
    ASSERT_EQ(FWavSetCurrInstr("c"), 1);
  }
  int16_t load(const std::string& set, int note) {
    const SeedSpec seed = makeSeed(kInstrumentMain, note);
    return FWavLoadInstrNoteSeeds(set, note, seed.samPerCyc, seed.fractional, seed.samples.data());
  }
  double spc(int note) { return findSeed(*findNoteSet("c"), note)->effectiveSpc(); }
};

TEST_F(SeedOpsTest, SetNamesMustBeDistinctLetters) {
  for (const char* bad : {"", "c1", "cc", "c e"}) EXPECT_EQ(FWavSetGlobalVariables(bad), 0) << bad;
  EXPECT_EQ(FWavSetGlobalVariables("cev"), 1);
  EXPECT_EQ(FWavSetCurrInstr("v"), 1);
  EXPECT_EQ(FWavSetCurrInstr("x"), 0);
  EXPECT_EQ(FWavSetCurrInstr("ce"), 0);
}

TEST_F(SeedOpsTest, LoadChecksEveryArgument) {
  const SeedSpec seed = makeSeed(kInstrumentMain, 12);
  const int16_t* s = seed.samples.data();
  EXPECT_EQ(FWavLoadInstrNoteSeeds("c", 12, seed.samPerCyc, seed.fractional, s), 1);
  EXPECT_EQ(FWavLoadInstrNoteSeeds("x", 12, seed.samPerCyc, seed.fractional, s), 0);
  EXPECT_EQ(FWavLoadInstrNoteSeeds("c", 41, seed.samPerCyc, seed.fractional, s), 0);
  EXPECT_EQ(FWavLoadInstrNoteSeeds("c", -1, seed.samPerCyc, seed.fractional, s), 0);
  EXPECT_EQ(FWavLoadInstrNoteSeeds("c", 12, 7, 0.0, s), 0);
  EXPECT_EQ(FWavLoadInstrNoteSeeds("c", 12, seed.samPerCyc, 1.0, s), 0);
  EXPECT_EQ(FWavLoadInstrNoteSeeds("c", 12, seed.samPerCyc, -0.1, s), 0);
  EXPECT_EQ(FWavLoadInstrNoteSeeds("c", 12, seed.samPerCyc, seed.fractional, nullptr), 0);
}

TEST_F(SeedOpsTest, TuningAddsUpAndReloadingClearsIt) {
  ASSERT_EQ(load("c", 12), 1);
  const double stored = spc(12);
  EXPECT_EQ(FWavTuneNote("c", 12, -1.5), 1);
  EXPECT_DOUBLE_EQ(spc(12), stored - 1.5);
  EXPECT_EQ(FWavTuneNote("c", 12, 0.5), 1);
  EXPECT_DOUBLE_EQ(spc(12), stored - 1.0);
  ASSERT_EQ(load("c", 12), 1);
  EXPECT_DOUBLE_EQ(spc(12), stored);
}

TEST_F(SeedOpsTest, TuningRejectsAbsentNotesAndAbsurdDeltas) {
  ASSERT_EQ(load("c", 12), 1);
  EXPECT_EQ(FWavTuneNote("c", 13, 0.1), 0);  // not loaded
  EXPECT_EQ(FWavTuneNote("c", 41, 0.1), 0);
  EXPECT_EQ(FWavTuneNote("x", 12, 0.1), 0);
  EXPECT_EQ(FWavTuneNote("c", 12, -spc(12)), 0);
  EXPECT_EQ(FWavTuneNote("c", 12, std::nan("")), 0);
  EXPECT_EQ(FWavTuneNote("c", 12, 0.0), 1);
}

TEST_F(SeedOpsTest, FreeingForgetsTheSetOnly) {
  ASSERT_EQ(load("c", 12), 1);
  ASSERT_EQ(load("e", 12), 1);
  EXPECT_EQ(FWavFreeNoteSeedsMemory("c"), 1);
  EXPECT_EQ(findSeed(*findNoteSet("c"), 12), nullptr);
  EXPECT_NE(findSeed(*findNoteSet("e"), 12), nullptr);
  EXPECT_EQ(FWavFreeNoteSeedsMemory("z"), 0);
}

}  // namespace
