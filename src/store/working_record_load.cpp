// Loading the working raga record when a raga becomes current: the base data
// and pakad from "Raga - Technical Information", the alap, layakari and taan
// phrases from "Raga - ALT Phrases" of both stores, and the drone check.
// State: writes gTRaga, gTAlt, gTUserAlt; may set gCurrDroneType.
#include <memory>

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "platform/store.h"
#include "store/positioning.h"
#include "store/working_record.h"

namespace {

using platform::RecordsetType;

constexpr std::int16_t kTaan = 3;

std::string trimmed(const std::string& text) { return fRmvTrailBlk(fRmvLeadBlk(text)); }

// Words from..from+count-1 (0-based) of words, joined by " "; words that
// have run out are left out.
std::string takeWords(const std::vector<std::string>& words, std::size_t from, std::size_t count) {
  std::vector<std::string> taken;
  for (std::size_t i = from; i < from + count && i < words.size(); ++i) taken.push_back(words[i]);
  return fJoinWords(taken, " ");
}

std::size_t noteCount(const std::string& segment) {
  return static_cast<std::size_t>(fSplitWords(segment, " ").size());
}

// The table of gCurrRagaId in "Raga - Technical Information" of gDbA, or
// nullptr when the store is not open.
std::unique_ptr<platform::Recordset> seekCurrRaga() {
  if (!gDbA) return nullptr;
  auto raga = gDbA->openRecordset("Raga - Technical Information", RecordsetType::Table);
  sSetTablePKRecord(*raga, static_cast<int>(gCurrRagaId));
  return raga;
}

// Shares the flat pakad durations out to the pakad's ":" segments.
void cutPakad(const std::string& pakad, const std::string& pakadDuration) {
  const std::vector<std::string> durations = fSplitWords(pakadDuration, " ");
  std::size_t used = 0;
  gTRaga.PakadNotes.clear();
  gTRaga.PakadDurations.clear();
  for (const std::string& segment : fSplitWords(pakad, ":")) {
    const std::size_t count = noteCount(segment);
    gTRaga.PakadNotes.push_back(trimmed(segment));
    gTRaga.PakadDurations.push_back(takeWords(durations, used, count));
    used += count;
  }
  const auto segments = static_cast<std::int16_t>(gTRaga.PakadNotes.size());
  gTRaga.PakadSectionCount = 1;
  gTRaga.PakadSegmentCount = segments;
  gTRaga.PakadSectionStart[0] = 1;
  gTRaga.PakadSectionEnd[0] = segments;
}

// The fields a raga is played from: its drone, its scale and its pakad. A
// row that lacks one of them (a damaged library) counts as a missing raga, so
// that it is reported once instead of failing at every step that plays it.
constexpr const char* kPlayedRagaFields[] = {"DroneType",  "AarohaAlt", "AvrohaAlt",
                                             "AaDuration", "AvDuration", "Pakad",
                                             "PakadDuration"};

bool hasPlayedFields(const platform::Recordset& raga) {
  for (const char* name : kPlayedRagaFields)
    if (raga.field(name).isNull()) return false;
  return true;
}

void copyRagaRow(const platform::Recordset& raga) {
  gTRaga.RagaId = static_cast<std::int16_t>(raga.field("Raga Index").asInteger());
  const platform::Value thata = raga.field("Thata");
  if (!thata.isNull()) gTRaga.Thata = thata.asText();
  gTRaga.ScaleSectionCount = 1;
  gTRaga.ScaleSegmentCount = 2;
  gTRaga.ScaleSectionStart[0] = 1;
  gTRaga.ScaleSectionEnd[0] = 2;
  gTRaga.ScaleNotes = {raga.field("AarohaAlt").asText(), raga.field("AvrohaAlt").asText()};
  gTRaga.ScaleDurations = {raga.field("AaDuration").asText(), raga.field("AvDuration").asText()};
  gTRaga.Jati = raga.field("Jati").asText();
  gTRaga.Vadi = raga.field("Vadi").asText();
  gTRaga.Samvadi = raga.field("Samvadi").asText();
  cutPakad(raga.field("Pakad").asText(), raga.field("PakadDuration").asText());
  gTRaga.AppropriateTime = raga.field("Appropriate time").asText();
  gTRaga.DroneType = static_cast<std::int16_t>(raga.field("DroneType").asInteger());
  gTRaga.OPRSetId = static_cast<std::int16_t>(raga.field("OPRSetId").asInteger());
  gTRaga.Notes = raga.field("Notes").asText();
}

// Fills the three records of one store; a store that is not open has no rows.
void loadAltRecords(platform::Database* store, std::array<TAltRecord, kAltRecordCount>& records) {
  std::unique_ptr<platform::Recordset> phrases;
  if (store != nullptr) phrases = store->openRecordset("Raga - ALT Phrases", RecordsetType::Table);
  for (std::int16_t type = 1; type <= kTaan; ++type) {
    TAltRecord& record = records[static_cast<std::size_t>(type - 1)];
    if (phrases) sSetTablePKRecord2(*phrases, static_cast<int>(gCurrRagaId), static_cast<int>(type));
    if (!phrases || phrases->noMatch()) {
      record.RagaId = 0;
      continue;
    }
    const std::string notes = phrases->field("NotesPhrase").asText();
    const std::string durations = type == kTaan ? "" : phrases->field("DurationPhrase").asText();
    sLoadRagaALTInfoIntoT(record, type, gCurrRagaId, notes, durations);
  }
  if (phrases) phrases->close();
}

}  // namespace

void sSetupForCurrRaga() {
  NV_PROC("sSetupForCurrRaga");
  sDBToTBaseInfo();
  sDBToTALTInfo();
}

void sDBToTBaseInfo() {
  NV_PROC("sDBToTBaseInfo");
  sLoadRagaScalePakadInfo();
}

void sLoadRagaScalePakadInfo() {
  NV_PROC("sLoadRagaScalePakadInfo");
  auto raga = seekCurrRaga();
  if (!raga || raga->noMatch() || !hasPlayedFields(*raga)) {
    gTRaga = TRagaRecord{};
    sShowMessage("The data of raga " + std::to_string(gCurrRagaId) +
                 " is missing from the library. Please reinstall Nadavik.");
    return;
  }
  copyRagaRow(*raga);
  raga->close();
}

void sDBToTALTInfo() {
  NV_PROC("sDBToTALTInfo");
  loadAltRecords(gDbA.get(), gTAlt);
  loadAltRecords(gDbB.get(), gTUserAlt);
}

void sLoadRagaALTInfoIntoT(TAltRecord& record, std::int16_t phraseType, std::int16_t ragaId,
                           const std::string& notesColumn, const std::string& durationsColumn) {
  NV_PROC("sLoadRagaALTInfoIntoT");
  record = TAltRecord{};
  record.RagaId = ragaId;
  record.PhraseType = phraseType;
  if (notesColumn.empty()) return;

  const std::vector<std::string> durations = fSplitWords(durationsColumn, " ");
  const std::vector<std::string> phrases = fSplitWords(notesColumn, ",");
  const bool hasDurations = !durationsColumn.empty();
  std::size_t tokens = 0;   // notes, colons and commas so far
  std::size_t duration = 0; // duration words used so far, separators included
  for (std::size_t p = 0; p < phrases.size(); ++p) {
    const std::vector<std::string> segments = fSplitWords(phrases[p], ":");
    record.PhraseFirstSegment.push_back(static_cast<std::int16_t>(record.SegmentNotes.size() + 1));
    record.PhraseFirstToken.push_back(static_cast<std::int16_t>(tokens + 1));
    record.PhraseSegments.push_back(static_cast<std::int16_t>(segments.size()));
    for (std::size_t q = 0; q < segments.size(); ++q) {
      const std::size_t count = noteCount(segments[q]);
      record.SegmentNotes.push_back(trimmed(segments[q]));
      record.SegmentDurations.push_back(hasDurations ? takeWords(durations, duration, count) : "");
      if (hasDurations) duration += count;
      tokens += count;
      if (q + 1 < segments.size()) ++tokens;  // the ":" after it
    }
    if (p + 1 < phrases.size()) ++tokens;  // the "," after it
    ++duration;                            // the duration word standing for the ","
  }
  record.PhraseCount = static_cast<std::int16_t>(phrases.size());
  record.SegmentCount = static_cast<std::int16_t>(record.SegmentNotes.size());
}
