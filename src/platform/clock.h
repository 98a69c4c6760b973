// Time for the audio device: a clock that says how late it is, and a
// scheduler that calls back after a delay.
//
// The silent device keeps its position by a Clock and drives its status and
// done notifications through a Scheduler. In the program the clock is the
// steady wall clock and the scheduler a Qt timer; in tests both are one
// VirtualClock that the test advances by hand, so that every notification
// comes at an exact, repeatable time.
//
// VirtualClock keeps the current time (ms) and the pending callbacks, ordered
// by due time and, at equal times, by the order they were scheduled.
#pragma once

#include <functional>
#include <map>
#include <unordered_map>
#include <utility>

namespace platform {

class Clock {
 public:
  virtual ~Clock() = default;
  // Milliseconds since an arbitrary fixed start; never goes backwards.
  virtual long nowMs() const = 0;
};

// Identifies one scheduled callback; 0 is never used.
using TimerId = long;

class Scheduler {
 public:
  virtual ~Scheduler() = default;
  // Calls fn once, on the interface thread, after delayMs (0: as soon as the
  // events already waiting have been handled).
  virtual TimerId scheduleAfter(long delayMs, std::function<void()> fn) = 0;
  // Forgets a callback that has not run yet; unknown ids are ignored.
  virtual void cancel(TimerId id) = 0;
};

// The machine's steady (monotonic) clock.
class SteadyClock : public Clock {
 public:
  long nowMs() const override;
};

// A clock that stands still until advance() moves it, firing the callbacks
// that fall due on the way, each with the clock set to its due time.
class VirtualClock : public Clock, public Scheduler {
 public:
  long nowMs() const override { return nowMs_; }
  TimerId scheduleAfter(long delayMs, std::function<void()> fn) override;
  void cancel(TimerId id) override;

  // Moves the clock forward by deltaMs (0 fires what is due now). Callbacks
  // scheduled while advancing run too when they fall due within the step.
  void advance(long deltaMs);
  // Number of callbacks waiting.
  std::size_t pending() const { return queue_.size(); }

 private:
  using Key = std::pair<long, TimerId>;  // due time, then scheduling order
  long nowMs_ = 0;
  TimerId lastId_ = 0;
  std::map<Key, std::function<void()>> queue_;
  std::unordered_map<TimerId, long> dueById_;
};

}  // namespace platform
