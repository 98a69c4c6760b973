// A table-type recordset: the rows of one table in the order of its current
// index, with Seek on the index and writes in a writable store.
//
// Rows are read one at a time by rowid through statements the connection
// keeps prepared, so a Seek and the field reads after it cost one step. The
// order of the rows (their rowids) is read only when the recordset is moved
// through, and again after any write to the store.
// State: the table, the current index, the current row and its place in the
// order, NoMatch, and the change under way (AddNew/Edit).
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/store.h"

namespace platform::sqlite {

class TableRecordset : public Recordset {
 public:
  TableRecordset(std::shared_ptr<Connection> connection, const std::string& tableName);

  void setIndex(const std::string& indexName) override;
  void seek(const std::string& comparison, const std::vector<Value>& keys) override;
  bool noMatch() const override { return noMatch_; }

  void moveFirst() override;
  void moveNext() override;
  void moveLast() override;
  bool eof() const override { return place_ == Place::AfterLast || place_ == Place::Empty; }
  bool bof() const override { return place_ == Place::Empty; }
  long recordCount() const override;

  Value field(const std::string& name) const override;
  int fieldCount() const override;
  Value fieldAt(int i) const override;

  void addNew() override;
  void edit() override;
  void setField(const std::string& name, const Value& value) override;
  void update() override;
  void remove() override;

  void close() override;

 private:
  // Where the recordset stands: on a row, past the last, nowhere after a
  // Seek that missed, on the gap a deleted row left, or in an empty table.
  enum class Place { Row, AfterLast, Nowhere, Deleted, Empty };
  enum class Change { None, Adding, Editing };

  Connection& connection() const;
  void requireWritable() const;
  void requireRow() const;
  int columnIndex(const std::string& name) const;
  bool readRow(const std::string& sql, const std::vector<Value>& keys);
  void moveToEnd(bool last);
  void loadRowAt(std::size_t position);
  void refreshOrder() const;
  std::size_t currentPosition() const;
  void insertRow();
  void updateRow();

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<const TableInfo> table_;
  std::vector<KeyColumn> index_;  // empty: rowid order
  bool indexChosen_ = false;
  std::string orderBy_;           // " ORDER BY ..., rowid"
  std::string selectRow_;         // "SELECT rowid, * FROM t"

  Place place_ = Place::Empty;
  std::vector<Value> row_;        // rowid, then the columns
  std::size_t deletedAt_ = 0;     // Place::Deleted: where the next row now stands
  bool noMatch_ = false;

  // The order, read on demand; stale when the store's change count moved.
  mutable std::vector<std::int64_t> rowids_;
  mutable std::unordered_map<std::int64_t, std::size_t> positions_;
  mutable std::uint64_t orderStamp_ = 0;
  mutable bool orderRead_ = false;
  mutable long count_ = -1;
  mutable std::uint64_t countStamp_ = 0;

  Change change_ = Change::None;
  std::vector<std::optional<Value>> pending_;
};

}  // namespace platform::sqlite
