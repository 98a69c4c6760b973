// The program's random generator (see random.h).
#include "core/random.h"

#include <chrono>
#include <random>

namespace {

std::mt19937& generator() {
  static std::mt19937 engine{std::random_device{}()};
  return engine;
}

bool gSeedFixed = false;

}  // namespace

void sRandomize() {
  if (gSeedFixed) return;
  const auto now = std::chrono::high_resolution_clock::now().time_since_epoch().count();
  generator().seed(static_cast<std::mt19937::result_type>(now));
}

void sFixRandomSeed(std::uint32_t seed) {
  generator().seed(seed);
  gSeedFixed = true;
}

void sReleaseRandomSeed() { gSeedFixed = false; }

// A 32-bit draw over 2^32: exactly representable, so never 1.
double fRnd() { return static_cast<double>(generator()()) / 4294967296.0; }

std::int16_t fRandomFrom1To(std::int16_t count) {
  if (count < 1) return 1;
  return static_cast<std::int16_t>(count * fRnd() + 1);
}
