// Reading the composition at hand into the working record.
// State: gTCompInfo, gCompInfo; sets gCurrCompIndex.
#include "store/working_record_comp.h"

#include <memory>

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "platform/store.h"
#include "store/positioning.h"

TCompInfoRecord gTCompInfo;
std::array<CompPartRecord, kCompPartCount> gCompInfo;

namespace {

using platform::Recordset;

constexpr std::int16_t kSimilarRaga = 7;
constexpr std::int16_t kComposition = 8;

std::int16_t int16Field(const Recordset& row, const char* name) {
  return static_cast<std::int16_t>(row.field(name).asInteger());
}

// Seeks part `part` of notationIndex; true on a hit.
bool seekPart(Recordset& parts, std::int32_t notationIndex, int part) {
  sSetTablePKRecord2(parts, static_cast<std::int64_t>(notationIndex), part);
  return !parts.noMatch();
}

// The working record of part `partNumber` (1 or 2) of notationIndex, its
// keys filled in for the current raga.
CompPartRecord& startPart(int partNumber, std::int32_t notationIndex) {
  CompPartRecord& part = gCompInfo[static_cast<std::size_t>(partNumber - 1)];
  part.NotationIndex = notationIndex;
  part.Part = static_cast<std::int16_t>(partNumber);
  part.RagaId = gCurrRagaId;
  return part;
}

void readFirstPart(const Recordset& row, std::int32_t notationIndex) {
  CompPartRecord& part = startPart(1, notationIndex);
  part.Mukhada = row.field("CompositionMukhada").asText();
  part.Notation = row.field("Notation").asText();
  part.NotesDuration = row.field("NotesDuration").asText();
  part.Text = row.field("CompositionText").asText();
  part.PlayingSpeed = int16Field(row, "Playing Speed");
  if (gCurrPhraseKind == kComposition) {
    part.Syllables = row.field("Syllables").asText();
    part.SyllableDuration = row.field("SyllableDuration").asText();
    part.TalaId = int16Field(row, "Tala Id");
    part.StartingBeat = int16Field(row, "Starting Beat");
  }
}

// Part 2 of a composition: every field of its row.
void readSecondPart(const Recordset& row, std::int32_t notationIndex) {
  CompPartRecord& part = startPart(2, notationIndex);
  part.Mukhada = row.field("CompositionMukhada").asText();
  part.Text = row.field("CompositionText").asText();
  part.Syllables = row.field("Syllables").asText();
  part.SyllableDuration = row.field("SyllableDuration").asText();
  part.Notation = row.field("Notation").asText();
  part.NotesDuration = row.field("NotesDuration").asText();
  part.TalaId = int16Field(row, "Tala Id");
  part.StartingBeat = int16Field(row, "Starting Beat");
  part.PlayingSpeed = int16Field(row, "Playing Speed");
}

// A similar raga's row holds both ragas' phrases: the other raga's in
// Notation and NotesDuration, under its name in CompositionMukhada, and the
// current raga's in Syllables and SyllableDuration. The current raga's
// phrase becomes part 1 and the other raga's part 2, each part named in
// Mukhada by the raga whose phrase it holds, so that whoever shows a part
// takes its name from the same record as its notes.
// (The first part used to take the other raga's phrase while the screen
// announced the current raga for the first part and the other raga for
// the second: under "Currently playing Yaman" the Yaman Kalyan phrase
// sounded, and the reverse.)
void readComparison(const Recordset& row, std::int32_t notationIndex) {
  gCompInfo[0] = CompPartRecord{};
  gCompInfo[1] = CompPartRecord{};
  CompPartRecord& current = startPart(1, notationIndex);
  current.Mukhada = gCurrRagaName;
  current.Notation = row.field("Syllables").asText();
  current.NotesDuration = row.field("SyllableDuration").asText();
  CompPartRecord& other = startPart(2, notationIndex);
  other.Mukhada = row.field("CompositionMukhada").asText();
  other.Notation = row.field("Notation").asText();
  other.NotesDuration = row.field("NotesDuration").asText();
}

}  // namespace

void sDBToTCompInfo(std::int16_t dbSelector, std::int16_t infoType, const std::string& name) {
  NV_PROC("sDBToTCompInfo");
  platform::Database* store = dbSelector == 1 ? gDbA.get() : gDbB.get();
  std::unique_ptr<Recordset> items;
  if (store != nullptr) {
    items = store->openRecordset("Raga - Additional Information", platform::RecordsetType::Table);
    sSetTablePKRecord3(*items, static_cast<int>(gCurrRagaId), name, static_cast<int>(infoType));
  }
  if (!items || items->noMatch()) {
    sShowMessage("Composition Not Available");
    return;
  }
  gTCompInfo.RagaId = int16Field(*items, "Raga Index");
  gTCompInfo.Name = items->field("Add Info").asText();
  gTCompInfo.InfoType = int16Field(*items, "Add Info Type");
  gTCompInfo.NotationIndex = static_cast<std::int32_t>(items->field("Notation Index").asInteger());
  gCurrCompIndex = gTCompInfo.NotationIndex;
  items->close();
}

void sDBToTCompData(std::int16_t dbSelector, std::int32_t notationIndex) {
  NV_PROC("sDBToTCompData");
  platform::Database* store = fDatabaseFor(dbSelector);
  if (store == nullptr) {
    gCompInfo[0].NotationIndex = 0;
    gCompInfo[1].NotationIndex = 0;
    return;
  }
  auto parts = store->openRecordset("Raga - Composition Notations", platform::RecordsetType::Table);
  const bool firstFound = seekPart(*parts, notationIndex, 1);
  if (gCurrPhraseKind == kSimilarRaga) {
    if (firstFound) {
      readComparison(*parts, notationIndex);
    } else {
      gCompInfo[0].NotationIndex = 0;
      gCompInfo[1].NotationIndex = 0;
    }
    parts->close();
    return;
  }
  if (firstFound) {
    readFirstPart(*parts, notationIndex);
  } else {
    gCompInfo[0].NotationIndex = 0;
  }
  if (gCurrPhraseKind == kComposition) {
    if (seekPart(*parts, notationIndex, 2)) {
      readSecondPart(*parts, notationIndex);
    } else {
      gCompInfo[1].NotationIndex = 0;
    }
  }
  parts->close();
}

void sInitializeCompT() {
  NV_PROC("sInitializeCompT");
  gTCompInfo = TCompInfoRecord{};
  gCompInfo[0] = CompPartRecord{};
  gCompInfo[1] = CompPartRecord{};
}
