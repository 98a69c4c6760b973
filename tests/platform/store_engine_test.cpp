// Tests of the SQLite store engine on temporary files: value conversions,
// the opening rules and exclusivity (also against a second process), table
// order and Seek, the error numbers of misuse, and the durability of
// writes: committed by Update, transactions all or nothing. (The counts of
// queries are seen through the look-ups and the raga grid.)
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>

#include "platform/store.h"
#include "../support/helpers.h"

namespace {

using platform::RecordsetType;
using platform::StoreError;
using platform::Value;
using Names = std::vector<std::string>;
namespace fs = std::filesystem;

const char* kSchema = R"(
CREATE TABLE "RagaNameList" ("Raga" TEXT NOT NULL, "Raga Index" INTEGER NOT NULL, "Level" INTEGER,
  PRIMARY KEY ("Raga"));
CREATE UNIQUE INDEX "RagaIndex" ON "RagaNameList" ("Raga Index");
CREATE INDEX "ByLevel" ON "RagaNameList" ("Level" DESC);
INSERT INTO "RagaNameList" VALUES ('Yaman', 3, 1), ('Bhairav', 1, 1), ('Kafi', 2, 2),
  ('Todi', 5, 3), ('Desh', 4, 2);
CREATE TABLE "Raga - ALT Phrases" ("RagaIndex" INTEGER NOT NULL, "PhraseType" INTEGER NOT NULL,
  "NotesPhrase" TEXT, PRIMARY KEY ("RagaIndex", "PhraseType"));
INSERT INTO "Raga - ALT Phrases" VALUES (3, 2, 'S R'), (3, 1, 'N R G'), (1, 1, '');
CREATE TABLE "User Parameters" ("Parameter Name" TEXT NOT NULL, "Parameter Value" TEXT,
  PRIMARY KEY ("Parameter Name"));
INSERT INTO "User Parameters" VALUES ('SortingMode', NULL), ('LastTip', '');
CREATE TABLE "Empty" ("Id" INTEGER PRIMARY KEY, "Name" TEXT);
CREATE TABLE "User Patterns" ("PatternId" INTEGER, "PatternName" TEXT);
CREATE INDEX "PatternByName" ON "User Patterns" ("PatternName");
INSERT INTO "User Patterns" VALUES (1, NULL), (2, 'b'), (3, NULL), (4, 'a'), (5, 'a');
)";

constexpr auto errorOf = errorNumberOf<StoreError>;

Names column(platform::Recordset& rs, const std::string& name) {
  Names values;
  for (; !rs.eof(); rs.moveNext()) values.push_back(rs.field(name).asText());
  return values;
}

// A temporary directory with a small store, removed at the end.
class StoreEngine : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = dir_.file("store.nvy");
    platform::defaultWorkspace().createDatabase(path_, kSchema);
  }
  std::unique_ptr<platform::Database> open(bool readOnly, bool exclusive = true) {
    return platform::defaultWorkspace().openDatabase(path_, exclusive, readOnly, "");
  }
  // The parameters table on its primary key, at the row of `name`.
  std::unique_ptr<platform::Recordset> parameter(platform::Database& store, const char* name) {
    auto rs = store.openRecordset("User Parameters", RecordsetType::Table);
    rs->setIndex("PrimaryKey");
    rs->seek("=", {name});
    return rs;
  }
  // What a second process gets when it opens the store exclusively: "0" or
  // the error number and message (see store_open_probe.cpp), with its
  // standard error after its output; its exit status in *status.
  std::string probe(const char* mode, int* status = nullptr) {
    const std::string command =
        std::string(NADAVIK_STORE_OPEN_PROBE) + " '" + path_ + "' " + mode + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    char buffer[512];
    while (fgets(buffer, sizeof buffer, pipe)) output += buffer;
    const int ended = pclose(pipe);
    if (status) *status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    return output;
  }

  TempFolder dir_;
  std::string path_;
};

// Text to number takes the leading number (halves to even, beyond the
// range the largest); Null is not the empty text; numbers to text.
TEST(StoreValue, ConversionsBetweenTextAndNumbers) {
  const std::int64_t most = std::numeric_limits<std::int64_t>::max();
  const struct {
    const char* text;
    std::int64_t integer;
    double real;
  } rows[] = {{"12", 12, 12.0},   {"  -7", -7, -7.0}, {"+7", 7, 7.0},       {"3.25 beats", 3, 3.25},
              {"2.5", 2, 2.5},    {"3.5", 4, 3.5},    {"-3.5x", -4, -3.5},  {".5", 0, 0.5},
              {"1e3", 1000, 1e3}, {"1e", 1, 1.0},     {"2E-1", 0, 0.2},     {"abc", 0, 0.0},
              {"", 0, 0.0},       {"-", 0, 0.0},      {".", 0, 0.0},        {"12.", 12, 12.0},
              {"9223372036854775807", most, 9.2233720368547758e18},
              {"99999999999999999999", most, 1e20}};
  for (const auto& row : rows) {
    EXPECT_EQ(Value(row.text).asInteger(), row.integer) << row.text;
    EXPECT_DOUBLE_EQ(Value(row.text).asDouble(), row.real) << row.text;
  }
  EXPECT_TRUE(Value().isNull() && !Value("").isNull());
  EXPECT_EQ(Value().asText() + std::to_string(Value().asInteger() + Value().asDouble()), "0.000000");
  const std::pair<Value, const char*> texts[] = {{Value(42), "42"}, {Value(std::int64_t{-5}), "-5"},
                                                 {Value(0.5), "0.5"}, {Value(1.0 / 3), "0.333333333333333"}};
  for (const auto& [value, text] : texts) EXPECT_EQ(value.asText(), text);
  EXPECT_EQ(Value(2.5).asInteger(), 2);  // halves go to the even neighbour
  EXPECT_EQ(Value(-0.6).asInteger(), -1);
}

// A missing file is not created and a file that is not a store is refused,
// named in the message and left as it was; damaged pages fail when read.
TEST_F(StoreEngine, FilesThatAreNotWholeStoresAreRefusedAndLeftAlone) {
  const std::string garbage = "This is a text file, not a store.\n" + std::string(2000, 'x');
  const struct { const char* name; const char* content; /* nullptr: no file */ long number; } cases[] = {
      {"mrB.nvy", nullptr, 3024}, {"garbage.nvy", garbage.c_str(), 3051}, {"empty.nvy", "", 3051}};
  for (const auto& c : cases)
    for (bool readOnly : {true, false}) {
      SCOPED_TRACE(std::string(c.name) + (readOnly ? " read-only" : " writable"));
      const std::string path = dir_.file(c.name);
      if (c.content) std::ofstream(path, std::ios::binary) << c.content;
      try {
        platform::defaultWorkspace().openDatabase(path, true, readOnly, "");
        ADD_FAILURE() << "opened";
      } catch (const StoreError& error) {
        EXPECT_EQ(error.number, c.number);
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos);
      }
      EXPECT_EQ(fs::exists(path), c.content != nullptr);
      EXPECT_EQ(fileText(path), c.content ? c.content : "");
      EXPECT_FALSE(fs::exists(path + "-journal"));
      if (!c.content) continue;  // and no hold is left on the path
      fs::copy_file(path_, path, fs::copy_options::overwrite_existing);
      EXPECT_NO_THROW(platform::defaultWorkspace().openDatabase(path, true, readOnly, ""));
      fs::remove(path);
    }
  open(false)->execute(
      "CREATE TABLE Big (Id INTEGER PRIMARY KEY, Text TEXT);"
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500)"
      " INSERT INTO Big SELECT i, printf('%0100d', i) FROM n;");
  {
    // Overwrite everything after the first page (the header and schema stay).
    std::fstream file(path_, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(4096);
    file << std::string(static_cast<std::size_t>(fs::file_size(path_)) - 4096, '\xA5');
  }
  auto store = open(true);
  EXPECT_EQ(errorOf([&] { store->openRecordset("SELECT count(*) FROM Big;", RecordsetType::Snapshot); }),
            3049);
}

// An exclusive open excludes every other open, in this process and in a
// second one; shared opens agree with each other but exclude an exclusive
// one. Refused opens do not disturb the open store.
TEST_F(StoreEngine, OpensExcludeEachOtherAsAskedAlsoAcrossProcesses) {
  {
    auto first = open(false);
    try {
      open(true);
      ADD_FAILURE() << "second open succeeded";
    } catch (const StoreError& error) {
      EXPECT_EQ(error.number, 3045);
      EXPECT_NE(std::string(error.what()).find(path_), std::string::npos);
    }
    EXPECT_EQ(errorOf([&] { open(true, false); }), 3045);
    const std::string answer = probe("ro");
    EXPECT_EQ(answer.substr(0, 5), "3045 ") << answer;
    EXPECT_NE(answer.find(path_), std::string::npos);
    EXPECT_EQ(first->openRecordset("RagaNameList", RecordsetType::Table)->recordCount(), 5);
    first->close();
    EXPECT_EQ(probe("rw"), "0\n");
  }
  {
    auto readOnly = open(true);
    EXPECT_EQ(probe("rw").substr(0, 5), "3045 ");
  }
  auto first = open(true, false);
  auto second = open(true, false);
  EXPECT_EQ(errorOf([&] { open(true, true); }), 3045);
}

// The program's stores live in objects with static storage; one still open
// when the process ends is released by its destructor, after the engine's
// own statics may be gone. Run under AddressSanitizer, this catches a release
// that touches freed memory.
TEST_F(StoreEngine, AStoreStillOpenAtExitIsReleasedCleanly) {
  int status = -1;
  EXPECT_EQ(probe("keep", &status), "0\n");
  EXPECT_EQ(status, 0);
}

// A table-type recordset runs in the order of its current index (none:
// the order of insertion; Null keys first; descending kept). Seek finds the
// first row of the key (index names ignore case, a text key meets an
// integer column, leading key columns suffice) and MoveNext goes on in
// index order. (Null and the empty text read apart: parameters_test's
// defaults for DelayMO.)
TEST_F(StoreEngine, TablesRunInIndexOrderAndSeekFindsTheFirstRowOfTheKey) {
  auto store = open(true);
  const struct { const char *table, *index /* "" for none */, *field; Names order; } cases[] = {
      {"RagaNameList", "", "Raga", {"Yaman", "Bhairav", "Kafi", "Todi", "Desh"}},
      {"RagaNameList", "PrimaryKey", "Raga", {"Bhairav", "Desh", "Kafi", "Todi", "Yaman"}},
      {"RagaNameList", "ByLevel", "Raga", {"Todi", "Kafi", "Desh", "Yaman", "Bhairav"}},
      {"User Patterns", "PatternByName", "PatternId", {"1", "3", "4", "5", "2"}},
  };
  for (const auto& c : cases) {
    auto rs = store->openRecordset(c.table, RecordsetType::Table);
    if (*c.index) rs->setIndex(c.index);
    EXPECT_EQ(column(*rs, c.field), c.order) << c.index;
    rs->moveLast();
    EXPECT_EQ(rs->field(c.field).asText(), c.order.back()) << c.index;
  }
  auto patterns = store->openRecordset("User Patterns", RecordsetType::Table);
  patterns->setIndex("PatternByName");
  patterns->seek("=", {"a"});
  patterns->moveNext();
  EXPECT_EQ(patterns->field("PatternId").asInteger(), 5);
  auto ragas = store->openRecordset("RagaNameList", RecordsetType::Table);
  ragas->setIndex("RAGAINDEX");
  ragas->seek("=", {3});
  EXPECT_EQ(ragas->field("raga").asText(), "Yaman");
  ragas->moveNext();
  EXPECT_EQ(ragas->field("Raga").asText(), "Desh");
  auto phrases = store->openRecordset("Raga - ALT Phrases", RecordsetType::Table);
  phrases->setIndex("PrimaryKey");
  phrases->seek("=", {3, 2});
  EXPECT_EQ(phrases->field("NotesPhrase").asText(), "S R");
  phrases->seek("=", {3});
  EXPECT_EQ(phrases->field("PhraseType").asInteger(), 1);
  phrases->seek("=", {3, 3});
  EXPECT_TRUE(phrases->noMatch());
  phrases->seek("=", {Value("1"), Value(1)});
  EXPECT_FALSE(phrases->noMatch());
  auto empty = store->openRecordset("Empty", RecordsetType::Table);
  empty->moveLast();
  EXPECT_TRUE(empty->eof() && empty->bof() && empty->recordCount() == 0);
}

// Misuse a caller can make, each with its error number (the trap forgives
// some numbers and not others; a bad query and a query on a missing table
// are told apart in lookups_test, where the program meets them). (Queries
// are only read, so no row tries to write through one.)
TEST_F(StoreEngine, MisuseGivesTheErrorNumbersTheTrapKnows) {
  auto store = open(true);
  auto rs = store->openRecordset("RagaNameList", RecordsetType::Table);
  auto none = store->openRecordset("SELECT Raga FROM RagaNameList WHERE Level = 9;", RecordsetType::Snapshot);
  auto empty = store->openRecordset("Empty", RecordsetType::Table);
  auto open = [&](const char* source, RecordsetType type) { store->openRecordset(source, type); };
  const struct { const char* what; std::function<void()> action; long number; } rows[] = {
      {"unknown index", [&] { rs->setIndex("Level"); }, 3015},
      {"unknown field", [&] { rs->field("Raga Name"); }, 3265},
      {"unknown table", [&] { open("Ragas", RecordsetType::Table); }, 3078},
      {"unknown column in query", [&] { open("SELECT [Set Name] FROM RagaNameList;", RecordsetType::Dynaset); },
       3075},
      {"write on read-only store", [&] { rs->addNew(); }, 3027},
      {"statement on read-only store", [&] { store->execute("DELETE FROM RagaNameList;"); }, 3027},
      {"field of an empty table", [&] { empty->field("Name"); }, 3021},
      {"move past the end", [&] { none->moveNext(); }, 3021},
      {"seek other than equal", [&] { rs->setIndex("PrimaryKey"), rs->seek(">=", {"K"}); }, 3251},
      {"field after a missed seek", [&] { rs->seek("=", {"Marwa"}), rs->field("Raga"); }, 3021},
      {"move after the store closed", [&] { store->close(), rs->moveFirst(); }, 3420},
  };
  for (const auto& row : rows) EXPECT_EQ(errorOf(row.action), row.number) << row.what;
}

// Update writes durably before it returns: a child process edits a row,
// adds one and dies at once, closing nothing.
TEST_F(StoreEngine, UpdateIsCommittedWhenItReturns) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    auto store = open(false);
    auto rs = parameter(*store, "LastTip");
    rs->edit();
    rs->setField("Parameter Value", Value(7));
    rs->update();
    rs->addNew();
    rs->setField("Parameter Name", Value("DelayC"));
    rs->update();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  auto store = open(true);
  EXPECT_EQ(parameter(*store, "LastTip")->field("Parameter Value"), Value("7"));  // text, as the column holds
  EXPECT_TRUE(parameter(*store, "DelayC")->field("Parameter Value").isNull());
}

TEST_F(StoreEngine, ATransactionWritesAllOrNothing) {
  auto store = open(false);
  auto rs = parameter(*store, "SortingMode");
  auto write = [&](const char* name, const char* value) {
    rs->seek("=", {name});
    rs->edit();
    rs->setField("Parameter Value", Value(value));
    EXPECT_TRUE(rs->field("Parameter Value").isText());  // the change under way
    rs->update();
  };
  auto valueOf = [&](const char* name) {
    rs->seek("=", {name});
    return rs->field("Parameter Value");
  };
  for (bool commit : {false, true}) {
    platform::Transaction transaction(*store);
    if (!commit) write("SortingMode", "2");
    write("LastTip", commit ? "6" : "5");
    rs->addNew();
    rs->setField("Parameter Name", Value(commit ? "DelayW" : "DelayC"));
    rs->update();
    EXPECT_EQ(rs->field("Parameter Name").asText(), "LastTip");  // stays where it was
    EXPECT_EQ(rs->recordCount(), 3);
    EXPECT_EQ(errorOf([&] { store->beginTrans(); }), 3003);
    if (commit) transaction.commit();
  }  // left without commit: rolled back
  store->close();
  store = open(true);
  rs = parameter(*store, "SortingMode");
  rs->moveFirst();
  EXPECT_EQ(column(*rs, "Parameter Value"), (Names{"", "6", ""}));
  EXPECT_TRUE(valueOf("SortingMode").isNull());
  EXPECT_EQ(rs->recordCount(), 3);
}

// A duplicate key or a missing required value is refused and changes
// nothing. (No procedure deletes rows through a recordset.)
TEST_F(StoreEngine, RefusedWritesChangeNothing) {
  auto store = open(false);
  auto rs = store->openRecordset("RagaNameList", RecordsetType::Table);
  rs->addNew();
  rs->setField("Raga", Value("Kafi"));
  rs->setField("Raga Index", Value(9));
  EXPECT_EQ(errorOf([&] { rs->update(); }), 3022);
  rs->addNew();
  rs->setField("Raga", Value("Marwa"));
  EXPECT_EQ(errorOf([&] { rs->update(); }), 3314);  // Raga Index is required
  EXPECT_EQ(errorOf([&] { rs->setField("Level", Value(1)); }), 3020);
  EXPECT_EQ(rs->recordCount(), 5);
}

}  // namespace
