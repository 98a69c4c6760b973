// Block mixing. The notes' voices are rendered whole, each with its noisy
// reed onset, when the block it starts in comes up, into a melody window
// that holds only the samples not yet mixed (a note's voice runs on past the
// block into its release); each block of the window then gets, in place,
// the bellows, the edge fades, the drone, the theka strokes, the limiter
// and the 16-bit conversion while it is in the cache, and goes to the sink. The order of
// the operations on each sample is that of mixing the whole file at once.
// A note that repeats the one before it is struck again: the first fades
// out 30 ms before the second's fresh attack, as a player lifts the finger
// and presses the key again, so "S S R R" is four notes, not two.
// Stateless.
#include "mix_render.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "pcm.h"
#include "theka_mix.h"
#include "tonvex/tonvex.h"
#include "variation.h"
#include "vector_clones.h"

namespace tonvex {
namespace {

constexpr int64_t kEdgeFadeSamples = 132;  // 3 ms
constexpr int64_t kRestrikeGapSamples = 30 * kSampleRate / 1000;
// Soft limiter: above the knee, peaks bend smoothly towards the ceiling.
constexpr float kLimiterKnee = 0.8f, kLimiterCeiling = 0.97f;
constexpr int64_t kBellowsStep = 256;
static_assert(kMixBlockSamples % kBellowsStep == 0);

// The melody samples from `origin` on that voices have been added to and
// that no block has taken yet. Samples before origin are gone; the buffer
// is kept (and reused) so that a long file does not fault in fresh pages.
class MelodyWindow {
 public:
  // Samples [at, at + n), at not before what was forgotten; samples no
  // voice has written are 0.
  float* room(int64_t at, int64_t n) {
    const size_t end = size_t(at + n - origin_);
    if (end > buffer_.size()) buffer_.resize(end, 0.0f);
    return buffer_.data() + (at - origin_);
  }

  // Forgets the samples before `at`, moving what is left to the front only
  // when that costs less than what was used.
  void forgetBefore(int64_t at) {
    const size_t used = size_t(at - origin_), size = buffer_.size();
    if (used >= size) {
      buffer_.clear();
      origin_ = at;
    } else if (used >= size - used) {
      buffer_.erase(buffer_.begin(), buffer_.begin() + std::ptrdiff_t(used));
      origin_ = at;
    }
  }

 private:
  std::vector<float> buffer_;
  int64_t origin_ = 0;
};

// The bellows: a player cannot hold the pressure quite steady, so the reeds'
// loudness swells by a percent or two at two slow, unrelated rates (0.41 and
// 0.13 Hz). The pressure is known every 256 samples from the file's start,
// by stepping the two sines' phasors, and interpolated between.
class Bellows {
 public:
  // Multiplies the next n samples (a whole number of steps, but for the
  // file's last block).
  void apply(int64_t n, float* block) {
    for (int64_t b = 0; b < n; b += kBellowsStep) {
      const float start = pressure();
      step();
      const float slope = (pressure() - start) / float(kBellowsStep);
      const int count = int(std::min(kBellowsStep, n - b));
      for (int i = 0; i < count; ++i) block[b + i] *= start + slope * float(i);
    }
  }

 private:
  static std::complex<double> stepOf(double hz) {
    return std::polar(1.0, 2.0 * std::numbers::pi * hz * double(kBellowsStep) / kSampleRate);
  }
  float pressure() const { return float(1.0 + 0.012 * fast_.imag() + 0.008 * slow_.imag()); }
  void step() {
    static const std::complex<double> fastStep = stepOf(0.41), slowStep = stepOf(0.13);
    fast_ *= fastStep;
    slow_ *= slowStep;
  }

  std::complex<double> fast_{1.0, 0.0}, slow_ = std::polar(1.0, 1.0);
};

// The melody fades in over the file's first 3 ms and out over its last.
TONVEX_VECTOR_CLONES void fadeEdges(int64_t from, int64_t n, int64_t total, float* block) {
  const int64_t fade = std::min<int64_t>(kEdgeFadeSamples, total / 2);
  for (int64_t i = from; i < std::min(from + n, fade); ++i)
    block[i - from] *= float(i) / float(fade);
  for (int64_t i = std::max(from, total - fade); i < from + n; ++i)
    block[i - from] *= float(total - 1 - i) / float(fade);
}

// Adds n samples of the drone cycle from `phase` on, in runs up to the
// cycle's wrap; returns the phase after them.
TONVEX_VECTOR_CLONES size_t addDrone(const DroneSound& drone, float gain, size_t phase, int64_t n, float* block) {
  const size_t cycle = drone.cycle.size();
  for (int64_t done = 0; done < n;) {
    const int64_t run = std::min<int64_t>(n - done, int64_t(cycle - phase));
    const float* src = drone.cycle.data() + phase;
    for (int64_t i = 0; i < run; ++i) block[done + i] += gain * src[i];
    done += run;
    phase = (phase + size_t(run)) % cycle;
  }
  return phase;
}

TONVEX_VECTOR_CLONES void limitPeaks(int64_t n, float* block) {
  constexpr float range = kLimiterCeiling - kLimiterKnee;
  int over = 0;  // an integer "or", so that the search vectorises
  for (int64_t i = 0; i < n; ++i) over |= int(std::fabs(block[i]) > kLimiterKnee);
  if (over == 0) return;  // the usual block
  for (int64_t i = 0; i < n; ++i) {
    const float magnitude = std::fabs(block[i]);
    if (magnitude > kLimiterKnee) {
      const float bent = kLimiterKnee + range * std::tanh((magnitude - kLimiterKnee) / range);
      block[i] = std::copysign(bent, block[i]);
    }
  }
}

// Whether voice i is followed by a press of the same key, to be struck again.
bool restruck(std::span<const TokenVoice> voices, size_t i) {
  return i + 1 < voices.size() && voices[i + 1].grace == nullptr && voices[i + 1].main == voices[i].main;
}

// Renders the voice of note i, with its envelope and onset, into the
// window; the last note fades inside the file, and so does a note before its
// own repetition, kRestrikeGapSamples (at most a quarter of the note) early.
void addVoice(const MixPlan& p, size_t i, ReedPhases& phases, Variation& onsets,
              std::vector<float>& env, MelodyWindow& window) {
  const int64_t start = p.noteStarts[i], total = p.noteStarts.back();
  const int64_t hold = p.voices[i].nextStart;
  if (restruck(p.voices, i))
    fillNoteEnvelope(p.shape, hold - std::min(kRestrikeGapSamples, hold / 4), true, env);
  else
    fillNoteEnvelope(p.shape, hold, i + 1 == p.voices.size(), env);
  env.resize(size_t(std::min<int64_t>(int64_t(env.size()), total - start)));
  float* out = window.room(start, int64_t(env.size()));
  addTokenVoice(p.voices[i], env, p.melodyGain, phases, out);
  addReedOnset(onsets, p.melodyGain * p.shape.peak, out, int64_t(env.size()));
}

}  // namespace

TONVEX_VECTOR_CLONES bool renderMix(const MixPlan& p, SampleSink& sink) {
  const int64_t total = p.noteStarts.back();
  MelodyWindow window;
  Bellows bellows;
  ReedPhases phases;
  Variation onsets(p.onsetSeed);
  std::vector<float> env;
  size_t nextVoice = 0, dronePhase = p.dronePhase;
  ThekaBlocks theka(p.kit ? placeTheka(*p.kit, p.theka, p.noteStarts, p.beatSamples,
                                       p.thekaGain, p.thekaCycle)
                          : std::vector<PlacedStroke>{});
  std::array<int16_t, kMixBlockSamples> pcm;
  for (int64_t from = 0; from < total; from += kMixBlockSamples) {
    const int64_t n = std::min(kMixBlockSamples, total - from);
    for (; nextVoice < p.voices.size() && p.noteStarts[nextVoice] < from + n; ++nextVoice)
      addVoice(p, nextVoice, phases, onsets, env, window);
    float* block = window.room(from, n);  // the melody, mixed in place
    bellows.apply(n, block);
    fadeEdges(from, n, total, block);
    if (p.drone) dronePhase = addDrone(*p.drone, p.droneGain, dronePhase, n, block);
    theka.add(from, n, block);
    limitPeaks(n, block);
    for (int64_t i = 0; i < n; ++i) pcm[size_t(i)] = toPcm16(block[i]);
    window.forgetBefore(from + n);
    if (!sink.write({pcm.data(), size_t(n)})) return false;
  }
  return true;
}

}  // namespace tonvex
