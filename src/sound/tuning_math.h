// The arithmetic of tuning in samples per cycle (SPC), kept apart from the
// store and the synthesis library so that it can be checked by itself.
// A note's pitch is the inverse of its period: a smaller SPC is a higher
// note. All values are Singles, as the store keeps them. Stateless.
#pragma once

#include <array>
#include <optional>

#include "sound/sound_state.h"

// Columns "00" to "26" of "ONPR" and "ONPRSets": 27 consecutive notes.
constexpr int kOnprColumns = 27;
// Highest absolute note number of a note set.
constexpr int kMaxSoundNoteId = 40;
// Column of the middle S within those 27.
constexpr int kOnprTonicColumn = 7;
// Absolute note numbers of the middle and the upper S above the tonic id.
constexpr int kMiddleSaAboveTonic = 9;
constexpr int kUpperSaAboveTonic = 21;

using OnprRow = std::array<float, kOnprColumns>;
// A set's recorded SPC (SamPerCyc + Fractional Value) by absolute note
// number; empty where the set has no such note.
using RecordedSpcs = std::array<std::optional<float>, kNoteAdjustSize>;

// Absolute note number of a column at a tonic: tonic + 2 + column. At tonic
// 3 the columns run from note 5 to note 31.
int fOnprColumnNote(int tonicNoteId, int column);

// A music set's stored corrections placed by note number: column i goes to
// note tonic + 2 + i; notes outside 0 to 40 are skipped, the rest stay 0.
NoteAdjustVector fSpreadOnprColumns(int tonicNoteId, const OnprRow& corrections);

// The period a note needs to stand at `ratio` to the reference note, whose
// recorded period is refSpc and which the user moved by shiftSpc:
// shiftSpc / ratio + refSpc / ratio, the two divisions taken separately and
// the sum held as a Single.
float fRatioTargetSPC(float shiftSpc, float refSpc, float ratio);

// The SPC corrections that put a set's notes at their ratios to the
// reference note refNote (the middle S, tonic + 9). ratios[i] belongs to note
// refNote - 7 + i; a ratio of 0, or a note the set lacks, leaves that note at
// 0. Notes outside 0 to 40 are skipped.
NoteAdjustVector fRatioDeltas(int refNote, float shiftSpc, float refSpc, const OnprRow& ratios,
                              const RecordedSpcs& ownSpcs);

// Tuning in every octave. The ratio tables have 27 columns, so at any tonic
// some notes of 0 to 40 lie outside them (at tonic 3 the lower S< to G< and
// the upper d> to N>), and the tables' rule leaves those notes as recorded:
// in equal temperament, up to 18 cents off their swara's just ratio. A just
// scale must hold in every octave, so, deliberately, a note outside the
// columns is tuned by the octave: its period is the tuned period
// (ownSpcs + deltas) of the same swara an octave further in, times 2 for
// each octave it lies below it (halved for each octave above), and its
// delta is that period less its own recorded one. The notes inside the
// columns keep their deltas as given. A note outside is left at its delta
// when the set lacks it or its inner swara, or when that swara's delta is
// 0 (the note keeps its recorded tuning, as its inner swara does).
NoteAdjustVector fExtendTuningByOctaves(int tonicNoteId, const NoteAdjustVector& deltas,
                                        const RecordedSpcs& ownSpcs);
