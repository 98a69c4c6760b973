// Real screens for tests of screen controllers: the Qt backend on the
// offscreen platform over the shipped screen definitions, and a library
// store that holds the layout rows of those screens, so that entering and
// leaving a screen runs the screen manager end to end without a display.
//
// State: one QApplication, one window system and one store for the whole
// test process (screens live as long as the process, as in the program).
#pragma once

#include <QApplication>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
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
#include "screen_rows.h"
#include "store_writer.h"

namespace screenharness {

inline std::string readText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// The library store's schema: its own tables, then those it shares with
// the user store, as the build joins them.
inline std::string libraryStoreSchema() {
  return readText(NADAVIK_LIBRARY_SCHEMA) + "\n" + readText(NADAVIK_SHARED_SCHEMA);
}

// Compiles the layout rows of every screen file into a fresh library store
// in a temporary folder and opens it read-only as gDbA. Returns an error
// text, empty on success.
inline std::string openLayoutStore(const std::string& folder) {
  std::vector<nvstore::Row> rows;
  for (const auto& file : std::filesystem::directory_iterator(NADAVIK_SCREENS_DIR)) {
    if (file.path().extension() != ".screen") continue;
    auto layout = nvstore::readScreenFile(file.path().string());
    if (!layout.errors.empty()) return layout.errors.front().text();
    rows.insert(rows.end(), layout.rows.begin(), layout.rows.end());
  }
  const std::string storePath = folder + "/mrA.nvy";
  std::vector<nvstore::SourceError> errors;
  if (!nvstore::writeStoreFile(storePath, libraryStoreSchema(), "schema_library.sql", rows,
                               errors))
    return errors.empty() ? "store not written" : errors.front().text();
  gDbA = std::make_unique<platform::sqlite::SqliteDatabase>(storePath, false, true);
  // Closed and removed before the store engine's own statics go at exit.
  static std::string removeAtExit;
  removeAtExit = folder;
  std::atexit([] {
    gDbA.reset();
    std::error_code ignored;
    std::filesystem::remove_all(removeAtExit, ignored);
  });
  return "";
}

// Sets up the process once: the application, the screens of `entries` plus
// the main window, and the layout store. Returns an error text, empty on
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

  const std::string folder = (std::filesystem::temp_directory_path() /
                              ("nadavik-screens-" + std::to_string(::getpid())))
                                 .string();
  std::filesystem::create_directories(folder);
  gDataPath = folder;
  gErrTraceFile = folder + "/errtrace.txt";
  if (auto problem = openLayoutStore(folder); !problem.empty()) return problem;

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
  gFormL = 0;
  gFormT = 0;
  gFormW = 1366;
  gFormH = 768;
  gTraceEnabled = 0;
  gTraceOn = 0;
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

// Enters the screen of formId from the main window through its
// controller's event 0 and expects it current and shown, with the main
// window as its parent; then leaves by its Go Back button and expects the
// main window back and the screen unloaded.
inline void expectEntersAndLeavesByGoBack(std::int16_t formId, Controller controller) {
  startAtMainWindow();
  controller(0);
  EXPECT_EQ(gCurrFormId, formId);
  EXPECT_EQ(gCurrForm, &screenOf(formId));
  EXPECT_EQ(gParentFormIds[formId - 1], kFormNadavik);
  EXPECT_TRUE(screenOf(formId).visible());
  EXPECT_FALSE(screenOf(kFormNadavik).visible());

  click(formId, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormNadavik);
  EXPECT_EQ(gCurrForm, &screenOf(kFormNadavik));
  EXPECT_TRUE(screenOf(kFormNadavik).visible());
  EXPECT_FALSE(screenOf(formId).loaded());
  EXPECT_EQ(gInternalClose, 0);
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
