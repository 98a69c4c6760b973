// FWavCreateSegmentFile: cuts a stretch out of a wave file this library wrote,
// with short fades so that the cut ends do not click. Reads only the stretch.
#include <algorithm>

#include "tonvex/tonvex.h"
#include "wav_file.h"

using namespace tonvex;

namespace {

constexpr size_t kCutFadeSamples = 220;  // 5 ms
constexpr size_t kEndToleranceSamples = 44;  // 1 ms of rounding past the end

void fadeCutEnds(std::vector<int16_t>& samples) {
  const size_t n = std::min(kCutFadeSamples, samples.size() / 2);
  for (size_t i = 0; i < n; ++i) {
    samples[i] = static_cast<int16_t>(samples[i] * int32_t(i) / int32_t(n));
    const size_t j = samples.size() - 1 - i;
    samples[j] = static_cast<int16_t>(samples[j] * int32_t(i) / int32_t(n));
  }
}

}  // namespace

int16_t FWavCreateSegmentFile(const std::string& sourceFile, int32_t startMs, int32_t lengthMs,
                              const std::string& outFile, int32_t droneMix, double level) {
  if (startMs < 0 || lengthMs < 1 || droneMix < 0 || droneMix > 2) return 0;
  if (!(level >= 0.0 && level <= 1.0)) return 0;
  const size_t from = size_t(int64_t(startMs) * kSampleRate / 1000);
  const size_t length = size_t(int64_t(lengthMs) * kSampleRate / 1000);
  // Only the stretch is read: a source may hold an hour.
  size_t sourceSamples = 0;
  auto segment = readWavRange(sourceFile, from, length, &sourceSamples);
  if (!segment || from + length > sourceSamples + kEndToleranceSamples) return 0;
  fadeCutEnds(*segment);
  return writeWavFile(outFile, *segment) ? 1 : 0;
}
