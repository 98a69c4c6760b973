// Speed of the store's fast path: Seek on an open table and reading fields
// of the row found, as the layout and the look-ups do, on a 1000-row table;
// and stepping through rows after a Seek, as a screen's layout does.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/store.h"

namespace {

constexpr int kRows = 1000;

// A store with one table "NVFormControls" of kRows rows keyed on
// (Form Id, Control Index), 50 controls per form.
class BenchStore {
 public:
  BenchStore() {
    std::string pattern = (std::filesystem::temp_directory_path() / "nvbenchXXXXXX").string();
    if (!mkdtemp(pattern.data())) std::abort();
    dir_ = pattern;
    std::string path = (dir_ / "bench.nvy").string();
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    std::string sql =
        "CREATE TABLE \"NVFormControls\" (\"Form Id\" INTEGER NOT NULL, \"Control Index\" "
        "INTEGER NOT NULL, \"LocRatX\" REAL, \"LocRatY\" REAL, \"SizRatWidth\" REAL, "
        "\"SizRatHeight\" REAL, PRIMARY KEY (\"Form Id\", \"Control Index\"));"
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        std::to_string(kRows - 1) +
        ") INSERT INTO \"NVFormControls\" SELECT i / 50 + 1, i % 50, i * 0.001, i * 0.002, "
        "0.1, 0.05 FROM n;";
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
    sqlite3_close(db);
    store = platform::defaultWorkspace().openDatabase(path, true, true, "");
  }
  ~BenchStore() {
    store.reset();
    std::filesystem::remove_all(dir_);
  }
  std::unique_ptr<platform::Database> store;

 private:
  std::filesystem::path dir_;
};

void BM_SeekAndReadFields(benchmark::State& state) {
  BenchStore bench;
  auto rs = bench.store->openRecordset("NVFormControls", platform::RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  int i = 0;
  for (auto _ : state) {
    rs->seek("=", {i / 50 + 1, i % 50});
    double sum = rs->field("LocRatX").asDouble() + rs->field("LocRatY").asDouble() +
                 rs->field("SizRatWidth").asDouble() + rs->field("SizRatHeight").asDouble();
    benchmark::DoNotOptimize(sum);
    i = (i + 37) % kRows;
  }
}
BENCHMARK(BM_SeekAndReadFields);

// One look-up as the look-up procedures make it: open, index, seek, read, close.
void BM_OpenSeekClose(benchmark::State& state) {
  BenchStore bench;
  int i = 0;
  for (auto _ : state) {
    auto rs = bench.store->openRecordset("NVFormControls", platform::RecordsetType::Table);
    rs->setIndex("PrimaryKey");
    rs->seek("=", {i / 50 + 1, i % 50});
    benchmark::DoNotOptimize(rs->field("LocRatX").asDouble());
    rs->close();
    i = (i + 37) % kRows;
  }
}
BENCHMARK(BM_OpenSeekClose);

// A screen's layout: seek the form's first control, then read 50 rows.
void BM_LayoutOfOneScreen(benchmark::State& state) {
  BenchStore bench;
  int form = 1;
  for (auto _ : state) {
    auto rs = bench.store->openRecordset("NVFormControls", platform::RecordsetType::Table);
    rs->setIndex("PrimaryKey");
    rs->seek("=", {form, 0});
    double sum = 0;
    for (int c = 0; c < 50; ++c) {
      sum += rs->field("LocRatX").asDouble() + rs->field("SizRatHeight").asDouble();
      if (c < 49) rs->moveNext();
    }
    benchmark::DoNotOptimize(sum);
    rs->close();
    form = form % (kRows / 50) + 1;
  }
}
BENCHMARK(BM_LayoutOfOneScreen);

}  // namespace

BENCHMARK_MAIN();
