// Controller of the review of raga groups (ReviewRagas) and of the summary
// of one raga (RagaInfoSummary) opened from it. Keeps no state of its own:
// the raga at hand is gCurrRagaName.
#include "browsing/browsing.h"
#include "control/screen_manager.h"
#include "core/errors.h"
#include "core/session.h"
#include "platform/screen.h"

void sInitReviewTechDat() {
  NV_PROC("sInitReviewTechDat");
  sEnterForm(kFormReviewRagas);
}

// Opens the summary of gCurrRagaName over the review; a click that left no
// name (an empty list) does nothing.
void sDisplayRagaInfoSummary() {
  NV_PROC("sDisplayRagaInfoSummary");
  if (gCurrRagaName.empty()) return;
  sSetFormParameters();
  sEnterForm(kFormRagaInfoSummary);
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
