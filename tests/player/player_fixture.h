// The composition player in the whole program: Yaman on the Raga
// Exploration screen in Learning mode, a composition clicked, on Qt
// offscreen with the silent device on a virtual clock.
#pragma once

#include <string>

#include "../exploration/exploration_fixture.h"
#include "platform/screen.h"

class PlayerTest : public ExplorationTest {
 protected:
  // Opens a composition of the raga on show from the exploration screen.
  void open(const std::string& name) {
    click("Option2");
    clickItem("Composition - " + name);
  }
  platform::Screen& player() { return program.screen("PlayComposition1"); }
  platform::Control& pc(const char* name, int index = -1) { return player().control(name, index); }
  void press(const char* control) { program.fire("PlayComposition1", control, platform::EventKind::Click); }
  // The index of the red note cell, -1 when none is red.
  int redCell() {
    for (int i = 0; player().hasControl("cNote", i); ++i)
      if (pc("cNote", i).backColor() == 0x0000FF) return i;
    return -1;
  }
  // Runs the virtual clock until Play is offered again.
  void runOut() {
    for (int step = 0; step < 4000 && !pc("cPlay").enabled(); ++step) program.clock().advance(10);
  }
};
