// Record positioning helpers and the store selector, on small stores.
#include "store/positioning.h"

#include <gtest/gtest.h>

#include "core/session.h"
#include "platform/store.h"
#include "tests/store/test_support.h"

namespace {

using platform::RecordsetType;

class Positioning : public ::testing::Test {
 protected:
  TestStores stores_;
};

TEST_F(Positioning, PrimaryKeyOfOneTwoAndThreeColumns) {
  auto ragas = gDbA->openRecordset("RagaNameList", RecordsetType::Table);
  sSetTablePKRecord(*ragas, "Kafi");
  ASSERT_FALSE(ragas->noMatch());
  EXPECT_EQ(ragas->field("Raga Index").asInteger(), 3);

  auto phrases = gDbA->openRecordset("Raga - ALT Phrases", RecordsetType::Table);
  sSetTablePKRecord2(*phrases, 1, 3);
  ASSERT_FALSE(phrases->noMatch());
  EXPECT_EQ(phrases->field("NotesPhrase").asText(), "S R G");

  auto samples = gDbA->openRecordset("Sample Values", RecordsetType::Table);
  sSetTablePKRecord3(*samples, "Harmonium", 1, 2);
  ASSERT_FALSE(samples->noMatch());
  EXPECT_EQ(samples->field("Sample Value").asInteger(), -5);
}

TEST_F(Positioning, MissSetsNoMatchAndRaisesNothing) {
  auto phrases = gDbA->openRecordset("Raga - ALT Phrases", RecordsetType::Table);
  sSetTablePKRecord2(*phrases, 1, 2);  // the raga has no layakari
  EXPECT_TRUE(phrases->noMatch());
  sSetTablePKRecord2(*phrases, 1, 1);
  EXPECT_FALSE(phrases->noMatch());
  auto ragas = gDbA->openRecordset("RagaNameList", RecordsetType::Table);
  sSetTablePKRecord(*ragas, "");
  EXPECT_TRUE(ragas->noMatch());
}

TEST_F(Positioning, SecondaryIndexes) {
  auto ragas = gDbA->openRecordset("RagaNameList", RecordsetType::Table);
  sSetTableIndexRecord(*ragas, "RagaIndex", 6);
  ASSERT_FALSE(ragas->noMatch());
  EXPECT_EQ(ragas->field("Raga").asText(), "Marwa");

  auto items = gDbB->openRecordset("Raga - Additional Information", RecordsetType::Table);
  sSetTableIndexRecord2(*items, "AddInfoType", 5, 2);
  ASSERT_FALSE(items->noMatch());
  EXPECT_EQ(items->field("Add Info").asText(), "Todi Tune");
  sSetTableIndexRecord2(*items, "AddInfoType", 5, 1);
  EXPECT_TRUE(items->noMatch());

  auto scales = gDbB->openRecordset("Scale Shift Specs", RecordsetType::Table);
  sSetTableIndexRecord(*scales, "Set Name", "Mid");
  EXPECT_EQ(scales->field("NPSetId").asInteger(), 15);
}

TEST_F(Positioning, StoreSelector) {
  const struct {
    std::int16_t selector;
    platform::Database* store;
  } table[] = {{1, gDbA.get()}, {2, gDbB.get()}, {0, nullptr}, {3, nullptr}, {-1, nullptr}};
  for (const auto& row : table) {
    gCurrDbSelector = row.selector;
    EXPECT_EQ(fSetDatabase(), row.store) << row.selector;
  }
}

}  // namespace
