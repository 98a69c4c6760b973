// Controller of RagaSelection1, the grid of all ragas from which one is
// chosen for exploration. A heading grid (cRagaListT) stands over the grid
// of ragas (cRagaList); both share six columns. Keeps no state of its own:
// the sort order lives in gSortingMode, the rows in the grid itself, which
// is rebuilt on entry and on every change of sort but not when the user
// comes back from the exploration screen.
#include <array>
#include <cmath>
#include <cstdint>
#include <string>

#include "browsing/browsing.h"
#include "control/raga_setup.h"
#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/session.h"
#include "core/trace.h"
#include "exploration/exploration.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/lookups.h"
#include "store/queries.h"
#include "store/query_open.h"
#include "store/working_record.h"

namespace {

// One column of both grids: its heading, its width as a fraction of the
// window width, the field of the grid query it shows and the text of a Null
// there, and the sort mode a click on its heading chooses (the modes run in
// menu order, not column order: mode 2 is Jati, mode 3 Vadi). A Null thata
// reads "(Undefined)" so that it does not look like a missing cell.
struct GridColumn {
  const char* heading;
  double widthFraction;
  const char* field;
  const char* nullText;
  std::int16_t sortMode;
};

constexpr std::array<GridColumn, 6> kGridColumns = {{
    {"Raga", 0.24, "Raga", "", 0},
    {"Thata", 0.15, "Thata", "(Undefined)", 1},
    {"Vadi", 0.04, "Vadi", "", 3},
    {"Samvadi", 0.08, "Samvadi", "", 4},
    {"Jati", 0.15, "Jati", "", 2},
    {"Time", 0.24, "Appropriate time", "", 5},
}};

// The sort menu's entries in the order of the sort modes 0 to 5.
constexpr std::array<const char*, 6> kSortMenuEntries = {"cMnuRag", "cMnuTha", "cMnuJat",
                                                         "cMnuVad", "cMnuSam", "cMnuAppTim"};

constexpr const char* kRagaCountCaption = "70 Ragas in Groups 1, 2 and 3";

// The window width the column widths are taken from: the normal width, the
// maximised width, or 0 while the window is minimised.
float fGridWindowWidth() {
  if (gFormState == 0) return gFormW;
  if (gFormState == 2) return gMaxFormW;
  return 0;
}

// The text of one cell of the current record.
std::string fGridCellText(const platform::Recordset& rs, const GridColumn& column) {
  const platform::Value value = rs.field(column.field);
  return value.isNull() ? column.nullText : value.asText();
}

// Places the raga grid under the heading grid, gives both the column
// widths and writes the headings.
void sLayOutRagaSelectionGrids(platform::Control& headings, platform::Control& ragas) {
  NV_PROC("sLayOutRagaSelectionGrids");
  const float windowWidth = fGridWindowWidth();
  ragas.setLeft(headings.left());
  ragas.setTop(headings.top() + headings.height());
  ragas.clear();
  headings.setRows(1);
  headings.setCols(static_cast<int>(kGridColumns.size()));
  ragas.setCols(static_cast<int>(kGridColumns.size()));
  for (int c = 0; c < static_cast<int>(kGridColumns.size()); ++c) {
    const float width = std::round(kGridColumns[c].widthFraction * windowWidth);
    headings.setColWidth(c, width);
    ragas.setColWidth(c, width);
    headings.setTextMatrix(0, c, kGridColumns[c].heading);
  }
}

// Fills the raga grid from the grid query, one row per raga in the order
// of gSortingMode. A query the engine cannot evaluate leaves it empty.
void sFillRagaGrid(platform::Control& ragas) {
  NV_PROC("sFillRagaGrid");
  sPatchSQLStr19();
  auto rs = fOpenQuery(*gDbA, gSQLStr19);
  if (!rs) return;
  rs->moveLast();
  ragas.setRows(static_cast<int>(rs->recordCount()));
  rs->moveFirst();
  for (int r = 0; !rs->eof(); ++r, rs->moveNext())
    for (int c = 0; c < static_cast<int>(kGridColumns.size()); ++c)
      ragas.setTextMatrix(r, c, fGridCellText(*rs, kGridColumns[c]));
  rs->close();
}

// Makes the raga on the current row of the grid current and explores it.
// A row without a known raga (outside the data) does nothing.
void sChooseCurrentRaga() {
  NV_PROC("sChooseCurrentRaga");
  platform::Control& ragas = gCurrForm->control("cRagaList");
  gCurrRagaName = ragas.textMatrix(ragas.row(), 0);
  gCurrRagaId = fGetRagaId(gCurrRagaName);
  if (gCurrRagaId == 0) return;
  gSelRagaId = gCurrRagaId;
  gSelRagaName = gCurrRagaName;
  sSetupRagaAndSound();
  // A raga whose data is missing or damaged has been reported; it stays
  // unexplored and the grid stays where it is.
  if (gTRaga.RagaId == 0) return;
  sMainOperations(0);
}

// Takes the sort mode from the heading that was clicked; a column beyond
// the six leaves it alone.
void sSortByClickedHeading() {
  NV_PROC("sSortByClickedHeading");
  const int c = gCurrForm->control("cRagaListT").col();
  if (c >= 0 && c < static_cast<int>(kGridColumns.size())) gSortingMode = kGridColumns[c].sortMode;
}

// A sort menu entry: the mode of its position, then a reload.
void sSortByMenu(std::int16_t mode) {
  gSortingMode = mode;
  sMnuRagaSortingModeCheck();
  sSelectRaga(2);
}

}  // namespace

// Enters the screen with the current screen as its parent.
void sInitRagaSelection() {
  NV_PROC("sInitRagaSelection");
  sEnterForm(kFormRagaSelection1);
  sMnuTraceCheck();
}

void sTerminateRagaSelection() {
  NV_PROC("sTerminateRagaSelection");
  sStructuredTermination(1);
}

void sLoadRagaSelectionGrid() {
  NV_PROC("sLoadRagaSelectionGrid");
  platform::Control& headings = gCurrForm->control("cRagaListT");
  platform::Control& ragas = gCurrForm->control("cRagaList");
  sLayOutRagaSelectionGrids(headings, ragas);
  sFillRagaGrid(ragas);
  ragas.setRow(0);
  ragas.setCol(0);
}

void sSelectRaga(std::int16_t event) {
  NV_PROC("sSelectRaga");
  switch (event) {
    case 0:
      sInitRagaSelection();
      sMnuRagaSortingModeCheck();
      sLoadRagaSelectionGrid();
      gCurrForm->control("Label1").setCaption(kRagaCountCaption);
      gCurrForm->control("cRagaList").setFocus();
      gCurrForm->control("cPrompts").setText(fGetPrompts("2"));
      break;
    case 1:
      sChooseCurrentRaga();
      break;
    case 2:
      sMnuRagaSortingModeCheck();
      sLoadRagaSelectionGrid();
      break;
    case 3:
      sSortByClickedHeading();
      sSelectRaga(2);
      break;
    case 20:
      sTerminateRagaSelection();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindRagaSelection1Events(platform::Screen& screen) {
  using platform::Event;
  using platform::EventKind;
  // A raga is chosen by a click, or by Enter or Space, which the screens
  // deliver as a click on a list or grid. The arrow keys move through the
  // grid and choose nothing: a deliberate correction of "any key chooses",
  // under which the first arrow key opened the raga under it and the grid
  // could not be worked from the keyboard.
  screen.on("cRagaList", EventKind::Click, [](const Event&) { sSelectRaga(1); });
  screen.on("cRagaListT", EventKind::Click, [](const Event&) { sSelectRaga(3); });
  for (std::int16_t mode = 0; mode < static_cast<std::int16_t>(kSortMenuEntries.size()); ++mode)
    screen.on(kSortMenuEntries[mode], EventKind::Click,
              [mode](const Event&) { sSortByMenu(mode); });
  screen.on("cReturn", EventKind::Click, [](const Event&) { sSelectRaga(20); });
  sBindTraceMenuEvents(screen);
}
