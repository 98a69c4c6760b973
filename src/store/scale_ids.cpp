// The high-water mark of user scale ids (see scale_ids.h). No state.
#include "store/scale_ids.h"

#include <algorithm>
#include <string>

#include "core/errors.h"
#include "platform/store.h"
#include "store/positioning.h"

namespace {

using platform::RecordsetType;
using platform::Value;

constexpr std::int64_t kLastLibraryScaleId = 12;
const char* const kMarkName = "LastScaleId";

std::int64_t largestId(platform::Database& store, const char* table) {
  auto rs = store.openRecordset(table, RecordsetType::Table);
  std::int64_t largest = kLastLibraryScaleId;
  for (; !rs->eof(); rs->moveNext()) largest = std::max(largest, rs->field("NPSetId").asInteger());
  rs->close();
  return largest;
}

// The mark as stored: 0 when the row is missing, Null or not a number.
std::int64_t storedMark(platform::Recordset& parameters) {
  sSetTablePKRecord(parameters, Value(kMarkName));
  if (parameters.noMatch() || parameters.field("Parameter Value").isNull()) return 0;
  try {
    return std::stoll(parameters.field("Parameter Value").asText());
  } catch (const std::exception&) {
    return 0;
  }
}

}  // namespace

std::int64_t fNextScaleId(platform::Database& userStore) {
  NV_PROC("fNextScaleId");
  auto parameters = userStore.openRecordset("User Parameters", RecordsetType::Table);
  const std::int64_t mark = storedMark(*parameters);
  parameters->close();
  return std::max({mark, largestId(userStore, "Scale Shift Specs"), largestId(userStore, "ONPR")}) + 1;
}

void sRecordScaleId(platform::Database& userStore, std::int64_t id) {
  NV_PROC("sRecordScaleId");
  auto parameters = userStore.openRecordset("User Parameters", RecordsetType::Table);
  const std::int64_t mark = storedMark(*parameters);
  if (id > mark) {
    if (parameters->noMatch()) {
      parameters->addNew();
      parameters->setField("Parameter Name", Value(kMarkName));
    } else {
      parameters->edit();
    }
    parameters->setField("Parameter Value", Value(std::to_string(id)));
    parameters->update();
  }
  parameters->close();
}
