// Look-ups by id and name, the phrase and item tests and counts, prompts,
// list filling and the sequential raga pick, on small stores.
#include "store/lookups.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/error_state.h"
#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"
#include "store/queries.h"
#include "store/query_open.h"
#include "tests/store/test_support.h"

namespace {

using Names = std::vector<std::string>;

long errorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const platform::StoreError& error) {
    return error.number;
  } catch (const ErrorTrap& trap) {
    return trap.number;
  }
  return 0;
}

class Lookups : public ::testing::Test {
 protected:
  void SetUp() override {
    sSetSQLStrings();
    gCurrRagaId = 1;
  }
  TestStores stores_;
};

TEST_F(Lookups, RagasAndTalasByIdAndName) {
  EXPECT_EQ(fGetRagaId("Kafi"), 3);
  EXPECT_EQ(fGetRagaId(""), 0);
  EXPECT_EQ(fGetRagaId("kafi"), 3);  // names compare without regard to case
  EXPECT_EQ(fGetRagaName(6), "Marwa");
  EXPECT_EQ(fGetRagaName(99), "");
  EXPECT_EQ(fGetRagaLevel("Todi"), 3);
  EXPECT_EQ(fGetTalaId("Rupak"), 4);
  EXPECT_EQ(fGetTalaName(2), "Ektaal");
  EXPECT_EQ(fGetMusicSetName(14), "Alpha");
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

TEST_F(Lookups, NextUserCompositionIndexCountsRows) {
  EXPECT_EQ(fGetNextUserCompositionIndex(), 4);
  gDbB->execute("DELETE FROM [Raga - Additional Information] WHERE [Notation Index] = 201;");
  EXPECT_EQ(fGetNextUserCompositionIndex(), 3);  // may repeat an index in use
  gDbB->execute("DELETE FROM [Raga - Additional Information];");
  EXPECT_EQ(fGetNextUserCompositionIndex(), 1);
}

TEST_F(Lookups, Prompts) {
  const struct {
    const char* numbers;
    const char* text;
  } table[] = {
      {"1", "Choose a raga"},
      {"3,4", "Listen - Sing along"},
      {"1,2,3", "Choose a raga -  - Listen"},
      {"2", ""},
      {"", ""},
  };
  for (const auto& row : table) EXPECT_EQ(fGetPrompts(row.numbers), row.text) << row.numbers;
}

// The list of items of the current raga, by screen and composer mode, and
// its count.
TEST_F(Lookups, ListOfItemsByComposerListMode) {
  const struct {
    std::int16_t listMode, ragaId, type;
    Names items;
  } table[] = {
      {0, 1, 2, {"Eri Aali", "Man Mohana"}},  // the raga summary: every item
      {1, 1, 2, {"Eri Aali"}},                // with a notation
      {2, 1, 2, {"Man Mohana"}},              // without one
      {0, 1, 3, {"Jab Deep Jale"}},
      {0, 4, 2, {}},
  };
  for (const auto& row : table) {
    gCurrRagaId = row.ragaId;
    Names items = {"left over"};
    std::int16_t count = fLoadList(items, row.type, row.listMode);
    std::sort(items.begin(), items.end());
    EXPECT_EQ(items, row.items) << row.listMode << "/" << row.ragaId << "/" << row.type;
    EXPECT_EQ(count, static_cast<std::int16_t>(row.items.size()));
    if (row.listMode == 0) {
      EXPECT_EQ(fAddInfoCount(row.type), count);
    }
  }
}

TEST_F(Lookups, RagaListHoldsEveryRagaWithTechnicalData) {
  Names names = {"left over"};
  sLoadRagaList(names);
  EXPECT_EQ(names, (Names{"Bhairav", "Bhimpalasi", "Kafi", "Marwa", "Todi", "Yaman"}));
}

TEST_F(Lookups, SequentialRagaPickAndDroneType) {
  EXPECT_EQ(fGetSeqRagaId(3), 3);
  EXPECT_EQ(gCurrRagaId, 3);
  EXPECT_EQ(fGetSeqRagaId(6), 6);
  EXPECT_EQ(fGetSeqRagaId(7), 0);
  EXPECT_EQ(fGetSeqRagaId(0), 0);
  EXPECT_EQ(gCurrRagaId, 6);
  EXPECT_EQ(fGetRagaDroneType(99), kNoSuchRaga);
}

// An untested miss and a store that is not open are fatal faults.
TEST_F(Lookups, MissesAndAStoreNotOpenAreFaults) {
  EXPECT_EQ(errorOf([] { fGetRagaLevel("Unknown"); }), 3021);
  EXPECT_EQ(errorOf([] { fGetTalaName(9); }), 3021);
  EXPECT_EQ(errorOf([] { fAlapCount(2, 1); }), 3021);
  auto library = std::move(gDbA);
  EXPECT_EQ(errorOf([] { fGetRagaName(1); }), 91);
  gDbA = std::move(library);
}

TEST_F(Lookups, QueryThatCannotBeEvaluatedIsForgiven) {
  const auto before = gIgnorableCount;
  EXPECT_EQ(fOpenQuery(*gDbA, "SELECT Raga FROM RagaNameList WHERE ((Level = ;"), nullptr);
  EXPECT_EQ(gIgnorableCount, before + 1);
  EXPECT_EQ(fPendingError().number, 3075);
  EXPECT_EQ(errorOf([] { fOpenQuery(*gDbA, "SELECT x FROM [No Such Table];"); }), 3078);
  EXPECT_NE(fOpenQuery(*gDbA, "SELECT Raga FROM RagaNameList;"), nullptr);
}

}  // namespace
