// The audio device on the real sound output, and the fall-back to the
// silent device where there is none. Each group can run only on a machine
// of its kind: the playing tests need a sound output (scripts/with-audio-
// server.sh gives them a private headless server), the fall-back test needs
// none. A test on the wrong kind of machine skips, unless the test command
// has said which kind it arranged (NADAVIK_TEST_SOUND_OUTPUT, see
// soundOutputArranged): then it fails, so that a test command that meant to
// run it cannot pass without running it.
#include "platform/qt/qt_audio.h"

#include <gtest/gtest.h>

#include <QAudioDevice>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMediaDevices>
#include <QThread>
#include <algorithm>
#include <string>
#include <vector>

#include "audio_fixture.h"
#include "platform/qt/qt_scheduler.h"

namespace platform {
namespace {

bool haveOutput() { return !QMediaDevices::defaultAudioOutput().isNull(); }

// What the test command arranged: "present" when it runs the playing tests
// under a sound server, "absent" when it runs the fall-back test where no
// server can be reached, "" when it says nothing.
std::string soundOutputArranged() { return qEnvironmentVariable("NADAVIK_TEST_SOUND_OUTPUT").toStdString(); }

// Lets events through until done() or timeoutMs.
void runUntil(const std::function<bool()>& done, long timeoutMs) {
  QElapsedTimer timer;
  timer.start();
  while (!done() && timer.elapsed() < timeoutMs) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QThread::usleep(500);
  }
}

TEST(AudioFactory, FallsBackToTheSilentDeviceAndTellsOnce) {
  if (haveOutput()) {
    if (soundOutputArranged() == "absent")
      FAIL() << "NADAVIK_TEST_SOUND_OUTPUT=absent, yet a sound output is listed";
    GTEST_SKIP() << "this machine has a sound output";
  }
  QtScheduler scheduler;
  int told = 0;
  NoOutputNotice notice{[&](const std::string& message) {
    ++told;
    EXPECT_NE(message.find("No sound output"), std::string::npos);
  }};
  auto first = createAudioDevice(scheduler, notice);
  auto second = createAudioDevice(scheduler, notice);
  EXPECT_EQ(told, 1);
  testing::TempDir dir;
  testing::writeToneFile(second->fileName = dir.file("A.wav"), 200);
  ASSERT_TRUE(second->command("Open"));
  EXPECT_EQ(second->length(), 200);
}

class QtDevice : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!haveOutput()) {
      if (soundOutputArranged() == "present")
        FAIL() << "NADAVIK_TEST_SOUND_OUTPUT=present, yet no sound output is listed: "
                  "is the sound server running?";
      GTEST_SKIP() << "no sound output on this machine";
    }
    device = createAudioDevice(scheduler, notice);
    ASSERT_FALSE(notice.told) << "the output is listed but does not start";
    device->onStatus = [this] {
      statusAtMs.push_back(clock.elapsed());
      positions.push_back(device->position());
    };
    device->onDone = [this](int code) {
      doneCodes.push_back(code);
      doneAtMs = clock.elapsed();
    };
  }

  // The device goes first, then the sound server's answers to its closing
  // stream are let in while Qt's sound engine still stands: a process that
  // ends at once can meet libpulse answering a context already torn down.
  void TearDown() override {
    device.reset();
    runUntil([] { return false; }, 200);
  }

  bool openAndPlay(long lengthMs) {
    testing::writeToneFile(device->fileName = dir.file("A.wav"), lengthMs);
    if (!device->command("Open")) return false;
    device->notify = true;
    device->from = 0;
    device->to = device->length();
    clock.start();
    return device->command("Play");
  }

  testing::TempDir dir;
  QtScheduler scheduler;
  NoOutputNotice notice;
  std::unique_ptr<AudioDevice> device;
  QElapsedTimer clock;
  std::vector<qint64> statusAtMs;
  std::vector<long> positions;
  std::vector<int> doneCodes;
  qint64 doneAtMs = -1;
};

TEST_F(QtDevice, PlaysToTheEndWithSteadyStatusAndOneDone) {
  ASSERT_TRUE(openAndPlay(800)) << device->errorMessage();
  EXPECT_EQ(device->mode(), kModePlaying);
  runUntil([this] { return !doneCodes.empty(); }, 3000);
  runUntil([] { return false; }, 300);  // a second done would come here

  ASSERT_EQ(doneCodes, std::vector<int>{kNotifySuccessful});
  // The output's count may run a few ms ahead of the wall clock.
  EXPECT_TRUE(doneAtMs >= 800 - 30 && doneAtMs <= 800 + 400) << doneAtMs;
  EXPECT_EQ(device->position(), 800);
  EXPECT_EQ(device->mode(), kModeStopped);

  ASSERT_GE(statusAtMs.size(), 20u);
  std::vector<qint64> gapsMs;
  for (std::size_t i = 1; i < statusAtMs.size(); ++i) gapsMs.push_back(statusAtMs[i] - statusAtMs[i - 1]);
  std::sort(gapsMs.begin(), gapsMs.end());
  EXPECT_LE(gapsMs[gapsMs.size() * 9 / 10], 30) << "most status gaps within 30 ms";
  EXPECT_TRUE(std::is_sorted(positions.begin(), positions.end()));
  // What is heard trails the wall clock by the output's buffer, no more.
  const long lagMs = static_cast<long>(statusAtMs[statusAtMs.size() / 2]) - positions[positions.size() / 2];
  EXPECT_TRUE(lagMs >= 0 && lagMs <= 300) << lagMs;
}

// The program plays phrase after phrase on one device: each must sound to
// its end, whatever the outputs of the phrases before it still report.
TEST_F(QtDevice, EachClipInTurnPlaysToItsEnd) {
  for (long lengthMs : {600L, 800L, 600L}) {
    doneCodes.clear();
    ASSERT_TRUE(openAndPlay(lengthMs)) << device->errorMessage();
    runUntil([this] { return !doneCodes.empty(); }, 3000);
    ASSERT_EQ(doneCodes, std::vector<int>{kNotifySuccessful}) << lengthMs;
    EXPECT_TRUE(doneAtMs >= lengthMs - 30 && doneAtMs <= lengthMs + 400) << lengthMs << ": " << doneAtMs;
  }
}

TEST_F(QtDevice, StopFreezesThePositionAndAnswersAborted) {
  ASSERT_TRUE(openAndPlay(2000)) << device->errorMessage();
  runUntil([this] { return clock.elapsed() >= 400; }, 1000);
  device->notify = false;
  ASSERT_TRUE(device->command("Stop"));
  const long stoppedAtMs = device->position();
  EXPECT_TRUE(stoppedAtMs > 200 && stoppedAtMs < 450) << stoppedAtMs;
  runUntil([] { return false; }, 200);
  EXPECT_EQ(device->position(), stoppedAtMs);
  EXPECT_EQ(doneCodes, std::vector<int>{kNotifyAborted});
  EXPECT_TRUE(device->command("Close"));
  EXPECT_EQ(device->mode(), kModeNotOpen);
}

TEST_F(QtDevice, SeekToStartWhilePlayingKeepsPlaying) {
  ASSERT_TRUE(openAndPlay(1000)) << device->errorMessage();
  runUntil([this] { return device->position() >= 500; }, 2000);
  device->notify = false;
  ASSERT_TRUE(device->command("Seek to start"));
  EXPECT_EQ(device->mode(), kModePlaying);
  EXPECT_LT(device->position(), 100);
  runUntil([this] { return !doneCodes.empty(); }, 4000);
  EXPECT_EQ(doneCodes, std::vector<int>{kNotifySuccessful});
  EXPECT_GE(doneAtMs, 1400);
}

}  // namespace
}  // namespace platform

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
