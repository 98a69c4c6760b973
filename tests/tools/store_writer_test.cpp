// Tests of writing rows into a store: type conversion, faults named by
// source line, rollback, and the all-or-nothing store file.
#include "store_writer.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>

namespace {

const char* kSchema =
    "CREATE TABLE \"Tala - Technical Information\" (\"Tala Id\" INTEGER NOT NULL, "
    "\"Tala Name\" TEXT, \"Beat Count\" INTEGER, \"Ratio\" REAL, PRIMARY KEY (\"Tala Id\"));";

struct MemoryStore {
  sqlite3* db = nullptr;
  MemoryStore() { sqlite3_open(":memory:", &db); }
  ~MemoryStore() { sqlite3_close(db); }
  std::string query(const char* sql) {
    sqlite3_stmt* st = nullptr;
    std::string out;
    sqlite3_prepare_v2(db, sql, -1, &st, nullptr);
    while (sqlite3_step(st) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(st); ++i) {
        const auto* t = sqlite3_column_text(st, i);
        out += std::string(i ? "|" : "") + (t ? reinterpret_cast<const char*>(t) : "NULL") + ":" +
               std::to_string(sqlite3_column_type(st, i));
      }
      out += ";";
    }
    sqlite3_finalize(st);
    return out;
  }
};

std::vector<nvstore::Row> rows(const char* text) { return nvstore::parseRecordText(text, "t.rec").rows; }

TEST(StoreWriter, ConvertsToTheDeclaredTypeAndKeepsNullAndEmptyText) {
  MemoryStore s;
  std::vector<nvstore::SourceError> errors;
  ASSERT_TRUE(nvstore::applySchema(s.db, kSchema, "schema", errors));
  ASSERT_TRUE(nvstore::insertRows(s.db, rows("[Tala - Technical Information]\nTala Id = 1\n"
                                             "Tala Name = \"\"\nRatio = 0.5\n"),
                                  errors));
  // 1 = SQLITE_INTEGER, 2 = SQLITE_FLOAT, 3 = SQLITE_TEXT, 5 = SQLITE_NULL
  EXPECT_EQ(s.query("SELECT * FROM \"Tala - Technical Information\""), "1:1|:3|NULL:5|0.5:2;");
}

struct Fault {
  const char* text;
  int line;
  const char* words;
};

TEST(StoreWriter, FaultsNameTheLineAndRollBackEverything) {
  const Fault cases[] = {
      {"[Tala - Technical Information]\nTala Id = 1\nBeat Count = sixteen\n", 3, "needs a number"},
      {"[Tala - Technical Information]\nTala Id = 1.5\n", 2, "needs a number"},
      {"[Tala - Technical Information]\nTala Id = 1\nRatio = 1/2\n", 3, "needs a number"},
      {"[Tala - Technical Information]\nTala Id = 1\nBeats = 16\n", 3, "no column 'Beats'"},
      {"[Talas]\nTala Id = 1\n", 1, "no table [Talas]"},
      {"[Tala - Technical Information]\nTala Id = 1\n[Tala - Technical Information]\nTala Id = 1\n", 3,
       "refused"},
      {"[Tala - Technical Information]\nTala Name = x\n", 1, "lacks its key column"},
  };
  for (const Fault& c : cases) {
    MemoryStore s;
    std::vector<nvstore::SourceError> errors;
    ASSERT_TRUE(nvstore::applySchema(s.db, kSchema, "schema", errors));
    EXPECT_FALSE(nvstore::insertRows(s.db, rows(c.text), errors)) << c.text;
    ASSERT_EQ(errors.size(), 1u) << c.text;
    EXPECT_EQ(errors[0].line, c.line) << c.text;
    EXPECT_NE(errors[0].message.find(c.words), std::string::npos) << errors[0].message;
    EXPECT_EQ(s.query("SELECT COUNT(*) FROM \"Tala - Technical Information\""), "0:1;") << c.text;
  }
}

TEST(StoreWriter, BadSchemaIsAnError) {
  MemoryStore s;
  std::vector<nvstore::SourceError> errors;
  EXPECT_FALSE(nvstore::applySchema(s.db, "CREATE TABLE (", "schema.sql", errors));
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].file, "schema.sql");
}

TEST(StoreWriter, AFailedBuildLeavesThePreviousStoreFileUntouched) {
  namespace fs = std::filesystem;
  const fs::path dir = fs::temp_directory_path() / "nvstore_writer_test";
  fs::create_directories(dir);
  const std::string out = (dir / "mrA.nvy").string();
  fs::remove(out);
  std::vector<nvstore::SourceError> errors;
  ASSERT_TRUE(nvstore::writeStoreFile(out, kSchema, "schema",
                                      rows("[Tala - Technical Information]\nTala Id = 3\n"), errors));
  const auto sizeBefore = fs::file_size(out);
  const auto timeBefore = fs::last_write_time(out);

  EXPECT_FALSE(nvstore::writeStoreFile(out, kSchema, "schema", rows("[Nope]\nA = 1\n"), errors));
  EXPECT_EQ(fs::file_size(out), sizeBefore);
  EXPECT_EQ(fs::last_write_time(out), timeBefore);
  EXPECT_FALSE(fs::exists(out + ".part"));
  fs::remove_all(dir);
}

}  // namespace
