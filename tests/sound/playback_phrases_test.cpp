// Taking an item's phrases from the working raga record into the phrase
// set, and stepping the notation box through them.
#include <gtest/gtest.h>

#include "core/session.h"
#include "playback_harness.h"
#include "sound/music_buffers.h"
#include "sound/phrase_loading.h"
#include "sound/play_state.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

namespace {

using Phrases = std::vector<std::string>;

// Two alap phrases: the first of two segments, the second of one.
void fillAlap(TAltRecord& record, std::int16_t phraseType) {
  record = TAltRecord{};
  record.RagaId = 1;
  record.PhraseType = phraseType;
  record.PhraseCount = 2;
  record.SegmentCount = 3;
  record.PhraseFirstSegment = {1, 3};
  record.PhraseSegments = {2, 1};
  record.SegmentNotes = {"S R'G", "m P", "D N S>"};
  record.SegmentDurations = {"50 60", "70 80", "10 20 30"};
}

class PhraseLoading : public ::testing::Test {
 protected:
  void SetUp() override {
    playbackstage::reset();
    gTRaga = TRagaRecord{};
    gTRaga.ScaleNotes = {"S R G", "G R S"};
    gTRaga.ScaleDurations = {"10 10 10", "20 20 20"};
    gTRaga.PakadNotes = {"S'R G", "m G"};
    gTRaga.PakadDurations = {"30 30", "40 40"};
    gTRaga.PakadSegmentCount = 2;
    for (std::int16_t type = 1; type <= 3; ++type)
      fillAlap(gTAlt[static_cast<std::size_t>(type - 1)], type);
    gTAlt[2].SegmentDurations = {"", "", ""};  // a taan has none
    gCurrDbSelector = 1;
    gPrefetchMode = kPrefetchNext;
    gGraceNotes = 2;
  }
};

TEST_F(PhraseLoading, TheScaleIsOnePhraseWithItsOwnFile) {
  gCurrItemType = 1;
  sLoadMNFromT(kUnsegmentedText);
  EXPECT_EQ(gPhraseSet.Count, 1);
  EXPECT_EQ(gPhraseSet.Position, 1);
  EXPECT_EQ(gPhraseSet.NotePhrases, (Phrases{"S R G G R S"}));
  EXPECT_EQ(gPhraseSet.DurPhrases, (Phrases{"10 10 10 20 20 20"}));
  EXPECT_EQ(gPhraseSet.BaseDurPhrases, gPhraseSet.DurPhrases);
  EXPECT_EQ(gPrefetchMode, kPrefetchNone);
  sLoadMNFromT(kSegmentedText);
  EXPECT_EQ(gPhraseSet.NotePhrases, (Phrases{"S R G : G R S"}));
  EXPECT_EQ(gPhraseSet.DurPhrases, (Phrases{"10 10 10 20 20 20"})) << "durations stay unsegmented";
}

TEST_F(PhraseLoading, ThePakadLosesItsGlidesWithoutGraceNotes) {
  gCurrItemType = 2;
  gGraceNotes = 1;
  sLoadMNFromT(kUnsegmentedText);
  EXPECT_EQ(gPhraseSet.NotePhrases, (Phrases{"R G m G"}));
  EXPECT_EQ(gPhraseSet.DurPhrases, (Phrases{"30 30 40 40"}));
}

TEST_F(PhraseLoading, AlapAndLayakariGiveOnePhraseEach) {
  for (std::int16_t item : {3, 4}) {
    gCurrItemType = item;
    sLoadMNFromT(kUnsegmentedText);
    EXPECT_EQ(gPhraseSet.Count, 2) << item;
    EXPECT_EQ(gPhraseSet.Position, 2) << "left at the last phrase";
    EXPECT_EQ(gPhraseSet.NotePhrases, (Phrases{"S R'G m P", "D N S>"}));
    EXPECT_EQ(gPhraseSet.DurPhrases, (Phrases{"50 60 70 80", "10 20 30"}));
    EXPECT_EQ(gPrefetchMode, kPrefetchNext) << "the set-up decides";
  }
  gCurrItemType = 3;
  sLoadMNFromT(kSegmentedText);
  EXPECT_EQ(gPhraseSet.NotePhrases, (Phrases{"S R'G : m P", "D N S>"}));
}

TEST_F(PhraseLoading, ATaanGetsEvenDurations) {
  gCurrItemType = 5;
  gGraceNotes = 1;
  sLoadMNFromT(kUnsegmentedText);
  EXPECT_EQ(gPhraseSet.NotePhrases, (Phrases{"S G m P", "D N S>"}));
  EXPECT_EQ(gPhraseSet.DurPhrases, (Phrases{"15 15 15 15 ", "15 15 15 "}));
}

TEST_F(PhraseLoading, ACompositionPlaysItsTwoPartsAtTheirTempo) {
  gCurrItemType = 6;
  gCurrPhraseKind = 8;
  gCurrMode = 1;
  gCompInfo[0].Notation = "S R G";
  gCompInfo[0].NotesDuration = "1 0.5 2";
  gCompInfo[0].PlayingSpeed = 70;
  gCompInfo[1].Notation = "P D";
  gCompInfo[1].NotesDuration = "1 1";
  gCompInfo[1].PlayingSpeed = 50;
  sLoadMNFromT(kUnsegmentedText);
  EXPECT_EQ(gPhraseSet.NotePhrases, (Phrases{"S R G", "P D"}));
  EXPECT_EQ(gPhraseSet.DurPhrases, (Phrases{"70 35 140", "50 50"}));

  gCurrItemType = 7;
  sLoadMNFromT(kUnsegmentedText);
  EXPECT_EQ(gPhraseSet.DurPhrases, (Phrases{"1 0.5 2", "1 1"})) << "a comparison's stand as stored";

  gCurrItemType = 6;
  gCurrPhraseKind = 9;
  sLoadMNFromT(kUnsegmentedText);
  EXPECT_EQ(gPhraseSet.NotePhrases, (Phrases{"S R G"})) << "a film song has one part";
}

TEST_F(PhraseLoading, AnItemWithoutPhrasesLeavesTheSetEmpty) {
  for (std::int16_t item : {0, 8, -1}) {
    gCurrItemType = item;
    sLoadMNFromT(kUnsegmentedText);
    EXPECT_EQ(gPhraseSet.Count, 0);
  }
  platform::Control& box = gCurrForm->control("cCurrentItem");
  box.setText("kept");
  sLoadScriptFromMN(box);
  EXPECT_EQ(box.text(), "kept");
}

TEST_F(PhraseLoading, TheBoxStepsThroughThePhrasesAndWraps) {
  gCurrItemType = 3;
  gNotationScript = 2;
  sLoadMNFromT(kUnsegmentedText);
  platform::Control& box = gCurrForm->control("cCurrentItem");
  struct Step {
    std::int16_t direction;
    std::int16_t position;
  } steps[] = {{1, 1}, {1, 2}, {1, 1}, {-1, 2}, {-1, 1}, {-1, 2}};
  for (const Step& step : steps) {
    gPhraseStep = step.direction;
    sLoadScriptFromMN(box);
    EXPECT_EQ(gPhraseSet.Position, step.position);
    EXPECT_NE(box.text().find(step.position == 1 ? "m" : "N"), std::string::npos) << box.text();
  }
  gPhraseStep = 1;
}

}  // namespace
