// Tests of the record file reader: rows, continuations, Null and empty
// text, and the faults it must name by line.
#include "record_file.h"

#include <gtest/gtest.h>

namespace {

using nvstore::parseRecordText;

TEST(RecordFile, ReadsRowsWithBlanksAndHyphensInNames) {
  const auto r = parseRecordText(
      "# a comment\n"
      "[Raga - Technical Information]\n"
      "Raga Index = 1\n"
      "Appropriate time = First quarter of the night\n"
      "\n"
      "[RagaNameList]\n"
      "Raga = Yaman\n",
      "x.rec");
  ASSERT_TRUE(r.errors.empty());
  ASSERT_EQ(r.rows.size(), 2u);
  EXPECT_EQ(r.rows[0].table, "Raga - Technical Information");
  EXPECT_EQ(r.rows[0].line, 2);
  EXPECT_EQ(r.rows[0].find("Appropriate time")->value, "First quarter of the night");
  EXPECT_EQ(r.rows[0].find("Appropriate time")->line, 4);
  EXPECT_EQ(r.rows[0].find("Thata"), nullptr);  // not given: Null
  EXPECT_EQ(r.rows[1].find("Raga")->value, "Yaman");
}

TEST(RecordFile, ContinuationJoinsWithExactlyOneBlank) {
  const auto r = parseRecordText(
      "[T]\n"
      "NotesPhrase = S R G   \n"
      "      m P ,\n"
      "\tD N S>\n"
      "Empty =\n"
      "   starts on the next line\n",
      "x.rec");
  ASSERT_TRUE(r.errors.empty());
  EXPECT_EQ(r.rows[0].find("NotesPhrase")->value, "S R G m P , D N S>");
  EXPECT_EQ(r.rows[0].find("Empty")->value, "starts on the next line");
}

TEST(RecordFile, TwoQuotesAreTheEmptyTextAndEqualsSignsStayInValues) {
  const auto r = parseRecordText("[T]\nA = \"\"\nB = x = y\n", "x.rec");
  ASSERT_TRUE(r.errors.empty());
  ASSERT_NE(r.rows[0].find("A"), nullptr);
  EXPECT_EQ(r.rows[0].find("A")->value, "");
  EXPECT_EQ(r.rows[0].find("B")->value, "x = y");
}

struct BadCase {
  const char* text;
  int line;
  const char* words;  // part of the message
};

TEST(RecordFile, FaultsNameTheirLine) {
  const BadCase cases[] = {
      {"A = 1\n", 1, "before the first"},
      {"[T]\nA = 1\nA = 2\n", 3, "twice"},
      {"[T]\nno equals sign\n", 2, "expected"},
      {"[T]\n= 3\n", 2, "missing column"},
      {"[T]\nA =\n", 2, "no value"},
      {"  S R\n", 1, "continuation"},
      {"[T]\nA = \"\"\n  more\n", 3, "cannot be continued"},
      {"[T\nA = 1\n", 1, "header"},
  };
  for (const BadCase& c : cases) {
    const auto r = parseRecordText(c.text, "f.rec");
    ASSERT_EQ(r.errors.size(), 1u) << c.text;
    EXPECT_EQ(r.errors[0].line, c.line) << c.text;
    EXPECT_NE(r.errors[0].text().find(c.words), std::string::npos) << r.errors[0].text();
    EXPECT_EQ(r.errors[0].text().rfind("f.rec:", 0), 0u);
  }
}

TEST(RecordFile, HeaderWithNoColumnsIsARowOfNulls) {
  const auto r = parseRecordText("[T]\n[U]\nA = 1\n", "x.rec");
  ASSERT_TRUE(r.errors.empty());
  ASSERT_EQ(r.rows.size(), 2u);
  EXPECT_TRUE(r.rows[0].fields.empty());
}

TEST(RecordFile, UnreadableFileIsOneError) {
  const auto r = nvstore::readRecordFile("/nonexistent/none.rec");
  ASSERT_EQ(r.errors.size(), 1u);
  EXPECT_TRUE(r.rows.empty());
}

}  // namespace
