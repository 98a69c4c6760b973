// The SQLite store: Database and Workspace over a shared Connection.
// State: the connection of one open store file.
#pragma once

#include <memory>
#include <string>

#include "platform/sqlite/connection.h"
#include "platform/store.h"

namespace platform::sqlite {

class SqliteDatabase : public Database {
 public:
  SqliteDatabase(const std::string& path, bool exclusive, bool readOnly);
  ~SqliteDatabase() override;

  std::unique_ptr<Recordset> openRecordset(const std::string& source, RecordsetType type) override;
  void execute(const std::string& sql) override;
  bool isReadOnly() const override { return connection_->readOnly(); }
  const std::string& path() const override { return connection_->path(); }
  void close() override;
  void beginTrans() override;
  void commitTrans() override;
  void rollback() override;

 private:
  std::shared_ptr<Connection> connection_;
};

class SqliteWorkspace : public Workspace {
 public:
  std::unique_ptr<Database> openDatabase(const std::string& path, bool exclusive, bool readOnly,
                                         const std::string& connect) override;
  void createDatabase(const std::string& path, const std::string& schemaSql) override;
};

}  // namespace platform::sqlite
