// The Raga Exploration screen in the whole program, entered for Yaman from
// the main window, on Qt offscreen with the silent device on a virtual
// clock: the fixture both exploration tests share.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/session.h"
#include "exploration/exploration.h"
#include "program_harness.h"
#include "store/lookups.h"
#include "store/working_record.h"

using Names = std::vector<std::string>;

constexpr std::int16_t kYaman = 1;

class ExplorationTest : public ::testing::Test {
 protected:
  void SetUp() override {
    program.start();
    program.clock().advance(7000);
    program.fire("Nadavik", "cTimer", platform::EventKind::Timer);
    if (gTipSignal == 1) program.fire("Nadavik", "cOK", platform::EventKind::Click);
    program.fire("Nadavik", "cMnuExpRag", platform::EventKind::Click);
    explore(kYaman, fGetRagaName(kYaman));
  }
  void explore(std::int16_t id, const std::string& name) {
    gCurrRagaId = id;
    gCurrRagaName = name;
    sSetupForCurrRaga();
    sMainOperations(0);
  }
  platform::Screen& screen() { return program.screen("MainOperations"); }
  platform::Control& ctl(const char* name) { return screen().control(name); }
  void click(const char* control) { program.fire("MainOperations", control, platform::EventKind::Click); }
  void choose(const char* list, int index) {
    ctl(list).setListIndex(index);
    click(list);
  }
  // The entries of a list, or of cNVIllusList those that begin with `start`.
  Names listItems(const char* name, const std::string& start = "") {
    Names items;
    for (int i = 0; i < ctl(name).listCount(); ++i)
      if (ctl(name).list(i).rfind(start, 0) == 0) items.push_back(ctl(name).list(i));
    return items;
  }
  // Clicks the entry of cNVIllusList that begins with `start`.
  void clickItem(const std::string& start) {
    for (int i = 0; i < ctl("cNVIllusList").listCount(); ++i)
      if (ctl("cNVIllusList").list(i).rfind(start, 0) == 0) return choose("cNVIllusList", i);
    FAIL() << "no item " << start;
  }
  // Runs the virtual clock until the run has ended (the selections are back).
  void runOut() {
    for (int step = 0; step < 2000 && !ctl("cNVIllusList").enabled(); ++step) program.clock().advance(50);
  }
  Names messageTexts() {
    Names texts;
    for (const RecordedMessage& m : program.messages()) texts.push_back(m.text);
    return texts;
  }

  ProgramHarness program;
};
