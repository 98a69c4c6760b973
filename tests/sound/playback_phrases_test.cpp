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

// The scale is one phrase with its own file (durations unsegmented even in
// the segmented text); the pakad loses its glides without grace notes; alap
// and layakari give one phrase each, the cursor left on the last and the
// prefetch left to the set-up; a taan gets even durations.
TEST_F(PhraseLoading, EachItemGivesItsPhrases) {
  const struct {
    std::int16_t item, grace, text;
    Phrases notes, durations;
    std::int16_t prefetch;  // 0: not checked
  } cases[] = {
      {1, 2, kUnsegmentedText, {"S R G G R S"}, {"10 10 10 20 20 20"}, kPrefetchNone},
      {1, 2, kSegmentedText, {"S R G : G R S"}, {"10 10 10 20 20 20"}, kPrefetchNone},
      {2, 1, kUnsegmentedText, {"R G m G"}, {"30 30 40 40"}, 0},
      {3, 2, kUnsegmentedText, {"S R'G m P", "D N S>"}, {"50 60 70 80", "10 20 30"}, kPrefetchNext},
      {4, 2, kUnsegmentedText, {"S R'G m P", "D N S>"}, {"50 60 70 80", "10 20 30"}, kPrefetchNext},
      {3, 2, kSegmentedText, {"S R'G : m P", "D N S>"}, {"50 60 70 80", "10 20 30"}, kPrefetchNext},
      {5, 1, kUnsegmentedText, {"S G m P", "D N S>"}, {"15 15 15 15 ", "15 15 15 "}, kPrefetchNext},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.notes.front());
    gCurrItemType = c.item;
    gGraceNotes = c.grace;
    gPrefetchMode = kPrefetchNext;
    sLoadMNFromT(c.text);
    EXPECT_EQ(gPhraseSet.Count, static_cast<std::int16_t>(c.notes.size()));
    EXPECT_EQ(gPhraseSet.Position, gPhraseSet.Count);
    EXPECT_EQ(gPhraseSet.NotePhrases, c.notes);
    EXPECT_EQ(gPhraseSet.DurPhrases, c.durations);
    if (c.item != 5) {
      EXPECT_EQ(gPhraseSet.BaseDurPhrases, gPhraseSet.DurPhrases);
    }
    if (c.prefetch) {
      EXPECT_EQ(gPrefetchMode, c.prefetch);
    }
  }
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
