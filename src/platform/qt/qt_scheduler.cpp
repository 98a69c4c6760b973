// The Qt scheduler: one precise single-shot timer per callback.
#include "platform/qt/qt_scheduler.h"

#include <QTimer>
#include <algorithm>

namespace platform {

QtScheduler::QtScheduler() = default;
QtScheduler::~QtScheduler() = default;

TimerId QtScheduler::scheduleAfter(long delayMs, std::function<void()> fn) {
  const TimerId id = ++lastId_;
  auto timer = std::make_unique<QTimer>();
  timer->setSingleShot(true);
  timer->setTimerType(Qt::PreciseTimer);
  QObject::connect(timer.get(), &QTimer::timeout, [this, id] { fire(id); });
  timer->start(static_cast<int>(std::clamp(delayMs, 0L, 24L * 3600 * 1000)));
  pending_.emplace(id, Pending{std::move(timer), std::move(fn)});
  return id;
}

void QtScheduler::cancel(TimerId id) { pending_.erase(id); }

// Runs and forgets one callback. Its timer is inside its own timeout signal
// here, so it is deleted later rather than now.
void QtScheduler::fire(TimerId id) {
  auto it = pending_.find(id);
  if (it == pending_.end()) return;
  it->second.timer.release()->deleteLater();
  std::function<void()> fn = std::move(it->second.fn);
  pending_.erase(it);
  fn();
}

}  // namespace platform
