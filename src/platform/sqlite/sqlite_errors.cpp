// Translation of SQLite result codes into the store's error numbers.
// Keeps no state.
#include "platform/sqlite/sqlite_errors.h"

#include <sqlite3.h>

#include "platform/store.h"

namespace platform::sqlite {

long fStoreErrorNumber(int resultCode, const std::string& message) {
  switch (resultCode & 0xff) {
    case SQLITE_ERROR:
      if (message.find("no such table") != std::string::npos) return 3078;
      return 3075;
    case SQLITE_CONSTRAINT:
      if (resultCode == SQLITE_CONSTRAINT_NOTNULL) return 3314;
      return 3022;
    case SQLITE_READONLY:
      return 3027;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return 3045;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_NOTADB:
      return 3051;
    default:  // CORRUPT, IOERR, FULL, NOMEM, ...: the file cannot be trusted
      return 3049;
  }
}

void sThrowSqlite(sqlite3* handle, int resultCode, const std::string& context) {
  std::string message = handle ? sqlite3_errmsg(handle) : sqlite3_errstr(resultCode);
  const char* file = handle ? sqlite3_db_filename(handle, "main") : nullptr;
  throw StoreError(fStoreErrorNumber(resultCode, message), context + ": " + message,
                   file ? file : "");
}

}  // namespace platform::sqlite
