// The usage parameters on real store files: every parameter survives a save
// and a start; a saved value that is missing, empty or out of its range
// gives its default; and a save is all or nothing, also when the process
// is killed with SIGKILL in the middle of it.
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "core/errors.h"
#include "control/parameters.h"
#include "core/session.h"
#include "control/user_store.h"
#include "platform/store.h"
#include "recording_window_system.h"

namespace fs = std::filesystem;
using platform::RecordsetType;

namespace {

constexpr int kTipCount = 3;
constexpr double kScreenW = 1366;  // RecordingWindowSystem's screen
constexpr double kScreenH = 768;

// One parameter: its session variable, and two values other than its
// default and in its range (the second is for the kill test's other set).
struct Parameter {
  const char* name;
  std::function<double()> get;
  std::function<void(double)> set;
  double value;
  double other;
};

template <class T>
Parameter parameter(const char* name, T& variable, double value, double other) {
  return {name, [&variable] { return double(variable); },
          [&variable](double v) { variable = static_cast<T>(v); }, value, other};
}

// Every usage parameter (a test below checks that none is missing).
const std::vector<Parameter>& everyParameter() {
  static const std::vector<Parameter> all = {
      parameter("CurrTonicNoteId", gCurrTonicNoteId, 5, 12),
      parameter("CurrMusicSetId", gCurrMusicSetId, 13, 4),
      parameter("KeyboardDisplay", gKeyboardDisplay, 2, 1),
      parameter("FormL", gFormL, 100.5, 3),
      parameter("FormT", gFormT, 40, 0),
      parameter("FormW", gFormW, 1000, 700.25),
      parameter("FormH", gFormH, 600, 400),
      parameter("FormState", gFormState, 2, 1),
      parameter("SortingMode", gSortingMode, 4, 5),
      parameter("NotationScript", gNotationScript, 2, 1),
      parameter("LastTip", gLastTip, 2, 0),
      parameter("TipSignal", gTipSignal, 0, 1),
      parameter("DelayC", gDelayC, 0, 999),
      parameter("DelayMO", gDelayMO, 7, 1000),
      parameter("DelayPC", gDelayPC, 1000, 1),
      parameter("DelayW", gDelayW, 250, 11),
      // Two steps up from 1.0, with the drift of binary steps; and 0.5.
      parameter("CurrDroneFactor", gCurrDroneFactor, 1.2000000000000002, 0.5),
  };
  return all;
}

const Parameter& parameterNamed(const std::string& name) {
  for (const Parameter& p : everyParameter())
    if (p.name == name) return p;
  throw std::logic_error("no parameter " + name);
}

void setEvery(bool other) {
  for (const Parameter& p : everyParameter()) p.set(other ? p.other : p.value);
}

class UsageParameters : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "nvparamsXXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    dir_ = pattern;
    platform::setWindowSystem(&windows_);
    gWorkspace = &platform::defaultWorkspace();
    gErrTraceFile = (dir_ / "errtrace.txt").string();
    gDevnagariOk = -1;
    gCurrForm = nullptr;
    const std::string library = (dir_ / "mrA.nvy").string();
    gWorkspace->createDatabase(library, "CREATE TABLE NVTips (TipId INTEGER PRIMARY KEY, Tip TEXT);"
                                        "INSERT INTO NVTips (Tip) VALUES ('a'), ('b'), ('c');");
    gDbA = gWorkspace->openDatabase(library, true, true, "");
    gWorkspace->createDatabase(userStore(), kUserStoreSchema);
    openUserStore();
    gDbB->execute("INSERT INTO [Scale Shift Specs] (NPSetId, NPSetName, TonicNoteId) VALUES (13, 'Just Yaman', 5);");
  }
  void TearDown() override {
    gDbA.reset();
    gDbB.reset();
    fs::remove_all(dir_);
  }

  std::string userStore() const { return (dir_ / "mrB.nvy").string(); }
  void openUserStore() { gDbB = gWorkspace->openDatabase(userStore(), true, false, ""); }

  // Every row of User Parameters, name and text, in name order.
  std::vector<std::pair<std::string, std::string>> storedRows() {
    std::vector<std::pair<std::string, std::string>> rows;
    auto rs = gDbB->openRecordset("User Parameters", RecordsetType::Table);
    rs->setIndex("PrimaryKey");
    for (; !rs->eof(); rs->moveNext())
      rows.emplace_back(rs->field("Parameter Name").asText(), rs->field("Parameter Value").asText());
    return rows;
  }

  std::string traceText() {
    std::ifstream in(gErrTraceFile);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  fs::path dir_;
  RecordingWindowSystem windows_;
};

// Every row of the store is a parameter of the table above, and every one
// saved is restored at the next start.
TEST_F(UsageParameters, EveryParameterSavedIsRestoredAtTheNextStart) {
  std::set<std::string> tested, rows;
  for (const Parameter& p : everyParameter()) tested.insert(p.name);
  for (const auto& row : storedRows()) rows.insert(row.first);
  EXPECT_EQ(rows, tested);
  setEvery(false);
  sSaveUsageParameters();
  for (const Parameter& p : everyParameter()) p.set(-1);
  sSetDefaultOptions();
  for (const Parameter& p : everyParameter()) EXPECT_EQ(p.get(), p.value) << p.name;
  EXPECT_EQ(gCurrMusicSetName, "Just Yaman");
  EXPECT_EQ(traceText(), "");
}

TEST_F(UsageParameters, MissingEmptyOrOutOfRangeValuesGiveTheirDefaults) {
  struct Row {
    std::vector<std::pair<const char*, const char*>> stored;  // nullptr and the others: Null
    std::vector<std::pair<const char*, double>> expected;
    bool traced;  // a line in the trace file says what was not used
  };
  const Row rows[] = {
      // A new installation: every value Null; the first tip shown is tip 1.
      {{},
       {{"FormL", 0.05 * kScreenW}, {"FormT", 0.05 * kScreenH}, {"FormW", 0.9 * kScreenW}, {"FormH", 0.9 * kScreenH},
        {"CurrTonicNoteId", 3}, {"CurrMusicSetId", 3}, {"LastTip", kTipCount}, {"CurrDroneFactor", 1.0}},
       false},
      // No lead by default, Null or empty; a lead of 10 saved since stays.
      {{{"DelayMO", nullptr}}, {{"DelayMO", 0}}, false},
      {{{"DelayC", ""}}, {{"DelayC", 0}}, false},
      {{{"DelayW", "10"}}, {{"DelayW", 10}}, false},
      // The ends of a range are in it.
      {{{"DelayPC", "1000"}}, {{"DelayPC", 1000}}, false},
      {{{"DelayW", "0"}}, {{"DelayW", 0}}, false},
      {{{"CurrMusicSetId", "12"}}, {{"CurrMusicSetId", 12}}, false},
      // Out of range.
      {{{"DelayC", "1001"}}, {{"DelayC", 0}}, true},
      {{{"DelayMO", "-1"}}, {{"DelayMO", 0}}, true},
      {{{"CurrTonicNoteId", "13"}}, {{"CurrTonicNoteId", 3}}, true},
      {{{"NotationScript", "3"}}, {{"NotationScript", 1}}, true},
      {{{"LastTip", "4"}}, {{"LastTip", kTipCount}}, true},
      {{{"CurrDroneFactor", "9"}}, {{"CurrDroneFactor", 1.0}}, true},
      {{{"FormH", "1e999"}}, {{"FormH", 0.9 * kScreenH}}, true},
      // Seen in the field: a window off the screen, at zero size or asking
      // for a huge buffer, and a music set deleted by hand.
      {{{"FormL", "3000"}}, {{"FormL", 0.05 * kScreenW}}, true},
      {{{"FormW", "0"}}, {{"FormW", 0.9 * kScreenW}}, true},
      {{{"FormW", "1e9"}}, {{"FormW", 0.9 * kScreenW}}, true},
      {{{"CurrTonicNoteId", "7"}, {"CurrMusicSetId", "40"}}, {{"CurrMusicSetId", 7}}, true},
      // Each in range, but together reaching past the right or bottom edge.
      {{{"FormL", "1000"}, {"FormW", "1200"}}, {{"FormL", kScreenW - 1200}}, true},
      {{{"FormT", "500"}, {"FormH", "700"}}, {{"FormT", kScreenH - 700}}, true},
  };
  for (const Row& row : rows) {
    gDbB->execute("UPDATE [User Parameters] SET [Parameter Value] = NULL;");
    for (const auto& [name, value] : row.stored)
      gDbB->execute("UPDATE [User Parameters] SET [Parameter Value] = " +
                    (value ? "'" + std::string(value) + "'" : "NULL") + " WHERE [Parameter Name] = '" + name + "';");
    fs::remove(gErrTraceFile);
    sSetDefaultOptions();
    const std::string stored = row.stored.empty() || !row.stored.back().second ? "Null" : row.stored.back().second;
    for (const auto& [name, expected] : row.expected)
      EXPECT_FLOAT_EQ(parameterNamed(name).get(), expected) << name << " from " << stored;
    EXPECT_EQ(traceText().find("Usage parameter") != std::string::npos, row.traced) << stored << ": " << traceText();
  }
}

// A store saved before the lead's default became 0 (version 1) holds the old
// default, 10, for each screen: the upgrade makes its tens 0 once, with a
// trace line; a lead the user trimmed stays, and at the next start nothing
// moves again.
TEST_F(UsageParameters, TheOldDefaultLeadMovesToTheNewOnce) {
  gDbB->execute("PRAGMA user_version = 1;");
  gDbB->execute("UPDATE [User Parameters] SET [Parameter Value] = '10' WHERE [Parameter Name] LIKE 'Delay%';");
  gDbB->execute("UPDATE [User Parameters] SET [Parameter Value] = '25' WHERE [Parameter Name] = 'DelayPC';");
  ASSERT_TRUE(fUpgradeUserStore(*gDbB));
  sSetDefaultOptions();
  EXPECT_EQ(std::vector<double>({double(gDelayC), double(gDelayMO), double(gDelayPC), double(gDelayW)}),
            std::vector<double>({0, 0, 25, 0}));
  EXPECT_NE(traceText().find("Usage parameters DelayC, DelayMO, DelayW: the old default lead of 10 ms"),
            std::string::npos) << traceText();
  gDbB->execute("UPDATE [User Parameters] SET [Parameter Value] = '10' WHERE [Parameter Name] = 'DelayMO';");
  fs::remove(gErrTraceFile);
  ASSERT_TRUE(fUpgradeUserStore(*gDbB));  // the next start
  sSetDefaultOptions();
  EXPECT_EQ(gDelayMO, 10);
  EXPECT_EQ(traceText(), "");
}

// Reads whole bytes from `fd` until `count` have come (false on a timeout of
// 10 s or the end of the pipe) or, with count < 0, until the end.
bool readBytes(int fd, int count, int& total) {
  char buffer[64];
  for (int got = 0; count < 0 || got < count;) {
    pollfd waiting{fd, POLLIN, 0};
    if (poll(&waiting, 1, 10000) <= 0) return false;
    const ssize_t n = read(fd, buffer, count < 0 ? sizeof buffer : 1);
    if (n <= 0) return count < 0;
    got += int(n);
    total += int(n);
  }
  return true;
}

// A child process saves the two sets in turn, the other set first, and
// reports each save that returned with one byte on a pipe. It is killed at
// a random moment, within two saves' time of a report; then the store must
// pass SQLite's integrity check and hold the set of the last save that
// returned or of the one under way: never a mixture of the two.
TEST_F(UsageParameters, AKillDuringSavesLeavesOneWholeSet) {
  using std::chrono::steady_clock;
  setEvery(false);
  const auto start = steady_clock::now();
  sSaveUsageParameters();
  const long saveMicroseconds = std::max<long>(
      1, std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - start).count());
  const auto setA = storedRows();
  setEvery(true);
  sSaveUsageParameters();
  const auto setB = storedRows();
  ASSERT_NE(setA, setB);

  std::mt19937 random(11);
  int savesSeen = 0;
  for (int trial = 0; trial < 50; ++trial) {
    SCOPED_TRACE("trial " + std::to_string(trial));
    setEvery(false);
    sSaveUsageParameters();
    gDbB->close();
    gDbB.reset();
    int pipeEnds[2];
    ASSERT_EQ(pipe(pipeEnds), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      close(pipeEnds[0]);
      try {
        openUserStore();
        for (bool other = true;; other = !other) {
          setEvery(other);
          sSaveUsageParameters();
          if (write(pipeEnds[1], "s", 1) != 1) _exit(3);
        }
      } catch (...) {
      }
      _exit(2);
    }
    close(pipeEnds[1]);
    int saves = 0;
    const bool reported = readBytes(pipeEnds[0], trial % 4, saves);
    usleep(useconds_t(std::uniform_int_distribution<long>(0, 2 * saveMicroseconds)(random)));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    readBytes(pipeEnds[0], -1, saves);
    close(pipeEnds[0]);
    ASSERT_TRUE(reported);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the child ended by itself, status " << status;
    savesSeen += saves;

    openUserStore();  // as the next start would: a journal left behind is rolled back
    auto check = gDbB->openRecordset("PRAGMA integrity_check;", RecordsetType::Snapshot);
    EXPECT_EQ(check->fieldAt(0).asText(), "ok");
    check->close();
    const auto rows = storedRows();
    const auto& lastReturned = saves % 2 == 1 ? setB : setA;
    const auto& underWay = saves % 2 == 1 ? setA : setB;
    EXPECT_TRUE(rows == lastReturned || rows == underWay) << saves << " saves returned";
  }
  EXPECT_GT(savesSeen, 50);
}

}  // namespace
