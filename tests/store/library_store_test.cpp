// The built library store through the store engine: the seeks the program
// makes, by primary key and by the named indexes in the key order it
// passes, and every query text of the catalogue that the program runs,
// each with the rows it must select.
#include <gtest/gtest.h>
#include <strings.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/session.h"
#include "platform/store.h"
#include "store/queries.h"
#include "tests/store/test_support.h"

namespace {

using platform::RecordsetType;
using platform::Value;
using Names = std::vector<std::string>;

class LibraryStore : public ::testing::Test {
 protected:
  // Shared and read-only: the test cases run in parallel processes.
  static void SetUpTestSuite() {
    gDbA = platform::defaultWorkspace().openDatabase(NADAVIK_LIBRARY_STORE, false, true, "");
    sSetSQLStrings();
  }
  static void TearDownTestSuite() { gDbA.reset(); }

  static Names rows(const std::string& sql, const std::string& field) {
    auto rs = gDbA->openRecordset(sql, RecordsetType::Snapshot);
    Names values;
    for (; !rs->eof(); rs->moveNext()) values.push_back(rs->field(field).asText());
    return values;
  }
  static Names sorted(Names names) {
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(LibraryStore, AnswersTheSeeksOfTheProgram) {
  const struct {
    const char* table;
    const char* index;
    std::vector<Value> keys;
    const char* field;
    const char* value;  // nullptr: no match
  } cases[] = {
      {"RagaNameList", "PrimaryKey", {"Yaman"}, "Raga Index", "1"},
      {"RagaNameList", "PrimaryKey", {"yaman"}, "Raga Index", "1"},  // letter case is free
      {"RagaNameList", "RagaIndex", {10}, "Raga", "Poorvi"},
      {"RagaNameList", "PrimaryKey", {"Nadavik"}, "Raga", nullptr},
      {"Raga - Technical Information", "PrimaryKey", {2}, "Pakad",
       "G R S D< : S R G : P G : D P G R S"},
      {"Raga - ALT Phrases", "PrimaryKey", {6, 3}, "PhraseType", "3"},
      {"Raga - Additional Information", "PrimaryKey", {1, "Saanjh bhayi", 2}, "Notation Index",
       "101"},
      {"Raga - Additional Information", "AddInfoType", {2, 1}, "Add Info", "Deshkar"},
      {"Raga - Additional Information", "CompositionId", {301}, "Add Info", "Bhor bhayi"},
      {"Raga - Composition Notations", "PrimaryKey", {101, 2}, "Starting Beat", "9"},
      // Teentaal, default kit (type 4): sam Dha, beat 10 Tin; Ektaal beat 3 DhaGe
      {"ThekaTypeBolsForTaal", "PrimaryKey", {1, 4, 1}, "Theka Bol Id", "1"},
      {"ThekaTypeBolsForTaal", "PrimaryKey", {1, 4, 10}, "Theka Bol Id", "4"},
      {"ThekaTypeBolsForTaal", "PrimaryKey", {2, 1, 3}, "Theka Bol Id", "17"},
      {"Tala - Technical Information", "TalaByName", {"Jhaptaal"}, "Beat Count", "10"},
      {"IllustrationsList", "PrimaryKey", {3}, "IllustrationName", "Alap Phrases"},
      {"Reed Colors", "PrimaryKey", {12}, "Color Code", "2"},
      {"ThataScales", "PrimaryKey", {"Todi"}, "ThataScale", "S r g M P d N S>"},
  };
  for (const auto& c : cases) {
    auto rs = gDbA->openRecordset(c.table, RecordsetType::Table);
    rs->setIndex(c.index);
    rs->seek("=", c.keys);
    ASSERT_EQ(rs->noMatch(), c.value == nullptr) << c.table << " " << c.field;
    if (c.value) {
      EXPECT_EQ(rs->field(c.field).asText(), c.value) << c.table << " " << c.field;
    }
  }
}

// The items of a raga (the list, the composer's existing and new ones) and
// those with a notation.
TEST_F(LibraryStore, ItemQueriesSelectTheRagasItems) {
  const Names compositions = {"Saanjh bhayi", "Tarana in drut Teentaal"};
  gCurrRagaId = 1;
  sPatchSQLStr5(2);
  EXPECT_EQ(sorted(rows(gSQLStr5, "Add Info")), compositions);
  sPatchSQLStr5(1);
  EXPECT_EQ(sorted(rows(gSQLStr5, "Add Info")), (Names{"Shuddha Kalyan", "Yaman Kalyan"}));
  sPatchSQLStr5ForExi(2);
  EXPECT_EQ(sorted(rows(gSQLStr5, "Add Info")), compositions);
  sPatchSQLStr5ForNew(2);  // every library item has its notation
  EXPECT_EQ(rows(gSQLStr5, "Add Info"), Names{});
  sPatchSQLStr7(1, 2);
  EXPECT_EQ(sorted(rows(gSQLStr7, "Add Info")), compositions);
  sPatchSQLStr7(1, 3);  // film songs are never shipped
  EXPECT_EQ(rows(gSQLStr7, "Add Info"), Names{});
}

// The seeds of a note set, one row per note in note order, and the samples
// of one note, one more than its period.
TEST_F(LibraryStore, SeedQueriesSelectEveryNoteAndItsSamples) {
  for (const char* set : {"c", "e"}) {
    sPatchSQLStr11(set);
    const Names notes = rows(gSQLStr11, "Note Id");
    ASSERT_EQ(notes.size(), 41u) << set;
    for (int id = 0; id <= 40; ++id) EXPECT_EQ(notes[static_cast<std::size_t>(id)], std::to_string(id));
    const std::string period = rows(gSQLStr11, "SamPerCyc")[12];
    sPatchSQLStr12(set, 12);
    EXPECT_EQ(rows(gSQLStr12, "Sample Value").size(), std::stoul(period) + 1) << set;
  }
}

// The raga list holds every raga; the grid every raga of groups 1 to 3 in
// each sort mode's order: its key (vadi and samvadi by note number, a Null
// first), then the raga's name.
TEST_F(LibraryStore, RagaListAndGridHoldEveryRagaInTheSortModesOrder) {
  const Names all = rows("SELECT Raga FROM RagaNameList;", "Raga");
  ASSERT_EQ(all.size(), 70u);
  auto byName = [](const std::string& a, const std::string& b) {
    return strcasecmp(a.c_str(), b.c_str()) < 0;
  };
  sPatchSQLStr13(7);
  const Names list = rows(gSQLStr13, "Raga");
  EXPECT_TRUE(std::is_sorted(list.begin(), list.end(), byName));
  EXPECT_EQ(sorted(list), sorted(all));

  // -1, 0 or 1 as a sorts before, with or after b; Null first.
  auto compare = [](const Value& a, const Value& b, bool numeric) {
    if (a.isNull() || b.isNull()) return int(b.isNull()) - int(a.isNull());
    if (numeric) return int(a.asInteger() > b.asInteger()) - int(a.asInteger() < b.asInteger());
    return int(a.asText() > b.asText()) - int(a.asText() < b.asText());
  };
  const char* keys[] = {"", "Thata", "Jati", "VadiNum", "SamvadiNum", "TimeNum"};
  for (int mode : {0, 1, 2, 3, 4, 5, 6, -1}) {
    SCOPED_TRACE(mode);
    gSortingMode = static_cast<std::int16_t>(mode);
    sPatchSQLStr19();
    auto rs = gDbA->openRecordset(gSQLStr19, RecordsetType::Snapshot);
    ASSERT_EQ(rs->fieldCount(), 9);
    const std::string key = mode >= 1 && mode <= 5 ? keys[mode] : "";
    Names names;
    Value lastKey;
    for (; !rs->eof(); rs->moveNext()) {
      const std::string name = rs->field("Raga").asText();
      const Value k = key.empty() ? Value() : rs->field(key);
      if (!names.empty()) {
        const int order = compare(lastKey, k, mode >= 3 && mode <= 5);
        EXPECT_TRUE(order < 0 || (order == 0 && byName(names.back(), name)))
            << names.back() << " before " << name;
      }
      lastKey = k;
      names.push_back(name);
    }
    EXPECT_EQ(sorted(names), sorted(all));
  }
}

}  // namespace
