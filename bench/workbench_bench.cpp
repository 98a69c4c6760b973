// Response time of the Workshop screen in the whole program, run in process
// by the program harness (Qt offscreen, a private program folder on the
// built data files, the silent device on a virtual clock, so only the
// handlers' work is timed): from a click on a pattern of the Music Patterns
// menu to the pattern sounding on the device. The click interprets the
// pattern, expands it over the scale, sets it up and builds the wave file
// that plays first.
//
// The pattern is "Up 2 then Up 3" (BUC2BUC3), the longest expansion of the
// standard patterns, over a scale of all twelve notes: 140 notes, 20 passes
// of 7 (98 s of sound). In Learning the pattern plays as files of 8 notes,
// in Practice as one file a pass; either way the first file sounds while
// the next is built. The goal is under 20 ms from the click to the device
// playing; cpu_ms is the thread's own time, which the wall time exceeds on
// a busy machine.
#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdlib>
#include <memory>

#include "control/screen_manager.h"
#include "core/session.h"
#include "platform/qt/qt_window_system.h"
#include "platform/screen.h"
#include "platform/silent_audio.h"
#include "play_timing_device.h"
#include "program_harness.h"
#include "workbench/pattern_language.h"
#include "workbench/scale_notes.h"
#include "whole_program_main.h"

using platform::EventKind;

namespace {

// The program on the Workshop screen in Major Scale mode, its scale then
// widened to all twelve notes.
class TwelveNoteWorkbench {
 public:
  TwelveNoteWorkbench() {
    program_.start();
    static_cast<platform::QtWindowSystem&>(platform::windowSystem()).setAudioDeviceFactory([this] {
      return std::make_unique<PlayTimingDevice>(
          platform::createSilentAudioDevice(program_.clock(), program_.clock()));
    });
    program_.finishStartUp();
    program_.fire("Nadavik", "cMnuOpeWor", EventKind::Click);
    click("cMajorScale");
    sSetScaleAndSelNotesForPhrase("S r R g G m M P d D n N S>");
    ready_ = gCurrFormId == kFormWorkshop && gSelNoteCount == 25 && program_.messages().empty();
  }
  bool ready() const { return ready_ && program_.messages().empty(); }
  void click(const char* control) { program_.fire("Workshop", control, EventKind::Click); }
  bool playing() {
    return program_.screen("Workshop").control("cMM").device().mode() == platform::kModePlaying;
  }
  void playOut() {
    for (int step = 0; step < 4000 && playing(); ++step) program_.clock().advance(50);
  }

 private:
  ProgramHarness program_;
  bool ready_ = false;
};

std::unique_ptr<TwelveNoteWorkbench> gBench;

TwelveNoteWorkbench& bench() {
  if (!gBench) gBench = std::make_unique<TwelveNoteWorkbench>();
  return *gBench;
}

void timePatternToSound(benchmark::State& state, const char* playingMode) {
  TwelveNoteWorkbench& b = bench();
  b.click(playingMode);
  b.playOut();
  if (!b.ready()) {
    state.SkipWithError("the workbench could not be set up");
    return;
  }
  double cpuMs = 0;
  for (auto _ : state) {
    gPlayStartedWall = {};
    const WallClock::time_point clickedWall = WallClock::now();
    const double clickedCpuMs = threadCpuMs();
    b.click("cMnu2UC3UC");
    if (!b.playing() || gPlayStartedWall < clickedWall || !b.ready()) {
      state.SkipWithError("the pattern did not start playing");
      return;
    }
    state.SetIterationTime(std::chrono::duration<double>(gPlayStartedWall - clickedWall).count());
    cpuMs += gPlayStartedCpuMs - clickedCpuMs;
    b.click("cStop");
    b.playOut();
  }
  std::size_t notes = 0;
  for (const std::string& word : fPhraseWords(gSelPhrase)) notes += word == ":" ? 0 : 1;
  state.counters["notes"] = static_cast<double>(notes);
  state.counters["cpu_ms"] = benchmark::Counter(cpuMs, benchmark::Counter::kAvgIterations);
}

void BM_LongestPatternToSoundLearning(benchmark::State& state) { timePatternToSound(state, "cOLearn"); }
void BM_LongestPatternToSoundPractice(benchmark::State& state) { timePatternToSound(state, "cOPract"); }

BENCHMARK(BM_LongestPatternToSoundLearning)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(BM_LongestPatternToSoundPractice)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
  return runWholeProgramBenchmarks(argc, argv, [] { gBench.reset(); });
}
