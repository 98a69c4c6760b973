// Screen definition parser: what a definition yields and what it refuses.
#include "platform/screendef.h"

#include <gtest/gtest.h>

#include <tuple>

namespace platform {
namespace {

TEST(ScreenDefinition, ReadsScreenAndControlsInFileOrder) {
  ScreenParseError error;
  auto def = parseScreenDefinition(R"(# A small screen
screen Quiz id=20 caption="Take a \"Quiz\"" help="Guess the raga."
menu cMnuFil caption="&File"
menu cMnuOne caption="One" parent=cMnuFil
separator parent=cMnuFil
menu cMnuTwo caption="Two" parent=cMnuFil checked=1
label cL:0 caption="S" at=0.1,0.2 size=0.03,0.1 backcolor=0xFFFFFF font=Shusha,14
button cReturn caption="&Return" at=0.8,0.9 size=0.1,0.05 help="Back to the main window."
line Line1 at=0.1,0.5 size=0.9,0.5
timer cTimer interval=6500
option Option1 caption="Demo" in=Frame1 at=0,0 size=0.1,0.1 enabled=0
)",
                                   &error);
  ASSERT_TRUE(def) << error.line << ": " << error.message;
  EXPECT_EQ(def->name + "/" + def->caption, "Quiz/Take a \"Quiz\"");
  EXPECT_EQ(def->formId, 20);
  ASSERT_EQ(def->controls.size(), 8u);
  const auto& reed = def->controls[3];
  EXPECT_EQ(reed.kind, ControlKind::Label);
  EXPECT_EQ(reed.name + ":" + std::to_string(reed.index), "cL:0");
  EXPECT_DOUBLE_EQ(reed.x, 0.1);
  EXPECT_DOUBLE_EQ(reed.h, 0.1);
  EXPECT_EQ(reed.backColor, 0xFFFFFF);
  EXPECT_EQ(reed.fontFamily, "Shusha");
  EXPECT_FLOAT_EQ(reed.fontPoints, 14);
  EXPECT_EQ(def->controls[1].parentMenu, "cMnuFil");
  EXPECT_EQ(def->controls[2].separatorsBefore, 1);
  EXPECT_TRUE(def->controls[2].checked);
  EXPECT_EQ(def->controls[4].help, "Back to the main window.");
  EXPECT_EQ(def->controls[5].kind, ControlKind::Line);  // its second end point in the size
  EXPECT_DOUBLE_EQ(def->controls[5].w, 0.9);
  EXPECT_EQ(def->controls[6].interval, 6500);
  EXPECT_FALSE(def->controls[7].enabled);
  EXPECT_EQ(def->controls[7].frame, "Frame1");
}

TEST(ScreenDefinition, RefusesMalformedFilesWithTheLineNumber) {
  const std::tuple<const char*, int, const char*> cases[] = {
      {"label cX\n", 1, "screen line"},          {"screen A id=1\nwidget cX\n", 2, "unknown control kind"},
      {"# nothing\n", 1, "no screen line"},     {"screen A id=1\nlabel cX at=0.1\n", 2, "bad value"},
      {"screen A id=x\n", 1, "bad form id"},    {"screen A id=1\nlabel cX colour=1\n", 2, "unknown key"},
      {"screen A id=1\nlabel cX\nlabel cX\n", 3, "duplicate"},
      {"screen A id=1\nlabel cX caption=\"open\n", 2, "unterminated"},
      {"screen A id=1\nlabel cX:-1\n", 2, "needs a name"},
      // Seen in the field: numbers no window could hold.
      {"screen A id=1\ngrid cG rows=2000000000\n", 2, "rows=2000000000 is out of range (0 to 10000)"},
      {"screen A id=1\ngrid cG rows=99999999999\n", 2, "bad value"},
      {"screen A id=1\ngrid cG cols=-1\n", 2, "cols=-1 is out of range"},
      {"screen A id=1\ngrid cG rows=2 fixedrows=3\n", 2, "fixedrows=3 is more than rows=2"},
      {"screen A id=1\nslider cS min=5 max=1\n", 2, "min=5 is above max=1"},
      {"screen A id=1\nslider cS value=11\n", 2, "value=11 is outside min to max (0 to 10)"},
      {"screen A id=1\ntimer cT interval=70000\n", 2, "interval=70000 is out of range"},
      {"screen A id=1\nlabel cX at=1.5,0.2\n", 2, "at=1.5,0.2 is out of range (0 to 1)"},
      {"screen A id=1\nlabel cX font=Arial,1e9\n", 2, "out of range"},
      {"screen A id=1\nlabel cX backcolor=0x1000000\n", 2, "out of range (0 to 16777215)"},
      {"screen A id=1\nlabel cX:40000\n", 2, "the index 0 to 32767"},
      {"screen A id=99999\n", 1, "id=99999 is out of range"},
  };
  for (const auto& [text, line, fragment] : cases) {
    ScreenParseError error;
    EXPECT_FALSE(parseScreenDefinition(text, &error)) << text;
    EXPECT_EQ(error.line, line) << text;
    EXPECT_NE(error.message.find(fragment), std::string::npos) << text << " -> " << error.message;
  }
}

}  // namespace
}  // namespace platform
