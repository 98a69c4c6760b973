// Tests of the single-phrase rules of the content check.
#include "phrase_checks.h"

#include <gtest/gtest.h>

#include "note_words.h"

namespace {

using namespace contentcheck;

TEST(NoteWords, LegalWordsFollowTheVocabularyAndTheGracePairRule) {
  const std::pair<const char*, bool> cases[] = {
      {"S", true},     {"S<", true},   {"N>", true},    {"M", true},     {"r", true},
      {"S'R>", true},  {":S", true},   {"S:", true},    {"s", false},    {"Sa", false},
      {":S:", false},  {"S'R'G", false}, {"S'", false}, {"'S", false},   {"M<>", false},
      {"P<'S", true},  {",", false},   {":", false},
  };
  for (const auto& [word, legal] : cases) EXPECT_EQ(isLegalNoteWord(word), legal) << word;
}

TEST(NoteWords, IdsRunOverThreeOctaves) {
  for (const auto& [word, id] : {std::pair{"S<", 0}, {"S", 12}, {"M", 18}, {"N>", 35}, {"x", -1}})
    EXPECT_EQ(noteId(word), id) << word;
}

TEST(PhraseChecks, SeparatorsAreAllowedOnlyWhereTheFormHasThem) {
  EXPECT_EQ(firstIllegalWord("S R : G , m", Separators::ColonsAndCommas), "");
  EXPECT_EQ(firstIllegalWord("S R : G , m", Separators::Colons), ",");
  EXPECT_EQ(firstIllegalWord("S R : G", Separators::None), ":");
  EXPECT_EQ(firstIllegalWord("S R :G", Separators::None), ":G");
  EXPECT_EQ(firstIllegalWord("S R :G", Separators::Colons), "");
  EXPECT_EQ(firstIllegalWord("", Separators::None), "");
}

TEST(PhraseChecks, CountsMatchPhraseByPhrase) {
  EXPECT_EQ(countMismatch("S R : G , m P", "15 15 15 , 15 15"), "");
  EXPECT_EQ(countMismatch("", ""), "");
  EXPECT_EQ(countMismatch("S R : G , m P", "15 15 , 15 15 15"), "phrase 1: 3 notes but 2 durations");
  EXPECT_EQ(countMismatch("S R G", "15 15"), "3 notes but 2 durations");
  EXPECT_EQ(countMismatch("S , R", "15 15"), "2 phrases of notes but 1 phrase of durations");
}

TEST(PhraseChecks, PakadDurationsAreTakenSegmentBySegment) {
  EXPECT_EQ(pakadMismatch("S R :G m", "40 40 40 40"), "");
  EXPECT_EQ(pakadMismatch("S R : G m : P", "40 40 40"),
            "the durations run out in segment 2 (3 durations for 5 notes)");
  EXPECT_EQ(pakadMismatch("S", "40 40"), "1 duration left over after the last segment");
}

TEST(PhraseChecks, DurationsArePositiveNumbersAndWholeWhereAsked) {
  EXPECT_EQ(firstBadDuration("40 20 , 15", true, true), "");
  EXPECT_EQ(firstBadDuration("40 20 , 15", true, false), ",");
  EXPECT_EQ(firstBadDuration("1 0.5 0.25", false, false), "");
  EXPECT_EQ(firstBadDuration("1 0.5", true, false), "0.5");
  EXPECT_EQ(firstBadDuration("1 0", false, false), "0");
  EXPECT_EQ(firstBadDuration("1 1x", false, false), "1x");
  EXPECT_EQ(firstBadDuration("1 nan", false, false), "nan");
  EXPECT_DOUBLE_EQ(durationSum("1 0.5 0.25 2"), 3.75);
}

}  // namespace
