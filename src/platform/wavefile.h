// Reading PCM wave files for playback, through libsndfile.
//
// The synthesis library writes 16-bit mono files at 44 100 Hz; the reader
// takes 16-bit PCM wave files with one or two channels at any rate and
// refuses anything else with one message that names the file and the
// reason: a missing file, a file libsndfile cannot read (not RIFF/WAVE, its
// header cut short), a file cut short in its data, or another sample format.
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
  std::string error;  // "<path>: why the file was refused"; empty when Ok
};

// Reads path into clip. On failure clip is left empty.
WaveReadResult readWaveFile(const std::string& path, WaveClip& clip);

}  // namespace platform
