// Wave file reader: what it reads, and each way a file is refused (damaged
// and truncated files included) with a message naming the file.
#include "platform/wavefile.h"

#include <gtest/gtest.h>

#include "audio_fixture.h"

namespace platform {
namespace {

using testing::WaveSpec;

WaveSpec format(std::uint16_t channels, std::uint32_t rate, std::uint32_t frames, std::uint16_t bits = 16,
              std::uint16_t formatTag = 1) {
  return {formatTag, channels, rate, bits, frames};
}

// A file as the synthesis library writes it; length counts frames, not
// samples, and rounds down; other chunks, also of odd size, are skipped;
// the extensible form of PCM is read too; positions are clamped to the clip.
TEST(WaveFile, ReadsPcmFilesAndCountsTheirLengthInFrames) {
  testing::TempDir dir;
  testing::writeToneFile(dir.file("A.wav"), 1234);
  WaveClip clip;
  ASSERT_EQ(readWaveFile(dir.file("A.wav"), clip).status, WaveReadStatus::Ok);
  EXPECT_EQ(clip.sampleRate * 10 + clip.channels, 441001);
  EXPECT_EQ(clip.frameCount(), 54420);  // 1234 ms at 44.1 kHz, rounded up
  EXPECT_EQ(clip.lengthMs(), 1234);
  EXPECT_EQ(clip.samples[0], 0);
  EXPECT_GT(clip.samples[10], 1000);  // the sine rises at the start
  for (auto [ms, frame] : {std::pair{-5L, 0L}, {40L, 1764L}, {1234L, 54419L}, {5000L, 54420L}})
    EXPECT_EQ(clip.frameAtMs(ms), frame) << ms;

  std::vector<std::uint8_t> list;
  testing::putTag(list, "LIST");
  testing::putU32(list, 3);
  list.insert(list.end(), {'a', 'b', 'c', 0});  // three bytes and the pad byte
  // The extensible form: its sub-format is the PCM GUID.
  std::vector<std::uint8_t> extensible;
  testing::putTag(extensible, "fmt ");
  for (std::uint32_t v : {40u, 0x1FFFEu, 44100u, 88200u, 0x100002u, 0x100016u, 4u, 1u})
    testing::putU32(extensible, v);
  extensible.insert(extensible.end(), {0, 0, 0x10, 0, 0x80, 0, 0, 0xAA, 0, 0x38, 0x9B, 0x71});
  // Seen in the field: a data chunk shorter than one frame is a valid,
  // silent file (decoding it once handed memcpy a null pointer).
  std::vector<std::uint8_t> partFrame;
  testing::putTag(partFrame, "data");
  testing::putU32(partFrame, 3);
  partFrame.insert(partFrame.end(), {1, 2, 3, 0});
  const WaveSpec tenMs = format(1, 44100, 441);
  const struct { std::vector<std::uint8_t> bytes; long frames, lengthMs; } rows[] = {
      {testing::waveBytes(format(2, 44100, 44100)), 44100, 1000},
      {testing::waveBytes(format(1, 8000, 7999)), 7999, 999},
      {testing::waveBytes(format(1, 22050, 0)), 0, 0},
      {testing::waveBytes(format(2, 48000, 48)), 48, 1},
      {testing::riff({testing::formatChunk(tenMs), list, testing::dataChunk(tenMs)}), 441, 10},
      {testing::riff({extensible, testing::dataChunk(tenMs)}), 441, 10},
      {testing::riff({testing::formatChunk(format(2, 44100, 0)), partFrame}), 0, 0},
  };
  for (const auto& row : rows) {
    testing::writeBytes(dir.file("row.wav"), row.bytes);
    WaveReadResult result = readWaveFile(dir.file("row.wav"), clip);
    ASSERT_EQ(result.status, WaveReadStatus::Ok) << result.error;
    EXPECT_EQ(clip.frameCount(), row.frames);
    EXPECT_EQ(clip.lengthMs(), row.lengthMs);
  }
}

TEST(WaveFile, RefusesWhatItCannotPlayWithAReason) {
  testing::TempDir dir;
  WaveClip clip;
  WaveReadResult result = readWaveFile(dir.file("nothing.wav"), clip);
  EXPECT_EQ(result.status, WaveReadStatus::Missing);  // told apart from a bad file
  EXPECT_NE(result.error.find("nothing.wav"), std::string::npos);
  const WaveSpec good = format(1, 44100, 100);
  const std::vector<std::uint8_t> goodBytes = testing::waveBytes(good);
  const struct { const char* what; std::vector<std::uint8_t> bytes; const char* reason; } rows[] = {
      {"empty file", {}, "not a sound file"},
      {"text file", {'h', 'e', 'l', 'l', 'o', ' ', 'w', 'o', 'r', 'l', 'd', '!', '!'}, "not a sound file"},
      {"header only", testing::riff({}), "not a sound file"},
      {"format but no data", testing::riff({testing::formatChunk(good)}), "not a sound file"},
      {"data before format", testing::riff({testing::dataChunk(good), testing::formatChunk(good)}), "not a sound file"},
      {"format chunk cut", {goodBytes.begin(), goodBytes.begin() + 12 + 8 + 10}, "not a sound file"},
      {"data cut mid-way", {goodBytes.begin(), goodBytes.begin() + 12 + 24 + 8 + 50}, "data chunk cut short"},
      {"8-bit", testing::waveBytes(format(1, 44100, 100, 8)), "not 16-bit PCM"},
      {"float", testing::waveBytes(format(1, 44100, 100, 32, 3)), "not 16-bit PCM"},
      {"three channels", testing::waveBytes(format(3, 44100, 100)), "3 channels"},
      {"no channels", testing::waveBytes(format(0, 44100, 100)), "not a sound file"},
      {"rate zero", testing::waveBytes(format(1, 0, 100)), "not a sound file"},
  };
  for (const auto& row : rows) {
    testing::writeBytes(dir.file("bad.wav"), row.bytes);
    result = readWaveFile(dir.file("bad.wav"), clip);
    EXPECT_EQ(result.status, WaveReadStatus::Invalid) << row.what;
    EXPECT_NE(result.error.find(row.reason), std::string::npos) << row.what << ": " << result.error;
    EXPECT_EQ(result.error.find(dir.file("bad.wav")), 0u) << row.what << ": " << result.error;
    EXPECT_EQ(clip.frameCount(), 0) << row.what;
  }
}

}  // namespace
}  // namespace platform
