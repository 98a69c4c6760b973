// Tests of the tokenizer and the text helpers.
#include "notation/tokenizer.h"

#include <gtest/gtest.h>

#include "core/error_state.h"
#include "core/errors.h"
#include "core/session.h"
#include "notation/text_utils.h"

namespace {

std::string repeatWord(const std::string& word, int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += word + " ";
  return text;
}

TEST(Tokenizer, CountsAndPositions) {
  struct Row {
    const char* text;
    const char* delimiter;
    int count;
  };
  const Row rows[] = {
      {"", " ", 0},       {" ", " ", 0},        {"S  R ", " ", 2}, {"S", " ", 1},
      {"  S R G  ", " ", 3}, {"S R : G", ":", 2}, {"a::b", "::", 2}, {"abc", "", 1},
      {"", "", 0},
  };
  for (const Row& r : rows) EXPECT_EQ(fParseString(r.text, r.delimiter), r.count) << r.text;

  ASSERT_EQ(fParseString("S  R ", " "), 2);
  EXPECT_EQ(gParseCount, 2);
  EXPECT_EQ(gParseStart[0], 1);
  EXPECT_EQ(gParseStart[1], 4);
  EXPECT_EQ(gParseLen[0], 1);
  EXPECT_EQ(gParseLen[1], 1);
  EXPECT_EQ(fGetWord("S  R ", 2), "R");
}

TEST(Tokenizer, FiveHundredAndOneWordsAndNoMore) {
  EXPECT_EQ(fParseString(repeatWord("S", 501), " "), 501);
  EXPECT_EQ(fGetWord(repeatWord("S", 501), 501), "S");
  try {
    fParseString(repeatWord("S", 502), " ");
    FAIL() << "the 502nd word must be a range error";
  } catch (const ErrorTrap& e) {
    EXPECT_EQ(e.number, kErrSubscriptOutOfRange);
  }
  EXPECT_THROW(fGetWord("S", 0), ErrorTrap);
  EXPECT_THROW(fGetWord("S", 502), ErrorTrap);
}

TEST(Tokenizer, CallersArraysLeaveTheSharedOnesAlone) {
  fParseString("x y z", " ");
  std::array<std::int16_t, 3> starts{};
  std::array<std::int16_t, 3> lengths{};
  EXPECT_EQ(fParseString1("ab cd", " ", starts, lengths), 2);
  EXPECT_EQ(fGetWord1("ab cd", 2, starts, lengths), "cd");
  EXPECT_EQ(gParseCount, 3);
  EXPECT_EQ(fGetWord("x y z", 3), "z");
  EXPECT_THROW(fParseString1("a b c d", " ", starts, lengths), ErrorTrap);  // undersized
  EXPECT_EQ(fGetWord1("ab", 2, starts, lengths), "");  // stale entry beyond the text: clipped
}

TEST(Tokenizer, SplitWordsKeepsTheLimit) {
  EXPECT_EQ(fSplitWords("S'R", "'"), (std::vector<std::string>{"S", "R"}));
  EXPECT_THROW(fSplitWords(repeatWord("S", 502), " "), ErrorTrap);
}

TEST(TextUtils, BlanksAndPadding) {
  EXPECT_EQ(fPackString(" S  R G "), "SRG");
  EXPECT_EQ(fFPack("abc", 2), "abc");
  EXPECT_EQ(fFPack("abc", 5), "  abc");
  EXPECT_EQ(fFPack("abc", -1), "abc");
  EXPECT_EQ(fRmvAllChar("S:R:G", ":"), "SRG");
  EXPECT_EQ(fRmvAllChar("SRG", ""), "SRG");
  EXPECT_EQ(fRmvLeadBlk("  S R "), "S R ");
  EXPECT_EQ(fRmvTrailBlk("  S R "), "  S R");
  EXPECT_EQ(fRmvLeadBlk("   "), "");
  EXPECT_EQ(fRmvTrailBlk("   "), "");
  EXPECT_EQ(fTruncateToActual(std::string("abc\0def", 7)), "abc");
  EXPECT_EQ(fTruncateToActual("abc"), "abc");
  EXPECT_EQ(fJoinWords({"a", "", "b"}, "-"), "a--b");
}

TEST(TextUtils, Numbers) {
  struct Row {
    const char* text;
    double value;
  };
  const Row rows[] = {{"25", 25},  {" 2.5", 2.5}, {"0.52x", 0.52}, {"-3", -3}, {"", 0},
                      {"abc", 0},  {".5", 0.5},   {"1e2", 100},    {"1e", 1},  {"+", 0}};
  for (const Row& r : rows) EXPECT_DOUBLE_EQ(fNumericValue(r.text), r.value) << r.text;
  EXPECT_EQ(ZenvoVal("1214"), 1214);
  EXPECT_EQ(ZenvoVal("12a4"), 12);
  EXPECT_EQ(ZenvoVal(""), 0);
  EXPECT_EQ(fFormatNumber(25), "25");
  EXPECT_EQ(fFormatNumber(2.5), "2.5");
  EXPECT_EQ(fFormatNumber(1.1 * 10), "11");
  EXPECT_EQ(fFormatNumber(-0.0), "0");
}

TEST(TextUtils, RoundingHalvesToEvenAndOverflowIsForgiven) {
  EXPECT_EQ(fRoundToInt16(2.5), 2);
  EXPECT_EQ(fRoundToInt16(3.5), 4);
  EXPECT_EQ(fRoundToInt16(-2.5), -2);
  const auto forgivenBefore = gIgnorableCount;
  EXPECT_EQ(fRoundToInt16(40000), 0);
  EXPECT_EQ(fNumericValue("1e999"), 0);
  EXPECT_EQ(ZenvoVal("99999999999"), 0);
  EXPECT_EQ(gIgnorableCount - forgivenBefore, 3);
  EXPECT_EQ(fPendingError().number, kErrOverflow);
}

}  // namespace
