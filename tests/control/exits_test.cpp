// The ways the program ends: a fatal error's box, which keeps its fixed
// wording and gives the cause and the file in its detailed text; a second
// copy, refused before it touches any file; and the greeting drone file
// beside the program's folder, which no exit leaves behind.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>

#include "control/user_store.h"
#include "core/session.h"
#include "core/trace.h"
#include "platform/store.h"
#include "program_harness.h"

namespace fs = std::filesystem;
using platform::EventKind;

namespace {

struct Box {
  std::string text;
  std::string detail;
};

// Records every box with its detailed text, in place of the harness's own
// record, which has no detail.
std::vector<Box>& recordBoxes() {
  static std::vector<Box> boxes;
  boxes.clear();
  platform::qtWindowSystem().setDetailedMessageBoxResponder(
      [](const std::string& text, int, const std::string&, const std::string& detail) {
        boxes.push_back({text, detail});
        return platform::kAnswerOk;
      });
  return boxes;
}

// Every file of the folder, with a digest of its content and its time of
// last change.
std::map<std::string, std::string> snapshot(const fs::path& folder) {
  std::map<std::string, std::string> files;
  auto add = [&files](const fs::path& p) {
    files[p.string()] = std::to_string(std::hash<std::string>{}(ProgramHarness::readFile(p))) + "@" +
                        std::to_string(fs::last_write_time(p).time_since_epoch().count());
  };
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) add(entry.path());
  return files;
}

// The box names the trace file by its whole path: it lives in the state
// folder, not beside the program.
std::string fatalText(const fs::path& traceFile) {
  return "A program error has occured in procedure 'sFillErrorParam'. Program execution will be "
         "halted, and error trace will be appended to file '" +
         traceFile.string() + "'. Please e-mail that file to support@nadavik.org and try running Nadavik again.";
}

// A user store that is not a store at all: the box keeps its wording, and
// its details say what went wrong, in which file, and where the report is;
// both stores are given up before the program ends, so that nothing is left
// for the exit's destructors.
TEST(Exits, AFatalErrorShowsTheCauseAndTheFileInTheDetailsAndEndsWithAnErrorStatus) {
  ProgramHarness p;
  auto& boxes = recordBoxes();
  const fs::path userStore = p.folder() / "mrB.nvy";
  std::ofstream(userStore, std::ios::binary) << std::string(8192, '\x5a');
  p.start();
  EXPECT_FALSE(p.mainWindowLoaded());
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].text, fatalText(p.folder() / "errtrace.txt"));
  const std::string& detail = boxes[0].detail;
  EXPECT_NE(detail.find("Error 3051: "), std::string::npos) << detail;
  EXPECT_NE(detail.find("not a store file"), std::string::npos) << detail;
  EXPECT_NE(detail.find("File: " + userStore.string()), std::string::npos) << detail;
  EXPECT_NE(detail.find("Report: " + (p.folder() / "errtrace.txt").string()), std::string::npos)
      << detail;
  EXPECT_EQ(fExitStatus(), 1);
  for (const char* store : {"mrA.nvy", "mrB.nvy"}) {
    long refused = 0;
    try {
      platform::defaultWorkspace().openDatabase((p.folder() / store).string(), true, true, "");
    } catch (const platform::StoreError& e) {
      refused = e.number;
    }
    EXPECT_NE(refused, 3045) << store << " still held by the halted program";
  }
}

// Where the user reads the details: the real box, under its message.
TEST(Exits, TheDetailsUnfoldUnderTheMessageOfTheRealBox) {
  platform::QtWindowSystem windows("");
  QString shown, detail;
  QTimer::singleShot(0, [&] {
    QMessageBox* box = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* b = qobject_cast<QMessageBox*>(w); b && b->isVisible()) box = b;
    ASSERT_NE(box, nullptr);
    shown = box->text();
    detail = box->detailedText();
    box->accept();
  });
  windows.messageBoxWithDetail("the message", platform::kMsgInformation, "Message", "the cause");
  EXPECT_EQ(shown, "the message");
  EXPECT_EQ(detail, "the cause");
}

// The running copy holds the user store from another process. The second
// copy learns it before it writes anything: the running copy's trace,
// logs and store stay exactly as they were.
TEST(Exits, ASecondCopyIsRefusedByNameAndTouchesNoFileOfTheRunningCopy) {
  ProgramHarness p;
  auto& boxes = recordBoxes();
  const fs::path userStore = p.folder() / "mrB.nvy";
  platform::defaultWorkspace().createDatabase(userStore.string(), kUserStoreSchema);
  std::ofstream(p.folder() / "errtrace.txt") << "\nOpened Error Trace File\nthe running copy\n";
  std::ofstream(p.folder() / "ignoerr.txt") << "the running copy's forgiven errors\n";

  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t running = fork();
  ASSERT_GE(running, 0);
  if (running == 0) {  // the running copy: holds the store as the program does
    const int fd = open(userStore.c_str(), O_RDWR);
    if (fd < 0 || flock(fd, LOCK_EX) != 0) _exit(1);
    if (write(ready[1], "x", 1) != 1) _exit(1);
    for (;;) pause();
  }
  char held = 0;
  ASSERT_EQ(read(ready[0], &held, 1), 1);
  const auto before = snapshot(p.folder());

  p.start();
  kill(running, SIGKILL);
  waitpid(running, nullptr, 0);
  close(ready[0]);
  close(ready[1]);

  EXPECT_FALSE(p.mainWindowLoaded());
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].text, "Nadavik is already running");
  EXPECT_EQ(fExitStatus(), 1);
  EXPECT_EQ(snapshot(p.folder()), before);
}

// The run's temporary folder, with the greeting drone in it, goes at every
// way out.
TEST(Exits, NoExitLeavesTheTemporaryFolderWithTheGreetingDrone) {
  struct Case {
    const char* exit;
    std::function<void(ProgramHarness&)> leave;
    int status;
  };
  const Case cases[] = {
      {"Exit", [](ProgramHarness& p) { p.fire("Nadavik", "cExit", EventKind::Click); }, 0},
      {"close box", [](ProgramHarness& p) { p.closeWindow("Nadavik"); }, 0},
      {"fatal error",
       [](ProgramHarness&) {
         // Some other piece is the one playing, as after any use of the menu.
         gCurrMusicFile = gWavA;
         platform::runAtEventBoundary([] { throw std::runtime_error("a fault in a handler"); });
       },
       1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.exit);
    ProgramHarness p;
    auto& boxes = recordBoxes();
    p.start();
    p.finishStartUp();
    const fs::path drone = gDroneWavFile;
    ASSERT_TRUE(fs::exists(drone));
    EXPECT_EQ(drone.parent_path().filename(),
              "nadavik-" + std::to_string(getuid()) + "-" + std::to_string(getpid()));
    c.leave(p);
    p.settle();
    EXPECT_FALSE(p.mainWindowLoaded());
    EXPECT_FALSE(fs::exists(drone.parent_path()));
    EXPECT_EQ(fExitStatus(), c.status);
    EXPECT_EQ(boxes.size(), c.status == 0 ? 0u : 1u);
  }
}

// The temporary folders of this user's runs that were killed go at the next
// start, even when that start writes no greeting of its own (here the tabla
// kits are missing); the folder of a run that is still going stays.
TEST(Exits, TheTemporaryFolderOfAKilledRunGoesAtTheNextStart) {
  const pid_t killed = fork();
  if (killed == 0) _exit(0);
  waitpid(killed, nullptr, 0);  // its id now names no process
  const std::string prefix = "nadavik-" + std::to_string(getuid()) + "-";
  const fs::path left = fs::temp_directory_path() / (prefix + std::to_string(killed));
  const fs::path running = fs::temp_directory_path() / (prefix + std::to_string(getppid()));
  for (const fs::path& folder : {left, running}) {
    fs::create_directories(folder);
    std::ofstream(folder / "D.wav") << "a greeting";
  }
  ProgramHarness p;
  recordBoxes();
  fs::remove(p.folder() / "clb.nvy");
  fs::remove(p.folder() / "vlb.nvy");
  p.start();
  EXPECT_FALSE(fs::exists(left));
  EXPECT_TRUE(fs::exists(running / "D.wav"));
  fs::remove_all(running);
  p.closeWindow("Nadavik");
}

}  // namespace
