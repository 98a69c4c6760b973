// Plays workbench patterns on the real sound output and logs what each
// should sound like, for scripts/check-pattern-pitches.py to set against a
// recording of what was heard (not a test: run by hand on a sound server):
//
//   scripts/with-audio-server.sh --record out.wav build/release/tools/drivers/nadavik_pattern_run notes.log
//   scripts/check-pattern-pitches.py out.wav notes.log
//
// The whole program runs in this process (Qt offscreen) with the real
// audio device. On the Workshop screen, in Learning mode, it plays "S to
// S>" over the major scale, then "Up 1" over the scale of the Bhairav
// thata, then "Up 2" over the notes of raga Yaman, each to its end.
//
// Each line of the log: "pattern <name> <wall-clock seconds when the device
// started playing>", followed by one "note <start ms> <length ms>
// <absolute note number> <note>" line per note of the pattern, over all the
// files it plays as.
#include <time.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QThread>
#include <cstdio>
#include <fstream>
#include <string>

#include "core/session.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "platform/audio.h"
#include "platform/qt/qt_audio.h"
#include "platform/qt/qt_scheduler.h"
#include "program_harness.h"
#include "sound/music_buffers.h"

namespace {

double wallSeconds() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

class PatternRun {
 public:
  PatternRun(ProgramHarness& program, const std::string& logFile) : p_(program), log_(logFile) {}

  void click(const char* control) { p_.fire("Workshop", control, platform::EventKind::Click); }
  void pick(const std::string& entry) {
    platform::Control& list = p_.screen("Workshop").control("cRagaList");
    for (int i = 0; i < list.listCount(); ++i)
      if (list.list(i) == entry) list.setListIndex(i);
    click("cRagaList");
  }
  bool playing() {
    return p_.screen("Workshop").control("cMM").device().mode() == platform::kModePlaying;
  }
  void run(long ms) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < ms) {
      QCoreApplication::processEvents(QEventLoop::AllEvents);
      QThread::usleep(500);
    }
  }
  // Plays the pattern of a menu entry to its end and logs its notes.
  bool play(const std::string& name, const char* entry) {
    click(entry);
    const double started = wallSeconds();
    if (!playing()) return false;
    log_ << "pattern " << name << " " << std::fixed << started << "\n";
    long start = 0;
    for (std::size_t phrase = 0; phrase < gPracticeSet.NotePhrases.size(); ++phrase) {
      const auto notes = fSplitWords(gPracticeSet.NotePhrases[phrase], " ");
      const auto durations = fSplitWords(gPracticeSet.DurPhrases[phrase], " ");
      for (std::size_t i = 0; i < notes.size() && i < durations.size(); ++i) {
        const std::string main = notes[i].substr(notes[i].find('\'') + 1);
        const long ms = 10 * std::stol(durations[i]);
        log_ << "note " << start << " " << ms << " "
             << fGetAbsoluteNoteNumber(std::stoi(fGetFnameForNote(main)), gCurrTonicNoteId) << " "
             << notes[i] << "\n";
        start += ms;
      }
    }
    for (int wait = 0; wait < 600 && playing(); ++wait) run(100);
    run(800);
    return true;
  }

 private:
  ProgramHarness& p_;
  std::ofstream log_;
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: nadavik_pattern_run NOTES_LOG\n");
    return 2;
  }
  platform::QtScheduler scheduler;
  platform::NoOutputNotice notice{[](const std::string& message) { std::fprintf(stderr, "%s\n", message.c_str()); }};
  ProgramHarness p;
  p.setAudioDeviceFactory([&] { return platform::createAudioDevice(scheduler, notice); });
  p.start();
  PatternRun run(p, argv[1]);
  run.run(7000);  // the greeting
  p.finishStartUp();
  p.fire("Nadavik", "cMnuOpeWor", platform::EventKind::Click);
  if (notice.told) return 1;
  run.click("cMnuEng");
  run.click("cMajorScale");
  bool played = run.play("major-S-to-S>", "cMnuSToS");
  run.click("cSwitchWBMode");
  run.click("cNotePatterns");
  run.click("cO1");
  run.pick("Bhairav");
  played = played && run.play("Bhairav-up-1", "cMnu1UC");
  run.click("cSwitchWBMode");
  run.click("cNotesForRaga");
  run.pick("Yaman");
  played = played && run.play("Yaman-up-2", "cMnu2UC");
  for (const auto& m : p.messages()) std::fprintf(stderr, "message: %s\n", m.text.c_str());
  return played && p.messages().empty() ? 0 : 1;
}
