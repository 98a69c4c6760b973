// The working raga record's state and its getters: each getter joins the
// stored segments of one phrase into the text the caller asks for.
// State: gTRaga, gTAlt, gTUserAlt.
#include "store/working_record.h"

#include "core/errors.h"
#include "notation/text_utils.h"

TRagaRecord gTRaga;
std::array<TAltRecord, kAltRecordCount> gTAlt;
std::array<TAltRecord, kAltRecordCount> gTUserAlt;

namespace {

constexpr std::int16_t kNotes = 1;

bool wantsNotes(std::int16_t which) { return which == kNotes; }

// The record of altType in the store dbSelector names; nullptr (after
// error 9) for an altType outside the table.
const TAltRecord* altRecord(std::int16_t dbSelector, std::int16_t altType) {
  if (altType < 1 || altType > kAltRecordCount) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fGetFromT_");
    return nullptr;
  }
  const auto& table = dbSelector == 1 ? gTAlt : gTUserAlt;
  return &table[static_cast<std::size_t>(altType - 1)];
}

// The segments of phrase phraseNo (from 1) of the record; none (after error
// 9) for a phrase the record does not hold.
std::vector<std::string> phraseSegments(const TAltRecord& record, std::int16_t which,
                                        std::int16_t phraseNo) {
  const auto phrase = static_cast<std::size_t>(phraseNo - 1);
  if (phraseNo < 1 || phrase >= record.PhraseFirstSegment.size() ||
      phrase >= record.PhraseSegments.size()) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fGetFromT_");
    return {};
  }
  const auto& segments = wantsNotes(which) ? record.SegmentNotes : record.SegmentDurations;
  const auto first = static_cast<std::size_t>(record.PhraseFirstSegment[phrase] - 1);
  const auto count = static_cast<std::size_t>(record.PhraseSegments[phrase]);
  if (first + count > segments.size()) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fGetFromT_");
    return {};
  }
  return {segments.begin() + static_cast<std::ptrdiff_t>(first),
          segments.begin() + static_cast<std::ptrdiff_t>(first + count)};
}

std::string altPhrase(std::int16_t dbSelector, std::int16_t altType, std::int16_t which,
                      std::int16_t phraseNo, const std::string& separator) {
  const TAltRecord* record = altRecord(dbSelector, altType);
  if (record == nullptr) return "";
  return fJoinWords(phraseSegments(*record, which, phraseNo), separator);
}

std::vector<std::string> scaleEntries(std::int16_t which) {
  const auto& entries = wantsNotes(which) ? gTRaga.ScaleNotes : gTRaga.ScaleDurations;
  return {entries.begin(), entries.end()};
}

const std::vector<std::string>& pakadSegments(std::int16_t which) {
  return wantsNotes(which) ? gTRaga.PakadNotes : gTRaga.PakadDurations;
}

}  // namespace

std::string fGetFromT_ArohaPhrase(std::int16_t which) { return scaleEntries(which)[0]; }

std::string fGetFromT_AvrohaPhrase(std::int16_t which) { return scaleEntries(which)[1]; }

std::string fGetFromT_ScalePhraseSeg(std::int16_t which) {
  return fJoinWords(scaleEntries(which), " : ");
}

std::string fGetFromT_ScalePhraseUnSeg(std::int16_t which) {
  return fJoinWords(scaleEntries(which), " ");
}

std::string fGetFromT_PakadPhraseSeg(std::int16_t which) {
  return fJoinWords(pakadSegments(which), " :");
}

std::string fGetFromT_PakadPhraseUnSeg(std::int16_t which) {
  return fJoinWords(pakadSegments(which), " ");
}

std::string fGetFromT_AnALTPhraseSeg(std::int16_t dbSelector, std::int16_t altType,
                                     std::int16_t which, std::int16_t phraseNo) {
  return altPhrase(dbSelector, altType, which, phraseNo, " : ");
}

std::string fGetFromT_AnALTPhraseUnSeg(std::int16_t dbSelector, std::int16_t altType,
                                       std::int16_t which, std::int16_t phraseNo) {
  return altPhrase(dbSelector, altType, which, phraseNo, " ");
}

std::string fGetFromT_AllALTPhrasesUnSeg(std::int16_t dbSelector, std::int16_t altType,
                                         std::int16_t which) {
  const TAltRecord* record = altRecord(dbSelector, altType);
  if (record == nullptr) return "";
  std::vector<std::string> phrases;
  for (std::int16_t p = 1; p <= record->PhraseCount; ++p) {
    phrases.push_back(fJoinWords(phraseSegments(*record, which, p), " "));
  }
  return fJoinWords(phrases, " ,");
}

std::int16_t fGetFromT_SegmentCount(std::int16_t dbSelector, std::int16_t altType) {
  const TAltRecord* record = altRecord(dbSelector, altType);
  return record == nullptr ? 0 : record->PhraseCount;
}
