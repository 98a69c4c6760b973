// Loading note seeds from the built library store into the synthesis
// library, and what a damaged seed row does.
#include <gtest/gtest.h>

#include "control/session.h"
#include "sound/seeds.h"
#include "sound_test_support.h"
#include "tonvex/tonvex.h"

namespace {

using SeedsTest = SoundStoreTest;
using Messages = std::vector<std::string>;

// Renders a note of the main set without retuning; true when it sounds.
bool sounds(int noteId, const std::filesystem::path& wav) {
  char token[4];
  std::snprintf(token, sizeof token, "%02d", noteId);
  return FWavGenerateMusicFile(1, token, "200", wav.string(), 0, 0.2, 1, 1000, 60, 80, 50) == 1;
}

TEST_F(SeedsTest, BothSetsLoadAtTheirRecordedPitch) {
  EXPECT_EQ(fLoadNoteSeeds("c"), 1);
  EXPECT_EQ(fLoadNoteSeeds("e"), 1);
  EXPECT_TRUE(messageTexts().empty());
  for (int note : {0, 12, 40}) {
    const double recordedHz = tonvex::kSampleRate / recordedSpc("c", note);
    EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(note, recordedHz, file("n.wav")), recordedHz), 0.0,
                1.5)
        << note;
  }
}

TEST_F(SeedsTest, LoadingAgainReplacesTheSet) {
  ASSERT_EQ(fLoadNoteSeeds("c"), 1);
  ASSERT_EQ(FWavTuneNote("c", 12, -20.0), 1);
  ASSERT_EQ(fLoadNoteSeeds("c"), 1);
  const double recordedHz = tonvex::kSampleRate / recordedSpc("c", 12);
  EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(12, recordedHz, file("n.wav")), recordedHz), 0.0, 1.5);
}

TEST_F(SeedsTest, AnUndeclaredSetCannotBeFreed) {
  EXPECT_EQ(fLoadNoteSeeds("x"), 0);
  EXPECT_EQ(messageTexts(), Messages{"Error Freeing Note Seeds Memory"});
}

TEST_F(SeedsTest, ASetWithoutRowsLoadsNothingAndSucceeds) {
  changeLibraryStore(R"(DELETE FROM "Note Specifications" WHERE "Instr Name" = 'e';)");
  EXPECT_EQ(fLoadNoteSeeds("e"), 1);
  EXPECT_TRUE(messageTexts().empty());
}

// Each damage to note 7 of the main set: the load stops there with the
// note's message, and the notes after it stay unloaded.
TEST_F(SeedsTest, DamagedSeedRowsStopTheLoadAtThatNote) {
  const char* damages[] = {
      R"(UPDATE "Note Specifications" SET SamPerCyc = 5 WHERE "Instr Name" = 'c' AND "Note Id" = 7;)",
      R"(UPDATE "Note Specifications" SET SamPerCyc = -1 WHERE "Instr Name" = 'c' AND "Note Id" = 7;)",
      R"(UPDATE "Note Specifications" SET SamPerCyc = NULL WHERE "Instr Name" = 'c' AND "Note Id" = 7;)",
      R"(UPDATE "Note Specifications" SET SamPerCyc = 3000000000 WHERE "Instr Name" = 'c' AND "Note Id" = 7;)",
      R"(UPDATE "Note Specifications" SET "Fractional Value" = 1.5 WHERE "Instr Name" = 'c' AND "Note Id" = 7;)",
      R"(UPDATE "Sample Values" SET "Sample Value" = 40000 WHERE "Instr Name" = 'c' AND "Note Id" = 7 AND "Sample Id" = 3;)",
      R"(INSERT INTO "Sample Values" VALUES ('c', 7, 5000, 1);)",
  };
  for (const char* damage : damages) {
    SCOPED_TRACE(damage);
    resetLibraryStore();
    changeLibraryStore(damage);
    windows_.messages.clear();
    EXPECT_EQ(fLoadNoteSeeds("c"), 0);
    EXPECT_EQ(messageTexts(), Messages{"Error Loading Seed Data For c7"});
    EXPECT_TRUE(sounds(6, file("n.wav")));
    EXPECT_FALSE(sounds(8, file("n.wav")));
  }
}

TEST_F(SeedsTest, MissingSampleRowsAreSilence) {
  changeLibraryStore(
      R"(DELETE FROM "Sample Values" WHERE "Instr Name" = 'c' AND "Note Id" = 7 AND "Sample Id" > 10;)");
  EXPECT_EQ(fLoadNoteSeeds("c"), 1);
  EXPECT_TRUE(sounds(7, file("n.wav")));
}

TEST_F(SeedsTest, OneNoteReloadsAndLosesItsTuning) {
  ASSERT_EQ(fLoadNoteSeeds("c"), 1);
  ASSERT_EQ(FWavTuneNote("c", 16, 6.0), 1);
  EXPECT_EQ(fLoadIndividualNoteSeed("c", 16), 1);
  const double recordedHz = tonvex::kSampleRate / recordedSpc("c", 16);
  EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(16, recordedHz, file("n.wav")), recordedHz), 0.0, 1.5);
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(SeedsTest, ANoteNotInTheStoreCannotBeReloaded) {
  ASSERT_EQ(fLoadNoteSeeds("c"), 1);
  EXPECT_EQ(fLoadIndividualNoteSeed("c", 41), 0);
  EXPECT_EQ(fLoadIndividualNoteSeed("q", 12), 0);
  EXPECT_EQ(fLoadIndividualNoteSeed("c", -1), 0);
  EXPECT_EQ(messageTexts(), (Messages{"Error Loading Seed Data For c41",
                                      "Error Loading Seed Data For q12",
                                      "Error Loading Seed Data For c-1"}));
}

}  // namespace
