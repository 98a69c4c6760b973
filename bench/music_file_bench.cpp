// Speed of making the first file of an item ready to play: filling music
// buffer 0 from the playlist and having the synthesis library write A.wav,
// for the aroha and avroha of a raga, for the longest stored alap phrase of
// the library and for a composition part with its theka, with the sound
// library started on the built stores. The
// whole Play path should stay under 30 ms. Filling the buffer alone is
// measured too, to show where the time goes.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "bench_library_copy.h"
#include "core/session.h"
#include "notation/durations.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "recording_window_system.h"
#include "sound/library_setup.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"
#include "sound/theka_tokens.h"
#include "store/queries.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

namespace fs = std::filesystem;

namespace {

// A private copy of the built library store opened as gDbA, the session's
// sound defaults, the library started and the wave files in a private
// directory. Removed when the benchmark ends.
class BenchSession {
 public:
  BenchSession() : dir_(benchsupport::openLibraryCopy("music-bench", NADAVIK_BENCH_LIBRARY_STORE)) {
    platform::setWindowSystem(&windows_);
    benchsupport::setSoundDefaults();
    benchsupport::setMusicFileDefaults(dir_, NADAVIK_BENCH_KIT_FILE);
    gCurrItemType = 1;
    gCurrPhraseKind = 1;
    gCurrMode = 1;
    gNotationScript = 2;
    gWavOption = 1;
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

void sPlayOnePhrase(const std::string& notes, const std::string& durations) {
  gPlaySet = {};
  gPlaySet.Count = gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = 1;
  gPlaySet.NotePhrases = {notes};
  gPlaySet.DurPhrases = {durations};
  gPlaySet.BaseDurPhrases = {durations};
}

// Aroha and avroha of raga 1 as one phrase, as an aroha item plays them.
void sPlayAroha() {
  gCurrRagaId = 1;
  sDBToTBaseInfo();
  sPlayOnePhrase(fGetFromT_ScalePhraseUnSeg(1), fGetFromT_ScalePhraseUnSeg(2));
}

// The alap phrase of the library with the most notes.
void sPlayLongestAlap() {
  auto rs = gDbA->openRecordset("Raga - ALT Phrases", platform::RecordsetType::Table);
  std::string notes, durations;
  for (rs->moveFirst(); !rs->eof(); rs->moveNext()) {
    if (rs->field("PhraseType").asInteger() != 1) continue;
    TAltRecord& alap = gTAlt[0];
    sLoadRagaALTInfoIntoT(alap, 1, static_cast<std::int16_t>(rs->field("RagaIndex").asInteger()),
                          rs->field("NotesPhrase").asText(), rs->field("DurationPhrase").asText());
    for (std::int16_t p = 1; p <= alap.PhraseCount; ++p) {
      const std::string phrase = fGetFromT_AnALTPhraseUnSeg(1, 1, 1, p);
      if (fSplitWords(phrase, " ").size() > fSplitWords(notes, " ").size()) {
        notes = phrase;
        durations = fGetFromT_AnALTPhraseUnSeg(1, 1, 2, p);
      }
    }
  }
  rs->close();
  sPlayOnePhrase(notes, durations);
}

// The Asthai of a stored Teentaal composition with its theka, as the
// composition player builds it in Demo.
void sPlayTeentaalAsthai() {
  gCurrItemType = 6;
  gCurrPhraseKind = 8;
  gThekaMode = 1;
  gFormBeatCount = 16;
  sDBToTCompData(1, 101);
  const CompPartRecord& part = gCompInfo[0];
  gBaseMatraMs = part.PlayingSpeed;
  sPlayOnePhrase(part.Notation, fConvertMatraToDuration(part.NotesDuration, part.PlayingSpeed));
  gMusicBuffers[0].StartingBeat = part.StartingBeat;
  gMusicBuffers[0].Theka = fCreateTalaStringForCompFromT(1, gThekaInstrument);
}

void sReportPhrase(benchmark::State& state) {
  state.counters["notes"] = static_cast<double>(fSplitWords(gPlaySet.NotePhrases[0], " ").size());
  state.counters["audio_ms"] = gMusicBuffers[0].TimesMs.back();
}

void sBuildFirstFile(benchmark::State& state, void (*choosePhrase)()) {
  BenchSession session;
  choosePhrase();
  if (!session.ready()) state.SkipWithError("the sound library did not start");
  for (auto _ : state) {
    gMusicBuffers[0].Count = fCreateNotesList1(0);
    if (fPrepareToPlaySelection1(0) != 1) state.SkipWithError("building A.wav failed");
  }
  sReportPhrase(state);
}

void BM_FirstFileOfAroha(benchmark::State& state) { sBuildFirstFile(state, sPlayAroha); }
BENCHMARK(BM_FirstFileOfAroha)->Unit(benchmark::kMillisecond);

void BM_FirstFileOfLongestAlapPhrase(benchmark::State& state) {
  sBuildFirstFile(state, sPlayLongestAlap);
}
BENCHMARK(BM_FirstFileOfLongestAlapPhrase)->Unit(benchmark::kMillisecond);

void BM_FirstFileOfTeentaalAsthaiWithTheka(benchmark::State& state) {
  sBuildFirstFile(state, sPlayTeentaalAsthai);
}
BENCHMARK(BM_FirstFileOfTeentaalAsthaiWithTheka)->Unit(benchmark::kMillisecond);

void BM_NotesListOfLongestAlapPhrase(benchmark::State& state) {
  BenchSession session;
  sPlayLongestAlap();
  for (auto _ : state) benchmark::DoNotOptimize(fCreateNotesList1(0));
  sReportPhrase(state);
}
BENCHMARK(BM_NotesListOfLongestAlapPhrase)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
