// The raga grid on its real screen over a small library store of six
// ragas with known data (one with a Null thata, one beyond group 3): the
// rows and their order for every sort mode, reached from the menu and from
// a click on a heading, the menu's check mark, the headings and column
// widths, the count caption, choosing a raga by click or key, and the grid
// kept for the return from the exploration screen; and the review of raga
// groups with the summary opened from it.
#include <gtest/gtest.h>

#include <QMenu>
#include <QMouseEvent>
#include <QTableWidget>

#include "browsing/browsing.h"
#include "exploration/exploration.h"
#include "platform/qt/qt_control.h"
#include "screen_harness.h"
#include "store/queries.h"
#include "store/working_record.h"

namespace {

using Names = std::vector<std::string>;

const Names kSortEntries = {"cMnuRag", "cMnuTha", "cMnuJat", "cMnuVad", "cMnuSam", "cMnuAppTim"};

class RagaSelection : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormRagaSelection1, "RagaSelection1", sSelectRaga, sBindRagaSelection1Events},
                   {kFormMainOperations, "MainOperations", sMainOperations,
                    sBindMainOperationsEvents},
                   {kFormReviewRagas, "ReviewRagas", sReviewTechnicalData, sBindReviewRagasEvents},
                   {kFormRagaInfoSummary, "RagaInfoSummary", sReviewTechnicalData,
                    sBindRagaInfoSummaryEvents}}),
              "");
    // One raga beyond group 3, and a Null time beside Ahir Bhairav's Null thata.
    screenharness::openLibraryStore(
        "UPDATE RagaNameList SET Level = 4 WHERE Raga = 'Yaman Kalyan';"
        "UPDATE [Raga - Technical Information] SET [Appropriate time] = NULL"
        " WHERE [Raga Index] = 40;");
    sSetSQLStrings();
  }

  void SetUp() override {
    screenharness::startAtMainWindow();
    gSortingMode = 0;
    sSelectRaga(0);
  }
  void TearDown() override { screenharness::startAtMainWindow(); }

  static platform::Screen& screen() { return screenharness::screenOf(kFormRagaSelection1); }
  static platform::Control& grid() { return screen().control("cRagaList"); }
  static QTableWidget& table(const std::string& name) {
    return *static_cast<QTableWidget*>(
        static_cast<platform::QtControl&>(screen().control(name)).widget());
  }

  static Names column(int c) {
    Names cells;
    for (int r = 0; r < grid().rows(); ++r) cells.push_back(grid().textMatrix(r, c));
    return cells;
  }
  // The ragas of the grid's query in a sort mode's order (the order itself
  // is checked in store/library_store_test).
  static Names queryOrder(int mode) {
    const std::int16_t kept = gSortingMode;
    gSortingMode = static_cast<std::int16_t>(mode);
    sPatchSQLStr19();
    gSortingMode = kept;
    auto rs = gDbA->openRecordset(gSQLStr19, platform::RecordsetType::Snapshot);
    Names names;
    for (; !rs->eof(); rs->moveNext()) names.push_back(rs->field("Raga").asText());
    return names;
  }
  static int rowOf(const std::string& raga) {
    const Names names = column(0);
    return static_cast<int>(std::find(names.begin(), names.end(), raga) - names.begin());
  }
  static Names checkedSortEntries() { return screenharness::checkedEntries(kSortEntries); }
  static void clickHeading(int c) {
    screen().control("cRagaListT").setCol(c);
    screenharness::click(kFormRagaSelection1, "cRagaListT");
  }
};

TEST_F(RagaSelection, OpensWithHeadingsCountCaptionPromptAndRagasByName) {
  EXPECT_EQ(screen().caption(), "Raga Selection");
  EXPECT_EQ(screen().control("Label1").caption(), "70 Ragas in Groups 1, 2 and 3");
  EXPECT_EQ(screen().control("cPrompts").text().rfind("Click a raga to explore it.", 0), 0u);
  platform::Control& headings = screen().control("cRagaListT");
  ASSERT_EQ(headings.rows(), 1);
  Names shown;
  for (int c = 0; c < headings.cols(); ++c) shown.push_back(headings.textMatrix(0, c));
  EXPECT_EQ(shown, (Names{"Raga", "Thata", "Vadi", "Samvadi", "Jati", "Time"}));
  EXPECT_EQ(column(0), queryOrder(0));
  EXPECT_EQ(column(0).size(), 69u) << "groups 1 to 3 only";
  EXPECT_EQ(rowOf("Yaman Kalyan"), 69);
  EXPECT_EQ(grid().row(), 0);
  EXPECT_EQ(grid().col(), 0);
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuRag"});
}

TEST_F(RagaSelection, EveryColumnShowsItsFieldAndANullThataReadsUndefined) {
  const int bhairav = rowOf("Bhairav"), ahir = rowOf("Ahir Bhairav");
  EXPECT_EQ((Names{grid().textMatrix(bhairav, 1), grid().textMatrix(bhairav, 2),
                   grid().textMatrix(bhairav, 3), grid().textMatrix(bhairav, 4),
                   grid().textMatrix(bhairav, 5)}),
            (Names{"Bhairav", "d", "r", "Sampoorna - Sampoorna",
                   "Dawn, first quarter of the day (6 am - 9 am)"}));
  EXPECT_EQ(grid().textMatrix(ahir, 1), "(Undefined)");
  EXPECT_EQ(grid().textMatrix(ahir, 5), "") << "other Null fields stay empty";
}

// Each menu entry, and a click on each heading, sorts by its mode (the
// modes follow the menu, not the columns), takes the check mark and starts
// the grid again at its top; the trace entries switch tracing.
TEST_F(RagaSelection, EachSortEntryAndHeadingSortsAndTakesTheCheckMark) {
  const struct {
    int heading;  // -1: the menu entry
    int mode;
  } cases[] = {{-1, 0}, {-1, 1}, {-1, 2}, {-1, 3}, {-1, 4}, {-1, 5},
               {4, 2},  {2, 3},  {3, 4},  {5, 5},  {1, 1},  {0, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(kSortEntries[c.mode] + " heading " + std::to_string(c.heading));
    grid().setRow(2);
    if (c.heading < 0)
      screenharness::click(kFormRagaSelection1, kSortEntries[c.mode]);
    else
      clickHeading(c.heading);
    EXPECT_EQ(gSortingMode, c.mode);
    EXPECT_EQ(column(0), queryOrder(c.mode));
    EXPECT_EQ(checkedSortEntries(), Names{kSortEntries[c.mode]});
    EXPECT_EQ(grid().row(), 0);
  }
  screenharness::expectTraceMenuSwitchesTracing(kFormRagaSelection1, sSelectRaga);
}

TEST_F(RagaSelection, AMouseClickOnAHeadingReachesTheController) {
  QTableWidget& headings = table("cRagaListT");
  const QPoint centre = headings.visualItemRect(headings.item(0, 4)).center();
  QMouseEvent press(QEvent::MouseButtonPress, centre, headings.viewport()->mapToGlobal(centre),
                    Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QMouseEvent release(QEvent::MouseButtonRelease, centre, headings.viewport()->mapToGlobal(centre),
                      Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(headings.viewport(), &press);
  QApplication::sendEvent(headings.viewport(), &release);
  EXPECT_EQ(gSortingMode, 2) << "Jati";
  EXPECT_EQ(column(0), queryOrder(2));
}

TEST_F(RagaSelection, TheSortInForceIsKeptForTheNextVisit) {
  clickHeading(2);
  sSelectRaga(20);
  EXPECT_EQ(gCurrFormId, kFormNadavik);
  sSelectRaga(0);
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuVad"});
  EXPECT_EQ(column(0), queryOrder(3));
}

// Column widths are fractions of the window width; the grid stands right
// below the headings.
TEST_F(RagaSelection, ColumnsAreFractionsOfTheWindowWidthBelowTheHeadings) {
  const int normal[] = {328, 205, 55, 109, 205, 328};  // 1366 x .24 .15 .04 .08 .15 .24
  for (int c = 0; c < 6; ++c) {
    EXPECT_EQ(table("cRagaListT").columnWidth(c), normal[c]) << "heading column " << c;
    EXPECT_EQ(table("cRagaList").columnWidth(c), normal[c]) << "raga column " << c;
  }
  platform::Control& headings = screen().control("cRagaListT");
  EXPECT_EQ(grid().left(), headings.left());
  EXPECT_EQ(grid().top(), headings.top() + headings.height());
  screenharness::startAtMainWindow();
  gFormState = 2;
  gMaxFormW = 1920;
  sSelectRaga(0);
  EXPECT_EQ(table("cRagaList").columnWidth(0), 461) << "maximised: 1920 x 0.24";
  EXPECT_EQ(table("cRagaList").columnWidth(2), 77);
}

// A click on a row makes that raga current and explores it; coming back
// finds the grid as it was left, not reloaded.
TEST_F(RagaSelection, AClickOnARowExploresThatRagaAndGoBackFindsTheGridAsLeft) {
  clickHeading(2);  // Vadi
  grid().setTextMatrix(0, 5, "marked");  // a reload would overwrite this
  grid().setRow(rowOf("Yaman"));
  gTRaga.RagaId = 0;
  screenharness::click(kFormRagaSelection1, "cRagaList");
  EXPECT_EQ(gCurrRagaName, "Yaman");
  EXPECT_EQ(gCurrRagaId, 1);
  EXPECT_EQ(gSelRagaName, "Yaman");
  EXPECT_EQ(gSelRagaId, 1);
  EXPECT_EQ(gTRaga.RagaId, 1);  // its working record is loaded
  EXPECT_EQ(gCurrFormId, kFormMainOperations);
  EXPECT_EQ(gParentFormIds[kFormMainOperations - 1], kFormRagaSelection1);
  EXPECT_FALSE(screen().visible());

  screenharness::click(kFormMainOperations, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormRagaSelection1);
  EXPECT_TRUE(screen().visible());
  EXPECT_EQ(column(0), queryOrder(3));
  EXPECT_EQ(grid().textMatrix(0, 5), "marked");
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuVad"});
}

TEST_F(RagaSelection, AnyKeyOnTheGridChoosesTheCurrentRow) {
  for (int keyCode : {13, 32, 40, 65}) {
    SCOPED_TRACE(keyCode);
    screenharness::startAtMainWindow();
    sSelectRaga(0);
    grid().setRow(rowOf("Yaman"));
    platform::Event key;
    key.keyCode = keyCode;
    static_cast<platform::QtScreen&>(screen()).dispatch("cRagaList", platform::EventKind::KeyDown,
                                                        key);
    EXPECT_EQ(gSelRagaName, "Yaman");
    EXPECT_EQ(gCurrFormId, kFormMainOperations);
  }
}

TEST_F(RagaSelection, AClickOutsideTheDataChoosesNothing) {
  grid().setRows(0);
  gSelRagaId = 5;
  gTRaga.RagaId = 0;
  screenharness::click(kFormRagaSelection1, "cRagaList");
  EXPECT_EQ(gCurrRagaId, 0);
  EXPECT_EQ(gSelRagaId, 5);
  EXPECT_EQ(gTRaga.RagaId, 0);
  EXPECT_EQ(gCurrFormId, kFormRagaSelection1);
}

// The review of raga groups: a click on an empty group list stays there; a
// click on a raga opens its summary over the review, and Go Back returns to
// the review with its lists kept.
TEST_F(RagaSelection, AGroupListClickOpensTheSummaryAndGoBackReturnsToTheReview) {
  screenharness::startAtMainWindow();
  sReviewTechnicalData(0);
  gCurrRagaName = "Yaman";
  screenharness::click(kFormReviewRagas, "cRagaList3");
  EXPECT_EQ(gCurrRagaName, "");
  EXPECT_EQ(gCurrFormId, kFormReviewRagas);

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
}

}  // namespace
