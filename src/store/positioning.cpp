// Record positioning on table-type recordsets, and the store a selector
// names. Keeps no state.
#include "store/positioning.h"

#include "core/errors.h"
#include "core/session.h"

void sSetTablePKRecord(platform::Recordset& recordset, const platform::Value& key) {
  NV_PROC("sSetTablePKRecord");
  recordset.setIndex("PrimaryKey");
  recordset.seek("=", {key});
}

void sSetTablePKRecord2(platform::Recordset& recordset, const platform::Value& key1,
                        const platform::Value& key2) {
  NV_PROC("sSetTablePKRecord2");
  recordset.setIndex("PrimaryKey");
  recordset.seek("=", {key1, key2});
}

void sSetTablePKRecord3(platform::Recordset& recordset, const platform::Value& key1,
                        const platform::Value& key2, const platform::Value& key3) {
  NV_PROC("sSetTablePKRecord3");
  recordset.setIndex("PrimaryKey");
  recordset.seek("=", {key1, key2, key3});
}

void sSetTableIndexRecord(platform::Recordset& recordset, const std::string& indexName,
                          const platform::Value& key) {
  NV_PROC("sSetTableIndexRecord");
  recordset.setIndex(indexName);
  recordset.seek("=", {key});
}

void sSetTableIndexRecord2(platform::Recordset& recordset, const std::string& indexName,
                           const platform::Value& key1, const platform::Value& key2) {
  NV_PROC("sSetTableIndexRecord2");
  recordset.setIndex(indexName);
  recordset.seek("=", {key1, key2});
}

platform::Database* fSetDatabase() {
  NV_PROC("fSetDatabase");
  return fDatabaseFor(gCurrDbSelector);
}

platform::Database* fDatabaseFor(int selector) {
  switch (selector) {
    case 1:
      return gDbA.get();
    case 2:
      return gDbB.get();
    default:
      return nullptr;
  }
}
