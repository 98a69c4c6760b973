// Texts and lengths of the composition at hand: the beat-marked line of a
// part of gCompInfo, and the grid's matra count read from the store.
// State: gAsthaiMatras, gAntaraMatras.
#include "store/working_record_comp_text.h"

#include <optional>

#include "core/errors.h"
#include "core/session.h"
#include "notation/beat_marks.h"
#include "notation/composition_matras.h"
#include "notation/phrase_forms.h"
#include "platform/store.h"
#include "store/positioning.h"
#include "store/tala_beats.h"
#include "store/working_record_comp.h"

std::int16_t gAsthaiMatras = 0;
std::int16_t gAntaraMatras = 0;

namespace {

constexpr std::int16_t kNotesKind = 2;

// The stored matras and starting beat of one part, if the store has it.
std::optional<CompositionPartMatras> partMatras(platform::Recordset& parts, int part) {
  sSetTablePKRecord2(parts, static_cast<std::int64_t>(gCurrCompIndex), part);
  if (parts.noMatch()) return std::nullopt;
  return CompositionPartMatras{
      parts.field("NotesDuration").asText(),
      static_cast<std::int16_t>(parts.field("Starting Beat").asInteger())};
}

}  // namespace

std::string fCreateCompStringFromT(std::int16_t partIndex, std::int16_t kind) {
  NV_PROC("fCreateCompStringFromT");
  if (partIndex < 1 || partIndex > 2) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fCreateCompStringFromT");
    return "";
  }
  const CompPartRecord& part = gCompInfo[static_cast<std::size_t>(partIndex - 1)];
  const bool notes = kind == kNotesKind;
  const std::string words = notes ? fPrepareNotesForScript(part.Notation, gNotationScript, gGraceNotes) : part.Syllables;
  const std::string& durations = notes ? part.NotesDuration : part.SyllableDuration;
  const char* mark = notes && gNotationScript == 1 ? kBeatMarkDevanagari : kBeatMarkEnglish;
  return fCreateBeatMarkedString(words, durations, fGetBeatCountForTala(part.TalaId),
                                 part.StartingBeat, mark);
}

std::int16_t fGetMatraCountForComposition() {
  NV_PROC("fGetMatraCountForComposition");
  platform::Database* store = fSetDatabase();
  if (store == nullptr) return 0;
  auto parts = store->openRecordset("Raga - Composition Notations", platform::RecordsetType::Table);
  const auto asthai = partMatras(*parts, 1);
  const auto antara = partMatras(*parts, 2);
  parts->close();
  const CompositionMatraCount count = fCountCompositionMatras(asthai, antara);
  gAsthaiMatras = count.asthaiMatras;
  gAntaraMatras = count.antaraMatras;
  return count.gridMatras;
}
