// Tests of writing rows into a store: type conversion, and faults named by
// source line with everything rolled back. (The all-or-nothing store file
// and a faulty schema named by its file, and a column that needs a number,
// are tested through the program in nvstore_build_test.cpp.)
#include "store_writer.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

const char* kSchema =
    "CREATE TABLE \"Tala - Technical Information\" (\"Tala Id\" INTEGER NOT NULL, "
    "\"Tala Name\" TEXT, \"Beat Count\" INTEGER, \"Ratio\" REAL, \"Raga Index\" INTEGER, "
    "PRIMARY KEY (\"Tala Id\"));";

// An in-memory store with the schema; query() gives every row as
// "value:type|..." with SQLite's type numbers (1 integer, 2 float, 3 text, 5 Null).
struct MemoryStore {
  sqlite3* db = nullptr;
  std::vector<nvstore::SourceError> errors;
  MemoryStore() {
    sqlite3_open(":memory:", &db);
    EXPECT_TRUE(nvstore::applySchema(db, kSchema, "schema", errors));
  }
  ~MemoryStore() { sqlite3_close(db); }
  bool insert(const char* text) {
    return nvstore::insertRows(db, nvstore::parseRecordText(text, "t.rec").rows, errors);
  }
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

TEST(StoreWriter, ConvertsToTheDeclaredTypeAndKeepsNullAndEmptyText) {
  MemoryStore s;
  ASSERT_TRUE(s.insert("[Tala - Technical Information]\nTala Id = 1\nTala Name = \"\"\nRatio = 0.5\n"));
  EXPECT_EQ(s.query("SELECT * FROM \"Tala - Technical Information\""), "1:1|:3|NULL:5|0.5:2|NULL:5;");
}

TEST(StoreWriter, FaultsNameTheLineAndRollBackEverything) {
  const std::tuple<const char*, int, const char*> cases[] = {
      {"[Tala - Technical Information]\nTala Id = 1.5\n", 2, "needs a number"},
      {"[Tala - Technical Information]\nTala Id = 1\nRatio = 1/2\n", 3, "needs a number"},
      {"[Tala - Technical Information]\nTala Id = 1\nBeats = 16\n", 3, "no column 'Beats'"},
      {"[Talas]\nTala Id = 1\n", 1, "no table [Talas]"},
      {"[Tala - Technical Information]\nTala Id = 1\n[Tala - Technical Information]\nTala Id = 1\n", 3, "refused"},
      {"[Tala - Technical Information]\nTala Name = x\n", 1, "lacks its key column"},
      {"[Tala - Technical Information]\nTala Id = 1\nRaga Index = -3\n", 3, "between 1 and 32767, not '-3'"},
      {"[Tala - Technical Information]\nTala Id = 1\nRaga Index = 32768\n", 3, "between 1 and 32767"},
  };
  for (const auto& [text, line, words] : cases) {
    MemoryStore s;
    EXPECT_FALSE(s.insert(text)) << text;
    ASSERT_EQ(s.errors.size(), 1u) << text;
    EXPECT_EQ(s.errors[0].line, line) << text;
    EXPECT_NE(s.errors[0].message.find(words), std::string::npos) << s.errors[0].message;
    EXPECT_EQ(s.query("SELECT COUNT(*) FROM \"Tala - Technical Information\""), "0:1;") << text;
  }
}

}  // namespace
