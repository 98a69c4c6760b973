// Phrase rendering: note starts on the rounded running sums of the durations
// (so the file's length is their sum to within a sample), one reed voice per
// token with its envelope, the reeds' phases carried across tokens, then the
// drone cycle repeated underneath. Stateless.
#include "melody.h"

#include <algorithm>
#include <cmath>

#include "pcm.h"
#include "reed_voice.h"
#include "tokens.h"
#include "wav_file.h"

namespace tonvex {
namespace {

constexpr int32_t kMaxNotes = 10000;
constexpr double kMaxNoteMs = 60000.0, kMaxTotalMs = 600000.0;
constexpr float kMaxMelodyPeak = 0.9f, kMelodyPerLevel = 2.25f;
constexpr float kDroneGain[3] = {0.0f, 0.25f, 0.4f};
constexpr int64_t kEdgeFadeSamples = 132;  // 3 ms
constexpr float kHeadroomPeak = 0.97f;

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

void addDrone(const DroneSound& drone, float gain, std::vector<float>& out) {
  const size_t cycle = drone.cycle.size();
  for (size_t at = 0; at < out.size(); at += cycle) {
    const size_t n = std::min(cycle, out.size() - at);
    for (size_t i = 0; i < n; ++i) out[at + i] += gain * drone.cycle[i];
  }
}

void fadeEdges(std::vector<float>& samples) {
  const int64_t n = std::min<int64_t>(kEdgeFadeSamples, int64_t(samples.size()) / 2);
  for (int64_t i = 0; i < n; ++i) {
    const float g = float(i) / float(n);
    samples[size_t(i)] *= g;
    samples[samples.size() - 1 - size_t(i)] *= g;
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
  std::vector<TokenVoice> voices;
  for (size_t i = 0; i < tokens->size(); ++i) {
    const NoteToken& t = (*tokens)[i];
    TokenVoice v{t.graceNote < 0 ? nullptr : findSeed(*set, t.graceNote), findSeed(*set, t.mainNote),
                 graceLeadSamples((*durations)[i]), (*starts)[i + 1] - (*starts)[i]};
    if (v.main == nullptr || (t.graceNote >= 0 && v.grace == nullptr)) return std::nullopt;
    voices.push_back(v);
  }

  Mix mix{std::vector<float>(size_t(starts->back()), 0.0f), *starts};
  const float gain = std::min(kMaxMelodyPeak, kMelodyPerLevel * float(r.level)) * float(r.synthVolume);
  const int64_t total = starts->back();
  ReedPhases phases;
  std::vector<float> env;
  for (size_t i = 0; i < voices.size(); ++i) {
    const int64_t start = (*starts)[i];
    fillNoteEnvelope(*shape, voices[i].nextStart, i + 1 == voices.size(), env);
    env.resize(size_t(std::min<int64_t>(int64_t(env.size()), total - start)));
    addTokenVoice(voices[i], env, gain, phases, mix.samples.data() + start);
  }
  if (r.droneMix > 0)
    addDrone(*state.drone, kDroneGain[r.droneMix] * float(state.drone->factor), mix.samples);
  return mix;
}

bool writeMix(const std::string& outFile, const Mix& mix) {
  std::vector<float> samples = mix.samples;
  fadeEdges(samples);
  const float peak = peakOf(samples);
  const float gain = peak > kHeadroomPeak ? kHeadroomPeak / peak : 1.0f;
  return writeWavFile(outFile, toPcm16(samples, gain));
}

}  // namespace tonvex
