// Phrase rendering: note starts on the rounded running sums of the durations
// (so the file's length is their sum to within a sample), one reed voice per
// token with its envelope and a noisy reed onset, the reeds' phases carried
// across tokens, a slow bellows swell over the whole melody, then the drone
// cycle repeated underneath. A note that repeats the one before it is struck
// again: the first fades out 30 ms before the second's fresh attack,
// as a player lifts the finger and presses the key again, so "S S R R" is
// four notes, not two. The onsets' noise comes from a generator seeded from
// the phrase's text, so the same phrase always renders the same file.
// Stateless.
#include "melody.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pcm.h"
#include "reed_voice.h"
#include "tokens.h"
#include "variation.h"
#include "wav_file.h"

namespace tonvex {
namespace {

constexpr int32_t kMaxNotes = 10000;
constexpr double kMaxNoteMs = 60000.0, kMaxTotalMs = 600000.0;
constexpr float kMaxMelodyPeak = 0.9f, kMelodyPerLevel = 3.0f;
constexpr float kDroneGain[3] = {0.0f, 0.25f, 0.4f};
constexpr int64_t kEdgeFadeSamples = 132;  // 3 ms
constexpr int64_t kRestrikeGapSamples = 30 * kSampleRate / 1000;
// Soft limiter: above the knee, peaks bend smoothly towards the ceiling.
constexpr float kLimiterKnee = 0.8f, kLimiterCeiling = 0.97f;

std::optional<std::vector<int64_t>> noteStartsOf(std::span<const double> durationsMs) {
  std::vector<int64_t> starts{0};
  double totalMs = 0.0;
  for (double ms : durationsMs) {
    if (!(ms >= 1.0 && ms <= kMaxNoteMs)) return std::nullopt;
    totalMs += ms;
    starts.push_back(std::llround(totalMs * kSampleRate / 1000.0));
  }
  if (totalMs > kMaxTotalMs) return std::nullopt;
  return starts;
}

bool validScalars(const LibraryState& state, const MusicRequest& r) {
  if (r.noteCount < 1 || r.noteCount > kMaxNotes) return false;
  if (r.droneMix < 0 || r.droneMix > 2 || (r.droneMix > 0 && !state.drone)) return false;
  if (!(r.level >= 0.0 && r.level <= 1.0)) return false;
  return r.synthVolume >= 1 && r.synthVolume <= 4;
}

// The bellows: a player cannot hold the pressure quite steady, so the reeds'
// loudness swells by a percent or two at two slow, unrelated rates. Evaluated
// every 256 samples and interpolated.
void applyBellows(std::vector<float>& melody) {
  constexpr size_t kBlock = 256;
  auto pressure = [](size_t n) {
    const double t = double(n) / kSampleRate;
    return float(1.0 + 0.012 * std::sin(2.0 * std::numbers::pi * 0.41 * t) +
                 0.008 * std::sin(2.0 * std::numbers::pi * 0.13 * t + 1.0));
  };
  for (size_t b = 0; b < melody.size(); b += kBlock) {
    const float from = pressure(b), slope = (pressure(b + kBlock) - from) / float(kBlock);
    const int n = int(std::min(kBlock, melody.size() - b));
    for (int i = 0; i < n; ++i) melody[b + size_t(i)] *= from + slope * float(i);
  }
}

void addDrone(const DroneSound& drone, float gain, size_t phase, std::vector<float>& out) {
  const size_t cycle = drone.cycle.size();
  for (size_t i = 0; i < out.size(); ++i) out[i] += gain * drone.cycle[(phase + i) % cycle];
}

void fadeEdges(std::vector<float>& samples) {
  const int64_t n = std::min<int64_t>(kEdgeFadeSamples, int64_t(samples.size()) / 2);
  for (int64_t i = 0; i < n; ++i) {
    const float g = float(i) / float(n);
    samples[size_t(i)] *= g;
    samples[samples.size() - 1 - size_t(i)] *= g;
  }
}

void limitPeaks(std::vector<float>& samples) {
  constexpr float range = kLimiterCeiling - kLimiterKnee;
  for (float& x : samples) {
    const float magnitude = std::fabs(x);
    if (magnitude > kLimiterKnee) {
      const float bent = kLimiterKnee + range * std::tanh((magnitude - kLimiterKnee) / range);
      x = std::copysign(bent, x);
    }
  }
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

// Whether voice i is followed by a press of the same key, to be struck again.
bool restruck(std::span<const TokenVoice> voices, size_t i) {
  return i + 1 < voices.size() && voices[i + 1].grace == nullptr && voices[i + 1].main == voices[i].main;
}

// Adds every voice with its envelope and onset; the last note fades inside
// the file, and so does a note before its own repetition, kRestrikeGapSamples
// (at most a quarter of the note) early.
void addVoices(std::span<const TokenVoice> voices, std::span<const int64_t> starts,
               const EnvelopeShape& shape, float gain, Variation& variation, std::vector<float>& out) {
  const int64_t total = static_cast<int64_t>(out.size());
  ReedPhases phases;
  std::vector<float> env;
  for (size_t i = 0; i < voices.size(); ++i) {
    const int64_t hold = voices[i].nextStart;
    if (restruck(voices, i))
      fillNoteEnvelope(shape, hold - std::min(kRestrikeGapSamples, hold / 4), true, env);
    else fillNoteEnvelope(shape, hold, i + 1 == voices.size(), env);
    env.resize(size_t(std::min<int64_t>(int64_t(env.size()), total - starts[i])));
    addTokenVoice(voices[i], env, gain, phases, out.data() + starts[i]);
    addReedOnset(variation, gain * shape.peak, out.data() + starts[i], int64_t(env.size()));
  }
}

}  // namespace

std::optional<Mix> renderMelodyAndDrone(const LibraryState& state, const MusicRequest& r) {
  const auto shape = makeEnvelopeShape(r.peakPermille, r.attackMs, r.sustainPct, r.releaseMs);
  const NoteSet* set = findNoteSet(std::string(1, state.currInstr));
  if (!shape || set == nullptr || !validScalars(state, r)) return std::nullopt;
  const auto tokens = parseNoteTokens(r.notes);
  const auto durations = parseDurationsMs(r.durations);
  if (!tokens || !durations || tokens->size() != size_t(r.noteCount) ||
      durations->size() != size_t(r.noteCount))
    return std::nullopt;
  const auto starts = noteStartsOf(*durations);
  if (!starts) return std::nullopt;
  const auto voices = tokenVoices(*set, *tokens, *durations, *starts);
  if (!voices) return std::nullopt;

  Mix mix{std::vector<float>(size_t(starts->back()), 0.0f), *starts};
  const float gain = std::min(kMaxMelodyPeak, kMelodyPerLevel * float(r.level)) * float(r.synthVolume);
  Variation variation(seedFromText(r.durations, seedFromText(r.notes)));
  addVoices(*voices, *starts, *shape, gain, variation, mix.samples);
  applyBellows(mix.samples);
  fadeEdges(mix.samples);
  if (r.droneMix > 0)
    addDrone(*state.drone, kDroneGain[r.droneMix] * float(state.drone->factor), r.dronePhase,
             mix.samples);
  return mix;
}

bool writeMix(const std::string& outFile, Mix& mix) {
  limitPeaks(mix.samples);
  return writeWavFile(outFile, toPcm16(mix.samples, 1.0f));
}

}  // namespace tonvex
