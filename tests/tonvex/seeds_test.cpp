// Note seeds: the corrections that tune every note of every tonic to its
// just ratio, in the ONPR columns and outside them. (The seeds' absolute
// pitch and the just ratios themselves are measured on the built store, in
// rendered notes, in sound/, where loading, tuning and freeing seeds and
// their failures are driven as the program drives them.)
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "audio_measure.h"
#include "seed_bank.h"
#include "tonvex/seed_design.h"

namespace {

using namespace tonvex;

double cents(double ratio) { return 1200.0 * std::log2(ratio); }

// Just ratios to Sa by semitone, independent of the seed design's table.
constexpr double kJust[12] = {1.0, 16.0 / 15, 9.0 / 8, 6.0 / 5, 5.0 / 4, 4.0 / 3,
                              45.0 / 32, 3.0 / 2, 8.0 / 5, 5.0 / 3, 9.0 / 5, 15.0 / 8};

// Every note 0 to 40, inside the 27 columns or outside them (tuned by the
// octave, as tonvex-render tunes them), at every tonic.
TEST(SeedDesignTest, CorrectionsTuneEveryNoteToItsRatio) {
  for (int tonic = 1; tonic <= 12; ++tonic)
    for (int type : {kInstrumentMain, kInstrumentDrone}) {
      const auto columns = onprCorrections(tonic, type);
      const double saHz = seedHz(kInstrumentMain, tonic + 9) / (type == kInstrumentDrone ? 2 : 1);
      for (int note = 0; note <= 40; ++note) {
        SCOPED_TRACE(testing::Message() << "tonic " << tonic << " type " << type << " note " << note);
        const int semitones = note - tonic - 9, octave = int(std::floor(semitones / 12.0));
        const double ratio = kJust[semitones - 12 * octave] * std::exp2(octave);
        const double correction = justCorrection(tonic, type, note);
        const double tunedHz = 44100.0 / (44100.0 / seedHz(type, note) + correction);
        EXPECT_NEAR(cents(tunedHz / (saHz * ratio)), 0.0, 0.01);
        EXPECT_LT(std::fabs(cents(tunedHz / seedHz(type, note))), 20.0);
        const int column = note - tonic - 2;
        if (column >= 0 && column < kOnprColumns) {
          EXPECT_EQ(columns[size_t(column)], correction);
        }
      }
      for (int column = 41 - tonic - 2; column < kOnprColumns; ++column)
        EXPECT_EQ(columns[size_t(column)], 0.0) << "no note above 40";
    }
}

// The build's seed bank holds the designed seeds exactly; a bank with one
// byte altered or cut short is refused (the renderer then makes the seeds).
TEST(SeedBankTest, TheBuildsBankHoldsTheDesignedSeedsAndADamagedOneIsRefused) {
  const auto bank = tonvex_render::readSeedBank(TONVEX_SEED_BANK);
  ASSERT_TRUE(bank);
  const auto designed = tonvex_render::designedSeedBank();
  for (size_t type = 0; type < 2; ++type)
    for (size_t note = 0; note <= 40; ++note) {
      const SeedSpec &a = bank->sets[type][note], &b = designed.sets[type][note];
      EXPECT_TRUE(a.samPerCyc == b.samPerCyc && a.fractional == b.fractional && a.samples == b.samples)
          << type << " " << note;
    }
  const std::string damaged = tonvex_test::scratchFile("damaged.bank");
  for (const auto& [at, cut] : {std::pair{std::uintmax_t(500), false}, {std::uintmax_t(30000), true}}) {
    std::filesystem::copy_file(TONVEX_SEED_BANK, damaged, std::filesystem::copy_options::overwrite_existing);
    if (cut) {
      std::filesystem::resize_file(damaged, at);
    } else {
      std::fstream f(damaged, std::ios::in | std::ios::out | std::ios::binary);
      f.seekg(std::streamoff(at));
      const char byte = char(f.get());
      f.seekp(std::streamoff(at));
      f.put(char(byte ^ 0x55));
    }
    EXPECT_FALSE(tonvex_render::readSeedBank(damaged)) << at;
  }
}

}  // namespace
