// The statement texts that walk one table in the order of one index: first
// and last row, the row after a given one, and Seek on 1..n leading keys.
// Built once per table and index and shared by every recordset on them.
// State: none beyond the texts of one record.
#pragma once

#include <string>
#include <vector>

#include "platform/sqlite/connection.h"

namespace platform::sqlite {

struct TableOrder {
  std::vector<KeyColumn> keys;  // empty: rowid order
  std::vector<int> keyFields;   // the keys as column numbers of the table
  bool descending = false;      // some key sorts DESC
  std::string firstRow;         // "SELECT rowid, * ... ORDER BY ... LIMIT 1"
  std::string lastRow;
  // The row after ?1..?n (key values) and ?n+1 (rowid): a row-value test
  // the index serves, and the same spelt out for Null keys and DESC.
  std::string nextRow;
  std::string nextRowNullSafe;
  std::vector<std::string> seekRow;  // by number of key values - 1
};

// The texts for `table` in the order of `keys`; throws 3265 when a key is
// not a column of the table.
TableOrder fBuildTableOrder(const TableInfo& table, std::vector<KeyColumn> keys);

}  // namespace platform::sqlite
