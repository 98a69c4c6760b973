// The statement texts that walk one table in the order of one index.
// Keeps no state.
#include "platform/sqlite/table_order.h"

namespace platform::sqlite {
namespace {

// A key column as the index compares it. BINARY is left unsaid: SQLite
// would not search the index for a term that names it.
std::string keyTerm(const KeyColumn& key) {
  if (fSameName(key.collation, "BINARY")) return fQuoteName(key.name);
  return fQuoteName(key.name) + " COLLATE " + key.collation;
}

std::string orderClause(const std::vector<KeyColumn>& keys, bool reverse) {
  std::string clause = " ORDER BY ";
  for (const KeyColumn& key : keys)
    clause += keyTerm(key) + (key.descending != reverse ? " DESC, " : ", ");
  return clause + (reverse ? "rowid DESC" : "rowid");
}

// "Comes after (?1, ?2, ..., rowid ?n+1) in index order" as a row-value
// comparison; right only for ascending keys and key values that are not Null.
std::string afterKeys(const std::vector<KeyColumn>& keys) {
  if (keys.empty()) return "rowid > ?1";
  std::string terms, slots;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    terms += keyTerm(keys[i]) + ", ";
    slots += "?" + std::to_string(i + 1) + ", ";
  }
  return "(" + terms + "rowid) > (" + slots + "?" + std::to_string(keys.size() + 1) + ")";
}

// The same test spelt out column by column, where Null sorts before every
// value and a DESC column reverses its comparison.
std::string afterKeysNullSafe(const std::vector<KeyColumn>& keys) {
  std::string test = "rowid > ?" + std::to_string(keys.size() + 1);
  for (std::size_t i = keys.size(); i-- > 0;) {
    std::string column = keyTerm(keys[i]);
    std::string slot = "?" + std::to_string(i + 1);
    std::string beyond;
    if (keys[i].descending)
      beyond = "(" + column + " < " + slot + " OR (" + column + " IS NULL AND " + slot +
               " IS NOT NULL))";
    else
      beyond = "(" + column + " > " + slot + " OR (" + slot + " IS NULL AND " + column +
               " IS NOT NULL))";
    test = "(" + beyond + " OR (" + column + " IS " + slot + " AND " + test + "))";
  }
  return test;
}

int columnNumber(const TableInfo& table, const std::string& name) {
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    if (fSameName(table.columns[i], name)) return static_cast<int>(i);
  throw StoreError(
      3265, "Item not found in this collection: no field '" + name + "' in '" + table.name + "'.");
}

}  // namespace

TableOrder fBuildTableOrder(const TableInfo& table, std::vector<KeyColumn> keys) {
  TableOrder order;
  order.keys = std::move(keys);
  for (const KeyColumn& key : order.keys) {
    order.keyFields.push_back(columnNumber(table, key.name));
    order.descending = order.descending || key.descending;
  }
  const std::string selectRow = "SELECT rowid, * FROM " + fQuoteName(table.name);
  const std::string orderBy = orderClause(order.keys, false);
  order.firstRow = selectRow + orderBy + " LIMIT 1";
  order.lastRow = selectRow + orderClause(order.keys, true) + " LIMIT 1";
  order.nextRow = selectRow + " WHERE " + afterKeys(order.keys) + orderBy + " LIMIT 1";
  order.nextRowNullSafe =
      selectRow + " WHERE " + afterKeysNullSafe(order.keys) + orderBy + " LIMIT 1";
  std::string equalKeys;
  for (std::size_t i = 0; i < order.keys.size(); ++i) {
    equalKeys += (i ? " AND " : "") + keyTerm(order.keys[i]) + " = ?" + std::to_string(i + 1);
    order.seekRow.push_back(selectRow + " WHERE " + equalKeys + orderBy + " LIMIT 1");
  }
  return order;
}

}  // namespace platform::sqlite
