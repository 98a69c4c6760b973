// Sorted by time, the raga grid of the whole program on the built library
// follows the clock from dawn, not the alphabet of the time texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/session.h"
#include "program_harness.h"

using platform::EventKind;

namespace {

// The round of the clock from dawn, by the clock time each time text
// starts with: a reference of its own, independent of how the program
// sorts.
const std::vector<std::string> kRoundFromDawn = {"(3 am", "(6 am", "(9 am",        "(12 noon",
                                                 "(3 pm", "(6 pm", "(9 pm", "(12 midnight"};

// The place in the round of the clock time a text names first; the end of
// the round for a text without one.
std::size_t fPlaceInRound(const std::string& time) {
  std::size_t place = kRoundFromDawn.size();
  std::size_t first = std::string::npos;
  for (std::size_t k = 0; k < kRoundFromDawn.size(); ++k) {
    const std::size_t at = time.find(kRoundFromDawn[k]);
    if (at < first) {
      first = at;
      place = k;
    }
  }
  return place;
}

TEST(RagaTimeOrder, SortByTimeRunsFromDawnRoundTheClock) {
  ProgramHarness program;
  program.start();
  program.finishStartUp();
  program.fire("Nadavik", "cMnuExpRag", EventKind::Click);
  program.fire("RagaSelection1", "cMnuAppTim", EventKind::Click);
  platform::Control& grid = program.screen("RagaSelection1").control("cRagaList");
  ASSERT_EQ(grid.rows(), 70);
  std::vector<std::size_t> places;
  for (int r = 0; r < grid.rows(); ++r) places.push_back(fPlaceInRound(grid.textMatrix(r, 5)));
  EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
  EXPECT_EQ(places.front(), 0u) << grid.textMatrix(0, 5);
  EXPECT_EQ(places.back(), kRoundFromDawn.size() - 1) << grid.textMatrix(grid.rows() - 1, 5);
}

}  // namespace
