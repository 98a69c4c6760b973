// The virtual clock: callbacks fire in due order at their own time.
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

TEST(VirtualClock, FiresDueCallbacksInOrderWithTheClockAtTheirTime) {
  VirtualClock clock;
  std::vector<std::string> log;
  auto note = [&](const char* name) {
    return [&log, &clock, name] { log.push_back(std::string(name) + "@" + std::to_string(clock.nowMs())); };
  };
  clock.scheduleAfter(30, note("c"));
  clock.scheduleAfter(10, note("a"));
  clock.scheduleAfter(10, note("b"));  // same time: scheduling order
  clock.scheduleAfter(50, note("late"));
  clock.advance(40);
  EXPECT_EQ(log, (std::vector<std::string>{"a@10", "b@10", "c@30"}));
  EXPECT_EQ(clock.nowMs(), 40);
  EXPECT_EQ(clock.pending(), 1u);
}

TEST(VirtualClock, RunsCallbacksScheduledWhileAdvancingWhenDueInTheStep) {
  VirtualClock clock;
  std::vector<long> firedAtMs;
  std::function<void()> tick = [&] {
    firedAtMs.push_back(clock.nowMs());
    clock.scheduleAfter(20, tick);
  };
  clock.scheduleAfter(20, tick);
  clock.advance(70);
  EXPECT_EQ(firedAtMs, (std::vector<long>{20, 40, 60}));
  clock.scheduleAfter(0, [&] { firedAtMs.push_back(-1); });
  clock.advance(0);
  EXPECT_EQ(firedAtMs.back(), -1);
}

TEST(VirtualClock, CancelForgetsOnlyThatCallback) {
  VirtualClock clock;
  int fired = 0;
  TimerId first = clock.scheduleAfter(5, [&] { fired += 1; });
  clock.scheduleAfter(5, [&] { fired += 10; });
  clock.cancel(first);
  clock.cancel(first);   // twice is harmless
  clock.cancel(12345);   // unknown id too
  clock.advance(5);
  EXPECT_EQ(fired, 10);
  EXPECT_EQ(clock.pending(), 0u);
}

TEST(VirtualClock, NegativeDelaysAndStepsDoNotGoBack) {
  VirtualClock clock;
  clock.advance(100);
  clock.advance(-50);
  EXPECT_EQ(clock.nowMs(), 100);
  bool fired = false;
  clock.scheduleAfter(-10, [&] { fired = true; });
  clock.advance(0);
  EXPECT_TRUE(fired);
}

}  // namespace
}  // namespace platform
