// A table-type recordset over one SQLite table. See table_recordset.h.
#include "platform/sqlite/table_recordset.h"

#include <utility>

namespace platform::sqlite {
namespace {

[[noreturn]] void throwNoCurrentRecord() { throw StoreError(3021, "No current record."); }

// A key column as the index compares it. BINARY is left unsaid: SQLite
// would not search the index for a term that names it.
std::string keyTerm(const KeyColumn& key) {
  if (fSameName(key.collation, "BINARY")) return fQuoteName(key.name);
  return fQuoteName(key.name) + " COLLATE " + key.collation;
}

std::string orderClause(const std::vector<KeyColumn>& index, bool reverse) {
  std::string clause = " ORDER BY ";
  for (const KeyColumn& key : index)
    clause += keyTerm(key) + (key.descending != reverse ? " DESC, " : ", ");
  return clause + (reverse ? "rowid DESC" : "rowid");
}

// "Comes after (?1, ?2, ..., rowid ?n+1) in index order" as a row-value
// comparison, which the index serves; right only for ascending keys and
// key values that are not Null.
std::string afterKeys(const std::vector<KeyColumn>& index) {
  if (index.empty()) return "rowid > ?1";
  std::string terms, slots;
  for (std::size_t i = 0; i < index.size(); ++i) {
    terms += keyTerm(index[i]) + ", ";
    slots += "?" + std::to_string(i + 1) + ", ";
  }
  return "(" + terms + "rowid) > (" + slots + "?" + std::to_string(index.size() + 1) + ")";
}

// The same test spelt out column by column, where Null sorts before every
// value and a DESC column reverses its comparison.
std::string afterKeysNullSafe(const std::vector<KeyColumn>& index) {
  std::string test = "rowid > ?" + std::to_string(index.size() + 1);
  for (std::size_t i = index.size(); i-- > 0;) {
    std::string column = keyTerm(index[i]);
    std::string slot = "?" + std::to_string(i + 1);
    std::string beyond =
        index[i].descending
            ? "(" + column + " < " + slot + " OR (" + column + " IS NULL AND " + slot +
                  " IS NOT NULL))"
            : "(" + column + " > " + slot + " OR (" + slot + " IS NULL AND " + column +
                  " IS NOT NULL))";
    test = "(" + beyond + " OR (" + column + " IS " + slot + " AND " + test + "))";
  }
  return test;
}

}  // namespace

TableRecordset::TableRecordset(std::shared_ptr<Connection> connection,
                               const std::string& tableName)
    : connection_(std::move(connection)) {
  table_ = connection_->table(tableName);
  selectRow_ = "SELECT rowid, * FROM " + fQuoteName(table_->name);
  chooseOrder({});
}

void TableRecordset::chooseOrder(std::vector<KeyColumn> index) {
  index_ = std::move(index);
  indexFields_.clear();
  descendingIndex_ = false;
  for (const KeyColumn& key : index_) {
    indexFields_.push_back(columnIndex(key.name));
    descendingIndex_ = descendingIndex_ || key.descending;
  }
  orderBy_ = orderClause(index_, false);
  reverseOrderBy_ = orderClause(index_, true);
  nextRow_ = selectRow_ + " WHERE " + afterKeys(index_) + orderBy_ + " LIMIT 1";
  nextRowNullSafe_ = selectRow_ + " WHERE " + afterKeysNullSafe(index_) + orderBy_ + " LIMIT 1";
  seekRow_.clear();
  std::string equalKeys;
  for (std::size_t i = 0; i < index_.size(); ++i) {
    equalKeys += (i ? " AND " : "") + keyTerm(index_[i]) + " = ?" + std::to_string(i + 1);
    seekRow_.push_back(selectRow_ + " WHERE " + equalKeys + orderBy_ + " LIMIT 1");
  }
  moveToEnd(false);
}

Connection& TableRecordset::connection() const {
  if (!connection_ || !connection_->isOpen())
    throw StoreError(3420, "Object invalid or no longer set: the recordset or its store is closed.");
  return *connection_;
}

void TableRecordset::requireWritable() const {
  if (connection().readOnly())
    throw StoreError(3027, "Cannot update. Database or object is read-only: '" +
                               connection_->path() + "'.");
}

void TableRecordset::requireRow() const {
  if (place_ != Place::Row) throwNoCurrentRecord();
}

int TableRecordset::columnIndex(const std::string& name) const {
  const std::vector<std::string>& columns = table_->columns;
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (fSameName(columns[i], name)) return static_cast<int>(i);
  throw StoreError(3265, "Item not found in this collection: no field '" + name + "' in '" +
                             table_->name + "'.");
}

// Reads the first row `sql` gives for `keys` into row_; false when none.
bool TableRecordset::readRow(const std::string& sql, const std::vector<Value>& keys) {
  Connection& store = connection();
  StatementRun run(store.handle(), store.statement(sql), table_->name);
  for (std::size_t i = 0; i < keys.size(); ++i) run.bind(static_cast<int>(i) + 1, keys[i]);
  if (!run.step()) return false;
  int count = run.columnCount();
  row_.resize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) row_[static_cast<std::size_t>(i)] = run.column(i);
  return true;
}

void TableRecordset::setIndex(const std::string& indexName) {
  // The look-ups set the index before every Seek; the same one again
  // changes nothing.
  if (indexChosen_ && fSameName(indexName, indexName_)) return;
  chooseOrder(connection().indexColumns(*table_, indexName));
  indexChosen_ = true;
  indexName_ = indexName;
}

void TableRecordset::seek(const std::string& comparison, const std::vector<Value>& keys) {
  if (!indexChosen_) throw StoreError(3019, "Operation invalid without a current index.");
  if (comparison != "=")
    throw StoreError(3251, "Seek supports only the comparison \"=\", not \"" + comparison + "\".");
  if (keys.empty() || keys.size() > index_.size())
    throw StoreError(3251, "Seek on '" + table_->name + "' needs 1 to " +
                               std::to_string(index_.size()) + " key values.");
  noMatch_ = !readRow(seekRow_[keys.size() - 1], keys);
  place_ = noMatch_ ? Place::Nowhere : Place::Row;
}

void TableRecordset::moveToEnd(bool last) {
  std::string sql = selectRow_ + (last ? reverseOrderBy_ : orderBy_) + " LIMIT 1";
  place_ = readRow(sql, {}) ? Place::Row : Place::Empty;
}

void TableRecordset::moveFirst() { moveToEnd(false); }

void TableRecordset::moveLast() { moveToEnd(true); }

void TableRecordset::moveNext() {
  if (place_ != Place::Row && place_ != Place::Deleted) throwNoCurrentRecord();
  // The current (or just deleted) row's keys and rowid mark the place.
  std::vector<Value> keys;
  bool anyNull = false;
  for (int column : indexFields_) {
    keys.push_back(row_[static_cast<std::size_t>(column) + 1]);
    anyNull = anyNull || keys.back().isNull();
  }
  keys.push_back(row_[0]);
  bool found = readRow(anyNull || descendingIndex_ ? nextRowNullSafe_ : nextRow_, keys);
  place_ = found ? Place::Row : Place::AfterLast;
}

long TableRecordset::recordCount() const {
  std::uint64_t stamp = connection().changeCount();
  if (count_ < 0 || countStamp_ != stamp) {
    Connection& store = *connection_;
    StatementRun run(store.handle(),
                     store.statement("SELECT count(*) FROM " + fQuoteName(table_->name)),
                     table_->name);
    run.step();
    count_ = static_cast<long>(run.column(0).asInteger());
    countStamp_ = stamp;
  }
  return count_;
}

Value TableRecordset::field(const std::string& name) const { return fieldAt(columnIndex(name)); }

int TableRecordset::fieldCount() const { return static_cast<int>(table_->columns.size()); }

Value TableRecordset::fieldAt(int i) const {
  connection();
  if (i < 0 || i >= fieldCount())
    throw StoreError(3265, "Item not found in this collection: field " + std::to_string(i) +
                               " of '" + table_->name + "'.");
  auto column = static_cast<std::size_t>(i);
  if (change_ != Change::None && pending_[column]) return *pending_[column];
  if (change_ == Change::Adding) return Value();
  requireRow();
  return row_[column + 1];
}

void TableRecordset::addNew() {
  requireWritable();
  pending_.assign(table_->columns.size(), std::nullopt);
  change_ = Change::Adding;
}

void TableRecordset::edit() {
  requireWritable();
  requireRow();
  pending_.assign(table_->columns.size(), std::nullopt);
  change_ = Change::Editing;
}

void TableRecordset::setField(const std::string& name, const Value& value) {
  int column = columnIndex(name);
  if (change_ == Change::None)
    throw StoreError(3020, "Update or CancelUpdate without AddNew or Edit.");
  pending_[static_cast<std::size_t>(column)] = value;
}

void TableRecordset::update() {
  Change change = std::exchange(change_, Change::None);
  if (change == Change::None)
    throw StoreError(3020, "Update or CancelUpdate without AddNew or Edit.");
  if (change == Change::Adding)
    insertRow();
  else
    updateRow();
}

void TableRecordset::insertRow() {
  std::string names, slots;
  std::vector<Value> values;
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    if (!pending_[i]) continue;
    values.push_back(*pending_[i]);
    names += (values.size() > 1 ? ", " : "") + fQuoteName(table_->columns[i]);
    slots += (values.size() > 1 ? ", ?" : "?") + std::to_string(values.size());
  }
  std::string sql = "INSERT INTO " + fQuoteName(table_->name) +
                    (values.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + slots + ")");
  Connection& store = connection();
  StatementRun run(store.handle(), store.statement(sql), table_->name);
  for (std::size_t i = 0; i < values.size(); ++i) run.bind(static_cast<int>(i) + 1, values[i]);
  run.step();
  store.noteChange();
}

void TableRecordset::updateRow() {
  std::string assignments;
  std::vector<Value> values;
  for (std::size_t i = 0; i < pending_.size(); ++i) {
    if (!pending_[i]) continue;
    values.push_back(*pending_[i]);
    assignments += (values.size() > 1 ? ", " : "") + fQuoteName(table_->columns[i]) + " = ?" +
                   std::to_string(values.size());
  }
  if (values.empty()) return;
  Value rowid = row_.at(0);
  values.push_back(rowid);
  std::string sql = "UPDATE " + fQuoteName(table_->name) + " SET " + assignments +
                    " WHERE rowid = ?" + std::to_string(values.size());
  Connection& store = connection();
  {
    StatementRun run(store.handle(), store.statement(sql), table_->name);
    for (std::size_t i = 0; i < values.size(); ++i) run.bind(static_cast<int>(i) + 1, values[i]);
    run.step();
  }
  store.noteChange();
  if (!readRow(selectRow_ + " WHERE rowid = ?1", {rowid})) place_ = Place::Nowhere;
}

void TableRecordset::remove() {
  requireWritable();
  requireRow();
  Connection& store = connection();
  {
    StatementRun run(store.handle(), store.statement("DELETE FROM " + fQuoteName(table_->name) +
                                                     " WHERE rowid = ?1"),
                     table_->name);
    run.bind(1, row_.at(0));
    run.step();
  }
  store.noteChange();
  place_ = Place::Deleted;
}

void TableRecordset::close() { connection_.reset(); }

}  // namespace platform::sqlite
