// Trace file, forgiven and fatal errors, and the reports they leave.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/error_state.h"
#include "core/errors.h"
#include "core/session.h"
#include "core/trace.h"
#include "platform/store.h"
#include "recording_window_system.h"
#include "../support/helpers.h"

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

namespace {

Lines linesOf(const fs::path& p) {
  std::ifstream in(p);
  Lines out;
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

class TraceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    gDataPath = dir_.string();
    gErrTraceFile = dir_.file("errtrace.txt");
    gTraceEnabled = gTraceOn = 0;
    gTraceLevel = gIgnorableCount = gErrorTrapCount = 0;
    gTraceIndent.clear();
    gCurrFormId = 1;
    gCurrForm = nullptr;
    gCurrMusicFile.clear();
    platform::setWindowSystem(&windows_);
  }
  Lines trace() const { return linesOf(dir_ / "errtrace.txt"); }

  TempFolder dir_;
  RecordingWindowSystem windows_;
};

void nested() { NV_PROC("sInner"); }
void outer() {
  NV_PROC("fOuter");
  nested();
}

// Nothing is written unless tracing is offered and on; then nested
// procedures write indented entry and exit lines.
TEST_F(TraceTest, NestedProceduresWriteIndentedEntryAndExitLinesWhenTracing) {
  for (auto [enabled, on] : {std::pair{0, -1}, std::pair{-1, 0}, std::pair{0, 0}}) {
    gTraceEnabled = static_cast<std::int16_t>(enabled);
    gTraceOn = static_cast<std::int16_t>(on);
    outer();
  }
  EXPECT_FALSE(fs::exists(dir_ / "errtrace.txt"));
  gTraceEnabled = gTraceOn = -1;
  outer();
  EXPECT_EQ(trace(), (Lines{"    Entering fOuter(1)", "        Entering sInner(2)", "        Exiting(2)",
                            "    Exiting(1)"}));
  EXPECT_EQ(gTraceLevel, 0);
  EXPECT_EQ(gCurrProcName, "sInner");  // set on entry, never restored
}

TEST_F(TraceTest, TraceFileOverTheLimitStopsTheProcessAtTheNextCall) {
  gTraceEnabled = gTraceOn = -1;
  std::ofstream(gErrTraceFile) << std::string(2000000, 'x');
  EXPECT_NO_THROW(sTrace(1));  // exactly 2000000 bytes is still allowed
  std::ofstream(gErrTraceFile, std::ios::app) << "x";
  EXPECT_THROW(sTrace(1), ProcessEnded);
  ASSERT_FALSE(windows_.messages.empty());
  EXPECT_EQ(windows_.messages.back().title, "Message");
  EXPECT_EQ(windows_.messages.back().text.rfind("Nadavik seems to be caught in a loop.", 0), 0u);
}

// Forgiven faults, also a forgiven store fault at the event boundary, are
// only logged, eight lines each; fatal ones are not logged there.
TEST_F(TraceTest, ForgivenErrorsAreLoggedAndExecutionGoesOn) {
  for (long number : {kErrOverflow, kErrDivisionByZero}) {
    gCurrProcName = "fSomething";
    EXPECT_NO_THROW(sRaiseError(number, "forgiven " + std::to_string(number)));
  }
  sRunTrapped([] { throw platform::StoreError(3075, "bad expression"); });
  EXPECT_EQ(gIgnorableCount, 3);
  EXPECT_TRUE(windows_.messages.empty());
  const Lines log = linesOf(dir_ / "ignoerr.txt");
  ASSERT_EQ(log.size(), 3u * 8u);
  EXPECT_EQ(Lines(log.begin(), log.begin() + 6),
            (Lines{"", "Ignorable Error No. 1", log[2], "Called form 'sFillErrorParam'", "forgiven 6", "6"}));
  EXPECT_EQ(log[17], "Ignorable Error No. 3");
  EXPECT_EQ(log[20], "bad expression");
  EXPECT_THROW(sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range"), ErrorTrap);
  EXPECT_EQ(linesOf(dir_ / "ignoerr.txt").size(), 3u * 8u);
}

// A fatal fault in a handler is reported with the required message and the
// program halts; the seventh trap in one run stops at once; a missing
// engine component has its own message and counts no trap.
TEST_F(TraceTest, FatalFaultsAreReportedAndTheProgramHalts) {
  sRunTrapped([] { sRaiseError(kErrTypeMismatch, "Type mismatch", "Nadavik"); });
  ASSERT_EQ(windows_.messages.size(), 1u);
  // (its whole wording: exits_test)
  EXPECT_EQ(windows_.messages[0].text.rfind("A program error has occured in procedure 'sFillErrorParam'.", 0), 0u);
  const Lines report = trace();
  ASSERT_EQ(report.size(), 7u);
  EXPECT_EQ(Lines(report.begin() + 2, report.begin() + 6),
            (Lines{"Called form 'sFillErrorParam'", "Type mismatch", "13", "Nadavik"}));
  EXPECT_EQ(report[0], "");
  for (int i = 1; i < 6; ++i) sRunTrapped([] { throw std::runtime_error("again"); });
  EXPECT_EQ(gErrorTrapCount, 6);
  EXPECT_THROW(sRunTrapped([] { throw std::runtime_error("again"); }), ProcessEnded);
  EXPECT_EQ(trace().back(), "Error trap loop encountered. Stopping program.");

  windows_.messages.clear();
  gErrorTrapCount = 0;
  sRunTrapped([] { throw platform::StoreError(3633, "component missing"); });
  ASSERT_EQ(windows_.messages.size(), 1u);
  EXPECT_EQ(windows_.messages[0].text.rfind(
                "you have encountered a program error that requires you to carry out another preparatory step.", 0),
            0u);
  EXPECT_EQ(gErrorTrapCount, 0);
}

}  // namespace
