// Response times of the Raga Exploration screen (MainOperations) in the
// whole program, run in process by the program harness: real screens on Qt
// offscreen, a private program folder with the built stores and kits, and
// the silent audio device on a virtual clock (so only the work done in the
// handlers is timed, never the music itself).
//
//  - Click to first sound: in Demo, a click on the alap item of the raga
//    whose alap has the most notes in the library, until the cMM device
//    plays (mode 526). This holds loading the alap from the working record,
//    making its first phrase's wave file and opening and starting it. The
//    moment of playing is caught by a device wrapper that notes the wall
//    and thread CPU time when a command leaves the device playing; the
//    click's handler goes on to make the next phrase's file, so the whole
//    handler is reported beside it as handler_wall_ms.
//  - Tonic switch: a tonic from the Tonic Note menu, which rebuilds both
//    note seed sets (main and drone) and redraws the keyboard.
// Wall time and CPU time are both reported; stopping the run between
// clicks is not timed.
#include <benchmark/benchmark.h>

#include <QApplication>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "control/screen_manager.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "platform/audio.h"
#include "play_timing_device.h"
#include "platform/qt/qt_window_system.h"
#include "platform/screen.h"
#include "platform/silent_audio.h"
#include "platform/store.h"
#include "program_harness.h"
#include "sound/music_buffers.h"
#include "sound/phrase_loading.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "whole_program_main.h"

using platform::EventKind;

namespace {

// The notes (blank-separated words) of one phrase.
int phraseNotes(const std::string& phrase) {
  int n = 0;
  for (std::size_t i = 0; i < phrase.size(); ++i)
    n += phrase[i] != ' ' && (i == 0 || phrase[i - 1] == ' ');
  return n;
}

// The program started, past its opening screen and tip, on the
// MainOperations screen of the raga with the richest alap.
class BenchStage {
 public:
  BenchStage() {
    program_.start();
    static_cast<platform::QtWindowSystem&>(platform::windowSystem()).setAudioDeviceFactory([this] {
      return std::make_unique<PlayTimingDevice>(
          platform::createSilentAudioDevice(program_.clock(), program_.clock()));
    });
    program_.clock().advance(7000);
    program_.fire("Nadavik", "cTimer", EventKind::Timer);
    if (gTipSignal == 1) program_.fire("Nadavik", "cOK", EventKind::Click);
    program_.fire("Nadavik", "cMnuExpRag", EventKind::Click);
    if (!gDbA) return;
    findRichestAlap();
    if (ragaId_ == 0) return;
    gCurrRagaId = ragaId_;
    gCurrRagaName = fGetRagaName(ragaId_);
    sSetupForCurrRaga();
    sMainOperations(0);
    ready_ = gCurrFormId == kFormMainOperations && program_.messages().empty();
  }

  bool ready() const { return ready_; }
  int alapNotes() const { return notes_; }
  std::int16_t ragaId() const { return ragaId_; }
  ProgramHarness& program() { return program_; }
  platform::Control& ctl(const char* name) {
    return program_.screen("MainOperations").control(name);
  }
  const std::vector<RecordedMessage>& messages() const { return program_.messages(); }

 private:
  // Loads every stored alap in turn, as an alap item of the library, and
  // keeps the raga of the one with the most notes.
  void findRichestAlap() {
    gCurrItemType = 3;
    gCurrPhraseKind = 3;
    gCurrDbSelector = 1;
    auto rs = gDbA->openRecordset("Raga - ALT Phrases", platform::RecordsetType::Table);
    for (rs->moveFirst(); !rs->eof(); rs->moveNext()) {
      if (rs->field("PhraseType").asInteger() != 1) continue;
      const auto raga = static_cast<std::int16_t>(rs->field("RagaIndex").asInteger());
      sLoadRagaALTInfoIntoT(gTAlt[0], 1, raga, rs->field("NotesPhrase").asText(),
                            rs->field("DurationPhrase").asText());
      sLoadMNFromT(kUnsegmentedText);
      int notes = 0;
      for (const std::string& phrase : gPhraseSet.NotePhrases) notes += phraseNotes(phrase);
      if (notes > notes_) {
        notes_ = notes;
        ragaId_ = raga;
      }
    }
    rs->close();
  }

  ProgramHarness program_;
  std::int16_t ragaId_ = 0;
  int notes_ = 0;
  bool ready_ = false;
};

std::unique_ptr<BenchStage> gStage;

BenchStage& stage() {
  if (!gStage) gStage = std::make_unique<BenchStage>();
  return *gStage;
}

// The index of the entry of cNVIllusList that begins with start, or -1.
int itemIndex(platform::Control& list, const std::string& start) {
  for (int i = 0; i < list.listCount(); ++i)
    if (list.list(i).rfind(start, 0) == 0) return i;
  return -1;
}

void BM_DemoAlapClickToFirstSound(benchmark::State& state) {
  BenchStage& s = stage();
  if (!s.ready()) {
    state.SkipWithError("the program or the richest alap could not be set up");
    return;
  }
  s.program().fire("MainOperations", "Option1", EventKind::Click);  // Demo
  platform::Control& list = s.ctl("cNVIllusList");
  const int item = itemIndex(list, "Alap");
  if (item < 0) {
    state.SkipWithError("the raga shows no alap item");
    return;
  }
  double firstSoundCpuMs = 0;
  double handlerWallMs = 0;
  for (auto _ : state) {
    list.setListIndex(item);
    gPlayStartedWall = {};
    const WallClock::time_point clickedWall = WallClock::now();
    const double clickedCpuMs = threadCpuMs();
    s.program().fire("MainOperations", "cNVIllusList", EventKind::Click);
    const WallClock::time_point handledWall = WallClock::now();
    const bool playing = s.ctl("cMM").device().mode() == platform::kModePlaying;
    s.program().fire("MainOperations", "cStop", EventKind::Click);
    for (int step = 0; step < 100 && !list.enabled(); ++step) s.program().clock().advance(50);
    if (!playing || gPlayStartedWall < clickedWall || !list.enabled() || !s.messages().empty()) {
      state.SkipWithError("the alap did not start playing or did not stop");
      return;
    }
    state.SetIterationTime(std::chrono::duration<double>(gPlayStartedWall - clickedWall).count());
    firstSoundCpuMs += gPlayStartedCpuMs - clickedCpuMs;
    handlerWallMs += std::chrono::duration<double, std::milli>(handledWall - clickedWall).count();
  }
  constexpr auto kAverage = benchmark::Counter::kAvgIterations;
  state.counters["first_sound_cpu_ms"] = benchmark::Counter(firstSoundCpuMs, kAverage);
  state.counters["handler_wall_ms"] = benchmark::Counter(handlerWallMs, kAverage);
  state.counters["raga_id"] = s.ragaId();
  state.counters["alap_notes"] = s.alapNotes();
  state.counters["alap_phrases"] = gPlaySet.Count;
  state.counters["first_phrase_notes"] =
      gPlaySet.NotePhrases.empty() ? 0 : phraseNotes(gPlaySet.NotePhrases[0]);
}

// Time: click to playing, wall (manual); the CPU column holds the whole
// iteration, stopping included, so first_sound_cpu_ms is the CPU figure.
BENCHMARK(BM_DemoAlapClickToFirstSound)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_TonicSwitch(benchmark::State& state) {
  BenchStage& s = stage();
  if (!s.ready()) {
    state.SkipWithError("the program could not be set up");
    return;
  }
  // Two tonics in turn, so that every click really changes the tonic.
  const char* tonics[] = {"cMnuW5", "cMnuB1"};
  int next = 0;
  for (auto _ : state) {
    s.program().fire("MainOperations", tonics[next], EventKind::Click);
    next = 1 - next;
  }
  if (!s.messages().empty()) state.SkipWithError(s.messages().front().text.c_str());
}

BENCHMARK(BM_TonicSwitch)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  return runWholeProgramBenchmarks(argc, argv, [] { gStage.reset(); });
}
