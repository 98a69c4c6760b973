// Qt Multimedia output for the audio device, and the device factory.
#include "platform/qt/qt_audio.h"

#include <QAudioSink>
#include <QBuffer>
#include <QIODevice>
#include <QMediaDevices>
#include <QTimer>
#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/playback_device.h"
#include "platform/silent_audio.h"

namespace platform {

const char* const kNoAudioOutputMessage =
    "No sound output was found, so Nadavik will play in silence: the notes and the "
    "keyboard marks still move as the music would. To hear the music, connect speakers "
    "or headphones (or start the sound service of your system) and start Nadavik again.";

namespace {

constexpr int kBytesPerSample = 2;
// The ramp where the output starts from silence or ends in it.
constexpr long kEdgeRampMs = 3;

QAudioFormat formatOf(int sampleRate, int channels) {
  QAudioFormat format;
  format.setSampleRate(sampleRate);
  format.setChannelCount(channels);
  format.setSampleFormat(QAudioFormat::Int16);
  return format;
}

std::string describe(QAudio::Error error) {
  switch (error) {
    case QAudio::NoError: return "no error";
    case QAudio::OpenError: return "the sound output could not be opened";
    case QAudio::IOError: return "the sound output stopped accepting samples";
    case QAudio::UnderrunError: return "the sound output ran out of samples";
    case QAudio::FatalError: return "the sound output failed";
  }
  return "unknown sound output error";
}

// True when the default output exists and really starts: with no sound
// server the device may be listed, yet start() ends stopped with OpenError.
bool outputStarts() {
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  if (device.isNull()) return false;
  QByteArray silence(4410 * kBytesPerSample, '\0');
  QBuffer buffer(&silence);
  buffer.open(QIODevice::ReadOnly);
  QAudioSink probe(device, formatOf(44100, 1));
  probe.start(&buffer);
  const bool started = probe.error() == QAudio::NoError && probe.state() != QAudio::StoppedState;
  probe.stop();
  return started;
}

}  // namespace

// The samples of one range of a clip, then of the clip queued after it,
// handed to the output as it pulls them; after fadeOut(), a short fade of
// what would have come next, then silence.
// State: the clip, the read cursor and end (bytes), the queued clip, the
// bytes handed over since the output started and where the queued clip
// began among them, and the fade's own samples.
class ClipSource : public QIODevice {
 public:
  // Every clip it is given has the format of the first: the frame size and
  // rate are kept here, so that a fading source, whose clips may be gone,
  // still knows them.
  explicit ClipSource(const WaveClip& clip)
      : clip_(&clip), sampleRate_(clip.sampleRate), channels_(clip.channels) {
    // Unbuffered: a buffered QIODevice reads 16 KB (185 ms of mono sound)
    // ahead of what the output asks for, and a Stop's fade would only be
    // heard after all of that had played.
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
  }

  const WaveClip* clip() const { return clip_; }

  void setRange(long firstFrame, long endFrame) {
    cursorBytes_ = firstFrame * frameBytes();
    endBytes_ = endFrame * frameBytes();
    queued_ = nullptr;
  }
  void queue(const WaveClip& clip) { queued_ = &clip; }
  // Where the queued clip began to be handed over, in ms of the output; -1
  // while it has not.
  long joinedAtMs() const { return joinedAtBytes_ < 0 ? -1 : bytesToMs(joinedAtBytes_); }
  void forgetJoin() { joinedAtBytes_ = -1; }

  // From now on hands over fadeMs of what was to come, fading to nothing,
  // then silence; the clips are no longer read.
  void fadeOut(long fadeMs) {
    const long frames = static_cast<long>(sampleRate_) * fadeMs / 1000;
    const int channels = channels_;
    fade_.assign(static_cast<std::size_t>(frames * channels), 0);
    const long cursorFrame = cursorBytes_ / frameBytes();
    for (long f = 0; f < frames && cursorFrame + f < endBytes_ / frameBytes(); ++f)
      for (int c = 0; c < channels; ++c) {
        const std::size_t at = static_cast<std::size_t>((cursorFrame + f) * channels + c);
        fade_[static_cast<std::size_t>(f * channels + c)] =
            static_cast<std::int16_t>(clip_->samples[at] * (frames - f) / frames);
      }
    fading_ = true;
    clip_ = nullptr;
    queued_ = nullptr;
  }

  bool exhausted() const { return !fading_ && queued_ == nullptr && cursorBytes_ >= endBytes_; }
  long fedMs() const { return bytesToMs(fedBytes_); }
  long unfedMs() const { return bytesToMs(endBytes_ - cursorBytes_); }

  long bytesToMs(qint64 bytes) const {
    const qint64 bytesPerSecond = static_cast<qint64>(sampleRate_) * frameBytes();
    return bytesPerSecond > 0 ? static_cast<long>(bytes * 1000 / bytesPerSecond) : 0;
  }

  bool isSequential() const override { return true; }
  qint64 bytesAvailable() const override { return endBytes_ - cursorBytes_; }

 protected:
  qint64 readData(char* data, qint64 maxSize) override {
    maxSize -= maxSize % frameBytes();
    if (fading_) return readFade(data, maxSize);
    qint64 count = copyRange(data, maxSize);
    if (count < maxSize && queued_ != nullptr) {
      joinedAtBytes_ = fedBytes_;
      clip_ = queued_;
      queued_ = nullptr;
      setRange(0, clip_->frameCount());
      count += copyRange(data + count, maxSize - count);
    }
    return count;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  qint64 frameBytes() const { return static_cast<qint64>(channels_) * kBytesPerSample; }

  qint64 copyRange(char* data, qint64 maxSize) {
    const qint64 count = std::max<qint64>(0, std::min<qint64>(maxSize, endBytes_ - cursorBytes_));
    std::memcpy(data, reinterpret_cast<const char*>(clip_->samples.data()) + cursorBytes_,
                static_cast<std::size_t>(count));
    rampEdges(reinterpret_cast<std::int16_t*>(data), count);
    cursorBytes_ += count;
    fedBytes_ += count;
    return count;
  }

  // The files join sample for sample, so the drone in them runs on at full
  // level: the output itself fades in where it starts from silence and out
  // where a range ends with nothing queued after it, so that neither edge
  // clicks.
  void rampEdges(std::int16_t* samples, qint64 bytes) {
    const long edge = static_cast<long>(sampleRate_) * kEdgeRampMs / 1000;
    const long firstFrame = cursorBytes_ / frameBytes();
    const long frames = static_cast<long>(bytes / frameBytes());
    const long endFrame = endBytes_ / frameBytes();
    for (long f = 0; f < frames; ++f) {
      const long fromStart = fedBytes_ / frameBytes() + f;
      const long toEnd = queued_ == nullptr ? endFrame - (firstFrame + f) : edge;
      const long ramp = std::min({fromStart, toEnd, edge});
      if (ramp >= edge) continue;
      for (int c = 0; c < channels_; ++c) {
        std::int16_t& x = samples[f * channels_ + c];
        x = static_cast<std::int16_t>(x * ramp / edge);
      }
    }
  }

  // The fade, then silence for as long as the output still pulls.
  qint64 readFade(char* data, qint64 maxSize) {
    const qint64 fadeBytes = static_cast<qint64>(fade_.size()) * kBytesPerSample;
    const qint64 fromFade = std::clamp<qint64>(fadeBytes - fadeReadBytes_, 0, maxSize);
    std::memcpy(data, reinterpret_cast<const char*>(fade_.data()) + fadeReadBytes_,
                static_cast<std::size_t>(fromFade));
    std::memset(data + fromFade, 0, static_cast<std::size_t>(maxSize - fromFade));
    fadeReadBytes_ += fromFade;
    fedBytes_ += maxSize;
    return maxSize;
  }

  const WaveClip* clip_;  // null once fading
  const WaveClip* queued_ = nullptr;
  int sampleRate_;
  int channels_;
  qint64 cursorBytes_ = 0;
  qint64 endBytes_ = 0;
  qint64 fedBytes_ = 0;
  qint64 joinedAtBytes_ = -1;
  bool fading_ = false;
  std::vector<std::int16_t> fade_;
  qint64 fadeReadBytes_ = 0;
};

QtSink::QtSink() {
  retireTimer_.setSingleShot(true);
  QObject::connect(&retireTimer_, &QTimer::timeout, [this] { retire(); });
}

QtSink::~QtSink() {
  stop();
  retire();
}

// Jumps within a running output when the same clip is still being pulled;
// otherwise starts a fresh output for the clip's format.
bool QtSink::start(const WaveClip& clip, long fromMs, long toMs) {
  const long firstFrame = clip.frameAtMs(fromMs);
  const long endFrame = clip.frameAtMs(toMs);
  if (output_ && source_->clip() == &clip && !source_->exhausted() &&
      output_->state() == QAudio::ActiveState) {
    // What was handed over before the jump still sounds first.
    rangeStartsAtMs_ = source_->fedMs();
    source_->setRange(firstFrame, endFrame);
    return true;
  }
  stop();
  source_ = std::make_unique<ClipSource>(clip);
  source_->setRange(firstFrame, endFrame);
  return startOutput(clip);
}

// Only into a running output of the same format: the join is then sample
// for sample.
bool QtSink::queue(const WaveClip& clip) {
  if (!output_ || output_->state() == QAudio::StoppedState) return false;
  const WaveClip& now = *source_->clip();
  if (clip.sampleRate != now.sampleRate || clip.channels != now.channels) return false;
  source_->queue(clip);
  return true;
}

bool QtSink::carryOn() {
  if (!output_ || source_->joinedAtMs() < 0) return false;
  rangeStartsAtMs_ = source_->joinedAtMs();
  source_->forgetJoin();
  return true;
}

bool QtSink::startOutput(const WaveClip& clip) {
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  if (device.isNull()) {
    failure_ = "there is no sound output device";
    return false;
  }
  output_ = std::make_unique<QAudioSink>(device, formatOf(clip.sampleRate, clip.channels));
  output_->setBufferSize(static_cast<qsizetype>(clip.sampleRate) * clip.channels * kBytesPerSample *
                         kBufferMs / 1000);
  rangeStartsAtMs_ = 0;
  lastProcessedMs_ = 0;
  sinceProgress_.start();
  output_->start(source_.get());
  if (output_->error() != QAudio::NoError || output_->state() == QAudio::StoppedState) {
    failure_ = describe(output_->error());
    output_.reset();
    return false;
  }
  return true;
}

// The output fades out and is stopped once what it holds, the fade included,
// has been played: stopping it at once would cut the sound with a click.
void QtSink::stop() {
  if (!output_) return;
  retire();
  source_->fadeOut(kFadeOutMs);
  retiringOutput_ = std::move(output_);
  retiringSource_ = std::move(source_);
  retireTimer_.start(static_cast<int>(2 * kBufferMs + kFadeOutMs));
}

// A stopped output is kept until the next one is stopped, not destroyed at
// once: PulseAudio's thread may still deliver the state change of its
// closing stream, and in Qt 6.4 a sink destroyed under it corrupted memory (a
// soak of the longest alap deadlocked after 18 plays, with "Trying to
// construct an instance of an invalid type" warnings). Reusing one sink
// instead lets that late state change stop the next clip, so every clip gets
// its own.
void QtSink::retire() {
  retireTimer_.stop();
  if (!retiringOutput_) return;
  retiringOutput_->stop();
  retiredOutput_ = std::move(retiringOutput_);
  retiredSource_ = std::move(retiringSource_);
}

// What the output has processed, in ms since it started; read before stop(),
// after which Qt reports 0.
long QtSink::processedMs() const {
  return output_ ? static_cast<long>(output_->processedUSecs() / 1000) : 0;
}

// Nothing is heard before the output has processed its first samples: a
// fresh output takes some tens of ms to start, and the first note's mark
// waits for it.
long QtSink::heardMs() const {
  const long processed = processedMs();
  if (processed == 0) return 0;
  return std::max(0L, processed - rangeStartsAtMs_ + kHeardBeforeProcessedMs);
}

long QtSink::remainingMs() const {
  if (!output_) return 0;
  if (source_->joinedAtMs() >= 0)
    return std::max(0L, source_->joinedAtMs() - kHeardBeforeProcessedMs - processedMs());
  return std::max(0L, source_->fedMs() + source_->unfedMs() - processedMs());
}

// With a queued clip the range is over once its last frame has been heard
// (the queued one then begins); otherwise once the output has played all
// it was given.
bool QtSink::finished() {
  if (!output_ || output_->state() == QAudio::StoppedState) return true;  // output lost
  const long nowProcessedMs = processedMs();
  if (nowProcessedMs != lastProcessedMs_) {
    lastProcessedMs_ = nowProcessedMs;
    sinceProgress_.start();
  }
  if (sinceProgress_.elapsed() >= kStallMs) return true;
  if (source_->joinedAtMs() >= 0)
    return nowProcessedMs + kHeardBeforeProcessedMs >= source_->joinedAtMs();
  return source_->exhausted() && nowProcessedMs + 1 >= source_->fedMs();
}

std::unique_ptr<AudioDevice> createAudioDevice(Scheduler& scheduler, NoOutputNotice& notice) {
  if (outputStarts())
    return std::make_unique<PlaybackDevice>(std::make_unique<QtSink>(), scheduler,
                                            QtSink::kStatusIntervalMs);
  static const SteadyClock wallClock;
  if (!notice.told) {
    notice.told = true;
    if (notice.tell) notice.tell(kNoAudioOutputMessage);
  }
  return createSilentAudioDevice(wallClock, scheduler);
}

}  // namespace platform
