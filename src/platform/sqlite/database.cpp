// The SQLite store: opening files, recordsets and plain statements.
// State: none beyond the connection (see connection.h).
#include "platform/sqlite/database.h"

#include <sqlite3.h>

#include <filesystem>

#include "platform/sqlite/query_recordset.h"
#include "platform/sqlite/sqlite_errors.h"
#include "platform/sqlite/table_recordset.h"

namespace platform::sqlite {
namespace {

// Runs one statement of transaction control.
void runControl(sqlite3* handle, const char* sql) {
  int rc = sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) sThrowSqlite(handle, rc, sql);
}

}  // namespace

SqliteDatabase::SqliteDatabase(const std::string& path, bool exclusive, bool readOnly)
    : connection_(std::make_shared<Connection>(path, exclusive, readOnly)) {}

SqliteDatabase::~SqliteDatabase() { close(); }

std::unique_ptr<Recordset> SqliteDatabase::openRecordset(const std::string& source,
                                                         RecordsetType type) {
  if (type == RecordsetType::Table) return std::make_unique<TableRecordset>(connection_, source);
  return std::make_unique<QueryRecordset>(connection_, source);
}

void SqliteDatabase::execute(const std::string& sql) { connection_->execute(sql); }

void SqliteDatabase::close() { connection_->close(); }

void SqliteDatabase::beginTrans() {
  sqlite3* handle = connection_->handle();
  if (connection_->readOnly())
    throw StoreError(3027, "Cannot begin a transaction: the store '" + path() + "' is read-only.");
  if (!sqlite3_get_autocommit(handle))
    throw StoreError(3003, "Could not start a transaction: one is under way on '" + path() + "'.");
  // IMMEDIATE takes the write lock now, so no write inside is refused a lock
  // half-way through.
  runControl(handle, "BEGIN IMMEDIATE;");
}

void SqliteDatabase::commitTrans() {
  sqlite3* handle = connection_->handle();
  if (sqlite3_get_autocommit(handle))
    throw StoreError(3034, "Commit without a transaction begun on '" + path() + "'.");
  // A writable store runs with synchronous = FULL (see Connection): the
  // journal and the file are on the disk before COMMIT returns, and a
  // journal left by a kill is rolled back at the next open.
  runControl(handle, "COMMIT;");
}

void SqliteDatabase::rollback() {
  sqlite3* handle = connection_->handle();
  if (sqlite3_get_autocommit(handle))
    throw StoreError(3034, "Rollback without a transaction begun on '" + path() + "'.");
  runControl(handle, "ROLLBACK;");
  // The rows are as they were before: recordsets count them anew.
  connection_->noteChange();
}

std::unique_ptr<Database> SqliteWorkspace::openDatabase(const std::string& path, bool exclusive,
                                                        bool readOnly, const std::string&) {
  return std::make_unique<SqliteDatabase>(path, exclusive, readOnly);
}

void SqliteWorkspace::createDatabase(const std::string& path, const std::string& schemaSql) {
  std::error_code ec;
  if (std::filesystem::exists(path, ec))
    throw StoreError(3045, "The store file '" + path + "' exists already.", path);
  const std::string temporary = path + ".new";
  std::filesystem::remove(temporary, ec);
  sqlite3* handle = nullptr;
  int rc = sqlite3_open_v2(temporary.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                           nullptr);
  if (rc == SQLITE_OK) rc = sqlite3_exec(handle, schemaSql.c_str(), nullptr, nullptr, nullptr);
  std::string message = handle ? sqlite3_errmsg(handle) : sqlite3_errstr(rc);
  sqlite3_close(handle);
  if (rc == SQLITE_OK) std::filesystem::rename(temporary, path, ec);
  if (rc != SQLITE_OK || ec) {
    std::filesystem::remove(temporary, ec);
    throw StoreError(3051, "Cannot create the store file '" + path +
                               "': " + (rc != SQLITE_OK ? message : ec.message()) + ".",
                     path);
  }
}

}  // namespace platform::sqlite

namespace platform {

Workspace& defaultWorkspace() {
  static sqlite::SqliteWorkspace workspace;
  return workspace;
}

}  // namespace platform
