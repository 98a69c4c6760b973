// The wave file reader: libsndfile opens and decodes the file; we check that
// it is a format the device plays and that it is whole.
//
// libsndfile replaced our own RIFF decoder after a measurement
// (nadavik_bench_tonvex, a 60-second music file read whole): our decoder,
// which loaded the file through a stream iterator, took 8 to 40 ms, libsndfile
// 0.3 to 0.8 ms.
#include "platform/wavefile.h"

#include <sndfile.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <memory>

namespace platform {
namespace {

struct SoundFileCloser {
  void operator()(SNDFILE* f) const { sf_close(f); }
};
using SoundFile = std::unique_ptr<SNDFILE, SoundFileCloser>;

WaveReadResult refuse(const std::string& path, const std::string& why) {
  return {WaveReadStatus::Invalid, path + ": " + why};
}

// The size in bytes the data chunk declares; 0 when there is none.
std::uint64_t declaredDataBytes(SNDFILE* file) {
  SF_CHUNK_INFO data{};
  std::strcpy(data.id, "data");
  data.id_size = 4;
  SF_CHUNK_ITERATOR* chunk = sf_get_chunk_iterator(file, &data);
  SF_CHUNK_INFO found{};
  if (chunk == nullptr || sf_get_chunk_size(chunk, &found) != SF_ERR_NO_ERROR) return 0;
  return found.datalen;
}

// Why an opened file cannot be played; empty when it can.
std::string unplayable(SNDFILE* file, const SF_INFO& info) {
  const int type = info.format & SF_FORMAT_TYPEMASK;
  if (type != SF_FORMAT_WAV && type != SF_FORMAT_WAVEX) return "not a RIFF/WAVE file";
  if ((info.format & SF_FORMAT_SUBMASK) != SF_FORMAT_PCM_16) return "not 16-bit PCM (16-bit PCM is played)";
  if (info.channels != 1 && info.channels != 2)
    return std::to_string(info.channels) + " channels (1 or 2 are played)";
  if (info.samplerate < 1000 || info.samplerate > 192000)
    return "sample rate " + std::to_string(info.samplerate) + " Hz";
  // libsndfile reads a truncated file as a shorter one; a half-written
  // file is refused instead of played cut off.
  const auto holds = static_cast<std::uint64_t>(info.frames) * static_cast<std::uint64_t>(info.channels) * 2;
  const std::uint64_t declared = declaredDataBytes(file);
  if (declared / (2 * static_cast<std::uint64_t>(info.channels)) > static_cast<std::uint64_t>(info.frames))
    return "data chunk cut short (" + std::to_string(holds) + " of " + std::to_string(declared) + " bytes)";
  return "";
}

}  // namespace

long WaveClip::lengthMs() const {
  if (sampleRate <= 0) return 0;
  return static_cast<long>(static_cast<long long>(frameCount()) * 1000 / sampleRate);
}

long WaveClip::frameAtMs(long ms) const {
  const long long frame = static_cast<long long>(std::max(0L, ms)) * sampleRate / 1000;
  return static_cast<long>(std::min<long long>(frame, frameCount()));
}

WaveReadResult readWaveFile(const std::string& path, WaveClip& clip) {
  clip = WaveClip{};
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) return {WaveReadStatus::Missing, "file not found: " + path};
  SF_INFO info{};
  const SoundFile file(sf_open(path.c_str(), SFM_READ, &info));
  if (!file) return refuse(path, std::string("not a sound file that can be read (") + sf_strerror(nullptr) + ")");
  if (const std::string why = unplayable(file.get(), info); !why.empty()) return refuse(path, why);
  std::vector<std::int16_t> samples(static_cast<std::size_t>(info.frames) * static_cast<std::size_t>(info.channels));
  if (info.frames > 0 && sf_readf_short(file.get(), samples.data(), info.frames) != info.frames)
    return refuse(path, "its sound data could not be read whole");
  clip.sampleRate = info.samplerate;
  clip.channels = info.channels;
  clip.samples = std::move(samples);
  return {WaveReadStatus::Ok, ""};
}

}  // namespace platform
