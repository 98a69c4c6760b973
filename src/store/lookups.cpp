// Look-ups of ragas, talas, phrases, items and prompts. Keeps no state.
#include "store/lookups.h"

#include "core/errors.h"
#include "core/session.h"
#include "notation/tokenizer.h"
#include "platform/store.h"
#include "store/positioning.h"
#include "store/queries.h"
#include "store/query_open.h"


namespace {

using platform::RecordsetType;
using platform::Value;

constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kFalse = 0;

// The run time's fault for using a store that is not open.
constexpr long kErrObjectNotSet = 91;

platform::Database& openStore(const std::unique_ptr<platform::Database>& store) {
  if (!store) sRaiseError(kErrObjectNotSet, "Object variable or With block variable not set");
  return *store;
}

enum PhraseType { kAlap = 1, kLayakari = 2, kTaan = 3 };
enum AddInfoType { kSimilarRaga = 1, kComposition = 2, kFilmSong = 3 };

std::unique_ptr<platform::Recordset> openTable(platform::Database& store, const char* table) {
  return store.openRecordset(table, RecordsetType::Table);
}

std::int16_t asFlag(bool found) { return found ? kTrue : kFalse; }

// The raga's phrases of one type, sought in the given store; null when
// that store is not open.
std::unique_ptr<platform::Recordset> seekPhrases(std::int16_t ragaId, std::int16_t store,
                                                 PhraseType type) {
  platform::Database* db = fDatabaseFor(store);
  if (!db) return nullptr;
  auto rs = openTable(*db, "Raga - ALT Phrases");
  sSetTablePKRecord2(*rs, ragaId, static_cast<int>(type));
  return rs;
}

std::int16_t hasPhrases(std::int16_t ragaId, std::int16_t store, PhraseType type) {
  auto rs = seekPhrases(ragaId, store, type);
  return asFlag(rs && !rs->noMatch());
}

std::int16_t hasItems(std::int16_t ragaId, std::int16_t store, AddInfoType type) {
  platform::Database* db = fDatabaseFor(store);
  if (!db) return kFalse;
  auto rs = openTable(*db, "Raga - Additional Information");
  sSetTableIndexRecord2(*rs, "AddInfoType", ragaId, static_cast<int>(type));
  return asFlag(!rs->noMatch());
}

std::int16_t phraseCount(std::int16_t ragaId, std::int16_t store, PhraseType type) {
  auto rs = seekPhrases(ragaId, store, type);
  return rs ? fParseString(rs->field("NotesPhrase").asText(), ",") : 0;
}

// Moves to the last row for the count, then back to the first; 0 when empty.
std::int16_t countRows(platform::Recordset& rs) {
  if (rs.eof()) return 0;
  rs.moveLast();
  auto count = static_cast<std::int16_t>(rs.recordCount());
  rs.moveFirst();
  return count;
}

}  // namespace

std::int16_t fGetRagaId(const std::string& name) {
  NV_PROC("fGetRagaId");
  auto rs = openTable(openStore(gDbA), "RagaNameList");
  sSetTablePKRecord(*rs, name);
  if (rs->noMatch()) return 0;
  return static_cast<std::int16_t>(rs->field("Raga Index").asInteger());
}

std::string fGetRagaName(std::int16_t ragaId) {
  NV_PROC("fGetRagaName");
  auto rs = openTable(openStore(gDbA), "RagaNameList");
  sSetTableIndexRecord(*rs, "RagaIndex", ragaId);
  if (rs->noMatch()) return "";
  return rs->field("Raga").asText();
}

std::int16_t fGetRagaLevel(const std::string& name) {
  NV_PROC("fGetRagaLevel");
  auto rs = openTable(openStore(gDbA), "RagaNameList");
  sSetTablePKRecord(*rs, name);
  return static_cast<std::int16_t>(rs->field("Level").asInteger());
}

std::int16_t fGetTalaId(const std::string& name) {
  NV_PROC("fGetTalaId");
  auto rs = openTable(openStore(gDbA), "Tala - Technical Information");
  sSetTableIndexRecord(*rs, "TalaByName", name);
  return static_cast<std::int16_t>(rs->field("Tala Id").asInteger());
}

std::string fGetTalaName(std::int16_t talaId) {
  NV_PROC("fGetTalaName");
  auto rs = openTable(openStore(gDbA), "Tala - Technical Information");
  sSetTablePKRecord(*rs, talaId);
  return rs->field("Tala Name").asText();
}

std::string fGetMusicSetName(std::int16_t setId) {
  NV_PROC("fGetMusicSetName");
  auto rs = openTable(openStore(gDbB), "Scale Shift Specs");
  sSetTablePKRecord(*rs, setId);
  return rs->field("NPSetName").asText();
}

std::int16_t fHasAlap(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fHasAlap");
  return hasPhrases(ragaId, store, kAlap);
}

std::int16_t fHasLayakari(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fHasLayakari");
  return hasPhrases(ragaId, store, kLayakari);
}

std::int16_t fHasTaan(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fHasTaan");
  return hasPhrases(ragaId, store, kTaan);
}

std::int16_t fHasSimilarRagas(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fHasSimilarRagas");
  return hasItems(ragaId, store, kSimilarRaga);
}

std::int16_t fHasCompositions(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fHasCompositions");
  return hasItems(ragaId, store, kComposition);
}

std::int16_t fHasFilmSongs(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fHasFilmSongs");
  return hasItems(ragaId, store, kFilmSong);
}

std::int16_t fAlapCount(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fAlapCount");
  return phraseCount(ragaId, store, kAlap);
}

std::int16_t fLayakariCount(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fLayakariCount");
  return phraseCount(ragaId, store, kLayakari);
}

std::int16_t fTaanCount(std::int16_t ragaId, std::int16_t store) {
  NV_PROC("fTaanCount");
  return phraseCount(ragaId, store, kTaan);
}

std::int16_t fAddInfoCount(std::int16_t type) {
  NV_PROC("fAddInfoCount");
  sPatchSQLStr5(type);
  auto rs = fOpenQuery(openStore(gDbA), gSQLStr5);
  return rs ? countRows(*rs) : 0;
}

std::string fGetPrompts(const std::string& numbers) {
  NV_PROC("fGetPrompts");
  auto rs = openTable(openStore(gDbA), "Prompts");
  std::string prompts;
  bool first = true;
  for (const std::string& number : fSplitWords(numbers, ",")) {
    if (!first) prompts += " - ";
    first = false;
    sSetTablePKRecord(*rs, Value(number).asInteger());
    if (!rs->noMatch()) prompts += rs->field("Prompt").asText();
  }
  return prompts;
}

std::int16_t fLoadList(std::vector<std::string>& items, std::int16_t type,
                       std::int16_t listMode) {
  NV_PROC("fLoadList");
  items.clear();
  if (listMode == 1)
    sPatchSQLStr5ForExi(type);
  else if (listMode == 2)
    sPatchSQLStr5ForNew(type);
  else
    sPatchSQLStr5(type);
  auto rs = fOpenQuery(openStore(gDbA), gSQLStr5);
  if (!rs) return 0;
  std::int16_t count = countRows(*rs);
  for (; !rs->eof(); rs->moveNext()) items.push_back(rs->field("Add Info").asText());
  return count;
}

void sLoadRagaList(std::vector<std::string>& names) {
  NV_PROC("sLoadRagaList");
  names.clear();
  sPatchSQLStr13(7);  // above every group: all ragas
  auto rs = fOpenQuery(openStore(gDbA), gSQLStr13);
  if (!rs) return;
  for (; !rs->eof(); rs->moveNext()) names.push_back(rs->field("Raga").asText());
}

void sLoadGroupRagaNames(std::vector<std::string>& names, std::int16_t level) {
  NV_PROC("sLoadGroupRagaNames");
  names.clear();
  if (level == 1)
    sPatchSQLStr16(1);
  else
    sPatchSQLStr4(level);
  auto rs = fOpenQuery(openStore(gDbA), level == 1 ? gSQLStr16 : gSQLStr4);
  if (!rs) return;
  for (; !rs->eof(); rs->moveNext()) names.push_back(rs->field("Raga").asText());
}

std::int16_t fGetSeqRagaId(std::int16_t n) {
  NV_PROC("fGetSeqRagaId");
  auto rs = openTable(openStore(gDbA), "Raga - Technical Information");
  if (n < 1) return 0;
  for (std::int16_t row = 1; row < n && !rs->eof(); ++row) rs->moveNext();
  if (rs->eof()) return 0;
  gCurrRagaId = static_cast<std::int16_t>(rs->field("Raga Index").asInteger());
  return gCurrRagaId;
}

RagaThataAndTime fGetRagaThataAndTime(std::int16_t ragaId) {
  NV_PROC("fGetRagaThataAndTime");
  auto rs = openTable(openStore(gDbA), "Raga - Technical Information");
  sSetTablePKRecord(*rs, static_cast<int>(ragaId));
  if (rs->noMatch()) return {};
  return {rs->field("Thata").asText(), rs->field("Appropriate time").asText()};
}

std::int32_t fGetRagaDroneType(std::int16_t ragaId) {
  NV_PROC("fGetRagaDroneType");
  auto rs = openTable(openStore(gDbA), "Raga - Technical Information");
  sSetTablePKRecord(*rs, static_cast<int>(ragaId));
  if (rs->noMatch()) return kNoSuchRaga;
  return static_cast<std::int32_t>(rs->field("DroneType").asInteger());
}
