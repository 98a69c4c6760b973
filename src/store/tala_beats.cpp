// Tala beat counts and divisions from the library store.
#include "store/tala_beats.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"

namespace {

// Runs `read` on the tala's row when there is one; a store left unopened or
// a tala not found leaves the caller's default.
template <typename Read>
void withTalaRow(std::int16_t talaId, Read read) {
  if (!gDbA) return;
  auto tala = gDbA->openRecordset("Tala - Technical Information", platform::RecordsetType::Table);
  tala->setIndex("PrimaryKey");
  tala->seek("=", {platform::Value(static_cast<int>(talaId))});
  if (!tala->noMatch()) read(*tala);
  tala->close();
}

}  // namespace

std::int16_t fGetBeatCountForTala(std::int16_t talaId) {
  NV_PROC("fGetBeatCountForTala");
  std::int16_t beats = 0;
  withTalaRow(talaId, [&](platform::Recordset& tala) {
    beats = static_cast<std::int16_t>(tala.field("Beat Count").asInteger());
  });
  return beats;
}

std::vector<Vibhag> fGetVibhagsForTala(std::int16_t talaId) {
  NV_PROC("fGetVibhagsForTala");
  std::vector<Vibhag> vibhags;
  withTalaRow(talaId, [&](platform::Recordset& tala) {
    const auto parsed = parseVibhags(tala.field("Vibhag Beats").asText(), tala.field("Vibhag Marks").asText(),
                                     static_cast<int>(tala.field("Beat Count").asInteger()));
    if (parsed) vibhags = *parsed;
  });
  return vibhags;
}
