// Sound files from wave files: every format by its extension, the items
// joined with the pause between them, FLAC and WAV sample for sample.
#include "export/sound_file.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <filesystem>

#include "export/score.h"

namespace {

namespace fs = std::filesystem;

std::vector<float> sine(double hz, int ms) {
  std::vector<float> s(static_cast<std::size_t>(44.1 * ms));
  for (std::size_t i = 0; i < s.size(); ++i) s[i] = static_cast<float>(0.5 * std::sin(2 * M_PI * hz * double(i) / 44100));
  return s;
}

void writeWave(const fs::path& path, const std::vector<float>& samples) {
  SF_INFO info{0, 44100, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0, 0};
  SNDFILE* f = sf_open(path.c_str(), SFM_WRITE, &info);
  sf_writef_float(f, samples.data(), static_cast<sf_count_t>(samples.size()));
  sf_close(f);
}

std::vector<float> readSound(const fs::path& path) {
  SF_INFO info{};
  SNDFILE* f = sf_open(path.c_str(), SFM_READ, &info);
  EXPECT_TRUE(f) << path;
  if (!f) return {};
  std::vector<float> s(static_cast<std::size_t>(info.frames));
  sf_readf_float(f, s.data(), info.frames);
  sf_close(f);
  return s;
}

TEST(SoundFile, EveryFormatHoldsTheItemsWithThePauseBetween) {
  const fs::path folder = fs::path(testing::TempDir()) / "nadavik-sound-file";
  fs::create_directories(folder);
  const auto a = sine(440, 300), b = sine(660, 200);
  writeWave(folder / "a.wav", a);
  writeWave(folder / "b.wav", b);
  const std::size_t expected = a.size() + 44100 * kPauseBetweenItemsMs / 1000 + b.size();
  for (const char* name : {"out.flac", "out.wav", "out.OGG"}) {
    const fs::path out = folder / name;
    ASSERT_NE(fSoundFormatFor(out), 0) << name;
    ASSERT_EQ(fEncodeSound({{(folder / "a.wav").string()}, {(folder / "b.wav").string()}}, out.string(),
                           fSoundFormatFor(out), [](double) { return true; }),
              "");
    const auto s = readSound(out);
    EXPECT_EQ(s.size(), expected) << name;
    if (std::string(name) == "out.OGG" || s.size() != expected) continue;  // Vorbis is lossy
    for (std::size_t i = 0; i < a.size(); i += 997) EXPECT_NEAR(s[i], a[i], 1.0 / 32768) << name << " at " << i;
    EXPECT_EQ(s[a.size() + 100], 0.0f) << "the pause is silent";
  }
  EXPECT_EQ(fSoundFormatFor("x.mp3"), 0);
  EXPECT_EQ(fEncodeSound({{(folder / "a.wav").string()}}, (folder / "c.flac").string(), fSoundFormatFor("c.flac"),
                         [](double) { return false; }),
            "cancelled");
}

}  // namespace
