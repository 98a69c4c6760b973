// The working raga record on a copy of the built library store and a fresh
// user store: the cut of scale, pakad and phrases, the exact getter texts,
// the composition at hand and the missing raga.
#include "store/working_record.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "control/raga_setup.h"
#include "core/errors.h"
#include "core/session.h"
#include "notation/vocabulary.h"
#include "platform/store.h"
#include "sound_test_support.h"
#include "store/working_record_comp.h"
#include "store/working_record_comp_text.h"

namespace {

constexpr std::int16_t kYaman = 1;
constexpr std::int16_t kBhupali = 2;
constexpr std::int16_t kNoSuchRaga = 99;

class WorkingRecord : public SoundStoreTest {
 protected:
  void SetUp() override {
    SoundStoreTest::SetUp();
    sInitScales();
    gNotationScript = 2;
    gGraceNotes = 2;
    gCurrTonicNoteId = 3;
    gCurrDbSelector = 1;
  }
  void setUp(std::int16_t ragaId, const std::string& name = "") {
    gCurrRagaId = ragaId;
    gCurrRagaName = name;
    sSetupForCurrRaga();
  }
};

// Getter texts of two ragas, exactly as the library holds them.
TEST_F(WorkingRecord, ScaleAndPakadTexts) {
  const struct { std::int16_t ragaId; std::string (*getter)(std::int16_t); std::int16_t which; std::string expected; }
      cases[] = {
      {kYaman, fGetFromT_ArohaPhrase, 1, "N< R G M D N S>"},
      {kYaman, fGetFromT_AvrohaPhrase, 2, "40 40 40 40 40 40 40 80"},
      {kYaman, fGetFromT_ScalePhraseSeg, 1, "N< R G M D N S> : S> N D P M G R S"},
      {kYaman, fGetFromT_ScalePhraseUnSeg, 2, "40 40 40 40 40 40 80 40 40 40 40 40 40 40 80"},
      {kYaman, fGetFromT_PakadPhraseSeg, 1, "N< R G R :N< R S :P M G R :S"},
      {kYaman, fGetFromT_PakadPhraseSeg, 2, "50 50 50 90 :50 50 90 :50 50 50 90 :140"},
      {kBhupali, fGetFromT_PakadPhraseSeg, 1, "G R S D< :S R G :P G :D P G R S"},
      {kBhupali, fGetFromT_PakadPhraseUnSeg, 1, "G R S D< S R G P G D P G R S"},
      {kBhupali, fGetFromT_PakadPhraseUnSeg, 2, "50 50 50 90 50 50 90 50 90 50 50 50 50 140"},
  };
  for (const auto& c : cases) {
    setUp(c.ragaId);
    EXPECT_EQ(c.getter(c.which), c.expected) << "raga " << c.ragaId << " which " << c.which;
  }
  EXPECT_EQ(gTRaga.Thata + gTRaga.Vadi, "KalyanG");
  EXPECT_EQ(gTRaga.PakadSegmentCount, 4);
  EXPECT_EQ(gTRaga.PakadSectionEnd[0], 4);
  EXPECT_EQ(gTRaga.ScaleSegmentCount, 2);
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(WorkingRecord, AlapAndTaanPhrasesOfTheLibrary) {
  setUp(kBhupali);
  EXPECT_EQ(gTAlt[0].RagaId, kBhupali);
  EXPECT_EQ(gTAlt[0].SegmentCount, 13);
  EXPECT_EQ(fGetFromT_SegmentCount(1, 1), 5);
  EXPECT_EQ(fGetFromT_AnALTPhraseSeg(1, 1, 1, 5), "G R S D< P< : D< S R'G R S");
  EXPECT_EQ(fGetFromT_AnALTPhraseSeg(1, 1, 2, 5), "60 60 60 60 110 : 60 60 70 60 160");
  // The "," word of the durations is skipped between phrases.
  EXPECT_EQ(fGetFromT_AnALTPhraseUnSeg(1, 1, 2, 2), "60 60 60 110 60 60 110 60 160");
  // A taan has no durations, whatever the store holds.
  EXPECT_EQ(gTAlt[2].SegmentDurations, std::vector<std::string>(6, ""));
  // The user store has no phrases of this raga.
  for (const TAltRecord& record : gTUserAlt) EXPECT_EQ(record.RagaId, 0);
}

TEST_F(WorkingRecord, CutOfPhrasesCountsTokensSegmentsAndDurations) {
  TAltRecord record;
  sLoadRagaALTInfoIntoT(record, 1, 7, "S R : G , M P", "10 20 30 , 40 50");
  EXPECT_EQ(record.PhraseCount, 2);
  EXPECT_EQ(record.SegmentCount, 3);
  EXPECT_EQ(record.PhraseFirstSegment, (std::vector<std::int16_t>{1, 3}));
  EXPECT_EQ(record.PhraseFirstToken, (std::vector<std::int16_t>{1, 6}));
  EXPECT_EQ(record.SegmentNotes, (std::vector<std::string>{"S R", "G", "M P"}));
  EXPECT_EQ(record.SegmentDurations, (std::vector<std::string>{"10 20", "30", "40 50"}));

  // Too few durations: the words run out, the notes stay.
  sLoadRagaALTInfoIntoT(record, 2, 7, "S R G : M", "10 20");
  EXPECT_EQ(record.SegmentDurations, (std::vector<std::string>{"10 20", ""}));

  // An empty notes column leaves no phrases of the earlier cut behind.
  sLoadRagaALTInfoIntoT(record, 2, 7, "", "10 20");
  EXPECT_EQ(record.RagaId, 7);
  EXPECT_EQ(record.PhraseCount, 0);
  EXPECT_TRUE(record.SegmentNotes.empty());
}

TEST_F(WorkingRecord, UserStorePhrasesWithoutLayakariOrTaan) {
  gDbB->execute(
      "INSERT INTO \"Raga - ALT Phrases\" VALUES (2, 1, 'S R : G , M P', '10 20 30 , 40 50');");
  setUp(kBhupali);
  EXPECT_EQ(gTUserAlt[0].RagaId, kBhupali);
  EXPECT_EQ(gTUserAlt[1].RagaId + gTUserAlt[2].RagaId, 0);
  EXPECT_EQ(fGetFromT_SegmentCount(2, 1), 2);
  EXPECT_EQ(fGetFromT_AnALTPhraseSeg(2, 1, 1, 1), "S R : G");
  // The library's phrases of the same raga are untouched by the user's.
  EXPECT_EQ(fGetFromT_SegmentCount(1, 1), 5);
}

TEST_F(WorkingRecord, MissingRagaIsToldAndLeavesAnEmptyUsableRecord) {
  setUp(kBhupali);
  setUp(kNoSuchRaga, "Unknown");
  EXPECT_EQ(messageTexts(), (std::vector<std::string>{
                                "The data of raga 99 is missing from the library. Please "
                                "reinstall Nadavik."}));
  EXPECT_EQ(gTRaga.RagaId, 0);
  EXPECT_EQ(fGetFromT_PakadPhraseSeg(1), "");
  for (const TAltRecord& record : gTAlt) EXPECT_EQ(record.RagaId, 0);
  EXPECT_EQ(gCurrDroneType, 1);  // the seeds are left alone
}

TEST_F(WorkingRecord, NewDroneTypeRebuildsTheSeeds) {
  // Drone types 2, 2 again (nothing to rebuild), then 1.
  for (const std::int16_t ragaId : std::initializer_list<std::int16_t>{15, 20, kYaman}) {
    gCurrRagaId = ragaId;
    sSetupRagaAndSound();
    EXPECT_EQ(gCurrDroneType, ragaId == kYaman ? 1 : 2);
  }
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(WorkingRecord, CompositionPartsAndBeatMarkedText) {
  setUp(kYaman, "Yaman");
  gCurrPhraseKind = 8;
  sDBToTCompInfo(1, 2, "Saanjh bhayi");
  EXPECT_EQ(gCurrCompIndex, 101);
  EXPECT_EQ(gTCompInfo.Name, "Saanjh bhayi");
  sDBToTCompData(1, gCurrCompIndex);
  EXPECT_EQ(gCompInfo[0].StartingBeat, 9);
  EXPECT_EQ(gCompInfo[1].Text, "Timir mite jag hove ujiyaara sur mein doobe sab sansaara");
  // Teentaal from beat 9: the 5th and 13th syllables stand on beat 1.
  EXPECT_EQ(fCreateCompStringFromT(1, 1),
            "   Saanjh   bha   yi   ab   (1)deep   ja   laa   o   man   man   dir   mein"
            "   (1)jyot   ja   gaa   o");
  EXPECT_EQ(fCreateCompStringFromT(2, 2).substr(0, 12), "   M   D   N");
  gNotationScript = 1;  // the notation's beat marks follow the script, the text's do not
  EXPECT_NE(fCreateCompStringFromT(1, 2).find(".1."), std::string::npos);
  EXPECT_NE(fCreateCompStringFromT(1, 1).find("(1)"), std::string::npos);
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(WorkingRecord, UserCompositionAndMisses) {
  gDbB->execute(
      "INSERT INTO \"Raga - Additional Information\" VALUES (2, 'My Song', 2, 7001);"
      "INSERT INTO \"Raga - Composition Notations\" (\"Notation Index\", \"Composition Part\","
      " \"Raga Index\", Notation, NotesDuration, \"Tala Id\", \"Starting Beat\")"
      " VALUES (7001, 1, 2, 'S R G', '2 2 1.5', 1, 3), (7001, 2, 2, 'P D', '1 1', 1, 1);");
  setUp(kBhupali, "Bhupali");
  gCurrPhraseKind = 8;
  sDBToTCompInfo(2, 2, "my song");  // names compare without regard to case
  EXPECT_EQ(gCurrCompIndex, 7001);
  sDBToTCompData(2, 7001);
  EXPECT_EQ(gCompInfo[1].Notation, "P D");

  sDBToTCompData(2, 7002);  // no such composition
  EXPECT_EQ(gCompInfo[0].NotationIndex, 0);
  EXPECT_EQ(gCompInfo[1].NotationIndex, 0);
  sDBToTCompInfo(1, 2, "My Song");  // not in the library
  EXPECT_EQ(gCurrCompIndex, 7001);
  EXPECT_EQ(messageTexts(), (std::vector<std::string>{"Composition Not Available"}));
}

}  // namespace
