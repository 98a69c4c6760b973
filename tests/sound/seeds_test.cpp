// Loading note seeds from the built library store into the synthesis
// library, and what a damaged seed row does.
#include <gtest/gtest.h>

#include "core/session.h"
#include "sound/seeds.h"
#include "sound_test_support.h"
#include "tonvex/tonvex.h"

namespace {

using SeedsTest = SoundStoreTest;
using Messages = std::vector<std::string>;

// True when a note of the main set renders.
bool sounds(int noteId, const std::filesystem::path& wav) {
  const std::string token = (noteId < 10 ? "0" : "") + std::to_string(noteId);
  return FWavGenerateMusicFile(1, token, "200", wav.string(), 0, 0.2, 1, 1000, 60, 80, 50) == 1;
}

TEST_F(SeedsTest, AnUndeclaredSetCannotBeFreed) {
  EXPECT_EQ(fLoadNoteSeeds("x"), 0);
  EXPECT_EQ(messageTexts(), Messages{"Error Freeing Note Seeds Memory"});
}

// Each damage to note 7 of the main set stops the load there with the
// note's message; the notes after it stay unloaded.
TEST_F(SeedsTest, DamagedSeedRowsStopTheLoadAtThatNote) {
  const std::string where = " WHERE \"Instr Name\" = 'c' AND \"Note Id\" = 7";
  const std::string damages[] = {
      "UPDATE \"Note Specifications\" SET SamPerCyc = 5" + where,  // refused by the library
      "UPDATE \"Note Specifications\" SET SamPerCyc = -1" + where,
      "UPDATE \"Note Specifications\" SET SamPerCyc = NULL" + where,
      "UPDATE \"Note Specifications\" SET SamPerCyc = 3000000000" + where,
      "UPDATE \"Note Specifications\" SET \"Fractional Value\" = 1.5" + where,
      "UPDATE \"Sample Values\" SET \"Sample Value\" = 40000" + where + " AND \"Sample Id\" = 3",
      "INSERT INTO \"Sample Values\" VALUES ('c', 7, 5000, 1)",  // beyond the period
  };
  for (const std::string& damage : damages) {
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

TEST_F(SeedsTest, MissingSampleRowsAreSilenceNotAFault) {
  changeLibraryStore(R"(DELETE FROM "Sample Values"
                        WHERE "Instr Name" = 'c' AND "Note Id" = 7 AND "Sample Id" > 10;)");
  EXPECT_EQ(fLoadNoteSeeds("c"), 1);
  EXPECT_TRUE(sounds(7, file("n.wav")));
}

TEST_F(SeedsTest, OneNoteReloadsAtItsRecordedPitch) {
  ASSERT_EQ(fLoadNoteSeeds("c"), 1);
  ASSERT_EQ(FWavTuneNote("c", 16, 6.0), 1);
  EXPECT_EQ(fLoadIndividualNoteSeed("c", 16), 1);
  const double recordedHz = tonvex::kSampleRate / recordedSpc("c", 16);
  EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(16, recordedHz, file("n.wav")), recordedHz), 0.0, 1.5);
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(SeedsTest, ANoteNotInTheStoreCannotBeReloaded) {
  EXPECT_EQ(fLoadIndividualNoteSeed("c", 41), 0);
  EXPECT_EQ(fLoadIndividualNoteSeed("q", 12), 0);
  EXPECT_EQ(messageTexts(),
            (Messages{"Error Loading Seed Data For c41", "Error Loading Seed Data For q12"}));
}

}  // namespace
