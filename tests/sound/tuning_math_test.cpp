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

// A set recorded in equal temperament around a Sa of saSpc at refNote.
RecordedSpcs equalTempered(int refNote, float saSpc) {
  RecordedSpcs spcs{};
  for (int n = 0; n <= kMaxSoundNoteId; ++n)
    spcs[n] = saSpc / float(std::exp2((n - refNote) / 12.0));
  return spcs;
}

TEST(OnprColumns, EachColumnLandsOnItsNoteAndNoneBeyondForty) {
  OnprRow columns{};
  for (int i = 0; i < kOnprColumns; ++i) columns[i] = float(i + 1);
  const NoteAdjustVector atThree = fSpreadOnprColumns(3, columns);
  EXPECT_EQ(atThree[4], 0.0f);
  EXPECT_EQ(atThree[5], 1.0f);   // "00" is tonic + 2
  EXPECT_EQ(atThree[12], 8.0f);  // "07" is the middle S
  EXPECT_EQ(atThree[31], 27.0f);
  EXPECT_EQ(atThree[32], 0.0f);
  const NoteAdjustVector atTwelve = fSpreadOnprColumns(12, filled(1.0f));
  for (int n = 0; n < kNoteAdjustSize; ++n)
    EXPECT_EQ(atTwelve[n], (n >= 14 && n <= 40) ? 1.0f : 0.0f) << n;
  for (int tonic : {-40, 0, 60}) EXPECT_EQ(fSpreadOnprColumns(tonic, filled(2.0f))[41], 0.0f);
}

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
  const float saSpc = 318.2f, shiftSpc = -3.0f;
  OnprRow ratios{};
  for (const Row& r : rows) ratios[r.semitones + kOnprTonicColumn] = float(r.num / r.den);
  const RecordedSpcs own = equalTempered(refNote, saSpc);
  const NoteAdjustVector deltas = fRatioDeltas(refNote, shiftSpc, saSpc, ratios, own);
  for (const Row& r : rows) {
    const int n = refNote + r.semitones;
    const double cents = 1200.0 * std::log2((saSpc + shiftSpc) / (*own[n] + deltas[n]));
    EXPECT_NEAR(cents, 1200.0 * std::log2(r.num / r.den), 0.01) << r.note;
  }
}

TEST(RatioDeltas, ZeroRatioMissingNoteOrNoteOutsideTheSetIsLeftAlone) {
  OnprRow ratios = filled(1.0f);
  ratios[3] = 0.0f;
  RecordedSpcs own = equalTempered(12, 318.2f);
  own[20].reset();
  const NoteAdjustVector deltas = fRatioDeltas(12, 0.0f, 318.2f, ratios, own);
  EXPECT_EQ(deltas[8], 0.0f);   // column 3: ratio 0
  EXPECT_EQ(deltas[20], 0.0f);  // not in the set
  EXPECT_NE(deltas[9], 0.0f);
  // Reference at note 21 (tonic 12): the columns reach notes 14 to 40 only.
  const NoteAdjustVector high =
      fRatioDeltas(21, 0.0f, 170.0f, filled(1.0f), equalTempered(21, 170.0f));
  EXPECT_EQ(high[41], 0.0f);
  EXPECT_EQ(high[13], 0.0f);
  EXPECT_NE(high[40], 0.0f);
  for (float d : fRatioDeltas(-10, 0.0f, 170.0f, filled(1.0f), {})) EXPECT_EQ(d, 0.0f);
}

}  // namespace
