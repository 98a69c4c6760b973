// The audio device with real sound, through Qt Multimedia, and the factory
// that picks it or the silent device.
//
// QtSink plays a range of a clip on the default output: a QAudioSink pulls
// the samples from our own QIODevice into its buffer (kBufferMs) and reports
// how much the sound server has played. That count, moved by
// kHeardBeforeProcessedMs, is the position the listener hears. At the end the
// output goes idle while its buffer still holds the last samples; the sink
// counts as finished once they have all been processed, or when the count
// has not moved for kStallMs (a lost or stuck output).
//
// Clips queued after the range are pulled straight after it from the same
// source, so the output never closes between them. The source hands over
// only what the output asks for (no read-ahead of its own), so that Stop's
// fade is what the output reads next. Stop fades the source out over
// kFadeOutMs and stops that output once the fade has been played;
// a new start opens a fresh output at once, so nothing of the stopped sound
// is left to come before it. A stopped output is kept until the next one is
// stopped, not destroyed at once (see retire()).
//
// State: the output, the sample source with its range, its queued clip and
// the amount handed over, the processed count at which the current range
// begins to sound, when the count last moved, a stopped output still
// playing its fade, and the last output stopped.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "platform/audio.h"
#include "platform/audio_sink.h"
#include "platform/clock.h"

class QAudioSink;

namespace platform {

class ClipSource;

class QtSink : public AudioSink {
 public:
  QtSink();
  ~QtSink() override;
  QtSink(const QtSink&) = delete;
  QtSink& operator=(const QtSink&) = delete;

  bool start(const WaveClip& clip, long fromMs, long toMs) override;
  bool queue(const WaveClip& clip) override;
  bool carryOn() override;
  void stop() override;
  long heardMs() const override;
  long remainingMs() const override;
  bool finished() override;
  std::string failure() const override { return failure_; }

  // Measured on a PulseAudio server against recordings of its output
  // (scripts/measure-playback.py, four runs): a sample sounds 10 to 25 ms
  // before the output counts it as processed, because Qt takes the server's
  // whole latency off that count. A mark comes on the first status tick
  // after its note is due, half a tick late on average, so half a tick
  // more is added: at 17 ms the marks of two recorded sessions came 4 to
  // 11 ms late on average. (Taking a further 30 ms off, as this did before,
  // put every mark 40 to 70 ms after its note.)
  static constexpr long kHeardBeforeProcessedMs = 22;
  // Status notifications every 10 ms: a mark comes at most that late.
  static constexpr long kStatusIntervalMs = 10;
  static constexpr long kStallMs = 300;
  // The latency asked of the sound server: enough to ride out a busy
  // interface thread, little enough that a Stop is heard soon. PulseAudio
  // splits it between the stream's buffer and the sink's own latency, and
  // that much still sounds after a Stop before the fade: on the headless
  // server, 46 to 69 ms from Stop to silence, the fade included. The
  // output is fed from the interface thread, 20 ms at a time: at 80 ms a
  // phrase being built while the machine was busy left gaps of up to
  // 440 ms, and at 40 to 60 ms the output starved or stalled.
  static constexpr long kBufferMs = 100;
  // A Stop fades the sound out over this time instead of cutting it.
  static constexpr long kFadeOutMs = 10;

 private:
  bool startOutput(const WaveClip& clip);
  long processedMs() const;
  // Stops the output whose fade has been played, and keeps it as the last
  // one stopped.
  void retire();

  std::unique_ptr<ClipSource> source_;
  std::unique_ptr<QAudioSink> output_;
  // The stopped output while it plays its fade, and the timer that stops it.
  std::unique_ptr<ClipSource> retiringSource_;
  std::unique_ptr<QAudioSink> retiringOutput_;
  QTimer retireTimer_;
  // The last output stopped, with its source (declared first, so that the
  // output goes before the source it reads).
  std::unique_ptr<ClipSource> retiredSource_;
  std::unique_ptr<QAudioSink> retiredOutput_;
  long rangeStartsAtMs_ = 0;  // the processed count where the range begins

  long lastProcessedMs_ = 0;
  QElapsedTimer sinceProgress_;
  std::string failure_;
};

// The text the program shows, once, when it has to play in silence.
extern const char* const kNoAudioOutputMessage;

// Tells the user once that there is no sound. The program keeps one and
// hands it to every createAudioDevice call.
struct NoOutputNotice {
  std::function<void(const std::string& message)> tell;
  bool told = false;
};

// The device for one screen's media control: Qt Multimedia when the machine
// has a default output that starts, otherwise the silent device on the wall
// clock, telling the notice the first time. scheduler must outlive it.
std::unique_ptr<AudioDevice> createAudioDevice(Scheduler& scheduler, NoOutputNotice& notice);

}  // namespace platform
