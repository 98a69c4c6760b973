// Fuzz target: arbitrary text through the reader of the content record
// files (*.rec) that the store builder compiles. Every row and field it
// gives has the line it came from, within the text, and a file read without
// errors gives every row a table and every field a column. (A file with
// errors is refused by the builder, so its rows need not be whole.)
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "record_file.h"

namespace {

void check(bool ok) {
  if (!ok) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const int lineCount = int(std::count(text.begin(), text.end(), '\n')) + 1;
  const nvstore::RecordFile file = nvstore::parseRecordText(text, "fuzz.rec");
  for (const nvstore::Row& row : file.rows) {
    check(row.line >= 1 && row.line <= lineCount);
    check(!file.errors.empty() || !row.table.empty());
    for (const nvstore::Field& field : row.fields) {
      check(field.line > row.line && field.line <= lineCount);
      check(!file.errors.empty() || !field.column.empty());
      check(row.find(field.column) != nullptr);
    }
  }
  for (const nvstore::SourceError& error : file.errors)
    check(error.line >= 0 && error.line <= lineCount && !error.text().empty());
  return 0;
}
