// Files the library renders, measured: music (length with fractional
// durations, loudness by level and drone mix, joins and ends without
// clicks, the grace note's pitch, the limiter, a steady and even harmonium,
// re-struck repeated notes), segments with faded ends, the tanpura drone
// (whole seamless cycles, loudness, the low Sa string's pitch, the jawari's
// band, varied cycles) and the tabla (kits, strokes where the theka tokens
// put them, the crack, the accented sam, varied strokes); and bad input that
// leaves no file. (Pitch of tuned notes and file lengths against the
// display's times are measured on the built store in sound/.)
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <numeric>
#include <fstream>
#include <sstream>

#include "audio_measure.h"
#include "pcm.h"
#include "render_setup.h"
#include "tabla_kit.h"
#include "tabla_synth.h"
#include "tonvex/tonvex.h"
#include "../support/helpers.h"

namespace {

using namespace tonvex_test;

constexpr double kSaHz = 138.5913;         // C#3, the middle Sa at tonic 3
constexpr size_t kCycle = 3200 * 441 / 10;  // samples in one drone cycle of 3200 ms

// The library as the application sets it up at tonic 3, with the tabla kit.
class RenderTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(tonvex_render::setUpLibrary({3, 1, 1.0, TONVEX_KIT_FILE, TONVEX_SEED_BANK}), ""); }
  static int16_t make(int count, const std::string& notes, const std::string& durations, const std::string& out,
                      int droneMix = 0, double level = 0.2, int synthVolume = 1) {
    return FWavGenerateMusicFile(count, notes, durations, out, droneMix, level, synthVolume, 1000, 60, 80, 50);
  }
  static std::vector<float> render(int count, const std::string& notes, const std::string& durations,
                                   int droneMix = 0, double level = 0.2) {
    const std::string path = scratchFile("m.wav");
    EXPECT_EQ(make(count, notes, durations, path, droneMix, level), 1);
    return readSamples(path);
  }
  // One Sa per duration with the theka at beatMs a beat; no file on failure.
  static std::vector<float> renderTheka(const std::string& durations, const std::string& theka, int beatMs,
                                        int16_t expected = 1) {
    std::istringstream in(durations);
    std::string notes;
    int count = 0;
    for (std::string w; in >> w; ++count) notes += "12 ";
    const std::string path = scratchFile("t.wav");
    EXPECT_EQ(FWavGenerateMusicFile1(count, notes, durations, 1, 16, theka, 4, beatMs, path, 0, 0.0, 1, 1000,
                                     60, 80, 50), expected) << theka;
    if (expected == 0) { EXPECT_FALSE(fileExists(path)) << theka; }
    return readSamples(path);
  }
  static std::vector<float> droneFile(int cycles, int mode) {
    const std::string path = scratchFile("d.wav");
    EXPECT_EQ(FWavGenerateDroneFile(cycles, path, mode), 1);
    return readSamples(path);
  }
};

TEST_F(RenderTest, LengthAndLoudnessFollowDurationsLevelAndDroneMix) {
  const auto normal = render(3, "12 1416  14", "333.3 333.3 333.4", 0, 0.2);
  EXPECT_NEAR(normal.size() / 44.1, 1000.0, 1.0);
  const double normalRms = rms(normal, at(100), at(900));
  EXPECT_GT(normalRms, 0.05);
  EXPECT_LT(normalRms, 0.4);
  const auto loud = render(3, "12 1416  14", "333.3 333.3 333.4", 0, 1.0);
  EXPECT_NEAR(rms(loud, at(100), at(900)) / normalRms, 1.5, 0.05);
  // At level 0 only the drone sounds: none, Demo's (1) or Practice's (2).
  // (Over three cycles: the whole drone loop, whatever its phase.)
  const auto plain = render(1, "12", "9600", 0, 0.0);
  const auto demo = render(1, "12", "9600", 1, 0.0);
  const auto practice = render(1, "12", "9600", 2, 0.0);
  EXPECT_EQ(rms(plain, 0, plain.size()), 0.0);
  EXPECT_NEAR(rms(practice, 0, practice.size()) / rms(demo, 0, demo.size()), 1.6, 0.01);
}

TEST_F(RenderTest, JoinsAndEndsDoNotClickAndTheGraceNoteLeadsIn) {
  const auto x = render(10, "12 14 16 17 2419 21 23 24 0924 12", "300 300 300 300 300 300 300 300 300 300", 1);
  double sustainStep = 0;
  for (int i = 0; i < 10; ++i) sustainStep = std::max(sustainStep, maxStep(x, at(300 * i + 120), at(300 * i + 280)));
  for (int i = 1; i < 10; ++i)
    EXPECT_LE(maxStep(x, at(300 * i - 15), at(300 * i + 15)), 1.5 * sustainStep) << "join " << i;
  // The melody fades in and out at the file's edges (the drone runs on).
  const auto melody = render(3, "12 14 16", "300 300 300");
  EXPECT_LT(std::fabs(melody.front()), 0.002);
  EXPECT_LT(std::fabs(melody.back()), 0.01);
  const auto grace = render(1, "2412", "600");
  EXPECT_NEAR(centsBetween(measureHz(grace, at(5), at(60), 2 * kSaHz), 2 * kSaHz), 0.0, 5.0);
  EXPECT_NEAR(centsBetween(measureHz(grace, at(200), at(580), kSaHz), kSaHz), 0.0, 2.0);
}

// Files made one after another carry the drone on: two of them joined are,
// sample for sample, the one file of their joint length, so a player that
// plays them back to back hears one unbroken drone; a new drone begins at
// the start of its cycle.
TEST_F(RenderTest, SuccessiveFilesCarryTheDroneOn) {
  const auto freshDrone = [] {
    ASSERT_EQ(FWavLoadDroneData("", 24, 3, "e", 1.0, 1), 1);
    ASSERT_EQ(FWavLoadDroneData("", 24, 1, "e", 1.0, 1), 1);
  };
  freshDrone();
  const auto whole = render(1, "12", "3234", 1, 0.0);
  freshDrone();
  auto joined = render(1, "12", "1234", 1, 0.0);
  const auto second = render(1, "12", "2000", 1, 0.0);
  joined.insert(joined.end(), second.begin(), second.end());
  EXPECT_EQ(joined, whole);
}

TEST_F(RenderTest, LoudestMixIsLimitedBelowFullScale) {
  const std::string path = scratchFile("loud.wav");
  ASSERT_EQ(make(3, "02 0714 12", "1000 1000 1000", path, 2, 1.0, 4), 1);
  double peak = 0;
  for (float s : readSamples(path)) peak = std::max(peak, double(std::fabs(s)));
  EXPECT_LE(peak, 0.971);
  EXPECT_GT(peak, 0.9);
}

// Seen in the field: run as root, "-o /dev/full" put a wave file in the
// device's place. A pipe stands in for the device here.
TEST_F(RenderTest, AnOutputThatIsNotARegularFileIsNeverReplaced) {
  const std::string pipe = scratchFile("pipe.wav");
  std::filesystem::remove(pipe);
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(make(1, "12", "100", pipe), 0);
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
  EXPECT_FALSE(std::filesystem::exists(pipe + ".part"));
  std::filesystem::remove(pipe);
}

TEST_F(RenderTest, BadMusicInputFailsAndLeavesNoFile) {
  std::string hourNotes = "12", hourDurations = "60000";  // 61 minutes: past the limit
  for (int i = 1; i < 61; ++i) hourNotes += " 12", hourDurations += " 60000";
  const struct { const char* what; int count; const char *notes, *durations; int droneMix = 0; double level = 0.2;
  } calls[] = {
      {"count above tokens", 3, "12 14", "100 100 100"},  {"zero duration", 2, "12 14", "100 0"},
      {"absurd duration", 1, "12", "70000"},               {"no notes", 0, "", ""},
      {"over an hour", 61, hourNotes.c_str(), hourDurations.c_str()},
      {"drone mix 3", 1, "12", "100", 3},                  {"level above 1", 1, "12", "100", 0, 1.5}};
  const std::string path = scratchFile("bad.wav");
  for (const auto& c : calls) {
    EXPECT_EQ(make(c.count, c.notes, c.durations, path, c.droneMix, c.level), 0) << c.what;
    EXPECT_FALSE(fileExists(path) || fileExists(path + ".part")) << c.what;
  }
  ASSERT_EQ(FWavSetGlobalVariables("ce"), 1);  // forgets the seeds and the drone
  ASSERT_EQ(FWavSetCurrInstr("c"), 1);
  EXPECT_EQ(make(1, "12", "100", path), 0);
  EXPECT_EQ(make(1, "12", "100", path, 1), 0);
  EXPECT_FALSE(fileExists(path));
}

TEST_F(RenderTest, SegmentsCopyTheStretchWithFadedEndsAndRefuseBadRequests) {
  const std::string source = scratchFile("source.wav"), out = scratchFile("seg.wav");
  ASSERT_EQ(make(3, "12 16 19", "1000 1000 1000", source, 1), 1);
  ASSERT_EQ(FWavCreateSegmentFile(source, 1000, 1500, out, 2, 0.2), 1);
  const auto whole = readSamples(source), part = readSamples(out);
  ASSERT_EQ(part.size(), at(1500));
  EXPECT_EQ(part.front(), 0.0f);
  EXPECT_EQ(part.back(), 0.0f);
  for (size_t n = 300; n < part.size() - 300; n += 1001) EXPECT_EQ(part[n], whole[at(1000) + n]);
  ASSERT_EQ(FWavCreateSegmentFile(source, 2000, 1001, out, 2, 0.2), 1);
  EXPECT_EQ(readSamples(out).size(), at(1000)) << "up to 1 ms past the end is trimmed";
  const struct { const char* what; std::string from; int startMs, lengthMs, droneMix; double level; } bad[] = {
      {"missing source", scratchFile("absent.wav"), 0, 100, 2, 0.2}, {"beyond the end", source, 2500, 600, 2, 0.2},
      {"zero length", source, 0, 0, 2, 0.2},                          {"level", source, 0, 100, 2, 3.0}};
  for (const auto& c : bad) {
    const std::string file = scratchFile("bad-seg.wav");
    EXPECT_EQ(FWavCreateSegmentFile(c.from, c.startMs, c.lengthMs, file, c.droneMix, c.level), 0) << c.what;
    EXPECT_FALSE(fileExists(file)) << c.what;
  }
}

TEST_F(RenderTest, BadDroneArgumentsFailAndLeaveNoFile) {
  const std::string path = scratchFile("d.wav");
  const struct { const char* what; int got, expected; } calls[] = {
      {"factor 2", FWavLoadDroneData("", 24, 1, "e", 2.0, 1), 0},
      {"factor a rounding above 1.5", FWavLoadDroneData("", 24, 1, "e", 1.5000000000000004, 1), 1},
      {"the data-path mode", FWavLoadDroneData("", 12, 1, "e", 1.0, 2), 1},
      {"no cycles", FWavGenerateDroneFile(0, path, 1), 0},
      {"forget the drone", FWavSetGlobalVariables("ce"), 1},
      {"no drone prepared", FWavGenerateDroneFile(2, path, 1), 0},
  };
  for (const auto& c : calls) EXPECT_EQ(c.got, c.expected) << c.what;
  EXPECT_FALSE(fileExists(path));
}

TEST_F(RenderTest, DroneFileHoldsWholeCyclesLoopsSeamlesslyAndFollowsTheFactor) {
  const auto x = droneFile(2, 2);
  ASSERT_EQ(x.size(), 2 * kCycle);
  EXPECT_LE(std::fabs(x[kCycle] - x[kCycle - 1]), maxStep(x, 1000, kCycle - 1000));
  EXPECT_LE(std::fabs(x.front() - x.back()), maxStep(x, 1000, kCycle - 1000)) << "looped, the end runs on";
  const auto greeting = droneFile(2, 1);
  EXPECT_LT(std::fabs(greeting.back()), 0.001);
  EXPECT_EQ(greeting.front(), 0.0f);
  ASSERT_EQ(FWavLoadDroneData("", 24, 1, "e", 0.5, 1), 1);
  const auto soft = droneFile(1, 2);
  EXPECT_NEAR(rms(soft, 0, kCycle) / rms(x, 0, kCycle), 0.5, 0.01);
}

// The low Sa string, plucked at 2133 ms, sounds an octave below the middle
// Sa and follows a retuning of the drone set; the Pa string alone sounds
// over the start of the cycle (with old tails), its brightness falling.
TEST_F(RenderTest, TheLowSaStringSoundsAnOctaveBelowSaAndFollowsATuning) {
  const double lowSaHz = kSaHz / 2;
  const auto before = droneFile(1, 2);
  EXPECT_NEAR(centsBetween(measureHz(before, at(2300), at(3150), lowSaHz), lowSaHz), 0.0, 5.0);
  EXPECT_GT(zeroCrossingRate(before, at(20), at(120)), zeroCrossingRate(before, at(900), at(1000)));
  ASSERT_EQ(FWavTuneNote("e", 12, -40.0), 1);  // about a semitone up
  ASSERT_EQ(FWavLoadDroneData("", 24, 1, "e", 1.0, 1), 1);
  const auto after = droneFile(1, 2);
  EXPECT_GT(centsBetween(measureHz(after, at(2300), at(3150), lowSaHz * 1.06), lowSaHz), 90.0);
}

// After each pluck the jawari band (2 to 6 kHz) blooms and falls, with
// partials up to 8 kHz and beyond; no cycle repeats the one before it, and
// the loop's seam is as loud as a boundary inside it. (The second Sa string,
// plucked into the first one's band, blooms less and is left out.)
TEST_F(RenderTest, TheTanpuraJawariBloomsAndFallsAndCyclesVaryWithoutAHoleAtTheSeam) {
  const auto x = droneFile(3, 2);
  const auto band = [&x](double ms, double lo, double hi) { return bandLevelDb(x, at(ms), at(ms) + 1024, lo, hi); };
  for (double pluck : {3200.0, 4266.7, 5333.3, 8533.3}) {
    const double bloom = std::max({band(pluck + 60, 2000, 6000), band(pluck + 100, 2000, 6000),
                                   band(pluck + 150, 2000, 6000)});
    EXPECT_GT(bloom, band(pluck, 2000, 6000) + 4.0) << pluck;
    EXPECT_LT(band(pluck + 500, 2000, 6000), bloom - 4.0) << pluck;
    EXPECT_GT(band(pluck + 60, 6000, 8000), bloom - 15.0) << pluck;
  }
  for (size_t c = 0; c < 3; ++c) {
    double difference = 0;
    for (size_t n = 0; n < kCycle; ++n)
      difference = std::max(difference, double(std::fabs(x[c * kCycle + n] - x[(c + 1) % 3 * kCycle + n])));
    EXPECT_GT(difference, 0.01) << "cycle " << c;
  }
  std::vector<float> seam(x.end() - 441, x.end());
  seam.insert(seam.end(), x.begin(), x.begin() + 441);
  EXPECT_NEAR(rms(seam, 0, seam.size()), rms(x, kCycle - 441, kCycle + 441), 0.3 * rms(x, kCycle - 441, kCycle + 441));
}

// A held note swells by at most 2 dB (100 ms RMS) anywhere in the range;
// every harmonic up to the 8th changes smoothly from note to note. (Two
// equal reeds made harmonics come and go by up to 6 dB.)
TEST_F(RenderTest, TheHarmoniumHoldsASteadyEvenToneOverItsRange) {
  for (const char* note : {"00", "12", "24", "40"}) {
    const auto x = render(1, note, "4000");
    double low = 1e9, high = -1e9;
    for (double ms = 300; ms < 3700; ms += 100) {
      low = std::min(low, rms(x, at(ms), at(ms + 100)));
      high = std::max(high, rms(x, at(ms), at(ms + 100)));
    }
    EXPECT_LT(20 * std::log10(high / low), 2.0) << note;
  }
  std::vector<std::array<double, 9>> levels;
  for (int note = 0; note <= 40; ++note) {
    const auto x = render(1, (note < 10 ? "0" : "") + std::to_string(note), "600");
    const double hz = 130.8128 * std::exp2((note - 11) / 12.0);
    levels.emplace_back();
    const double measured = measureHz(x, at(200), at(500), hz);
    for (int k = 1; k <= 8; ++k) levels.back()[k] = toneLevelDb(x, at(200), at(500), k * measured);
  }
  for (int k = 1; k <= 8; ++k) {  // within 3 dB of the least-squares line through the 41 notes
    double sx = 0, sy = 0, sxx = 0, sxy = 0;
    for (int n = 0; n <= 40; ++n) sx += n, sy += levels[n][k], sxx += n * n, sxy += n * levels[n][k];
    const double slope = (41 * sxy - sx * sy) / (41 * sxx - sx * sx), intercept = (sy - slope * sx) / 41;
    for (int n = 0; n <= 40; ++n)
      EXPECT_NEAR(levels[n][k], intercept + slope * n, 3.0) << "harmonic " << k << " of note " << n;
  }
}

// "S S R R" is four notes: before a repeated note the first falls silent for
// 20 to 40 ms; between different notes the sound runs on.
TEST_F(RenderTest, ARepeatedNoteIsStruckAgain) {
  for (const char* ms : {"250", "500", "1000"}) {
    const double d = std::atof(ms);
    const auto x = render(4, "12 12 14 14", std::string(ms) + " " + ms + " " + ms + " " + ms);
    const double sustain = rms(x, at(0.5 * d), at(0.8 * d));
    for (double join : {d, 3 * d}) {
      EXPECT_LT(rms(x, at(join - 20), at(join - 1)), 0.01 * sustain) << ms << " before " << join;
      EXPECT_GT(rms(x, at(join - 60), at(join - 41)), 0.01 * sustain) << ms << " before " << join;
    }
    EXPECT_GT(rms(x, at(2 * d - 20), at(2 * d - 1)), 0.3 * sustain) << ms;
  }
}

TEST_F(RenderTest, DamagedOrMissingKitFilesFail) {
  const std::string good = fileText(TONVEX_KIT_FILE), path = scratchFile("kit.nvy");
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

TEST(TablaKitTest, BothKitFilesAreSealedAndComplete) {
  std::string error;
  for (const char* path : {TONVEX_KIT_FILE, TONVEX_PA_KIT_FILE}) {
    const std::string file = fileText(path);
    const auto body = tonvex::unsealKitText(file);  // a view into the file
    ASSERT_TRUE(body && tonvex::parseKitText(*body, error)) << path << ": " << error;
  }
}

TEST(TablaKitTest, SourceErrorsNameTheProblem) {
  const std::string source = fileText(TONVEX_KIT_SOURCE);
  std::string error;
  ASSERT_TRUE(tonvex::parseKitText(source, error)) << error;
  const struct { std::string from, to; const char* told; /* a part of the error */ } breakages[] = {
      {"bol 20 Dhet Te@0 Ge@0\n", "", "bol 20 is not defined"},
      {"bol 5 Na Na@0", "bol 5 Na Nope@0", "cannot read"},
      {"mode 1.0 1.0 350 0.8", "mode 1.0 1.0 -350 0.8", "mode decay ms -350 is out of range"},
      {"dayan 2.0", "dayan two", "cannot read"},
      {"tonvex-kit 1", "tonvex-kit 2", "line 7"},
      // Seen in the field: numbers that overflowed a stroke's length or its
      // samples.
      {"click 4 0.9 8000", "click 4.4e63 0.25 4000",
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
TEST(TablaKitTest, AVoiceOutsideTheKitRangesIsClampedNotOverflowed) {
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

// The first stroke half a beat into the second note; Tirakita's four
// strokes in one beat; every bol sounds.
TEST_F(RenderTest, StrokesFallWhereTheTokensSay) {
  const auto x = renderTheka("1000 1000", "0 1/5/0.5", 500);
  size_t onset = 0;
  while (onset < x.size() && std::fabs(x[onset]) < 1e-3) ++onset;
  EXPECT_NEAR(onset / 44.1, 1250.0, 2.0);
  const auto t = renderTheka("2000", "1/16/0", 800);
  EXPECT_GT(rms(t, at(1), at(20)), 0.01);
  for (double ms : {200.0, 400.0, 600.0})
    EXPECT_GT(rms(t, at(ms + 1), at(ms + 20)), 10 * rms(t, at(ms - 15), at(ms - 1))) << ms;
  for (int bol = 1; bol <= 20; ++bol)
    EXPECT_GT(rms(renderTheka("1000", "1/" + std::to_string(bol) + "/0", 600), 0, at(300)), 0.005) << "bol " << bol;
}

// Every dayan stroke cracks: noise reaching 4 to 8 kHz, within 18 dB of the
// stroke's low modes over its first 3 ms and gone within 6 ms.
TEST_F(RenderTest, DayanStrokesBeginWithAShortBrightCrack) {
  for (int bol : {1, 2, 3, 4, 5, 6, 9, 10, 12}) {
    const auto x = renderTheka("1000", "1/" + std::to_string(bol) + "/0", 600);
    const double crack = bandLevelDb(x, 0, at(3), 4000, 8000);
    EXPECT_GT(crack, bandLevelDb(x, 0, at(3), 0, 2000) - 18.0) << "bol " << bol;
    EXPECT_LT(bandLevelDb(x, at(6), at(9), 4000, 8000), crack - 40.0) << "bol " << bol;
  }
}

// Na on every beat of two teentaal cycles: the sams stand 2 to 3 dB above
// the other strokes, which vary by +-1.5 dB; the same theka always renders
// the same file.
TEST_F(RenderTest, TheSamIsAccentedAndStrokesVary) {
  const std::string durations = [] { std::string d; for (int i = 0; i < 32; ++i) d += "1000 "; return d; }();
  std::string theka;
  for (int i = 0; i < 32; ++i) theka += "1/5/0 ";
  const auto x = renderTheka(durations, theka, 1000);
  EXPECT_EQ(renderTheka(durations, theka, 1000), x);
  std::vector<double> levels;
  for (int beat = 0; beat < 32; ++beat) levels.push_back(20 * std::log10(rms(x, at(1000 * beat), at(1000 * beat + 50))));
  const auto [low, high] = std::minmax_element(levels.begin() + 1, levels.begin() + 16);
  const double mean = std::accumulate(levels.begin() + 1, levels.begin() + 16, 0.0) / 15;
  EXPECT_NEAR((levels[0] + levels[16]) / 2 - mean, 2.5, 1.0);
  EXPECT_GT(*high - *low, 1.0);
  EXPECT_LT(*high - *low, 3.2);
}

TEST_F(RenderTest, BadThekaInputFailsAndLeavesNoFile) {
  // (Malformed tokens are refused by their parser and beats of no length
  // where they arrive: tokens_test.)
  renderTheka("500 500", "0", 500, 0);  // too few tokens
  const std::string path = scratchFile("bad.wav");
  EXPECT_EQ(FWavGenerateMusicFile1(1, "12", "500", 5, 4, "0", 4, 500, path, 0, 0.2, 1, 1000, 60, 80, 50), 0)
      << "start beat after the cycle";
  ASSERT_EQ(FWavSetGlobalVariables("ce"), 1);  // no kit loaded any more
  renderTheka("500", "0", 500, 0);
}

}  // namespace
