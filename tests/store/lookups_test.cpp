// Look-ups by id and name, the phrase and item tests and counts, prompts
// and the sequential raga pick, on small library and user stores: the
// product's schemas with a few rows. (The raga grid's order in each sort
// mode is checked on the real screen in tests/browsing.)
#include "store/lookups.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/error_state.h"
#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"
#include "store/queries.h"
#include "store/query_open.h"
#include "store/tala_beats.h"
#include "../support/helpers.h"

namespace {

namespace fs = std::filesystem;

const char* kLibraryRows = R"(
INSERT INTO "RagaNameList" VALUES ('Yaman', 1, 1), ('Bhairav', 2, 1), ('Kafi', 3, 2),
  ('Bhimpalasi', 4, 2), ('Todi', 5, 3), ('Marwa', 6, 3), ('Orphan', 7, 1);

INSERT INTO "Raga - Technical Information" ("Raga Index", "Thata", "Jati", "Vadi", "Samvadi",
  "VadiNum", "SamvadiNum", "Appropriate time", "TimeNum", "DroneType") VALUES
  (1, 'Kalyan',  'Sampurna',       'G', 'N', 17, 23, 'Evening',   15, 1),
  (2, 'Bhairav', 'Sampurna',       'd', 'D', 13, 20, 'Morning',   3,  1),
  (3, 'Kafi',    'Sampurna',       'P', 'S', 19, 12, 'Night',     18, 2),
  (4, 'Kafi',    'Audav-Sampurna', 'M', 'S', 10, 12, 'Afternoon', 9,  2),
  (5, NULL,      'Sampurna',       'd', 'g', 13, 15, 'Morning',   3,  1),
  (6, 'Marwa',   'Shadav',         'r', 'D', 14, 21, 'Evening',   14, 3);

INSERT INTO "Raga - ALT Phrases" VALUES (1, 1, 'N R G,G M D', '1 1 1,1 1 1'), (1, 3, 'S R G', '');

INSERT INTO "Raga - Additional Information" VALUES (1, 'Kalyan', 1, 0), (1, 'Eri Aali', 2, 101),
  (1, 'Jab Deep Jale', 3, 0), (1, 'Man Mohana', 2, 0), (3, 'Bhimpalasi', 1, 0),
  (3, 'Kafi Bandish', 2, 102), (1, 'Bhupali', 1, 0);

INSERT INTO "Tala - Technical Information" VALUES (1, 'Teentaal', 16, NULL, NULL),
  (2, 'Ektaal', 12, NULL, NULL), (3, 'Jhaptaal', 10, '2 3 2 2', 'x 2 0 3'), (4, 'Rupak', 7, '3 2 2', '0 2 3');

INSERT INTO "Prompts" VALUES (1, 'Choose a raga'), (3, 'Listen'), (4, 'Sing along');
)";

const char* kUserRows = R"(
INSERT INTO "Scale Shift Specs" VALUES (13, 'Zeta', 'Harmonium', 3, 100, 98.5),
  (14, 'Alpha', 'Harmonium', 3, 100, 101), (15, 'Mid', 'Sitar', 5, 90, 90.5);

INSERT INTO "Raga - ALT Phrases" VALUES (5, 2, 'S R,R G,G M', '1 1,1 1,1 1');

INSERT INTO "Raga - Additional Information" VALUES (1, 'My Song', 2, 201),
  (5, 'Todi Tune', 2, 202), (1, 'Draft', 2, 0);
)";

std::string schema(const char* file) { return fileText(fs::path(NADAVIK_STORE_SCHEMA_DIR) / file); }

// The two stores in a temporary directory, opened as gDbA (read-only) and
// gDbB (writable), both exclusive, and removed at the end.
class Lookups : public ::testing::Test {
 protected:
  void SetUp() override {
    auto& workspace = platform::defaultWorkspace();
    const std::string shared = schema("schema_shared.sql");
    workspace.createDatabase(dir_ / "mrA.nvy", schema("schema_library.sql") + shared + kLibraryRows);
    workspace.createDatabase(dir_ / "mrB.nvy", schema("schema_user.sql") + shared + kUserRows);
    gDbA = workspace.openDatabase(dir_ / "mrA.nvy", true, true, "");
    gDbB = workspace.openDatabase(dir_ / "mrB.nvy", true, false, "");
    sSetSQLStrings();
    gCurrRagaId = 1;
  }
  void TearDown() override {
    gDbA.reset();
    gDbB.reset();
  }
  TempFolder dir_;
};

// (The look-ups that only the screens still to come call are tested with
// those screens.)
TEST_F(Lookups, RagasTalasAndSetsByIdAndNameAndTheSequentialPick) {
  EXPECT_EQ(fGetRagaId("Kafi"), 3);
  EXPECT_EQ(fGetRagaId(""), 0);
  EXPECT_EQ(fGetRagaId("kafi"), 3);  // names compare without regard to case
  EXPECT_EQ(fGetTalaName(2), "Ektaal");
  EXPECT_EQ(fGetMusicSetName(14), "Alpha");
  EXPECT_EQ(fGetSeqRagaId(3), 3);
  EXPECT_EQ(gCurrRagaId, 3);
  EXPECT_EQ(fGetSeqRagaId(6), 6);
  EXPECT_EQ(fGetSeqRagaId(7), 0);
  EXPECT_EQ(fGetSeqRagaId(0), 0);
  EXPECT_EQ(gCurrRagaId, 6);
  EXPECT_EQ(fGetRagaDroneType(99), kNoSuchRaga);
}

// Divisions come whole or not at all: Rupak's, none for a tala without
// them, with divisions that miss its cycle, or missing from the store.
TEST_F(Lookups, TalaDivisionsWithTheirMarks) {
  const auto rupak = fGetVibhagsForTala(4);
  ASSERT_EQ(rupak.size(), 3u);
  EXPECT_EQ(rupak[0].mark + rupak[1].mark + rupak[2].mark, "023");
  EXPECT_EQ(rupak[2].firstBeat, 6);
  for (std::int16_t tala : {1, 3, 9}) EXPECT_TRUE(fGetVibhagsForTala(tala).empty()) << tala;
}

TEST_F(Lookups, PhrasesAndItemsOfARagaInEachStore) {
  struct Row {
    std::int16_t (*lookup)(std::int16_t, std::int16_t);
    std::int16_t ragaId, store, answer;
  };
  const Row table[] = {
      {fHasAlap, 1, 1, -1},         {fHasLayakari, 1, 1, 0},     {fHasTaan, 1, 1, -1},
      {fHasAlap, 1, 2, 0},          {fHasLayakari, 5, 2, -1},    {fHasAlap, 1, 3, 0},
      {fHasSimilarRagas, 1, 1, -1}, {fHasSimilarRagas, 2, 1, 0}, {fHasCompositions, 1, 2, -1},
      {fHasCompositions, 2, 2, 0},  {fHasFilmSongs, 1, 1, -1},   {fHasFilmSongs, 3, 1, 0},
      {fAlapCount, 1, 1, 2},        {fTaanCount, 1, 1, 1},       {fLayakariCount, 5, 2, 3},
  };
  for (const Row& row : table)
    EXPECT_EQ(row.lookup(row.ragaId, row.store), row.answer)
        << "raga " << row.ragaId << " store " << row.store;
}

TEST_F(Lookups, Prompts) {
  const std::pair<const char*, const char*> table[] = {
      {"1", "Choose a raga"}, {"3,4", "Listen - Sing along"}, {"1,2,3", "Choose a raga -  - Listen"},
      {"2", ""}, {"", ""}};
  for (const auto& [numbers, text] : table) EXPECT_EQ(fGetPrompts(numbers), text) << numbers;
}

TEST_F(Lookups, QueryThatCannotBeEvaluatedIsForgiven) {
  const auto before = gIgnorableCount;
  EXPECT_EQ(fOpenQuery(*gDbA, "SELECT Raga FROM RagaNameList WHERE ((Level = ;"), nullptr);
  EXPECT_EQ(gIgnorableCount, before + 1);
  EXPECT_EQ(fPendingError().number, 3075);
  EXPECT_EQ(errorNumberOf<platform::StoreError>([] { fOpenQuery(*gDbA, "SELECT x FROM [No Such Table];"); }), 3078);
  EXPECT_NE(fOpenQuery(*gDbA, "SELECT Raga FROM RagaNameList;"), nullptr);
}

}  // namespace
