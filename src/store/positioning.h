// Record positioning on table-type recordsets, and the store a selector
// names. Each helper chooses an index and seeks "=" on the keys; none
// reports a miss: the caller tests NoMatch.
// Keeps no state.
#pragma once

#include "platform/store.h"

// Index "PrimaryKey", seek on one, two or three key values.
void sSetTablePKRecord(platform::Recordset& recordset, const platform::Value& key);
void sSetTablePKRecord2(platform::Recordset& recordset, const platform::Value& key1,
                        const platform::Value& key2);
void sSetTablePKRecord3(platform::Recordset& recordset, const platform::Value& key1,
                        const platform::Value& key2, const platform::Value& key3);

// Index `indexName`, seek on one or two key values.
void sSetTableIndexRecord(platform::Recordset& recordset, const std::string& indexName,
                          const platform::Value& key);
void sSetTableIndexRecord2(platform::Recordset& recordset, const std::string& indexName,
                           const platform::Value& key1, const platform::Value& key2);

// The store gCurrDbSelector names: 1 the library store gDbA, 2 the user
// store gDbB; nullptr for any other value.
platform::Database* fSetDatabase();

// The store a selector argument names, by the same rule.
platform::Database* fDatabaseFor(int selector);
