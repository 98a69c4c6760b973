// The drone operations: preparing the tanpura cycle from the drone set's
// seeds (rendered again only when the seeds, note or type changed, so that a
// loudness step is instant), and writing the drone alone into a file. They change
// libraryState().drone and, through the dayan's tuning, the rendered strokes.
#include <algorithm>
#include <cmath>

#include "library_state.h"
#include "pcm.h"
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

void fade(std::vector<float>& samples, size_t inSamples, size_t outSamples) {
  inSamples = std::min(inSamples, samples.size());
  outSamples = std::min(outSamples, samples.size());
  for (size_t n = 0; n < inSamples; ++n) samples[n] *= float(n) / float(inSamples);
  for (size_t n = 0; n < outSamples; ++n) samples[samples.size() - 1 - n] *= float(n) / float(outSamples);
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
  std::vector<float> samples;
  samples.reserve(kCycleSamples * size_t(droneCycles));
  for (int32_t c = 0; c < droneCycles; ++c)
    samples.insert(samples.end(), state.drone->cycle.begin(), state.drone->cycle.end());
  if (fileMode == 1) fade(samples, kSampleRate / 50, kSampleRate * 2 / 5);
  else fade(samples, kSampleRate * 3 / 1000, 0);
  const float gain = kDroneFileGain * float(state.drone->factor);
  return writeWavFile(outFile, toPcm16(samples, std::min(gain, 0.97f))) ? 1 : 0;
}
