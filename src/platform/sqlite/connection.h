// One open SQLite store file: the connection, the hold on the file, the
// prepared statements kept for reuse and what is known of the tables.
//
// Shared by the Database and its recordsets, so that a recordset used after
// its store was closed fails cleanly (3420) instead of touching a dead
// handle. No statement stays active between calls: each use binds, steps,
// copies and resets, so every write outside a transaction commits at once,
// and a transaction can always commit.
// State: the handle, the file hold, the statement, table and order caches, and a
// count of writes that lets recordsets notice changes made by others.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/sqlite/file_lock.h"
#include "platform/store.h"

struct sqlite3;
struct sqlite3_stmt;

namespace platform::sqlite {

struct KeyColumn {
  std::string name;
  std::string collation;  // BINARY, NOCASE, ...
  bool descending = false;
};

struct TableInfo {
  std::string name;                  // as stored in the schema
  std::vector<std::string> columns;  // in table order
  std::vector<KeyColumn> primaryKey;
};

struct TableOrder;  // table_order.h

class Connection {
 public:
  // Opens and checks the file; throws StoreError and leaves the file as it
  // was when the file is missing, held, unreadable or not a store.
  Connection(const std::string& path, bool exclusive, bool readOnly);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  void close();
  bool isOpen() const { return handle_ != nullptr; }
  // Throws 3420 when the store has been closed.
  sqlite3* handle() const;
  const std::string& path() const { return path_; }
  bool readOnly() const { return readOnly_; }

  // A prepared statement for `sql`, reset and kept for reuse.
  sqlite3_stmt* statement(const std::string& sql);
  // The table `name` (case-insensitive); 3078 when there is none.
  std::shared_ptr<const TableInfo> table(const std::string& name);
  // The statement texts that walk `table` in the order of the index
  // `indexName` ("PrimaryKey" is the primary key, "" the rowid order).
  // 3015 when the table has no such index.
  std::shared_ptr<const TableOrder> order(const TableInfo& table, const std::string& indexName);

  void execute(const std::string& sql);
  // Counts the writes made through this connection.
  std::uint64_t changeCount() const { return changeCount_; }
  void noteChange() { ++changeCount_; }

 private:
  std::vector<KeyColumn> indexColumns(const TableInfo& table, const std::string& indexName);
  std::vector<KeyColumn> keyColumnsOfIndex(const std::string& indexName, const std::string& table);
  void finalizeStatements();

  std::string path_;
  bool readOnly_;
  FileLock lock_;
  sqlite3* handle_ = nullptr;
  std::unordered_map<std::string, sqlite3_stmt*> statements_;
  std::map<std::string, std::shared_ptr<const TableInfo>> tables_;  // by lower-case name
  // By lower-case table name, a tab, and lower-case index name.
  std::map<std::string, std::shared_ptr<const TableOrder>> orders_;
  std::uint64_t changeCount_ = 0;
};

// Running one statement: binds values, steps, reads columns; resets the
// statement when it goes out of scope.
class StatementRun {
 public:
  StatementRun(sqlite3* handle, sqlite3_stmt* statement, std::string context);
  ~StatementRun();
  StatementRun(const StatementRun&) = delete;
  StatementRun& operator=(const StatementRun&) = delete;

  void bind(int position, const Value& value);  // position from 1
  bool step();                                  // true while a row is there
  int columnCount() const;
  Value column(int i) const;

 private:
  sqlite3* handle_;
  sqlite3_stmt* statement_;
  std::string context_;
};

// An identifier in double quotes, quotes inside doubled.
std::string fQuoteName(const std::string& name);
bool fSameName(const std::string& a, const std::string& b);  // ignores case

}  // namespace platform::sqlite
