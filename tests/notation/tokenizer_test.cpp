// Tests of the tokenizer and the text helpers.
#include "notation/tokenizer.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <tuple>

#include "core/error_state.h"
#include "core/errors.h"
#include "core/session.h"
#include "notation/text_utils.h"
#include "../support/helpers.h"

namespace {

std::string words(int n) {
  std::string text;
  for (int i = 0; i < n; ++i) text += "S ";
  return text;
}

constexpr auto faultOf = errorNumberOf<ErrorTrap>;

// Counts and positions; 501 words and no more, in the shared arrays, the
// caller's own (which leave the shared ones alone) and fSplitWords.
TEST(Tokenizer, CountsPositionsAndTheLimitOf501Words) {
  const std::tuple<const char*, const char*, int> rows[] = {
      {"", " ", 0},          {" ", " ", 0},      {"S  R ", " ", 2},  {"S", " ", 1}, {"  S R G  ", " ", 3},
      {"S R : G", ":", 2},   {"a::b", "::", 2},  {"abc", "", 1},     {"", "", 0},
  };
  for (const auto& [text, delimiter, count] : rows) EXPECT_EQ(fParseString(text, delimiter), count) << text;
  ASSERT_EQ(fParseString("S  R ", " "), 2);
  EXPECT_EQ(gParseStart[1], 4);
  EXPECT_EQ(gParseLen[1], 1);
  EXPECT_EQ(fGetWord("S  R ", 2), "R");
  EXPECT_EQ(fParseString(words(501), " "), 501);
  EXPECT_EQ(fGetWord(words(501), 501), "S");
  EXPECT_EQ(fSplitWords("S'R", "'"), (std::vector<std::string>{"S", "R"}));
  for (const auto& action : std::vector<std::function<void()>>{
           [] { fParseString(words(502), " "); }, [] { fGetWord("S", 0); }, [] { fGetWord("S", 502); },
           [] { fSplitWords(words(502), " "); }})
    EXPECT_EQ(faultOf(action), kErrSubscriptOutOfRange);

  fParseString("x y z", " ");
  std::array<std::int16_t, 3> starts{}, lengths{};
  EXPECT_EQ(fParseString1("ab cd", " ", starts, lengths), 2);
  EXPECT_EQ(fGetWord1("ab cd", 2, starts, lengths), "cd");
  EXPECT_EQ(gParseCount, 3);
  EXPECT_EQ(fGetWord("x y z", 3), "z");
  EXPECT_EQ(faultOf([&] { fParseString1("a b c d", " ", starts, lengths); }), kErrSubscriptOutOfRange);
  EXPECT_EQ(fGetWord1("ab", 2, starts, lengths), "");  // stale entry beyond the text: clipped
}

// Numbers read as the leading number; halves round to even; an overflow
// is a forgiven fault that gives 0.
TEST(TextUtils, NumbersRoundingAndOverflow) {
  const std::pair<const char*, double> rows[] = {{"25", 25}, {" 2.5", 2.5}, {"0.52x", 0.52}, {"-3", -3}, {"", 0},
                                                 {"abc", 0}, {".5", 0.5},   {"1e2", 100},    {"1e", 1},  {"+", 0}};
  for (const auto& [text, value] : rows) EXPECT_DOUBLE_EQ(fNumericValue(text), value) << text;
  for (auto [text, value] : {std::pair{"1214", 1214}, {"12a4", 12}, {"", 0}}) EXPECT_EQ(ZenvoVal(text), value);
  for (auto [x, text] : {std::pair{25.0, "25"}, {2.5, "2.5"}, {1.1 * 10, "11"}, {-0.0, "0"}})
    EXPECT_EQ(fFormatNumber(x), text);
  for (auto [x, n] : {std::pair{2.5, 2}, {3.5, 4}, {-2.5, -2}}) EXPECT_EQ(fRoundToInt16(x), n);
  const auto forgivenBefore = gIgnorableCount;
  EXPECT_EQ(fRoundToInt16(40000), 0);
  EXPECT_EQ(fNumericValue("1e999"), 0);
  EXPECT_EQ(ZenvoVal("99999999999"), 0);
  EXPECT_EQ(gIgnorableCount - forgivenBefore, 3);
  EXPECT_EQ(fPendingError().number, kErrOverflow);
}

}  // namespace
