// Loading the music set in use: every failure of the sequence with its
// messages, the user music set from the user store, the rebuild with a
// scale shift, and the status-line text.
#include <gtest/gtest.h>

#include "core/session.h"
#include "notation/vocabulary.h"
#include "platform/store.h"
#include "sound/music_set.h"
#include "sound/sound_state.h"
#include "sound_test_support.h"
#include "tonvex/tonvex.h"

namespace {

using MusicSetTest = SoundStoreTest;
using Messages = std::vector<std::string>;

// Damage to the library store: a seed period the library refuses, and a
// correction no seed can be stretched to.
const char* const kBadMainSeed =
    R"(UPDATE "Note Specifications" SET SamPerCyc = 5 WHERE "Instr Name" = 'c' AND "Note Id" = 7)";
const char* const kBadDroneSeed =
    R"(UPDATE "Note Specifications" SET SamPerCyc = 5 WHERE "Instr Name" = 'e' AND "Note Id" = 9)";
const char* const kBadMainCorrection =
    R"(UPDATE "ONPR" SET "05" = 5000 WHERE NPSetId = 3 AND InstrumentType = 1)";
const char* const kBadDroneCorrection =
    R"(UPDATE "ONPR" SET "05" = 5000 WHERE NPSetId = 3 AND InstrumentType = 2)";

struct FailureCase {
  const char* what;
  const char* libraryChange;  // SQL on the library store, or nullptr
  void (*sessionChange)();    // or nullptr
  Messages messages;
};

const FailureCase kFailures[] = {
    {"main set undeclared", nullptr, [] { gMainSetName = std::string("x"); },
     {"Error Freeing Note Seeds Memory", "Error loading Main Note Seeds"}},
    {"main seed damaged", kBadMainSeed, nullptr,
     {"Error Loading Seed Data For c7", "Error loading Main Note Seeds"}},
    {"main correction refused", kBadMainCorrection, nullptr,
     {"Error adjusting SPC", "Error adjusting Main Note Seeds"}},
    {"drone set undeclared", nullptr, [] { gDroneSetName = std::string("z"); },
     {"Error Freeing Note Seeds Memory", "Error loading Drone Note Seeds"}},
    {"drone seed damaged", kBadDroneSeed, nullptr,
     {"Error Loading Seed Data For e9", "Error loading Drone Note Seeds"}},
    {"drone correction refused", kBadDroneCorrection, nullptr,
     {"Error adjusting SPC", "Error adjusting Drone Note Seeds"}},
    {"drone type unknown", nullptr, [] { gCurrDroneType = 9; },
     {"Error in FWavLoadDroneData", "Error building Drone Data"}},
};

TEST_F(MusicSetTest, EachFailureEndsTheSequenceWithItsMessages) {
  for (const FailureCase& c : kFailures) {
    SCOPED_TRACE(c.what);
    resetLibraryStore();
    gMainSetName = "c";
    gDroneSetName = "e";
    gCurrDroneType = 1;
    if (c.libraryChange) changeLibraryStore(c.libraryChange);
    if (c.sessionChange) c.sessionChange();
    windows_.messages.clear();
    EXPECT_EQ(fCreateNoteSeedsForUse(), 0);
    EXPECT_EQ(messageTexts(), c.messages);
  }
}

TEST_F(MusicSetTest, UserSetComesFromTheUserStoreWithItsTonic) {
  gCurrMusicSetId = kUserSetId;
  ASSERT_EQ(fCreateNoteSeedsForUse(), 1);
  EXPECT_TRUE(messageTexts().empty());
  EXPECT_EQ(gCurrTonicNoteId, kUserSetTonic);
  // The drone row was loaded last: column i at note tonic + 2 + i.
  EXPECT_FLOAT_EQ(gNoteAdjust[kUserSetTonic + 2 + 10], -0.10f);
  EXPECT_EQ(gNoteAdjust[kUserSetTonic + 1], 0.0f);
}

TEST_F(MusicSetTest, SetTwelveIsReadFromTheLibraryStore) {
  // A row 12 in the user store must not be the one read.
  gDbB->execute(
      R"(INSERT INTO "ONPR" ("NPSetId", "InstrumentType", "TonicNoteId") VALUES (12, 1, 5))");
  gCurrMusicSetId = 12;
  ASSERT_EQ(fCreateNoteSeedsForUse(), 1);
  EXPECT_EQ(gCurrTonicNoteId, 12);
}

TEST_F(MusicSetTest, ScaleInfoNamesTheSetAndItsTonic) {
  sInitScales();
  gCurrTonicNoteId = 3;
  gCurrMusicSetId = 3;
  EXPECT_EQ(fGetScaleInfo(), "Using NV Scale with Black-1 (C#) As 'sA' (Tonic Note)");
  gCurrMusicSetId = 12;
  gCurrTonicNoteId = 12;
  EXPECT_EQ(fGetScaleInfo(), "Using NV Scale with Black-5 (A#) As 'sA' (Tonic Note)");
  gCurrMusicSetId = kUserSetId;
  gCurrTonicNoteId = kUserSetTonic;
  gCurrMusicSetName = "Test Scale";
  EXPECT_EQ(fGetScaleInfo(),
            "Using User-defined scale 'Test Scale' with White-4 (F) as nominal 'sA' (Tonic Note)");
}

TEST_F(MusicSetTest, RebuildGoesOnPastEachFailure) {
  gScaleShiftSpec = {12, 318.0f, 316.0f};
  gCurrDroneType = 9;
  EXPECT_EQ(fAdjustScaleNotesToCurrentSetting(gCurrMusicSetId), 0);
  EXPECT_EQ(messageTexts(), (Messages{"Error in FWavLoadDroneData", "Error building Drone Data",
                                      "Error Creating Note Seeds", "Error in FWavLoadDroneData",
                                      "Error in building Drone Data"}));
  // The shift was applied all the same.
  EXPECT_NE(gMainAdjust[12], 0.0f);
}

}  // namespace
