// The drone operations: preparing the tanpura cycle from the drone set's
// seeds (rendered again only when the seeds, note or type changed, so that a
// loudness step is instant), and writing the drone alone into a file. They change
// libraryState().drone and, through the dayan's tuning, the rendered strokes.
#include <algorithm>
#include <cmath>

#include "library_state.h"
#include "pcm.h"
#include "sample_sink.h"
#include "tanpura.h"
#include "theka_mix.h"
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
std::array<TanpuraString, 4> tanpuraStrings(const NoteSet& set, int32_t saNote, int32_t droneType) {
  constexpr double unitMs = kDroneCycleMs / 6.0;
  return {TanpuraString{stringSeed(set, saNote + firstStringOffset(droneType)), 7000.0, 0.0, 0.9},
          TanpuraString{stringSeed(set, saNote), 6000.0, 2 * unitMs, 0.8},
          TanpuraString{stringSeed(set, saNote), 6000.0, 3 * unitMs, 0.8},
          TanpuraString{stringSeed(set, saNote - 12), 10000.0, 4 * unitMs, 1.0}};
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

// Writes the cycles block by block into the sink, with the file's fades.
bool writeDroneCycles(const DroneSound& drone, size_t total, size_t fadeIn, size_t fadeOut,
                      float gain, SampleSink& sink) {
  constexpr size_t kBlock = 4096;
  std::array<int16_t, kBlock> pcm;
  const size_t cycle = drone.cycle.size();
  for (size_t from = 0; from < total; from += kBlock) {
    const size_t n = std::min(kBlock, total - from);
    for (size_t i = 0; i < n; ++i)
      pcm[i] = toPcm16(drone.cycle[(from + i) % cycle] * fileFade(from + i, total, fadeIn, fadeOut) * gain);
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
  if (sa == nullptr) return 0;
  const auto strings = tanpuraStrings(*set, noteId, droneType);
  for (const TanpuraString& s : strings)
    if (s.seed == nullptr) return 0;
  LibraryState& state = libraryState();
  const DroneKey key{state.seedVersion, set->name, noteId, droneType};
  if (state.drone && state.drone->key == key) {  // a loudness step only
    state.drone->factor = droneFactor;
    return 1;
  }
  state.drone = DroneSound{renderTanpuraCycle(strings, kCycleSamples), droneFactor, key};
  state.dronePhase = 0;
  state.droneSaHz = kSampleRate / sa->effectiveSpc();
  retuneTheka(state);
  return 1;
}

int16_t FWavGenerateDroneFile(int32_t droneCycles, const std::string& outFile, int32_t fileMode) {
  const LibraryState& state = libraryState();
  if (!state.drone || droneCycles < 1 || droneCycles > 100 || (fileMode != 1 && fileMode != 2))
    return 0;
  const size_t total = kCycleSamples * size_t(droneCycles);
  const size_t fadeIn = fileMode == 1 ? kSampleRate / 50 : kSampleRate * 3 / 1000;
  const size_t fadeOut = fileMode == 1 ? kSampleRate * 2 / 5 : 0;
  const float gain = std::min(kDroneFileGain * float(state.drone->factor), 0.97f);
  const auto sink = openWavFileSink(outFile);
  return sink && writeDroneCycles(*state.drone, total, fadeIn, fadeOut, gain, *sink) &&
                 sink->finish()
             ? 1
             : 0;
}
