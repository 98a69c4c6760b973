// The raga grid in the whole program on a copy of the built library store
// whose Yaman row is damaged: choosing it gives one message and the grid
// stays; the other ragas still open.
#include <gtest/gtest.h>

#include <algorithm>

#include "control/screen_manager.h"
#include "core/session.h"
#include "platform/store.h"
#include "program_harness.h"
#include "store/working_record.h"

using platform::EventKind;

namespace {

// Yaman's row of "Raga - Technical Information" with every field but its key
// Null, as a damaged library may hold it; then the grid entered from the
// main window.
class RagaSelectionOnNullRaga : public ::testing::Test {
 protected:
  void SetUp() override {
    auto library = platform::defaultWorkspace().openDatabase((p_.folder() / "mrA.nvy").string(), true, false, "");
    std::string sets;
    auto columns = library->openRecordset(
        "SELECT name FROM pragma_table_info('Raga - Technical Information') WHERE pk = 0;",
        platform::RecordsetType::Snapshot);
    for (; !columns->eof(); columns->moveNext())
      sets += (sets.empty() ? "\"" : ", \"") + columns->fieldAt(0).asText() + "\" = NULL";
    columns->close();
    library->execute("UPDATE \"Raga - Technical Information\" SET " + sets +
                     " WHERE \"Raga Index\" = (SELECT \"Raga Index\" FROM RagaNameList WHERE Raga = 'Yaman');");
    library->close();
    p_.start();
    p_.finishStartUp();
    gSortingMode = 0;
    p_.fire("Nadavik", "cMnuExpRag", EventKind::Click);
  }
  platform::Control& grid() { return p_.screen("RagaSelection1").control("cRagaList"); }
  int rowOf(const std::string& raga) {
    for (int r = 0; r < grid().rows(); ++r)
      if (grid().textMatrix(r, 0) == raga) return r;
    return -1;
  }

  ProgramHarness p_;
};

TEST_F(RagaSelectionOnNullRaga, ChoosingItGivesOneMessageAndStaysOnTheGrid) {
  ASSERT_TRUE(p_.messages().empty());
  const int yaman = rowOf("Yaman");
  ASSERT_GE(yaman, 0);
  EXPECT_EQ(grid().textMatrix(yaman, 1), "(Undefined)");
  grid().setRow(yaman);
  p_.fire("RagaSelection1", "cRagaList", EventKind::Click);
  ASSERT_EQ(p_.messages().size(), 1u);
  EXPECT_NE(p_.messages()[0].text.find("missing from the library"), std::string::npos);
  EXPECT_EQ(gCurrFormId, kFormRagaSelection1);

  grid().setRow(rowOf("Bhupali"));  // the others still open
  p_.fire("RagaSelection1", "cRagaList", EventKind::Click);
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_EQ(p_.messages().size(), 1u);
}

}  // namespace
