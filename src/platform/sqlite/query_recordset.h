// A dynaset or snapshot recordset: the rows of a query text, read in full
// when it is opened, so that no statement stays active on the store (an
// active reader would hold back the commit of later writes).
//
// RecordCount counts the rows visited so far, as the logic expects of such
// recordsets: 1 after opening a non-empty result, all of them after
// MoveLast, 0 for an empty one. The rows cannot be written.
// State: the column names, the rows, the current place and the rows visited.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/sqlite/connection.h"
#include "platform/store.h"

namespace platform::sqlite {

class QueryRecordset : public Recordset {
 public:
  // `source` is a query text, or a table name for all of its rows.
  QueryRecordset(std::shared_ptr<Connection> connection, const std::string& source);

  void setIndex(const std::string& indexName) override;
  void seek(const std::string& comparison, const std::vector<Value>& keys) override;
  bool noMatch() const override { return false; }

  void moveFirst() override;
  void moveNext() override;
  void moveLast() override;
  bool eof() const override { return position_ >= rows_.size(); }
  bool bof() const override { return rows_.empty(); }
  long recordCount() const override { return static_cast<long>(visited_); }

  Value field(const std::string& name) const override;
  int fieldCount() const override { return static_cast<int>(names_.size()); }
  Value fieldAt(int i) const override;

  void addNew() override { notSupported("AddNew"); }
  void edit() override { notSupported("Edit"); }
  void setField(const std::string&, const Value&) override { notSupported("setField"); }
  void update() override { notSupported("Update"); }
  void remove() override { notSupported("Delete"); }

  void close() override;

 private:
  [[noreturn]] void notSupported(const std::string& operation) const;
  void requireOpen() const;
  void visit(std::size_t position);

  std::vector<std::string> names_;
  std::vector<std::vector<Value>> rows_;
  std::size_t position_ = 0;
  std::size_t visited_ = 0;
  bool closed_ = false;
};

}  // namespace platform::sqlite
