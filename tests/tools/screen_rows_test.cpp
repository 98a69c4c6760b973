// Tests of the layout rows taken from screen definitions: the form row, and
// what menus and lines give. (The ratios of placed controls are compared
// with every shipped screen in program_test; the definitions' faults are
// the parser's, in screendef_test.)
#include "screen_rows.h"

#include <gtest/gtest.h>

namespace {

std::string value(const nvstore::Row& row, const char* column) {
  const auto* f = row.find(column);
  return f ? f->value : "<null>";
}

TEST(ScreenRows, OneFormRowAndOneRowPerControlInFileOrder) {
  const auto r = nvstore::screenLayoutRows(
      "screen MainOperations id=28 caption=\"Raga Exploration\"\n"
      "menu cMnuFile caption=\"&File\"\n"
      "line cLine1 at=0.0,0.5 size=1,0.5\n"
      "textbox cNote:0 at=.5,.25 size=0.1,0.1\n",
      "MainOperations.screen");
  ASSERT_TRUE(r.errors.empty()) << r.errors[0].text();
  ASSERT_EQ(r.rows.size(), 4u);
  EXPECT_EQ(value(r.rows[0], "Form Name") + "/" + value(r.rows[0], "Form Id") + "/" +
                value(r.rows[0], "TotalControlCount"),
            "MainOperations/28/3");
  EXPECT_EQ(value(r.rows[1], "LocRatY") + " " + value(r.rows[1], "SizRatWidth"), "0 0");  // a menu: no place
  EXPECT_EQ(value(r.rows[2], "SizRatWidth"), "1");  // a line keeps its two end points
  EXPECT_EQ(value(r.rows[3], "Control Index") + " " + value(r.rows[3], "LocRatX"), "2 0.5");
  // A screen without a form id has no layout rows.
  EXPECT_TRUE(nvstore::screenLayoutRows("screen OpeningScreen\nlabel L at=0,0 size=1,1\n", "o").rows.empty());
}

}  // namespace
