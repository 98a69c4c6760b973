// Nadavik's entry point: sets up the Qt window system, the audio devices
// and the error trap, fills the screen table, and loads the main window,
// whose Load event runs the whole start-up.
#include <QApplication>
#include <QStringList>
#include <string>

#include "app/screens.h"
#include "control/error_state.h"
#include "control/startup.h"
#include "notation/devanagari.h"
#include "control/messages.h"
#include "control/session.h"
#include "platform/qt/qt_audio.h"
#include "platform/qt/qt_scheduler.h"
#include "platform/qt/qt_window_system.h"

namespace {

// The command line as one string, without the program's own name.
std::string commandLine(const QStringList& arguments) {
  std::string line;
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    if (!line.empty()) line += ' ';
    line += arguments[i].toStdString();
  }
  return line;
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Nadavik");
  QApplication::setQuitOnLastWindowClosed(false);
  const std::string appDir = QCoreApplication::applicationDirPath().toStdString();

  platform::QtWindowSystem windows(appDir + "/screens");
  windows.setDevanagariConverters({fKeymapToUnicode, fUnicodeToKeymap});
  platform::QtScheduler scheduler;
  platform::NoOutputNotice noSound{[](const std::string& message) { sShowMessage(message); }};
  windows.setAudioDeviceFactory(
      [&] { return platform::createAudioDevice(scheduler, noSound); });
  platform::setWindowSystem(&windows);
  platform::setEventBoundary(sRunTrapped);

  sSetProgramLocation(appDir, commandLine(QCoreApplication::arguments()));
  if (!sRegisterProgramScreens()) return 1;  // a screen definition is missing or damaged
  platform::Screen& main = windows.screen("Nadavik");
  main.load();
  const int status = main.loaded() ? QApplication::exec() : 0;
  sCloseStores();  // before any static object is destroyed
  return status;
}
