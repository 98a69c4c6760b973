// The arithmetic of tuning in samples per cycle. Stateless.
#include "sound/tuning_math.h"

#include <cmath>

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

NoteAdjustVector fExtendTuningByOctaves(int tonicNoteId, const NoteAdjustVector& deltas,
                                        const RecordedSpcs& ownSpcs) {
  const int firstColumnNote = fOnprColumnNote(tonicNoteId, 0);
  const int lastColumnNote = fOnprColumnNote(tonicNoteId, kOnprColumns - 1);
  NoteAdjustVector extended = deltas;
  for (int noteId = 0; noteId <= kMaxSoundNoteId; ++noteId) {
    int inner = noteId;
    while (inner < firstColumnNote) inner += 12;
    while (inner > lastColumnNote) inner -= 12;
    if (inner == noteId || !isSoundNote(inner) || deltas[inner] == 0.0f || !ownSpcs[noteId] ||
        !ownSpcs[inner])
      continue;
    const double octavesBelow = (inner - noteId) / 12;
    const double period = (double(*ownSpcs[inner]) + double(deltas[inner])) * std::exp2(octavesBelow);
    extended[noteId] = static_cast<float>(period - double(*ownSpcs[noteId]));
  }
  return extended;
}
