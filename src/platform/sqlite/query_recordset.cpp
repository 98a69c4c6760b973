// A dynaset or snapshot recordset over a query text. See query_recordset.h.
#include "platform/sqlite/query_recordset.h"

#include <sqlite3.h>

#include <cctype>

#include "platform/sqlite/sqlite_errors.h"

namespace platform::sqlite {
namespace {

// A source without blanks or brackets is a table name; anything else a query.
std::string queryText(const std::string& source) {
  for (char c : source)
    if (std::isspace(static_cast<unsigned char>(c)) || c == '[' || c == '(' || c == ';')
      return source;
  return "SELECT * FROM " + fQuoteName(source);
}

// Frees a one-off statement however the reading ends.
struct Finalizer {
  sqlite3_stmt* statement = nullptr;
  ~Finalizer() { sqlite3_finalize(statement); }
};

}  // namespace

QueryRecordset::QueryRecordset(std::shared_ptr<Connection> connection, const std::string& source) {
  std::string sql = queryText(source);
  sqlite3* handle = connection->handle();
  Finalizer once;
  int rc = sqlite3_prepare_v2(handle, sql.c_str(), static_cast<int>(sql.size()), &once.statement,
                              nullptr);
  if (rc != SQLITE_OK) sThrowSqlite(handle, rc, "Query '" + sql + "'");
  if (!once.statement) throw StoreError(3075, "The query text is empty.");
  if (!sqlite3_stmt_readonly(once.statement))
    throw StoreError(3251, "A recordset runs only queries that read: '" + sql + "'.");
  StatementRun run(handle, once.statement, "Query '" + sql + "'");
  for (int i = 0; i < run.columnCount(); ++i)
    names_.emplace_back(sqlite3_column_name(once.statement, i));
  while (run.step()) {
    std::vector<Value>& row = rows_.emplace_back();
    row.reserve(names_.size());
    for (int i = 0; i < run.columnCount(); ++i) row.push_back(run.column(i));
  }
  visit(0);
}

void QueryRecordset::visit(std::size_t position) {
  position_ = position;
  if (position < rows_.size() && position + 1 > visited_) visited_ = position + 1;
}

void QueryRecordset::requireOpen() const {
  if (closed_) throw StoreError(3420, "Object invalid or no longer set: the recordset is closed.");
}

void QueryRecordset::notSupported(const std::string& operation) const {
  requireOpen();
  throw StoreError(3251, "Operation is not supported for this type of object: " + operation +
                             " on a query recordset.");
}

void QueryRecordset::setIndex(const std::string&) { notSupported("Index"); }

void QueryRecordset::seek(const std::string&, const std::vector<Value>&) { notSupported("Seek"); }

void QueryRecordset::moveFirst() {
  requireOpen();
  visit(0);
}

void QueryRecordset::moveNext() {
  requireOpen();
  if (eof()) throw StoreError(3021, "No current record.");
  visit(position_ + 1);
}

void QueryRecordset::moveLast() {
  requireOpen();
  visit(rows_.empty() ? 0 : rows_.size() - 1);
}

Value QueryRecordset::field(const std::string& name) const {
  for (std::size_t i = 0; i < names_.size(); ++i)
    if (fSameName(names_[i], name)) return fieldAt(static_cast<int>(i));
  requireOpen();
  throw StoreError(3265, "Item not found in this collection: no field '" + name + "'.");
}

Value QueryRecordset::fieldAt(int i) const {
  requireOpen();
  if (i < 0 || i >= fieldCount())
    throw StoreError(3265, "Item not found in this collection: field " + std::to_string(i) + ".");
  if (eof()) throw StoreError(3021, "No current record.");
  return rows_[position_][static_cast<std::size_t>(i)];
}

void QueryRecordset::close() {
  closed_ = true;
  rows_.clear();
}

}  // namespace platform::sqlite
