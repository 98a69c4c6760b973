// Wave files for the audio tests, built byte by byte so that each test says
// exactly what its file holds.
#pragma once

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace platform::testing {

// The pieces of a wave file; tests change one field to make a bad file.
struct WaveSpec {
  std::uint16_t formatTag = 1;   // 1 PCM
  std::uint16_t channels = 1;
  std::uint32_t sampleRate = 44100;
  std::uint16_t bitsPerSample = 16;
  std::uint32_t frames = 0;
  double toneHz = 440;           // a sine at half scale; 0 for silence
};

inline void putU16(std::vector<std::uint8_t>& out, unsigned value) {
  out.push_back(static_cast<std::uint8_t>(value & 0xFF));
  out.push_back(static_cast<std::uint8_t>((value >> 8) & 0xFF));
}

inline void putU32(std::vector<std::uint8_t>& out, std::uint32_t value) {
  putU16(out, value & 0xFFFF);
  putU16(out, value >> 16);
}

inline void putTag(std::vector<std::uint8_t>& out, const char* tag) {
  for (int i = 0; i < 4; ++i) out.push_back(static_cast<std::uint8_t>(tag[i]));
}

// The "fmt " chunk of format, header included.
inline std::vector<std::uint8_t> formatChunk(const WaveSpec& format) {
  std::vector<std::uint8_t> out;
  putTag(out, "fmt ");
  putU32(out, 16);
  putU16(out, format.formatTag);
  putU16(out, format.channels);
  putU32(out, format.sampleRate);
  const unsigned frameBytes = format.channels * format.bitsPerSample / 8u;
  putU32(out, format.sampleRate * frameBytes);
  putU16(out, frameBytes);
  putU16(out, format.bitsPerSample);
  return out;
}

// The "data" chunk of format: frames of 16-bit samples, every channel alike.
inline std::vector<std::uint8_t> dataChunk(const WaveSpec& format) {
  std::vector<std::uint8_t> out;
  putTag(out, "data");
  putU32(out, format.frames * format.channels * 2u);
  for (std::uint32_t i = 0; i < format.frames; ++i) {
    const double value = 16383.0 * std::sin(2 * std::acos(-1.0) * format.toneHz * i / format.sampleRate);
    for (unsigned c = 0; c < format.channels; ++c) putU16(out, static_cast<std::int16_t>(value) & 0xFFFF);
  }
  return out;
}

// RIFF/WAVE around the given chunks, with the RIFF size filled in.
inline std::vector<std::uint8_t> riff(const std::vector<std::vector<std::uint8_t>>& chunks) {
  std::vector<std::uint8_t> out;
  putTag(out, "RIFF");
  putU32(out, 4);
  putTag(out, "WAVE");
  for (const auto& chunk : chunks) out.insert(out.end(), chunk.begin(), chunk.end());
  const auto size = static_cast<std::uint32_t>(out.size() - 8);
  for (int i = 0; i < 4; ++i) out[4 + i] = static_cast<std::uint8_t>(size >> (8 * i));
  return out;
}

inline std::vector<std::uint8_t> waveBytes(const WaveSpec& format) { return riff({formatChunk(format), dataChunk(format)}); }

inline void writeBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

// A 16-bit mono 44.1 kHz tone, as the synthesis library writes: the frames
// of lengthMs rounded up, so that its length reads back as lengthMs.
inline void writeToneFile(const std::string& path, long lengthMs) {
  WaveSpec format;
  format.frames = static_cast<std::uint32_t>((lengthMs * 441 + 9) / 10);
  writeBytes(path, waveBytes(format));
}

// A fresh temporary directory for one test, removed with the object.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "nadavik-audio-XXXXXX").string();
    path_ = mkdtemp(pattern.data()) ? pattern : "";
  }
  ~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace platform::testing
