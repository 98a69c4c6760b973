// How far the display's note step trails the audio position over a whole
// alap played at the fastest slider setting (tempo factor 0.33), on the
// MainOperations screen with the silent audio device.
//
// The alap is the library's alap with the most notes, loaded through the
// working record as the exploration screen loads it; the files are made by
// the real synthesis library, the next phrase's while one sounds. At each
// status step that moves the display on, the lag is the device's position
// less the start of the note now shown (no lead: gDelayMO 0). Two clocks:
//  - virtual: the silent device on a virtual clock advanced in 5 ms steps,
//    so the lag is only that of the 20 ms status tick and of the one-note-
//    per-step rule;
//  - wall: the silent device on the steady clock and the Qt timers, so the
//    lag also holds the time spent building the next phrase's file while
//    one sounds.
// Counters: the alap's phrases and notes, the display steps measured (every
// note but each phrase's first, which is shown as its file opens), and the
// mean, 95th percentile and largest lag in ms.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "bench_library_copy.h"
#include "core/session.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "notation/devanagari.h"
#include "notation/durations.h"
#include "notation/vocabulary.h"
#include "platform/audio.h"
#include "platform/qt/qt_scheduler.h"
#include "platform/qt/qt_window_system.h"
#include "platform/silent_audio.h"
#include "platform/store.h"
#include "sound/library_setup.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"
#include "sound/phrase_loading.h"
#include "sound/play_chain.h"
#include "sound/play_state.h"
#include "sound/play_status.h"
#include "sound/playback.h"
#include "store/queries.h"
#include "store/working_record.h"

namespace fs = std::filesystem;

namespace {

constexpr double kFastestTempoFactor = 0.33;

// The clock the silent device runs on, chosen per benchmark.
platform::VirtualClock gVirtualClock;
platform::SteadyClock gSteadyClock;
std::unique_ptr<platform::QtScheduler> gQtScheduler;
bool gOnWallClock = false;

std::vector<long> gLagsMs;
bool gRunEnded = false;

// The screen's controller as far as playing goes: 18 steps the display and
// records the lag, 19 ends the run.
void benchController(std::int16_t event) {
  if (event == kEventRangeEnded) gRunEnded = true;
  if (event != 18) return;
  const MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  const std::int16_t before = buffer.CurrNote;
  sTrackPlayingNote(*gCurrForm, gDelayMO);
  if (buffer.CurrNote == before) return;
  const long positionMs = gCurrForm->control("cMM").device().position();
  gLagsMs.push_back(positionMs - buffer.TimesMs[static_cast<std::size_t>(buffer.CurrNote - 1)]);
}

// The program's pieces as far as playing goes: the library store, the
// sound library, the MainOperations screen with its keyboard, the alap of
// the library with the most notes in gPhraseSet at the fastest tempo.
class BenchStage {
 public:
  BenchStage() {
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static int argc = 1;
    static char name[] = "playback_bench";
    static char* argv[] = {name, nullptr};
    app_ = std::make_unique<QApplication>(argc, argv);
    dir_ = benchsupport::openLibraryCopy("play-bench", NADAVIK_BENCH_LIBRARY_STORE);
    windows_ = std::make_unique<platform::QtWindowSystem>(NADAVIK_SCREENS_DIR);
    windows_->setDevanagariConverters({fKeymapToUnicode, fUnicodeToKeymap});
    windows_->setMessageBoxResponder([this](const std::string& text, int, const std::string&) {
      messages_.push_back(text);
      return platform::kAnswerOk;
    });
    gQtScheduler = std::make_unique<platform::QtScheduler>();
    windows_->setAudioDeviceFactory([] {
      if (gOnWallClock) return platform::createSilentAudioDevice(gSteadyClock, *gQtScheduler);
      return platform::createSilentAudioDevice(gVirtualClock, gVirtualClock);
    });
    platform::setWindowSystem(windows_.get());
    setSession();
    sSetSQLStrings();
    sInitScales();
    sInitReedColorType();
    sInitReedsDisplayedData();
    started_ = fStartSoundLibrary();
    loadRichestAlap();
  }
  ~BenchStage() {
    gCurrForm = nullptr;
    windows_.reset();
    benchsupport::closeLibraryCopy(dir_);
  }
  bool ready() const { return started_ && messages_.empty() && gPhraseSet.Count > 0; }
  int noteCount() const { return notes_; }

  // A fresh MainOperations screen (so that its cMM is made on the clock
  // now chosen) with its keyboard shown and the chain's events bound.
  platform::Screen& freshScreen() {
    platform::Screen& form = windows_->screen("MainOperations");
    if (form.loaded()) form.unload();
    form.load();
    form.setWidth(1366);
    form.setHeight(768);
    form.on("cMM", platform::EventKind::Done, [](const platform::Event& e) {
      gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
      sPlayMusicFile(gCurrMusicFile);
    });
    form.on("cMM", platform::EventKind::Status,
            [](const platform::Event&) { benchController(18); });
    gCurrForm = &form;
    sDisplayKeyboardAlt(form, 1);
    sUpdateReedLabelsAlt(form);
    return form;
  }

 private:
  void setSession() {
    benchsupport::setSoundDefaults();
    benchsupport::setMusicFileDefaults(dir_, NADAVIK_BENCH_KIT_FILE);
    gCurrItemType = 3;
    gCurrPhraseKind = 3;
    gCurrMode = 1;
    gCurrDbSelector = 1;
    gNotationScript = 2;
    gGraceNotes = 2;
    gWavOption = 1;
    gDelayMO = 0;
    gCallbackContext = kContextMainOperations;
    gFormH = 768;
    gPlayScreenProcedures.owners[kContextMainOperations] = benchController;
  }

  // Loads every stored alap in turn and keeps the one with the most notes.
  void loadRichestAlap() {
    auto rs = gDbA->openRecordset("Raga - ALT Phrases", platform::RecordsetType::Table);
    PhraseSet richest;
    for (rs->moveFirst(); !rs->eof(); rs->moveNext()) {
      if (rs->field("PhraseType").asInteger() != 1) continue;
      sLoadRagaALTInfoIntoT(gTAlt[0], 1, static_cast<std::int16_t>(rs->field("RagaIndex").asInteger()),
                            rs->field("NotesPhrase").asText(), rs->field("DurationPhrase").asText());
      sLoadMNFromT(kUnsegmentedText);
      const int notes = countNotes(gPhraseSet);
      if (notes > notes_) {
        notes_ = notes;
        richest = gPhraseSet;
      }
    }
    rs->close();
    for (std::size_t i = 0; i < richest.DurPhrases.size(); ++i)
      richest.DurPhrases[i] = fFactorTimingScriptBy(richest.BaseDurPhrases[i], kFastestTempoFactor);
    gPhraseSet = richest;
  }

  static int countNotes(const PhraseSet& set) {
    int n = 0;
    for (const std::string& phrase : set.NotePhrases)
      for (std::size_t i = 0; i < phrase.size(); ++i)
        n += phrase[i] != ' ' && (i == 0 || phrase[i - 1] == ' ');
    return n;
  }

  fs::path dir_;
  std::unique_ptr<QApplication> app_;
  std::unique_ptr<platform::QtWindowSystem> windows_;
  std::vector<std::string> messages_;
  bool started_ = false;
  int notes_ = 0;
};

BenchStage& stage() {
  static BenchStage s;
  return s;
}

// Sets the whole alap up as Demo does and starts the chain.
bool startAlap() {
  gPlaySet = gPhraseSet;
  gPlaySet.Position = gPlaySet.FirstPhrase = 1;
  gPlaySet.LastPhrase = gPlaySet.Count;
  gPrefetchMode = kPrefetchNext;
  gBufferRotation = true;
  gMusicBuffers[0].Count = fCreateNotesList1(0);
  if (fPrepareToPlaySelection1(0) == 0) return false;
  gLagsMs.clear();
  gRunEnded = false;
  return fPlayMusicPhrases(*gCurrForm);
}

void reportLags(benchmark::State& state) {
  std::vector<long> lags = gLagsMs;
  if (lags.empty()) return;
  std::sort(lags.begin(), lags.end());
  state.counters["phrases"] = static_cast<double>(gPhraseSet.Count);
  state.counters["alap_notes"] = static_cast<double>(stage().noteCount());
  state.counters["steps"] = static_cast<double>(lags.size());
  state.counters["lag_mean_ms"] =
      static_cast<double>(std::accumulate(lags.begin(), lags.end(), 0L)) / static_cast<double>(lags.size());
  state.counters["lag_p95_ms"] = static_cast<double>(lags[lags.size() * 95 / 100]);
  state.counters["lag_max_ms"] = static_cast<double>(lags.back());
}

void BM_AlapLagVirtualClock(benchmark::State& state) {
  if (!stage().ready()) {
    state.SkipWithError("the sound library or the alap could not be set up");
    return;
  }
  gOnWallClock = false;
  stage().freshScreen();
  for (auto _ : state) {
    if (!startAlap()) {
      state.SkipWithError("the first file could not be built");
      return;
    }
    while (!gRunEnded) gVirtualClock.advance(5);
  }
  reportLags(state);
}
BENCHMARK(BM_AlapLagVirtualClock)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_AlapLagWallClock(benchmark::State& state) {
  if (!stage().ready()) {
    state.SkipWithError("the sound library or the alap could not be set up");
    return;
  }
  gOnWallClock = true;
  stage().freshScreen();
  for (auto _ : state) {
    if (!startAlap()) {
      state.SkipWithError("the first file could not be built");
      return;
    }
    QElapsedTimer waited;
    waited.start();
    while (!gRunEnded && waited.elapsed() < 600000)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  reportLags(state);
}
BENCHMARK(BM_AlapLagWallClock)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// From the Play event to the device playing the first phrase, for an aroha
// on the virtual clock: the phrase set taken from the working record as
// Demo takes it, its notes list, its wave file, and the open and play.
void BM_PlayToFirstSoundAroha(benchmark::State& state) {
  if (!stage().ready()) {
    state.SkipWithError("the sound library could not be set up");
    return;
  }
  gOnWallClock = false;
  platform::Screen& form = stage().freshScreen();
  gCurrRagaId = 1;
  sLoadRagaScalePakadInfo();
  gCurrItemType = 1;
  gCurrPhraseKind = 1;
  for (auto _ : state) {
    sLoadMNFromT(kUnsegmentedText);
    gPlaySet = gPhraseSet;
    gPlaySet.Position = gPlaySet.FirstPhrase = 1;
    gPlaySet.LastPhrase = gPlaySet.Count;
    gPrefetchMode = kPrefetchNone;
    gMusicBuffers[0].Count = fCreateNotesList1(0);
    gRunEnded = false;
    if (fPrepareToPlaySelection1(0) == 0 || !fPlayMusicPhrases(form) ||
        form.control("cMM").device().mode() != platform::kModePlaying) {
      state.SkipWithError("the aroha did not start playing");
      return;
    }
    state.PauseTiming();
    while (!gRunEnded) gVirtualClock.advance(50);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_PlayToFirstSoundAroha)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
