// Translation of SQLite result codes into the store's error numbers, so that
// the logic's error trap sees the same classes whatever the engine.
// Keeps no state.
#pragma once

#include <string>

struct sqlite3;

namespace platform::sqlite {

// Error number for a SQLite result code and its message text. A query that
// cannot be evaluated is 3075, a missing table 3078, a key clash 3022.
long fStoreErrorNumber(int resultCode, const std::string& message);

// Throws StoreError for the connection's last failure; `context` says what
// was being done (a table name, the first words of a query).
[[noreturn]] void sThrowSqlite(sqlite3* handle, int resultCode, const std::string& context);

}  // namespace platform::sqlite
