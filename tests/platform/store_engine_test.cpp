// Tests of the SQLite store engine on temporary files: opening rules,
// exclusivity (also against a second process), table-type navigation and
// Seek, query recordsets and their counts, writes and their durability.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "platform/store.h"

namespace {

using platform::RecordsetType;
using platform::StoreError;
using platform::Value;
namespace fs = std::filesystem;

const char* kSchema = R"(
CREATE TABLE "RagaNameList" ("Raga" TEXT NOT NULL, "Raga Index" INTEGER NOT NULL, "Level" INTEGER,
  PRIMARY KEY ("Raga"));
CREATE UNIQUE INDEX "RagaIndex" ON "RagaNameList" ("Raga Index");
INSERT INTO "RagaNameList" VALUES ('Yaman', 3, 1), ('Bhairav', 1, 1), ('Kafi', 2, 2),
  ('Todi', 5, 3), ('Desh', 4, 2);
CREATE TABLE "Raga - ALT Phrases" ("RagaIndex" INTEGER NOT NULL, "PhraseType" INTEGER NOT NULL,
  "NotesPhrase" TEXT, "DurationPhrase" TEXT, PRIMARY KEY ("RagaIndex", "PhraseType"));
INSERT INTO "Raga - ALT Phrases" VALUES (3, 2, 'S R', '1 1'), (3, 1, 'N R G', NULL),
  (1, 1, '', '2');
CREATE TABLE "User Parameters" ("Parameter Name" TEXT NOT NULL, "Parameter Value" TEXT,
  PRIMARY KEY ("Parameter Name"));
INSERT INTO "User Parameters" VALUES ('SortingMode', NULL), ('LastTip', '');
CREATE TABLE "Empty" ("Id" INTEGER PRIMARY KEY, "Name" TEXT);
CREATE INDEX "ByLevel" ON "RagaNameList" ("Level" DESC);
CREATE TABLE "User Patterns" ("PatternId" INTEGER, "PatternName" TEXT);
CREATE INDEX "PatternByName" ON "User Patterns" ("PatternName");
INSERT INTO "User Patterns" VALUES (1, NULL), (2, 'b'), (3, NULL), (4, 'a'), (5, 'a');
)";

// A temporary directory with a small store, removed at the end.
class StoreEngine : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "nvstoreXXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    dir_ = pattern;
    path_ = (dir_ / "store.nvy").string();
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, kSchema, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
  }
  void TearDown() override { fs::remove_all(dir_); }

  std::unique_ptr<platform::Database> open(bool readOnly, bool exclusive = true) {
    return platform::defaultWorkspace().openDatabase(path_, exclusive, readOnly, "");
  }

  fs::path dir_;
  std::string path_;
};

long errorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const StoreError& error) {
    return error.number;
  }
  return 0;
}

// Runs the probe process on path; its output, with its standard error
// after the standard output, and its exit status in *status.
std::string probe(const std::string& path, const char* mode, int* status = nullptr) {
  std::string command =
      std::string(NADAVIK_STORE_OPEN_PROBE) + " '" + path + "' " + mode + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  char buffer[512];
  while (fgets(buffer, sizeof buffer, pipe)) output += buffer;
  const int ended = pclose(pipe);
  if (status) *status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
  return output;
}

std::string fileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> column(platform::Recordset& rs, const std::string& name) {
  std::vector<std::string> values;
  for (; !rs.eof(); rs.moveNext()) values.push_back(rs.field(name).asText());
  return values;
}

// --- Value conversions -------------------------------------------------------

TEST(StoreValue, TextToNumberTakesTheLeadingNumber) {
  struct Row {
    const char* text;
    std::int64_t integer;
    double real;
  };
  const Row rows[] = {
      {"12", 12, 12.0},
      {"  -7", -7, -7.0},
      {"+7", 7, 7.0},
      {"12abc", 12, 12.0},
      {"3.25 beats", 3, 3.25},
      {"2.5", 2, 2.5},
      {"3.5", 4, 3.5},
      {"-3.5x", -4, -3.5},
      {".5", 0, 0.5},
      {"1e3", 1000, 1000.0},
      {"1e", 1, 1.0},
      {"2E-1", 0, 0.2},
      {"abc", 0, 0.0},
      {"", 0, 0.0},
      {"-", 0, 0.0},
      {".", 0, 0.0},
      {"12.", 12, 12.0},
      {"9223372036854775807", std::numeric_limits<std::int64_t>::max(), 9.2233720368547758e18},
      {"99999999999999999999", std::numeric_limits<std::int64_t>::max(), 1e20},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(Value(row.text).asInteger(), row.integer);
    EXPECT_DOUBLE_EQ(Value(row.text).asDouble(), row.real);
  }
}

TEST(StoreValue, NullIsDistinctFromEmptyText) {
  EXPECT_TRUE(Value().isNull());
  EXPECT_FALSE(Value("").isNull());
  EXPECT_NE(Value(), Value(""));
  EXPECT_EQ(Value().asText(), "");
  EXPECT_EQ(Value().asInteger(), 0);
  EXPECT_EQ(Value().asDouble(), 0.0);
}

TEST(StoreValue, NumbersToText) {
  EXPECT_EQ(Value(42).asText(), "42");
  EXPECT_EQ(Value(std::int64_t{-5}).asText(), "-5");
  EXPECT_EQ(Value(0.5).asText(), "0.5");
  EXPECT_EQ(Value(1.0 / 3).asText(), "0.333333333333333");
  EXPECT_EQ(Value(2.5).asInteger(), 2);  // halves go to the even neighbour
  EXPECT_EQ(Value(-0.6).asInteger(), -1);
}

// --- Opening -------------------------------------------------------------------

TEST_F(StoreEngine, MissingFileIsNotCreated) {
  std::string missing = (dir_ / "mrB.nvy").string();
  try {
    platform::defaultWorkspace().openDatabase(missing, true, false, "");
    FAIL() << "opened a missing file";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.number, 3024);
    EXPECT_NE(std::string(error.what()).find(missing), std::string::npos);
  }
  EXPECT_FALSE(fs::exists(missing));
}

TEST_F(StoreEngine, FileThatIsNotAStoreIsRefusedAndLeftAlone) {
  const std::string garbage = "This is a text file, not a store.\n" + std::string(2000, 'x');
  for (bool readOnly : {true, false}) {
    SCOPED_TRACE(readOnly ? "read-only" : "writable");
    std::string path = (dir_ / "garbage.nvy").string();
    std::ofstream(path, std::ios::binary) << garbage;
    try {
      platform::defaultWorkspace().openDatabase(path, true, readOnly, "");
      FAIL() << "opened a text file";
    } catch (const StoreError& error) {
      EXPECT_EQ(error.number, 3051);
      EXPECT_NE(std::string(error.what()).find(path), std::string::npos);
    }
    EXPECT_EQ(fileBytes(path), garbage);
    EXPECT_FALSE(fs::exists(path + "-journal"));
    // The failed open left no hold behind.
    fs::copy_file(path_, path, fs::copy_options::overwrite_existing);
    EXPECT_NO_THROW(platform::defaultWorkspace().openDatabase(path, true, readOnly, ""));
  }
}

TEST_F(StoreEngine, EmptyFileIsNotAStore) {
  std::string path = (dir_ / "empty.nvy").string();
  std::ofstream{path};
  EXPECT_EQ(errorOf([&] { platform::defaultWorkspace().openDatabase(path, true, false, ""); }),
            3051);
  EXPECT_EQ(fs::file_size(path), 0u);
}

TEST_F(StoreEngine, DamagedPagesAreReportedWhenRead) {
  {
    auto store = open(false);
    store->execute(
        "CREATE TABLE Big (Id INTEGER PRIMARY KEY, Text TEXT);"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500)"
        " INSERT INTO Big SELECT i, printf('%0100d', i) FROM n;");
  }
  {
    // Overwrite everything after the first page (the header and schema stay).
    std::fstream file(path_, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(4096);
    file << std::string(static_cast<std::size_t>(fs::file_size(path_)) - 4096, '\xA5');
  }
  auto store = open(true);
  EXPECT_EQ(errorOf([&] {
              auto rs = store->openRecordset("SELECT count(*) FROM Big;", RecordsetType::Snapshot);
            }),
            3049);
}

TEST_F(StoreEngine, SecondExclusiveOpenInTheSameProcessIsRefused) {
  auto first = open(false);
  try {
    open(true);
    FAIL() << "second open succeeded";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.number, 3045);
    EXPECT_NE(std::string(error.what()).find(path_), std::string::npos);
  }
  EXPECT_EQ(errorOf([&] { open(true, false); }), 3045);
  // The refused opens did not disturb the first one.
  auto rs = first->openRecordset("RagaNameList", RecordsetType::Table);
  EXPECT_EQ(rs->recordCount(), 5);
  first->close();
  EXPECT_NO_THROW(open(false));
}

TEST_F(StoreEngine, SharedOpensAgreeButExcludeAnExclusiveOne) {
  auto first = open(true, false);
  auto second = open(true, false);
  EXPECT_EQ(errorOf([&] { open(true, true); }), 3045);
}

TEST_F(StoreEngine, SecondProcessIsRefusedWhileTheStoreIsOpen) {
  {
    auto store = open(false);
    std::string answer = probe(path_, "ro");
    EXPECT_EQ(answer.substr(0, 5), "3045 ") << answer;
    EXPECT_NE(answer.find(path_), std::string::npos);
    store->close();
    EXPECT_EQ(probe(path_, "rw"), "0\n");
  }
  auto readOnly = open(true);
  EXPECT_EQ(probe(path_, "rw").substr(0, 5), "3045 ");
}

// The program's stores live in objects with static storage; one still open
// when the process ends is released by its destructor, after the engine's
// own statics may be gone. Run under AddressSanitizer, this catches a release
// that touches freed memory.
TEST_F(StoreEngine, AStoreStillOpenAtExitIsReleasedCleanly) {
  int status = -1;
  EXPECT_EQ(probe(path_, "keep", &status), "0\n");
  EXPECT_EQ(status, 0);
}

// --- Table-type recordsets -------------------------------------------------

TEST_F(StoreEngine, TableOrderFollowsTheCurrentIndex) {
  auto store = open(true);
  auto rs = store->openRecordset("RagaNameList", RecordsetType::Table);
  EXPECT_EQ(column(*rs, "Raga"),
            (std::vector<std::string>{"Yaman", "Bhairav", "Kafi", "Todi", "Desh"}));
  rs->setIndex("PrimaryKey");
  EXPECT_EQ(column(*rs, "Raga"),
            (std::vector<std::string>{"Bhairav", "Desh", "Kafi", "Todi", "Yaman"}));
  rs->setIndex("RagaIndex");
  EXPECT_EQ(column(*rs, "Raga Index"), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
}

TEST_F(StoreEngine, NullKeysAndDescendingIndexesKeepTheirOrder) {
  auto store = open(true);
  auto patterns = store->openRecordset("User Patterns", RecordsetType::Table);
  patterns->setIndex("PatternByName");
  EXPECT_EQ(column(*patterns, "PatternId"), (std::vector<std::string>{"1", "3", "4", "5", "2"}));
  patterns->seek("=", {"a"});
  patterns->moveNext();
  EXPECT_EQ(patterns->field("PatternId").asInteger(), 5);
  auto ragas = store->openRecordset("RagaNameList", RecordsetType::Table);
  ragas->setIndex("ByLevel");
  EXPECT_EQ(column(*ragas, "Raga"),
            (std::vector<std::string>{"Todi", "Kafi", "Desh", "Yaman", "Bhairav"}));
  ragas->moveLast();
  EXPECT_EQ(ragas->field("Raga").asText(), "Bhairav");
}

TEST_F(StoreEngine, SeekThenMoveNextContinuesInIndexOrder) {
  auto store = open(true);
  auto rs = store->openRecordset("RagaNameList", RecordsetType::Table);
  rs->setIndex("RAGAINDEX");  // index and field names ignore case
  rs->seek("=", {3});
  ASSERT_FALSE(rs->noMatch());
  EXPECT_EQ(rs->field("raga").asText(), "Yaman");
  rs->moveNext();
  EXPECT_EQ(rs->field("Raga").asText(), "Desh");
  rs->moveNext();
  rs->moveNext();
  EXPECT_TRUE(rs->eof());
  EXPECT_EQ(errorOf([&] { rs->moveNext(); }), 3021);
}

TEST_F(StoreEngine, SeekOnLeadingKeyColumnsAndMisses) {
  auto store = open(true);
  auto rs = store->openRecordset("Raga - ALT Phrases", RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {3, 2});
  ASSERT_FALSE(rs->noMatch());
  EXPECT_EQ(rs->field("NotesPhrase").asText(), "S R");
  rs->seek("=", {3});  // the first row of raga 3 in key order
  EXPECT_EQ(rs->field("PhraseType").asInteger(), 1);
  rs->seek("=", {3, 3});
  EXPECT_TRUE(rs->noMatch());
  EXPECT_EQ(errorOf([&] { rs->field("NotesPhrase"); }), 3021);
  rs->seek("=", {Value("1"), Value(1)});  // a text key meets an integer column
  EXPECT_FALSE(rs->noMatch());
}

TEST_F(StoreEngine, NullAndEmptyTextStayApart) {
  auto store = open(true);
  auto rs = store->openRecordset("User Parameters", RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {"SortingMode"});
  EXPECT_TRUE(rs->field("Parameter Value").isNull());
  rs->seek("=", {"LastTip"});
  EXPECT_EQ(rs->field("Parameter Value"), Value(""));
  auto query = store->openRecordset(
      "SELECT [Parameter Value] FROM [User Parameters] ORDER BY [Parameter Name];",
      RecordsetType::Snapshot);
  EXPECT_EQ(query->field("Parameter Value"), Value(""));
  query->moveNext();
  EXPECT_TRUE(query->field("Parameter Value").isNull());
}

TEST_F(StoreEngine, MisuseGivesTheErrorNumbersTheTrapKnows) {
  auto store = open(true);
  auto rs = store->openRecordset("RagaNameList", RecordsetType::Table);
  struct Row {
    const char* what;
    std::function<void()> action;
    long number;
  };
  const Row rows[] = {
      {"seek without index", [&] { rs->seek("=", {1}); }, 3019},
      {"unknown index", [&] { rs->setIndex("Level"); }, 3015},
      {"unknown field", [&] { rs->field("Raga Name"); }, 3265},
      {"field number out of range", [&] { rs->fieldAt(3); }, 3265},
      {"unknown table", [&] { store->openRecordset("Ragas", RecordsetType::Table); }, 3078},
      {"query on unknown table",
       [&] { store->openRecordset("SELECT x FROM [No Table];", RecordsetType::Dynaset); }, 3078},
      {"bad query expression",
       [&] {
         store->openRecordset("SELECT Raga FROM RagaNameList WHERE ((Level = ;",
                              RecordsetType::Dynaset);
       },
       3075},
      {"unknown column in query",
       [&] {
         store->openRecordset("SELECT [Set Name] FROM RagaNameList;", RecordsetType::Dynaset);
       },
       3075},
      {"write on read-only store", [&] { rs->addNew(); }, 3027},
      {"edit on read-only store", [&] { rs->edit(); }, 3027},
      {"statement on read-only store", [&] { store->execute("DELETE FROM RagaNameList;"); }, 3027},
      {"update without edit", [&] { rs->update(); }, 3020},
  };
  for (const Row& row : rows) EXPECT_EQ(errorOf(row.action), row.number) << row.what;
  rs->setIndex("PrimaryKey");
  EXPECT_EQ(errorOf([&] { rs->seek(">=", {"K"}); }), 3251);
  EXPECT_EQ(errorOf([&] { rs->seek("=", {"Kafi", 1}); }), 3251);
}

TEST_F(StoreEngine, EmptyTableIsAtBothEnds) {
  auto store = open(true);
  auto rs = store->openRecordset("Empty", RecordsetType::Table);
  EXPECT_TRUE(rs->eof());
  EXPECT_TRUE(rs->bof());
  EXPECT_EQ(rs->recordCount(), 0);
  rs->moveLast();
  rs->moveFirst();
  EXPECT_TRUE(rs->eof());
  EXPECT_EQ(errorOf([&] { rs->field("Name"); }), 3021);
}

// --- Query recordsets ------------------------------------------------------

TEST_F(StoreEngine, QueryCountsTheRowsVisited) {
  auto store = open(true);
  auto rs = store->openRecordset("SELECT Raga FROM RagaNameList WHERE Level <= 2 ORDER BY Raga;",
                                 RecordsetType::Dynaset);
  EXPECT_EQ(rs->recordCount(), 1);
  rs->moveNext();
  EXPECT_EQ(rs->recordCount(), 2);
  rs->moveLast();
  EXPECT_EQ(rs->recordCount(), 4);
  EXPECT_EQ(rs->field("Raga").asText(), "Yaman");
  rs->moveFirst();
  EXPECT_EQ(rs->recordCount(), 4);
  EXPECT_EQ(column(*rs, "Raga"), (std::vector<std::string>{"Bhairav", "Desh", "Kafi", "Yaman"}));

  auto none = store->openRecordset("SELECT Raga FROM RagaNameList WHERE Level = 9;",
                                   RecordsetType::Snapshot);
  EXPECT_TRUE(none->eof());
  none->moveLast();
  EXPECT_EQ(none->recordCount(), 0);
  EXPECT_EQ(errorOf([&] { none->moveNext(); }), 3021);
}

TEST_F(StoreEngine, QueryRecordsetsAreNotWritable) {
  auto store = open(false);
  auto rs = store->openRecordset("RagaNameList", RecordsetType::Dynaset);
  EXPECT_EQ(rs->fieldCount(), 3);
  EXPECT_EQ(errorOf([&] { rs->edit(); }), 3251);
  EXPECT_EQ(errorOf([&] { rs->seek("=", {1}); }), 3251);
  EXPECT_EQ(
      errorOf([&] { store->openRecordset("DELETE FROM RagaNameList;", RecordsetType::Dynaset); }),
      3251);
  auto table = store->openRecordset("RagaNameList", RecordsetType::Table);
  EXPECT_EQ(table->recordCount(), 5);
}

// --- Writes ------------------------------------------------------------------

TEST_F(StoreEngine, WritesSurviveReopening) {
  {
    auto store = open(false);
    auto rs = store->openRecordset("User Parameters", RecordsetType::Table);
    rs->setIndex("PrimaryKey");
    rs->seek("=", {"SortingMode"});
    rs->edit();
    rs->setField("Parameter Value", Value("3"));
    EXPECT_TRUE(rs->field("Parameter Value").isText());  // the change under way
    rs->update();
    EXPECT_EQ(rs->field("Parameter Value").asInteger(), 3);
    rs->addNew();
    rs->setField("Parameter Name", Value("DelayC"));
    rs->update();
    EXPECT_EQ(rs->field("Parameter Name").asText(), "SortingMode");  // stays where it was
    EXPECT_EQ(rs->recordCount(), 3);
    store->close();
    EXPECT_EQ(errorOf([&] { rs->moveFirst(); }), 3420);
  }
  auto store = open(true);
  auto rs = store->openRecordset("User Parameters", RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {"DelayC"});
  ASSERT_FALSE(rs->noMatch());
  EXPECT_TRUE(rs->field("Parameter Value").isNull());
  rs->seek("=", {"SortingMode"});
  EXPECT_EQ(rs->field("Parameter Value"), Value("3"));
}

TEST_F(StoreEngine, UpdateIsCommittedWhenItReturns) {
  // A child process writes and dies at once, closing nothing.
  pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    auto store = open(false);
    auto rs = store->openRecordset("User Parameters", RecordsetType::Table);
    rs->setIndex("PrimaryKey");
    rs->seek("=", {"LastTip"});
    rs->edit();
    rs->setField("Parameter Value", Value(7));
    rs->update();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  auto store = open(true);
  auto rs = store->openRecordset("User Parameters", RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {"LastTip"});
  EXPECT_EQ(rs->field("Parameter Value"), Value("7"));  // text, as the column holds
}

TEST_F(StoreEngine, DuplicateKeyIsRefusedAndChangesNothing) {
  auto store = open(false);
  auto rs = store->openRecordset("RagaNameList", RecordsetType::Table);
  rs->addNew();
  rs->setField("Raga", Value("Kafi"));
  rs->setField("Raga Index", Value(9));
  EXPECT_EQ(errorOf([&] { rs->update(); }), 3022);
  rs->addNew();
  rs->setField("Raga", Value("Marwa"));
  EXPECT_EQ(errorOf([&] { rs->update(); }), 3314);  // Raga Index is required
  EXPECT_EQ(rs->recordCount(), 5);
  EXPECT_EQ(errorOf([&] { rs->setField("Level", Value(1)); }), 3020);
}

TEST_F(StoreEngine, DeleteLeavesTheGapAndMoveNextGoesOn) {
  auto store = open(false);
  auto rs = store->openRecordset("RagaNameList", RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {"Kafi"});
  rs->remove();
  EXPECT_EQ(errorOf([&] { rs->field("Raga"); }), 3021);
  EXPECT_EQ(rs->recordCount(), 4);
  rs->moveNext();
  EXPECT_EQ(rs->field("Raga").asText(), "Todi");
  rs->seek("=", {"Yaman"});
  rs->remove();
  rs->moveNext();
  EXPECT_TRUE(rs->eof());
  rs->moveFirst();
  EXPECT_EQ(column(*rs, "Raga"), (std::vector<std::string>{"Bhairav", "Desh", "Todi"}));
}

TEST_F(StoreEngine, EditOfARowDeletedElsewhereFails) {
  auto store = open(false);
  auto editor = store->openRecordset("RagaNameList", RecordsetType::Table);
  auto deleter = store->openRecordset("RagaNameList", RecordsetType::Table);
  editor->edit();  // on Yaman, the first row
  deleter->remove();
  editor->setField("Level", Value(2));
  EXPECT_EQ(errorOf([&] { editor->update(); }), 3021);
  EXPECT_EQ(errorOf([&] { editor->field("Raga"); }), 3021);
  EXPECT_EQ(editor->recordCount(), 4);
}

TEST_F(StoreEngine, RecordCountOfATableFollowsWritesOfOtherRecordsets) {
  auto store = open(false);
  auto reader = store->openRecordset("RagaNameList", RecordsetType::Table);
  reader->setIndex("PrimaryKey");
  reader->moveNext();  // reads the order
  auto writer = store->openRecordset("RagaNameList", RecordsetType::Table);
  writer->addNew();
  writer->setField("Raga", Value("Abhogi"));
  writer->setField("Raga Index", Value(6));
  writer->update();
  EXPECT_EQ(reader->recordCount(), 6);
  reader->moveFirst();
  EXPECT_EQ(reader->field("Raga").asText(), "Abhogi");
}

}  // namespace
