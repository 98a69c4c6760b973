// The steady clock and the virtual clock of the audio device.
#include "platform/clock.h"

#include <algorithm>
#include <chrono>

namespace platform {

long SteadyClock::nowMs() const {
  using namespace std::chrono;
  return static_cast<long>(
      duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

TimerId VirtualClock::scheduleAfter(long delayMs, std::function<void()> fn) {
  const TimerId id = ++lastId_;
  const long dueMs = nowMs_ + std::max(0L, delayMs);
  queue_.emplace(Key{dueMs, id}, std::move(fn));
  dueById_.emplace(id, dueMs);
  return id;
}

void VirtualClock::cancel(TimerId id) {
  auto it = dueById_.find(id);
  if (it == dueById_.end()) return;
  queue_.erase(Key{it->second, id});
  dueById_.erase(it);
}

void VirtualClock::advance(long deltaMs) {
  const long targetMs = nowMs_ + std::max(0L, deltaMs);
  while (!queue_.empty() && queue_.begin()->first.first <= targetMs) {
    auto first = queue_.begin();
    nowMs_ = first->first.first;
    std::function<void()> fn = std::move(first->second);
    dueById_.erase(first->first.second);
    queue_.erase(first);
    fn();
  }
  nowMs_ = targetMs;
}

}  // namespace platform
