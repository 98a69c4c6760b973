// The sound set-up on the built library store: starting the synthesis
// library and greeting with the drone; loading the music set in use with
// every failure of each sequence and its messages, the user music set, the
// rebuild with a scale shift and the status-line text; the drone's loudness
// limits and the raga's drone type; and seeds and tuning: every built-in
// music set and the ratio tuning of a shifted scale put the notes at their
// just ratios to an equal-tempered Sa, measured on rendered notes against a
// table of their own; damaged seed rows, and the note columns of "ONPR".
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>

#include "core/session.h"
#include "notation/vocabulary.h"
#include "platform/store.h"
#include "sound/drone.h"
#include "sound/library_setup.h"
#include "sound/music_set.h"
#include "sound/onpr_rows.h"
#include "sound/seeds.h"
#include "sound/sound_state.h"
#include "sound/tuning.h"
#include "sound_test_support.h"
#include "store/lookups.h"
#include "tonvex/tonvex.h"

namespace {

using TuningTest = SoundStoreTest;
using MusicSetTest = SoundStoreTest;

// Each failure of the start or of loading the music set shows its
// messages and gives 0. (A drone that cannot be built fails the loading
// inside the start.)
TEST_F(MusicSetTest, EachFailureEndsTheSequenceWithItsMessages) {
  const std::function<std::int16_t()> start = [] { return std::int16_t(fStartSoundLibrary()); };
  const std::function<std::int16_t()> load = fCreateNoteSeedsForUse;
  // A correction of set 3 no seed can be stretched to, for an instrument type.
  const std::string badCorrection = R"(UPDATE "ONPR" SET "05" = 5000 WHERE NPSetId = 3 AND InstrumentType = )";
  const struct { const char* what; std::function<void()> change; const std::function<std::int16_t()>& sequence;
                 Messages messages; } cases[] = {
      {"no set names", [] { gSynthNames = ""; }, start, {"Error in Setting GlobalVariables"}},
      {"main set undeclared", [] { gMainSetName = std::string("x"); }, start, {"Error in Setting Instrument Name"}},
      {"drone cannot be built", [] { gCurrDroneType = 9; }, start,
       {"Error in FWavLoadDroneData", "Error building Drone Data", "Error in Creating Note Seeds"}},
      {"kit file missing", [] { gInstrLibFiles[3] = gDataPath + "/none.nvy"; }, start,
       {"Error in Loading Theka Data"}},
      {"theka instrument 6", [] { gThekaInstrument = 6; }, start, {"Error in Loading Theka Data"}},
      {"main set undeclared", [] { gMainSetName = std::string("x"); }, load,
       {"Error Freeing Note Seeds Memory", "Error loading Main Note Seeds"}},
      {"main correction refused", [&] { changeLibraryStore(badCorrection + "1"); }, load,
       {"Error adjusting SPC", "Error adjusting Main Note Seeds"}},
      {"drone set undeclared", [] { gDroneSetName = std::string("z"); }, load,
       {"Error Freeing Note Seeds Memory", "Error loading Drone Note Seeds"}},
      {"drone correction refused", [&] { changeLibraryStore(badCorrection + "2"); }, load,
       {"Error adjusting SPC", "Error adjusting Drone Note Seeds"}},
  };
  for (const auto& c : cases) {
    SoundStoreTest::TearDown();
    SoundStoreTest::SetUp();
    windows_.messages.clear();
    c.change();
    EXPECT_EQ(c.sequence(), 0) << c.what;
    EXPECT_EQ(messageTexts(), c.messages) << c.what;
  }
}

TEST_F(MusicSetTest, StartsAndGreetsWithTheDroneOrSaysWhyNot) {
  ASSERT_TRUE(fStartSoundLibrary());
  ASSERT_TRUE(fGenerateGreetingDrone());
  EXPECT_TRUE(messageTexts().empty());
  EXPECT_NEAR(fWaveLengthMs(gDroneWavFile), 6400.0, 1.0) << "two cycles of 3200 ms";
  gDroneWavFile = gDataPath + "/missing-folder/D.Wav";
  EXPECT_FALSE(fGenerateGreetingDrone());
  EXPECT_EQ(messageTexts(), Messages{"Error in generating drone file"});
  EXPECT_FALSE(std::filesystem::exists(gDroneWavFile));
}

// The user set comes from the user store with its tonic; set 12 from the
// library store although the user store has a row 12; the status line names
// each.
TEST_F(MusicSetTest, EachSetComesFromItsStoreWithItsTonicAndName) {
  gCurrMusicSetId = kUserSetId;
  ASSERT_EQ(fCreateNoteSeedsForUse(), 1);
  EXPECT_TRUE(messageTexts().empty());
  EXPECT_EQ(gCurrTonicNoteId, kUserSetTonic);
  // The drone row was loaded last: column i at note tonic + 2 + i.
  EXPECT_FLOAT_EQ(gNoteAdjust[kUserSetTonic + 2 + 10], -0.10f);
  // A note below the columns follows the same swara an octave up: twice
  // its correction, as the seeds are equal-tempered.
  EXPECT_NEAR(gNoteAdjust[kUserSetTonic], -0.20f, 1e-3);
  sInitScales();
  gCurrMusicSetName = "Test Scale";
  EXPECT_EQ(fGetScaleInfo(),
            "Using User-defined scale 'Test Scale' with White-4 (F) as nominal 'sA' (Tonic Note)");
  gDbB->execute(
      R"(INSERT INTO "ONPR" ("NPSetId", "InstrumentType", "TonicNoteId") VALUES (12, 1, 5))");
  gCurrMusicSetId = 12;
  ASSERT_EQ(fCreateNoteSeedsForUse(), 1);
  EXPECT_EQ(gCurrTonicNoteId, 12);
  EXPECT_EQ(fGetScaleInfo(), "Using NV Scale with Black-5 (A#) As 'sA' (Tonic Note)");
  // A rebuild with a scale shift goes on past each failure.
  gScaleShiftSpec = {12, 318.0f, 316.0f};
  gCurrDroneType = 9;
  EXPECT_EQ(fAdjustScaleNotesToCurrentSetting(gCurrMusicSetId), 0);
  EXPECT_EQ(messageTexts(), (Messages{"Error in FWavLoadDroneData", "Error building Drone Data",
                                      "Error Creating Note Seeds", "Error in FWavLoadDroneData",
                                      "Error in building Drone Data"}));
  EXPECT_NE(gMainAdjust[12], 0.0f) << "the shift was applied all the same";
}

// Every drone type builds in both modes; at a loudness limit the factor
// stays but the drone is still rebuilt, and a drone that cannot be built
// says so there too.
TEST_F(MusicSetTest, TheDroneBuildsForEveryTypeAndIsRebuiltAtEachLimit) {
  ASSERT_EQ(fLoadNoteSeeds(gDroneSetName), 1);
  for (std::int16_t mode : {1, 2})
    for (std::int32_t type : {1, 2, 3}) {
      gDroneMode = mode;
      gCurrDroneType = type;
      EXPECT_EQ(fBuildDroneData(), 1) << mode << " " << type;
    }
  for (const auto& [factor, step] : {std::pair{1.5, 1}, {0.5, -1}}) {
    gCurrDroneFactor = factor;
    gDroneStep = std::int16_t(step);
    gCurrDroneType = 1;
    gWavOption = 2;
    windows_.messages.clear();
    EXPECT_EQ(fAdjustDroneVolume(), 1);  // the factor's stop at each limit: on the exploration screen
    EXPECT_EQ(gWavOption, 1);
    gCurrDroneType = 9;
    EXPECT_EQ(fAdjustDroneVolume(), 0);
    EXPECT_EQ(gCurrDroneFactor, factor);
    EXPECT_EQ(messageTexts(), (Messages{"Error in FWavLoadDroneData", "Error in Building DroneData"}));
  }
}

// The raga's drone type is taken only when it differs: with the drone set
// undeclared any rebuild would fail loudly, so the same type, or a raga
// missing from the table, must cause none.
TEST_F(MusicSetTest, TheRagasDroneTypeIsTakenOnlyWhenItDiffers) {
  ASSERT_EQ(fLoadNoteSeeds(gDroneSetName), 1);
  changeLibraryStore(R"(INSERT INTO "Raga - Technical Information" ("Raga Index", "DroneType")
                        VALUES (501, 2), (502, 1), (503, NULL);)");
  const Messages failed{"Error in FWavLoadDroneData", "Error in loading drone data"};
  const struct { std::int32_t ragaId; const char* droneSet; std::int32_t droneType; Messages messages; } steps[] = {
      {501, "e", 2, {}}, {501, "z", 2, {}}, {999, "z", 2, {}}, {502, "z", 1, failed},
      {503, "e", 0, failed}};  // 503: no type recorded
  gCurrDroneType = 1;
  for (const auto& s : steps) {
    windows_.messages.clear();
    gDroneSetName = s.droneSet;
    gCurrRagaId = s.ragaId;
    sAdjustDroneType(fGetRagaDroneType(gCurrRagaId));
    EXPECT_EQ(gCurrDroneType, s.droneType) << s.ragaId;
    EXPECT_EQ(messageTexts(), s.messages) << s.ragaId;
  }
}

// Just ratios to Sa by semitone; other octaves double or halve them.
constexpr double kJust[12] = {1.0, 16.0 / 15, 9.0 / 8, 6.0 / 5, 5.0 / 4, 4.0 / 3,
                              45.0 / 32, 3.0 / 2, 8.0 / 5, 5.0 / 3, 9.0 / 5, 15.0 / 8};
double justRatio(int semitonesFromSa) {
  const int octave = int(std::floor(semitonesFromSa / 12.0));
  return kJust[semitonesFromSa - 12 * octave] * std::exp2(octave);
}

// Every built-in set (Sa equal-tempered from A4 = 440 Hz) and shifts by the
// ratio tuning: every note the tonic reaches (note ids 0 to 35), inside the
// 27 columns or outside them, and every drone string (the drone set sounds
// its slots an octave lower), within 2 cents of its just ratio to Sa.
TEST_F(TuningTest, EveryNoteSoundsItsJustRatioToSaInEveryOctave) {
  struct Case { std::string what; std::int16_t setId; std::int32_t shiftRef; double shiftCents; };
  std::vector<Case> cases;
  for (std::int16_t set = 1; set <= 12; ++set) cases.push_back({"set " + std::to_string(set), set, 0, 0});
  cases.push_back({"set 3 raised 30 cents", 3, 12, 30});
  cases.push_back({"set 12 shifted by nothing", 12, 21, 0});
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const int saNote = c.setId + 9;
    const double etSaHz = 440.0 * std::exp2((saNote - 32) / 12.0);  // note 11 is C3, 21 below A4
    gCurrMusicSetId = c.setId;
    if (c.shiftRef == 0) {
      ASSERT_EQ(fCreateNoteSeedsForUse(), 1);
    } else {
      const float base = float(tonvex::kSampleRate / etSaHz);  // the Sa's recorded period
      gScaleShiftSpec = {c.shiftRef, base, float(base / std::exp2(c.shiftCents / 1200))};
      ASSERT_EQ(fAdjustScaleNotesToCurrentSetting(c.setId), 1);
    }
    EXPECT_TRUE(messageTexts().empty());
    EXPECT_EQ(gCurrTonicNoteId, c.setId);
    const double saHz = etSaHz * std::exp2(c.shiftCents / 1200);
    for (int note = std::max(0, c.setId - 3); note <= std::min(40, c.setId + 32); ++note) {
      const double hz = saHz * justRatio(note - saNote);
      EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(note, hz, file("n.wav")), hz), 0.0, 2.0)
          << "note " << note;
    }
    ASSERT_EQ(FWavSetCurrInstr("e"), 1);
    for (int string : {12, 12 - 5, 12 - 7, 12 - 1, 0}) {  // Sa, Pa, Ma, Ni, low Sa
      const double hz = saHz * justRatio(string - 12);
      EXPECT_NEAR(fCents(fMeasureRenderedNoteHz(saNote + string, hz, file("n.wav")), hz), 0.0, 2.0)
          << "drone slot " << saNote + string;
    }
    ASSERT_EQ(FWavSetCurrInstr("c"), 1);
  }
}

// Each damage to note 7 of the main set stops the load there with the
// note's message, the notes after it unloaded, and stops a ratio tuning,
// which reloads each note, at that note.
TEST_F(TuningTest, DamagedSeedRowsStopTheLoadAtThatNote) {
  const std::string where = " WHERE \"Instr Name\" = 'c' AND \"Note Id\" = 7";
  const std::string damages[] = {
      "UPDATE \"Note Specifications\" SET SamPerCyc = 5" + where,  // refused by the library
      "UPDATE \"Note Specifications\" SET SamPerCyc = NULL" + where,
      "UPDATE \"Note Specifications\" SET SamPerCyc = 3000000000" + where,
      "UPDATE \"Note Specifications\" SET \"Fractional Value\" = 1.5" + where,
      "UPDATE \"Sample Values\" SET \"Sample Value\" = 40000" + where + " AND \"Sample Id\" = 3",
      "INSERT INTO \"Sample Values\" VALUES ('c', 7, 5000, 1)",  // beyond the period
  };
  auto sounds = [this](const char* token) {
    return FWavGenerateMusicFile(1, token, "200", file("n.wav").string(), 0, 0.2, 1, 1000, 60,
                                 80, 50) == 1;
  };
  const float base = float(tonvex::kSampleRate / 138.5913);  // C#3, the middle Sa at tonic 3
  for (const std::string& damage : damages) {
    SCOPED_TRACE(damage);
    resetLibraryStore();
    changeLibraryStore(damage);
    windows_.messages.clear();
    EXPECT_EQ(fLoadNoteSeeds("c"), 0);
    EXPECT_EQ(messageTexts(), Messages{"Error Loading Seed Data For c7"});
    EXPECT_TRUE(sounds("06"));
    EXPECT_FALSE(sounds("08"));
    windows_.messages.clear();
    sAdjustNotesForFreqRat({12, base, base}, "c", 1);
    EXPECT_EQ(messageTexts(), Messages{"Error Loading Seed Data For c7"});
  }
  // Missing sample rows are silence, not a fault.
  resetLibraryStore();
  changeLibraryStore(R"(DELETE FROM "Sample Values"
                        WHERE "Instr Name" = 'c' AND "Note Id" = 7 AND "Sample Id" > 10;)");
  EXPECT_EQ(fLoadNoteSeeds("c"), 1);
  EXPECT_TRUE(sounds("07"));
  // A note the store lacks cannot be reloaded. (That a reload sets back a
  // note's tuning shows in the shifted scales above.)
  windows_.messages.clear();
  EXPECT_EQ(fLoadIndividualNoteSeed("c", 41) + fLoadIndividualNoteSeed("q", 12), 0);
  EXPECT_EQ(messageTexts(), (Messages{"Error Loading Seed Data For c41", "Error Loading Seed Data For q12"}));
}

// A correction vector written to the user set's row at tonic 5 loads back
// unchanged on the notes of the columns; columns outside the row read 0.
TEST_F(TuningTest, AVectorWrittenToTheUserSetLoadsBackUnchanged) {
  NoteAdjustVector written{};
  for (int n = 0; n < kNoteAdjustSize; ++n) written[n] = 0.1f * float(n) - 1.7f;
  gCurrTonicNoteId = 5;
  auto rs = gDbB->openRecordset("ONPR", platform::RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {kUserSetId, 1});
  rs->edit();
  rs->setField("TonicNoteId", 5);
  sUpdateNoteAdjustmentSPCs(*rs, written);
  rs->update();
  rs->close();
  gCurrTonicNoteId = 1;
  sLoadNoteAdjustSPCVector("c", 1, kUserSetId);
  EXPECT_EQ(gCurrTonicNoteId, 5);
  for (int n = 0; n < kNoteAdjustSize; ++n)
    EXPECT_EQ(gNoteAdjust[n], (n >= 7 && n <= 33) ? written[n] : 0.0f) << n;
  // A missing music set leaves the notes untuned and the tonic alone.
  gNoteAdjust.fill(3.0f);
  sLoadNoteAdjustSPCVector("c", 1, 14);
  EXPECT_EQ(gCurrTonicNoteId, 5);
  for (float d : gNoteAdjust) EXPECT_EQ(d, 0.0f);
}

}  // namespace
