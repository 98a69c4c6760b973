// The drone operations: preparing the tanpura from the drone set's seeds
// (rendered only for strings not heard lately: a loudness step, or a switch
// back to a recent tonic or drone type, takes the cached sound), and writing
// the drone alone into a file. They change libraryState().drone and its
// cache and, through the dayan's tuning, the rendered strokes.
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "library_state.h"
#include "pcm.h"
#include "sample_sink.h"
#include "tanpura.h"
#include "theka_mix.h"
#include "variation.h"
#include "tonvex/tonvex.h"
#include "wav_file.h"

using namespace tonvex;

namespace {

constexpr size_t kCycleSamples = size_t(kDroneCycleMs) * kSampleRate / 1000;
constexpr double kMinFactor = 0.3, kMaxFactor = 1.7;
constexpr float kDroneFileGain = 0.6f;

// Semitones from the drone's Sa to its first string: lower Pa, lower Ma or
// lower (shuddha) Ni.
int firstStringOffset(int32_t droneType) { return droneType == 1 ? -5 : droneType == 2 ? -7 : -1; }

// The seed of a string note, or of the note an octave up when the set has no
// such low note.
const NoteSeed* stringSeed(const NoteSet& set, int32_t noteId) {
  if (const NoteSeed* seed = findSeed(set, noteId)) return seed;
  return findSeed(set, noteId + 12);
}

// Counts of 2-1-1-2 over the cycle: the first string at 0, the two Sa strings
// a third and a half of the way, the low Sa at two thirds, then rest.
std::optional<std::array<TanpuraString, 4>> tanpuraStrings(const NoteSet& set, int32_t saNote,
                                                           int32_t droneType) {
  constexpr double unitMs = kDroneCycleMs / 6.0;
  const NoteSeed* first = stringSeed(set, saNote + firstStringOffset(droneType));
  const NoteSeed* sa = stringSeed(set, saNote);
  const NoteSeed* lowSa = stringSeed(set, saNote - 12);
  if (first == nullptr || sa == nullptr || lowSa == nullptr) return std::nullopt;
  return std::array<TanpuraString, 4>{TanpuraString{*first, 7000.0, 0.0, 0.9},
                                      TanpuraString{*sa, 6000.0, 2 * unitMs, 0.8},
                                      TanpuraString{*sa, 6000.0, 3 * unitMs, 0.8},
                                      TanpuraString{*lowSa, 10000.0, 4 * unitMs, 1.0}};
}

// A hash of everything the strings sound from: their seeds' samples and tuned
// periods, ring times, pluck times and gains. It keys the cache and seeds the
// plucks' variation, so the same strings always sound the same.
uint64_t stringsHash(const std::array<TanpuraString, 4>& strings) {
  uint64_t h = seedFromText({});
  const auto add = [&h](const auto& value) {
    h = seedFromText(std::string_view(reinterpret_cast<const char*>(&value), sizeof value), h);
  };
  for (const TanpuraString& s : strings) {
    h = seedFromText(std::string_view(reinterpret_cast<const char*>(s.seed.samples.data()),
                                      s.seed.samples.size() * sizeof(int16_t)), h);
    add(s.seed.effectiveSpc());
    add(s.ringMs);
    add(s.pluckMs);
    add(s.gain);
  }
  return h;
}

DroneSound renderDrone(const std::array<TanpuraString, 4>& strings, const DroneKey& key) {
  DroneSound drone{renderTanpuraLoop(strings, kCycleSamples, kDroneVariants, key.strings), 1.0, key,
                   strings, 1.0f};
  const float peak = peakOf(drone.cycle);
  drone.scale = peak > 0.0f ? 1.0f / peak : 0.0f;
  for (float& v : drone.cycle) v *= drone.scale;
  return drone;
}

// The drone of that key from the cache, or rendered and cached.
DroneSound cachedDrone(LibraryState& state, const std::array<TanpuraString, 4>& strings,
                       const DroneKey& key) {
  auto& cache = state.droneCache;
  auto hit = std::find_if(cache.begin(), cache.end(), [&key](const DroneSound& d) { return d.key == key; });
  if (hit == cache.end()) {
    if (cache.size() == kDroneCacheSize) cache.pop_back();
    hit = cache.insert(cache.begin(), renderDrone(strings, key));
  }
  std::rotate(cache.begin(), hit, hit + 1);  // most recent first
  return cache.front();
}

// The loop a drone file of `cycles` cycles repeats: the drone's own loop
// when whole repeats of it fit, otherwise the strings rendered again over
// that length, so that the file too loops seamlessly.
std::vector<float> droneFileLoop(const DroneSound& drone, int32_t cycles) {
  if (cycles % kDroneVariants == 0) return {};
  auto samples = renderTanpuraLoop(drone.strings, kCycleSamples, cycles, drone.key.strings);
  for (float& v : samples) v *= drone.scale;
  return samples;
}

// The drone file's gain at sample n of total: 1, rising from 0 over the
// first fadeIn samples and falling to 0 over the last fadeOut.
float fileFade(size_t n, size_t total, size_t fadeIn, size_t fadeOut) {
  fadeIn = std::min(fadeIn, total);
  fadeOut = std::min(fadeOut, total);
  float g = 1.0f;
  if (n < fadeIn) g *= float(n) / float(fadeIn);
  if (n >= total - fadeOut) g *= float(total - 1 - n) / float(fadeOut);
  return g;
}

// Writes total samples of the loop, repeated, block by block into the sink,
// with the file's fades.
bool writeDroneLoop(std::span<const float> loop, size_t total, size_t fadeIn, size_t fadeOut,
                    float gain, SampleSink& sink) {
  constexpr size_t kBlock = 4096;
  std::array<int16_t, kBlock> pcm;
  for (size_t from = 0; from < total; from += kBlock) {
    const size_t n = std::min(kBlock, total - from);
    for (size_t i = 0; i < n; ++i)
      pcm[i] = toPcm16(loop[(from + i) % loop.size()] * fileFade(from + i, total, fadeIn, fadeOut) * gain);
    if (!sink.write({pcm.data(), n})) return false;
  }
  return true;
}

}  // namespace

int16_t FWavLoadDroneData(const std::string& /*path*/, int32_t noteId, int32_t droneType,
                          const std::string& droneSet, double droneFactor, int32_t droneMode) {
  const NoteSet* set = findNoteSet(droneSet);
  if (set == nullptr || droneType < 1 || droneType > 3 || (droneMode != 1 && droneMode != 2))
    return 0;
  if (!(droneFactor >= kMinFactor && droneFactor <= kMaxFactor)) return 0;
  const NoteSeed* sa = findSeed(*set, noteId);
  const auto strings = tanpuraStrings(*set, noteId, droneType);
  if (sa == nullptr || !strings) return 0;
  LibraryState& state = libraryState();
  const DroneKey key{set->name, noteId, droneType, stringsHash(*strings)};
  if (state.drone && state.drone->key == key) {  // a loudness step only
    state.drone->factor = droneFactor;
    return 1;
  }
  state.drone = cachedDrone(state, *strings, key);
  state.drone->factor = droneFactor;
  state.dronePhase = 0;
  state.droneSaHz = kSampleRate / sa->effectiveSpc();
  retuneTheka(state);
  return 1;
}

int16_t FWavGenerateDroneFile(int32_t droneCycles, const std::string& outFile, int32_t fileMode) {
  const LibraryState& state = libraryState();
  if (!state.drone || droneCycles < 1 || droneCycles > 100 || (fileMode != 1 && fileMode != 2))
    return 0;
  const std::vector<float> rendered = droneFileLoop(*state.drone, droneCycles);
  const std::span<const float> loop = rendered.empty() ? std::span<const float>(state.drone->cycle)
                                                       : std::span<const float>(rendered);
  // The greeting (mode 1) is heard once: it fades in and out. A drone to
  // loop (mode 2) is not faded at all, so that its end runs on into its
  // start with no hole or step at the seam (the output fades in itself
  // where it starts from silence).
  const size_t total = kCycleSamples * size_t(droneCycles);
  const size_t fadeIn = fileMode == 1 ? kSampleRate / 50 : 0;
  const size_t fadeOut = fileMode == 1 ? kSampleRate * 2 / 5 : 0;
  const float gain = std::min(kDroneFileGain * float(state.drone->factor), 0.97f);
  const auto sink = openWavFileSink(outFile);
  return sink && writeDroneLoop(loop, total, fadeIn, fadeOut, gain, *sink) && sink->finish() ? 1 : 0;
}
