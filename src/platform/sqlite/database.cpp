// The SQLite store: opening files, recordsets and plain statements.
// State: none beyond the connection (see connection.h).
#include "platform/sqlite/database.h"

#include <sqlite3.h>

#include <filesystem>

#include "platform/sqlite/query_recordset.h"
#include "platform/sqlite/table_recordset.h"

namespace platform::sqlite {

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

std::unique_ptr<Database> SqliteWorkspace::openDatabase(const std::string& path, bool exclusive,
                                                        bool readOnly, const std::string&) {
  return std::make_unique<SqliteDatabase>(path, exclusive, readOnly);
}

void SqliteWorkspace::createDatabase(const std::string& path, const std::string& schemaSql) {
  std::error_code ec;
  if (std::filesystem::exists(path, ec))
    throw StoreError(3045, "The store file '" + path + "' exists already.");
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
    throw StoreError(3051, "Cannot create the store file '" + path + "': " +
                               (rc != SQLITE_OK ? message : ec.message()) + ".");
  }
}

}  // namespace platform::sqlite

namespace platform {

Workspace& defaultWorkspace() {
  static sqlite::SqliteWorkspace workspace;
  return workspace;
}

}  // namespace platform
