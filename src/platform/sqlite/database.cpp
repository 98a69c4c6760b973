// The SQLite store: opening files, recordsets and plain statements.
// State: none beyond the connection (see connection.h).
#include "platform/sqlite/database.h"

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

}  // namespace platform::sqlite

namespace platform {

Workspace& defaultWorkspace() {
  static sqlite::SqliteWorkspace workspace;
  return workspace;
}

}  // namespace platform
