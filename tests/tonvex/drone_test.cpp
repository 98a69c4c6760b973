// The tanpura drone: arguments, file length, seamless cycles, the strings'
// pitches and the jawari's falling brightness.
#include <gtest/gtest.h>

#include <cmath>

#include "audio_measure.h"
#include "library_state.h"
#include "render_setup.h"
#include "tanpura.h"
#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace {

using namespace tonvex_test;

class DroneTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(tonvex_render::setUpLibrary({3, 1, 1.0, ""}), ""); }
  std::vector<float> droneFile(int cycles, int mode) {
    const std::string path = scratchFile("d.wav");
    EXPECT_EQ(FWavGenerateDroneFile(cycles, path, mode), 1);
    return readSamples(path);
  }
};

TEST_F(DroneTest, BadArgumentsFail) {
  EXPECT_EQ(FWavLoadDroneData("", 24, 4, "e", 1.0, 1), 0);   // drone type
  EXPECT_EQ(FWavLoadDroneData("", 24, 0, "e", 1.0, 1), 0);
  EXPECT_EQ(FWavLoadDroneData("", 24, 1, "e", 2.0, 1), 0);   // factor
  EXPECT_EQ(FWavLoadDroneData("", 24, 1, "e", 0.1, 1), 0);
  EXPECT_EQ(FWavLoadDroneData("", 24, 1, "e", 1.0, 3), 0);   // mode
  EXPECT_EQ(FWavLoadDroneData("", 24, 1, "x", 1.0, 1), 0);   // set
  EXPECT_EQ(FWavLoadDroneData("", 41, 1, "e", 1.0, 1), 0);   // note
  EXPECT_EQ(FWavLoadDroneData("", 24, 1, "e", 1.5000000000000004, 1), 1);
  EXPECT_EQ(FWavLoadDroneData("", 12, 1, "e", 1.0, 2), 1);   // the data-path mode
  const std::string path = scratchFile("d.wav");
  EXPECT_EQ(FWavGenerateDroneFile(0, path, 1), 0);
  EXPECT_EQ(FWavGenerateDroneFile(101, path, 1), 0);
  EXPECT_EQ(FWavGenerateDroneFile(2, path, 3), 0);
  EXPECT_FALSE(fileExists(path));
  ASSERT_EQ(FWavFreeNoteSeedsMemory("e"), 1);
  EXPECT_EQ(FWavLoadDroneData("", 24, 1, "e", 1.0, 1), 0);  // seeds gone
  ASSERT_EQ(FWavSetGlobalVariables("ce"), 1);  // no drone prepared any more
  EXPECT_EQ(FWavGenerateDroneFile(2, path, 1), 0);
  EXPECT_FALSE(fileExists(path));
}

TEST_F(DroneTest, FileHoldsWholeCyclesAndLoopsSeamlessly) {
  const auto x = droneFile(2, 2);
  const size_t cycle = 3200 * 441 / 10;
  ASSERT_EQ(x.size(), 2 * cycle);
  for (size_t n = 500; n < cycle; n += 997) EXPECT_EQ(x[n], x[n + cycle]);
  const double typicalStep = maxStep(x, 1000, cycle - 1000);
  EXPECT_LE(std::fabs(x[cycle] - x[cycle - 1]), typicalStep);
  const auto greeting = droneFile(2, 1);
  EXPECT_LT(std::fabs(greeting.back()), 0.001);
  EXPECT_EQ(greeting.front(), 0.0f);
}

TEST_F(DroneTest, LoudnessFollowsTheFactor) {
  const auto normal = droneFile(1, 2);
  ASSERT_EQ(FWavLoadDroneData("", 24, 1, "e", 0.5, 1), 1);
  const auto soft = droneFile(1, 2);
  EXPECT_NEAR(rms(soft, 0, soft.size()) / rms(normal, 0, normal.size()), 0.5, 0.01);
}

// At tonic 3 the middle Sa is C#3; the low Sa string, plucked at 2133 ms,
// sounds an octave below it, and follows a retuning of the drone set.
TEST_F(DroneTest, LowSaStringSoundsAnOctaveBelowTheMiddleSaAndFollowsATuning) {
  const double lowSaHz = tonvex::seedHz(tonvex::kInstrumentMain, 12) / 2;
  const auto before = droneFile(1, 2);
  EXPECT_NEAR(centsBetween(measureHz(before, at(2300), at(3150), lowSaHz), lowSaHz), 0.0, 5.0);
  ASSERT_EQ(FWavTuneNote("e", 12, -40.0), 1);  // about a semitone up
  ASSERT_EQ(FWavLoadDroneData("", 24, 1, "e", 1.0, 1), 1);
  const auto after = droneFile(1, 2);
  EXPECT_GT(centsBetween(measureHz(after, at(2300), at(3150), lowSaHz * 1.06), lowSaHz), 90.0);
}

TEST_F(DroneTest, BrightnessFallsOverAPluck) {
  const auto x = droneFile(1, 2);
  // The Pa string alone sounds over the start of the cycle (with old tails).
  EXPECT_GT(zeroCrossingRate(x, at(20), at(120)), zeroCrossingRate(x, at(900), at(1000)));
}

TEST_F(DroneTest, UpperHarmonicsBloomAfterTheFundamental) {
  // One string alone (the others silent), plucked at the cycle's start.
  const tonvex::NoteSeed* sa = tonvex::findSeed(*tonvex::findNoteSet("e"), 24);
  ASSERT_NE(sa, nullptr);
  const std::array<tonvex::TanpuraString, 4> strings{
      tonvex::TanpuraString{sa, 6000.0, 0.0, 1.0}, tonvex::TanpuraString{sa, 6000.0, 0.0, 0.0},
      tonvex::TanpuraString{sa, 6000.0, 0.0, 0.0}, tonvex::TanpuraString{sa, 6000.0, 0.0, 0.0}};
  const auto cycle = tonvex::renderTanpuraCycle(strings, 3200 * 441 / 10);
  const double f0 = 44100.0 / sa->effectiveSpc();
  auto peakTimeMs = [&](int k) {
    double best = 0, bestMs = 0;
    for (double ms = 0; ms < 800; ms += 10) {
      const double m = magnitudeAt(cycle, at(ms), at(ms + 40), k * f0);
      if (m > best) best = m, bestMs = ms;
    }
    return bestMs;
  };
  const double fundamentalPeakMs = peakTimeMs(1);
  for (int k = 2; k <= 5; ++k) EXPECT_GT(peakTimeMs(k), fundamentalPeakMs) << "harmonic " << k;
}

}  // namespace
