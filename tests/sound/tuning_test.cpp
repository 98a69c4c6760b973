// Tuning on the built library store: the built-in music sets and the ratio
// tuning put notes at their just ratios to Sa, measured on rendered notes.
#include <gtest/gtest.h>

#include <cmath>

#include "core/session.h"
#include "sound/music_set.h"
#include "sound/seeds.h"
#include "sound/sound_state.h"
#include "sound/tuning.h"
#include "sound_test_support.h"
#include "tonvex/tonvex.h"

namespace {

using TuningTest = SoundStoreTest;

struct JustNote {
  const char* name;
  int semitones;  // from the middle Sa
  double ratio;
};

// Notes across the three octaves of the columns, with their just ratios.
const JustNote kJustNotes[] = {
    {"m<", -7, 2.0 / 3},  {"D<", -3, 5.0 / 6}, {"S", 0, 1.0},     {"r", 1, 16.0 / 15},
    {"g", 3, 6.0 / 5},    {"G", 4, 5.0 / 4},   {"M", 6, 45.0 / 32}, {"P", 7, 3.0 / 2},
    {"d", 8, 8.0 / 5},    {"n", 10, 9.0 / 5},  {"N", 11, 15.0 / 8}, {"S>", 12, 2.0},
    {"P>", 19, 3.0}};

// Checks every note of kJustNotes at saNote against saHz x its ratio.
void expectJustScale(const SoundStoreTest& t, int saNote, double saHz) {
  for (const JustNote& n : kJustNotes) {
    const int note = saNote + n.semitones;
    if (note < 0 || note > 40) continue;
    const double targetHz = saHz * n.ratio;
    EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(note, targetHz, t.file("n.wav")), targetHz), 0.0,
                2.0)
        << n.name << " at note " << note;
  }
}

TEST_F(TuningTest, BuiltInSetSoundsTheJustScaleOnItsTonic) {
  ASSERT_EQ(fCreateNoteSeedsForUse(), 1);
  EXPECT_TRUE(messageTexts().empty());
  EXPECT_EQ(gCurrTonicNoteId, 3);
  expectJustScale(*this, 12, tonvex::kSampleRate / recordedSpc("c", 12));
}

TEST_F(TuningTest, ATonicChangeMovesSaAndTheScale) {
  gCurrMusicSetId = 8;
  ASSERT_EQ(fCreateNoteSeedsForUse(), 1);
  EXPECT_EQ(gCurrTonicNoteId, 8);
  expectJustScale(*this, 17, tonvex::kSampleRate / recordedSpc("c", 17));
}

TEST_F(TuningTest, TheDroneSetSoundsItsUpperSlotsAnOctaveLower) {
  ASSERT_EQ(fCreateNoteSeedsForUse(), 1);
  ASSERT_EQ(FWavSetCurrInstr("e"), 1);
  const double saHz = tonvex::kSampleRate / recordedSpc("c", 12);
  EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(24, saHz, file("n.wav")), saHz), 0.0, 2.0);
  EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(31, saHz * 1.5, file("n.wav")), saHz * 1.5), 0.0, 2.0);
}

// The rebuild loads the music set, tuned, and then retunes it to the shift:
// the notes must not carry both tunings.
TEST_F(TuningTest, AShiftedScaleKeepsItsRatiosToTheNewSa) {
  const float baseSpc = float(recordedSpc("c", 12));
  gScaleShiftSpec = {12, baseSpc, baseSpc - 4.0f};
  ASSERT_EQ(fAdjustScaleNotesToCurrentSetting(gCurrMusicSetId), 1);
  EXPECT_TRUE(messageTexts().empty());
  expectJustScale(*this, 12, tonvex::kSampleRate / (baseSpc - 4.0f));
}

// The ratio tuning with no shift reproduces the stored corrections of the
// built-in set, for both instruments.
TEST_F(TuningTest, NoShiftGivesTheBuiltInCorrections) {
  ASSERT_EQ(fLoadNoteSeeds("c"), 1);
  ASSERT_EQ(fLoadNoteSeeds("e"), 1);
  const float baseSpc = float(recordedSpc("c", 12));
  ASSERT_EQ(fApplyScaleShift({12, baseSpc, baseSpc}), 1);
  const OnprRow main = libraryOnpr(3, 1), drone = libraryOnpr(3, 2);
  for (int i = 0; i < kOnprColumns; ++i) {
    EXPECT_NEAR(gMainAdjust[5 + i], main[i], 2e-3) << i;
    EXPECT_NEAR(gDroneAdjust[5 + i], drone[i], 4e-3) << i;
  }
  EXPECT_NE(gMainAdjust[16], 0.0f);
  EXPECT_EQ(gMainAdjust[4], 0.0f);
  EXPECT_EQ(gMainAdjust[32], 0.0f);
  // The drone's Sa slot takes the main set's Sa period as it stands.
  EXPECT_NEAR(gDroneAdjust[24], 0.0f, 2e-3);
  EXPECT_EQ(gNoteAdjust, gDroneAdjust);
}

TEST_F(TuningTest, ATuningTheLibraryRefusesEndsWithItsMessage) {
  ASSERT_EQ(fLoadNoteSeeds("c"), 1);
  const float baseSpc = float(recordedSpc("c", 12));
  // Sa moved far beyond what a seed can be stretched to.
  sAdjustNotesForFreqRat({12, baseSpc, baseSpc * 3.0f}, "c", 1);
  EXPECT_EQ(messageTexts(), std::vector<std::string>{"Error adjusting SPC"});
}

TEST_F(TuningTest, ANoteThatCannotBeReloadedEndsTheTuning) {
  changeLibraryStore(R"(UPDATE "Sample Values" SET "Sample Value" = 40000
                        WHERE "Instr Name" = 'c' AND "Note Id" = 9 AND "Sample Id" = 2;)");
  const float baseSpc = float(recordedSpc("c", 12));
  sAdjustNotesForFreqRat({12, baseSpc, baseSpc}, "c", 1);
  EXPECT_EQ(messageTexts(), std::vector<std::string>{"Error Loading Seed Data For c9"});
}

TEST_F(TuningTest, AtTonicTwelveTheColumnsAboveFortyAreIgnored) {
  gCurrMusicSetId = 12;
  EXPECT_EQ(fCreateNoteSeedsForUse(), 1);
  EXPECT_TRUE(messageTexts().empty());
  EXPECT_EQ(gCurrTonicNoteId, 12);
  EXPECT_EQ(gNoteAdjust[41], 0.0f);
  EXPECT_NE(gNoteAdjust[40], 0.0f);
  ASSERT_EQ(fApplyScaleShift({21, float(recordedSpc("c", 21)), float(recordedSpc("c", 21))}), 1);
  EXPECT_TRUE(messageTexts().empty());
}

}  // namespace
