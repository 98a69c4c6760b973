// Tests of the record file reader: rows, continuations, Null and empty
// text, and the faults it must name by line. (A NUL byte is named through
// the program in nvstore_build_test.cpp.)
#include "record_file.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using nvstore::parseRecordText;

// Names with blanks and hyphens; a continuation joins with exactly one
// blank; two quotes are the empty text, a column not given is Null, and
// equals signs stay in values; a header with no columns is a row of Nulls.
TEST(RecordFile, ReadsRowsContinuationsAndValues) {
  const auto r = parseRecordText(
      "# a comment\n"
      "[Raga - Technical Information]\n"
      "Raga Index = 1\n"
      "Appropriate time = First quarter of the night\n"
      "\n"
      "[T]\n"
      "NotesPhrase = S R G   \n"
      "      m P ,\n"
      "\tD N S>\n"
      "Late =\n"
      "   starts on the next line\n"
      "A = \"\"\n"
      "B = x = y\n"
      "[U]\n",
      "x.rec");
  ASSERT_TRUE(r.errors.empty());
  ASSERT_EQ(r.rows.size(), 3u);
  EXPECT_EQ(r.rows[0].table, "Raga - Technical Information");
  EXPECT_EQ(r.rows[0].line, 2);
  EXPECT_EQ(r.rows[0].find("Appropriate time")->value, "First quarter of the night");
  EXPECT_EQ(r.rows[0].find("Appropriate time")->line, 4);
  EXPECT_EQ(r.rows[0].find("Thata"), nullptr);
  const std::pair<const char*, const char*> values[] = {
      {"NotesPhrase", "S R G m P , D N S>"}, {"Late", "starts on the next line"}, {"A", ""}, {"B", "x = y"}};
  for (const auto& [column, value] : values) {
    ASSERT_NE(r.rows[1].find(column), nullptr) << column;
    EXPECT_EQ(r.rows[1].find(column)->value, value);
  }
  EXPECT_TRUE(r.rows[2].fields.empty());
}

TEST(RecordFile, FaultsNameTheirLine) {
  const std::tuple<std::string, int, const char*> cases[] = {
      {"A = 1\n", 1, "before the first"},
      {"[T]\nA = 1\nA = 2\n", 3, "twice"},
      {"[T]\nno equals sign\n", 2, "expected"},
      {"[T]\n= 3\n", 2, "missing column"},
      {"[T]\nA =\n", 2, "no value"},
      {"  S R\n", 1, "continuation"},
      {"[T]\nA = \"\"\n  more\n", 3, "cannot be continued"},
      {"[T\nA = 1\n", 1, "header"},
  };
  for (const auto& [text, line, words] : cases) {
    const auto r = parseRecordText(text, "f.rec");
    ASSERT_EQ(r.errors.size(), 1u) << text;
    EXPECT_EQ(r.errors[0].line, line) << text;
    EXPECT_NE(r.errors[0].text().find(words), std::string::npos) << r.errors[0].text();
    EXPECT_EQ(r.errors[0].text().rfind("f.rec:", 0), 0u);
  }
  const auto unreadable = nvstore::readRecordFile("/nonexistent/none.rec");
  EXPECT_EQ(unreadable.errors.size(), 1u);
  EXPECT_TRUE(unreadable.rows.empty());
}

}  // namespace
