// The audio device behind a screen's media control cMM: a wave player with
// blocking Open and Close, non-blocking Play, one done notification per
// played file and a status notification every few tens of milliseconds.
//
// The logic sets the properties, then issues a command, as it did with the
// media control it was written for:
//   notify      true at Play: one done notification when that play ends,
//               however it ends (played out, stopped, closed, replaced)
//   wait        accepted: Open, Close, Stop and Seek always finish before
//               they return, and Play never blocks
//   shareable, deviceType: accepted, not used
//   fileName    the file to open; "" to clear
//   from, to    the range to play, in milliseconds
//   command     "Open", "Play", "Stop", "Close", "Seek to start"
// and reads length (ms of the open file), position (ms heard so far) and
// mode (kModePlaying while playing).
//
// Backends: Qt Multimedia output (real sound) and a silent device that keeps
// time by a clock: the wall clock when the machine has no audio output, a
// virtual clock in tests.
#pragma once

#include <functional>
#include <string>

namespace platform {

constexpr int kModeNotOpen = 524;
constexpr int kModeStopped = 525;
constexpr int kModePlaying = 526;
constexpr int kModeSeeking = 528;
constexpr int kModeOpen = 530;

// Done notification codes.
constexpr int kNotifySuccessful = 1;
constexpr int kNotifySuperseded = 2;
constexpr int kNotifyAborted = 4;
constexpr int kNotifyFailure = 8;

// Error numbers a refused command leaves in error().
constexpr int kErrUnknownCommand = 261;
constexpr int kErrOutputFailed = 262;   // the sound output would not start
constexpr int kErrFileNotFound = 275;
constexpr int kErrNotOpen = 276;        // Play or Seek with no file open
constexpr int kErrInvalidFile = 296;    // not a 16-bit PCM wave file

class AudioDevice {
 public:
  virtual ~AudioDevice() = default;

  bool notify = false;
  bool wait = false;
  bool shareable = false;
  std::string deviceType;
  std::string fileName;
  long from = 0;
  long to = 0;

  // Carries out a command with the properties as they stand. Returns false
  // (and sets error()) when the device refused it, as for a missing file.
  virtual bool command(const std::string& name) = 0;

  virtual long length() const = 0;
  virtual long position() const = 0;
  virtual int mode() const = 0;
  // The last refusal's error number (0 none) and text.
  virtual int error() const = 0;
  virtual std::string errorMessage() const = 0;

  // Notifications, delivered on the interface thread between other events.
  std::function<void(int notifyCode)> onDone;
  std::function<void()> onStatus;
};

}  // namespace platform
