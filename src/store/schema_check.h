// Checking that a store holds every table and column the program reads.
//
// The tables and columns expected are read from the very schema text the
// store is built from (the CREATE TABLE statements of schema_library.sql and
// schema_shared.sql for the library store, compiled into the program), so the
// list can never fall out of step with the schema. Every list read of the
// query catalogue and every table the look-ups open is a table of that
// schema. Pure data access: the check tells what is missing and shows nothing.
// Keeps no state.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {
class Database;
}

// One table of a schema text and its columns, in the order written there.
struct SchemaTable {
  std::string name;
  std::vector<std::string> columns;
};

// A table or column a store lacks; column is empty when the whole table is.
struct MissingSchemaItem {
  std::string table;
  std::string column;
};

// The tables of the CREATE TABLE statements of `schemaSql` ("--" comments,
// double-quoted or bare names; other statements are stepped over).
std::vector<SchemaTable> fSchemaTables(const std::string& schemaSql);

// The first table, or column of a present table, of `schemaSql` that `store`
// lacks, in the schema's order; nullopt when every one is there. Names
// compare without regard to letter case, as the engine's do. A store fault
// other than a missing table or column (a damaged file, a closed store) is
// thrown on as platform::StoreError.
std::optional<MissingSchemaItem> fFirstMissingSchemaItem(platform::Database& store,
                                                         const std::string& schemaSql);

// The library store's schema text: schema_library.sql followed by
// schema_shared.sql, as the build tool runs them (generated at configure time).
extern const char* const kLibraryStoreSchema;
