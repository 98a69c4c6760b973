// The SPC arithmetic: column geometry, spreading stored corrections, and
// deltas from pitch ratios, checked against just intonation in cents.
#include <gtest/gtest.h>

#include <cmath>

#include "sound/tuning_math.h"

namespace {

OnprRow filled(float value) {
  OnprRow row{};
  row.fill(value);
  return row;
}

// A set whose recorded periods are equal-tempered around a Sa of saSpc at
// note refNote.
RecordedSpcs equalTempered(int refNote, float saSpc) {
  RecordedSpcs spcs{};
  for (int n = 0; n <= kMaxSoundNoteId; ++n)
    spcs[n] = saSpc / float(std::exp2((n - refNote) / 12.0));
  return spcs;
}

TEST(OnprColumns, ColumnSevenIsTheMiddleSaAndTheRangeFollowsTheTonic) {
  struct Row {
    int tonic, column, note;
  } rows[] = {{3, 0, 5}, {3, 7, 12}, {3, 26, 31}, {1, 0, 3}, {12, 7, 21}, {12, 26, 40}};
  for (const Row& r : rows) EXPECT_EQ(fOnprColumnNote(r.tonic, r.column), r.note) << r.tonic;
}

TEST(OnprColumns, SpreadPlacesEachColumnOnItsNote) {
  OnprRow columns{};
  for (int i = 0; i < kOnprColumns; ++i) columns[i] = float(i + 1);
  const NoteAdjustVector v = fSpreadOnprColumns(3, columns);
  EXPECT_EQ(v[4], 0.0f);
  EXPECT_EQ(v[5], 1.0f);
  EXPECT_EQ(v[12], 8.0f);
  EXPECT_EQ(v[31], 27.0f);
  EXPECT_EQ(v[32], 0.0f);
}

TEST(OnprColumns, SpreadAtTonicTwelveDropsNotesAboveForty) {
  const NoteAdjustVector v = fSpreadOnprColumns(12, filled(1.0f));
  for (int n = 0; n < kNoteAdjustSize; ++n)
    EXPECT_EQ(v[n], (n >= 14 && n <= 40) ? 1.0f : 0.0f) << n;
}

TEST(OnprColumns, SpreadAtOutlandishTonicsStaysInsideTheVector) {
  for (int tonic : {-40, -20, 0, 39, 60}) {
    const NoteAdjustVector v = fSpreadOnprColumns(tonic, filled(2.0f));
    EXPECT_EQ(v[41], 0.0f) << tonic;
  }
}

TEST(RatioTarget, DividesReferenceAndShiftByTheRatio) {
  EXPECT_FLOAT_EQ(fRatioTargetSPC(0.0f, 300.0f, 1.5f), 200.0f);
  EXPECT_FLOAT_EQ(fRatioTargetSPC(-3.0f, 300.0f, 1.5f), 198.0f);
  EXPECT_FLOAT_EQ(fRatioTargetSPC(6.0f, 300.0f, 0.5f), 612.0f);
}

// Just ratios of the notes from Sa, each checked in cents against a set
// recorded in equal temperament.
TEST(RatioDeltas, PutEveryNoteAtItsJustRatioToSa) {
  struct Row {
    const char* note;
    int semitones;
    double num, den;
  } rows[] = {{"S", 0, 1, 1},   {"r", 1, 16, 15}, {"R", 2, 9, 8},   {"g", 3, 6, 5},
              {"G", 4, 5, 4},   {"m", 5, 4, 3},   {"M", 6, 45, 32}, {"P", 7, 3, 2},
              {"d", 8, 8, 5},   {"D", 9, 5, 3},   {"n", 10, 9, 5},  {"N", 11, 15, 8},
              {"S>", 12, 2, 1}, {"P<", -5, 3, 4}, {"m<", -7, 2, 3}, {"P>", 19, 3, 1}};
  const int refNote = 12;
  const float saSpc = 318.2f;
  OnprRow ratios{};
  for (const Row& r : rows) ratios[r.semitones + kOnprTonicColumn] = float(r.num / r.den);
  const RecordedSpcs own = equalTempered(refNote, saSpc);
  const NoteAdjustVector deltas = fRatioDeltas(refNote, 0.0f, saSpc, ratios, own);
  for (const Row& r : rows) {
    const int n = refNote + r.semitones;
    const double tunedHz = 1.0 / (*own[n] + deltas[n]);
    EXPECT_NEAR(1200.0 * std::log2(tunedHz * saSpc), 1200.0 * std::log2(r.num / r.den), 0.01)
        << r.note;
  }
}

TEST(RatioDeltas, AShiftOfNothingStillAppliesTheRatios) {
  OnprRow ratios{};
  ratios[kOnprTonicColumn + 4] = 1.25f;  // G
  const NoteAdjustVector deltas = fRatioDeltas(12, 0.0f, 318.2f, ratios, equalTempered(12, 318.2f));
  EXPECT_GT(deltas[16], 0.5f);  // a just third is lower: a longer period
}

TEST(RatioDeltas, AShiftMovesEveryNoteByTheSameInterval) {
  OnprRow ratios{};
  ratios[kOnprTonicColumn] = 1.0f;
  ratios[kOnprTonicColumn + 7] = 1.5f;
  const RecordedSpcs own = equalTempered(12, 318.2f);
  const NoteAdjustVector deltas = fRatioDeltas(12, -3.0f, 318.2f, ratios, own);
  EXPECT_FLOAT_EQ(*own[12] + deltas[12], 315.2f);
  EXPECT_NEAR((*own[12] + deltas[12]) / (*own[19] + deltas[19]), 1.5, 1e-5);
}

TEST(RatioDeltas, ZeroRatioOrMissingNoteIsLeftAlone) {
  OnprRow ratios = filled(1.0f);
  ratios[3] = 0.0f;
  RecordedSpcs own = equalTempered(12, 318.2f);
  own[20].reset();
  const NoteAdjustVector deltas = fRatioDeltas(12, 0.0f, 318.2f, ratios, own);
  EXPECT_EQ(deltas[8], 0.0f);   // column 3: ratio 0
  EXPECT_EQ(deltas[20], 0.0f);  // not in the set
  EXPECT_NE(deltas[9], 0.0f);
}

TEST(RatioDeltas, NotesBeyondTheSetAreSkipped) {
  // Reference at note 21 (tonic 12): columns reach notes 14 to 40 only.
  const NoteAdjustVector deltas =
      fRatioDeltas(21, 0.0f, 170.0f, filled(1.0f), equalTempered(21, 170.0f));
  EXPECT_EQ(deltas[41], 0.0f);
  EXPECT_EQ(deltas[13], 0.0f);
  EXPECT_NE(deltas[40], 0.0f);
  // A reference so low that most columns fall below note 0.
  const NoteAdjustVector low = fRatioDeltas(-10, 0.0f, 170.0f, filled(1.0f), {});
  for (float d : low) EXPECT_EQ(d, 0.0f);
}

}  // namespace
