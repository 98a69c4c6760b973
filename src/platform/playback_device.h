// The command model of the audio device, shared by all its backends.
//
// Turns the media control's properties and commands into calls on a sink,
// keeps the device's mode, length and position, and produces the
// notifications:
//  - a status notification every status interval while playing (the last
//    one may come sooner, where the range ends);
//  - one done notification per Play issued with notify true: code
//    kNotifySuccessful when the position reaches To, kNotifyAborted when a
//    Stop, Close or Open cuts the play short, kNotifySuperseded when a new
//    Play replaces it. Whatever notify says at Stop, the stopped play still
//    answers once: the playing chains count on that done to close the file
//    and end their run. Stop, Close, Open and Seek finish before they return
//    and give no notification of their own.
// Notifications are always delivered later through the scheduler, never
// from inside a command or the device's own tick work (the busy mark defers
// them, as a Qt output lets events through while it closes), so a handler can
// issue commands freely.
//
// Open and Close always block; Play never does (wait is not consulted).
//
// Gapless joins: "Queue" reads fileName while a play sounds and has the
// sink sound it straight after the play's range, on the same open output.
// The play still ends with its own done (code kNotifySuccessful) once its
// range has been heard; the queued file then goes on sounding, owned by no
// play. A Close keeps it sounding, and an Open of that same file followed by
// a Play from 0 takes it over where it has got to, so that a chain that
// closes one file and opens the next in its done handler, as every playing
// chain does, is heard without a break. Any other command silences it.
// "Seek to start" while playing goes on playing from the start of the file
// without a gap, keeping the pending done; while stopped it sets the
// position to 0.
//
// State: the open clip, the play range and whether it sounds, the position
// where it stopped, whether a done is owed, the done codes waiting to be
// delivered, whether it is busy, the last error; the queued file, and the
// one that sounds on after its play ended (both by name and clip).
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "platform/audio.h"
#include "platform/audio_sink.h"
#include "platform/clock.h"
#include "platform/wavefile.h"

namespace platform {

class PlaybackDevice : public AudioDevice {
 public:
  static constexpr long kStatusIntervalMs = 20;

  // statusIntervalMs: the time between status notifications (the real
  // output ticks more often, so that a mark follows its note closely).
  PlaybackDevice(std::unique_ptr<AudioSink> sink, Scheduler& scheduler,
                 long statusIntervalMs = kStatusIntervalMs);
  ~PlaybackDevice() override;
  PlaybackDevice(const PlaybackDevice&) = delete;
  PlaybackDevice& operator=(const PlaybackDevice&) = delete;

  bool command(const std::string& name) override;
  long length() const override;
  long position() const override;
  int mode() const override;
  int error() const override { return errorNumber_; }
  std::string errorMessage() const override { return errorMessage_; }

 private:
  using Clip = std::shared_ptr<const WaveClip>;
  // A file given to the sink to follow what sounds, and its name.
  struct Follower {
    std::string fileName;
    Clip clip;
  };

  bool open();
  bool play();
  bool queue();
  // The queued file sounding on is taken over by this Play.
  bool takeOver(long endMs);
  // Silences a file sounding on with no play, and forgets the queued one.
  void dropFollowers();
  bool seekToStart();
  void close();
  bool refuse(int number, const std::string& message);
  // Ends a sounding play early; a done owed is answered with doneCode.
  void cutPlay(int doneCode);
  // Marks the play ended at atMs; a done owed is queued with doneCode.
  void settleEnd(long atMs, int doneCode);
  // The same, and silences the sink.
  void endPlay(long atMs, int doneCode);
  void finishPlay();
  void scheduleTick();
  void onTick();
  void queueDone(int code);
  void deliverDone();

  std::unique_ptr<AudioSink> sink_;
  Scheduler& scheduler_;
  long statusIntervalMs_;
  Clip clip_;
  std::string openName_;
  std::optional<Follower> queued_;
  std::optional<Follower> soundingOn_;
  bool open_ = false;
  bool playing_ = false;
  long playFromMs_ = 0;
  long playToMs_ = 0;
  long stoppedAtMs_ = 0;
  bool doneOwed_ = false;
  std::deque<int> doneQueue_;
  TimerId tickTimer_ = 0;
  TimerId doneTimer_ = 0;
  bool busy_ = false;  // inside a command or a tick: notifications wait
  int errorNumber_ = 0;
  std::string errorMessage_;
};

}  // namespace platform
