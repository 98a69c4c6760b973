// Music files measured: pitch of tuned notes, length, loudness, joins without
// clicks, grace notes, no clipping, and bad input that leaves no file.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cmath>
#include <filesystem>
#include <sstream>

#include "audio_measure.h"
#include "render_setup.h"
#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace {

using namespace tonvex_test;

int wordCount(const std::string& text) {
  std::istringstream in(text);
  int n = 0;
  for (std::string w; in >> w;) ++n;
  return n;
}

int16_t makeMusic(const std::string& notes, const std::string& durations, const std::string& out,
                 int droneMix = 0, double level = 0.2, int synthVolume = 1) {
  return FWavGenerateMusicFile(wordCount(notes), notes, durations, out, droneMix, level,
                               synthVolume, 1000, 60, 80, 50);
}

std::vector<float> render(const std::string& notes, const std::string& durations,
                          int droneMix = 0, double level = 0.2) {
  const std::string path = scratchFile("m.wav");
  EXPECT_EQ(makeMusic(notes, durations, path, droneMix, level), 1);
  return readSamples(path);
}

class MusicTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(tonvex_render::setUpLibrary({3, 1, 1.0, ""}), ""); }
};

struct PitchCase {
  int tonicId;
  int noteId;  // 0 to 35, "S" is 12
};

class MusicPitchTest : public ::testing::TestWithParam<PitchCase> {};

TEST_P(MusicPitchTest, NoteSoundsItsJustRatioWithinTwoCents) {
  const PitchCase c = GetParam();
  ASSERT_EQ(tonvex_render::setUpLibrary({c.tonicId, 1, 1.0, ""}), "");
  const int absolute = c.noteId + c.tonicId - 3;
  const double expectedHz =
      tonvex::seedHz(tonvex::kInstrumentMain, c.tonicId + 9) * tonvex::justRatio(c.noteId - 12);
  const std::string token = (absolute < 10 ? "0" : "") + std::to_string(absolute);
  const auto x = render(token, "1000");
  ASSERT_EQ(x.size(), 44100u);
  EXPECT_NEAR(centsBetween(measureHz(x, at(200), at(900), expectedHz), expectedHz), 0.0, 2.0);
}

INSTANTIATE_TEST_SUITE_P(Tonics, MusicPitchTest,
                         ::testing::Values(PitchCase{3, 12}, PitchCase{3, 13}, PitchCase{3, 16},
                                           PitchCase{3, 18}, PitchCase{3, 19}, PitchCase{3, 22},
                                           PitchCase{3, 23}, PitchCase{3, 24}, PitchCase{3, 5},
                                           PitchCase{3, 31}, PitchCase{1, 12}, PitchCase{1, 19},
                                           PitchCase{2, 17}, PitchCase{7, 20}, PitchCase{12, 12},
                                           PitchCase{12, 16}, PitchCase{11, 9}),
                         [](const ::testing::TestParamInfo<PitchCase>& param) {
                           return "Tonic" + std::to_string(param.param.tonicId) + "Note" +
                                  std::to_string(param.param.noteId);
                         });

TEST_F(MusicTest, LengthIsTheSumOfDurationsWithinOneMillisecond) {
  const char* const cases[][2] = {{"12", "1000"},
                                  {"12 14 16", "333.3 333.3 333.4"},
                                  {"12 1416 16", "12.5 250 37.5"},
                                  {"12 12 12", "1 1 1"},
                                  {"12  14", "150 150"}};
  for (const auto& c : cases) {
    double totalMs = 0;
    std::istringstream in(c[1]);
    for (double d; in >> d;) totalMs += d;
    const auto x = render(c[0], c[1]);
    EXPECT_NEAR(x.size() / 44.1, totalMs, 1.0) << c[1];
  }
}

TEST_F(MusicTest, LoudnessFollowsLevel) {
  const auto normal = render("12", "1000", 0, 0.2);
  const auto loud = render("12", "1000", 0, 1.0);
  const double normalRms = rms(normal, at(200), at(800));
  EXPECT_GT(normalRms, 0.05);
  EXPECT_LT(normalRms, 0.4);
  EXPECT_NEAR(rms(loud, at(200), at(800)) / normalRms, 1.5, 0.05);
  EXPECT_EQ(rms(render("12", "1000", 0, 0.0), 0, 44100), 0.0);
}

TEST_F(MusicTest, JoinsAndEndsDoNotClick) {
  const std::string notes = "12 14 16 17 2419 21 23 24 0924 12";
  const auto x = render(notes, "300 300 300 300 300 300 300 300 300 300", 1);
  double sustainStep = 0;
  for (int i = 0; i < 10; ++i) sustainStep = std::max(sustainStep, maxStep(x, at(300 * i + 120), at(300 * i + 280)));
  for (int i = 1; i < 10; ++i)
    EXPECT_LE(maxStep(x, at(300 * i - 15), at(300 * i + 15)), 1.5 * sustainStep) << "join " << i;
  EXPECT_LT(std::fabs(x.front()), 0.002);
  EXPECT_LT(std::fabs(x.back()), 0.01);
}

TEST_F(MusicTest, GraceNoteLeadsIntoTheMainNote) {
  const double saHz = tonvex::seedHz(tonvex::kInstrumentMain, 12);
  const auto x = render("2412", "600");
  EXPECT_NEAR(centsBetween(measureHz(x, at(5), at(60), 2 * saHz), 2 * saHz), 0.0, 5.0);
  EXPECT_NEAR(centsBetween(measureHz(x, at(200), at(580), saHz), saHz), 0.0, 2.0);
}

TEST_F(MusicTest, LoudestMixIsLimitedBelowFullScale) {
  const std::string path = scratchFile("loud.wav");
  ASSERT_EQ(makeMusic("02 0714 12", "1000 1000 1000", path, 2, 1.0, 4), 1);
  const auto x = readSamples(path);
  double peak = 0;
  for (float s : x) peak = std::max(peak, double(std::fabs(s)));
  EXPECT_LE(peak, 0.971);
  EXPECT_GT(peak, 0.9);
}

TEST_F(MusicTest, DroneSoundsUnderTheMelodyOnlyWhenAsked) {
  const auto plain = render("12", "3200", 0, 0.0);
  const auto practice = render("12", "3200", 2, 0.0);
  const auto demo = render("12", "3200", 1, 0.0);
  EXPECT_EQ(rms(plain, 0, plain.size()), 0.0);
  EXPECT_NEAR(rms(practice, 0, practice.size()) / rms(demo, 0, demo.size()), 1.6, 0.01);
}

struct BadCall {
  const char* what;
  int count;
  const char* notes;
  const char* durations;
  int droneMix = 0;
  double level = 0.2;
  int synthVolume = 1;
  int envelope[4] = {1000, 60, 80, 50};
};

TEST_F(MusicTest, BadInputFailsAndLeavesNoFile) {
  const BadCall calls[] = {
      {"unknown token", 2, "12 ab", "100 100"},
      {"three digits", 1, "123", "100"},
      {"note 41", 1, "41", "100"},
      {"grace note 41", 1, "4112", "100"},
      {"count above tokens", 3, "12 14", "100 100 100"},
      {"count below tokens", 1, "12 14", "100 100"},
      {"missing duration", 2, "12 14", "100"},
      {"zero duration", 2, "12 14", "100 0"},
      {"sub-millisecond duration", 1, "12", "0.5"},
      {"absurd duration", 1, "12", "70000"},
      {"absurd total", 11, "12 12 12 12 12 12 12 12 12 12 12",
       "60000 60000 60000 60000 60000 60000 60000 60000 60000 60000 60000"},
      {"negative duration", 1, "12", "-100"},
      {"no notes", 0, "", ""},
      {"drone mix 3", 1, "12", "100", 3},
      {"level above 1", 1, "12", "100", 0, 1.5},
      {"negative level", 1, "12", "100", 0, -0.2},
      {"synth volume 0", 1, "12", "100", 0, 0.2, 0},
      {"peak 0", 1, "12", "100", 0, 0.2, 1, {0, 60, 80, 50}},
      {"sustain above 100", 1, "12", "100", 0, 0.2, 1, {1000, 60, 101, 50}},
      {"negative release", 1, "12", "100", 0, 0.2, 1, {1000, 60, 80, -1}},
  };
  for (const BadCall& c : calls) {
    const std::string path = scratchFile("bad.wav");
    EXPECT_EQ(FWavGenerateMusicFile(c.count, c.notes, c.durations, path, c.droneMix, c.level,
                                    c.synthVolume, c.envelope[0], c.envelope[1], c.envelope[2],
                                    c.envelope[3]),
              0)
        << c.what;
    EXPECT_FALSE(fileExists(path)) << c.what;
    EXPECT_FALSE(fileExists(path + ".part")) << c.what;
  }
}

TEST_F(MusicTest, UnwritableOutputFails) {
  const std::string path = scratchFile("no-such-dir") + "/a.wav";
  EXPECT_EQ(makeMusic("12", "100", path), 0);
  EXPECT_FALSE(fileExists(path));
}

// Seen in the field: run as root, "-o /dev/full" put a wave file in the
// device's place. A pipe stands in for the device here.
TEST_F(MusicTest, AnOutputThatIsNotARegularFileIsNeverReplaced) {
  const std::string pipe = scratchFile("pipe.wav");
  std::filesystem::remove(pipe);
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(makeMusic("12", "100", pipe), 0);
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
  EXPECT_FALSE(fileExists(pipe + ".part"));
  std::filesystem::remove(pipe);
}

TEST_F(MusicTest, MissingSeedsAndDroneFail) {
  const std::string path = scratchFile("a.wav");
  ASSERT_EQ(FWavFreeNoteSeedsMemory("c"), 1);
  EXPECT_EQ(makeMusic("12", "100", path), 0);
  ASSERT_EQ(FWavSetGlobalVariables("ce"), 1);  // forgets the drone as well
  ASSERT_EQ(FWavSetCurrInstr("c"), 1);
  EXPECT_EQ(makeMusic("12", "100", path, 1), 0);
  EXPECT_FALSE(fileExists(path));
}

}  // namespace
