// Fuzz target: arbitrary bytes through the wave decoder. A clip it accepts
// has one or two channels, whole frames and a positive rate, and its time
// conversions stay inside it; a refusal gives its reason.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/wavefile.h"

namespace {

void check(bool ok) {
  if (!ok) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  platform::WaveClip clip;
  const auto result = platform::decodeWave(std::vector<std::uint8_t>(data, data + size), clip);
  if (result.status != platform::WaveReadStatus::Ok) {
    check(!result.error.empty() && clip.samples.empty());
    return 0;
  }
  check(clip.channels == 1 || clip.channels == 2);
  check(clip.sampleRate > 0);
  check(clip.samples.size() % std::size_t(clip.channels) == 0);
  const long length = clip.lengthMs();
  check(length >= 0);
  for (long ms : {-1L, 0L, length / 2, length, length + 1000})
    check(clip.frameAtMs(ms) >= 0 && clip.frameAtMs(ms) <= clip.frameCount());
  return 0;
}
