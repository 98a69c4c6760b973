// The generator behind every small variation of the sound (a tanpura pluck's
// pitch, level and brightness, a reed's noisy onset, a tabla stroke's level).
// It is seeded from the input (the drone's note and type, the phrase's text),
// never from the clock, so the same input always renders the same file.
// Stateless apart from the generator's own 64-bit state.
#pragma once

#include <cstdint>
#include <string_view>

namespace tonvex {

// FNV-1a of a text, 64 bits, added to seed: a seed for a generator.
inline uint64_t seedFromText(std::string_view text, uint64_t seed = 14695981039346656037ull) {
  for (unsigned char c : text) seed = (seed ^ c) * 1099511628211ull;
  return seed;
}

// SplitMix64: small, fast and well mixed even for neighbouring seeds.
class Variation {
 public:
  explicit Variation(uint64_t seed) : state_(seed) {}
  uint64_t next() {
    uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }
  // Uniform in [-1, 1).
  double symmetric() { return double(next() >> 11) * 0x1.0p-52 - 1.0; }

 private:
  uint64_t state_;
};

}  // namespace tonvex
