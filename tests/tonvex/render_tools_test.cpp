// The renderer's English note words and theka placement.
#include <gtest/gtest.h>

#include "english_notes.h"
#include "theka_tokens.h"

namespace {

using tonvex_render::builtInTheka;
using tonvex_render::englishNoteId;
using tonvex_render::generationToken;
using tonvex_render::thekaTokens;

TEST(EnglishNotesTest, VocabularyIsCaseAndOctaveSensitive) {
  const std::pair<const char*, int> known[] = {{"S<", 0}, {"r<", 1}, {"N<", 11}, {"S", 12},
                                               {"m", 17}, {"M", 18}, {"P", 19}, {"n", 22},
                                               {"S>", 24}, {"N>", 35}};
  for (const auto& [note, id] : known) EXPECT_EQ(englishNoteId(note), id) << note;
  for (const char* bad : {"s", "p", "S<<", "X", "", "SR", "<", "S:"})
    EXPECT_FALSE(englishNoteId(bad)) << bad;
}

TEST(EnglishNotesTest, GenerationTokensFollowTheTonic) {
  struct Case {
    const char* word;
    int tonic;
    const char* token;
  } const cases[] = {{"S", 3, "12"}, {"S", 5, "14"}, {"S'R", 3, "1214"}, {"S'R", 5, "1416"},
                     {"P<", 1, "05"}, {"N>", 8, "40"}};
  for (const Case& c : cases) EXPECT_EQ(generationToken(c.word, c.tonic), c.token) << c.word;
  // Below note 0 or above note 40, or an unknown piece of a pair.
  EXPECT_FALSE(generationToken("S<", 1));
  EXPECT_FALSE(generationToken("N>", 12));
  EXPECT_FALSE(generationToken("S'X", 3));
  EXPECT_FALSE(generationToken("'S", 3));
}

TEST(ThekaTokensTest, StrokesFallInTheNotesThatHoldThem) {
  const std::vector<int> teentaal = *builtInTheka("teentaal");
  EXPECT_EQ(thekaTokens({1000, 1000}, 500, teentaal, 1), (std::vector<std::string>{"2/1/2/0", "2/2/1/0"}));
  EXPECT_EQ(thekaTokens({250, 500, 250}, 500, teentaal, 1),
            (std::vector<std::string>{"1/1/0", "1/2/0.5", "0"}));
  // Starting on beat 16 the cycle wraps to beat 1.
  EXPECT_EQ(thekaTokens({1000}, 500, teentaal, 16), (std::vector<std::string>{"2/1/1/0"}));
}

TEST(ThekaTokensTest, BuiltInThekasHaveTheirTalasBeats) {
  const std::pair<const char*, size_t> talas[] = {{"teentaal", 16}, {"ektaal", 12}, {"jhaptaal", 10},
                                                  {"rupak", 7},     {"keherwa", 8}, {"dadra", 6}};
  for (const auto& [name, beats] : talas) EXPECT_EQ(builtInTheka(name)->size(), beats) << name;
  EXPECT_FALSE(builtInTheka("Teentaal"));
}

}  // namespace
