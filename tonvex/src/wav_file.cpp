// Wave file writer and reader. The writer puts a header with zero sizes,
// then the samples, then patches the sizes and renames "<path>.part" to path.
// Stateless.
#include "wav_file.h"

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

// Writes header (sizes zero), samples, then the patched header.
bool writeComplete(std::FILE* f, std::span<const int16_t> samples) {
  const uint32_t dataBytes = static_cast<uint32_t>(samples.size() * 2);
  auto header = makeHeader(0);
  if (std::fwrite(header.data(), 1, header.size(), f) != header.size()) return false;
  if constexpr (std::endian::native == std::endian::little) {
    if (std::fwrite(samples.data(), 2, samples.size(), f) != samples.size()) return false;
  } else {
    std::vector<unsigned char> bytes(dataBytes);
    for (size_t i = 0; i < samples.size(); ++i)
      putLe16(&bytes[2 * i], static_cast<uint16_t>(samples[i]));
    if (std::fwrite(bytes.data(), 1, bytes.size(), f) != bytes.size()) return false;
  }
  header = makeHeader(dataBytes);
  if (std::fseek(f, 0, SEEK_SET) != 0) return false;
  return std::fwrite(header.data(), 1, header.size(), f) == header.size();
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

}  // namespace

bool writeWavFile(const std::string& path, std::span<const int16_t> samples) {
  if (path.empty() || samples.empty() || samples.size() > 0x7FFFFFF0u / 2) return false;
  const std::string partPath = path + ".part";
  if (!replaceable(path) || !replaceable(partPath)) return false;
  std::FILE* f = std::fopen(partPath.c_str(), "wb");
  if (f == nullptr) return false;
  const bool written = writeComplete(f, samples);
  const bool closed = std::fclose(f) == 0;
  std::error_code ec;
  if (written && closed) {
    std::filesystem::rename(partPath, path, ec);
    if (!ec) return true;
  }
  std::filesystem::remove(partPath, ec);
  return false;
}

std::optional<std::vector<int16_t>> readWavFile(const std::string& path) {
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (f == nullptr) return std::nullopt;
  std::array<unsigned char, kHeaderBytes> h{};
  const bool gotHeader = std::fread(h.data(), 1, h.size(), f) == h.size();
  const uint32_t dataBytes = getLe32(&h[40]);
  const bool ours = gotHeader && std::memcmp(&h[0], "RIFF", 4) == 0 &&
                    std::memcmp(&h[8], "WAVEfmt ", 8) == 0 && getLe16(&h[20]) == 1 &&
                    getLe16(&h[22]) == 1 && getLe32(&h[24]) == kSampleRate &&
                    getLe16(&h[34]) == 16 && std::memcmp(&h[36], "data", 4) == 0 &&
                    dataBytes % 2 == 0 && dataBytes > 0;
  std::optional<std::vector<int16_t>> result;
  if (ours) {
    std::vector<unsigned char> bytes(dataBytes);
    if (std::fread(bytes.data(), 1, bytes.size(), f) == bytes.size()) {
      std::vector<int16_t> samples(dataBytes / 2);
      for (size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<int16_t>(getLe16(&bytes[2 * i]));
      result = std::move(samples);
    }
  }
  std::fclose(f);
  return result;
}

}  // namespace tonvex
