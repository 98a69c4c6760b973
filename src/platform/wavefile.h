// Reading PCM wave files for playback.
//
// The synthesis library writes 16-bit mono files at 44 100 Hz; the reader
// takes 16-bit PCM with one or two channels at any rate and refuses anything
// else with a reason: a missing file, a file too short for its header or its
// data chunk, a file that is not RIFF/WAVE, or another sample format.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

// The decoded contents of a wave file. Samples are interleaved frames.
struct WaveClip {
  int sampleRate = 0;   // frames per second
  int channels = 0;     // 1 or 2
  std::vector<std::int16_t> samples;

  long frameCount() const {
    return channels > 0 ? static_cast<long>(samples.size()) / channels : 0;
  }
  // Whole milliseconds of sound, rounded down.
  long lengthMs() const;
  // The frame at which millisecond ms begins, clamped to the clip.
  long frameAtMs(long ms) const;
};

enum class WaveReadStatus { Ok, Missing, Invalid };

struct WaveReadResult {
  WaveReadStatus status = WaveReadStatus::Invalid;
  std::string error;  // why the file was refused; empty when Ok
};

// Reads path into clip. On failure clip is left empty.
WaveReadResult readWaveFile(const std::string& path, WaveClip& clip);

// Decodes the bytes of a whole wave file (what readWaveFile does after
// loading it), so that a buffer can be checked without a file.
WaveReadResult decodeWave(const std::vector<std::uint8_t>& bytes, WaveClip& clip);

}  // namespace platform
