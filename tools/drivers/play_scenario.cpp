// Plays a learner's session on the real sound output and logs when each
// note was marked, for scripts/measure-playback.py to set against a
// recording of what was heard (not a test: run by hand on a sound server):
//
//   scripts/with-audio-server.sh --record out.wav build/release/tools/drivers/nadavik_play_scenario marks.log
//
// The whole program runs in this process (Qt offscreen), as the program
// tests run it, but with the real audio device. In Yaman, in Demo, it plays
// the alap phrases, the composition (Asthai and Antara with the theka), then
// the alap again, stops it in its second phrase, and plays the pakad; then
// it loops the first taan phrase in Learning and in Practice, and stops
// each loop.
//
// Each line of the log is an event and its wall-clock time in seconds:
//   mark <time> <buffer> <note> <token>   note <note> (1-based) of the
//       buffer's phrase is marked; token is its synthesis token (its last
//       two digits are the absolute note number)
//   phrase <time> <file> <start ms>...     after the mark of a phrase's first
//       note: a copy of its wave file beside the log, and its notes' starts
//   play <time> <item>                    an item is clicked
//   stop <time>                           Stop (or Stop Loop) is clicked
//   end <time>                            the run has ended
#include <time.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QThread>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/session.h"
#include "exploration/exploration.h"
#include "platform/qt/qt_audio.h"
#include "platform/qt/qt_scheduler.h"
#include "program_harness.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/play_chain.h"
#include "sound/play_state.h"
#include "store/lookups.h"
#include "store/working_record.h"

namespace {

constexpr std::int16_t kYaman = 1;

double wallSeconds() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

class Scenario {
 public:
  Scenario(ProgramHarness& program, const std::string& logFile)
      : p_(program), log_path_(logFile), log_(logFile) {}

  void line(const std::string& what) {
    char time[32];
    std::snprintf(time, sizeof time, "%.6f", wallSeconds());
    const std::size_t blank = what.find(' ');
    log_ << what.substr(0, blank) << ' ' << time << (blank == std::string::npos ? "" : what.substr(blank))
         << '\n';
    log_.flush();
  }

  // Clicks the entry of the item list that begins with `start`.
  bool play(const std::string& start) {
    platform::Control& list = p_.screen("MainOperations").control("cNVIllusList");
    for (int i = 0; i < list.listCount(); ++i) {
      if (list.list(i).rfind(start, 0) != 0) continue;
      line("play " + list.list(i));
      lastMark_ = {-1, -1};
      list.setListIndex(i);
      p_.fire("MainOperations", "cNVIllusList", platform::EventKind::Click);
      return true;
    }
    std::fprintf(stderr, "no item %s\n", start.c_str());
    return false;
  }

  void stop(const char* button = "cStop") {
    line("stop");
    p_.fire("MainOperations", button, platform::EventKind::Click);
  }

  // In Learning (Option2) or Practice (Option3): the item's first phrase
  // in the box, looped for about ms, then Stop Loop.
  bool loop(const char* mode, const std::string& item, long ms) {
    p_.fire("MainOperations", mode, platform::EventKind::Click);
    if (!play(item)) return false;
    run(300, false);
    p_.fire("MainOperations", "cStartLoop", platform::EventKind::Click);
    run(ms, false);
    stop("cStopLoop");
    run(1500, false);
    return true;
  }

  // Lets the program run for up to ms, watching the marks; with untilEnd,
  // only until the run has ended.
  void run(long ms, bool untilEnd) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < ms) {
      QCoreApplication::processEvents(QEventLoop::AllEvents);
      watchMarks();
      if (untilEnd && p_.screen("MainOperations").control("cNVIllusList").enabled()) {
        line("end");
        return;
      }
      QThread::usleep(200);
    }
  }

 private:
  void watchMarks() {
    if (gFirstNoteOwed || gCurrBuffer < 0 || gCurrBuffer >= kMusicBufferCount) return;
    const MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
    const std::pair<int, int> mark{gCurrBuffer, buffer.CurrNote};
    if (mark == lastMark_ || buffer.CurrNote < 1 || buffer.CurrNote > buffer.Count) return;
    lastMark_ = mark;
    const std::size_t note = static_cast<std::size_t>(buffer.CurrNote - 1);
    if (note >= buffer.NoteCodes.size()) return;
    line("mark " + std::to_string(mark.first) + " " + std::to_string(mark.second) + " " +
         fGetFnameForCurrTonicNote(buffer.NoteCodes[note]));
    if (mark.second == 1) logPhrase(buffer);
  }

  void logPhrase(const MusicBuffer& buffer) {
    const std::string copy = log_path_ + ".phrase" + std::to_string(++phrases_) + ".wav";
    std::error_code ec;
    std::filesystem::copy_file(gWavFiles[static_cast<std::size_t>(gCurrBuffer)], copy,
                               std::filesystem::copy_options::overwrite_existing, ec);
    std::string starts;
    for (int i = 0; i < buffer.Count && i < static_cast<int>(buffer.TimesMs.size()); ++i)
      starts += " " + std::to_string(buffer.TimesMs[static_cast<std::size_t>(i)]);
    line("phrase " + copy + starts);
  }

  ProgramHarness& p_;
  std::string log_path_;
  std::ofstream log_;
  int phrases_ = 0;
  std::pair<int, int> lastMark_{-1, -1};
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: nadavik_play_scenario MARKS_LOG\n");
    return 2;
  }
  platform::QtScheduler scheduler;
  platform::NoOutputNotice notice{[](const std::string& message) { std::fprintf(stderr, "%s\n", message.c_str()); }};
  ProgramHarness p;
  p.setAudioDeviceFactory([&] { return platform::createAudioDevice(scheduler, notice); });
  p.start();
  Scenario scenario(p, argv[1]);
  scenario.run(7000, false);  // the greeting, which must end before an item plays
  p.finishStartUp();
  p.fire("Nadavik", "cMnuExpRag", platform::EventKind::Click);
  gCurrRagaId = kYaman;
  gCurrRagaName = fGetRagaName(kYaman);
  sSetupForCurrRaga();
  sMainOperations(0);
  if (notice.told) return 1;

  const bool played = scenario.play("Alap") && (scenario.run(120000, true), true) &&
                      scenario.play("Composition") && (scenario.run(120000, true), true) &&
                      scenario.play("Alap");
  if (!played) return 1;
  scenario.run(1000, false);
  for (int wait = 0; wait < 1000 && gCurrBuffer == 0; ++wait) scenario.run(20, false);  // to phrase 2
  scenario.run(700, false);
  scenario.stop();
  scenario.run(1500, false);
  if (!scenario.play("Pakad")) return 1;
  scenario.run(60000, true);
  scenario.run(500, false);
  if (!scenario.loop("Option2", "Taan", 14000) || !scenario.loop("Option3", "Taan", 14000)) return 1;
  return 0;
}
