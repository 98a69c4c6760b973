// Response times of scale shifting in the whole program, run in process by
// the program harness (real screens on Qt offscreen, a private program
// folder on the built data files, the silent audio device on a virtual
// clock, so that only the work of the handlers is timed):
//
//  - Slider step to the retuned note sounding: on the ScaleShifting screen,
//    tuning the key of tonic 5, the slider moved one step and Play clicked,
//    until the device plays the note. This holds the period under the
//    slider, reloading and retuning that one seed, writing the 3-second
//    note's wave file and opening and starting it. Goal: under 30 ms.
//  - Applying a saved scale: on the Raga Exploration screen, a click on a
//    user scale in the scale list (two saved scales in turn), which reloads
//    and retunes both note sets and the drone and redraws the keyboard.
//    Goal: under 20 ms.
#include <benchmark/benchmark.h>

#include <QApplication>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <string>

#include "core/session.h"
#include "exploration/exploration.h"
#include "platform/qt/qt_window_system.h"
#include "platform/silent_audio.h"
#include "play_timing_device.h"
#include "program_harness.h"
#include "scales/scale_state.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "whole_program_main.h"

using platform::EventKind;

namespace {

constexpr const char* kScreen = "ScaleShifting";

class BenchStage {
 public:
  BenchStage() {
    program_.start();
    static_cast<platform::QtWindowSystem&>(platform::windowSystem()).setAudioDeviceFactory([this] {
      return std::make_unique<PlayTimingDevice>(
          platform::createSilentAudioDevice(program_.clock(), program_.clock()));
    });
    program_.finishStartUp();
    program_.fire("Nadavik", "cMnuDefPitShi", EventKind::Click);
  }
  ProgramHarness& program() { return program_; }
  platform::Control& ctl(const char* screen, const char* name) {
    return program_.screen(screen).control(name);
  }
  void click(const char* control) { program_.fire(kScreen, control, EventKind::Click); }
  void listenOut() { program_.fire(kScreen, "cTimer", EventKind::Timer); }
  // Tunes the key of tonic 5 (reed 14); the screen is left in state 1.
  void startTuning() {
    platform::Event key;
    key.index = 14;
    program_.fire(kScreen, "cL", EventKind::Click, key);
    listenOut();
    click("cTuneNote");
  }
  void saveScale(int slider, const std::string& name) {
    if (gScaleState != kTuneTonic) {
      click("cSwitch");
      click("cSetTonic");
      startTuning();
    }
    ctl(kScreen, "cSlider").setValue(slider);
    click("cPlay");
    listenOut();
    click("cAdjust");
    ctl(kScreen, "cSettingName").setText(name);
    click("cOK");
  }

 private:
  ProgramHarness program_;
};

void BM_SliderStepToRetunedNoteSounding(benchmark::State& state) {
  BenchStage s;
  s.startTuning();
  int slider = 3;
  for (auto _ : state) {
    slider = slider == 3 ? 4 : 3;
    s.ctl(kScreen, "cSlider").setValue(slider);
    gPlayStartedWall = {};
    const WallClock::time_point clicked = WallClock::now();
    s.click("cPlay");
    if (gPlayStartedWall < clicked || !s.program().messages().empty()) {
      state.SkipWithError("the tuned note did not start playing");
      return;
    }
    state.SetIterationTime(std::chrono::duration<double>(gPlayStartedWall - clicked).count());
    s.listenOut();
  }
}

BENCHMARK(BM_SliderStepToRetunedNoteSounding)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_ApplySavedScale(benchmark::State& state) {
  BenchStage s;
  s.startTuning();
  s.saveScale(-2, "First");
  s.saveScale(3, "Second");
  s.click("cReturn");
  s.program().fire("Nadavik", "cMnuExpRag", EventKind::Click);
  gCurrRagaId = 1;
  gCurrRagaName = fGetRagaName(1);
  sSetupForCurrRaga();
  sMainOperations(0);
  platform::Control& list = s.ctl("MainOperations", "cScaleList");
  if (list.listCount() != 2) {
    state.SkipWithError("the two saved scales are not listed");
    return;
  }
  const std::size_t messagesBefore = s.program().messages().size();
  int next = 0;
  for (auto _ : state) {
    list.setListIndex(next);
    s.program().fire("MainOperations", "cScaleList", EventKind::Click);
    next = 1 - next;
  }
  if (s.program().messages().size() != messagesBefore || gCurrMusicSetId <= 12)
    state.SkipWithError("the saved scales were not applied");
}

BENCHMARK(BM_ApplySavedScale)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) { return runWholeProgramBenchmarks(argc, argv); }
