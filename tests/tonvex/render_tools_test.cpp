// The renderer's command line, English note words and theka placement.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "english_notes.h"
#include "render_args.h"
#include "theka_tokens.h"

namespace {

using tonvex_render::builtInTheka;
using tonvex_render::outputPathProblem;
using tonvex_render::readRenderArgs;
using tonvex_render::RenderArgs;
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

TEST(ThekaTokensTest, ABeatOfNoLengthPlacesNoStrokesInsteadOfRunningForever) {
  const std::vector<int> teentaal = *builtInTheka("teentaal");
  for (double beatMs : {0.0, -700.0})
    EXPECT_EQ(thekaTokens({500, 500}, beatMs, teentaal, 1), (std::vector<std::string>{"0", "0"}));
  EXPECT_EQ(thekaTokens({HUGE_VAL}, 500, teentaal, 1), (std::vector<std::string>{"0"}));
}

TEST(RenderArgsTest, EveryValueIsCheckedWhereItArrives) {
  using Words = std::vector<std::string>;
  const Words tala = {"-o", "a.wav", "--notes", "S", "--tala", "teentaal", "--kit", "clb.nvy"};
  auto with = [](Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
  };
  const std::pair<Words, const char*> cases[] = {
      // Seen in the field: a beat of 0 or less never ended, at 100% CPU.
      {with(tala, {"--beat-ms", "0"}), "--beat-ms takes a whole number from 1 to 10000, not \"0\""},
      {with(tala, {"--beat-ms", "-700"}), "--beat-ms takes a whole number from 1 to 10000"},
      {with(tala, {"--beat-ms", "700ms"}), "--beat-ms takes"},
      {with(tala, {"--start-beat", "17"}), "--start-beat takes a whole number from 1 to 16"},
      {{"-o", "a.wav", "--notes", "S", "--tala", "teentaal"}, "--tala needs --kit"},
      {{"-o", "a.wav", "--tala", "tintal", "--kit", "clb.nvy"}, "unknown tala"},
      {{"-o", "a.wav", "--tonic", "13"}, "--tonic takes a whole number from 1 to 12"},
      {{"-o", "a.wav", "--level", "nan"}, "--level takes a number from 0 to 1"},
      {{"-o", "a.wav", "--drone-factor", "2"}, "--drone-factor takes a number from 0.5 to 1.5"},
      {{"-o", "a.wav", "--drone", "sa"}, "--drone takes pa, ma, ni or none"},
      {{"-o", "a.wav", "--notes", "S R", "--durations", "500 1e300"}, "--durations takes"},
      {{"-o", "a.wav", "--drone-cycles", "0"}, "--drone-cycles takes a whole number from 1 to 100"},
      {{"-o", "a.wav", "--tonic"}, "--tonic needs a value"},
      {{"-o", "a.wav", "--bpm", "60"}, "unknown option \"--bpm\""},
      {{"--notes", "S"}, "-o names the wave file"},
      {with(tala, {"--beat-ms", "1", "--start-beat", "16", "--level", "1", "--drone", "none"}), ""},
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

TEST(RenderArgsTest, OnlyANewPathOrARegularFileIsWritten) {
  const auto dir = std::filesystem::temp_directory_path() /
                   ("tonvex-render-args-" + std::to_string(getpid()));
  std::filesystem::create_directories(dir);
  const std::string regular = (dir / "old.wav").string();
  std::ofstream(regular) << "old";
  EXPECT_EQ(outputPathProblem((dir / "new.wav").string()), "");
  EXPECT_EQ(outputPathProblem(regular), "");
  for (const std::string& refused : {std::string("/dev/full"), dir.string()})
    EXPECT_NE(outputPathProblem(refused).find("is not a regular file"), std::string::npos)
        << refused;
  std::filesystem::remove_all(dir);
}

TEST(ThekaTokensTest, BuiltInThekasHaveTheirTalasBeats) {
  const std::pair<const char*, size_t> talas[] = {{"teentaal", 16}, {"ektaal", 12}, {"jhaptaal", 10},
                                                  {"rupak", 7},     {"keherwa", 8}, {"dadra", 6}};
  for (const auto& [name, beats] : talas) EXPECT_EQ(builtInTheka(name)->size(), beats) << name;
  EXPECT_FALSE(builtInTheka("Teentaal"));
}

}  // namespace
