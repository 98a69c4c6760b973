// Conversion of float samples to 16-bit PCM: the one place where samples are
// rounded and clamped. Stateless.
#include "pcm.h"


namespace tonvex {

int16_t toPcm16(float x) {
  // Branch-free, so that buffer conversion vectorises.
  float scaled = x * 32767.0f;
  scaled = scaled == scaled ? scaled : 0.0f;  // NaN
  scaled = scaled > 32767.0f ? 32767.0f : scaled;
  scaled = scaled < -32768.0f ? -32768.0f : scaled;
  // Round half away from zero; the truncating conversion is one instruction.
  return static_cast<int16_t>(static_cast<int32_t>(scaled + (scaled >= 0.0f ? 0.5f : -0.5f)));
}

std::vector<int16_t> toPcm16(std::span<const float> samples, float gain) {
  std::vector<int16_t> out(samples.size());
  for (size_t i = 0; i < samples.size(); ++i) out[i] = toPcm16(samples[i] * gain);
  return out;
}

float peakOf(std::span<const float> samples) {
  float peak = 0.0f;
  for (float s : samples) {
    const float magnitude = s < 0.0f ? -s : s;
    peak = magnitude > peak ? magnitude : peak;
  }
  return peak;
}

}  // namespace tonvex
