// The audio device with real sound, through Qt Multimedia, and the factory
// that picks it or the silent device.
//
// QtSink plays a range of a clip on the default output: a QAudioSink pulls
// the samples from our own QIODevice into its buffer (about 200 ms, which
// rides out a busy interface thread) and reports how much the sound server
// has played. That count, less the further delay to the ear
// (kServerLatencyMs), is the position the listener hears. At the end the
// output goes idle while its buffer still holds the last samples; the sink
// counts as finished once they have all been processed, or when the count
// has not moved for kStallMs (a lost or stuck output).
//
// State: the output and the last one stopped, the sample source with its range and the amount handed
// over, the processed count at which the current range begins to sound, and
// when the count last moved.
#pragma once

#include <QElapsedTimer>
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
  void stop() override;
  long heardMs() const override;
  long remainingMs() const override;
  bool finished() override;
  std::string failure() const override { return failure_; }

  // Measured with PulseAudio: sound is heard 20 to 45 ms after the output
  // counts it as processed.
  static constexpr long kServerLatencyMs = 30;
  static constexpr long kStallMs = 300;

 private:
  bool startOutput(const WaveClip& clip);
  long processedMs() const;

  std::unique_ptr<ClipSource> source_;
  std::unique_ptr<QAudioSink> output_;
  std::unique_ptr<QAudioSink> retired_;  // the last output stopped (see stop())
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
