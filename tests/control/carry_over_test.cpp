// Carrying the user's data from an older installation's user store into the
// current one, on temporary store files: what is carried under which ids
// for each way of resolving a clash, the files refused with nothing
// changed, a fault part-way that writes nothing, and the upgrade of an
// older user store at start.
#include "control/carry_over.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "control/user_store.h"
#include "core/session.h"
#include "platform/store.h"
#include "recording_window_system.h"
#include "store/scale_ids.h"
#include "store/schema_check.h"

namespace {

namespace fs = std::filesystem;
using platform::RecordsetType;

// The current store's data, and the older store's: a clash of each kind
// (the composition "Saanjh", the scale "Mine", the pattern "Up") and one
// thing of each kind without a clash; phrases that overlap.
const char* kCurrentRows = R"(
INSERT INTO "Raga - Additional Information" VALUES (1, 'Saanjh', 2, 1);
INSERT INTO "Raga - Composition Notations" ("Notation Index", "Composition Part", "Notation")
  VALUES (1, 1, 'current astai'), (1, 2, 'current antara');
INSERT INTO "Scale Shift Specs" VALUES (13, 'Mine', 'c', 3, 250, 251);
INSERT INTO "ONPR" ("NPSetId", "InstrumentType", "NPSetName", "TonicNoteId", "00") VALUES (13, 1, 'Mine', 3, 0.5);
INSERT INTO "User Patterns" VALUES (1, 'Up', 'current up', 1);
INSERT INTO "Raga - ALT Phrases" VALUES (1, 1, 'S R', '1 1');
)";

const char* kOlderRows = R"(
INSERT INTO "Raga - Additional Information" VALUES (1, 'saanjh', 2, 7), (1, 'Bhor', 2, 8);
INSERT INTO "Raga - Composition Notations" ("Notation Index", "Composition Part", "Notation")
  VALUES (7, 1, 'older astai'), (7, 2, 'older antara'), (8, 1, 'bhor astai'), (8, 2, 'bhor antara');
INSERT INTO "Scale Shift Specs" VALUES (13, 'Mine', 'c', 5, 250, 249), (14, 'Other', 'c', 7, 250, 252);
INSERT INTO "ONPR" ("NPSetId", "InstrumentType", "NPSetName", "TonicNoteId", "00")
  VALUES (13, 1, 'Mine', 5, 0.25), (14, 1, 'Other', 7, 0.75);
INSERT INTO "User Patterns" VALUES (1, 'Up', 'older up', 2), (2, 'Down', 'older down', 1);
INSERT INTO "Raga - ALT Phrases" VALUES (1, 1, 'S R,G M', '1 1,2 2'), (2, 3, 'P D', '1 1');
UPDATE "User Parameters" SET "Parameter Value" = '14' WHERE "Parameter Name" = 'CurrMusicSetId';
UPDATE "User Parameters" SET "Parameter Value" = '7' WHERE "Parameter Name" = 'CurrTonicNoteId';
UPDATE "User Parameters" SET "Parameter Value" = '10' WHERE "Parameter Name" = 'DelayMO';
PRAGMA user_version = 1;
)";

using Rows = std::vector<std::string>;

class CarryOverTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() / ("nvcarry-" + std::to_string(getpid()));
    fs::remove_all(dir_);
    fs::create_directories(dir_);
    platform::setWindowSystem(&windows_);
    gErrTraceFile = (dir_ / "errtrace.txt").string();
    gDataPath = dir_.string();
    gStoreBPath = (dir_ / "mrB.nvy").string();
    makeStore(gStoreBPath, kCurrentRows);
    gDbB = platform::defaultWorkspace().openDatabase(gStoreBPath, true, false, "");
  }
  void TearDown() override {
    gDbB.reset();
    fs::remove_all(dir_);
  }

  static void makeStore(const std::string& path, const std::string& rows,
                        const std::string& schema = kUserStoreSchema) {
    platform::defaultWorkspace().createDatabase(path, schema + rows);
  }
  std::string older(const std::string& rows = kOlderRows, const std::string& schema = kUserStoreSchema) {
    const std::string path = (dir_ / "old.nvy").string();
    fs::remove(path);
    makeStore(path, rows, schema);
    return path;
  }

  // The rows of a table of the current store, "a|b|c", in the order of its
  // primary key (or, with index "", of insertion), for comparing.
  static Rows rows(const std::string& table, const std::vector<std::string>& columns,
                   const char* index = "PrimaryKey") {
    Rows result;
    auto rs = gDbB->openRecordset(table, RecordsetType::Table);
    if (*index) rs->setIndex(index);
    for (; !rs->eof(); rs->moveNext()) {
      std::string row;
      for (const auto& c : columns) row += (row.empty() ? "" : "|") + rs->field(c).asText();
      result.push_back(row);
    }
    return result;
  }
  // Every table of the current store, whole.
  static Rows everything() {
    Rows all;
    for (const SchemaTable& t : fSchemaTables(kUserStoreSchema)) {
      auto rs = gDbB->openRecordset(t.name, RecordsetType::Table);
      for (; !rs->eof(); rs->moveNext()) {
        std::string row = t.name;
        for (const auto& c : t.columns) row += "|" + rs->field(c).asText();
        all.push_back(row);
      }
    }
    return all;
  }

  fs::path dir_;
  RecordingWindowSystem windows_;
};

// Each way of resolving the three clashes, the things without a clash
// carried under new ids, the phrases joined, and the older settings taken
// with the chosen scale following its new id, read as this version reads
// them (the older store is of version 1, whose lead of 10 is now 0).
TEST_F(CarryOverTest, CarriesEverythingUnderFreeIdsAndResolvesClashesAsChosen) {
  const struct { ClashChoice choice; Rows items, notations, scales, patterns; int keptCurrent; const char* musicSet; }
      cases[] = {
      {ClashChoice::KeepBoth,
       {"1|Bhor|2|3", "1|Saanjh|2|1", "1|saanjh (2)|2|2"},
       {"1|1|current astai", "1|2|current antara", "2|1|older astai", "2|2|older antara", "3|1|bhor astai",
        "3|2|bhor antara"},
       {"13|Mine|251", "14|Mine (2)|249", "15|Other|252"},
       {"Up|current up", "Up (2)|older up", "Down|older down"},
       0, "15"},
      {ClashChoice::KeepCurrent,
       {"1|Bhor|2|2", "1|Saanjh|2|1"},
       {"1|1|current astai", "1|2|current antara", "2|1|bhor astai", "2|2|bhor antara"},
       {"13|Mine|251", "14|Other|252"},
       {"Up|current up", "Down|older down"},
       3, "14"},
      {ClashChoice::TakeOlder,
       {"1|Bhor|2|2", "1|Saanjh|2|1"},
       {"1|1|older astai", "1|2|older antara", "2|1|bhor astai", "2|2|bhor antara"},
       {"13|Mine|249", "14|Other|252"},
       {"Up|older up", "Down|older down"},
       0, "14"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.choice));
    TearDown();
    SetUp();
    Rows clashes;
    const CarryOverCounts counts = fCarryOverUserData(older(), {[&](const std::string& clash) {
                                                                 clashes.push_back(clash);
                                                                 return c.choice;
                                                               },
                                                               true});
    EXPECT_EQ(clashes, (Rows{"the composition 'saanjh' of raga 1", "the scale 'Mine'", "the pattern 'Up'"}));
    EXPECT_EQ(rows("Raga - Additional Information", {"Raga Index", "Add Info", "Add Info Type", "Notation Index"}),
              c.items);
    EXPECT_EQ(rows("Raga - Composition Notations", {"Notation Index", "Composition Part", "Notation"}), c.notations);
    EXPECT_EQ(rows("Scale Shift Specs", {"NPSetId", "NPSetName", "NewSPC"}), c.scales);
    EXPECT_EQ(rows("User Patterns", {"PatternName", "PatternPhrase"}, ""), c.patterns);
    EXPECT_EQ(rows("Raga - ALT Phrases", {"RagaIndex", "PhraseType", "NotesPhrase", "DurationPhrase"}),
              (Rows{"1|1|S R,G M|1 1,2 2", "2|3|P D|1 1"}));
    EXPECT_EQ(counts.keptCurrent, c.keptCurrent);
    EXPECT_TRUE(counts.parameters);
    auto parameter = gDbB->openRecordset("User Parameters", RecordsetType::Table);
    parameter->setIndex("PrimaryKey");
    parameter->seek("=", {"CurrMusicSetId"});
    EXPECT_EQ(parameter->field("Parameter Value").asText(), c.musicSet);
    parameter->seek("=", {"DelayMO"});
    EXPECT_EQ(parameter->field("Parameter Value").asText(), "0") << "carried as this version reads it";
  }
}

// A scale deleted here keeps its id from being given again: carried scales
// take the ids after the highest ever given here, and the older store's own
// mark is not carried.
TEST_F(CarryOverTest, ACarriedScaleTakesNoIdEverGivenHere) {
  gDbB->execute(R"(INSERT INTO "User Parameters" VALUES ('LastScaleId', '20');)");
  fCarryOverUserData(older(std::string(kOlderRows) +
                           R"(INSERT INTO "User Parameters" VALUES ('LastScaleId', '99');)"),
                     {[](const std::string&) { return ClashChoice::KeepBoth; }, true});
  EXPECT_EQ(rows("Scale Shift Specs", {"NPSetId", "NPSetName"}),
            (Rows{"13|Mine", "21|Mine (2)", "22|Other"}));
  EXPECT_EQ(fNextScaleId(*gDbB), 23);
}

// Files that cannot be carried over are named in one message, and the
// current store is left byte for byte as it was.
TEST_F(CarryOverTest, RefusesWhatItCannotCarryAndChangesNothing) {
  const std::string text = (dir_ / "notes.nvy").string();
  std::ofstream(text) << "These are my notes, not a store.\n" << std::string(4000, 'x');
  const std::string library = (dir_ / "mrA.nvy").string();
  makeStore(library, "", "CREATE TABLE NVTips (TipId INTEGER PRIMARY KEY, Tip TEXT);");
  const std::string newer = older("PRAGMA user_version = 9;");
  const std::string damaged = (dir_ / "damaged.nvy").string();
  makeStore(damaged, kOlderRows);
  {
    std::fstream bytes(damaged, std::ios::in | std::ios::out | std::ios::binary);
    bytes.seekp(4096 * 3 + 8);
    bytes << std::string(600, '\x7f');
  }
  const struct { std::string path; const char* says; } cases[] = {
      {gStoreBPath, "is the user file Nadavik is using now"},
      {text, "cannot be read as a Nadavik user file"},
      {(dir_ / "missing.nvy").string(), "cannot be read as a Nadavik user file"},
      {library, "is not a Nadavik user file: it has no table 'User Parameters'"},
      {newer, "was written by a newer version of Nadavik (file version 9; this version reads up to 2)"},
      {damaged, "is damaged: its integrity check failed"},
  };
  const Rows before = everything();
  for (const auto& c : cases) {
    windows_.messages.clear();
    windows_.fileToOpen = c.path;
    sCarryOverFromOlderInstallation();
    ASSERT_EQ(windows_.messages.size(), 1u) << c.path;
    EXPECT_NE(windows_.messages[0].text.find(c.says), std::string::npos) << windows_.messages[0].text;
    EXPECT_NE(windows_.messages[0].text.find("Nothing was changed."), std::string::npos) << c.path;
  }
  EXPECT_EQ(everything(), before);
}

// A row the current store cannot take, reached after others were written,
// undoes the whole carry: the user is told, and the store is as it was.
TEST_F(CarryOverTest, AFaultPartWayWritesNothing) {
  std::string schema = kUserStoreSchema;
  const std::string strict = "\"Add Info\" TEXT COLLATE NOCASE NOT NULL";
  schema.replace(schema.find(strict), strict.size(), "\"Add Info\" TEXT COLLATE NOCASE");
  windows_.fileToOpen = older(std::string(kOlderRows) +
                                  "INSERT INTO \"Raga - Additional Information\" VALUES (2, NULL, 2, 0);",
                              schema);
  windows_.choiceAnswers = {0, 0, 0};
  const Rows before = everything();
  sCarryOverFromOlderInstallation();
  ASSERT_EQ(windows_.messages.size(), 2u);  // the settings question, then the outcome
  EXPECT_EQ(windows_.messages[1].text.rfind("Nothing was carried over from '" + windows_.fileToOpen + "'", 0), 0u)
      << windows_.messages[1].text;
  EXPECT_EQ(everything(), before);
}

// A store made before versions were kept is upgraded once, after a backup;
// one of a newer version is refused and left as it is.
TEST_F(CarryOverTest, AnOlderUserStoreIsUpgradedOnceAfterABackupAndANewerOneIsLeftAlone) {
  gDbB->execute("PRAGMA user_version = 0");
  ASSERT_TRUE(fUpgradeUserStore(*gDbB));
  EXPECT_EQ(fUserStoreVersion(*gDbB), kUserStoreVersion);
  const fs::path backup = gStoreBPath + ".v0.bak";
  ASSERT_TRUE(fs::exists(backup));
  EXPECT_EQ(fUserStoreVersion(*platform::defaultWorkspace().openDatabase(backup.string(), false, true, "")), 0);
  fs::remove(backup);
  ASSERT_TRUE(fUpgradeUserStore(*gDbB));
  EXPECT_FALSE(fs::exists(backup)) << "an upgraded store is not upgraded again";

  gDbB->execute("PRAGMA user_version = 3");
  const Rows before = everything();
  EXPECT_FALSE(fUpgradeUserStore(*gDbB));
  ASSERT_EQ(windows_.messages.size(), 1u);
  EXPECT_NE(windows_.messages[0].text.find("written by a newer version of Nadavik"), std::string::npos);
  EXPECT_EQ(fUserStoreVersion(*gDbB), 3);
  EXPECT_EQ(everything(), before);
}

}  // namespace
