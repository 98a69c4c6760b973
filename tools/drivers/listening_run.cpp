// A listening run of the quiz and the sampler on a real sound output (not a
// test: run by hand under scripts/with-audio-server.sh --record). Runs the
// program in this process as the program tests do, but with the Qt audio
// device and the real event loop and timers, and prints one line per piece:
// when it started and ended (ms from the first piece), the length of its
// wave file, and what the screen showed.
//
//   nadavik_listening_run QUIZ_SAMPLES SAMPLER_PIECES [SEED]
#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "core/random.h"
#include "core/session.h"
#include "platform/audio.h"
#include "platform/qt/qt_audio.h"
#include "platform/qt/qt_scheduler.h"
#include "platform/qt/qt_window_system.h"
#include "program_harness.h"
#include "quiz/quiz_state.h"

namespace {

QElapsedTimer gRunClock;

// The sum of the selected phrase's duration words, in milliseconds.
long selectedPhraseMs() {
  long sum = 0;
  std::size_t at = 0;
  while ((at = gSelDurPhrase.find_first_of("0123456789", at)) != std::string::npos) {
    std::size_t used = 0;
    sum += std::stol(gSelDurPhrase.substr(at), &used);
    at += used;
  }
  return sum * 10;
}

// Lets events run until `done` holds or `limitMs` has passed.
bool waitFor(const std::function<bool()>& done, long limitMs) {
  QElapsedTimer waited;
  waited.start();
  while (!done()) {
    if (waited.elapsed() > limitMs) return false;
    QApplication::processEvents(QEventLoop::AllEvents, 5);
  }
  return true;
}

void quizSamples(ProgramHarness& p, int count) {
  platform::Screen& quiz = p.screen("Quiz");
  auto ctl = [&](const char* name) -> platform::Control& { return quiz.control(name); };
  for (const char* box : {"cOScale", "cOPakad", "cOAlap"}) ctl(box).setValue(1);
  p.fire("Quiz", "cOK", platform::EventKind::Click);
  for (int sample = 0; sample < count; ++sample) {
    const qint64 clicked = gRunClock.elapsed();
    p.fire("Quiz", "cOK", platform::EventKind::Click);
    const long length = ctl("cMM").device().length();
    const long phraseMs = selectedPhraseMs();
    const int kind = gQuizItem;
    if (!waitFor([&] { return ctl("cOK").caption() == "Selected"; }, 120000)) return;
    const qint64 ended = gRunClock.elapsed();
    p.fire("Quiz", "cShow", platform::EventKind::Click);
    std::printf("quiz %lld %lld %ld %ld kind=%d | %s\n", clicked, ended, length, phraseMs, kind,
                ctl("Label5").caption().c_str());
    std::fflush(stdout);
    waitFor([] { return false; }, 700);  // a gap to tell the samples apart
  }
  p.fire("Quiz", "cReturn", platform::EventKind::Click);
}

void samplerPieces(ProgramHarness& p, int count) {
  platform::Screen& sampler = p.screen("NVSampler");
  auto ctl = [&](const char* name) -> platform::Control& { return sampler.control(name); };
  auto playing = [&] { return ctl("cMM").device().mode() == platform::kModePlaying; };
  p.fire("NVSampler", "cStartLoop", platform::EventKind::Click);
  for (int piece = 0; piece < count; ++piece) {
    if (!waitFor(playing, 20000)) return;
    const qint64 started = gRunClock.elapsed();
    const std::string shown = ctl("cRaga").text() + " | " + ctl("cDesc").text();
    const long length = ctl("cMM").device().length();
    const long phraseMs = selectedPhraseMs();
    if (!waitFor([&] { return !playing(); }, 300000)) return;
    std::printf("sampler %lld %lld %ld %ld | %s\n", started, gRunClock.elapsed(), length, phraseMs,
                shown.c_str());
    std::fflush(stdout);
  }
  p.fire("NVSampler", "cStopLoop", platform::EventKind::Click);
  p.fire("NVSampler", "cReturn", platform::EventKind::Click);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s QUIZ_SAMPLES SAMPLER_PIECES [SEED]\n", argv[0]);
    return 2;
  }
  ProgramHarness program;
  platform::QtScheduler scheduler;
  platform::NoOutputNotice noSound{[](const std::string& message) { std::fprintf(stderr, "%s\n", message.c_str()); }};
  static_cast<platform::QtWindowSystem&>(platform::windowSystem()).setAudioDeviceFactory(
      [&] { return platform::createAudioDevice(scheduler, noSound); });
  program.start();
  program.finishStartUp();
  // The greeting drone sounds on for real: let it end, and its done
  // notification arrive, before the first piece. (That notification closes
  // the file of whatever screen is current by then.)
  waitFor([&] { return program.screen("Nadavik").control("cMM").device().mode() != platform::kModePlaying; },
          60000);
  waitFor([] { return false; }, 1000);
  sFixRandomSeed(argc > 3 ? static_cast<std::uint32_t>(std::atoi(argv[3])) : 18);
  gRunClock.start();
  program.fire("Nadavik", "cMnuTakQui", platform::EventKind::Click);
  quizSamples(program, std::atoi(argv[1]));
  program.fire("Nadavik", "cMnuUseMusSam", platform::EventKind::Click);
  samplerPieces(program, std::atoi(argv[2]));
  for (const RecordedMessage& m : program.messages()) std::printf("message: %s\n", m.text.c_str());
  return program.messages().empty() ? 0 : 1;
}
