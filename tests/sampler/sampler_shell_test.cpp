// The music sampler screen's shell on real screens: entered from the main
// window and left by Go Back, and its trace switch.
#include <gtest/gtest.h>

#include "sampler/sampler.h"
#include "screen_harness.h"

namespace {

class SamplerShell : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(screenharness::setUpScreens(
                  {{kFormNVSampler, "NVSampler", sNVSampler, sBindNVSamplerEvents}}),
              "");
  }
};

TEST_F(SamplerShell, EntersFromTheMainWindowAndLeavesByGoBack) {
  screenharness::expectEntersAndLeavesByGoBack(kFormNVSampler, sNVSampler);
}

TEST_F(SamplerShell, TraceMenuSwitchesTracing) {
  screenharness::expectTraceMenuSwitchesTracing(kFormNVSampler, sNVSampler);
}

// A screen is unloaded on leaving; entering it again loads it afresh with
// its handlers still bound.
TEST_F(SamplerShell, CanBeEnteredAgainAfterLeaving) {
  for (int visit = 1; visit <= 2; ++visit) {
    screenharness::startAtMainWindow();
    sNVSampler(0);
    EXPECT_TRUE(screenharness::screenOf(kFormNVSampler).visible()) << "visit " << visit;
    screenharness::click(kFormNVSampler, "cReturn");
    EXPECT_EQ(gCurrFormId, kFormNadavik) << "visit " << visit;
  }
}

}  // namespace
