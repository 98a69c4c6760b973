// Tests of the layout rows taken from screen definitions.
#include "screen_rows.h"

#include <gtest/gtest.h>

namespace {

using nvstore::screenLayoutRows;

std::string value(const nvstore::Row& row, const char* column) {
  const auto* f = row.find(column);
  return f ? f->value : "<null>";
}

TEST(ScreenRows, OneFormRowAndOneRowPerControlInFileOrder) {
  const auto r = screenLayoutRows(
      "# the exploration screen\n"
      "screen MainOperations id=28 caption=\"Raga Exploration\" help=\"Say \\\"hi\\\"\"\n"
      "label Label1 caption=\"Raga: name\" at=0.1,0.2 size=0.3,0.05\n"
      "menu cMnuFile caption=\"&File\"\n"
      "separator parent=cMnuFile\n"
      "line cLine1 at=0.0,0.5 size=1,0.5\n"
      "textbox cNote:0 at=.5,.25 size=0.1,0.1 font=\"MS Sans Serif\",10\n",
      "MainOperations.screen");
  ASSERT_TRUE(r.errors.empty()) << r.errors[0].text();
  ASSERT_EQ(r.rows.size(), 5u);
  EXPECT_EQ(r.rows[0].table, "NVForms");
  EXPECT_EQ(value(r.rows[0], "Form Name"), "MainOperations");
  EXPECT_EQ(value(r.rows[0], "Form Id"), "28");
  EXPECT_EQ(value(r.rows[0], "TotalControlCount"), "4");

  const nvstore::Row& label = r.rows[1];
  EXPECT_EQ(label.table, "NVFormControls");
  EXPECT_EQ(value(label, "Control Index"), "0");
  EXPECT_EQ(value(label, "LocRatX"), "0.1");
  EXPECT_EQ(value(label, "SizRatHeight"), "0.05");
  // a menu has no geometry: zeros
  EXPECT_EQ(value(r.rows[2], "Control Index"), "1");
  EXPECT_EQ(value(r.rows[2], "LocRatY"), "0");
  // a line keeps its two end points
  EXPECT_EQ(value(r.rows[3], "SizRatWidth"), "1");
  EXPECT_EQ(value(r.rows[4], "LocRatX"), "0.5");
  EXPECT_EQ(value(r.rows[4], "Form Id"), "28");
}

TEST(ScreenRows, ScreenWithoutIdHasNoLayoutRows) {
  const auto r = screenLayoutRows("screen OpeningScreen caption=\"x\"\nlabel L at=0,0 size=1,1\n", "o");
  EXPECT_TRUE(r.errors.empty());
  EXPECT_TRUE(r.rows.empty());
}

TEST(ScreenRows, FaultsNameTheirLine) {
  const std::pair<const char*, int> cases[] = {
      {"label L at=0,0\n", 1},                                // no screen declaration first
      {"screen S id=1\nwidget W\n", 2},                       // unknown kind
      {"screen S id=1\nlabel L caption=\"open\n", 2},         // unterminated quote
      {"screen S id=1\nlabel L at=0.1 size=1,1\n", 2},        // one number only
      {"screen S id=1\nlabel L at=0.1,x size=1,1\n", 2},      // not a number
      {"", 0},                                                // empty file
  };
  for (const auto& [text, line] : cases) {
    const auto r = screenLayoutRows(text, "s.screen");
    ASSERT_FALSE(r.errors.empty()) << text;
    EXPECT_EQ(r.errors[0].line, line) << text;
    EXPECT_TRUE(r.rows.empty()) << text;
  }
}

}  // namespace
