// Phrase planning: note starts on the rounded running sums of the durations
// (so the file's length is their sum to within a sample), one reed voice
// per token, and the seed of the reeds' noisy onsets, taken from the
// phrase's text so that the same phrase always renders the same file.
// Stateless.
#include "melody.h"

#include <algorithm>
#include <cmath>

#include "tokens.h"
#include "variation.h"

namespace tonvex {
namespace {

constexpr double kMaxNoteMs = 60000.0;
constexpr float kMaxMelodyPeak = 0.9f, kMelodyPerLevel = 3.0f;
constexpr float kDroneGain[3] = {0.0f, 0.25f, 0.4f};

std::optional<std::vector<int64_t>> noteStartsOf(std::span<const double> durationsMs) {
  std::vector<int64_t> starts{0};
  double totalMs = 0.0;
  for (double ms : durationsMs) {
    if (!(ms >= 1.0 && ms <= kMaxNoteMs)) return std::nullopt;
    totalMs += ms;
    starts.push_back(std::llround(totalMs * kSampleRate / 1000.0));
  }
  if (totalMs > kMaxMusicMs) return std::nullopt;
  return starts;
}

bool validScalars(const LibraryState& state, const MusicRequest& r) {
  if (r.noteCount < 1 || r.noteCount > kMaxMusicNotes) return false;
  if (r.droneMix < 0 || r.droneMix > 2 || (r.droneMix > 0 && !state.drone)) return false;
  if (!(r.level >= 0.0 && r.level <= 1.0)) return false;
  return r.synthVolume >= 1 && r.synthVolume <= 4;
}

// The voice of each token, or nullopt when a note has no seed.
std::optional<std::vector<TokenVoice>> tokenVoices(const NoteSet& set,
                                                   std::span<const NoteToken> tokens,
                                                   std::span<const double> durationsMs,
                                                   std::span<const int64_t> starts) {
  std::vector<TokenVoice> voices;
  for (size_t i = 0; i < tokens.size(); ++i) {
    const NoteToken& t = tokens[i];
    const TokenVoice v{t.graceNote < 0 ? nullptr : findSeed(set, t.graceNote),
                       findSeed(set, t.mainNote), graceLeadSamples(durationsMs[i]),
                       starts[i + 1] - starts[i]};
    if (v.main == nullptr || (t.graceNote >= 0 && v.grace == nullptr)) return std::nullopt;
    voices.push_back(v);
  }
  return voices;
}

}  // namespace

std::optional<MelodyPlan> planMelody(const LibraryState& state, const MusicRequest& r) {
  const auto shape = makeEnvelopeShape(r.peakPermille, r.attackMs, r.sustainPct, r.releaseMs);
  const NoteSet* set = findNoteSet(std::string(1, state.currInstr));
  if (!shape || set == nullptr || !validScalars(state, r)) return std::nullopt;
  const auto tokens = parseNoteTokens(r.notes);
  const auto durations = parseDurationsMs(r.durations);
  if (!tokens || !durations || tokens->size() != size_t(r.noteCount) ||
      durations->size() != size_t(r.noteCount))
    return std::nullopt;
  auto starts = noteStartsOf(*durations);
  if (!starts) return std::nullopt;
  auto voices = tokenVoices(*set, *tokens, *durations, *starts);
  if (!voices) return std::nullopt;
  const float gain = std::min(kMaxMelodyPeak, kMelodyPerLevel * float(r.level)) * float(r.synthVolume);
  return MelodyPlan{std::move(*voices), std::move(*starts), *shape, gain,
                    seedFromText(r.durations, seedFromText(r.notes))};
}

float droneGainFor(const LibraryState& state, int32_t droneMix) {
  if (droneMix <= 0 || droneMix > 2 || !state.drone) return 0.0f;
  return kDroneGain[droneMix] * float(state.drone->factor);
}

}  // namespace tonvex
