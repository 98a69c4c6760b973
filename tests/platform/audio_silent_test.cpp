// The silent audio device on a virtual clock: the media control's commands,
// its position, and the order and number of its notifications.
#include "platform/silent_audio.h"

#include "platform/playback_device.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "audio_fixture.h"

namespace platform {
namespace {

class SilentDevice : public ::testing::Test {
 protected:
  SilentDevice() : device(createSilentAudioDevice(clock, clock)) {
    device->onStatus = [this] {
      log.push_back("status " + std::to_string(clock.nowMs()) + " at " +
                    std::to_string(device->position()));
    };
    device->onDone = [this](int code) {
      log.push_back("done " + std::to_string(code) + " " + std::to_string(clock.nowMs()));
      if (onDoneExtra) onDoneExtra(code);
    };
  }

  std::string tone(long lengthMs) {
    const std::string path = dir.file("tone" + std::to_string(lengthMs) + ".wav");
    testing::writeToneFile(path, lengthMs);
    return path;
  }

  // Opens file blocking and without notification, as the players do.
  bool open(const std::string& file) {
    device->notify = false;
    device->wait = true;
    device->fileName = file;
    return device->command("Open");
  }

  // Plays the whole open file with a done notification.
  bool playAll() {
    device->notify = true;
    device->wait = false;
    device->from = 0;
    device->to = device->length();
    return device->command("Play");
  }

  bool command(const char* name, bool notify) {
    device->notify = notify;
    return device->command(name);
  }

  testing::TempDir dir;
  VirtualClock clock;
  std::unique_ptr<AudioDevice> device;
  std::vector<std::string> log;
  std::function<void(int)> onDoneExtra;
};

using Log = std::vector<std::string>;

TEST_F(SilentDevice, StatusEvery20MsThenOneDoneWhenThePositionReachesTheEnd) {
  ASSERT_TRUE(open(tone(100)));
  ASSERT_TRUE(playAll());
  EXPECT_EQ(device->mode(), kModePlaying);
  clock.advance(1000);
  EXPECT_EQ(log, (Log{"status 20 at 20", "status 40 at 40", "status 60 at 60", "status 80 at 80",
                      "done 1 100"}));
  EXPECT_EQ(device->mode(), kModeStopped);
  EXPECT_EQ(device->position(), 100);
}

TEST_F(SilentDevice, PositionFollowsTheClockBetweenTicks) {
  ASSERT_TRUE(open(tone(500)));
  ASSERT_TRUE(playAll());
  EXPECT_EQ(device->position(), 0);
  clock.advance(7);
  EXPECT_EQ(device->position(), 7);
  clock.advance(400);
  EXPECT_EQ(device->position(), 407);
}

TEST_F(SilentDevice, PlayWithoutNotifyEndsSilently) {
  ASSERT_TRUE(open(tone(40)));
  device->notify = false;
  device->to = 40;
  ASSERT_TRUE(device->command("Play"));
  clock.advance(100);
  EXPECT_EQ(log, (Log{"status 20 at 20"}));
  EXPECT_EQ(device->mode(), kModeStopped);
}

// The stop buttons rely on this: the stopped play's done closes the file and
// ends the run, and the stop itself adds no second done, whatever its notify.
TEST_F(SilentDevice, StopAnswersThePlayOnceWithAbortedAfterTheCommandReturns) {
  for (bool notifyAtStop : {false, true}) {
    SCOPED_TRACE(notifyAtStop ? "notify true at Stop" : "notify false at Stop");
    log.clear();
    const long startMs = clock.nowMs();
    const auto at = [startMs](long ms) { return std::to_string(startMs + ms); };
    ASSERT_TRUE(open(tone(200)));
    ASSERT_TRUE(playAll());
    clock.advance(50);
    ASSERT_TRUE(command("Stop", notifyAtStop));
    EXPECT_EQ(log.size(), 2u) << "no done from inside the command";
    EXPECT_EQ(device->mode(), kModeStopped);
    EXPECT_EQ(device->position(), 50);
    clock.advance(500);
    EXPECT_EQ(log, (Log{"status " + at(20) + " at 20", "status " + at(40) + " at 40",
                        "done 4 " + at(50)}));
    EXPECT_EQ(device->position(), 50);
  }
}

TEST_F(SilentDevice, StopOfAPlayWithoutNotifyGivesNoDone) {
  ASSERT_TRUE(open(tone(200)));
  device->notify = false;
  device->to = 200;
  ASSERT_TRUE(device->command("Play"));
  clock.advance(30);
  ASSERT_TRUE(command("Stop", false));
  clock.advance(500);
  EXPECT_EQ(log, (Log{"status 20 at 20"}));
}

TEST_F(SilentDevice, StopAndCloseTogetherGiveOneDone) {
  ASSERT_TRUE(open(tone(200)));
  ASSERT_TRUE(playAll());
  clock.advance(30);
  ASSERT_TRUE(command("Stop", false));
  device->fileName = "";
  ASSERT_TRUE(command("Close", false));
  clock.advance(500);
  EXPECT_EQ(log, (Log{"status 20 at 20", "done 4 30"}));
}

TEST_F(SilentDevice, DoneHandlerCanCloseAndPlayTheNextFile) {
  const std::string second = tone(60);
  int played = 0;
  onDoneExtra = [&](int) {
    device->fileName = "";
    command("Close", false);
    if (++played == 1 && open(second)) playAll();
  };
  ASSERT_TRUE(open(tone(40)));
  ASSERT_TRUE(playAll());
  clock.advance(1000);
  EXPECT_EQ(log, (Log{"status 20 at 20", "done 1 40", "status 60 at 20", "status 80 at 40",
                      "done 1 100"}));
  EXPECT_EQ(device->mode(), kModeNotOpen);
}

TEST_F(SilentDevice, SeekToStartAndPlayAgainLoops) {
  int loops = 0;
  onDoneExtra = [&](int) {
    if (++loops == 3) return;
    command("Seek to start", true);
    EXPECT_EQ(device->position(), 0);
    playAll();
  };
  ASSERT_TRUE(open(tone(50)));
  ASSERT_TRUE(playAll());
  clock.advance(1000);
  EXPECT_EQ(log, (Log{"status 20 at 20", "status 40 at 40", "done 1 50",  //
                      "status 70 at 20", "status 90 at 40", "done 1 100",  //
                      "status 120 at 20", "status 140 at 40", "done 1 150"}));
}

// The workbench drone seeks back at half way and never reaches the end.
TEST_F(SilentDevice, SeekToStartWhilePlayingGoesOnWithoutAGap) {
  ASSERT_TRUE(open(tone(100)));
  ASSERT_TRUE(playAll());
  clock.advance(60);
  ASSERT_TRUE(command("Seek to start", false));
  EXPECT_EQ(device->mode(), kModePlaying);
  EXPECT_EQ(device->position(), 0);
  clock.advance(30);
  EXPECT_EQ(device->position(), 30);
  clock.advance(1000);
  EXPECT_EQ(log.back(), "done 1 160");
  EXPECT_EQ(std::count_if(log.begin(), log.end(), [](const std::string& s) { return s[0] == 'd'; }), 1);
}

TEST_F(SilentDevice, FromAndToBoundThePlay) {
  struct Row {
    long from, to;
    long startMs, endMs;
  };
  const Row rows[] = {
      {30, 70, 30, 70},
      {0, 0, 0, 100},      // no To: to the end
      {20, 5000, 20, 100}, // To past the end
      {90, 40, 40, 40},    // From past To: nothing to play
      {-10, 50, 0, 50},
  };
  ASSERT_TRUE(open(tone(100)));
  for (const Row& row : rows) {
    log.clear();
    device->notify = true;
    device->from = row.from;
    device->to = row.to;
    ASSERT_TRUE(device->command("Play"));
    EXPECT_EQ(device->position(), row.startMs) << row.from << ".." << row.to;
    clock.advance(1000);
    EXPECT_EQ(device->position(), row.endMs) << row.from << ".." << row.to;
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.back().substr(0, 6), "done 1");
  }
}

TEST_F(SilentDevice, ANewPlaySupersedesTheOneThatOwesADone) {
  ASSERT_TRUE(open(tone(100)));
  ASSERT_TRUE(playAll());
  clock.advance(10);
  ASSERT_TRUE(playAll());
  clock.advance(1000);
  EXPECT_EQ(log.front(), "done 2 10");
  EXPECT_EQ(log.back(), "done 1 110");
}

TEST_F(SilentDevice, ModeAndLengthThroughOpenAndClose) {
  EXPECT_EQ(device->mode(), kModeNotOpen);
  EXPECT_EQ(device->length(), 0);
  ASSERT_TRUE(open(tone(1234)));
  EXPECT_EQ(device->mode(), kModeStopped);
  EXPECT_EQ(device->length(), 1234);
  ASSERT_TRUE(playAll());
  clock.advance(300);
  ASSERT_TRUE(command("Close", false));
  EXPECT_EQ(device->mode(), kModeNotOpen);
  EXPECT_EQ(device->length(), 0);
  EXPECT_EQ(device->position(), 0);
  EXPECT_TRUE(command("Close", false)) << "closing a closed device is harmless";
  EXPECT_TRUE(command("Stop", false));
}

TEST_F(SilentDevice, RefusedCommandsSayWhy) {
  const std::string garbage = dir.file("garbage.wav");
  testing::writeBytes(garbage, {'n', 'o', 't', ' ', 'a', ' ', 'w', 'a', 'v', 'e', '!', '!'});
  struct Row {
    std::string file;
    const char* command;
    int error;
  };
  const Row rows[] = {
      {dir.file("missing.wav"), "Open", kErrFileNotFound},
      {garbage, "Open", kErrInvalidFile},
      {"", "Open", kErrFileNotFound},
      {"", "Play", kErrNotOpen},
      {"", "Seek to start", kErrNotOpen},
      {"", "Rewind", kErrUnknownCommand},
  };
  for (const Row& row : rows) {
    device->fileName = row.file;
    EXPECT_FALSE(device->command(row.command)) << row.command << " " << row.file;
    EXPECT_EQ(device->error(), row.error) << row.command << " " << row.file;
    EXPECT_FALSE(device->errorMessage().empty());
    EXPECT_EQ(device->mode(), kModeNotOpen);
  }
  ASSERT_TRUE(open(tone(100)));
  EXPECT_EQ(device->error(), 0) << "a good command clears the error";
  EXPECT_EQ(device->errorMessage(), "");
}

TEST_F(SilentDevice, AFailedOpenLeavesThePreviousFileClosed) {
  ASSERT_TRUE(open(tone(100)));
  ASSERT_TRUE(playAll());
  EXPECT_FALSE(open(dir.file("missing.wav")));
  EXPECT_NE(device->errorMessage().find("missing.wav"), std::string::npos);
  EXPECT_EQ(device->mode(), kModeNotOpen);
  clock.advance(1000);
  EXPECT_EQ(log, (Log{"done 4 0"}));
}

TEST_F(SilentDevice, CommandNamesIgnoreCase) {
  device->fileName = tone(40);
  EXPECT_TRUE(device->command("OPEN"));
  EXPECT_TRUE(device->command("seek TO start"));
}

TEST_F(SilentDevice, StopFromTheStatusHandlerEndsTheTicks) {
  device->onStatus = [this] {
    log.push_back("status");
    command("Stop", false);
  };
  ASSERT_TRUE(open(tone(200)));
  ASSERT_TRUE(playAll());
  clock.advance(1000);
  EXPECT_EQ(log, (Log{"status", "done 4 20"}));
}

TEST_F(SilentDevice, NothingArrivesAfterTheDeviceIsGone) {
  ASSERT_TRUE(open(tone(100)));
  ASSERT_TRUE(playAll());
  clock.advance(30);
  command("Stop", false);  // a done is now waiting
  device.reset();
  clock.advance(1000);
  EXPECT_EQ(clock.pending(), 0u);
  EXPECT_EQ(log, (Log{"status 20 at 20"}));
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
  std::vector<std::string> log;
  device.onStatus = [&] { log.push_back(inCommand ? "status inside" : "status"); };
  device.onDone = [&](int code) {
    log.push_back((inCommand ? "done inside " : "done ") + std::to_string(code));
  };
  device.fileName = dir.file("A.wav");
  ASSERT_TRUE(device.command("Open"));
  device.notify = true;
  ASSERT_TRUE(device.command("Play"));
  clock.advance(39);  // the tick of 40 ms falls due while the sink stops
  inCommand = true;
  device.notify = false;
  ASSERT_TRUE(device.command("Stop"));
  ASSERT_TRUE(device.command("Close"));
  inCommand = false;
  clock.advance(100);
  EXPECT_EQ(log, (Log{"status", "done 4"}));
}

}  // namespace
}  // namespace platform
