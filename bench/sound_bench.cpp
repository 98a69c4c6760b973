// Speed of loading and tuning the note seeds from the built library store:
// both sets with their music set's corrections (what every change of tonic,
// music set or drone type costs), the same with the drone prepared, and a
// scale shift retuning both sets by ratios.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench_library_copy.h"
#include "core/session.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "recording_window_system.h"
#include "sound/music_set.h"
#include "sound/onpr_rows.h"
#include "sound/seeds.h"
#include "sound/sound_state.h"
#include "sound/tuning.h"
#include "store/queries.h"
#include "tonvex/tonvex.h"

namespace fs = std::filesystem;

namespace {

// A private copy of the built library store opened as gDbA (stores are
// opened exclusively), with the session's sound defaults and the library's
// sets declared. Removed when the benchmark ends.
class BenchStore {
 public:
  BenchStore() : dir_(benchsupport::openLibraryCopy("sound-bench", NADAVIK_BENCH_LIBRARY_STORE)) {
    platform::setWindowSystem(&windows_);
    benchsupport::setSoundDefaults();
    sSetSQLStrings();
    FWavSetGlobalVariables("ce");
    FWavSetCurrInstr("c");
  }
  ~BenchStore() { benchsupport::closeLibraryCopy(dir_); }
  bool quiet() const { return windows_.messages.empty(); }

 private:
  fs::path dir_;
  RecordingWindowSystem windows_;
};

bool loadTunedSet(const std::string& setName, std::int16_t instrumentType) {
  if (fLoadNoteSeeds(setName) != 1) return false;
  sLoadNoteAdjustSPCVector(setName, instrumentType, gCurrMusicSetId);
  return fAdjustNoteSeeds(setName, instrumentType) == 1;
}

void BM_LoadAndTuneBothSets(benchmark::State& state) {
  BenchStore store;
  for (auto _ : state) {
    const bool ok = loadTunedSet(gMainSetName, kMainInstrument) &&
                    loadTunedSet(gDroneSetName, kDroneInstrument);
    if (!ok || !store.quiet()) state.SkipWithError("loading the seeds failed");
  }
}
BENCHMARK(BM_LoadAndTuneBothSets)->Unit(benchmark::kMillisecond);

void BM_CreateNoteSeedsForUse(benchmark::State& state) {
  BenchStore store;
  for (auto _ : state)
    if (fCreateNoteSeedsForUse() != 1 || !store.quiet())
      state.SkipWithError("fCreateNoteSeedsForUse failed");
}
BENCHMARK(BM_CreateNoteSeedsForUse)->Unit(benchmark::kMillisecond);

void BM_ApplyScaleShift(benchmark::State& state) {
  BenchStore store;
  if (fCreateNoteSeedsForUse() != 1) state.SkipWithError("fCreateNoteSeedsForUse failed");
  ScaleShiftSpec shift{12, 318.0f, 316.0f};
  for (auto _ : state) benchmark::DoNotOptimize(fApplyScaleShift(shift));
}
BENCHMARK(BM_ApplyScaleShift)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
