// The two generate-music operations: a phrase with optional drone, and the
// same mixed with a tabla theka. They read libraryState() only.
#include "library_state.h"
#include "melody.h"
#include "theka_mix.h"
#include "tokens.h"
#include "tonvex/tonvex.h"
#include "variation.h"

using namespace tonvex;

namespace {

constexpr float kThekaGain = 0.4f;
constexpr int32_t kMaxBeatMs = 10000, kMaxBeats = 64;

// Writes the mix and, when its drone sounds, moves the drone's phase on by
// the file's length, so that the next file goes on from there.
int16_t writeAndMoveDrone(LibraryState& state, const MusicRequest& request, const std::string& outFile,
                          Mix& mix) {
  if (!writeMix(outFile, mix)) return 0;
  if (request.droneMix > 0)
    state.dronePhase = (state.dronePhase + mix.samples.size()) % state.drone->cycle.size();
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
  auto mix = renderMelodyAndDrone(state, request);
  return mix ? writeAndMoveDrone(state, request, outFile, *mix) : 0;
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
  auto mix = renderMelodyAndDrone(state, request);
  if (!mix) return 0;
  const double beatSamples = double(beatMs) * kSampleRate / 1000.0;
  const ThekaCycle cycle{startBeat, beatCount, seedFromText(theka, seedFromText(notes))};
  addTheka(*state.theka, *tokens, mix->noteStarts, beatSamples, kThekaGain, cycle, mix->samples);
  return writeAndMoveDrone(state, request, outFile, *mix);
}
