// Runs every text of the query catalogue on small stores and checks the
// rows it selects and their order, the sort modes of the raga grid, and the
// texts that are built but never run.
#include "store/queries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/session.h"
#include "platform/store.h"
#include "tests/store/test_support.h"

namespace {

using Names = std::vector<std::string>;

Names rows(platform::Database& db, const std::string& sql, const std::string& field) {
  auto rs = db.openRecordset(sql, platform::RecordsetType::Snapshot);
  Names values;
  for (; !rs->eof(); rs->moveNext()) values.push_back(rs->field(field).asText());
  rs->close();
  return values;
}

// For texts without ORDER BY: the rows, whatever their order.
Names sortedRows(platform::Database& db, const std::string& sql, const std::string& field) {
  Names values = rows(db, sql, field);
  std::sort(values.begin(), values.end());
  return values;
}

long errorOf(platform::Database& db, const std::string& sql) {
  try {
    db.openRecordset(sql, platform::RecordsetType::Dynaset);
  } catch (const platform::StoreError& error) {
    return error.number;
  }
  return 0;
}

class QueryCatalogue : public ::testing::Test {
 protected:
  void SetUp() override {
    sSetSQLStrings();
    gSortingMode = 0;
    gCurrRagaId = 1;
  }
  TestStores stores_;
};

TEST_F(QueryCatalogue, CompleteTexts) {
  EXPECT_EQ(rows(*gDbA, gSQLStr1, "Raga"),
            (Names{"Bhairav", "Bhimpalasi", "Kafi", "Marwa", "Todi", "Yaman"}));
  EXPECT_EQ(rows(*gDbB, gSQLStr2, "NPSetName"), (Names{"Alpha", "Mid", "Zeta"}));
  EXPECT_EQ(rows(*gDbA, gSQLStr3, "Tala Name"), (Names{"Ektaal", "Jhaptaal", "Rupak", "Teentaal"}));
}

TEST_F(QueryCatalogue, RagasByGroup) {
  struct Row {
    void (*patch)(int);
    const std::string* text;
    int group;
    Names ragas;
  };
  const Row table[] = {
      {sPatchSQLStr4, &gSQLStr4, 2, {"Bhimpalasi", "Kafi"}},
      {sPatchSQLStr4, &gSQLStr4, 9, {}},
      {sPatchSQLStr16, &gSQLStr16, 1, {"Bhairav", "Orphan", "Yaman"}},
      {sPatchSQLStr16, &gSQLStr16, 0, {}},
  };
  for (const Row& row : table) {
    row.patch(row.group);
    EXPECT_EQ(sortedRows(*gDbA, *row.text, "Raga"), row.ragas) << *row.text;
  }
  // Entry 13 keeps only ragas with technical data, in name order; 7 is
  // above every group.
  sPatchSQLStr13(2);
  EXPECT_EQ(rows(*gDbA, gSQLStr13, "Raga"), (Names{"Bhairav", "Yaman"}));
  sPatchSQLStr13(7);
  EXPECT_EQ(rows(*gDbA, gSQLStr13, "Raga"),
            (Names{"Bhairav", "Bhimpalasi", "Kafi", "Marwa", "Todi", "Yaman"}));
  sPatchSQLStr13(1);
  EXPECT_EQ(rows(*gDbA, gSQLStr13, "Raga"), Names{});
}

TEST_F(QueryCatalogue, ItemsOfTheCurrentRaga) {
  sPatchSQLStr5(2);
  EXPECT_EQ(sortedRows(*gDbA, gSQLStr5, "Add Info"), (Names{"Eri Aali", "Man Mohana"}));
  sPatchSQLStr5ForExi(2);
  EXPECT_EQ(sortedRows(*gDbA, gSQLStr5, "Add Info"), Names{"Eri Aali"});
  sPatchSQLStr5ForNew(2);
  EXPECT_EQ(sortedRows(*gDbA, gSQLStr5, "Add Info"), Names{"Man Mohana"});
  EXPECT_EQ(sortedRows(*gDbB, gSQLStr5, "Add Info"), Names{"Draft"});
  sPatchSQLStr5(1);
  EXPECT_EQ(sortedRows(*gDbA, gSQLStr5, "Add Info"), (Names{"Bhupali", "Kalyan"}));
  gCurrRagaId = 3;
  sPatchSQLStr5(1);
  EXPECT_EQ(sortedRows(*gDbA, gSQLStr5, "Add Info"), Names{"Bhimpalasi"});
  gCurrRagaId = 4;
  sPatchSQLStr5(2);
  EXPECT_EQ(rows(*gDbA, gSQLStr5, "Add Info"), Names{});
}

TEST_F(QueryCatalogue, ItemsWithANotation) {
  sPatchSQLStr7(1, 2);
  EXPECT_EQ(rows(*gDbA, gSQLStr7, "Add Info"), Names{"Eri Aali"});
  sPatchSQLStr7(3, 2);
  EXPECT_EQ(rows(*gDbA, gSQLStr7, "Add Info"), Names{"Kafi Bandish"});
  sPatchSQLStr7(1, 3);
  EXPECT_EQ(rows(*gDbA, gSQLStr7, "Add Info"), Names{});
}

TEST_F(QueryCatalogue, SeedsAndSamplesOfAnInstrument) {
  sPatchSQLStr11("Harmonium");
  EXPECT_EQ(gSQLStr11.find("= \"Harmonium\" ))"), gSQLStr11.find("= \""));
  EXPECT_EQ(rows(*gDbA, gSQLStr11, "Note Id"), (Names{"0", "1", "2"}));
  EXPECT_EQ(rows(*gDbA, gSQLStr11, "SamPerCyc"), (Names{"120", "110", "100"}));
  sPatchSQLStr11("Veena");
  EXPECT_EQ(rows(*gDbA, gSQLStr11, "Note Id"), Names{});

  sPatchSQLStr12("Harmonium", 1);
  EXPECT_EQ(rows(*gDbA, gSQLStr12, "Sample Value"), (Names{"0", "7", "-5"}));
  sPatchSQLStr12("Sitar", 1);
  EXPECT_EQ(rows(*gDbA, gSQLStr12, "Sample Value"), Names{"9"});
}

TEST_F(QueryCatalogue, NameHoldingADoubleQuoteBreaksTheText) {
  sPatchSQLStr11("Har\"monium");
  EXPECT_EQ(errorOf(*gDbA, gSQLStr11), 3075);
}

TEST_F(QueryCatalogue, ReedsOfARangeWithAColour) {
  sPatchSQLStr24(1, 3, 9);
  EXPECT_EQ(rows(*gDbA, gSQLStr24, "Reed Number"), (Names{"3", "5", "6", "8"}));
  sPatchSQLStr24(2, 3, 9);
  EXPECT_EQ(rows(*gDbA, gSQLStr24, "Reed Number"), (Names{"4", "7", "9"}));
  sPatchSQLStr24(1, 1, 12);
  EXPECT_EQ(rows(*gDbA, gSQLStr24, "Reed Number"), (Names{"1", "3", "5", "6", "8", "10", "12"}));
}

TEST_F(QueryCatalogue, RagaGridSortModes) {
  struct Row {
    int mode;
    Names ragas;
  };
  const Row table[] = {
      {0, {"Bhairav", "Bhimpalasi", "Kafi", "Marwa", "Todi", "Yaman"}},
      // A Null thata sorts first; ties fall back to the raga name.
      {1, {"Todi", "Bhairav", "Bhimpalasi", "Kafi", "Yaman", "Marwa"}},
      {2, {"Bhimpalasi", "Bhairav", "Kafi", "Todi", "Yaman", "Marwa"}},
      // Vadi and samvadi sort by their numbers, not by their note text.
      {3, {"Bhimpalasi", "Bhairav", "Todi", "Marwa", "Yaman", "Kafi"}},
      {4, {"Bhimpalasi", "Kafi", "Todi", "Bhairav", "Marwa", "Yaman"}},
      {5, {"Bhimpalasi", "Marwa", "Yaman", "Bhairav", "Todi", "Kafi"}},
      {6, {"Bhairav", "Bhimpalasi", "Kafi", "Marwa", "Todi", "Yaman"}},
      {-1, {"Bhairav", "Bhimpalasi", "Kafi", "Marwa", "Todi", "Yaman"}},
  };
  for (const Row& row : table) {
    gSortingMode = static_cast<std::int16_t>(row.mode);
    sPatchSQLStr19();
    EXPECT_EQ(rows(*gDbA, gSQLStr19, "Raga"), row.ragas) << "mode " << row.mode;
  }
  auto rs = gDbA->openRecordset(gSQLStr19, platform::RecordsetType::Snapshot);
  EXPECT_EQ(rs->fieldCount(), 8);
  rs->moveLast();
  EXPECT_EQ(rs->field("Appropriate time").asText(), "Evening");
}

TEST_F(QueryCatalogue, RagaGridTextEnds) {
  gSortingMode = 0;
  sPatchSQLStr19();
  const std::string end = "(((RagaNameList.Level) <= 3 )) ORDER BY RagaNameList.Raga;";
  ASSERT_GE(gSQLStr19.size(), end.size());
  EXPECT_EQ(gSQLStr19.substr(gSQLStr19.size() - end.size()), end);
  gSortingMode = 5;
  sPatchSQLStr19();
  EXPECT_NE(gSQLStr19.find(" )) ORDER BY [Raga - Technical Information].[Appropriate time],  "
                           "RagaNameList.Raga;"),
            std::string::npos);
}

}  // namespace
