// The browsing screens' shells on real screens: raga selection and the
// review of raga groups entered from the main window and left by Go Back,
// the summary of a raga opened from a group list and left back to the
// review, the sort menu checked on entry, and the trace switch.
#include <gtest/gtest.h>

#include "browsing/browsing.h"
#include "screen_harness.h"
#include "store/queries.h"

namespace {

class BrowsingShell : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormRagaSelection1, "RagaSelection1", sSelectRaga, sBindRagaSelection1Events},
                   {kFormReviewRagas, "ReviewRagas", sReviewTechnicalData, sBindReviewRagasEvents},
                   {kFormRagaInfoSummary, "RagaInfoSummary", sReviewTechnicalData,
                    sBindRagaInfoSummaryEvents}}),
              "");
    sSetSQLStrings();  // the raga grid runs its query on entry
    screenharness::startAtMainWindow();
  }
};

TEST_F(BrowsingShell, RagaSelectionEntersAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormRagaSelection1, sSelectRaga);
}

TEST_F(BrowsingShell, RagaSelectionTraceMenuSwitchesTracing) {
  screenharness::expectTraceMenuSwitchesTracing(kFormRagaSelection1, sSelectRaga);
}

TEST_F(BrowsingShell, RagaSelectionChecksTheSortOrderInForce) {
  const std::vector<std::string> entries = {"cMnuRag", "cMnuTha", "cMnuJat",
                                            "cMnuVad", "cMnuSam", "cMnuAppTim"};
  for (std::int16_t mode = 0; mode <= 5; ++mode) {
    screenharness::startAtMainWindow();
    gSortingMode = mode;
    sSelectRaga(0);
    EXPECT_EQ(screenharness::checkedEntries(entries), std::vector<std::string>{entries[mode]})
        << "sorting mode " << mode;
    sSelectRaga(20);
  }
}

TEST_F(BrowsingShell, ReviewEntersAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormReviewRagas, sReviewTechnicalData);
}

TEST_F(BrowsingShell, GroupListClickOpensTheSummaryAndGoBackReturnsToTheReview) {
  sReviewTechnicalData(0);
  auto& list = screenharness::screenOf(kFormReviewRagas).control("cRagaList2");
  list.addItem("Puriya");
  list.addItem("Sohni");
  list.setListIndex(1);
  screenharness::click(kFormReviewRagas, "cRagaList2");
  EXPECT_EQ(gCurrRagaName, "Sohni");
  EXPECT_EQ(gCurrFormId, kFormRagaInfoSummary);
  EXPECT_EQ(gParentFormIds[kFormRagaInfoSummary - 1], kFormReviewRagas);

  screenharness::click(kFormRagaInfoSummary, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormReviewRagas);
  EXPECT_FALSE(screenharness::screenOf(kFormRagaInfoSummary).loaded());
  EXPECT_EQ(list.listCount(), 2) << "the review keeps its lists";

  screenharness::click(kFormReviewRagas, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormNadavik);
}

TEST_F(BrowsingShell, ClickOnAnEmptyGroupListStaysOnTheReview) {
  sReviewTechnicalData(0);
  gCurrRagaName = "Yaman";
  screenharness::click(kFormReviewRagas, "cRagaList3");
  EXPECT_EQ(gCurrRagaName, "");
  EXPECT_EQ(gCurrFormId, kFormReviewRagas);
  sReviewTechnicalData(20);
}

}  // namespace
