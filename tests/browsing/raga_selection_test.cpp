// The raga grid on its real screen over a small library store of six
// ragas with known data (one with a Null thata, one beyond group 3): the
// rows and their order for every sort mode, reached from the menu and from
// a click on a heading, the menu's check mark, the headings and column
// widths, the count caption, choosing a raga by click or key, and the grid
// kept for the return from the exploration screen.
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

nvstore::Row row(const std::string& table,
                 const std::vector<std::pair<std::string, std::string>>& fields) {
  nvstore::Row r;
  r.table = table;
  for (const auto& [column, value] : fields) r.fields.push_back({column, value, 0});
  return r;
}

// A raga of the test store; an empty thata or time is left Null.
struct TestRaga {
  const char* name;
  int index;
  int level;
  const char* thata;
  const char* vadi;
  int vadiNum;
  const char* samvadi;
  int samvadiNum;
  const char* jati;
  const char* time;
};

const TestRaga kRagas[] = {
    {"Yaman", 1, 1, "Kalyan", "G", 16, "N", 23, "Sampoorna - Sampoorna", "Evening"},
    {"Bhairav", 2, 1, "Bhairav", "d", 20, "r", 13, "Sampoorna - Sampoorna", "Dawn"},
    {"Bhupali", 3, 2, "Kalyan", "G", 16, "D", 21, "Audav - Audav", "Evening"},
    {"Malkauns", 4, 2, "Bhairavi", "m", 17, "S", 12, "Audav - Audav", "Night"},
    {"Desh", 5, 3, "Khamaj", "R", 14, "P", 19, "Audav - Sampoorna", "Night"},
    {"Mystery", 6, 3, "", "P", 19, "S", 12, "Shadav - Shadav", ""},
    {"Beyond", 7, 4, "Asavari", "S", 12, "P", 19, "Audav - Audav", "Dawn"},
};

std::vector<nvstore::Row> ragaRows() {
  std::vector<nvstore::Row> rows;
  for (const TestRaga& raga : kRagas) {
    const std::string index = std::to_string(raga.index);
    rows.push_back(row("RagaNameList",
                       {{"Raga", raga.name}, {"Raga Index", index},
                        {"Level", std::to_string(raga.level)}}));
    std::vector<std::pair<std::string, std::string>> info = {
        {"Raga Index", index}, {"Vadi", raga.vadi},
        {"VadiNum", std::to_string(raga.vadiNum)}, {"Samvadi", raga.samvadi},
        {"SamvadiNum", std::to_string(raga.samvadiNum)}, {"Jati", raga.jati}};
    if (*raga.thata) info.push_back({"Thata", raga.thata});
    if (*raga.time) info.push_back({"Appropriate time", raga.time});
    rows.push_back(row("Raga - Technical Information", info));
  }
  rows.push_back(row("Prompts", {{"Prompt Id", "2"}, {"Prompt", "Click a raga to explore it."}}));
  return rows;
}

// Replaces the harness's layout store with one that also holds the ragas.
std::string openRagaStore() {
  std::vector<nvstore::Row> rows = ragaRows();
  for (const auto& file : std::filesystem::directory_iterator(NADAVIK_SCREENS_DIR)) {
    if (file.path().extension() != ".screen") continue;
    auto layout = nvstore::readScreenFile(file.path().string());
    rows.insert(rows.end(), layout.rows.begin(), layout.rows.end());
  }
  const std::string path = gDataPath + "/ragas.nvy";
  std::vector<nvstore::SourceError> errors;
  if (!nvstore::writeStoreFile(path, screenharness::libraryStoreSchema(), "schema_library.sql",
                               rows, errors))
    return errors.empty() ? "store not written" : errors.front().text();
  gDbA = std::make_unique<platform::sqlite::SqliteDatabase>(path, false, true);
  return "";
}

const Names kSortEntries = {"cMnuRag", "cMnuTha", "cMnuJat", "cMnuVad", "cMnuSam", "cMnuAppTim"};

// The raga order of each sort mode: the key, then the raga name; a Null
// key sorts first. Vadi and samvadi sort by note number, not note text.
const Names kOrderOfMode[] = {
    {"Bhairav", "Bhupali", "Desh", "Malkauns", "Mystery", "Yaman"},
    {"Mystery", "Bhairav", "Malkauns", "Bhupali", "Yaman", "Desh"},
    {"Bhupali", "Malkauns", "Desh", "Bhairav", "Yaman", "Mystery"},
    {"Desh", "Bhupali", "Yaman", "Malkauns", "Mystery", "Bhairav"},
    {"Malkauns", "Mystery", "Bhairav", "Desh", "Bhupali", "Yaman"},
    {"Mystery", "Bhairav", "Bhupali", "Yaman", "Desh", "Malkauns"},
};

class RagaSelection : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormRagaSelection1, "RagaSelection1", sSelectRaga, sBindRagaSelection1Events},
                   {kFormMainOperations, "MainOperations", sMainOperations,
                    sBindMainOperationsEvents}}),
              "");
    ASSERT_EQ(openRagaStore(), "");
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
  static Names checkedSortEntries() { return screenharness::checkedEntries(kSortEntries); }
  static void clickHeading(int c) {
    screen().control("cRagaListT").setCol(c);
    screenharness::click(kFormRagaSelection1, "cRagaListT");
  }
};

TEST_F(RagaSelection, OpensWithHeadingsCountCaptionPromptAndRagasByName) {
  EXPECT_EQ(screen().caption(), "Raga Selection");
  EXPECT_EQ(screen().control("Label1").caption(), "70 Ragas in Groups 1, 2 and 3");
  EXPECT_EQ(screen().control("cPrompts").text(), "Click a raga to explore it.");
  platform::Control& headings = screen().control("cRagaListT");
  ASSERT_EQ(headings.rows(), 1);
  Names shown;
  for (int c = 0; c < headings.cols(); ++c) shown.push_back(headings.textMatrix(0, c));
  EXPECT_EQ(shown, (Names{"Raga", "Thata", "Vadi", "Samvadi", "Jati", "Time"}));
  EXPECT_EQ(column(0), kOrderOfMode[0]) << "groups 1 to 3 only, by name";
  EXPECT_EQ(grid().row(), 0);
  EXPECT_EQ(grid().col(), 0);
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuRag"});
}

TEST_F(RagaSelection, EveryColumnShowsItsFieldAndANullThataReadsUndefined) {
  const int bhairav = 0, mystery = 4;
  EXPECT_EQ((Names{grid().textMatrix(bhairav, 1), grid().textMatrix(bhairav, 2),
                   grid().textMatrix(bhairav, 3), grid().textMatrix(bhairav, 4),
                   grid().textMatrix(bhairav, 5)}),
            (Names{"Bhairav", "d", "r", "Sampoorna - Sampoorna", "Dawn"}));
  EXPECT_EQ(grid().textMatrix(mystery, 0), "Mystery");
  EXPECT_EQ(grid().textMatrix(mystery, 1), "(Undefined)");
  EXPECT_EQ(grid().textMatrix(mystery, 5), "") << "other Null fields stay empty";
}

TEST_F(RagaSelection, EachSortMenuEntrySortsAndTakesTheCheckMark) {
  for (int mode = 0; mode < 6; ++mode) {
    SCOPED_TRACE(kSortEntries[mode]);
    screenharness::click(kFormRagaSelection1, kSortEntries[mode]);
    EXPECT_EQ(gSortingMode, mode);
    EXPECT_EQ(column(0), kOrderOfMode[mode]);
    EXPECT_EQ(checkedSortEntries(), Names{kSortEntries[mode]});
    EXPECT_EQ(grid().row(), 0) << "the grid starts again at its top";
  }
}

TEST_F(RagaSelection, AHeadingClickSortsByThatColumnsMode) {
  // Heading column -> sort mode: the modes follow the menu, not the columns.
  const struct {
    int column;
    int mode;
    const char* entry;
  } cases[] = {{4, 2, "cMnuJat"}, {2, 3, "cMnuVad"}, {3, 4, "cMnuSam"},
               {5, 5, "cMnuAppTim"}, {1, 1, "cMnuTha"}, {0, 0, "cMnuRag"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.entry);
    clickHeading(c.column);
    EXPECT_EQ(gSortingMode, c.mode);
    EXPECT_EQ(column(0), kOrderOfMode[c.mode]);
    EXPECT_EQ(checkedSortEntries(), Names{c.entry});
  }
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
  EXPECT_EQ(column(0), kOrderOfMode[2]);
}

TEST_F(RagaSelection, TheSortInForceIsKeptForTheNextVisit) {
  clickHeading(2);
  sSelectRaga(20);
  EXPECT_EQ(gCurrFormId, kFormNadavik);
  sSelectRaga(0);
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuVad"});
  EXPECT_EQ(column(0), kOrderOfMode[3]);
}

TEST_F(RagaSelection, ColumnWidthsAreFractionsOfTheWindowWidth) {
  const int normal[] = {328, 205, 55, 109, 205, 328};  // 1366 x .24 .15 .04 .08 .15 .24
  for (int c = 0; c < 6; ++c) {
    EXPECT_EQ(table("cRagaListT").columnWidth(c), normal[c]) << "heading column " << c;
    EXPECT_EQ(table("cRagaList").columnWidth(c), normal[c]) << "raga column " << c;
  }
  screenharness::startAtMainWindow();
  gFormState = 2;
  gMaxFormW = 1920;
  sSelectRaga(0);
  EXPECT_EQ(table("cRagaList").columnWidth(0), 461) << "maximised: 1920 x 0.24";
  EXPECT_EQ(table("cRagaList").columnWidth(2), 77);
}

TEST_F(RagaSelection, TheRagaGridStandsRightBelowTheHeadings) {
  platform::Control& headings = screen().control("cRagaListT");
  EXPECT_EQ(grid().left(), headings.left());
  EXPECT_EQ(grid().top(), headings.top() + headings.height());
}

TEST_F(RagaSelection, AClickOnARowMakesThatRagaCurrentAndExploresIt) {
  screenharness::click(kFormRagaSelection1, kSortEntries[3]);  // Desh, Bhupali, Yaman, ...
  grid().setRow(2);
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
}

TEST_F(RagaSelection, AnyKeyOnTheGridChoosesTheCurrentRow) {
  for (int keyCode : {13, 32, 40, 65}) {
    SCOPED_TRACE(keyCode);
    screenharness::startAtMainWindow();
    sSelectRaga(0);
    grid().setRow(5);
    platform::Event key;
    key.keyCode = keyCode;
    static_cast<platform::QtScreen&>(screen()).dispatch("cRagaList", platform::EventKind::KeyDown,
                                                        key);
    EXPECT_EQ(gSelRagaName, "Yaman");
    EXPECT_EQ(gCurrFormId, kFormMainOperations);
  }
}

TEST_F(RagaSelection, ComingBackFromTheExplorationKeepsTheGridAsItWas) {
  clickHeading(4);  // Jati
  grid().setTextMatrix(0, 5, "marked");  // a reload would overwrite this
  grid().setRow(3);
  screenharness::click(kFormRagaSelection1, "cRagaList");
  ASSERT_EQ(gCurrFormId, kFormMainOperations);

  screenharness::click(kFormMainOperations, "cReturn");
  EXPECT_EQ(gCurrFormId, kFormRagaSelection1);
  EXPECT_TRUE(screen().visible());
  EXPECT_EQ(column(0), kOrderOfMode[2]);
  EXPECT_EQ(grid().textMatrix(0, 5), "marked");
  EXPECT_EQ(checkedSortEntries(), Names{"cMnuJat"});
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

}  // namespace
