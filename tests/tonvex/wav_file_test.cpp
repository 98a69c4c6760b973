// Wave files: header and size, round trip, and that failures leave nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "audio_measure.h"
#include "wav_file.h"

namespace {

using tonvex_test::fileExists;
using tonvex_test::scratchFile;

TEST(WavFileTest, WritesCanonicalHeaderAndReadsBack) {
  const std::string path = scratchFile("a.wav");
  const std::vector<int16_t> samples{0, 1, -1, 32767, -32768, 1234};
  ASSERT_TRUE(tonvex::writeWavFile(path, samples));
  EXPECT_EQ(std::filesystem::file_size(path), 44u + 2 * samples.size());
  EXPECT_FALSE(fileExists(path + ".part"));
  const auto back = tonvex::readWavFile(path);
  ASSERT_TRUE(back);
  EXPECT_EQ(*back, samples);
}

TEST(WavFileTest, UnwritablePathFailsWithoutLeavingFiles) {
  const std::string dir = scratchFile("missing-dir");
  const std::string path = dir + "/a.wav";
  EXPECT_FALSE(tonvex::writeWavFile(path, std::vector<int16_t>{1, 2, 3}));
  EXPECT_FALSE(fileExists(path));
  EXPECT_FALSE(fileExists(path + ".part"));
}

TEST(WavFileTest, EmptyBufferIsNotWritten) {
  const std::string path = scratchFile("empty.wav");
  EXPECT_FALSE(tonvex::writeWavFile(path, std::vector<int16_t>{}));
  EXPECT_FALSE(fileExists(path));
}

TEST(WavFileTest, ReaderRejectsTruncatedAndForeignFiles) {
  const std::string path = scratchFile("b.wav");
  ASSERT_TRUE(tonvex::writeWavFile(path, std::vector<int16_t>(100, 7)));
  std::filesystem::resize_file(path, 44 + 150);
  EXPECT_FALSE(tonvex::readWavFile(path));
  std::ofstream(path, std::ios::binary | std::ios::trunc) << "not a wave file at all, honestly";
  EXPECT_FALSE(tonvex::readWavFile(path));
  EXPECT_FALSE(tonvex::readWavFile(scratchFile("absent.wav")));
}

}  // namespace
