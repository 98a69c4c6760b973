// Raga browsing: choosing a raga on RagaSelection1 (form id 9), and the
// review of the raga groups on ReviewRagas (form id 3) with the summary of
// one raga on RagaInfoSummary (form id 15).
#pragma once

#include <cstdint>

namespace platform {
class Screen;
}

// RagaSelection1. Events: 0 open, 1 choose the grid's current row, 2 reload
// the grid in the order of gSortingMode, 3 sort by the clicked heading,
// 20 leave.
void sSelectRaga(std::int16_t event);
void sInitRagaSelection();
void sTerminateRagaSelection();
// Builds the heading grid and the raga grid (column widths from the window
// width, rows from the store in the order of gSortingMode).
void sLoadRagaSelectionGrid();
void sBindRagaSelection1Events(platform::Screen& screen);

// ReviewRagas and RagaInfoSummary share one controller. Events: 0 open the
// review, 2 open the summary of gCurrRagaName, 20 leave the screen on top.
void sReviewTechnicalData(std::int16_t event);
void sInitReviewTechDat();
void sLoadRagaListForLevel(std::int16_t level);
void sDisplayRagaInfoSummary();
void sTerminateReviewTechDat();
void sBindReviewRagasEvents(platform::Screen& screen);
void sBindRagaInfoSummaryEvents(platform::Screen& screen);
