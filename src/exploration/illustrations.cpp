// The illustration catalogue (see illustrations.h).
#include "exploration/illustrations.h"

#include <memory>
#include <string>

#include "core/errors.h"
#include "core/session.h"
#include "exploration/exploration_state.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/lookups.h"
#include "store/positioning.h"
#include "store/queries.h"
#include "store/query_open.h"

namespace {

using platform::RecordsetType;

constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kLibrary = 1;
constexpr std::int16_t kUser = 2;

// Keys of the illustration classes.
constexpr int kScaleKey = 1;
constexpr int kPakadKey = 2;
constexpr int kAlapKey = 3;
constexpr int kLayakariKey = 4;
constexpr int kTaanKey = 5;

// Types of the composition query.
constexpr int kSimilarType = 1;
constexpr int kCompositionType = 2;
constexpr int kFilmType = 3;

// The drone's note by the raga's drone type: 1 Pa, 2 Ma, 3 Ni; another
// value as it stands.
std::string fDroneName(const platform::Value& droneType) {
  if (droneType.isNull()) return "";
  switch (droneType.asInteger()) {
    case 1: return "Pa";
    case 2: return "Ma";
    case 3: return "Ni";
    default: return droneType.asText();
  }
}

std::unique_ptr<platform::Recordset> openIllustrations() {
  return gDbA->openRecordset("IllustrationsList", RecordsetType::Table);
}

// The caption of class `key`, "" when the table lacks it.
std::string fCaption(platform::Recordset& table, int key) {
  sSetTablePKRecord(table, key);
  if (table.noMatch()) return "";
  return table.field("IllustrationName").asText();
}

std::string fCounted(platform::Recordset& table, int key, std::int16_t count) {
  return fCaption(table, key) + "(" + std::to_string(count) + ")";
}

// Adds "<label> - <name>" for each item of `type` of the raga in `store`.
// The entries of compositions, similar ragas and film songs use these
// labels rather than the class captions, since the name is read back from
// the words after the dash.
void sAddItems(platform::Control& list, platform::Database& store, int type,
               const std::string& label) {
  sPatchSQLStr7(gCurrRagaId, type);
  auto rs = fOpenQuery(store, gSQLStr7);
  if (!rs) return;
  for (; !rs->eof(); rs->moveNext()) list.addItem(label + " - " + rs->field("Add Info").asText());
}

}  // namespace

void sLoadSystemIllustratinsList() {
  NV_PROC("sLoadSystemIllustratinsList");
  platform::Control& list = gCurrForm->control("cNVIllusList");
  auto table = openIllustrations();
  list.clear();
  list.addItem(fCaption(*table, kScaleKey));
  list.addItem(fCaption(*table, kPakadKey));
  list.addItem(fCounted(*table, kAlapKey,
                        fHasAlap(gCurrRagaId, kLibrary) == kTrue ? fAlapCount(gCurrRagaId, kLibrary)
                                                                  : 0));
  if (fHasLayakari(gCurrRagaId, kLibrary) == kTrue)
    list.addItem(fCounted(*table, kLayakariKey, fLayakariCount(gCurrRagaId, kLibrary)));
  if (fHasTaan(gCurrRagaId, kLibrary) == kTrue)
    list.addItem(fCounted(*table, kTaanKey, fTaanCount(gCurrRagaId, kLibrary)));
  sAddItems(list, *gDbA, kCompositionType, "Composition");
  if (fHasSimilarRagas(gCurrRagaId, kLibrary) == kTrue)
    sAddItems(list, *gDbA, kSimilarType, "Similar Raga");
  if (fHasFilmSongs(gCurrRagaId, kLibrary) == kTrue)
    sAddItems(list, *gDbA, kFilmType, "Film Song");
  list.setVisible(true);
}

std::int16_t fLoadUserIllustrationsList() {
  NV_PROC("fLoadUserIllustrationsList");
  std::int16_t shown = 0;
  platform::Control& list = gCurrForm->control("cUserIllusList");
  auto table = openIllustrations();
  list.clear();
  if (!gDbB) return shown;
  if (fHasAlap(gCurrRagaId, kUser) == kTrue) {
    list.addItem(fCounted(*table, kAlapKey, fAlapCount(gCurrRagaId, kUser)));
    shown = kTrue;
  }
  if (fHasLayakari(gCurrRagaId, kUser) == kTrue) {
    list.addItem(fCounted(*table, kLayakariKey, fLayakariCount(gCurrRagaId, kUser)));
    shown = kTrue;
  }
  if (fHasTaan(gCurrRagaId, kUser) == kTrue) {
    list.addItem(fCounted(*table, kTaanKey, fTaanCount(gCurrRagaId, kUser)));
    shown = kTrue;
  }
  if (fHasCompositions(gCurrRagaId, kUser) == kTrue) {
    sAddItems(list, *gDbB, kCompositionType, "Composition");
    shown = kTrue;
  }
  return shown;
}

std::int16_t fLoadScalesList() {
  NV_PROC("fLoadScalesList");
  if (!gDbB) return 0;
  auto table = gDbB->openRecordset("Scale Shift Specs", RecordsetType::Table);
  if (table->eof()) return 0;
  platform::Control& list = gCurrForm->control("cScaleList");
  list.clear();
  for (; !table->eof(); table->moveNext()) list.addItem(table->field("NPSetName").asText());
  return kTrue;
}

// Every field of the raga's technical data, a line for each group: the
// first line as it always was, then the vadi, samvadi, drone and tuning
// set, the aroha, avroha and pakad each with its durations, and the notes
// on how the raga is sung. VadiNum, SamvadiNum and TimeNum are the vadi,
// samvadi and time again as numbers the grid sorts by, and show as those.
// (The text used to hold the first line and the notes alone, so "Raga
// Info" showed two lines and left out the rest of the data.)
void sLoadRagaNotes() {
  NV_PROC("sLoadRagaNotes");
  auto table = gDbA->openRecordset("Raga - Technical Information", RecordsetType::Table);
  sSetTablePKRecord(*table, gCurrRagaId);
  if (table->noMatch()) {
    gRagaNotesText.clear();
    return;
  }
  auto text = [&table](const char* field) { return table->field(field).asText(); };
  std::string thata = text("Thata");
  if (thata.empty()) thata = "(Undefined)";
  auto phrase = [&text](const char* name, const char* notes, const char* durations) {
    return std::string(name) + " = " + text(notes) + " (durations in 1/100 s: " + text(durations) +
           ")" + gCrLf;
  };
  gRagaNotesText = "Thata = " + thata + "; Jati = " + text("Jati") + "; Time = " +
                   text("Appropriate time") + gCrLf +
                   "Vadi = " + text("Vadi") + "; Samvadi = " + text("Samvadi") + "; Drone = " +
                   fDroneName(table->field("DroneType")) + "; Tuning set = " + text("OPRSetId") +
                   gCrLf + phrase("Aroha", "AarohaAlt", "AaDuration") +
                   phrase("Avroha", "AvrohaAlt", "AvDuration") +
                   phrase("Pakad", "Pakad", "PakadDuration") + text("Notes");
}
