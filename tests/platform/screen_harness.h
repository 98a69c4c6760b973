// Real screens for tests of screen controllers: the Qt backend on the
// offscreen platform over the shipped screen definitions, and a copy of the
// built library store, which holds the layout rows of those screens, so
// that entering and leaving a screen runs the screen manager end to end
// without a display.
//
// State: one QApplication, one window system and one store for the whole
// test process (screens live as long as the process, as in the program).
#pragma once

#include <QApplication>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

#include "control/screen_manager.h"
#include "control/screen_table.h"
#include "core/session.h"
#include "platform/qt/qt_screen.h"
#include "platform/qt/qt_window_system.h"
#include "platform/screen.h"
#include "platform/sqlite/database.h"

namespace screenharness {

inline std::string& storePath() {
  static std::string path;
  return path;
}

// Opens the test's copy of the library store read-only as gDbA, first
// running sql on it when given.
inline void openLibraryStore(const std::string& sql = "") {
  gDbA.reset();
  if (!sql.empty()) platform::sqlite::SqliteDatabase(storePath(), false, false).execute(sql);
  gDbA = std::make_unique<platform::sqlite::SqliteDatabase>(storePath(), false, true);
}

// Sets up the process once: the application, the screens of `entries` plus
// the main window, and the library store. Returns an error text, empty on
// success.
inline std::string setUpScreens(const std::vector<ScreenEntry>& entries) {
  // The application and the screens are kept to the very end of the
  // process and never destroyed: closing windows at exit would deliver
  // their Unload events to a screen manager that is already gone.
  static QApplication* app = nullptr;
  if (app) return "";
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  static int argc = 1;
  static char name[] = "screen_harness";
  static char* argv[] = {name, nullptr};
  app = new QApplication(argc, argv);
  platform::setWindowSystem(new platform::QtWindowSystem(NADAVIK_SCREENS_DIR));

  static std::string folder = (std::filesystem::temp_directory_path() / "nadavik-screens-XXXXXX").string();
  if (!mkdtemp(folder.data())) return "no temporary folder";
  gDataPath = folder;
  gErrTraceFile = folder + "/errtrace.txt";
  // A copy of the built library store, which holds the screens' layout rows;
  // closed and removed before the store engine's own statics go at exit.
  storePath() = folder + "/mrA.nvy";
  std::filesystem::copy_file(NADAVIK_DATA_DIR "/mrA.nvy", storePath());
  openLibraryStore();
  std::atexit([] {
    gDbA.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  });

  sRegisterScreen({kFormNadavik, "Nadavik", nullptr, nullptr});
  for (const auto& entry : entries) sRegisterScreen(entry);
  sCreateScreenObjects();
  return "";
}

// Makes the main window the current screen again, every other screen
// unloaded, the parent chain empty and the window a normal 1366x768 one.
inline void startAtMainWindow() {
  for (std::int16_t id = 2; id <= 28; ++id)
    if (platform::Screen* s = fFormById(id); s && s->loaded()) {
      gInternalClose = 1;
      s->unload();
    }
  gInternalClose = 0;
  gParentFormIds.fill(0);
  gCurrFormId = kFormNadavik;
  gCurrForm = fFormById(kFormNadavik);
  gPrevForm = nullptr;
  gFormState = 0;
  gFormL = gFormT = 0;
  gFormW = 1366;
  gFormH = 768;
  gTraceEnabled = gTraceOn = 0;
}

inline platform::Screen& screenOf(std::int16_t formId) { return *fFormById(formId); }

// Delivers a click to a control of a screen, as the backend does for a
// user's click.
inline void click(std::int16_t formId, const std::string& control, int index = -1) {
  platform::Event event;
  event.index = index;
  static_cast<platform::QtScreen&>(screenOf(formId))
      .dispatch(control, platform::EventKind::Click, event);
}

// With tracing offered, the trace entries of the screen switch tracing and
// move the check mark between them.
inline void expectTraceMenuSwitchesTracing(std::int16_t formId, Controller controller) {
  startAtMainWindow();
  gTraceEnabled = -1;
  controller(0);
  click(formId, "cMnuTraOn");
  EXPECT_EQ(gTraceOn, -1);
  EXPECT_TRUE(screenOf(formId).control("cMnuTraOn").checked());
  EXPECT_FALSE(screenOf(formId).control("cMnuTraOff").checked());
  click(formId, "cMnuTraOff");
  EXPECT_EQ(gTraceOn, 0);
  EXPECT_FALSE(screenOf(formId).control("cMnuTraOn").checked());
  EXPECT_TRUE(screenOf(formId).control("cMnuTraOff").checked());
  controller(20);
}

// The names of the checked entries among `entries` of the current screen.
inline std::vector<std::string> checkedEntries(const std::vector<std::string>& entries) {
  std::vector<std::string> checked;
  for (const auto& name : entries)
    if (gCurrForm->control(name).checked()) checked.push_back(name);
  return checked;
}

}  // namespace screenharness
