// The note columns of "ONPR" and "ONPRSets": reading a factor, writing a
// correction vector into a user set's row and loading it back.
#include <gtest/gtest.h>

#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"
#include "sound/onpr_rows.h"
#include "sound_test_support.h"

namespace {

using OnprRowsTest = SoundStoreTest;

// The user store's "ONPR" table, on the row of the user set and an instrument.
std::unique_ptr<platform::Recordset> userSetRow(int instrumentType) {
  auto rs = gDbB->openRecordset("ONPR", platform::RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {kUserSetId, instrumentType});
  return rs;
}

TEST_F(OnprRowsTest, FactorOfEachColumnAndNothingOutsideThem) {
  auto rs = gDbA->openRecordset("ONPRSets", platform::RecordsetType::Table);
  rs->setIndex("PrimaryKey");
  rs->seek("=", {3, 1});
  ASSERT_FALSE(rs->noMatch());
  EXPECT_FLOAT_EQ(fGetSPCFactor(*rs, 0), 2.0f / 3);
  EXPECT_FLOAT_EQ(fGetSPCFactor(*rs, 7), 1.0f);
  EXPECT_FLOAT_EQ(fGetSPCFactor(*rs, 26), 3.0f);
  EXPECT_EQ(fGetSPCFactor(*rs, 27), 0.0f);
  EXPECT_EQ(fGetSPCFactor(*rs, -1), 0.0f);
}

TEST_F(OnprRowsTest, AVectorWrittenToTheUserSetLoadsBackUnchanged) {
  NoteAdjustVector written{};
  for (int n = 0; n < kNoteAdjustSize; ++n) written[n] = 0.1f * float(n) - 1.7f;
  gCurrTonicNoteId = 5;
  auto rs = userSetRow(1);
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
}

TEST_F(OnprRowsTest, AMissingMusicSetLeavesNotesUntunedAndTheTonicAlone) {
  gCurrTonicNoteId = 4;
  gNoteAdjust.fill(3.0f);
  sLoadNoteAdjustSPCVector("c", 1, 14);
  EXPECT_EQ(gCurrTonicNoteId, 4);
  for (float d : gNoteAdjust) EXPECT_EQ(d, 0.0f);
}

TEST_F(OnprRowsTest, WritingAtATonicBeyondTheVectorIsAFault) {
  auto rs = userSetRow(2);
  rs->edit();
  for (std::int16_t tonic : {14, -3}) {  // column 26 would be note 42; column 0 note -1
    gCurrTonicNoteId = tonic;
    EXPECT_THROW(sUpdateNoteAdjustmentSPCs(*rs, NoteAdjustVector{}), ErrorTrap) << tonic;
  }
}

}  // namespace
