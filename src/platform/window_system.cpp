// The process-wide window system and the event boundary every handler
// runs through.
#include <cassert>

#include "platform/screen.h"

namespace platform {

namespace {
WindowSystem* gSystem = nullptr;
EventBoundary gBoundary;
}  // namespace

WindowSystem& windowSystem() {
  assert(gSystem && "setWindowSystem must run before any screen is used");
  return *gSystem;
}

void setWindowSystem(WindowSystem* system) { gSystem = system; }

void setEventBoundary(EventBoundary boundary) { gBoundary = std::move(boundary); }

void runAtEventBoundary(const std::function<void()>& handler) {
  if (gBoundary)
    gBoundary(handler);
  else
    handler();
}

}  // namespace platform
