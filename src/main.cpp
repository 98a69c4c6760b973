// Nadavik's entry point: sets up the Qt window system, the audio devices
// and the error trap, fills the screen table, and loads the main window,
// whose Load event runs the whole start-up.
//
// Options of the entry point, taken off the command line before the program
// reads it (the program looks for the characters "1", trace on, and "2",
// run NVScript.txt, anywhere on its command line, so no option of ours may
// contain them):
//   --quit-when-shown  An unattended start, for checking that the program
//                      starts: the opening screen is accepted as its OK
//                      button accepts it, the real start-up runs, and once
//                      the main window is shown the program leaves through
//                      its Exit button. Message boxes are answered with
//                      their first answer (OK, or No) and their text goes
//                      to standard error, their detailed text after it.
//                      Exit status 0 only when the main window was shown.
//   --help, --version  Print the usage or the version on standard output
//                      and exit 0, before any window is made (so they need
//                      no display).
//   --loop-alap=ID, --repeat-saves=KIND  Hidden diagnostic runs for the
//                      soak and crash-trial scripts: with --quit-when-shown
//                      they take over, instead of Exit, once the main window
//                      is shown (src/diagnostic_runs.h).
// Exit status: 1 after a fatal error or when refused as a second copy, in
// every run; otherwise 0.
// Environment:
//   NADAVIK_DATA_FOLDER  A folder that holds the data files (stores, tabla
//                        kits, pictures, font) in place of the program's own
//                        data folder; the trace files and the user's store
//                        are written there too. Checks run the program on a
//                        copy so that the build's own stores stay as they are.
//   XDG_DATA_HOME, XDG_STATE_HOME  Where the user's store and the trace files
//                        go (control/program_folders.h).
#include <QApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

#include "app/screens.h"
#include "control/parameters.h"
#include "control/program_folders.h"
#include "diagnostic_runs.h"
#include "control/startup.h"
#include "core/error_state.h"
#include "core/messages.h"
#include "core/session.h"
#include "core/trace.h"
#include "notation/devanagari.h"
#include "platform/qt/qt_audio.h"
#include "platform/qt/qt_pdf.h"
#include "platform/qt/qt_scheduler.h"
#include "platform/qt/qt_screen.h"
#include "platform/qt/qt_window_system.h"

namespace {

const QString kQuitWhenShown = "--quit-when-shown";

// How long the main window may take to appear once the start-up has run.
constexpr qint64 kShowLimitMs = 5000;

// The command line as one string, without the program's own name and
// without the options the entry point takes itself.
std::string commandLine(const QStringList& arguments) {
  std::string line;
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    if (arguments[i] == kQuitWhenShown || DiagnosticRun::isOption(arguments[i])) continue;
    if (!line.empty()) line += ' ';
    line += arguments[i].toStdString();
  }
  return line;
}

const char* const kUsage =
    "Usage: nadavik [--help] [--version] [--quit-when-shown] [1] [2]\n"
    "Nadavik: learn the ragas of North Indian classical music.\n"
    "\n"
    "  1                  write a trace of the program's steps to errtrace.txt\n"
    "  2                  run the script NVScript.txt of the data folder\n"
    "  --quit-when-shown  start unattended and leave once the main window shows\n"
    "  --help             print this help and exit\n"
    "  --version          print the version and exit\n"
    "\n"
    "Your own store is kept in $XDG_DATA_HOME/nadavik (~/.local/share/nadavik),\n"
    "the trace files in $XDG_STATE_HOME/nadavik (~/.local/state/nadavik).\n";

// Answers --help and --version, which need no window; true when one was
// answered.
bool answeredInformationOption(int argc, char* argv[]) {
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--help") == 0) {
      std::fputs(kUsage, stdout);
      return true;
    }
    if (std::strcmp(argv[i], "--version") == 0) {
      std::printf("nadavik %s\n", fGetNVVerString().c_str());
      return true;
    }
  }
  return false;
}

// The window of a screen when it is really on the screen (a screen's own
// Visible may still be on its way to the window).
bool windowShown(const platform::Screen& screen) {
  const QString name = QString::fromStdString(screen.name());
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == name && window->isVisible()) return true;
  return false;
}

// A click on a control, delivered as the backend delivers a user's click.
void click(platform::Screen& screen, const std::string& control) {
  static_cast<platform::QtScreen&>(screen).dispatch(control, platform::EventKind::Click, {});
}

// The unattended start of --quit-when-shown (see the top of this file).
class UnattendedStart {
 public:
  UnattendedStart(platform::QtWindowSystem& windows, platform::Screen& opening,
                  platform::Screen& main, std::optional<DiagnosticRun> diagnostic)
      : opening_(opening), main_(main), diagnostic_(std::move(diagnostic)) {
    windows.setDetailedMessageBoxResponder([](const std::string& text, int style,
                                              const std::string&, const std::string& detail) {
      std::fprintf(stderr, "nadavik: message: %s\n", text.c_str());
      if (!detail.empty()) std::fprintf(stderr, "nadavik: details: %s\n", detail.c_str());
      return (style & 0x7) == platform::kMsgYesNo ? platform::kAnswerNo : platform::kAnswerOk;
    });
    // The opening screen is modal inside the main window's Load: the poll
    // runs in its event loop and presses OK once the screen is up.
    QObject::connect(&poll_, &QTimer::timeout, [this] { step(); });
    poll_.start(20);
  }

  // Called once the main window's Load, and with it the start-up, is over:
  // from here on the poll waits for the main window and then leaves.
  void startUpDone() {
    startUpDone_ = true;
    sinceStartUp_.start();
  }

  bool mainWindowShown() const { return shown_; }

 private:
  void step() {
    if (!accepted_) {
      if (!windowShown(opening_)) return;
      accepted_ = true;
      click(opening_, "OKButton");
      return;
    }
    // Leaving while the start-up still runs (it lets events through while
    // it plays the greeting) would cut into it.
    if (!startUpDone_) return;
    if (windowShown(main_)) {
      poll_.stop();
      shown_ = true;
      if (diagnostic_)
        diagnostic_->start(main_);
      else
        click(main_, "cExit");
    } else if (sinceStartUp_.elapsed() > kShowLimitMs) {
      poll_.stop();
      std::fprintf(stderr, "nadavik: the main window was not shown\n");
      QCoreApplication::exit(1);
    }
  }

  platform::Screen& opening_;
  platform::Screen& main_;
  std::optional<DiagnosticRun> diagnostic_;
  QTimer poll_;
  QElapsedTimer sinceStartUp_;
  bool accepted_ = false;
  bool startUpDone_ = false;
  bool shown_ = false;
};

}  // namespace

int main(int argc, char* argv[]) {
  if (answeredInformationOption(argc, argv)) return 0;
  QApplication app(argc, argv);
  QApplication::setApplicationName("Nadavik");
  QApplication::setQuitOnLastWindowClosed(false);
  const std::string appDir = QCoreApplication::applicationDirPath().toStdString();
  const bool unattended = QCoreApplication::arguments().contains(kQuitWhenShown);
  bool invalidOption = false;
  std::optional<DiagnosticRun> diagnostic =
      DiagnosticRun::fromArguments(QCoreApplication::arguments(), invalidOption);
  if (invalidOption) return 2;

  platform::QtWindowSystem windows(fReadOnlyDataFolder(appDir) + "/screens");
  windows.setDevanagariConverters({fKeymapToUnicode, fUnicodeToKeymap});
  platform::QtScheduler scheduler;
  platform::NoOutputNotice noSound{[](const std::string& message) { sShowMessage(message); }};
  windows.setAudioDeviceFactory(
      [&] { return platform::createAudioDevice(scheduler, noSound); });
  platform::setWindowSystem(&windows);
  platform::setPdfSheetFactory(platform::qt::makeQtPdfSheet);
  platform::setEventBoundary(sRunTrapped);

  sSetProgramLocation(fResolveProgramFolders(appDir, fFolderEnvironment()),
                      commandLine(QCoreApplication::arguments()));
  if (!sRegisterProgramScreens()) return 1;  // a screen definition is missing or damaged
  platform::Screen& main = windows.screen("Nadavik");
  std::optional<UnattendedStart> check;
  if (unattended) check.emplace(windows, windows.screen("OpeningScreen"), main, std::move(diagnostic));
  main.load();
  if (!main.loaded()) {
    sCloseStores();
    if (unattended) std::fprintf(stderr, "nadavik: the start-up ended before the main window\n");
    return unattended || fExitStatus() != 0 ? 1 : 0;
  }
  if (check) check->startUpDone();
  const int status = QApplication::exec();
  sCloseStores();  // before any static object is destroyed
  if (fExitStatus() != 0) return fExitStatus();  // a fatal error or a refusal
  return check && !check->mainWindowShown() ? 1 : status;
}
