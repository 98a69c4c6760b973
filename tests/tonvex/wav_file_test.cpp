// Output samples and files: float to 16-bit conversion (rounding, full scale
// and beyond, NaN), wave file header and size, round trip, and failures that
// leave nothing behind.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "audio_measure.h"
#include "pcm.h"
#include "wav_file.h"

namespace {

using tonvex_test::fileExists;
using tonvex_test::scratchFile;

TEST(PcmTest, RoundsAndClampsAndNanIsSilence) {
  const float inf = std::numeric_limits<float>::infinity();
  const std::pair<float, int16_t> cases[] = {
      {0.0f, 0},         {1.0f, 32767},       {-1.0f, -32767},  {1.0001f, 32767},
      {-1.0001f, -32768}, {7.5f, 32767},      {-40.0f, -32768}, {0.5f, 16384},
      {-0.5f, -16384},   {1.0f / 32767, 1},   {0.49f / 32767, 0}, {inf, 32767},
      {-inf, -32768},    {std::nanf(""), 0}};
  for (const auto& [in, out] : cases) EXPECT_EQ(tonvex::toPcm16(in), out) << "input " << in;
  // The peak of a buffer, found lane by lane: in the tail past the last
  // eight, in a lane, negative.
  std::vector<float> in(19, 0.1f);
  for (const auto& [at, value] : {std::pair{18, 0.9f}, {3, -0.95f}, {10, 0.97f}}) {
    in[size_t(at)] = value;
    EXPECT_FLOAT_EQ(tonvex::peakOf(in), std::fabs(value)) << at;
  }
  EXPECT_EQ(tonvex::peakOf(std::vector<float>{}), 0.0f);
}

// A file is written whole under its name or not at all, and reads back; a
// truncated, foreign or absent file is not read.
TEST(WavFileTest, WritesCanonicalHeaderReadsBackAndRefusesBadFiles) {
  const std::string path = scratchFile("a.wav");
  const std::vector<int16_t> samples{0, 1, -1, 32767, -32768, 1234};
  ASSERT_TRUE(tonvex::writeWavFile(path, samples));
  EXPECT_EQ(std::filesystem::file_size(path), 44u + 2 * samples.size());
  EXPECT_FALSE(fileExists(path + ".part"));
  EXPECT_EQ(tonvex::readWavFile(path), samples);
  EXPECT_FALSE(tonvex::writeWavFile(scratchFile("missing-dir") + "/a.wav", samples));
  EXPECT_FALSE(tonvex::writeWavFile(scratchFile("e.wav"), {}));
  EXPECT_FALSE(fileExists(scratchFile("e.wav")) || fileExists(scratchFile("e.wav") + ".part"));
  std::filesystem::resize_file(path, 44 + 6);
  EXPECT_FALSE(tonvex::readWavFile(path));
  std::ofstream(path, std::ios::binary | std::ios::trunc) << "not a wave file at all, honestly";
  EXPECT_FALSE(tonvex::readWavFile(path));
  EXPECT_FALSE(tonvex::readWavFile(scratchFile("absent.wav")));
}

}  // namespace
