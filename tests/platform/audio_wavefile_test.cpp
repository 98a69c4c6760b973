// Wave file reader: what it reads, and each way a file is refused.
#include "platform/wavefile.h"

#include <gtest/gtest.h>

#include "audio_fixture.h"

namespace platform {
namespace {

using testing::WaveSpec;

TEST(WaveFile, ReadsMonoFileAsTheSynthesisLibraryWritesIt) {
  testing::TempDir dir;
  testing::writeToneFile(dir.file("A.wav"), 1234);
  WaveClip clip;
  WaveReadResult result = readWaveFile(dir.file("A.wav"), clip);
  ASSERT_EQ(result.status, WaveReadStatus::Ok) << result.error;
  EXPECT_EQ(clip.sampleRate, 44100);
  EXPECT_EQ(clip.channels, 1);
  EXPECT_EQ(clip.frameCount(), 54420);  // 1234 ms at 44.1 kHz, rounded up
  EXPECT_EQ(clip.lengthMs(), 1234);
  EXPECT_EQ(clip.samples[0], 0);
  EXPECT_GT(clip.samples[10], 1000);  // the sine rises at the start
}

// Length counts frames, not samples, and rounds down; other chunks, also
// of odd size, are skipped; the extensible form of PCM is read too.
TEST(WaveFile, LengthCountsFramesAndOtherChunksAreSkipped) {
  struct Row {
    std::uint16_t channels;
    std::uint32_t rate, frames;
    long lengthMs;
  };
  const Row rows[] = {{2, 44100, 44100, 1000}, {1, 8000, 7999, 999}, {1, 22050, 0, 0}, {2, 48000, 48, 1}};
  for (const Row& row : rows) {
    WaveSpec spec;
    spec.channels = row.channels;
    spec.sampleRate = row.rate;
    spec.frames = row.frames;
    WaveClip clip;
    ASSERT_EQ(decodeWave(testing::waveBytes(spec), clip).status, WaveReadStatus::Ok);
    EXPECT_EQ(clip.frameCount(), static_cast<long>(row.frames));
    EXPECT_EQ(clip.lengthMs(), row.lengthMs) << row.channels << " ch " << row.rate << " Hz";
  }
  WaveSpec spec;
  spec.frames = 441;
  std::vector<std::uint8_t> list;
  testing::putTag(list, "LIST");
  testing::putU32(list, 3);
  list.insert(list.end(), {'a', 'b', 'c', 0});  // three bytes and the pad byte
  // The extensible form: its sub-format GUID begins with the PCM tag.
  std::vector<std::uint8_t> fmt;
  testing::putTag(fmt, "fmt ");
  for (std::uint32_t v : {40u, 0x1FFFEu, 44100u, 88200u, 0x100002u, 0x100016u, 4u, 1u}) testing::putU32(fmt, v);
  fmt.resize(fmt.size() + 12, 0);
  for (const auto& chunks : {std::vector{testing::formatChunk(spec), list, testing::dataChunk(spec)},
                             std::vector{fmt, testing::dataChunk(spec)}}) {
    WaveClip clip;
    WaveReadResult result = decodeWave(testing::riff(chunks), clip);
    ASSERT_EQ(result.status, WaveReadStatus::Ok) << result.error;
    EXPECT_EQ(clip.lengthMs(), 10);
  }
}

TEST(WaveFile, FrameAtMsIsClampedToTheClip) {
  WaveClip clip;
  clip.sampleRate = 1000;
  clip.channels = 2;
  clip.samples.resize(200);  // 100 frames
  for (auto [ms, frame] : {std::pair{-5L, 0L}, {40L, 40L}, {100L, 100L}, {500L, 100L}})
    EXPECT_EQ(clip.frameAtMs(ms), frame) << ms;
}

TEST(WaveFile, MissingFileIsToldApartFromABadOne) {
  testing::TempDir dir;
  WaveClip clip;
  WaveReadResult result = readWaveFile(dir.file("nothing.wav"), clip);
  EXPECT_EQ(result.status, WaveReadStatus::Missing);
  EXPECT_NE(result.error.find("nothing.wav"), std::string::npos);
  EXPECT_EQ(clip.frameCount(), 0);
}

std::vector<std::uint8_t> withSpec(void (*change)(WaveSpec&)) {
  WaveSpec spec;
  spec.frames = 100;
  change(spec);
  return testing::waveBytes(spec);
}

std::vector<std::uint8_t> cutShort(std::size_t keepBytes) {
  std::vector<std::uint8_t> bytes = withSpec([](WaveSpec&) {});
  bytes.resize(keepBytes);
  return bytes;
}

TEST(WaveFile, RefusesWhatItCannotPlayWithAReason) {
  WaveSpec good;
  good.frames = 100;
  struct Row {
    const char* what;
    std::vector<std::uint8_t> bytes;
    const char* reason;
  };
  const Row rows[] = {
      {"empty file", {}, "too short"},
      {"text file", {'h', 'e', 'l', 'l', 'o', ' ', 'w', 'o', 'r', 'l', 'd', '!', '!'}, "not a RIFF"},
      {"header only", testing::riff({}), "no format chunk"},
      {"format but no data", testing::riff({testing::formatChunk(good)}), "no data chunk"},
      {"data before format", testing::riff({testing::dataChunk(good), testing::formatChunk(good)}),
       "data before"},
      {"format chunk cut", cutShort(12 + 8 + 10), "format chunk cut short"},
      {"data cut mid-way", cutShort(12 + 24 + 8 + 50), "data chunk cut short"},
      {"8-bit", withSpec([](WaveSpec& s) { s.bitsPerSample = 8; }), "8-bit"},
      {"float", withSpec([](WaveSpec& s) { s.formatTag = 3; }), "not PCM"},
      {"three channels", withSpec([](WaveSpec& s) { s.channels = 3; }), "3 channels"},
      {"no channels", withSpec([](WaveSpec& s) { s.channels = 0; }), "0 channels"},
      {"rate zero", withSpec([](WaveSpec& s) { s.sampleRate = 0; }), "sample rate"},
  };
  for (const Row& row : rows) {
    WaveClip clip;
    WaveReadResult result = decodeWave(row.bytes, clip);
    EXPECT_EQ(result.status, WaveReadStatus::Invalid) << row.what;
    EXPECT_NE(result.error.find(row.reason), std::string::npos) << row.what << ": " << result.error;
    EXPECT_EQ(clip.frameCount(), 0) << row.what;
  }
}

}  // namespace
// Seen in the field: a data chunk shorter than one frame is a valid, silent
// file (decoding it once handed memcpy a null pointer).
TEST(WaveFile, ADataChunkShorterThanOneFrameHoldsNoFrames) {
  WaveSpec spec;
  spec.channels = 2;
  std::vector<std::uint8_t> data;
  testing::putTag(data, "data");
  testing::putU32(data, 3);
  data.insert(data.end(), {1, 2, 3, 0});  // three bytes and the pad byte
  WaveClip clip;
  WaveReadResult result = decodeWave(testing::riff({testing::formatChunk(spec), data}), clip);
  ASSERT_EQ(result.status, WaveReadStatus::Ok) << result.error;
  EXPECT_EQ(clip.frameCount(), 0);
  EXPECT_EQ(clip.lengthMs(), 0);
}

}  // namespace platform
