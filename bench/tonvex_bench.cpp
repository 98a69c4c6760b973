// Speed of the synthesis library: a 10-second phrase with drone and theka
// (goal: at least 6000 times real time on one core), a 10-minute one (the
// same speed: the mix is written block by block, whatever its length), the
// renderer's start-up from the seed bank (goal: under 10 ms), loading and
// tuning both seed sets, and preparing the drone (done on a change of tonic
// or drone type), afresh and from the cache.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/wavefile.h"
#include "render_setup.h"
#include "wav_file.h"
#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace {

std::string benchFile() {
  return (std::filesystem::temp_directory_path() / "tonvex-bench.wav").string();
}

// 20 notes of 500 ms over a teentaal theka at 500 ms a beat: one stroke per note.
void tenSecondPhrase(std::string& notes, std::string& durations, std::string& theka) {
  const char* const scale[] = {"12", "14", "16", "17", "1419", "21", "23", "24", "23", "21",
                               "19", "17", "16", "14", "12", "1614", "16", "17", "19", "12"};
  const int bols[] = {1, 2, 2, 1, 1, 2, 2, 1, 1, 4, 4, 3, 3, 2, 2, 1, 16, 17, 18, 20};
  for (int i = 0; i < 20; ++i) {
    notes += std::string(i ? " " : "") + scale[i];
    durations += std::string(i ? " " : "") + "500";
    theka += std::string(i ? " " : "") + "1/" + std::to_string(bols[i]) + "/0";
  }
}

void BM_TenSecondPhraseWithDroneAndTheka(benchmark::State& state) {
  if (!tonvex_render::setUpLibrary({3, 1, 1.0, TONVEX_KIT_FILE, TONVEX_SEED_BANK}).empty()) {
    state.SkipWithError("library set-up failed");
    return;
  }
  std::string notes, durations, theka;
  tenSecondPhrase(notes, durations, theka);
  const std::string out = benchFile();
  for (auto _ : state) {
    const int16_t result = FWavGenerateMusicFile1(20, notes, durations, 1, 16, theka, 4, 500, out, 1,
                                                  0.2, 1, 1000, 60, 80, 50);
    if (result != 1) state.SkipWithError("generation failed");
  }
  state.counters["x_real_time"] =
      benchmark::Counter(10.0 * double(state.iterations()), benchmark::Counter::kIsRate);
  std::filesystem::remove(out);
}
BENCHMARK(BM_TenSecondPhraseWithDroneAndTheka)->Unit(benchmark::kMillisecond);

// 600 notes of 1 s over teentaal at 500 ms a beat: two strokes per note.
void BM_TenMinutePhraseWithDroneAndTheka(benchmark::State& state) {
  if (!tonvex_render::setUpLibrary({3, 1, 1.0, TONVEX_KIT_FILE, TONVEX_SEED_BANK}).empty()) {
    state.SkipWithError("library set-up failed");
    return;
  }
  std::string notes, durations, theka;
  const char* const scale[] = {"12", "14", "16", "17", "19", "21", "23", "24"};
  for (int i = 0; i < 600; ++i) {
    notes += std::string(i ? " " : "") + scale[i % 8];
    durations += std::string(i ? " " : "") + "1000";
    theka += std::string(i ? " " : "") + "2/1/2/0";
  }
  const std::string out = benchFile();
  for (auto _ : state) {
    if (FWavGenerateMusicFile1(600, notes, durations, 1, 16, theka, 4, 500, out, 1, 0.2, 1, 1000,
                               60, 80, 50) != 1)
      state.SkipWithError("generation failed");
  }
  state.counters["x_real_time"] =
      benchmark::Counter(600.0 * double(state.iterations()), benchmark::Counter::kIsRate);
  std::filesystem::remove(out);
}
BENCHMARK(BM_TenMinutePhraseWithDroneAndTheka)->Unit(benchmark::kMillisecond);

// The sound file paths, both through libsndfile: writing a 10-minute mix
// block by block as the renderer does, and reading a music file whole as the
// audio device does.

// The renderer's blocks: 4096 samples (8 KB) at a time, 600 s of a sine.
constexpr size_t kMixBlock = 4096;
constexpr size_t kTenMinutes = 600 * size_t(tonvex::kSampleRate);

std::vector<int16_t> tenMinuteMix() {
  std::vector<int16_t> mix(kTenMinutes);
  for (size_t i = 0; i < mix.size(); ++i) mix[i] = int16_t((i * 37) % 20000 - 10000);
  return mix;
}

// The renderer's file writer (libsndfile since it measured no slower than
// our own stdio writer: 205 ms against 216 ms on the shared machine).
void BM_WriteTenMinuteMix(benchmark::State& state) {
  const auto mix = tenMinuteMix();
  const std::string out = benchFile();
  for (auto _ : state) {
    auto sink = tonvex::openWavFileSink(out);
    for (size_t at = 0; sink && at < mix.size(); at += kMixBlock)
      sink->write(std::span(mix).subspan(at, std::min(kMixBlock, mix.size() - at)));
    if (!sink || !sink->finish()) state.SkipWithError("write failed");
  }
  state.counters["x_real_time"] =
      benchmark::Counter(600.0 * double(state.iterations()), benchmark::Counter::kIsRate);
  std::filesystem::remove(out);
}
BENCHMARK(BM_WriteTenMinuteMix)->Unit(benchmark::kMillisecond);

// A 60-second music file read whole, as the audio device loads one to play
// (libsndfile since it measured 0.3-0.8 ms against 8-40 ms for our decoder).
void BM_ReadMusicFile(benchmark::State& state) {
  const std::string path = benchFile() + ".read.wav";
  const auto mix = tenMinuteMix();
  tonvex::writeWavFile(path, std::span(mix).first(60 * size_t(tonvex::kSampleRate)));
  for (auto _ : state) {
    platform::WaveClip clip;
    if (platform::readWaveFile(path, clip).status != platform::WaveReadStatus::Ok)
      state.SkipWithError("read failed");
    benchmark::DoNotOptimize(clip.samples.data());
  }
  std::filesystem::remove(path);
}
BENCHMARK(BM_ReadMusicFile)->Unit(benchmark::kMillisecond);

// What tonvex-render does before it renders: both seed sets from the bank,
// loaded and tuned, the drone prepared, the tabla kit loaded.
void BM_RendererStartUp(benchmark::State& state) {
  for (auto _ : state) {
    if (!tonvex_render::setUpLibrary({3, 1, 1.0, TONVEX_KIT_FILE, TONVEX_SEED_BANK}).empty())
      state.SkipWithError("library set-up failed");
  }
}
BENCHMARK(BM_RendererStartUp)->Unit(benchmark::kMillisecond);

struct GeneratedSet {
  std::vector<tonvex::SeedSpec> seeds;
  std::vector<double> corrections;  // by note, 0 to 40
};

GeneratedSet generatedSet(int instrumentType, int tonicId) {
  GeneratedSet set;
  for (int note = 0; note <= tonvex::kMaxNoteId; ++note) {
    set.seeds.push_back(tonvex::makeSeed(instrumentType, note));
    set.corrections.push_back(tonvex::justCorrection(tonicId, instrumentType, note));
  }
  return set;
}

// The library's part of the application's seed loading: free, load every
// note, tune every note (the music set's columns and, by the octave, the
// notes outside them).
bool loadAndTune(const std::string& name, const GeneratedSet& set) {
  bool ok = FWavFreeNoteSeedsMemory(name) == 1;
  for (int note = 0; note <= tonvex::kMaxNoteId; ++note) {
    const tonvex::SeedSpec& s = set.seeds[size_t(note)];
    ok = ok && FWavLoadInstrNoteSeeds(name, note, s.samPerCyc, s.fractional, s.samples.data()) == 1;
    ok = ok && FWavTuneNote(name, note, set.corrections[size_t(note)]) == 1;
  }
  return ok;
}

void BM_LoadAndTuneBothSeedSets(benchmark::State& state) {
  const int tonicId = 3;
  const GeneratedSet main = generatedSet(tonvex::kInstrumentMain, tonicId);
  const GeneratedSet drone = generatedSet(tonvex::kInstrumentDrone, tonicId);
  FWavSetGlobalVariables("ce");
  FWavSetCurrInstr("c");
  for (auto _ : state) {
    if (!loadAndTune("c", main) || !loadAndTune("e", drone))
      state.SkipWithError("loading failed");
  }
}
BENCHMARK(BM_LoadAndTuneBothSeedSets)->Unit(benchmark::kMillisecond);

// A drone for strings not heard lately: rendered afresh (four Sa notes in
// turn, more than the cache keeps).
void BM_PrepareDroneAfresh(benchmark::State& state) {
  if (!tonvex_render::setUpLibrary({3, 1, 1.0, TONVEX_KIT_FILE, TONVEX_SEED_BANK}).empty()) {
    state.SkipWithError("library set-up failed");
    return;
  }
  int32_t step = 0;
  for (auto _ : state)
    if (FWavLoadDroneData("", 24 + step++ % 4, 1, "e", 1.0, 1) != 1) state.SkipWithError("drone failed");
}
BENCHMARK(BM_PrepareDroneAfresh)->Unit(benchmark::kMillisecond);

// Two drone types in turn, as two tonics in turn: the drone comes from the
// cache (goal: a tonic switch under 15 ms in all).
void BM_PrepareDroneHeardLately(benchmark::State& state) {
  if (!tonvex_render::setUpLibrary({3, 1, 1.0, TONVEX_KIT_FILE, TONVEX_SEED_BANK}).empty()) {
    state.SkipWithError("library set-up failed");
    return;
  }
  int32_t droneType = 1;
  for (auto _ : state) {
    droneType = 3 - droneType;
    if (FWavLoadDroneData("", 24, droneType, "e", 1.0, 1) != 1) state.SkipWithError("drone failed");
  }
}
BENCHMARK(BM_PrepareDroneHeardLately)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
