// Note seeds: the design (pitches, exact periods, harmonium spectrum, just
// ratios and the ONPR corrections that tune the seeds to them), declaring
// sets, loading, freeing and tuning seeds with their bad arguments, and the
// records tonvex-seeds writes for the store, read back the way the store
// tool reads them.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <numbers>
#include <string>
#include <vector>

#include "library_state.h"
#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace {

using namespace tonvex;
using Row = std::map<std::string, std::string>;

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

// Tuning adds up and reloading clears it; absent notes and absurd deltas
// are refused.
TEST_F(SeedOpsTest, TuningAddsUpReloadingClearsItAndBadDeltasAreRefused) {
  ASSERT_EQ(load("c", 12), 1);
  const double stored = spc(12);
  EXPECT_EQ(FWavTuneNote("c", 12, -1.5), 1);
  EXPECT_DOUBLE_EQ(spc(12), stored - 1.5);
  EXPECT_EQ(FWavTuneNote("c", 12, 0.5), 1);
  EXPECT_DOUBLE_EQ(spc(12), stored - 1.0);
  ASSERT_EQ(load("c", 12), 1);
  EXPECT_DOUBLE_EQ(spc(12), stored);
  EXPECT_EQ(FWavTuneNote("c", 13, 0.1), 0);  // not loaded
  EXPECT_EQ(FWavTuneNote("c", 41, 0.1), 0);
  EXPECT_EQ(FWavTuneNote("x", 12, 0.1), 0);
  EXPECT_EQ(FWavTuneNote("c", 12, -spc(12)), 0);
  EXPECT_EQ(FWavTuneNote("c", 12, std::nan("")), 0);
  EXPECT_EQ(FWavTuneNote("c", 12, 0.0), 1);
}

TEST_F(SeedOpsTest, FreeingForgetsTheSetOnly) {
  ASSERT_EQ(load("e", 12), 1);
  ASSERT_EQ(load("c", 12), 1);
  EXPECT_EQ(FWavFreeNoteSeedsMemory("c"), 1);
  EXPECT_EQ(findSeed(*findNoteSet("c"), 12), nullptr);
  EXPECT_NE(findSeed(*findNoteSet("e"), 12), nullptr);
  EXPECT_EQ(FWavFreeNoteSeedsMemory("z"), 0);
}

// Rows by table, from "[Table]" headers and "Column = value" lines.
std::map<std::string, std::vector<Row>> readRecords(const std::string& path) {
  std::map<std::string, std::vector<Row>> tables;
  std::ifstream in(path);
  std::vector<Row>* rows = nullptr;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line.front() == '[' && line.back() == ']') {
      rows = &tables[line.substr(1, line.size() - 2)];
      rows->emplace_back();
    } else if (const size_t eq = line.find(" = "); rows != nullptr && eq != std::string::npos) {
      rows->back()[line.substr(0, eq)] = line.substr(eq + 3);
    }
  }
  return tables;
}

// The tool's output, written once for all tests into the temporary directory.
const std::map<std::string, std::vector<Row>>& records() {
  static const auto tables = [] {
    const std::string path = (std::filesystem::temp_directory_path() /
                              ("tonvex-seeds-" + std::to_string(::getpid()) + ".rec"))
                                 .string();
    const int status = std::system((std::string(TONVEX_SEEDS_TOOL) + " " + path).c_str());
    auto result = status == 0 ? readRecords(path) : std::map<std::string, std::vector<Row>>{};
    std::filesystem::remove(path);
    return result;
  }();
  return tables;
}

TEST(SeedRecordsTest, BothSetsHoldFortyOneNotesWithWholePeriods) {
  ASSERT_TRUE(records().count("Note Specifications"));
  const auto& specs = records().at("Note Specifications");
  ASSERT_EQ(specs.size(), 82u);
  size_t expectedSamples = 0;
  for (const Row& row : specs) {
    EXPECT_TRUE(row.at("Instr Name") == "c" || row.at("Instr Name") == "e");
    const int type = row.at("Instr Name") == "c" ? tonvex::kInstrumentMain : tonvex::kInstrumentDrone;
    const double spc = std::stod(row.at("SamPerCyc")) + std::stod(row.at("Fractional Value"));
    EXPECT_NEAR(spc, 44100.0 / tonvex::seedHz(type, std::stoi(row.at("Note Id"))), 1e-6);
    expectedSamples += std::stoul(row.at("SamPerCyc")) + 1;
  }
  const auto& samples = records().at("Sample Values");
  EXPECT_EQ(samples.size(), expectedSamples);
  EXPECT_EQ(samples.front().at("Sample Id"), "0");
  EXPECT_EQ(samples.front().size(), 4u);
}

TEST(SeedRecordsTest, TuningRowsCoverEveryTonicAndInstrument) {
  ASSERT_TRUE(records().count("ONPR"));
  const auto& sets = records().at("ONPRSets");
  const auto& onpr = records().at("ONPR");
  ASSERT_EQ(sets.size(), 24u);
  ASSERT_EQ(onpr.size(), 24u);
  for (const Row& row : sets) EXPECT_EQ(row.size(), 2u + 27u);
  for (const Row& row : onpr) {
    EXPECT_EQ(row.size(), 4u + 27u);
    EXPECT_EQ(row.at("NPSetId"), row.at("TonicNoteId"));
    EXPECT_EQ(row.at("07"), "0");  // the middle Sa keeps its seed's tuning
  }
  EXPECT_EQ(onpr.front().at("NPSetName"), "NV Scale White-7 (B)");
  EXPECT_EQ(sets.front().at("26"), "3");
}

}  // namespace
