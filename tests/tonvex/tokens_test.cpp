// Parsing of note tokens, durations and theka tokens.
#include <gtest/gtest.h>

#include "tokens.h"

namespace {

using tonvex::parseDurationsMs;
using tonvex::parseNoteTokens;
using tonvex::parseThekaTokens;

TEST(TokensTest, NoteTokensAcceptPlainGraceAndDoubleBlanks) {
  const auto tokens = parseNoteTokens("12  1416 40 00 ");
  ASSERT_TRUE(tokens);
  ASSERT_EQ(tokens->size(), 4u);
  EXPECT_EQ((*tokens)[0].graceNote, -1);
  EXPECT_EQ((*tokens)[0].mainNote, 12);
  EXPECT_EQ((*tokens)[1].graceNote, 14);
  EXPECT_EQ((*tokens)[1].mainNote, 16);
  EXPECT_EQ((*tokens)[2].mainNote, 40);
  EXPECT_EQ((*tokens)[3].mainNote, 0);
}

TEST(TokensTest, BadNoteTokensAreRejected) {
  for (const char* bad : {"1", "123", "12345", "41", "4112", "1241", "ab", "12 x", "-2", "1.2"})
    EXPECT_FALSE(parseNoteTokens(bad)) << bad;
}

TEST(TokensTest, DurationsAreDecimalMilliseconds) {
  const auto values = parseDurationsMs("250  12.5 .5 1000");
  ASSERT_TRUE(values);
  EXPECT_EQ(*values, (std::vector<double>{250, 12.5, 0.5, 1000}));
  for (const char* bad : {"-5", "1e3", "1.2.3", "abc", ".", "+4", "12,5"})
    EXPECT_FALSE(parseDurationsMs(bad)) << bad;
}

TEST(TokensTest, ThekaTokens) {
  const auto tokens = parseThekaTokens("0 2/1/2/0 1/5/.5 3/16/0/17/0.333333");
  ASSERT_TRUE(tokens);
  ASSERT_EQ(tokens->size(), 4u);
  EXPECT_TRUE((*tokens)[0].bolIds.empty());
  EXPECT_EQ((*tokens)[1].bolIds, (std::vector<int>{1, 2}));
  EXPECT_DOUBLE_EQ((*tokens)[2].offsetBeats, 0.5);
  EXPECT_EQ((*tokens)[3].bolIds, (std::vector<int>{16, 0, 17}));
  EXPECT_NEAR((*tokens)[3].offsetBeats, 1.0 / 3, 1e-6);
}

TEST(TokensTest, BadThekaTokensAreRejected) {
  for (const char* bad : {"2/1/0", "1/21/0", "1/5/1.5", "x", "1//0", "0/0", "1/5/", "1/5/-1",
                          "3/1/2/0", "1/5/0/0"})
    EXPECT_FALSE(parseThekaTokens(bad)) << bad;
}

}  // namespace
