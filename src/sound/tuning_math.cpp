// The arithmetic of tuning in samples per cycle. Stateless.
#include "sound/tuning_math.h"

namespace {

bool isSoundNote(int noteId) { return noteId >= 0 && noteId <= kMaxSoundNoteId; }

}  // namespace

int fOnprColumnNote(int tonicNoteId, int column) { return tonicNoteId + 2 + column; }

NoteAdjustVector fSpreadOnprColumns(int tonicNoteId, const OnprRow& corrections) {
  NoteAdjustVector adjust{};
  for (int i = 0; i < kOnprColumns; ++i) {
    const int noteId = fOnprColumnNote(tonicNoteId, i);
    if (isSoundNote(noteId)) adjust[noteId] = corrections[i];
  }
  return adjust;
}

float fRatioTargetSPC(float shiftSpc, float refSpc, float ratio) {
  const float shiftPart = shiftSpc / ratio;
  const float refPart = refSpc / ratio;
  return shiftPart + refPart;
}

NoteAdjustVector fRatioDeltas(int refNote, float shiftSpc, float refSpc, const OnprRow& ratios,
                              const RecordedSpcs& ownSpcs) {
  NoteAdjustVector adjust{};
  for (int i = 0; i < kOnprColumns; ++i) {
    const float ratio = ratios[i];
    const int noteId = refNote - kOnprTonicColumn + i;
    if (ratio == 0.0f || !isSoundNote(noteId) || !ownSpcs[noteId]) continue;
    adjust[noteId] = fRatioTargetSPC(shiftSpc, refSpc, ratio) - *ownSpcs[noteId];
  }
  return adjust;
}
