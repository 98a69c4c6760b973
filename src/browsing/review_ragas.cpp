// Controller of the review of raga groups (ReviewRagas) and of the summary
// of one raga (RagaInfoSummary) opened from it. Keeps no state of its own:
// the raga at hand is gCurrRagaName.
#include <string>
#include <vector>

#include "browsing/browsing.h"
#include "control/screen_manager.h"
#include "core/errors.h"
#include "core/session.h"
#include "platform/screen.h"
#include "store/lookups.h"

namespace {

// Replaces the items of a list box of the current screen.
void showList(const char* name, const std::vector<std::string>& items) {
  platform::Control& list = gCurrForm->control(name);
  list.clear();
  for (const std::string& item : items) list.addItem(item);
}

}  // namespace

// Fills the list box of one curriculum group (cRagaList1 to cRagaList3).
void sLoadRagaListForLevel(std::int16_t level) {
  NV_PROC("sLoadRagaListForLevel");
  std::vector<std::string> names;
  sLoadGroupRagaNames(names, level);
  showList(("cRagaList" + std::to_string(level)).c_str(), names);
}

// The three groups side by side, and every raga in cRagaList.
void sInitReviewTechDat() {
  NV_PROC("sInitReviewTechDat");
  sEnterForm(kFormReviewRagas);
  for (std::int16_t level = 1; level <= 3; ++level) sLoadRagaListForLevel(level);
  std::vector<std::string> names;
  sLoadRagaList(names);
  showList("cRagaList", names);
}

// Opens the summary of gCurrRagaName over the review: thata (a Null keeps
// the caption the screen opens with), time of day, and the library's
// similar ragas, compositions and film songs. A click that left no name of
// the library (an empty list) does nothing.
void sDisplayRagaInfoSummary() {
  NV_PROC("sDisplayRagaInfoSummary");
  gCurrRagaId = fGetRagaId(gCurrRagaName);
  if (gCurrRagaId == 0) return;
  sSetFormParameters();
  sEnterForm(kFormRagaInfoSummary);
  const RagaThataAndTime data = fGetRagaThataAndTime(gCurrRagaId);
  gCurrForm->control("cRaga").setCaption(gCurrRagaName);
  if (!data.thata.empty()) gCurrForm->control("cThata").setCaption(data.thata);
  gCurrForm->control("cTime").setCaption(data.time);
  const struct {
    const char* list;
    std::int16_t type;
  } kinds[] = {{"cSimRagas", 1}, {"cCompositions", 2}, {"cFilmSongs", 3}};
  for (const auto& kind : kinds) {
    std::vector<std::string> items;
    fLoadList(items, kind.type, 0);
    showList(kind.list, items);
  }
  gCurrForm->control("cReturn").setFocus();
}

// Leaves the screen on top: the summary back to the review, the review back
// to the main window.
void sTerminateReviewTechDat() {
  NV_PROC("sTerminateReviewTechDat");
  sStructuredTermination(1);
}

void sReviewTechnicalData(std::int16_t event) {
  NV_PROC("sReviewTechnicalData");
  switch (event) {
    case 0:
      sInitReviewTechDat();
      break;
    case 2:
      sDisplayRagaInfoSummary();
      break;
    case 20:
      sTerminateReviewTechDat();
      break;
    default:  // other events do nothing
      break;
  }
}

void sBindReviewRagasEvents(platform::Screen& screen) {
  // The screen object lives for the whole process, so the handlers may keep
  // a reference to it.
  for (const char* list : {"cRagaList1", "cRagaList2", "cRagaList3"}) {
    screen.on(list, platform::EventKind::Click, [&screen, list](const platform::Event&) {
      gCurrRagaName = screen.control(list).text();
      sReviewTechnicalData(2);
    });
  }
  screen.on("cReturn", platform::EventKind::Click,
            [](const platform::Event&) { sReviewTechnicalData(20); });
}

void sBindRagaInfoSummaryEvents(platform::Screen& screen) {
  // The headings only pass the focus on to the way back.
  for (const char* heading : {"Label2", "Label4", "Label6", "Label7", "Label8"}) {
    screen.on(heading, platform::EventKind::Click,
              [&screen](const platform::Event&) { screen.control("cReturn").setFocus(); });
  }
  screen.on("cReturn", platform::EventKind::Click,
            [](const platform::Event&) { sReviewTechnicalData(20); });
}
