// Writing and reading the seed bank (see seed_bank.h).
#include "seed_bank.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tonvex_render {
namespace {

constexpr std::string_view kMagic = "tonvex-seed-bank 1\n";
constexpr int32_t kMinSpc = 8, kMaxSpc = 20000;  // the library's range

uint32_t fnv1a(std::string_view bytes) {
  uint32_t hash = 2166136261u;
  for (unsigned char c : bytes) hash = (hash ^ c) * 16777619u;
  return hash;
}

void putLe(std::string& out, uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>(value >> (8 * i)));
}

// Reads little-endian values from a byte string; any read past the end
// marks it failed.
struct Reader {
  std::string_view bytes;
  size_t at = 0;
  bool failed = false;

  uint64_t get(int count) {
    if (at + size_t(count) > bytes.size()) {
      failed = true;
      return 0;
    }
    uint64_t value = 0;
    for (int i = 0; i < count; ++i)
      value |= uint64_t(static_cast<unsigned char>(bytes[at + size_t(i)])) << (8 * i);
    at += size_t(count);
    return value;
  }
};

std::optional<tonvex::SeedSpec> readSeed(Reader& in) {
  tonvex::SeedSpec seed;
  seed.samPerCyc = static_cast<int32_t>(in.get(4));
  const uint64_t bits = in.get(8);
  std::memcpy(&seed.fractional, &bits, sizeof bits);
  if (in.failed || seed.samPerCyc < kMinSpc || seed.samPerCyc > kMaxSpc ||
      !(seed.fractional >= 0.0 && seed.fractional < 1.0))
    return std::nullopt;
  seed.samples.resize(size_t(seed.samPerCyc) + 1);
  for (int16_t& s : seed.samples) s = static_cast<int16_t>(in.get(2));
  if (in.failed) return std::nullopt;
  return seed;
}

}  // namespace

SeedBank designedSeedBank() {
  SeedBank bank;
  for (int type : {tonvex::kInstrumentMain, tonvex::kInstrumentDrone})
    for (int note = 0; note <= tonvex::kMaxNoteId; ++note)
      bank.sets[size_t(type - 1)].push_back(tonvex::makeSeed(type, note));
  return bank;
}

bool writeSeedBank(const SeedBank& bank, const std::string& path) {
  std::string bytes(kMagic);
  for (const auto& set : bank.sets)
    for (const tonvex::SeedSpec& seed : set) {
      putLe(bytes, uint32_t(seed.samPerCyc), 4);
      uint64_t bits = 0;
      std::memcpy(&bits, &seed.fractional, sizeof bits);
      putLe(bytes, bits, 8);
      for (int16_t s : seed.samples) putLe(bytes, uint16_t(s), 2);
    }
  putLe(bytes, fnv1a(bytes), 4);
  const std::string partPath = path + ".part";
  {
    std::ofstream out(partPath, std::ios::binary);
    if (!out.write(bytes.data(), std::streamsize(bytes.size())).flush()) return false;
  }
  std::error_code ec;
  std::filesystem::rename(partPath, path, ec);
  return !ec;
}

std::optional<SeedBank> readSeedBank(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (bytes.size() < kMagic.size() + 4 || std::string_view(bytes).substr(0, kMagic.size()) != kMagic)
    return std::nullopt;
  const std::string_view body(bytes.data(), bytes.size() - 4);
  Reader hash{std::string_view(bytes).substr(body.size())};
  if (hash.get(4) != fnv1a(body)) return std::nullopt;
  Reader in{body, kMagic.size()};
  SeedBank bank;
  for (auto& set : bank.sets)
    for (int note = 0; note <= tonvex::kMaxNoteId; ++note) {
      auto seed = readSeed(in);
      if (!seed) return std::nullopt;
      set.push_back(std::move(*seed));
    }
  if (in.at != body.size()) return std::nullopt;
  return bank;
}

}  // namespace tonvex_render
