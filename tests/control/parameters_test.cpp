// The usage parameters on real store files: every parameter survives a save
// and a start; a saved value that is missing, empty or out of its range
// gives its default; and a save is all or nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
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
#include "../support/helpers.h"

namespace fs = std::filesystem;
using platform::RecordsetType;

namespace {

constexpr int kTipCount = 3;
constexpr double kScreenW = 1366;  // RecordingWindowSystem's screen
constexpr double kScreenH = 768;

// One parameter: its session variable, and two values other than its
// default and in its range (the second is for a second, different set).
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
    platform::setWindowSystem(&windows_);
    gWorkspace = &platform::defaultWorkspace();
    gErrTraceFile = dir_.file("errtrace.txt");
    gDevnagariOk = -1;
    gCurrForm = nullptr;
    const std::string library = dir_.file("mrA.nvy");
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
  }

  std::string userStore() const { return dir_.file("mrB.nvy"); }
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

  std::string traceText() { return fileText(gErrTraceFile); }

  TempFolder dir_;
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
  // stored: nullptr and the others Null; traced: a line in the trace file
  // says what was not used.
  struct Row {
    std::vector<std::pair<const char*, const char*>> stored;
    std::vector<std::pair<const char*, double>> expected;
    bool traced;
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
      {{{"CurrTonicNoteId", "13"}}, {{"CurrTonicNoteId", 3}}, true},
      {{{"LastTip", "4"}}, {{"LastTip", kTipCount}}, true},
      {{{"CurrDroneFactor", "9"}}, {{"CurrDroneFactor", 1.0}}, true},
      {{{"FormH", "1e999"}}, {{"FormH", 0.9 * kScreenH}}, true},
      // Seen in the field: a window off the screen, at zero size or asking
      // for a huge buffer, and a music set deleted by hand.
      {{{"FormL", "3000"}}, {{"FormL", 0.05 * kScreenW}}, true},
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

// A save is one transaction: a write refused part-way (here by a trigger on
// the tenth of the seventeen, as a full disk would) leaves the set saved
// before, whole.
TEST_F(UsageParameters, ASaveRefusedPartWayLeavesTheSetBefore) {
  setEvery(false);
  sSaveUsageParameters();
  const auto before = storedRows();
  gDbB->execute("CREATE TRIGGER refuse BEFORE UPDATE ON [User Parameters] "
                "WHEN NEW.[Parameter Name] = 'NotationScript' BEGIN SELECT RAISE(ABORT, 'disk full'); END;");
  setEvery(true);
  EXPECT_ANY_THROW(sSaveUsageParameters());
  EXPECT_EQ(storedRows(), before);
}

}  // namespace
