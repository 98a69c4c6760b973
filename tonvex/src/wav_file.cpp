// Wave file writer and reader. The writer (a FileSink) puts a header with zero sizes,
// then the samples, then patches the sizes and renames "<path>.part" to path.
// Stateless.
#include "wav_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "tonvex/tonvex.h"

namespace tonvex {
namespace {

constexpr uint32_t kHeaderBytes = 44;

void putLe32(unsigned char* at, uint32_t v) {
  for (int i = 0; i < 4; ++i) at[i] = static_cast<unsigned char>(v >> (8 * i));
}

void putLe16(unsigned char* at, uint16_t v) {
  at[0] = static_cast<unsigned char>(v);
  at[1] = static_cast<unsigned char>(v >> 8);
}

uint32_t getLe32(const unsigned char* at) {
  return uint32_t(at[0]) | uint32_t(at[1]) << 8 | uint32_t(at[2]) << 16 | uint32_t(at[3]) << 24;
}

uint16_t getLe16(const unsigned char* at) { return uint16_t(at[0] | at[1] << 8); }

// A canonical 44-byte header for dataBytes bytes of mono 16-bit samples.
std::array<unsigned char, kHeaderBytes> makeHeader(uint32_t dataBytes) {
  std::array<unsigned char, kHeaderBytes> h{};
  std::memcpy(&h[0], "RIFF", 4);
  putLe32(&h[4], dataBytes == 0 ? 0 : dataBytes + kHeaderBytes - 8);
  std::memcpy(&h[8], "WAVEfmt ", 8);
  putLe32(&h[16], 16);                     // fmt chunk size
  putLe16(&h[20], 1);                      // PCM
  putLe16(&h[22], 1);                      // mono
  putLe32(&h[24], kSampleRate);            // samples per second
  putLe32(&h[28], kSampleRate * 2);        // bytes per second
  putLe16(&h[32], 2);                      // bytes per frame
  putLe16(&h[34], 16);                     // bits per sample
  std::memcpy(&h[36], "data", 4);
  putLe32(&h[40], dataBytes);
  return h;
}

// Whether a file may be written at path: a new path or a regular file. A
// device node, pipe, folder or link is never replaced (renaming over
// "/dev/full" as root would put a wave file in the device's place, and
// writing through a link would reach a file elsewhere).
bool replaceable(const std::string& path) {
  std::error_code ec;
  const auto type = std::filesystem::symlink_status(path, ec).type();
  return type == std::filesystem::file_type::not_found ||
         type == std::filesystem::file_type::regular;
}

constexpr uint64_t kMaxDataBytes = 0x7FFFFFF0u;

// The wave file writer: a header with zero sizes, the samples as they come,
// then the patched header and the rename.
class WavFileSink final : public FileSink {
 public:
  WavFileSink(std::string path, std::FILE* file)
      : path_(std::move(path)), partPath_(path_ + ".part"), file_(file) {}
  ~WavFileSink() override {
    if (file_ != nullptr) std::fclose(file_);
    if (!finished_) {
      std::error_code ec;
      std::filesystem::remove(partPath_, ec);
    }
  }
  WavFileSink(const WavFileSink&) = delete;
  WavFileSink& operator=(const WavFileSink&) = delete;

  bool start() {
    const auto header = makeHeader(0);
    return std::fwrite(header.data(), 1, header.size(), file_) == header.size();
  }

  bool write(std::span<const int16_t> samples) override {
    if (file_ == nullptr || dataBytes_ + samples.size() * 2 > kMaxDataBytes) return false;
    dataBytes_ += samples.size() * 2;
    if constexpr (std::endian::native == std::endian::little) {
      return std::fwrite(samples.data(), 2, samples.size(), file_) == samples.size();
    } else {
      std::vector<unsigned char> bytes(samples.size() * 2);
      for (size_t i = 0; i < samples.size(); ++i)
        putLe16(&bytes[2 * i], static_cast<uint16_t>(samples[i]));
      return std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size();
    }
  }

  bool finish() override {
    if (file_ == nullptr || dataBytes_ == 0) return false;
    const auto header = makeHeader(static_cast<uint32_t>(dataBytes_));
    bool written = std::fseek(file_, 0, SEEK_SET) == 0 &&
                   std::fwrite(header.data(), 1, header.size(), file_) == header.size();
    written = std::fclose(file_) == 0 && written;
    file_ = nullptr;
    if (!written) return false;
    std::error_code ec;
    std::filesystem::rename(partPath_, path_, ec);
    finished_ = !ec;
    return finished_;
  }

 private:
  std::string path_, partPath_;
  std::FILE* file_;
  uint64_t dataBytes_ = 0;
  bool finished_ = false;
};

// Reads and checks the header of a file writeWavFile could have written;
// the data's size in bytes, or nullopt.
std::optional<uint32_t> readOurHeader(std::FILE* f) {
  std::array<unsigned char, kHeaderBytes> h{};
  if (std::fread(h.data(), 1, h.size(), f) != h.size()) return std::nullopt;
  const uint32_t dataBytes = getLe32(&h[40]);
  const bool ours = std::memcmp(&h[0], "RIFF", 4) == 0 && std::memcmp(&h[8], "WAVEfmt ", 8) == 0 &&
                    getLe16(&h[20]) == 1 && getLe16(&h[22]) == 1 &&
                    getLe32(&h[24]) == kSampleRate && getLe16(&h[34]) == 16 &&
                    std::memcmp(&h[36], "data", 4) == 0 && dataBytes % 2 == 0 && dataBytes > 0;
  if (!ours) return std::nullopt;
  return dataBytes;
}

// count samples read from where f stands, or nullopt when the file is short.
std::optional<std::vector<int16_t>> readSamples(std::FILE* f, size_t count) {
  std::vector<unsigned char> bytes(count * 2);
  if (std::fread(bytes.data(), 1, bytes.size(), f) != bytes.size()) return std::nullopt;
  std::vector<int16_t> samples(count);
  for (size_t i = 0; i < count; ++i) samples[i] = static_cast<int16_t>(getLe16(&bytes[2 * i]));
  return samples;
}

}  // namespace

std::unique_ptr<FileSink> openWavFileSink(const std::string& path) {
  if (path.empty()) return nullptr;
  const std::string partPath = path + ".part";
  if (!replaceable(path) || !replaceable(partPath)) return nullptr;
  std::FILE* f = std::fopen(partPath.c_str(), "wb");
  if (f == nullptr) return nullptr;
  // Blocks come in 8 KB at a time: gather 64 KB for each write call.
  std::setvbuf(f, nullptr, _IOFBF, size_t(1) << 16);
  auto sink = std::make_unique<WavFileSink>(path, f);
  if (!sink->start()) return nullptr;
  return sink;
}

bool writeWavFile(const std::string& path, std::span<const int16_t> samples) {
  if (samples.empty()) return false;
  auto sink = openWavFileSink(path);
  return sink && sink->write(samples) && sink->finish();
}

std::optional<std::vector<int16_t>> readWavFile(const std::string& path) {
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (f == nullptr) return std::nullopt;
  std::optional<std::vector<int16_t>> result;
  if (const auto dataBytes = readOurHeader(f)) result = readSamples(f, *dataBytes / 2);
  std::fclose(f);
  return result;
}

std::optional<std::vector<int16_t>> readWavRange(const std::string& path, size_t from,
                                                 size_t count, size_t* totalSamples) {
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (f == nullptr) return std::nullopt;
  std::optional<std::vector<int16_t>> result;
  const auto dataBytes = readOurHeader(f);
  if (dataBytes && from < *dataBytes / 2 &&
      std::fseek(f, long(kHeaderBytes + from * 2), SEEK_SET) == 0) {
    *totalSamples = *dataBytes / 2;
    result = readSamples(f, std::min(count, *totalSamples - from));
  }
  std::fclose(f);
  return result;
}

}  // namespace tonvex
