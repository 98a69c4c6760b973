// A table-type recordset: the rows of one table in the order of its current
// index, with Seek on the index and writes in a writable store.
//
// Rows are read one at a time through statements the connection keeps
// prepared, so a Seek and the field reads after it cost one step. MoveNext
// asks for the first row after the current one's key values (and rowid) in
// the index order, so no list of rows is ever held; after a Delete the
// deleted row's values still mark the place.
// State: the table, the current index, the current row, NoMatch, and the
// change under way (AddNew/Edit).
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
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
  void chooseOrder(std::vector<KeyColumn> index);
  void insertRow();
  void updateRow();

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<const TableInfo> table_;
  std::vector<KeyColumn> index_;  // empty: rowid order
  bool indexChosen_ = false;
  std::string indexName_;         // as the caller named it
  std::vector<int> indexFields_;  // the index's columns, as table columns
  std::string selectRow_;         // "SELECT rowid, * FROM t"
  std::string orderBy_;           // " ORDER BY ..., rowid"
  std::string reverseOrderBy_;
  std::string nextRow_;           // the row after given keys and rowid
  std::string nextRowNullSafe_;   // the same where Nulls or DESC are involved
  std::vector<std::string> seekRow_;  // by number of keys - 1
  bool descendingIndex_ = false;

  Place place_ = Place::Empty;
  std::vector<Value> row_;        // rowid, then the columns
  bool noMatch_ = false;

  mutable long count_ = -1;
  mutable std::uint64_t countStamp_ = 0;

  Change change_ = Change::None;
  std::vector<std::optional<Value>> pending_;
};

}  // namespace platform::sqlite
