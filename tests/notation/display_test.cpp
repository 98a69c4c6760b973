// Tests of the notation boxes: fonts by script and phrases in display form.
#include "display/notation_display.h"

#include <gtest/gtest.h>

#include "core/session.h"
#include "display/fonts.h"
#include "notation/vocabulary.h"
#include "support/fake_screen.h"

namespace {

class Display : public ::testing::Test {
 protected:
  void SetUp() override {
    sInitScales();
    gCurrForm = &screen_;
    gNotationScript = 2;
    gGraceNotes = 2;
  }
  void TearDown() override { gCurrForm = nullptr; }

  FakeScreen screen_;
};

TEST_F(Display, FontFollowsTheScript) {
  platform::Control& box = screen_.control("cCurrentItem");
  gNotationScript = 1;
  sAdjustFont(box);
  EXPECT_EQ(box.fontName(), "Shusha");
  EXPECT_EQ(box.fontSize(), 16);
  gNotationScript = 2;
  sAdjustFont(box);
  EXPECT_EQ(box.fontName(), "Times New Roman");
  EXPECT_EQ(box.fontSize(), 12);
  gNotationScript = 0;
  sAdjustFont(box);
  EXPECT_EQ(box.fontName(), "Times New Roman");
}

TEST_F(Display, LoadNotationInEachScriptAndGraceChoice) {
  struct Row {
    int script;
    int grace;
    const char* shown;
  };
  const Row rows[] = {
      {2, 2, "S'R   G   :   m"},
      {2, 1, "R   G   :   m"},
      {1, 2, "saa'ro   ga   :   ma"},
      {1, 1, "ro   ga   :   ma"},
  };
  platform::Control& box = screen_.control("cPakad");
  for (const Row& r : rows) {
    gNotationScript = static_cast<std::int16_t>(r.script);
    gGraceNotes = static_cast<std::int16_t>(r.grace);
    sLoadNotation(box, " S'R  G : m");
    EXPECT_EQ(box.text(), r.shown) << r.script << "/" << r.grace;
  }
}

TEST_F(Display, PatternNotationDisablesPlaying) {
  sDisplayPatternNotation();
  for (const char* name : {"cPlay", "cStop", "cStopLoop", "cStartLoop"})
    EXPECT_FALSE(screen_.control(name).enabled()) << name;
}

}  // namespace
