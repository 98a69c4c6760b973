// Speed of the composition player's files, on the built library store and
// tabla kit: building both parts (A.wav, B.wav) of a Teentaal composition
// of eight rows with its theka, as Play does after a change of tempo, should
// stay under 50 ms; cutting a two-row stretch out of the Asthai's file into
// C.wav, as Practice's Play does for a new stretch, under 5 ms.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "bench_library_copy.h"
#include "core/session.h"
#include "notation/durations.h"
#include "notation/vocabulary.h"
#include "platform/store.h"
#include "recording_window_system.h"
#include "sound/composition_files.h"
#include "sound/composition_segment.h"
#include "sound/library_setup.h"
#include "sound/music_buffers.h"
#include "store/queries.h"
#include "store/working_record_comp.h"

namespace fs = std::filesystem;

namespace {

constexpr std::int16_t kTeentaal = 1;
constexpr int kBeats = 16;
constexpr int kRows = 8;

// A part of Yaman filling eight rows of Teentaal from beat 1 (one beat
// short, so that the grid has no empty row): pairs of half-beat notes and
// whole beats in turn, one syllable a beat.
CompPartRecord fEightRowPart(std::int16_t part) {
  static const char* const kNotes[] = {"N<", "R", "G", "M", "P", "D", "N", "S>"};
  CompPartRecord p;
  p.NotationIndex = 9999;
  p.Part = part;
  p.RagaId = 1;
  p.Text = "bench";
  p.TalaId = kTeentaal;
  p.StartingBeat = 1;
  p.PlayingSpeed = 55;
  for (int beat = 0; beat < kRows * kBeats - 1; ++beat) {
    const std::string note = kNotes[beat % 8];
    if (beat % 2 == 0) {
      p.Notation += note + " " + kNotes[(beat + 1) % 8] + " ";
      p.NotesDuration += "0.5 0.5 ";
    } else {
      p.Notation += note + " ";
      p.NotesDuration += "1 ";
    }
    p.Syllables += "aa ";
    p.SyllableDuration += "1 ";
  }
  return p;
}

class BenchSession {
 public:
  BenchSession() : dir_(benchsupport::openLibraryCopy("composition-bench", NADAVIK_BENCH_LIBRARY_STORE)) {
    platform::setWindowSystem(&windows_);
    benchsupport::setSoundDefaults();
    benchsupport::setMusicFileDefaults(dir_, NADAVIK_BENCH_KIT_FILE);
    gWavA = gWavFiles[0];
    gWavB = gWavFiles[1];
    gWavC = gWavFiles[2];
    gCurrItemType = 6;
    gCurrPhraseKind = 8;
    gCurrMode = 2;
    gThekaMode = 1;
    gGraceNotes = 2;
    gNotationScript = 2;
    gCurrCompName = "bench";
    gCompPart = 1;
    gFormBeatCount = kBeats;
    gRowsPerCycle = kRows;
    gCompInfo[0] = fEightRowPart(1);
    gCompInfo[1] = fEightRowPart(2);
    sSetSQLStrings();
    sInitScales();
    started_ = fStartSoundLibrary();
  }
  ~BenchSession() { benchsupport::closeLibraryCopy(dir_); }
  bool ready() const { return started_ && windows_.messages.empty(); }

 private:
  fs::path dir_;
  RecordingWindowSystem windows_;
  bool started_ = false;
};

void BM_BothPartsOfEightRowTeentaalWithTheka(benchmark::State& state) {
  BenchSession session;
  if (!session.ready()) state.SkipWithError("the sound library did not start");
  for (auto _ : state)
    if (fCreateCompositionMusicFilesFromT() == 0) state.SkipWithError("building the parts failed");
  state.counters["notes"] = gMusicBuffers[0].Count + gMusicBuffers[1].Count;
  state.counters["audio_s"] = (kRows * kBeats - 1) * 2 * gBaseMatraMs / 100.0;
}
BENCHMARK(BM_BothPartsOfEightRowTeentaalWithTheka)->Unit(benchmark::kMillisecond);

void BM_CutTwoRowStretch(benchmark::State& state) {
  BenchSession session;
  if (!session.ready() || fCreateCompositionMusicFilesFromT() == 0)
    state.SkipWithError("building the parts failed");
  gSegmentBounds = {kBeats + 1, 3 * kBeats, 0};
  for (auto _ : state)
    if (fCreateCompSegmentMusicFile() == 0) state.SkipWithError("the cut failed");
  state.counters["slots"] = gMusicBuffers[2].Count;
}
BENCHMARK(BM_CutTwoRowStretch)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
