// The quiz and the sampler in the whole program, entered from the main
// window on Qt offscreen with the silent device on a virtual clock, and the
// program's generator seeded so that every draw is fixed.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/random.h"
#include "core/session.h"
#include "platform/audio.h"
#include "program_harness.h"
#include "store/lookups.h"
#include "store/working_record.h"

using Names = std::vector<std::string>;

class RandomScreenTest : public ::testing::Test {
 protected:
  void enter(const char* menu, const char* screenName) {
    name_ = screenName;
    program.start();
    program.finishStartUp();
    sFixRandomSeed(18);
    keyboardOnEntry = gKeyboardDisplay;
    program.fire("Nadavik", menu, platform::EventKind::Click);
  }
  void TearDown() override { sReleaseRandomSeed(); }
  platform::Control& ctl(const char* control) { return program.screen(name_).control(control); }
  void click(const char* control) { program.fire(name_, control, platform::EventKind::Click); }
  bool playing() { return ctl("cMM").device().mode() == platform::kModePlaying; }
  // Runs the virtual clock until the device has played out.
  void runOut() {
    for (int step = 0; step < 4000 && playing(); ++step) program.clock().advance(50);
  }
  // The sum of a phrase's duration words, in milliseconds (words in
  // hundredths of a second).
  static long phraseMs(const std::string& durations) {
    long sum = 0;
    std::size_t at = 0;
    while ((at = durations.find_first_of("0123456789", at)) != std::string::npos) {
      std::size_t used = 0;
      sum += std::stol(durations.substr(at), &used);
      at += used;
    }
    return sum * 10;
  }
  ProgramHarness program;
  std::string name_;
  std::int16_t keyboardOnEntry = 0;
};
