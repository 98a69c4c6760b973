// Opening a query of the catalogue, forgiving texts that cannot be
// evaluated. Keeps no state.
#include "store/query_open.h"

#include "core/errors.h"

std::unique_ptr<platform::Recordset> fOpenQuery(platform::Database& store,
                                                const std::string& text) {
  try {
    return store.openRecordset(text, platform::RecordsetType::Snapshot);
  } catch (const platform::StoreError& error) {
    if (error.number != kErrQueryExpression) throw;
    sRaiseError(error.number, error.what(), "Store");  // returns: the fault is forgiven
    return nullptr;
  }
}
