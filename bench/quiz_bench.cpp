// Response time of the Quiz screen in the whole program, run in process by
// the program harness (Qt offscreen, a private program folder on the built
// data files, the silent device on a virtual clock, so only the handlers'
// work is timed): from a click to the sample sounding on the device.
//
//  - Play again: cPlay on the sample at hand, which sets the phrase up,
//    builds its wave file and starts it.
//  - New sample: cOK in stage 2, which draws a raga and a kind (the
//    generator seeded, so every run draws the same samples), loads the
//    raga's working record and drone, and then plays as above.
// The goal for both is under 50 ms. Playing the sample out between clicks
// is not timed.
#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdlib>
#include <memory>

#include "control/screen_manager.h"
#include "core/random.h"
#include "core/session.h"
#include "platform/qt/qt_window_system.h"
#include "platform/screen.h"
#include "platform/silent_audio.h"
#include "play_timing_device.h"
#include "program_harness.h"
#include "whole_program_main.h"

using platform::EventKind;

namespace {

// The program on the Quiz screen in stage 2, all three kinds ticked.
class QuizStage {
 public:
  QuizStage() {
    program_.start();
    static_cast<platform::QtWindowSystem&>(platform::windowSystem()).setAudioDeviceFactory([this] {
      return std::make_unique<PlayTimingDevice>(
          platform::createSilentAudioDevice(program_.clock(), program_.clock()));
    });
    program_.finishStartUp();
    sFixRandomSeed(50);
    program_.fire("Nadavik", "cMnuTakQui", EventKind::Click);
    for (const char* box : {"cOScale", "cOPakad", "cOAlap"}) ctl(box).setValue(1);
    click("cOK");
    click("cOK");
    playOut();
    ready_ = gCurrFormId == kFormQuiz && program_.messages().empty();
  }
  bool ready() const { return ready_ && program_.messages().empty(); }
  platform::Control& ctl(const char* name) { return program_.screen("Quiz").control(name); }
  void click(const char* control) { program_.fire("Quiz", control, EventKind::Click); }
  bool playing() { return ctl("cMM").device().mode() == platform::kModePlaying; }
  void playOut() {
    for (int step = 0; step < 4000 && playing(); ++step) program_.clock().advance(50);
  }

 private:
  ProgramHarness program_;
  bool ready_ = false;
};

std::unique_ptr<QuizStage> gStage;

QuizStage& stage() {
  if (!gStage) gStage = std::make_unique<QuizStage>();
  return *gStage;
}

// Times `control`'s click to the device playing; `before` readies each
// click (untimed).
void timeClickToSound(benchmark::State& state, const char* control, const char* before) {
  QuizStage& s = stage();
  if (!s.ready()) {
    state.SkipWithError("the quiz could not be set up");
    return;
  }
  double cpuMs = 0;
  for (auto _ : state) {
    if (before != nullptr) s.click(before);
    gPlayStartedWall = {};
    const WallClock::time_point clickedWall = WallClock::now();
    const double clickedCpuMs = threadCpuMs();
    s.click(control);
    if (!s.playing() || gPlayStartedWall < clickedWall || !s.ready()) {
      state.SkipWithError("the sample did not start playing");
      return;
    }
    state.SetIterationTime(std::chrono::duration<double>(gPlayStartedWall - clickedWall).count());
    cpuMs += gPlayStartedCpuMs - clickedCpuMs;
    s.playOut();
  }
  state.counters["cpu_ms"] = benchmark::Counter(cpuMs, benchmark::Counter::kAvgIterations);
}

void BM_QuizPlayAgainToSound(benchmark::State& state) { timeClickToSound(state, "cPlay", nullptr); }
// What is it? first, so that OK is offered.
void BM_QuizNewSampleToSound(benchmark::State& state) { timeClickToSound(state, "cOK", "cShow"); }

BENCHMARK(BM_QuizPlayAgainToSound)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(BM_QuizNewSampleToSound)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
  return runWholeProgramBenchmarks(argc, argv, [] { gStage.reset(); });
}
