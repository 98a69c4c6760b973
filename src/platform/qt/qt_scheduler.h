// The audio device's scheduler on the Qt event loop.
//
// Each callback is a single-shot precise QTimer owned here until it fires or
// is cancelled. State: the timers waiting, by id.
#pragma once

#include <memory>
#include <unordered_map>

#include "platform/clock.h"

class QTimer;

namespace platform {

class QtScheduler : public Scheduler {
 public:
  QtScheduler();
  ~QtScheduler() override;
  QtScheduler(const QtScheduler&) = delete;
  QtScheduler& operator=(const QtScheduler&) = delete;

  TimerId scheduleAfter(long delayMs, std::function<void()> fn) override;
  void cancel(TimerId id) override;

 private:
  void fire(TimerId id);

  struct Pending {
    std::unique_ptr<QTimer> timer;
    std::function<void()> fn;
  };
  TimerId lastId_ = 0;
  std::unordered_map<TimerId, Pending> pending_;
};

}  // namespace platform
