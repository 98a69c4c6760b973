// Reading and writing the 27 note columns of "ONPR" and "ONPRSets".
// Keeps no state of its own; fills gNoteAdjust and gCurrTonicNoteId.
#include "sound/onpr_rows.h"

#include <cstdio>

#include "core/errors.h"
#include "core/session.h"
#include "sound/tuning_math.h"
#include "store/positioning.h"

namespace {

// "00" to "26".
std::string columnName(int column) {
  char name[4];
  std::snprintf(name, sizeof name, "%02d", column);
  return name;
}

}  // namespace

float fGetSPCFactor(const platform::Recordset& recordset, std::int16_t column) {
  if (column < 0 || column >= kOnprColumns) return 0.0f;
  return static_cast<float>(recordset.field(columnName(column)).asDouble());
}

void sUpdateNoteAdjustmentSPCs(platform::Recordset& recordset, const NoteAdjustVector& vector) {
  NV_PROC("sUpdateNoteAdjustmentSPCs");
  for (int i = 0; i < kOnprColumns; ++i) {
    const int noteId = fOnprColumnNote(gCurrTonicNoteId, i);
    if (noteId < 0 || noteId >= kNoteAdjustSize) {
      sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range");
      return;
    }
    recordset.setField(columnName(i), static_cast<double>(vector[noteId]));
  }
}

void sLoadNoteAdjustSPCVector([[maybe_unused]] const std::string& setName,
                              std::int16_t instrumentType, std::int16_t musicSetId) {
  NV_PROC("sLoadNoteAdjustSPCVector");
  gNoteAdjust.fill(0.0f);
  platform::Database& store = musicSetId <= kLastBuiltInSetId ? *gDbA : *gDbB;
  auto rs = store.openRecordset("ONPR", platform::RecordsetType::Table);
  sSetTablePKRecord2(*rs, static_cast<int>(musicSetId), static_cast<int>(instrumentType));
  if (!rs->noMatch()) {
    gCurrTonicNoteId = static_cast<std::int16_t>(rs->field("TonicNoteId").asInteger());
    OnprRow corrections{};
    for (int i = 0; i < kOnprColumns; ++i)
      corrections[i] = fGetSPCFactor(*rs, static_cast<std::int16_t>(i));
    gNoteAdjust = fSpreadOnprColumns(gCurrTonicNoteId, corrections);
  }
  rs->close();
}
