// Tabla kits: loading the built kit, rejecting damaged ones, the Na stroke's
// harmonic modes, and strokes placed by theka tokens.
#include <gtest/gtest.h>

#include <cmath>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "audio_measure.h"
#include "pcm.h"
#include "render_setup.h"
#include "tabla_kit.h"
#include "tabla_synth.h"
#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace {

using namespace tonvex_test;

std::string readText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

class ThekaTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(tonvex_render::setUpLibrary({3, 1, 1.0, TONVEX_KIT_FILE}), ""); }
  int16_t makeMusic(const std::string& notes, const std::string& durations, const std::string& theka,
                   int beatMs, const std::string& out, double level = 0.0) {
    std::istringstream in(notes);
    int count = 0;
    for (std::string w; in >> w;) ++count;
    return FWavGenerateMusicFile1(count, notes, durations, 1, 16, theka, 4, beatMs, out, 0, level,
                                  1, 1000, 60, 80, 50);
  }
};

TEST_F(ThekaTest, DamagedOrMissingKitFilesFail) {
  const std::string good = readText(TONVEX_KIT_FILE);
  const std::string path = scratchFile("kit.nvy");
  std::string altered = good;
  altered[good.size() / 2] ^= 1;
  for (const std::string& text : {altered, good.substr(0, good.size() - 5), std::string()}) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
    EXPECT_EQ(FWavLoadThekaData(path, 4), 0);
  }
  EXPECT_EQ(FWavLoadThekaData(scratchFile("absent.nvy"), 4), 0);
  EXPECT_EQ(FWavLoadThekaData(TONVEX_KIT_FILE, 0), 0);
  std::ofstream(path, std::ios::binary | std::ios::trunc) << good;
  EXPECT_EQ(FWavLoadThekaData(path, 4), 1);
}

TEST(ThekaKitTest, BothKitFilesAreSealedAndComplete) {
  for (const char* path : {TONVEX_KIT_FILE, TONVEX_PA_KIT_FILE}) {
    const std::string file = readText(path);
    const auto body = tonvex::unsealKitText(file);
    ASSERT_TRUE(body) << path;
    std::string error;
    const auto kit = tonvex::parseKitText(*body, error);
    ASSERT_TRUE(kit) << path << ": " << error;
    EXPECT_EQ(kit->bols.size(), 20u);
    EXPECT_EQ(kit->bols[15].hits.size(), 4u) << "Tirakita";
  }
  std::string error;
  EXPECT_DOUBLE_EQ(tonvex::parseKitText(*tonvex::unsealKitText(readText(TONVEX_PA_KIT_FILE)), error)
                       ->dayanRatio, 1.5);
}

TEST(ThekaKitTest, SourceErrorsNameTheProblem) {
  const std::string source = readText(TONVEX_KIT_SOURCE);
  std::string error;
  ASSERT_TRUE(tonvex::parseKitText(source, error)) << error;
  struct Breakage {
    std::string from, to;
    const char* told;  // a part of the error
  };
  const Breakage breakages[] = {
      {"bol 20 Dhet Te@0 Ge@0\n", "", "bol 20 is not defined"},
      {"bol 5 Na Na@0", "bol 5 Na Nope@0", "cannot read"},
      {"mode 1.0 1.0 350 0.8", "mode 1.0 1.0 -350 0.8", "mode decay ms -350 is out of range"},
      {"dayan 2.0", "dayan two", "cannot read"},
      {"tonvex-kit 1", "tonvex-kit 2", "line 7"},
      // Seen in the field: numbers that overflowed a stroke's length or its
      // samples.
      {"click 3 0.35 5000", "click 4.4e63 0.25 4000",
       "click ms 4.4e+63 is out of range (0.1 to 1200) in \"click 4.4e63"},
      {"mode 1.0 1.0 350 0.8", "mode 1.0 7.7e100 350 0.8",
       "mode amplitude 7.7e+100 is out of range"},
      {"bayan 0.6", "bayan 0", "bayan ratio 0 is out of range"},
      {"bol 5 Na Na@0", "bol 5 Na Na@0*1e9", "hit gain 1e+09 is out of range"},
  };
  for (const auto& [from, to, told] : breakages) {
    std::string broken = source;
    broken.replace(broken.find(from), from.size(), to);
    EXPECT_FALSE(tonvex::parseKitText(broken, error)) << to;
    EXPECT_NE(error.find(told), std::string::npos) << to << " -> " << error;
  }
}

// A voice made in code, not read from a kit, with the numbers that once gave
// a float overflow and NaN strokes: it is clamped to the kit's ranges.
TEST(ThekaKitTest, AVoiceOutsideTheKitRangesIsClampedNotOverflowed) {
  tonvex::KitVoice voice;
  voice.modes = {{1.0, 7.7e100, 350, 0.8}, {2.0, 0.5, 1e300, 0}};
  voice.clickMs = 4.4e63;
  voice.clickAmplitude = 0.25;
  voice.clickLowpassHz = 4000;
  const auto stroke = tonvex::renderKitVoice(voice, 200.0);
  EXPECT_LE(stroke.size(), size_t(tonvex::kMaxStrokeMs) * tonvex::kSampleRate / 1000 + 1);
  for (float s : stroke) ASSERT_TRUE(std::isfinite(s));
  EXPECT_GT(tonvex::peakOf(stroke), 1.0f);  // a loud stroke, not silence
}

TEST(ThekaKitTest, NaRingsOnTheHarmonicsOfTheDayan) {
  std::string error;
  const auto kit = tonvex::parseKitText(readText(TONVEX_KIT_SOURCE), error);
  ASSERT_TRUE(kit);
  const double saHz = tonvex::seedHz(tonvex::kInstrumentMain, 12);
  const double dayanHz = saHz * kit->dayanRatio;
  const auto strokes = tonvex::renderKitVoices(*kit, saHz);
  const auto& na = strokes[0];  // the first voice of the kit is Na
  for (int k = 1; k <= 5; ++k) {
    double bestHz = 0, best = 0;
    for (double hz = k * dayanHz * 0.97; hz <= k * dayanHz * 1.03; hz += 0.2) {
      const double m = magnitudeAt(na, 0, at(500), hz);
      if (m > best) best = m, bestHz = hz;
    }
    EXPECT_NEAR(bestHz / (k * dayanHz), 1.0, 0.01) << "harmonic " << k;
    if (k == 1) {
      EXPECT_NEAR(centsBetween(bestHz, dayanHz), 0.0, 5.0);
    }
  }
}

TEST_F(ThekaTest, StrokesFallWhereTheTokensSay) {
  const std::string path = scratchFile("t.wav");
  ASSERT_EQ(makeMusic("12 14", "1000 1000", "0 1/5/0.5", 500, path), 1);
  const auto x = readSamples(path);
  size_t onset = 0;
  while (onset < x.size() && std::fabs(x[onset]) < 1e-3) ++onset;
  EXPECT_NEAR(onset / 44.1, 1250.0, 2.0);
}

TEST_F(ThekaTest, TirakitaStrikesFourTimesInOneBeat) {
  const std::string path = scratchFile("t.wav");
  ASSERT_EQ(makeMusic("12", "2000", "1/16/0", 800, path), 1);
  const auto x = readSamples(path);
  EXPECT_GT(rms(x, at(1), at(20)), 0.01);
  for (double ms : {200.0, 400.0, 600.0})
    EXPECT_GT(rms(x, at(ms + 1), at(ms + 20)), 10 * rms(x, at(ms - 15), at(ms - 1))) << "stroke at " << ms;
}

TEST_F(ThekaTest, EveryBolSounds) {
  for (int bol = 1; bol <= 20; ++bol) {
    const std::string path = scratchFile("b.wav");
    ASSERT_EQ(makeMusic("12", "1000", "1/" + std::to_string(bol) + "/0", 600, path), 1) << bol;
    EXPECT_GT(rms(readSamples(path), 0, at(300)), 0.005) << "bol " << bol;
  }
}

TEST_F(ThekaTest, BadThekaInputFailsAndLeavesNoFile) {
  struct Case {
    const char* what;
    const char* theka;
    int beatMs;
  } const cases[] = {{"token count", "0", 500},    {"bol 21", "0 1/21/0", 500},
                     {"malformed", "0 1/5", 500},  {"beat 0 ms", "0 0", 0},
                     {"absurd beat", "0 0", 20000}};
  for (const Case& c : cases) {
    const std::string path = scratchFile("bad.wav");
    EXPECT_EQ(makeMusic("12 14", "500 500", c.theka, c.beatMs, path), 0) << c.what;
    EXPECT_FALSE(fileExists(path)) << c.what;
  }
  const std::string path = scratchFile("bad.wav");
  EXPECT_EQ(FWavGenerateMusicFile1(1, "12", "500", 5, 4, "0", 4, 500, path, 0, 0.2, 1, 1000, 60,
                                   80, 50), 0);  // start beat after the cycle
  EXPECT_EQ(FWavGenerateMusicFile1(1, "12", "500", 1, 16, "0", 3, 500, path, 0, 0.2, 1, 1000, 60,
                                   80, 50), 0);  // not the loaded kit's number
  ASSERT_EQ(FWavSetGlobalVariables("ce"), 1);   // no kit loaded any more
  EXPECT_EQ(makeMusic("12", "500", "0", 500, path), 0);
  EXPECT_FALSE(fileExists(path));
}

}  // namespace
