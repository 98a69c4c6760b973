// The two generate-music operations: a phrase with optional drone, and the
// same mixed with a tabla theka. They read libraryState() only.
#include "library_state.h"
#include "melody.h"
#include "mix_render.h"
#include "theka_mix.h"
#include "tokens.h"
#include "tonvex/tonvex.h"
#include "variation.h"
#include "wav_file.h"

using namespace tonvex;

namespace {

constexpr float kThekaGain = 0.4f;
constexpr int32_t kMaxBeatMs = 10000, kMaxBeats = 64;

// Mixes the melody (and, when given, the theka) over the drone straight
// into outFile and, when its drone sounds, moves the drone's phase on by the
// file's length, so that the next file goes on from there.
int16_t writeMusicFile(LibraryState& state, const MusicRequest& request, const MelodyPlan& melody,
                       std::span<const ThekaToken> theka, int32_t beatMs,
                       const ThekaCycle& cycle, const std::string& outFile) {
  MixPlan plan;
  plan.voices = melody.voices;
  plan.noteStarts = melody.noteStarts;
  plan.shape = melody.shape;
  plan.melodyGain = melody.gain;
  plan.onsetSeed = melody.onsetSeed;
  if (request.droneMix > 0) {
    plan.drone = &*state.drone;
    plan.droneGain = droneGainFor(state, request.droneMix);
    plan.dronePhase = request.dronePhase;
  }
  if (!theka.empty()) {
    plan.kit = &*state.theka;
    plan.theka = theka;
    plan.beatSamples = double(beatMs) * kSampleRate / 1000.0;
    plan.thekaGain = kThekaGain;
    plan.thekaCycle = cycle;
  }
  const auto sink = openWavFileSink(outFile);
  if (!sink || !renderMix(plan, *sink) || !sink->finish()) return 0;
  if (plan.drone)
    state.dronePhase = (state.dronePhase + size_t(melody.noteStarts.back())) % state.drone->cycle.size();
  return 1;
}

}  // namespace

int16_t FWavGenerateMusicFile(int32_t noteCount, const std::string& notes,
                              const std::string& durations, const std::string& outFile,
                              int32_t droneMix, double level, int32_t synthVolume,
                              int32_t peakPermille, int32_t attackMs, int32_t sustainPct,
                              int32_t releaseMs) {
  LibraryState& state = libraryState();
  const MusicRequest request{noteCount,    notes,    durations,  droneMix,  level, synthVolume,
                             peakPermille, attackMs, sustainPct, releaseMs, state.dronePhase};
  const auto melody = planMelody(state, request);
  return melody ? writeMusicFile(state, request, *melody, {}, 0, {}, outFile) : 0;
}

int16_t FWavGenerateMusicFile1(int32_t noteCount, const std::string& notes,
                               const std::string& durations, int32_t startBeat,
                               int32_t beatCount, const std::string& theka,
                               int32_t thekaInstrument, int32_t beatMs,
                               const std::string& outFile, int32_t droneMix, double level,
                               int32_t synthVolume, int32_t peakPermille, int32_t attackMs,
                               int32_t sustainPct, int32_t releaseMs) {
  LibraryState& state = libraryState();
  if (!state.theka || thekaInstrument != state.theka->instrument) return 0;
  if (beatMs < 1 || beatMs > kMaxBeatMs) return 0;
  if (startBeat < 1 || beatCount < startBeat || beatCount > kMaxBeats) return 0;
  const auto tokens = parseThekaTokens(theka);
  if (!tokens || tokens->size() != size_t(noteCount)) return 0;
  const MusicRequest request{noteCount,    notes,    durations,  droneMix,  level, synthVolume,
                             peakPermille, attackMs, sustainPct, releaseMs, state.dronePhase};
  const auto melody = planMelody(state, request);
  const ThekaCycle cycle{startBeat, beatCount, seedFromText(theka, seedFromText(notes))};
  return melody ? writeMusicFile(state, request, *melody, *tokens, beatMs, cycle, outFile) : 0;
}
