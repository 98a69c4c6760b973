// Qt Multimedia output for the audio device, and the device factory.
#include "platform/qt/qt_audio.h"

#include <QAudioSink>
#include <QBuffer>
#include <QIODevice>
#include <QMediaDevices>
#include <algorithm>
#include <cstring>

#include "platform/playback_device.h"
#include "platform/silent_audio.h"

namespace platform {

const char* const kNoAudioOutputMessage =
    "No sound output was found, so Nadavik will play in silence: the notes and the "
    "keyboard marks still move as the music would. To hear the music, connect speakers "
    "or headphones (or start the sound service of your system) and start Nadavik again.";

namespace {

constexpr int kBytesPerSample = 2;

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

// The samples of one range of a clip, handed to the output as it pulls them.
// State: the clip, the read cursor and end (bytes), and the bytes handed
// over since the output started.
class ClipSource : public QIODevice {
 public:
  ClipSource() { open(QIODevice::ReadOnly); }

  void load(const WaveClip& clip) {
    clip_ = &clip;
    fedBytes_ = 0;
  }
  const WaveClip* clip() const { return clip_; }

  void setRange(long firstFrame, long endFrame) {
    const long frameBytes = clip_->channels * kBytesPerSample;
    cursorBytes_ = firstFrame * frameBytes;
    endBytes_ = endFrame * frameBytes;
  }

  bool exhausted() const { return cursorBytes_ >= endBytes_; }
  long fedMs() const { return bytesToMs(fedBytes_); }
  long unfedMs() const { return bytesToMs(endBytes_ - cursorBytes_); }

  long bytesToMs(qint64 bytes) const {
    const qint64 bytesPerSecond = static_cast<qint64>(clip_->sampleRate) * clip_->channels * kBytesPerSample;
    return bytesPerSecond > 0 ? static_cast<long>(bytes * 1000 / bytesPerSecond) : 0;
  }

  bool isSequential() const override { return true; }
  qint64 bytesAvailable() const override { return endBytes_ - cursorBytes_ + QIODevice::bytesAvailable(); }

 protected:
  qint64 readData(char* data, qint64 maxSize) override {
    if (!clip_) return 0;
    const qint64 frameBytes = clip_->channels * kBytesPerSample;
    qint64 count = std::min<qint64>(maxSize, endBytes_ - cursorBytes_);
    count -= count % frameBytes;
    if (count > 0) {
      std::memcpy(data, reinterpret_cast<const char*>(clip_->samples.data()) + cursorBytes_,
                  static_cast<std::size_t>(count));
      cursorBytes_ += count;
      fedBytes_ += count;
    }
    return std::max<qint64>(count, 0);
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  const WaveClip* clip_ = nullptr;
  qint64 cursorBytes_ = 0;
  qint64 endBytes_ = 0;
  qint64 fedBytes_ = 0;
};

QtSink::QtSink() : source_(std::make_unique<ClipSource>()) {}

QtSink::~QtSink() { stop(); }

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
  source_->load(clip);
  source_->setRange(firstFrame, endFrame);
  return startOutput(clip);
}

bool QtSink::startOutput(const WaveClip& clip) {
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  if (device.isNull()) {
    failure_ = "there is no sound output device";
    return false;
  }
  output_ = std::make_unique<QAudioSink>(device, formatOf(clip.sampleRate, clip.channels));
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

// A stopped output is kept until the next one stops, not destroyed at once:
// PulseAudio's thread may still deliver the state change of its closing
// stream, and in Qt 6.4 a sink destroyed under it corrupted memory (a soak
// of the longest alap deadlocked after 18 plays, with "Trying to construct
// an instance of an invalid type" warnings). Reusing one sink instead lets
// that late state change stop the next clip, so every clip gets its own.
void QtSink::stop() {
  if (!output_) return;
  output_->stop();
  retired_ = std::move(output_);
}

// What the output has processed, in ms since it started; read before stop(),
// after which Qt reports 0.
long QtSink::processedMs() const {
  return output_ ? static_cast<long>(output_->processedUSecs() / 1000) : 0;
}

long QtSink::heardMs() const {
  return std::max(0L, processedMs() - rangeStartsAtMs_ - kServerLatencyMs);
}

long QtSink::remainingMs() const {
  return std::max(0L, source_->fedMs() + source_->unfedMs() - processedMs());
}

bool QtSink::finished() {
  if (!output_ || output_->state() == QAudio::StoppedState) return true;  // output lost
  const long nowProcessedMs = processedMs();
  if (nowProcessedMs != lastProcessedMs_) {
    lastProcessedMs_ = nowProcessedMs;
    sinceProgress_.start();
  }
  if (sinceProgress_.elapsed() >= kStallMs) return true;
  return source_->exhausted() && nowProcessedMs + 1 >= source_->fedMs();
}

std::unique_ptr<AudioDevice> createAudioDevice(Scheduler& scheduler, NoOutputNotice& notice) {
  if (outputStarts())
    return std::make_unique<PlaybackDevice>(std::make_unique<QtSink>(), scheduler);
  static const SteadyClock wallClock;
  if (!notice.told) {
    notice.told = true;
    if (notice.tell) notice.tell(kNoAudioOutputMessage);
  }
  return createSilentAudioDevice(wallClock, scheduler);
}

}  // namespace platform
