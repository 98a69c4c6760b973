// Tuning the loaded note sets through SPC deltas. Keeps no state of its own;
// fills gNoteAdjust, gMainAdjust and gDroneAdjust.
#include "sound/tuning.h"

#include <algorithm>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"
#include "sound/onpr_rows.h"
#include "sound/seeds.h"
#include "sound/step_result.h"
#include "sound/tuning_math.h"
#include "store/positioning.h"
#include "store/queries.h"
#include "tonvex/tonvex.h"

namespace {

// Tunes one note by its gNoteAdjust entry when that is not 0. False, after
// the message, when the library refuses the delta.
bool tuneNote(const std::string& setName, int noteId) {
  if (noteId < 0 || noteId > kMaxSoundNoteId || gNoteAdjust[noteId] == 0.0f) return true;
  return !fStepFailed(FWavTuneNote(setName, noteId, gNoteAdjust[noteId]), "Error adjusting SPC");
}

// The recorded period of a note of a set on the "Note Specifications"
// table, as a Single; empty when the set has no such note.
std::optional<float> recordedSpc(platform::Recordset& specs, const std::string& setName,
                                 int noteId) {
  sSetTablePKRecord2(specs, setName, noteId);
  if (specs.noMatch()) return std::nullopt;
  return static_cast<float>(static_cast<double>(specs.field("SamPerCyc").asInteger()) +
                            specs.field("Fractional Value").asDouble());
}

}  // namespace

std::int16_t fAdjustNoteSeeds(const std::string& setName,
                              [[maybe_unused]] std::int16_t instrumentType) {
  NV_PROC("fAdjustNoteSeeds");
  sPatchSQLStr11(setName);
  auto rs = gDbA->openRecordset(gSQLStr11, platform::RecordsetType::Snapshot);
  RecordedSpcs ownSpcs{};
  std::vector<int> noteIds;
  for (; !rs->eof(); rs->moveNext()) {
    const int noteId = static_cast<int>(rs->field("Note Id").asInteger());
    noteIds.push_back(noteId);
    if (noteId >= 0 && noteId <= kMaxSoundNoteId)
      ownSpcs[noteId] = static_cast<float>(static_cast<double>(rs->field("SamPerCyc").asInteger()) +
                                           rs->field("Fractional Value").asDouble());
  }
  rs->close();
  // The music set's columns cover 27 notes; the rest follow them by octaves.
  gNoteAdjust = fExtendTuningByOctaves(gCurrTonicNoteId, gNoteAdjust, ownSpcs);
  for (int noteId : noteIds)
    if (!tuneNote(setName, noteId)) return 0;
  return 1;
}

void sAdjustNotesForFreqRat(const ScaleShiftSpec& shift, const std::string& setName,
                            std::int16_t instrumentType) {
  NV_PROC("sAdjustNotesForFreqRat");
  const float shiftSpc = shift.NewSPC - shift.BaseSPC;
  gNoteAdjust.fill(0.0f);
  auto specs = gDbA->openRecordset("Note Specifications", platform::RecordsetType::Table);
  auto ratioSets = gDbA->openRecordset("ONPRSets", platform::RecordsetType::Table);
  const std::optional<float> refSpc = recordedSpc(*specs, gMainSetName, shift.RefNote);
  sSetTablePKRecord2(*ratioSets, shift.RefNote - kMiddleSaAboveTonic,
                     static_cast<int>(instrumentType));
  if (refSpc && !ratioSets->noMatch()) {
    OnprRow ratios{};
    RecordedSpcs ownSpcs{};
    for (int i = 0; i < kOnprColumns; ++i)
      ratios[i] = fGetSPCFactor(*ratioSets, static_cast<std::int16_t>(i));
    for (int noteId = 0; noteId <= kMaxSoundNoteId; ++noteId)
      ownSpcs[noteId] = recordedSpc(*specs, setName, noteId);
    // The ratios cover 27 notes; the rest follow them by octaves.
    gNoteAdjust = fExtendTuningByOctaves(
        shift.RefNote - kMiddleSaAboveTonic,
        fRatioDeltas(shift.RefNote, shiftSpc, *refSpc, ratios, ownSpcs), ownSpcs);
  }
  specs->close();
  ratioSets->close();
  // The deltas are from the recorded periods, and the library adds up the
  // deltas it is given: each note is reloaded first, so that a set already
  // tuned by its music set is retuned rather than tuned twice.
  for (int noteId = 0; noteId <= kMaxSoundNoteId; ++noteId) {
    if (gNoteAdjust[noteId] == 0.0f) continue;
    if (fLoadIndividualNoteSeed(setName, noteId) != 1 || !tuneNote(setName, noteId)) break;
  }
}

void sSaveAdjustments(std::int16_t kind) {
  NV_PROC("sSaveAdjustments");
  NoteAdjustVector* saved = kind == 1 ? &gMainAdjust : kind == 2 ? &gDroneAdjust : nullptr;
  if (saved) std::copy_n(gNoteAdjust.begin(), kMaxSoundNoteId + 1, saved->begin());
}

std::int16_t fApplyScaleShift(const ScaleShiftSpec& shift) {
  NV_PROC("fApplyScaleShift");
  sAdjustNotesForFreqRat(shift, gMainSetName, kMainInstrument);
  sSaveAdjustments(1);
  sAdjustNotesForFreqRat(shift, gDroneSetName, kDroneInstrument);
  sSaveAdjustments(2);
  return 1;
}
