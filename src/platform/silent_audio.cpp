// The silent audio device: a clock-driven sink under the shared command model.
#include "platform/silent_audio.h"

#include "platform/playback_device.h"

namespace platform {

bool ClockSink::start(const WaveClip& /*clip*/, long fromMs, long toMs) {
  startedAtMs_ = clock_.nowMs();
  rangeMs_ = toMs - fromMs;
  queuedMs_ = -1;
  return true;
}

bool ClockSink::queue(const WaveClip& clip) {
  queuedMs_ = clip.lengthMs();
  return true;
}

// The queued clip begins exactly where the range ended.
bool ClockSink::carryOn() {
  if (queuedMs_ < 0) return false;
  startedAtMs_ += rangeMs_;
  rangeMs_ = queuedMs_;
  queuedMs_ = -1;
  return true;
}

std::unique_ptr<AudioDevice> createSilentAudioDevice(const Clock& clock, Scheduler& scheduler) {
  return std::make_unique<PlaybackDevice>(std::make_unique<ClockSink>(clock), scheduler);
}

}  // namespace platform
