// Parsing of note tokens, durations and theka tokens, and the renderer's
// English note words and theka placement.
#include <gtest/gtest.h>

#include "english_notes.h"
#include "theka_tokens.h"
#include "tokens.h"

namespace {

using namespace tonvex_render;

TEST(TokensTest, NoteDurationAndThekaTokensParseOrAreRefused) {
  const auto notes = tonvex::parseNoteTokens("12  1416 40 00 ");
  ASSERT_TRUE(notes);
  std::vector<std::pair<int, int>> parsed;
  for (const auto& t : *notes) parsed.emplace_back(t.graceNote, t.mainNote);
  EXPECT_EQ(parsed, (std::vector<std::pair<int, int>>{{-1, 12}, {14, 16}, {-1, 40}, {-1, 0}}));
  for (const char* bad : {"1", "123", "12345", "41", "4112", "1241", "ab", "12 x", "-2", "1.2"})
    EXPECT_FALSE(tonvex::parseNoteTokens(bad)) << bad;
  EXPECT_EQ(tonvex::parseDurationsMs("250  12.5 .5 1000"), (std::vector<double>{250, 12.5, 0.5, 1000}));
  for (const char* bad : {"-5", "1e3", "1.2.3", "abc", ".", "+4", "12,5"})
    EXPECT_FALSE(tonvex::parseDurationsMs(bad)) << bad;
  const auto theka = tonvex::parseThekaTokens("0 2/1/2/0 1/5/.5 3/16/0/17/0.333333");
  ASSERT_TRUE(theka);
  ASSERT_EQ(theka->size(), 4u);
  EXPECT_TRUE((*theka)[0].bolIds.empty());
  EXPECT_EQ((*theka)[1].bolIds, (std::vector<int>{1, 2}));
  EXPECT_DOUBLE_EQ((*theka)[2].offsetBeats, 0.5);
  EXPECT_EQ((*theka)[3].bolIds, (std::vector<int>{16, 0, 17}));
  EXPECT_NEAR((*theka)[3].offsetBeats, 1.0 / 3, 1e-6);
  for (const char* bad : {"2/1/0", "1/21/0", "1/5/1.5", "x", "1//0", "0/0", "1/5/", "1/5/-1",
                          "3/1/2/0", "1/5/0/0"})
    EXPECT_FALSE(tonvex::parseThekaTokens(bad)) << bad;
}

TEST(EnglishNotesTest, WordsAndGenerationTokensFollowTheVocabularyAndTheTonic) {
  for (const char* bad : {"s", "p", "S<<", "X", "", "SR", "<", "S:"}) EXPECT_FALSE(englishNoteId(bad)) << bad;
  const std::tuple<const char*, int, const char*> cases[] = {  // token nullptr: none
      {"S", 3, "12"},     {"S", 5, "14"},   {"S'R", 3, "1214"},  {"S'R", 5, "1416"}, {"P<", 1, "05"},
      {"N>", 8, "40"},    {"S<", 1, nullptr}, {"N>", 12, nullptr}, {"S'X", 3, nullptr}, {"'S", 3, nullptr}};
  for (const auto& [word, tonic, token] : cases)
    EXPECT_EQ(generationToken(word, tonic).value_or("none"), token ? token : "none") << word << " " << tonic;
}

TEST(ThekaTokensTest, StrokesFallInTheNotesThatHoldThemOnTheTalasBeats) {
  const std::vector<int> teentaal = *builtInTheka("teentaal");
  using Tokens = std::vector<std::string>;
  EXPECT_EQ(thekaTokens({1000, 1000}, 500, teentaal, 1), (Tokens{"2/1/2/0", "2/2/1/0"}));
  EXPECT_EQ(thekaTokens({250, 500, 250}, 500, teentaal, 1), (Tokens{"1/1/0", "1/2/0.5", "0"}));
  EXPECT_EQ(thekaTokens({1000}, 500, teentaal, 16), (Tokens{"2/1/1/0"})) << "beat 16 wraps to 1";
  EXPECT_FALSE(builtInTheka("Teentaal")) << "names are as written";
}

}  // namespace
