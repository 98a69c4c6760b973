// The raga grid in the whole program on the built library store: entered
// from the main window's Explore Ragas, a click on a raga loads its working
// record and opens the exploration screen, and Go Back there finds the grid
// as it was left.
#include <gtest/gtest.h>

#include <QApplication>
#include <algorithm>

#include "control/screen_manager.h"
#include "core/session.h"
#include "program_harness.h"
#include "store/working_record.h"

using platform::EventKind;

namespace {

std::vector<std::string> ragaColumn(platform::Control& grid) {
  std::vector<std::string> names;
  for (int r = 0; r < grid.rows(); ++r) names.push_back(grid.textMatrix(r, 0));
  return names;
}

class RagaSelectionProgram : public ::testing::Test {
 protected:
  void SetUp() override {
    p_.start();
    p_.clock().advance(7000);
    p_.fire("Nadavik", "cTimer", EventKind::Timer);
    if (gTipSignal == 1) p_.fire("Nadavik", "cOK", EventKind::Click);
    gSortingMode = 0;
    p_.fire("Nadavik", "cMnuExpRag", EventKind::Click);
  }
  platform::Control& grid() { return p_.screen("RagaSelection1").control("cRagaList"); }

  ProgramHarness p_;
};

TEST_F(RagaSelectionProgram, ChoosingARagaLoadsItAndGoBackFindsTheGridAsLeft) {
  const auto before = ragaColumn(grid());
  const auto yaman = std::find(before.begin(), before.end(), "Yaman");
  ASSERT_NE(yaman, before.end());
  grid().setRow(static_cast<int>(yaman - before.begin()));
  p_.fire("RagaSelection1", "cRagaList", EventKind::Click);

  EXPECT_EQ(gSelRagaName, "Yaman");
  EXPECT_GT(gSelRagaId, 0);
  EXPECT_EQ(gCurrRagaId, gSelRagaId);
  EXPECT_EQ(gTRaga.RagaId, gSelRagaId) << "the working record is that raga's";
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  for (const auto& m : p_.messages()) ADD_FAILURE() << "unexpected message: " << m.text;

  p_.fire("MainOperations", "cReturn", EventKind::Click);
  EXPECT_EQ(gCurrFormId, kFormRagaSelection1);
  EXPECT_EQ(ragaColumn(grid()), before);
  EXPECT_EQ(grid().row(), yaman - before.begin()) << "the chosen row stays current";
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
