// The raga grid on its real screen over the built library store, with one
// raga moved beyond group 3 and a Null time beside Ahir Bhairav's Null
// thata: the rows and their order for every sort mode, reached from the
// menu and from a click on a heading, the menu's check mark, the headings,
// choosing a raga by click or by Enter or Space (arrows only move), and the grid kept for
// the return from the exploration screen; and the review of raga groups
// with the summary opened from it.
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTableWidget>
#include <algorithm>

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
  static Names column(int c) {
    Names cells;
    for (int r = 0; r < grid().rows(); ++r) cells.push_back(grid().textMatrix(r, c));
    return cells;
  }
  static int rowOf(const std::string& raga) {
    const Names names = column(0);
    return static_cast<int>(std::find(names.begin(), names.end(), raga) - names.begin());
  }
  // The grid holds the ragas of groups 1 to 3 ordered by the mode's column
  // (vadi and samvadi by the note's place in the octave), then by name. The
  // time of day (mode 5) runs from dawn round the clock, not by its text:
  // time_order_test checks that order.
  static void expectSortedBy(int mode) {
    static const std::string kNotes = "S r R g G m M P d D n N S> ";  // vadi, samvadi in octave order
    const int columnOfMode[] = {0, 1, 4, 2, 3, 5};
    const Names keys = column(columnOfMode[mode]), names = column(0);
    auto key = [&](std::size_t r) {
      const bool byNote = mode == 3 || mode == 4;
      return std::pair{byNote ? std::to_string(100 + kNotes.find(keys[r] + " ")) : keys[r], names[r]};
    };
    ASSERT_EQ(names.size(), 69u);
    for (std::size_t r = 1; r < names.size() && mode != 5; ++r)
      EXPECT_LE(key(r - 1), key(r)) << "row " << r;
    EXPECT_EQ(rowOf("Yaman Kalyan"), 69) << "group 4 is left out";
  }
  static Names checkedSortEntries() { return screenharness::checkedEntries(kSortEntries); }
  static void clickHeading(int c) {
    screen().control("cRagaListT").setCol(c);
    screenharness::click(kFormRagaSelection1, "cRagaListT");
  }
};

TEST_F(RagaSelection, OpensWithHeadingsCountCaptionPromptAndEveryField) {
  EXPECT_EQ(screen().control("Label1").caption(), "70 Ragas in Groups 1, 2 and 3");
  EXPECT_EQ(screen().control("cPrompts").text().rfind("Click a raga to explore it.", 0), 0u);
  platform::Control& headings = screen().control("cRagaListT");
  ASSERT_EQ(headings.rows(), 1);
  Names shown;
  for (int c = 0; c < headings.cols(); ++c) shown.push_back(headings.textMatrix(0, c));
  EXPECT_EQ(shown, (Names{"Raga", "Thata", "Vadi", "Samvadi", "Jati", "Time"}));
  EXPECT_EQ(grid().left(), headings.left());
  EXPECT_EQ(grid().top(), headings.top() + headings.height()) << "the grid right below its headings";
  expectSortedBy(0);
  EXPECT_EQ(std::pair(grid().row(), grid().col()), std::pair(0, 0));
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuRag"});
  const int bhairav = rowOf("Bhairav"), ahir = rowOf("Ahir Bhairav");
  Names fields;
  for (int c = 1; c < 6; ++c) fields.push_back(grid().textMatrix(bhairav, c));
  EXPECT_EQ(fields, (Names{"Bhairav", "d", "r", "Sampoorna - Sampoorna",
                           "Dawn, first quarter of the day (6 am - 9 am)"}));
  EXPECT_EQ(grid().textMatrix(ahir, 1), "(Undefined)");
  EXPECT_EQ(grid().textMatrix(ahir, 5), "") << "other Null fields stay empty";
}

// Each menu entry, and a click on each heading, sorts by its mode (the
// modes follow the menu, not the columns), takes the check mark and starts
// the grid again at its top; the trace entries switch tracing.
TEST_F(RagaSelection, EachSortEntryAndHeadingSortsAndTakesTheCheckMark) {
  const std::pair<int, int> cases[] = {{-1, 0}, {-1, 1}, {-1, 2}, {-1, 3}, {-1, 4}, {-1, 5},
                                       {4, 2},  {2, 3},  {3, 4},  {5, 5},  {1, 1},  {0, 0}};
  for (const auto& [heading, mode] : cases) {  // heading -1: the menu entry
    SCOPED_TRACE(kSortEntries[mode] + " heading " + std::to_string(heading));
    grid().setRow(2);
    if (heading < 0)
      screenharness::click(kFormRagaSelection1, kSortEntries[mode]);
    else
      clickHeading(heading);
    EXPECT_EQ(gSortingMode, mode);
    expectSortedBy(mode);
    EXPECT_EQ(checkedSortEntries(), Names{kSortEntries[mode]});
    EXPECT_EQ(grid().row(), 0);
  }
  screenharness::expectTraceMenuSwitchesTracing(kFormRagaSelection1, sSelectRaga);
}

// A mouse click on a heading reaches the controller; the sort in force is
// kept for the next visit.
TEST_F(RagaSelection, AMouseClickOnAHeadingSortsAndTheSortIsKept) {
  auto& headings =
      *static_cast<QTableWidget*>(static_cast<platform::QtControl&>(screen().control("cRagaListT")).widget());
  const QPoint centre = headings.visualItemRect(headings.item(0, 4)).center();
  const QPoint global = headings.viewport()->mapToGlobal(centre);
  QMouseEvent press(QEvent::MouseButtonPress, centre, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QMouseEvent release(QEvent::MouseButtonRelease, centre, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(headings.viewport(), &press);
  QApplication::sendEvent(headings.viewport(), &release);
  EXPECT_EQ(gSortingMode, 2) << "Jati";
  sSelectRaga(20);
  EXPECT_EQ(gCurrFormId, kFormNadavik);
  sSelectRaga(0);
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuJat"});
  expectSortedBy(2);
}

// A click on a row makes that raga current and explores it; coming back
// finds the grid as it was left, not reloaded. Any key chooses as a click;
// a click outside the data chooses nothing.
TEST_F(RagaSelection, AClickOrKeyOnARowExploresThatRagaAndGoBackFindsTheGridAsLeft) {
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
  EXPECT_EQ(grid().textMatrix(0, 5), "marked");
  EXPECT_EQ(grid().row(), rowOf("Yaman"));
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuVad"});
  // Keys pressed on the grid's widget: the arrows move and choose nothing;
  // Enter and Space choose the raga under the cursor.
  const struct {
    Qt::Key key;
    const char* chosen;  // "" when the grid stays
    int rowsMoved;
  } keys[] = {{Qt::Key_Down, "", 1}, {Qt::Key_Up, "", -1}, {Qt::Key_A, "", 0},
              {Qt::Key_Return, "Bhairav", 0}, {Qt::Key_Enter, "Bhairav", 0}, {Qt::Key_Space, "Bhairav", 0}};
  for (const auto& k : keys) {
    SCOPED_TRACE(k.key);
    screenharness::startAtMainWindow();
    sSelectRaga(0);
    grid().setRow(rowOf("Bhairav"));
    gSelRagaName.clear();
    QKeyEvent press(QEvent::KeyPress, k.key, Qt::NoModifier, k.key == Qt::Key_Space ? " " : "");
    QApplication::sendEvent(static_cast<platform::QtControl&>(grid()).widget(), &press);
    EXPECT_EQ(gSelRagaName, k.chosen);
    EXPECT_EQ(gCurrFormId, *k.chosen ? kFormMainOperations : kFormRagaSelection1);
    if (!*k.chosen) EXPECT_EQ(grid().row(), rowOf("Bhairav") + k.rowsMoved);
  }
  screenharness::startAtMainWindow();
  sSelectRaga(0);
  grid().setRows(0);
  gSelRagaId = 5;
  gTRaga.RagaId = 0;
  screenharness::click(kFormRagaSelection1, "cRagaList");
  EXPECT_EQ(std::tuple(gSelRagaId, gTRaga.RagaId, gCurrFormId), std::tuple(5, 0, kFormRagaSelection1));
}

// The review of raga groups: a click on an empty group list stays there; a
// click on a raga opens its summary over the review, and Go Back returns to
// the review with its lists kept.
// The review lists the library's groups (30, 20 and 20 ragas, less Yaman
// Kalyan, which the fixture moved to a group of its own) and all 70; a name
// clicked in a group opens its summary, and Go Back finds the review as it
// was left.
TEST_F(RagaSelection, AGroupListClickOpensTheSummaryAndGoBackReturnsToTheReview) {
  screenharness::startAtMainWindow();
  sReviewTechnicalData(0);
  auto& review = screenharness::screenOf(kFormReviewRagas);
  for (const auto& [list, count] : {std::pair{"cRagaList1", 29}, {"cRagaList2", 20}, {"cRagaList3", 20},
                                    {"cRagaList", 70}})
    EXPECT_EQ(review.control(list).listCount(), count) << list;
  screenharness::click(kFormReviewRagas, "cRagaList3");  // nothing chosen: nothing happens
  EXPECT_EQ(gCurrFormId, kFormReviewRagas);
  auto& group1 = review.control("cRagaList1");
  for (int i = 0; i < group1.listCount(); ++i)
    if (group1.list(i) == "Yaman") group1.setListIndex(i);
  screenharness::click(kFormReviewRagas, "cRagaList1");
  ASSERT_EQ(gCurrFormId, kFormRagaInfoSummary);
  EXPECT_EQ(gParentFormIds[kFormRagaInfoSummary - 1], kFormReviewRagas);
  auto& summary = screenharness::screenOf(kFormRagaInfoSummary);
  EXPECT_EQ(summary.control("cRaga").caption() + "|" + summary.control("cThata").caption(), "Yaman|Kalyan");
  EXPECT_FALSE(summary.control("cTime").caption().empty());
  const auto items = [&](const char* name) {
    std::vector<std::string> texts;
    for (int i = 0; i < summary.control(name).listCount(); ++i) texts.push_back(summary.control(name).list(i));
    return texts;
  };
  EXPECT_EQ(items("cSimRagas"), (std::vector<std::string>{"Shuddha Kalyan", "Yaman Kalyan"}));
  EXPECT_EQ(items("cCompositions"), (std::vector<std::string>{"Saanjh bhayi", "Tarana in drut Teentaal"}));
  EXPECT_TRUE(items("cFilmSongs").empty());
  screenharness::click(kFormRagaInfoSummary, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormReviewRagas);
  EXPECT_FALSE(summary.loaded());
  EXPECT_EQ(group1.listCount(), 29) << "the review keeps its lists";
}

}  // namespace
