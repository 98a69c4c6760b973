// Tala beat counts from the library store.
#include "store/tala_beats.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"

std::int16_t fGetBeatCountForTala(std::int16_t talaId) {
  NV_PROC("fGetBeatCountForTala");
  if (!gDbA) return 0;
  auto tala = gDbA->openRecordset("Tala - Technical Information", platform::RecordsetType::Table);
  tala->setIndex("PrimaryKey");
  tala->seek("=", {platform::Value(static_cast<int>(talaId))});
  std::int16_t beats = 0;
  if (!tala->noMatch()) beats = static_cast<std::int16_t>(tala->field("Beat Count").asInteger());
  tala->close();
  return beats;
}
