// The in-process program harness (see program_harness.h).
#include "program_harness.h"

#include "platform/qt/qt_pdf.h"

#include <unistd.h>

#include <QApplication>
#include <QTimer>
#include <fstream>
#include <iterator>

#include "app/screens.h"
#include "control/startup.h"
#include "core/error_state.h"
#include "core/session.h"
#include "notation/devanagari.h"
#include "platform/qt/qt_screen.h"
#include "platform/silent_audio.h"
#include "platform/store.h"

namespace fs = std::filesystem;

namespace {

int gHarnessCount = 0;

void copyDataFiles(const fs::path& to) {
  const fs::path built = NADAVIK_DATA_DIR;
  fs::create_directories(to);
  for (const char* name : {"mrA.nvy", "clb.nvy", "vlb.nvy", "Shusha.ttf"})
    if (fs::exists(built / name)) fs::copy_file(built / name, to / name);
  for (int i = 1; i <= 8; ++i) {
    const std::string picture = "nv" + std::to_string(i) + ".jpg";
    if (fs::exists(built / picture)) fs::copy_file(built / picture, to / picture);
  }
  fs::copy(NADAVIK_SCREENS_DIR, to / "screens", fs::copy_options::recursive);
}

}  // namespace

ProgramHarness::ProgramHarness() {
  folder_ = fs::temp_directory_path() /
            ("nadavik-program-" + std::to_string(getpid()) + "-" + std::to_string(++gHarnessCount));
  fs::remove_all(folder_);
  copyDataFiles(folder_);
  windows_ = std::make_unique<platform::QtWindowSystem>((folder_ / "screens").string());
  windows_->setDevanagariConverters({fKeymapToUnicode, fUnicodeToKeymap});
  windows_->setAudioDeviceFactory(
      [this] { return platform::createSilentAudioDevice(clock_, clock_); });
  windows_->setMessageBoxResponder([this](const std::string& text, int style, const std::string& title) {
    messages_.push_back({text, title});
    return (style & platform::kMsgYesNo) != 0 ? questionAnswer_ : platform::kAnswerOk;
  });
  platform::setWindowSystem(windows_.get());
  platform::setPdfSheetFactory(platform::qt::makeQtPdfSheet);
  platform::setEventBoundary(sRunTrapped);
}

ProgramHarness::~ProgramHarness() {
  gDbA.reset();
  gDbB.reset();
  gCurrForm = gPrevForm = gMainMenuForm = nullptr;
  settle();
  windows_.reset();
  settle();
  std::error_code ec;
  fs::remove_all(folder_, ec);
}

void ProgramHarness::start(bool pressOk, const std::string& commandLine) {
  sSetProgramLocation(fSelfContainedFolders(folder_.string()), commandLine);
  if (!sRegisterProgramScreens()) return;
  // The opening screen is modal: answer it from inside its own event loop.
  QTimer::singleShot(0, [this, pressOk] {
    fire("OpeningScreen", pressOk ? "OKButton" : "CancelButton", platform::EventKind::Click);
  });
  windows_->screen("Nadavik").load();
  settle();
}

void ProgramHarness::fire(const std::string& screen, const std::string& control,
                          platform::EventKind kind, platform::Event event) {
  event.kind = kind;
  static_cast<platform::QtScreen&>(windows_->screen(screen)).dispatch(control, kind, event);
}

void ProgramHarness::closeWindow(const std::string& name) {
  auto& s = static_cast<platform::QtScreen&>(windows_->screen(name));
  if (s.loaded()) s.drawingArea()->window()->close();
  settle();
}

platform::Screen& ProgramHarness::screen(const std::string& name) { return windows_->screen(name); }

bool ProgramHarness::mainWindowLoaded() { return windows_->screen("Nadavik").loaded(); }

std::string ProgramHarness::readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void ProgramHarness::finishStartUp() {
  clock_.advance(7000);
  fire("Nadavik", "cTimer", platform::EventKind::Timer);
  if (gTipSignal == 1) fire("Nadavik", "cOK", platform::EventKind::Click);
}

void ProgramHarness::settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}
