// The user's compositions and phrases in the user store (see
// composer_store.h).
#include "composer/composer_store.h"

#include <algorithm>
#include <memory>

#include "core/errors.h"
#include "platform/store.h"
#include "store/positioning.h"

namespace {

using platform::Recordset;
using platform::RecordsetType;
using platform::Value;

constexpr const char* kHeaders = "Raga - Additional Information";
constexpr const char* kParts = "Raga - Composition Notations";
constexpr const char* kPhrases = "Raga - ALT Phrases";

std::unique_ptr<Recordset> openTable(platform::Database& store, const char* table) {
  return store.openRecordset(table, RecordsetType::Table);
}

Value indexValue(std::int32_t notationIndex) { return static_cast<std::int64_t>(notationIndex); }

// The header of notationIndex made current; false when there is none.
bool seekHeader(Recordset& headers, std::int32_t notationIndex) {
  sSetTableIndexRecord(headers, "CompositionId", indexValue(notationIndex));
  return !headers.noMatch();
}

bool seekPart(Recordset& parts, std::int32_t notationIndex, int part) {
  sSetTablePKRecord2(parts, indexValue(notationIndex), part);
  return !parts.noMatch();
}

void writePart(Recordset& parts, const CompPartRecord& part) {
  if (seekPart(parts, part.NotationIndex, part.Part))
    parts.edit();
  else
    parts.addNew();
  parts.setField("Notation Index", indexValue(part.NotationIndex));
  parts.setField("Composition Part", static_cast<int>(part.Part));
  parts.setField("Raga Index", static_cast<int>(part.RagaId));
  parts.setField("CompositionMukhada", part.Mukhada);
  parts.setField("CompositionText", part.Text);
  parts.setField("Syllables", part.Syllables);
  parts.setField("SyllableDuration", part.SyllableDuration);
  parts.setField("Notation", part.Notation);
  parts.setField("NotesDuration", part.NotesDuration);
  parts.setField("Tala Id", static_cast<int>(part.TalaId));
  parts.setField("Starting Beat", static_cast<int>(part.StartingBeat));
  parts.setField("Playing Speed", static_cast<int>(part.PlayingSpeed));
  parts.update();
}

}  // namespace

void sWriteCompositionToStore(platform::Database& store, const TCompInfoRecord& header,
                              const std::array<CompPartRecord, kCompPartCount>& parts) {
  NV_PROC("sWriteCompositionToStore");
  platform::Transaction transaction(store);
  auto headers = openTable(store, kHeaders);
  if (!seekHeader(*headers, parts[0].NotationIndex)) {
    headers->addNew();
    headers->setField("Raga Index", static_cast<int>(header.RagaId));
    headers->setField("Add Info", header.Name);
    headers->setField("Add Info Type", static_cast<int>(header.InfoType));
    headers->setField("Notation Index", indexValue(header.NotationIndex));
    headers->update();
  }
  auto rows = openTable(store, kParts);
  writePart(*rows, parts[0]);
  writePart(*rows, parts[1]);
  transaction.commit();
}

void sWriteALTToStore(platform::Database& store, std::int16_t ragaId, std::int16_t phraseType,
                      const std::string& notes, const std::string& durations) {
  NV_PROC("sWriteALTToStore");
  platform::Transaction transaction(store);
  auto rows = openTable(store, kPhrases);
  sSetTablePKRecord2(*rows, static_cast<int>(ragaId), static_cast<int>(phraseType));
  if (rows->noMatch()) {
    rows->addNew();
    rows->setField("RagaIndex", static_cast<int>(ragaId));
    rows->setField("PhraseType", static_cast<int>(phraseType));
  } else {
    rows->edit();
  }
  rows->setField("NotesPhrase", notes);
  rows->setField("DurationPhrase", phraseType == 3 ? Value() : Value(durations));
  rows->update();
  transaction.commit();
}

std::int32_t fNextUserCompositionIndex(platform::Database& store) {
  NV_PROC("fNextUserCompositionIndex");
  std::int64_t highest = 0;
  for (const char* table : {kHeaders, kParts}) {
    auto rows = openTable(store, table);
    for (rows->moveFirst(); !rows->eof(); rows->moveNext())
      highest = std::max(highest, rows->field("Notation Index").asInteger());
  }
  return static_cast<std::int32_t>(highest + 1);
}

std::int32_t fFindUserComposition(platform::Database& store, std::int16_t ragaId, const std::string& name) {
  NV_PROC("fFindUserComposition");
  auto headers = openTable(store, kHeaders);
  sSetTablePKRecord3(*headers, static_cast<int>(ragaId), name, static_cast<int>(kCompositionInfoType));
  return headers->noMatch() ? 0 : static_cast<std::int32_t>(headers->field("Notation Index").asInteger());
}

void sRenameUserComposition(platform::Database& store, std::int32_t notationIndex, const std::string& newName) {
  NV_PROC("sRenameUserComposition");
  platform::Transaction transaction(store);
  auto headers = openTable(store, kHeaders);
  if (seekHeader(*headers, notationIndex)) {
    headers->edit();
    headers->setField("Add Info", newName);
    headers->update();
  }
  auto parts = openTable(store, kParts);
  for (int part : {1, 2}) {
    if (!seekPart(*parts, notationIndex, part)) continue;
    parts->edit();
    parts->setField("CompositionMukhada", newName);
    parts->update();
  }
  transaction.commit();
}

void sDeleteUserComposition(platform::Database& store, std::int32_t notationIndex) {
  NV_PROC("sDeleteUserComposition");
  platform::Transaction transaction(store);
  auto headers = openTable(store, kHeaders);
  if (seekHeader(*headers, notationIndex)) headers->remove();
  auto parts = openTable(store, kParts);
  for (int part : {1, 2})
    if (seekPart(*parts, notationIndex, part)) parts->remove();
  transaction.commit();
}

void sDeleteUserPhrases(platform::Database& store, std::int16_t ragaId, std::int16_t phraseType) {
  NV_PROC("sDeleteUserPhrases");
  platform::Transaction transaction(store);
  auto rows = openTable(store, kPhrases);
  sSetTablePKRecord2(*rows, static_cast<int>(ragaId), static_cast<int>(phraseType));
  if (!rows->noMatch()) rows->remove();
  transaction.commit();
}
