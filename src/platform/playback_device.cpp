// The command model of the audio device: commands, position and notifications.
#include "platform/playback_device.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace platform {
namespace {

// Marks the device busy for a scope, restoring the previous mark after.
class BusyScope {
 public:
  explicit BusyScope(bool& busy) : busy_(busy), was_(busy) { busy_ = true; }
  ~BusyScope() { busy_ = was_; }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  bool& busy_;
  bool was_;
};

std::string lowered(const std::string& text) {
  std::string out = text;
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

}  // namespace

PlaybackDevice::PlaybackDevice(std::unique_ptr<AudioSink> sink, Scheduler& scheduler,
                               long statusIntervalMs)
    : sink_(std::move(sink)), scheduler_(scheduler), statusIntervalMs_(statusIntervalMs) {}

PlaybackDevice::~PlaybackDevice() {
  scheduler_.cancel(tickTimer_);
  scheduler_.cancel(doneTimer_);
  busy_ = true;
  if (playing_ || soundingOn_) sink_->stop();
}

// Carries out one command; names are matched without regard to case, as the
// media control did.
bool PlaybackDevice::command(const std::string& name) {
  BusyScope busy(busy_);
  errorNumber_ = 0;
  errorMessage_.clear();
  const std::string verb = lowered(name);
  if (verb == "open") return open();
  if (verb == "play") return play();
  if (verb == "queue") return queue();
  if (verb == "seek to start") return seekToStart();
  if (verb == "stop") {
    cutPlay(kNotifyAborted);
    dropFollowers();
    return true;
  }
  if (verb == "close") {
    close();
    return true;
  }
  return refuse(kErrUnknownCommand, "unknown command \"" + name + "\"");
}

long PlaybackDevice::length() const { return open_ ? clip_->lengthMs() : 0; }

long PlaybackDevice::position() const {
  if (!playing_) return stoppedAtMs_;
  return playFromMs_ + std::clamp(sink_->heardMs(), 0L, playToMs_ - playFromMs_);
}

int PlaybackDevice::mode() const {
  if (!open_) return kModeNotOpen;
  return playing_ ? kModePlaying : kModeStopped;
}

// Opens fileName, closing whatever was open. The file sounding on after a
// queue is opened as it sounds; any other file silences it. A missing or
// unreadable file leaves the device closed.
bool PlaybackDevice::open() {
  close();
  if (soundingOn_ && soundingOn_->fileName == fileName) {
    clip_ = soundingOn_->clip;
  } else {
    dropFollowers();
    auto clip = std::make_shared<WaveClip>();
    const WaveReadResult read = readWaveFile(fileName, *clip);
    if (read.status == WaveReadStatus::Missing) return refuse(kErrFileNotFound, read.error);
    if (read.status != WaveReadStatus::Ok) return refuse(kErrInvalidFile, read.error);
    clip_ = std::move(clip);
  }
  open_ = true;
  return true;
}

// Plays from `from` to `to` (to <= 0 or past the end: to the end).
bool PlaybackDevice::play() {
  if (!open_) return refuse(kErrNotOpen, "no file is open");
  const long endMs = (to <= 0 || to > length()) ? length() : to;
  const long startMs = std::clamp(from, 0L, endMs);
  if (soundingOn_ && soundingOn_->clip == clip_ && startMs == 0 && endMs == length())
    return takeOver(endMs);
  cutPlay(notify ? kNotifySuperseded : kNotifyAborted);
  dropFollowers();
  if (!sink_->start(*clip_, startMs, endMs)) {
    stoppedAtMs_ = startMs;
    return refuse(kErrOutputFailed, "the sound output failed: " + sink_->failure());
  }
  playing_ = true;
  playFromMs_ = startMs;
  playToMs_ = endMs;
  doneOwed_ = notify;
  scheduleTick();
  return true;
}

bool PlaybackDevice::takeOver(long endMs) {
  soundingOn_.reset();
  playing_ = true;
  playFromMs_ = 0;
  playToMs_ = endMs;
  doneOwed_ = notify;
  scheduleTick();
  return true;
}

// Reads fileName and has the sink sound it after the playing range.
bool PlaybackDevice::queue() {
  if (!playing_) return refuse(kErrNotOpen, "nothing is playing for a file to follow");
  auto clip = std::make_shared<WaveClip>();
  const WaveReadResult read = readWaveFile(fileName, *clip);
  if (read.status == WaveReadStatus::Missing) return refuse(kErrFileNotFound, read.error);
  if (read.status != WaveReadStatus::Ok) return refuse(kErrInvalidFile, read.error);
  if (!sink_->queue(*clip))
    return refuse(kErrOutputFailed, "the sound output cannot join " + fileName + " to what sounds");
  queued_ = Follower{fileName, std::move(clip)};
  return true;
}

// Called with no play sounding (after cutPlay), so that the sink no longer
// reads a clip that is forgotten here.
void PlaybackDevice::dropFollowers() {
  queued_.reset();
  if (!soundingOn_) return;
  soundingOn_.reset();
  sink_->stop();
}

bool PlaybackDevice::seekToStart() {
  if (!open_) return refuse(kErrNotOpen, "no file is open");
  if (!playing_) {
    stoppedAtMs_ = 0;
    return true;
  }
  const bool started = sink_->start(*clip_, 0, playToMs_);
  queued_.reset();  // a start forgets what was queued
  if (!started) {
    cutPlay(kNotifyFailure);
    return refuse(kErrOutputFailed, "the sound output failed: " + sink_->failure());
  }
  playFromMs_ = 0;
  return true;
}

void PlaybackDevice::close() {
  cutPlay(kNotifyAborted);
  open_ = false;
  clip_.reset();
  stoppedAtMs_ = 0;
}

bool PlaybackDevice::refuse(int number, const std::string& message) {
  errorNumber_ = number;
  errorMessage_ = message;
  return false;
}

void PlaybackDevice::cutPlay(int doneCode) {
  if (playing_) endPlay(position(), doneCode);
}

void PlaybackDevice::settleEnd(long atMs, int doneCode) {
  playing_ = false;
  stoppedAtMs_ = atMs;
  scheduler_.cancel(tickTimer_);
  tickTimer_ = 0;
  if (doneOwed_) {
    doneOwed_ = false;
    queueDone(doneCode);
  }
}

// The state is settled before the sink is stopped: closing an output may let
// waiting events through.
void PlaybackDevice::endPlay(long atMs, int doneCode) {
  settleEnd(atMs, doneCode);
  queued_.reset();
  sink_->stop();
}

// The range has been heard: a queued file goes on sounding, otherwise the
// output closes.
void PlaybackDevice::finishPlay() {
  if (queued_ && sink_->carryOn()) {
    soundingOn_ = std::move(queued_);
    queued_.reset();
    settleEnd(playToMs_, kNotifySuccessful);
    return;
  }
  endPlay(playToMs_, kNotifySuccessful);
}

// The next tick comes after the status interval, or sooner when the range
// ends sooner, so that the done follows the end closely.
void PlaybackDevice::scheduleTick() {
  scheduler_.cancel(tickTimer_);
  const long delayMs = std::clamp(sink_->remainingMs(), 1L, statusIntervalMs_);
  tickTimer_ = scheduler_.scheduleAfter(delayMs, [this] { onTick(); });
}

// Every tick while playing: either the range has been heard out, which ends
// the play and owes the done, or a status notification. The next tick is
// booked before the handler runs, so that a Stop or Play inside the handler
// can cancel or replace it.
void PlaybackDevice::onTick() {
  tickTimer_ = 0;
  if (!playing_) return;
  if (busy_) {
    scheduleTick();
    return;
  }
  {
    BusyScope busy(busy_);
    if (sink_->finished()) {
      finishPlay();
      return;
    }
    scheduleTick();
  }
  if (onStatus) onStatus();
}

void PlaybackDevice::queueDone(int code) {
  doneQueue_.push_back(code);
  if (doneTimer_ == 0) doneTimer_ = scheduler_.scheduleAfter(0, [this] { deliverDone(); });
}

// Delivers the oldest waiting done; the rest follow one per event. Never
// inside the device's own work: a sink that lets events through while it
// starts or stops would otherwise run the handler in the middle of a command.
void PlaybackDevice::deliverDone() {
  doneTimer_ = 0;
  if (doneQueue_.empty()) return;
  if (busy_) {
    doneTimer_ = scheduler_.scheduleAfter(1, [this] { deliverDone(); });
    return;
  }
  const int code = doneQueue_.front();
  doneQueue_.pop_front();
  if (!doneQueue_.empty()) doneTimer_ = scheduler_.scheduleAfter(0, [this] { deliverDone(); });
  if (onDone) onDone(code);
}

}  // namespace platform
