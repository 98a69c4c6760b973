// Parsing of note tokens, durations and theka tokens, and the renderer's
// English note words and theka placement.
#include <gtest/gtest.h>

#include <cctype>
#include <map>

#include "english_notes.h"
#include "record_file.h"
#include "render_args.h"
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

// The renderer knows every tala of the library, with the default kit's
// theka (type 4) beat for beat, under its name in lower case.
TEST(ThekaTokensTest, TheRendererPlaysEveryTalaOfTheLibraryAsItsThekaSays) {
  const nvstore::RecordFile talas = nvstore::readRecordFile(TONVEX_TALA_SOURCE);
  ASSERT_TRUE(talas.errors.empty());
  std::map<std::string, std::string> nameOf;           // tala id -> name in lower case
  std::map<std::string, std::map<int, int>> bolsOf;    // tala id -> beat -> bol
  for (const nvstore::Row& row : talas.rows) {
    if (row.table == "Tala - Technical Information") {
      std::string name = row.find("Tala Name")->value;
      for (char& c : name) c = char(std::tolower(static_cast<unsigned char>(c)));
      nameOf[row.find("Tala Id")->value] = name;
    } else if (row.table == "ThekaTypeBolsForTaal" && row.find("Theka Type Id")->value == "4") {
      bolsOf[row.find("Tala Id")->value][std::stoi(row.find("Tala Bol Id")->value)] =
          std::stoi(row.find("Theka Bol Id")->value);
    }
  }
  ASSERT_EQ(nameOf.size(), 12u);
  for (const auto& [id, name] : nameOf) {
    std::vector<int> bols;
    for (const auto& [beat, bol] : bolsOf[id]) bols.push_back(bol);
    EXPECT_EQ(builtInTheka(name).value_or(std::vector<int>{}), bols) << name;
  }
}

TEST(RenderArgsTest, EveryValueIsCheckedWhereItArrives) {
  using Words = std::vector<std::string>;
  const Words tala = {"-o", "a.wav", "--notes", "S", "--tala", "teentaal", "--kit", "clb.nvy"};
  auto with = [](Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
  };
  std::string hourAndMinute = "60000";
  for (int i = 0; i < 60; ++i) hourAndMinute += " 60000";
  const std::pair<Words, const char*> cases[] = {
      // Seen in the field: a beat of 0 or less never ended, at 100% CPU.
      {with(tala, {"--beat-ms", "0"}), "--beat-ms takes a whole number from 1 to 10000, not \"0\""},
      {with(tala, {"--beat-ms", "700ms"}), "--beat-ms takes"},
      {with(tala, {"--start-beat", "17"}), "--start-beat takes a whole number from 1 to 16"},
      {{"-o", "a.wav", "--notes", "S", "--tala", "teentaal"}, "--tala needs --kit"},
      {{"-o", "a.wav", "--tala", "tintal", "--kit", "clb.nvy"},
       "unknown tala \"tintal\"; --tala takes teentaal|ektaal|jhaptaal|rupak|keherwa|dadra|"
       "chautaal|jhoomra|tilwada|deepchandi|dhamar|sooltaal"},
      {{"-o", "a.wav", "--tonic", "13"}, "--tonic takes a whole number from 1 to 12"},
      {{"-o", "a.wav", "--durations", hourAndMinute},
       "the notes last 3660000 ms; a render lasts at most 3600000 ms (60 minutes)"},
      {{"-o", "a.wav", "--level", "nan"}, "--level takes a number from 0 to 1"},
      {{"-o", "a.wav", "--drone-factor", "2"}, "--drone-factor takes a number from 0.5 to 1.5"},
      {{"-o", "a.wav", "--drone", "sa"}, "--drone takes pa, ma, ni or none"},
      {{"-o", "a.wav", "--notes", "S R", "--durations", "500 1e300"}, "--durations takes"},
      {{"-o", "a.wav", "--drone-cycles", "0"}, "--drone-cycles takes a whole number from 1 to 100"},
      {{"-o", "a.wav", "--tonic"}, "--tonic needs a value"},
      {{"-o", "a.wav", "--bpm", "60"}, "unknown option \"--bpm\""},
      {{"--notes", "S"}, "-o names the wave file"},
      // Found by fuzzing: the library takes at most 64 strokes in one note.
      {with(tala, {"--beat-ms", "1"}), "--beat-ms 1 puts more than 64 theka strokes in a note of 1000 ms"},
      {with(tala, {"--beat-ms", "1", "--durations", "63", "--start-beat", "16", "--level", "1",
                   "--drone", "none"}), ""},
  };
  for (const auto& [words, problem] : cases) {
    RenderArgs args;
    const std::string answer = readRenderArgs(words, args);
    const std::string line = ::testing::PrintToString(words);
    if (*problem == '\0')
      EXPECT_EQ(answer, "") << line;
    else
      EXPECT_NE(answer.find(problem), std::string::npos) << line << " -> " << answer;
  }
}

}  // namespace
