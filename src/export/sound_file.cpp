// One sound file from many wave files, through libsndfile.
#include "export/sound_file.h"

#include <sndfile.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <memory>

#include "export/score.h"

namespace {

constexpr int kSampleRate = 44100;
constexpr sf_count_t kBlockFrames = 16384;

struct SoundFileCloser {
  void operator()(SNDFILE* f) const { sf_close(f); }
};
using SoundFile = std::unique_ptr<SNDFILE, SoundFileCloser>;

// Copies the samples of one wave file into out; "" or why not.
std::string copyWave(const std::string& wave, SNDFILE* out) {
  SF_INFO info{};
  SoundFile in(sf_open(wave.c_str(), SFM_READ, &info));
  if (!in) return "the music file " + wave + " could not be read";
  std::vector<float> block(static_cast<std::size_t>(kBlockFrames * info.channels));
  for (sf_count_t got; (got = sf_readf_float(in.get(), block.data(), kBlockFrames)) > 0;)
    if (sf_writef_float(out, block.data(), got) != got) return sf_strerror(out);
  return "";
}

std::string writeSilence(SNDFILE* out, int ms) {
  const std::vector<float> silence(static_cast<std::size_t>(kSampleRate) * static_cast<std::size_t>(ms) / 1000);
  const auto frames = static_cast<sf_count_t>(silence.size());
  return sf_writef_float(out, silence.data(), frames) == frames ? "" : sf_strerror(out);
}

}  // namespace

int fSoundFormatFor(const std::string& path) {
  std::string ext = std::filesystem::path(path).extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
  if (ext == ".wav") return SF_FORMAT_WAV | SF_FORMAT_PCM_16;
  if (ext == ".flac") return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
  if (ext == ".ogg") return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
  return 0;
}

std::string fEncodeSound(const std::vector<std::vector<std::string>>& itemWaves, const std::string& outFile,
                         int format, const std::function<bool(double)>& progress) {
  SF_INFO info{};
  info.samplerate = kSampleRate;
  info.channels = 1;
  info.format = format;
  SoundFile out(sf_open(outFile.c_str(), SFM_WRITE, &info));
  if (!out) return sf_strerror(nullptr);
  std::size_t total = 0, done = 0;
  for (const auto& waves : itemWaves) total += waves.size();
  for (std::size_t i = 0; i < itemWaves.size(); ++i) {
    if (i > 0) {
      const std::string fault = writeSilence(out.get(), kPauseBetweenItemsMs);
      if (!fault.empty()) return fault;
    }
    for (const std::string& wave : itemWaves[i]) {
      const std::string fault = copyWave(wave, out.get());
      if (!fault.empty()) return fault;
      if (!progress(0.05 + 0.9 * static_cast<double>(++done) / static_cast<double>(std::max<std::size_t>(total, 1))))
        return "cancelled";
    }
  }
  if (sf_close(out.release()) != 0) return "the file could not be finished (is the disk full?)";
  return "";
}
