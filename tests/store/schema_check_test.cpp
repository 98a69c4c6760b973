// The check of an opened store against the schema text it is built from:
// the reader of the schema finds every table and column the engine makes of
// the same text, and a damaged library store is told by its first missing
// table or column.
#include "store/schema_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/store.h"
#include "../support/helpers.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> firstColumn(platform::Database& store, const std::string& sql) {
  auto rs = store.openRecordset(sql, platform::RecordsetType::Snapshot);
  std::vector<std::string> values;
  for (; !rs->eof(); rs->moveNext()) values.push_back(rs->fieldAt(0).asText());
  rs->close();
  return values;
}

// A library store made afresh from the program's own schema text.
class SchemaCheck : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = dir_.file("mrA.nvy");
    pristine_ = dir_.file("pristine.nvy");
    platform::defaultWorkspace().createDatabase(pristine_, kLibraryStoreSchema);
  }

  // A copy of the new store, changed by `damage` (SQL, may be empty), opened
  // read-only.
  std::unique_ptr<platform::Database> makeStore(const std::string& damage = "") {
    fs::copy_file(pristine_, path_, fs::copy_options::overwrite_existing);
    auto& workspace = platform::defaultWorkspace();
    if (!damage.empty()) {
      auto writable = workspace.openDatabase(path_, true, false, "");
      writable->execute(damage);
      writable->close();
    }
    return workspace.openDatabase(path_, true, true, "");
  }

  TempFolder dir_;
  std::string path_, pristine_;
};

TEST_F(SchemaCheck, TheReaderFindsEveryTableAndColumnTheEngineMakesOfTheSchema) {
  auto store = makeStore();
  std::vector<std::string> read, made;
  for (const SchemaTable& table : fSchemaTables(kLibraryStoreSchema))
    for (const std::string& column : table.columns) read.push_back(table.name + "." + column);
  for (const std::string& table :
       firstColumn(*store, "SELECT name FROM sqlite_master WHERE type = 'table';"))
    for (const std::string& column :
         firstColumn(*store, "SELECT name FROM pragma_table_info('" + table + "');"))
      made.push_back(table + "." + column);
  std::sort(read.begin(), read.end());
  std::sort(made.begin(), made.end());
  EXPECT_EQ(read, made);
  EXPECT_FALSE(read.empty());
}

TEST_F(SchemaCheck, ADamagedStoreIsToldByItsFirstMissingTableOrColumn) {
  // table "" when nothing is missing, column "" for a whole table
  const struct Case { const char *damage, *table, *column; } cases[] = {
      {"", "", ""},
      {"DROP TABLE \"NVTips\";", "NVTips", ""},
      {"ALTER TABLE \"Raga - Technical Information\" RENAME COLUMN \"Thata\" TO \"Thaat\";",
       "Raga - Technical Information", "Thata"},
      {"ALTER TABLE \"ONPR\" DROP COLUMN \"26\";", "ONPR", "26"},  // a shared table
      // Seen in the field: names differing only in letter case still match.
      {"ALTER TABLE \"NVTips\" RENAME COLUMN \"Tip\" TO \"TIP\";", "", ""},
      {"DROP TABLE \"Reed Colors\"; DROP TABLE \"NVTips\";", "NVTips", ""},  // schema order
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.damage);
    auto store = makeStore(c.damage);
    const auto missing = fFirstMissingSchemaItem(*store, kLibraryStoreSchema);
    if (*c.table == '\0') {
      EXPECT_FALSE(missing) << missing->table << "." << missing->column;
    } else {
      ASSERT_TRUE(missing);
      EXPECT_EQ(missing->table, c.table);
      EXPECT_EQ(missing->column, c.column);
    }
    store->close();
  }
}

}  // namespace
