// Response times of the Composer screen in the whole program, run in
// process by the program harness (real screens on Qt offscreen, a private
// program folder with the built stores and kits, the silent audio device on
// a virtual clock, so that only the handlers' work is timed).
//
//  - Saving a two-part composition: the header and both parts written to
//    the user store in one transaction, with its durable commit (the store
//    syncs before the commit returns), two versions in turn so that every
//    save changes every row.
//  - Play to the device playing: a click on Play for a two-part composition
//    of 32 notes a part (both parts' wave files are built before the first
//    sounds) and for a two-phrase alap of 40 notes, until the cMM device
//    plays, caught by a device wrapper that notes the moment.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <array>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string>

#include "composer/composer.h"
#include "composer/composer_store.h"
#include "control/screen_manager.h"
#include "core/session.h"
#include "platform/audio.h"
#include "platform/qt/qt_window_system.h"
#include "platform/silent_audio.h"
#include "play_timing_device.h"
#include "program_harness.h"
#include "store/working_record_comp.h"
#include "whole_program_main.h"

using platform::EventKind;

namespace {

constexpr int kNotesPerPart = 32;
constexpr int kOneBeat = 7;     // "1" of the beat palette
constexpr int kFifty = 8;       // "50" of the alap's palette
const int kYamanNotes[] = {12, 14, 16, 18, 19, 21, 23, 24};

// The program on the Composer screen, with Yaman chosen.
class ComposerStage {
 public:
  ComposerStage() {
    program_.start();
    static_cast<platform::QtWindowSystem&>(platform::windowSystem()).setAudioDeviceFactory([this] {
      return std::make_unique<PlayTimingDevice>(
          platform::createSilentAudioDevice(program_.clock(), program_.clock()));
    });
    program_.finishStartUp();
    program_.fire("Nadavik", "cMnuInvCom", EventKind::Click);
    ready_ = gCurrFormId == kFormComposer;
    if (ready_) choose("Yaman");
  }
  // Whether the program reached the Composer screen; else what it said.
  bool ready() const { return ready_; }
  std::string told() const {
    std::string all;
    for (const RecordedMessage& m : program_.messages()) all += m.text + "; ";
    return all;
  }
  platform::Control& ctl(const char* name, int index = -1) { return program_.screen("Composer").control(name, index); }
  void click(const char* control, int index = -1) {
    platform::Event event;
    event.index = index;
    program_.fire("Composer", control, EventKind::Click, event);
  }
  void choose(const std::string& entry) {
    platform::Control& list = ctl("cRagaList");
    for (int i = 0; i < list.listCount(); ++i)
      if (list.list(i) == entry) {
        list.setListIndex(i);
        click("cRagaList");
        return;
      }
  }
  // Slots first to first + count - 1 filled with Yaman's notes and one
  // duration, and (compositions) one syllable "a" each.
  void fill(int first, int count, int duration, bool syllables) {
    if (gSelTimeVal != duration) click("cTimeVal", duration);
    for (int s = first; s < first + count; ++s) {
      const int slot = s % 40;
      if (s > first && slot == 0) click("cMoveD");
      if (gSelNotation != kYamanNotes[s % 8]) click("cNotation", kYamanNotes[s % 8]);
      click("cNote", slot);
      click("cTime", slot);
      if (!syllables) continue;
      ctl("cCompSyl", slot).setText("a");
      platform::Event event;
      event.index = slot;
      program_.fire("Composer", "cCompSyl", EventKind::Change, event);
    }
  }
  bool playing() { return ctl("cMM").device().mode() == platform::kModePlaying; }
  void runOut() {
    for (int step = 0; step < 4000 && playing(); ++step) program_.clock().advance(50);
  }
  ProgramHarness& program() { return program_; }

 private:
  ProgramHarness program_;
  bool ready_ = false;
};

std::unique_ptr<ComposerStage> gStage;
ComposerStage& stage() {
  if (!gStage) gStage = std::make_unique<ComposerStage>();
  return *gStage;
}

// The stage, or nothing after the run is marked as failed.
ComposerStage* readyStage(benchmark::State& state) {
  ComposerStage& s = stage();
  if (s.ready()) return &s;
  state.SkipWithError(("the program did not reach the Composer screen: " + s.told()).c_str());
  return nullptr;
}

void sComposition(bool second, TCompInfoRecord& header, std::array<CompPartRecord, kCompPartCount>& parts) {
  header = TCompInfoRecord{1, "Bench", kCompositionInfoType, 1};
  for (std::int16_t part : {1, 2}) {
    CompPartRecord& record = parts[static_cast<std::size_t>(part - 1)];
    record.NotationIndex = 1;
    record.Part = part;
    record.RagaId = 1;
    record.Mukhada = header.Name;
    record.Text = std::string(kNotesPerPart, second ? 'b' : 'a');
    record.Syllables = record.SyllableDuration = record.Notation = record.NotesDuration = "";
    for (int n = 0; n < kNotesPerPart; ++n) {
      record.Syllables += second ? " b" : " a";
      record.SyllableDuration += " 1";
      record.Notation += second ? " P" : " S";
      record.NotesDuration += " 1";
    }
    record.TalaId = 1;
    record.StartingBeat = 1;
    record.PlayingSpeed = second ? 50 : 60;
  }
}

void BM_SaveTwoPartComposition(benchmark::State& state) {
  if (!readyStage(state)) return;
  TCompInfoRecord header;
  std::array<CompPartRecord, kCompPartCount> parts;
  bool second = false;
  for (auto _ : state) {
    sComposition(second, header, parts);
    sWriteCompositionToStore(*gDbB, header, parts);
    second = !second;
  }
}
BENCHMARK(BM_SaveTwoPartComposition)->Unit(benchmark::kMillisecond)->UseRealTime();

// Clicks Play until the device plays; the rest of the run is played out
// on the virtual clock, untimed.
void timePlay(benchmark::State& state, ComposerStage& s) {
  const std::size_t told = s.program().messages().size();
  for (auto _ : state) {
    gPlayStartedWall = {};
    const WallClock::time_point clicked = WallClock::now();
    s.click("cPlay");
    if (!s.playing() || gPlayStartedWall < clicked || s.program().messages().size() != told) {
      state.SkipWithError(s.program().messages().size() == told ? "Play did not start the device"
                                                                 : s.program().messages().back().text.c_str());
      return;
    }
    state.SetIterationTime(std::chrono::duration<double>(gPlayStartedWall - clicked).count());
    s.runOut();
  }
}

void BM_ComposerPlayCompositionToDevicePlaying(benchmark::State& state) {
  if (!readyStage(state)) return;
  ComposerStage& s = stage();
  s.click("cOCompN");
  const std::string words(kNotesPerPart, 'a');
  s.ctl("cAsthai").setText(words);
  s.ctl("cAntara").setText(words);
  s.click("cOK");
  s.choose("Teentaal");
  // The library calls this more than once: each call a composition of its own.
  static int calls = 0;
  s.ctl("cMukhada").setText("Bench play " + std::to_string(++calls));
  s.ctl("cStartBeatAst").setText("1");
  s.ctl("cStartBeatAnt").setText("1");
  s.ctl("cSpeed").setText("60");
  s.click("cOK");
  s.fill(0, kNotesPerPart, kOneBeat, true);
  s.click("cSave");  // the Asthai is kept before the Antara is shown
  s.click("cOAntara");
  s.fill(0, kNotesPerPart, kOneBeat, true);
  timePlay(state, s);
  state.counters["notes_per_part"] = kNotesPerPart;
  s.program().answerQuestions(platform::kAnswerYes);
  s.click("cNewCat");
}
BENCHMARK(BM_ComposerPlayCompositionToDevicePlaying)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_ComposerPlayAlapToDevicePlaying(benchmark::State& state) {
  if (!readyStage(state)) return;
  ComposerStage& s = stage();
  s.click("cOAlap");
  s.fill(0, 19, kFifty, false);
  s.click("cNotation", 32);
  s.click("cNote", 19);
  s.fill(20, 20, kFifty, false);
  timePlay(state, s);
  s.click("cNewCat");
}
BENCHMARK(BM_ComposerPlayAlapToDevicePlaying)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
  return runWholeProgramBenchmarks(argc, argv, [] { gStage.reset(); });
}
