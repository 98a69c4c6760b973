// A wrapper around an audio device for the screen benchmarks: passes the
// properties and notifications through and notes the wall and thread CPU
// time when a command leaves the device playing (gPlayStartedWall and
// gPlayStartedCpuMs).
#pragma once

#include <time.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include "platform/audio.h"

using WallClock = std::chrono::steady_clock;

inline double threadCpuMs() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) / 1e6;
}

// When the device last went from not playing to playing.
inline WallClock::time_point gPlayStartedWall;
inline double gPlayStartedCpuMs = 0;

class PlayTimingDevice : public platform::AudioDevice {
 public:
  explicit PlayTimingDevice(std::unique_ptr<platform::AudioDevice> inner)
      : inner_(std::move(inner)) {
    inner_->onDone = [this](int code) { if (onDone) onDone(code); };
    inner_->onStatus = [this] { if (onStatus) onStatus(); };
  }
  bool command(const std::string& name) override {
    inner_->notify = notify;
    inner_->wait = wait;
    inner_->shareable = shareable;
    inner_->deviceType = deviceType;
    inner_->fileName = fileName;
    inner_->from = from;
    inner_->to = to;
    const bool wasPlaying = inner_->mode() == platform::kModePlaying;
    const bool done = inner_->command(name);
    if (!wasPlaying && inner_->mode() == platform::kModePlaying) {
      gPlayStartedWall = WallClock::now();
      gPlayStartedCpuMs = threadCpuMs();
    }
    return done;
  }
  long length() const override { return inner_->length(); }
  long position() const override { return inner_->position(); }
  int mode() const override { return inner_->mode(); }
  int error() const override { return inner_->error(); }
  std::string errorMessage() const override { return inner_->errorMessage(); }

 private:
  std::unique_ptr<platform::AudioDevice> inner_;
};
