// The virtual clock: callbacks fire in due order at their own time, those
// scheduled while advancing run when due in the step, cancel forgets only
// its callback, and time never goes back.
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

TEST(VirtualClock, FiresDueCallbacksInOrderAtTheirTimeAndNeverGoesBack) {
  VirtualClock clock;
  std::vector<std::string> log;
  auto note = [&](const char* name) {
    return [&log, &clock, name] { log.push_back(std::string(name) + "@" + std::to_string(clock.nowMs())); };
  };
  clock.scheduleAfter(30, note("c"));
  clock.scheduleAfter(10, note("a"));
  clock.scheduleAfter(10, note("b"));  // same time: scheduling order
  clock.scheduleAfter(50, note("late"));
  const TimerId cancelled = clock.scheduleAfter(20, note("cancelled"));
  clock.cancel(cancelled);
  clock.cancel(cancelled);  // twice is harmless
  clock.cancel(12345);      // an unknown id too
  std::function<void()> tick = [&] {
    log.push_back("tick@" + std::to_string(clock.nowMs()));
    if (clock.nowMs() < 40) clock.scheduleAfter(15, tick);
  };
  clock.scheduleAfter(15, tick);
  clock.advance(40);
  clock.advance(-50);
  clock.scheduleAfter(-10, note("negative"));
  clock.advance(0);
  EXPECT_EQ(log, (std::vector<std::string>{"a@10", "b@10", "tick@15", "c@30", "tick@30", "negative@40"}));
  EXPECT_EQ(clock.pending(), 2u);  // "late" and the tick at 45
}

}  // namespace
}  // namespace platform
