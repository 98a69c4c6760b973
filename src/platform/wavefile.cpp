// The wave file reader: RIFF chunk walk over a file loaded whole.
#include "platform/wavefile.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <fstream>
#include <iterator>

namespace platform {
namespace {

constexpr std::uint16_t kFormatPcm = 1;
constexpr std::uint16_t kFormatExtensible = 0xFFFE;
constexpr std::size_t kRiffHeaderBytes = 12;
constexpr std::size_t kChunkHeaderBytes = 8;
constexpr std::size_t kFmtMinBytes = 16;
constexpr std::size_t kExtensibleSubFormatOffset = 24;

std::uint16_t readU16(const std::uint8_t* p) {
  return static_cast<std::uint16_t>(p[0] | (p[1] << 8));
}

std::uint32_t readU32(const std::uint8_t* p) {
  return static_cast<std::uint32_t>(p[0]) | (static_cast<std::uint32_t>(p[1]) << 8) |
         (static_cast<std::uint32_t>(p[2]) << 16) | (static_cast<std::uint32_t>(p[3]) << 24);
}

WaveReadResult refuse(const std::string& why) { return {WaveReadStatus::Invalid, why}; }

struct Format {
  std::uint16_t tag = 0;
  int channels = 0;
  long sampleRate = 0;
  int bitsPerSample = 0;
};

// Reads the fmt chunk; the extensible form counts as PCM when its sub-format
// says so (the first two bytes of the GUID are the plain format tag).
bool readFormat(const std::uint8_t* body, std::size_t size, Format& format) {
  if (size < kFmtMinBytes) return false;
  format.tag = readU16(body);
  format.channels = readU16(body + 2);
  format.sampleRate = static_cast<long>(readU32(body + 4));
  format.bitsPerSample = readU16(body + 14);
  if (format.tag == kFormatExtensible && size >= kExtensibleSubFormatOffset + 2)
    format.tag = readU16(body + kExtensibleSubFormatOffset);
  return true;
}

WaveReadResult checkFormat(const Format& format) {
  if (format.tag != kFormatPcm) return refuse("not PCM (format tag " + std::to_string(format.tag) + ")");
  if (format.channels != 1 && format.channels != 2)
    return refuse(std::to_string(format.channels) + " channels (1 or 2 are played)");
  if (format.bitsPerSample != 16)
    return refuse(std::to_string(format.bitsPerSample) + "-bit samples (16-bit are played)");
  if (format.sampleRate < 1000 || format.sampleRate > 192000)
    return refuse("sample rate " + std::to_string(format.sampleRate) + " Hz");
  return {WaveReadStatus::Ok, ""};
}

void copySamples(const std::uint8_t* data, std::size_t bytes, std::vector<std::int16_t>& out) {
  out.resize(bytes / 2);
  // A data chunk shorter than one frame holds no samples; an empty vector's
  // data() may be null, which memcpy must never be given.
  if (out.empty()) return;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(out.data(), data, out.size() * 2);
  } else {
    for (std::size_t i = 0; i < out.size(); ++i)
      out[i] = static_cast<std::int16_t>(readU16(data + 2 * i));
  }
}

}  // namespace

long WaveClip::lengthMs() const {
  if (sampleRate <= 0) return 0;
  return static_cast<long>(static_cast<long long>(frameCount()) * 1000 / sampleRate);
}

long WaveClip::frameAtMs(long ms) const {
  const long long frame = static_cast<long long>(std::max(0L, ms)) * sampleRate / 1000;
  return static_cast<long>(std::min<long long>(frame, frameCount()));
}

WaveReadResult decodeWave(const std::vector<std::uint8_t>& bytes, WaveClip& clip) {
  clip = WaveClip{};
  if (bytes.size() < kRiffHeaderBytes) return refuse("too short for a wave header");
  const std::uint8_t* p = bytes.data();
  if (std::memcmp(p, "RIFF", 4) != 0 || std::memcmp(p + 8, "WAVE", 4) != 0)
    return refuse("not a RIFF/WAVE file");

  Format format;
  bool haveFormat = false;
  std::size_t at = kRiffHeaderBytes;
  while (at + kChunkHeaderBytes <= bytes.size()) {
    const std::uint8_t* chunk = p + at;
    const std::size_t size = readU32(chunk + 4);
    const std::size_t bodyAt = at + kChunkHeaderBytes;
    const std::size_t available = bytes.size() - bodyAt;
    if (std::memcmp(chunk, "fmt ", 4) == 0) {
      if (size > available || !readFormat(p + bodyAt, size, format))
        return refuse("format chunk cut short");
      haveFormat = true;
    } else if (std::memcmp(chunk, "data", 4) == 0) {
      if (!haveFormat) return refuse("data before the format chunk");
      if (WaveReadResult ok = checkFormat(format); ok.status != WaveReadStatus::Ok) return ok;
      if (size > available)
        return refuse("data chunk cut short (" + std::to_string(available) + " of " +
                      std::to_string(size) + " bytes)");
      const std::size_t frameBytes = static_cast<std::size_t>(format.channels) * 2;
      clip.sampleRate = static_cast<int>(format.sampleRate);
      clip.channels = format.channels;
      copySamples(p + bodyAt, size / frameBytes * frameBytes, clip.samples);
      return {WaveReadStatus::Ok, ""};
    }
    if (size > available) break;
    at = bodyAt + size + (size & 1);  // chunks are padded to an even size
  }
  return refuse(haveFormat ? "no data chunk" : "no format chunk");
}

WaveReadResult readWaveFile(const std::string& path, WaveClip& clip) {
  clip = WaveClip{};
  std::ifstream in(path, std::ios::binary);
  if (!in) return {WaveReadStatus::Missing, "file not found: " + path};
  std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
  WaveReadResult result = decodeWave(bytes, clip);
  if (result.status != WaveReadStatus::Ok) result.error = path + ": " + result.error;
  return result;
}

}  // namespace platform
