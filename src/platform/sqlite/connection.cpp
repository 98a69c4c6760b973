// One open SQLite store file: connection, file hold, statement and table
// caches. See connection.h.
#include "platform/sqlite/connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>

#include "platform/sqlite/sqlite_errors.h"
#include "platform/sqlite/table_order.h"

namespace platform::sqlite {
namespace {

// The table-valued pragma functions used below arrived in SQLite 3.16.
constexpr int kOldestSqlite = 3016000;

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

std::string textColumn(const StatementRun& run, int i) { return run.column(i).asText(); }

}  // namespace

std::string fQuoteName(const std::string& name) {
  std::string quoted = "\"";
  for (char c : name) {
    quoted += c;
    if (c == '"') quoted += '"';
  }
  return quoted + "\"";
}

bool fSameName(const std::string& a, const std::string& b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
           return std::tolower(x) == std::tolower(y);
         });
}

Connection::Connection(const std::string& path, bool exclusive, bool readOnly)
    : path_(path), readOnly_(readOnly), lock_(path, exclusive, readOnly) {
  if (sqlite3_libversion_number() < kOldestSqlite)
    throw StoreError(3633, std::string("The SQLite library ") + sqlite3_libversion() +
                               " is too old for the store engine.");
  int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  int rc = sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr);
  if (rc == SQLITE_OK) {
    sqlite3_extended_result_codes(handle_, 1);
    // Reading the schema makes SQLite look at the file now: a file that is
    // not a store fails here, before anything could be written to it.
    rc = sqlite3_exec(handle_, "SELECT count(*) FROM sqlite_master;", nullptr, nullptr, nullptr);
  }
  if (rc == SQLITE_OK && !readOnly)
    rc = sqlite3_exec(handle_, "PRAGMA synchronous = FULL;", nullptr, nullptr, nullptr);
  // Nobody else may use an exclusive store, so SQLite may keep its file
  // locks and page cache from one statement to the next instead of taking
  // them anew (and checking the file) for every statement.
  if (rc == SQLITE_OK && exclusive)
    rc = sqlite3_exec(handle_, "PRAGMA locking_mode = EXCLUSIVE;", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) {
    std::string message = handle_ ? sqlite3_errmsg(handle_) : sqlite3_errstr(rc);
    sqlite3_close(handle_);
    handle_ = nullptr;
    long number = fStoreErrorNumber(rc, message);
    if ((rc & 0xff) == SQLITE_NOTADB)
      throw StoreError(number, "The file '" + path + "' is not a store file: " + message + ".", path);
    throw StoreError(number, "Cannot open the store file '" + path + "': " + message + ".", path);
  }
}

Connection::~Connection() { close(); }

void Connection::close() {
  if (!handle_) return;
  finalizeStatements();
  sqlite3_close(handle_);
  handle_ = nullptr;
  tables_.clear();
  orders_.clear();
  // Only now: closing our descriptor earlier could drop SQLite's own locks.
  lock_.release();
}

void Connection::finalizeStatements() {
  for (auto& entry : statements_) sqlite3_finalize(entry.second);
  statements_.clear();
}

sqlite3* Connection::handle() const {
  if (!handle_) throw StoreError(3420, "The store '" + path_ + "' is closed.");
  return handle_;
}

sqlite3_stmt* Connection::statement(const std::string& sql) {
  auto found = statements_.find(sql);
  if (found != statements_.end()) return found->second;
  sqlite3_stmt* prepared = nullptr;
  int rc = sqlite3_prepare_v3(handle(), sql.c_str(), static_cast<int>(sql.size()),
                              SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
  if (rc != SQLITE_OK) sThrowSqlite(handle_, rc, sql);
  statements_.emplace(sql, prepared);
  return prepared;
}

std::shared_ptr<const TableInfo> Connection::table(const std::string& name) {
  std::string key = lowerCase(name);
  auto found = tables_.find(key);
  if (found != tables_.end()) return found->second;

  auto info = std::make_shared<TableInfo>();
  {
    StatementRun run(handle(),
                     statement("SELECT name FROM sqlite_master WHERE type = 'table' AND "
                               "name = ?1 COLLATE NOCASE;"),
                     name);
    run.bind(1, name);
    if (!run.step()) throw StoreError(3078, "The store has no table '" + name + "'.");
    info->name = textColumn(run, 0);
  }
  std::vector<std::pair<std::int64_t, std::string>> keyParts;
  {
    StatementRun run(handle(),
                     statement("SELECT name, pk FROM pragma_table_info(?1) ORDER BY cid;"), name);
    run.bind(1, info->name);
    while (run.step()) {
      info->columns.push_back(textColumn(run, 0));
      if (std::int64_t part = run.column(1).asInteger(); part > 0)
        keyParts.emplace_back(part, info->columns.back());
    }
  }
  // The primary key's own index tells the collations; a key that is the
  // rowid itself has no such index and compares as BINARY.
  std::string keyIndex;
  {
    StatementRun run(
        handle(), statement("SELECT name FROM pragma_index_list(?1) WHERE origin = 'pk';"), name);
    run.bind(1, info->name);
    if (run.step()) keyIndex = textColumn(run, 0);
  }
  if (!keyIndex.empty()) {
    info->primaryKey = keyColumnsOfIndex(keyIndex, info->name);
  } else {
    std::sort(keyParts.begin(), keyParts.end());
    for (auto& part : keyParts) info->primaryKey.push_back({part.second, "BINARY", false});
  }
  tables_.emplace(key, info);
  return info;
}

std::shared_ptr<const TableOrder> Connection::order(const TableInfo& table,
                                                    const std::string& indexName) {
  std::string key = lowerCase(table.name) + '\t' + lowerCase(indexName);
  auto found = orders_.find(key);
  if (found != orders_.end()) return found->second;
  std::vector<KeyColumn> keys;
  if (!indexName.empty()) keys = indexColumns(table, indexName);
  auto built = std::make_shared<const TableOrder>(fBuildTableOrder(table, std::move(keys)));
  orders_.emplace(key, built);
  return built;
}

std::vector<KeyColumn> Connection::indexColumns(const TableInfo& table,
                                                const std::string& indexName) {
  if (fSameName(indexName, "PrimaryKey") && !table.primaryKey.empty()) return table.primaryKey;
  std::string found;
  {
    StatementRun run(handle(),
                     statement("SELECT name FROM pragma_index_list(?1) WHERE name = ?2 "
                               "COLLATE NOCASE;"),
                     indexName);
    run.bind(1, table.name);
    run.bind(2, indexName);
    if (run.step()) found = textColumn(run, 0);
  }
  if (found.empty())
    throw StoreError(3015, "'" + indexName + "' isn't an index in table '" + table.name + "'.");
  return keyColumnsOfIndex(found, table.name);
}

std::vector<KeyColumn> Connection::keyColumnsOfIndex(const std::string& indexName,
                                                     const std::string& table) {
  std::vector<KeyColumn> columns;
  StatementRun run(handle(),
                   statement("SELECT name, coll, desc FROM pragma_index_xinfo(?1) WHERE key = 1 "
                             "ORDER BY seqno;"),
                   indexName);
  run.bind(1, indexName);
  while (run.step()) {
    if (run.column(0).isNull())
      throw StoreError(3015, "The index '" + indexName + "' of table '" + table +
                                 "' is on an expression, which cannot be sought.");
    columns.push_back({textColumn(run, 0), textColumn(run, 1), run.column(2).asInteger() != 0});
  }
  return columns;
}

void Connection::execute(const std::string& sql) {
  char* message = nullptr;
  int rc = sqlite3_exec(handle(), sql.c_str(), nullptr, nullptr, &message);
  sqlite3_free(message);
  // The statement may have changed tables and indexes.
  tables_.clear();
  orders_.clear();
  finalizeStatements();
  noteChange();
  if (rc != SQLITE_OK) sThrowSqlite(handle_, rc, sql);
}

StatementRun::StatementRun(sqlite3* handle, sqlite3_stmt* statement, std::string context)
    : handle_(handle), statement_(statement), context_(std::move(context)) {}

StatementRun::~StatementRun() {
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

void StatementRun::bind(int position, const Value& value) {
  int rc;
  if (value.isNull()) {
    rc = sqlite3_bind_null(statement_, position);
  } else if (value.isInteger()) {
    rc = sqlite3_bind_int64(statement_, position, value.asInteger());
  } else if (value.isReal()) {
    rc = sqlite3_bind_double(statement_, position, value.asDouble());
  } else {
    std::string text = value.asText();
    rc = sqlite3_bind_text(statement_, position, text.data(), static_cast<int>(text.size()),
                           SQLITE_TRANSIENT);
  }
  if (rc != SQLITE_OK) sThrowSqlite(handle_, rc, context_);
}

bool StatementRun::step() {
  int rc = sqlite3_step(statement_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  sThrowSqlite(handle_, rc, context_);
}

int StatementRun::columnCount() const { return sqlite3_column_count(statement_); }

Value StatementRun::column(int i) const {
  switch (sqlite3_column_type(statement_, i)) {
    case SQLITE_INTEGER:
      return Value(static_cast<std::int64_t>(sqlite3_column_int64(statement_, i)));
    case SQLITE_FLOAT:
      return Value(sqlite3_column_double(statement_, i));
    case SQLITE_NULL:
      return Value();
    default: {  // TEXT and BLOB
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, i));
      int size = sqlite3_column_bytes(statement_, i);
      return Value(std::string(bytes ? bytes : "", static_cast<std::size_t>(size)));
    }
  }
}

}  // namespace platform::sqlite
