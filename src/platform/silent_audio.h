// The silent audio device: the full command model with no sound.
//
// It plays by the clock: the position runs from From to To at one
// millisecond per millisecond of the clock, and the notifications come as
// from a real device. The program uses it with the wall clock when the
// machine has no sound output; tests use it with a VirtualClock.
#pragma once

#include <memory>

#include "platform/audio.h"
#include "platform/audio_sink.h"
#include "platform/clock.h"

namespace platform {

// A sink that "sounds" a range by counting clock time. State: the clock time
// at which the range began, its length, and the length of the queued clip
// (-1 none).
class ClockSink : public AudioSink {
 public:
  explicit ClockSink(const Clock& clock) : clock_(clock) {}

  bool start(const WaveClip& clip, long fromMs, long toMs) override;
  bool queue(const WaveClip& clip) override;
  bool carryOn() override;
  void stop() override { queuedMs_ = -1; }
  long heardMs() const override { return clock_.nowMs() - startedAtMs_; }
  long remainingMs() const override { return rangeMs_ - heardMs(); }
  bool finished() override { return remainingMs() <= 0; }
  std::string failure() const override { return {}; }

 private:
  const Clock& clock_;
  long startedAtMs_ = 0;
  long rangeMs_ = 0;
  long queuedMs_ = -1;
};

// A silent device on clock and scheduler; both must outlive it.
std::unique_ptr<AudioDevice> createSilentAudioDevice(const Clock& clock, Scheduler& scheduler);

}  // namespace platform
