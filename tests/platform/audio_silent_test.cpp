// The silent audio device on a virtual clock: the media control's commands,
// its position, and the order and number of its notifications. Each
// scenario is a script of commands, clock steps and checks, with the
// notifications it must produce.
#include "platform/silent_audio.h"

#include "platform/playback_device.h"

#include <gtest/gtest.h>

#include <cctype>
#include <sstream>
#include <string>
#include <vector>

#include "audio_fixture.h"

namespace platform {
namespace {

using Log = std::vector<std::string>;

struct Scenario {
  const char* what;
  // Words run in order: "open N" (a tone of N ms; "open -" a missing file,
  // which must fail), "queue N" (a tone of N ms to follow), "play" (all,
  // notify), "play~" (all, no notify),
  // "stop"/"stop!", "seek"/"seek!" (! notifies),
  // "close", "free" (the device goes), "+N" (advance the clock), "@N"
  // (position), "=playing", "=stopped", "=notopen" (mode), "len N", "#N"
  // (notifications so far), "pending N" (timers left on the clock).
  const char* script;
  Log log;  // "status <clock> at <position>", "done <code> <clock>"; {}: not checked
  const char* onDone = "";  // script run on each done, the first doneRuns times
  int doneRuns = 0;
  const char* onStatus = "";  // script run on each status
};

class SilentDevice : public ::testing::TestWithParam<Scenario> {
 protected:
  // Every play runs From 0 To the length, as the program's plays do.
  void command(const char* name, bool notify) {
    device->notify = notify;
    device->from = 0;
    device->to = device->length();
    EXPECT_TRUE(device->command(name)) << device->errorMessage();
  }
  void run(const std::string& script) {
    std::istringstream words(script);
    long a = 0;
    for (std::string w; words >> w;) {
      SCOPED_TRACE(w);
      if (w == "open") {
        std::string length;
        words >> length;
        device->fileName = dir.file("tone" + length + ".wav");
        if (length == "-") {
          EXPECT_FALSE(device->command("Open"));
          EXPECT_NE(device->errorMessage().find("tone-.wav"), std::string::npos);
          continue;
        }
        testing::writeToneFile(device->fileName, std::stol(length));
        command("Open", false);
      } else if (w == "queue" && words >> a) {
        device->fileName = dir.file("tone" + std::to_string(a) + ".wav");
        testing::writeToneFile(device->fileName, a);
        EXPECT_TRUE(device->command("Queue")) << device->errorMessage();
      } else if (w == "play" || w == "play~") {
        command("Play", w == "play");
      } else if (w == "stop" || w == "stop!") {
        command("Stop", w == "stop!");
      } else if (w == "seek" || w == "seek!") {
        command("Seek to start", w == "seek!");
      } else if (w == "close") {
        device->fileName = "";
        command("Close", false);
      } else if (w == "free") {
        device.reset();
      } else if (w[0] == '+') {
        clock.advance(std::stol(w.substr(1)));
      } else if (w[0] == '@') {
        EXPECT_EQ(device->position(), std::stol(w.substr(1)));
      } else if (w[0] == '=') {
        EXPECT_EQ(device->mode(), w == "=playing" ? kModePlaying : w == "=stopped" ? kModeStopped : kModeNotOpen);
      } else if (w == "len" && words >> a) {
        EXPECT_EQ(device->length(), a);
      } else if (w[0] == '#') {
        EXPECT_EQ(static_cast<long>(log.size()), std::stol(w.substr(1)));
      } else if (w == "pending" && words >> a) {
        EXPECT_EQ(static_cast<long>(clock.pending()), a);
      } else {
        ADD_FAILURE() << "unknown word " << w;
      }
    }
  }

  void SetUp() override {
    const Scenario& s = GetParam();
    device->onStatus = [this, s] {
      log.push_back("status " + std::to_string(clock.nowMs()) + " at " + std::to_string(device->position()));
      run(s.onStatus);
    };
    device->onDone = [this, s](int code) {
      log.push_back("done " + std::to_string(code) + " " + std::to_string(clock.nowMs()));
      if (doneRuns++ < s.doneRuns) run(s.onDone);
    };
  }

  testing::TempDir dir;
  VirtualClock clock;
  std::unique_ptr<AudioDevice> device = createSilentAudioDevice(clock, clock);
  Log log;
  int doneRuns = 0;
};

TEST_P(SilentDevice, NotifiesAsTheScriptExpects) {
  run(GetParam().script);
  if (!GetParam().log.empty()) {
    EXPECT_EQ(log, GetParam().log);
  }
}

// The stop buttons rely on Stop: the stopped play's done, code 4, closes the
// file and ends the run, never from inside the command and never twice.
const Scenario kScenarios[] = {
    {"status every 20 ms, then one done at the end", "open 100 play =playing +1000 =stopped @100",
     {"status 20 at 20", "status 40 at 40", "status 60 at 60", "status 80 at 80", "done 1 100"}},
    {"position follows the clock between ticks", "open 500 play @0 +7 @7 +400 @407", {}},
    {"a play without notify ends silently", "open 40 play~ +100 =stopped", {"status 20 at 20"}},
    {"stop answers the play once, after the command", "open 200 play +50 stop #2 =stopped @50 +500 @50",
     {"status 20 at 20", "status 40 at 40", "done 4 50"}},
    {"stop with notify adds no second done", "open 200 play +50 stop! #2 +500",
     {"status 20 at 20", "status 40 at 40", "done 4 50"}},
    {"stop of a play without notify gives no done", "open 200 play~ +30 stop +500", {"status 20 at 20"}},
    {"stop and close together give one done", "open 200 play +30 stop close +500",
     {"status 20 at 20", "done 4 30"}},
    {"the done handler closes and plays the next file", "open 40 play +1000",
     {"status 20 at 20", "done 1 40", "status 60 at 20", "status 80 at 40", "done 1 100"}, "close open 60 play",
     1},
    {"seek to start and play again loops", "open 50 play +1000",
     {"status 20 at 20", "status 40 at 40", "done 1 50", "status 70 at 20", "status 90 at 40", "done 1 100",
      "status 120 at 20", "status 140 at 40", "done 1 150"},
     "seek! @0 play", 2},
    // The workbench drone seeks back half way and never reaches the end.
    {"seek while playing goes on without a gap", "open 100 play +60 seek =playing @0 +30 @30 +1000",
     {"status 20 at 20", "status 40 at 40", "status 60 at 60", "status 80 at 20", "status 100 at 40",
      "status 120 at 60", "status 140 at 80", "done 1 160"}},
    {"a new play supersedes the one that owes a done", "open 100 play +10 play +1000",
     {"done 2 10", "status 30 at 20", "status 50 at 40", "status 70 at 60", "status 90 at 80", "done 1 110"}},
    {"mode and length through open and close",
     "=notopen len 0 open 1234 =stopped len 1234 play +300 close =notopen len 0 @0 close stop", {}},
    {"a failed open leaves the previous file closed", "open 100 play open - =notopen +1000", {"done 4 0"}},
    {"stop from the status handler ends the ticks", "open 200 play +1000", {"status 20 at 20", "done 4 20"}, "",
     0, "stop"},
    // The queued file sounds from the end of the first however late the
    // done handler opens it: it takes over 5 ms in, and ends 5 ms sooner
    // than a file opened afresh would.
    {"a queued file follows without a gap", "open 40 play queue 60 +1000",
     {"status 20 at 20", "done 1 40", "status 65 at 25", "status 85 at 45", "done 1 100"}, "+5 close open 60 @0 play @5", 1},
    {"stop silences the queued file too", "open 100 play queue 60 +50 stop +1000 =stopped",
     {"status 20 at 20", "status 40 at 40", "done 4 50"}},
    {"another file than the queued one starts afresh", "open 40 play queue 60 +1000",
     {"status 20 at 20", "done 1 40", "status 60 at 20", "status 80 at 40", "status 100 at 60", "done 1 120"},
     "close open 80 play", 1},
    {"nothing arrives after the device is gone", "open 100 play +30 stop free +1000 pending 0",
     {"status 20 at 20"}},
};

INSTANTIATE_TEST_SUITE_P(Scripts, SilentDevice, ::testing::ValuesIn(kScenarios),
                         [](const ::testing::TestParamInfo<Scenario>& param) {
                           std::string name;
                           for (const char* c = param.param.what; *c; ++c)
                             if (std::isalnum(static_cast<unsigned char>(*c))) name += *c;
                           return name;
                         });

// Refusals say why and leave the device closed; a good command clears the
// error. Command names ignore case.
TEST(SilentDeviceCommands, RefusalsSayWhyAndNamesIgnoreCase) {
  testing::TempDir dir;
  VirtualClock clock;
  auto device = createSilentAudioDevice(clock, clock);
  const std::string garbage = dir.file("garbage.wav"), tone = dir.file("tone.wav");
  testing::writeBytes(garbage, {'n', 'o', 't', ' ', 'a', ' ', 'w', 'a', 'v', 'e', '!', '!'});
  testing::writeToneFile(tone, 40);
  const struct { std::string file; const char* command; int error; } rows[] = {
      {dir.file("missing.wav"), "Open", kErrFileNotFound}, {garbage, "Open", kErrInvalidFile},
      {"", "Open", kErrFileNotFound}, {"", "Play", kErrNotOpen}, {"", "Seek to start", kErrNotOpen},
      {"", "Rewind", kErrUnknownCommand}, {tone, "OPEN", 0}, {tone, "seek TO start", 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.command) + " " + row.file);
    device->fileName = row.file;
    EXPECT_EQ(device->command(row.command), row.error == 0);
    EXPECT_EQ(device->error(), row.error);
    EXPECT_EQ(device->errorMessage().empty(), row.error == 0);
    EXPECT_EQ(device->mode() == kModeNotOpen, row.error != 0);
  }
}

// A sink that, like a Qt output being closed, lets waiting events through
// while it stops: here, one millisecond of the virtual clock.
class EventsOnStopSink : public ClockSink {
 public:
  explicit EventsOnStopSink(VirtualClock& clock) : ClockSink(clock), clock_(clock) {}
  void stop() override { clock_.advance(1); }

 private:
  VirtualClock& clock_;
};

TEST(PlaybackDevice, NotificationsNeverRunInsideACommand) {
  testing::TempDir dir;
  testing::writeToneFile(dir.file("A.wav"), 200);
  VirtualClock clock;
  PlaybackDevice device(std::make_unique<EventsOnStopSink>(clock), clock);
  bool inCommand = false;
  Log log;
  device.onStatus = [&] { log.push_back(inCommand ? "status inside" : "status"); };
  device.onDone = [&](int code) { log.push_back((inCommand ? "done inside " : "done ") + std::to_string(code)); };
  device.fileName = dir.file("A.wav");
  ASSERT_TRUE(device.command("Open"));
  device.notify = true;
  ASSERT_TRUE(device.command("Play"));
  clock.advance(39);  // the tick of 40 ms falls due while the sink stops
  inCommand = true;
  device.notify = false;
  ASSERT_TRUE(device.command("Stop") && device.command("Close"));
  inCommand = false;
  clock.advance(100);
  EXPECT_EQ(log, (Log{"status", "done 4"}));
}

}  // namespace
}  // namespace platform
