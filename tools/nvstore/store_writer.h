// Writing rows into a store: runs the schema on an empty SQLite store and
// inserts the rows of the sources, converting each value to its column's
// declared type (INTEGER, REAL, TEXT) and naming the source line of every
// fault. A store file is built under a temporary name and renamed when
// complete, so a failed build never leaves a store that looks valid.
#pragma once

#include <string>
#include <vector>

#include "record_file.h"

struct sqlite3;

namespace nvstore {

// Runs a whole schema text; false (with an error) when SQLite refuses it.
bool applySchema(sqlite3* db, const std::string& schemaSql, const std::string& schemaName,
                 std::vector<SourceError>& errors);

// Inserts the rows in one transaction. Unknown tables or columns,
// non-numeric values in numeric columns, a Raga Index outside 1 to 32767
// and key clashes are errors; the
// transaction is rolled back when there is any. Returns true when clean.
bool insertRows(sqlite3* db, const std::vector<Row>& rows, std::vector<SourceError>& errors);

// Builds the store file `outPath` from a schema and rows. On any error the
// file is left as it was and false is returned.
bool writeStoreFile(const std::string& outPath, const std::string& schemaSql,
                    const std::string& schemaName, const std::vector<Row>& rows,
                    std::vector<SourceError>& errors);

}  // namespace nvstore
