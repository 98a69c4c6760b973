// The notes a workbench pattern runs over (see scale_notes.h).
#include "workbench/scale_notes.h"

#include <cstddef>

#include "core/errors.h"
#include "core/random.h"
#include "core/session.h"
#include "notation/text_utils.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/positioning.h"
#include "workbench/pattern_language.h"

std::array<std::int16_t, kScaleTableEntries> gScaleNoteFlags{};
std::array<std::int16_t, kScaleTableEntries> gSelNotes{};
std::int16_t gSelNoteCount = 0;
std::int16_t gScaleSize = 2;
std::int16_t gQuizNoteKind = 1;

namespace {

constexpr std::array<std::int16_t, 15> kMajorScalePlaces = {0,  2,  4,  5,  7,  9,  10, 12,
                                                            14, 16, 17, 19, 21, 22, 24};

std::int16_t& flag(int place) { return gScaleNoteFlags[static_cast<std::size_t>(place)]; }

// The place of an English note, -1 for none.
int fPlaceOfNote(const std::string& note) {
  for (int place = 0; place < kNotePlaces; ++place)
    if (gNoteNames[static_cast<std::size_t>(place)] == note) return place;
  return -1;
}

}  // namespace

void sInitScaleNotes() { gScaleNoteFlags.fill(0); }

void sSetScaleNotesForMajorScale() {
  NV_PROC("sSetScaleNotesForMajorScale");
  for (std::int16_t place : kMajorScalePlaces) flag(place) = 1;
  sSetUpSelNotes1(0, kNotePlaces - 1);
}

void sSetScaleAndSelNotesForPhrase(const std::string& phrase) {
  NV_PROC("sSetScaleAndSelNotesForPhrase");
  sInitScaleNotes();
  for (const std::string& word : fPhraseWords(phrase)) {
    const int place = fPlaceOfNote(word);
    if (place >= 0) flag(place) = 1;
  }
  sAugmentScaleNotes();
  sSetUpSelNotes1(0, kNotePlaces - 1);
}

void sSetScaleNotesForThata() {
  NV_PROC("sSetScaleNotesForThata");
  auto table = gDbA->openRecordset("ThataScales", platform::RecordsetType::Table);
  sSetTablePKRecord(*table, platform::Value(gCurrForm->control("cRagaList").text()));
  sSetScaleAndSelNotesForPhrase(table->noMatch() ? "" : table->field("ThataScale").asText());
}

std::int16_t fLoadRagaNotesInVector() {
  NV_PROC("fLoadRagaNotesInVector");
  sInitScaleNotes();
  auto table = gDbA->openRecordset("Raga - Notes", platform::RecordsetType::Table);
  sSetTablePKRecord(*table, platform::Value(static_cast<std::int64_t>(gCurrRagaId)));
  if (table->noMatch()) return 0;
  const auto ids = fPhraseWords(table->field("Raga Note Ids").asText());
  for (const std::string& id : ids) {
    const int place = static_cast<int>(fNumericValue(id)) - kVocabularyOffsetOfPlaces;
    if (place >= 0 && place < kNotePlaces) flag(place) = 1;
  }
  gSelNoteCount = static_cast<std::int16_t>(ids.size());
  gScaleSize = static_cast<std::int16_t>(gSelNoteCount - 6);
  return gSelNoteCount;
}

void sAugmentScaleNotes() {
  NV_PROC("sAugmentScaleNotes");
  for (int place = 0; place <= 4; ++place) {
    if (flag(place + 12) == 1) {
      flag(place) = 1;
      ++gSelNoteCount;
    }
  }
  for (int place = 18; place <= 24; ++place) {
    if (flag(place - 12) == 1) {
      flag(place) = 1;
      ++gSelNoteCount;
    }
  }
}

void sSetUpSelNotes1(std::int16_t from, std::int16_t to) {
  gSelNotes.fill(0);
  gSelNoteCount = 0;
  for (std::int16_t place = from; place <= to; ++place)
    if (flag(place) == 1) gSelNotes[static_cast<std::size_t>(++gSelNoteCount)] = place;
}

std::int16_t fNoteOrdinalInScale(std::int16_t place) {
  std::int16_t ordinal = -1;
  for (int i = kPlaceOfSa; i <= place && i < kNotePlaces; ++i)
    if (flag(i) == 1) ++ordinal;
  return ordinal;
}

std::int16_t fGetValidNoteId() {
  NV_PROC("fGetValidNoteId");
  for (;;) {
    sRandomize();
    const auto id = static_cast<std::int16_t>(fRandomFrom1To(kNotePlaces));
    if (gQuizNoteKind == 2 && !fIsShuddha(id)) continue;
    if (gQuizNoteKind == 3 && fIsShuddha(id)) continue;
    return id;
  }
}
