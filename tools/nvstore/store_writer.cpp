// Writing rows into a store: see store_writer.h.
#include "store_writer.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstdlib>
#include <cstdio>
#include <map>

namespace nvstore {
namespace {

enum class Affinity { Integer, Real, Text };

struct Column {
  Affinity affinity = Affinity::Text;
  bool key = false;  // part of the primary key: a row must give it
};

using TableColumns = std::map<std::string, Column>;

std::string quoted(const std::string& name) {
  std::string q = "\"";
  for (char c : name) q += c == '"' ? std::string("\"\"") : std::string(1, c);
  return q + "\"";
}

// The columns of a table with the affinity of their declared type;
// empty when the table does not exist.
TableColumns columnsOf(sqlite3* db, const std::string& table) {
  TableColumns cols;
  sqlite3_stmt* st = nullptr;
  const std::string sql = "PRAGMA table_info(" + quoted(table) + ")";
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) != SQLITE_OK) return cols;
  while (sqlite3_step(st) == SQLITE_ROW) {
    const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(st, 1));
    const auto* typeText = sqlite3_column_text(st, 2);
    const std::string type = typeText ? reinterpret_cast<const char*>(typeText) : "";
    cols[name].affinity = type == "INTEGER" ? Affinity::Integer
                          : type == "REAL"  ? Affinity::Real
                                            : Affinity::Text;
    cols[name].key = sqlite3_column_int(st, 5) > 0;
  }
  sqlite3_finalize(st);
  return cols;
}

bool wholeInteger(const std::string& s, sqlite3_int64& out) {
  if (s.empty()) return false;
  char* end = nullptr;
  errno = 0;
  out = std::strtoll(s.c_str(), &end, 10);
  return *end == '\0' && errno == 0;
}

bool wholeReal(const std::string& s, double& out) {
  if (s.empty()) return false;
  char* end = nullptr;
  out = std::strtod(s.c_str(), &end);
  return *end == '\0';
}

// Numbers the program relies on lying in a range. A raga's index is held
// in a 16-bit variable and ragas are numbered from 1, so a negative or
// larger index would name no raga the program can reach.
struct ColumnRange {
  const char* column;
  sqlite3_int64 lowest, highest;
};
constexpr ColumnRange kColumnRanges[] = {{"Raga Index", 1, 32767}};

// Why a whole number does not suit its column; "" when it does.
std::string rangeFault(const Field& f, sqlite3_int64 value) {
  for (const ColumnRange& r : kColumnRanges)
    if (f.column == r.column && (value < r.lowest || value > r.highest))
      return "must lie between " + std::to_string(r.lowest) + " and " + std::to_string(r.highest) +
             ", not '" + f.value + "'";
  return "";
}

// Binds one field's value as its column's type; why it cannot be bound
// ("" when it was).
std::string bindField(sqlite3_stmt* st, int slot, const Field& f, Affinity affinity) {
  const std::string notANumber = "needs a number, not '" + f.value + "'";
  sqlite3_int64 i = 0;
  double d = 0;
  switch (affinity) {
    case Affinity::Integer:
      if (!wholeInteger(f.value, i)) return notANumber;
      sqlite3_bind_int64(st, slot, i);
      return rangeFault(f, i);
    case Affinity::Real:
      if (!wholeReal(f.value, d)) return notANumber;
      sqlite3_bind_double(st, slot, d);
      return "";
    case Affinity::Text:
      sqlite3_bind_text(st, slot, f.value.c_str(), static_cast<int>(f.value.size()),
                        SQLITE_TRANSIENT);
      return "";
  }
  return notANumber;
}

// Inserts one row; appends an error naming its source line on a fault.
void insertRow(sqlite3* db, const Row& row, const TableColumns& cols,
               std::vector<SourceError>& errors) {
  for (const auto& [name, column] : cols) {
    if (column.key && row.find(name) == nullptr) {
      errors.push_back({row.file, row.line, "row of [" + row.table + "] lacks its key column '" + name + "'"});
      return;
    }
  }
  std::string names, slots;
  for (const Field& f : row.fields) {
    if (cols.find(f.column) == cols.end()) {
      errors.push_back({row.file, f.line, "table [" + row.table + "] has no column '" + f.column + "'"});
      return;
    }
    names += (names.empty() ? "" : ", ") + quoted(f.column);
    slots += slots.empty() ? "?" : ", ?";
  }
  const std::string sql = row.fields.empty()
                              ? "INSERT INTO " + quoted(row.table) + " DEFAULT VALUES"
                              : "INSERT INTO " + quoted(row.table) + " (" + names + ") VALUES (" + slots + ")";
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) != SQLITE_OK) {
    errors.push_back({row.file, row.line, sqlite3_errmsg(db)});
    return;
  }
  bool ok = true;
  for (std::size_t i = 0; i < row.fields.size() && ok; ++i) {
    const Field& f = row.fields[i];
    const std::string fault = bindField(st, static_cast<int>(i) + 1, f, cols.at(f.column).affinity);
    ok = fault.empty();
    if (!ok) errors.push_back({row.file, f.line, "column '" + f.column + "' " + fault});
  }
  if (ok && sqlite3_step(st) != SQLITE_DONE)
    errors.push_back({row.file, row.line, "row of [" + row.table + "] refused: " + sqlite3_errmsg(db)});
  sqlite3_finalize(st);
}

}  // namespace

bool applySchema(sqlite3* db, const std::string& schemaSql, const std::string& schemaName,
                 std::vector<SourceError>& errors) {
  char* message = nullptr;
  if (sqlite3_exec(db, schemaSql.c_str(), nullptr, nullptr, &message) == SQLITE_OK) return true;
  errors.push_back({schemaName, 0, message ? message : "schema refused"});
  sqlite3_free(message);
  return false;
}

bool insertRows(sqlite3* db, const std::vector<Row>& rows, std::vector<SourceError>& errors) {
  const std::size_t before = errors.size();
  std::map<std::string, TableColumns> tables;
  sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
  for (const Row& row : rows) {
    auto it = tables.find(row.table);
    if (it == tables.end()) it = tables.emplace(row.table, columnsOf(db, row.table)).first;
    if (it->second.empty()) {
      errors.push_back({row.file, row.line, "no table [" + row.table + "] in the schema"});
      continue;
    }
    insertRow(db, row, it->second, errors);
  }
  const bool clean = errors.size() == before;
  sqlite3_exec(db, clean ? "COMMIT" : "ROLLBACK", nullptr, nullptr, nullptr);
  return clean;
}

bool writeStoreFile(const std::string& outPath, const std::string& schemaSql,
                    const std::string& schemaName, const std::vector<Row>& rows,
                    std::vector<SourceError>& errors) {
  const std::string temp = outPath + ".part";
  std::remove(temp.c_str());
  sqlite3* db = nullptr;
  bool ok = sqlite3_open(temp.c_str(), &db) == SQLITE_OK;
  if (!ok) errors.push_back({outPath, 0, "cannot create the store file"});
  ok = ok && applySchema(db, schemaSql, schemaName, errors) && insertRows(db, rows, errors);
  if (sqlite3_close(db) != SQLITE_OK) ok = false;
  if (ok && std::rename(temp.c_str(), outPath.c_str()) != 0) {
    errors.push_back({outPath, 0, "cannot rename the finished store into place"});
    ok = false;
  }
  if (!ok) std::remove(temp.c_str());
  return ok;
}

}  // namespace nvstore
