// The scale shifting screen's shell on real screens: entered from the main
// window and left by Go Back, and its trace switch.
#include <gtest/gtest.h>

#include "scales/scales.h"
#include "screen_harness.h"

namespace {

class ScalesShell : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(screenharness::setUpScreens({{kFormScaleShifting, "ScaleShifting", sShiftScale,
                                            sBindScaleShiftingEvents}}),
              "");
  }
};

TEST_F(ScalesShell, EntersFromTheMainWindowAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormScaleShifting, sShiftScale);
}

TEST_F(ScalesShell, TraceMenuSwitchesTracing) {
  screenharness::expectTraceMenuSwitchesTracing(kFormScaleShifting, sShiftScale);
}

TEST_F(ScalesShell, TraceEntriesStayHiddenWhenTracingIsNotOffered) {
  screenharness::startAtMainWindow();
  sShiftScale(0);
  EXPECT_FALSE(gCurrForm->control("cMnuTraOn").visible());
  EXPECT_FALSE(gCurrForm->control("cMnuTraOff").visible());
  sShiftScale(20);
}

}  // namespace
