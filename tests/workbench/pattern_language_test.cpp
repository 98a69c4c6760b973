// The pattern language and its expansions, against offsets and phrases
// worked out by hand from the language's rules: the interpreter on the
// standard patterns and on text that is no pattern, the scale expansion in
// One Time, Series and Practice over the major scale and a five-note scale,
// the overshoot as a forgiven fault, and the raga ladders.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/session.h"
#include "../support/helpers.h"
#include "notation/vocabulary.h"
#include "workbench/pattern_expansion.h"
#include "workbench/pattern_language.h"
#include "workbench/scale_notes.h"

namespace {

using Offsets = std::vector<std::int32_t>;

Offsets upAndDown(int n) {
  Offsets o;
  for (int i = 0; i <= n; ++i) o.push_back(i);
  for (int i = n; i >= 0; --i) o.push_back(i);
  return o;
}

TEST(PatternLanguage, InterpretsTokensIntoOffsets) {
  const struct {
    std::string patternText;
    Offsets offsets;
  } rows[] = {
      {"BUC1", {0, 1}},
      {"BUC2", {0, 1, 2}},
      {"BUC7LDC7", upAndDown(7)},
      {"BUC14LDC14", upAndDown(14)},  // a 5-character token before a 4-character one
      {"BUJ2lDJ1", {0, 2, 1}},
      {"bUJ3", {3}},
      {"LDC2", {0, -1, -2}},         // a first "L" starts at the base
      {"BUC1LDC14", {0, 1, 1, 0, -1, -2, -3, -4, -5, -6, -7, -8, -9, -10, -11, -12, -13}},
      {"bUJ123", {123}},             // the last token reads its whole count
      {"BUC0", {0}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(fInterpretPattern(row.patternText), -1) << row.patternText;
    EXPECT_EQ(gPatternOffsets, row.offsets) << row.patternText;
  }
}

TEST(PatternLanguage, RefusesTextThatIsNoPattern) {
  const std::string refused[] = {
      "", "BUC", "XUC1", "BXC1", "BUX1", "buc1", "BUCx", "BUC1 ", "BUC-1", "BUC1.5",
      "BUC99999",                       // above 32767
      "\xe0\xa4\xb8\xe0\xa4\xbe BUC1",  // Devanagari
      "BUC1;LDC1", std::string(10000, 'B'),
      "BUC123BUC1",                     // "BUC12", then "3BUC1"
  };
  for (const std::string& patternText : refused) {
    EXPECT_EQ(fInterpretPattern(patternText), 0) << patternText.substr(0, 20);
    EXPECT_TRUE(gPatternOffsets.empty());
  }
  std::string long10000;
  for (int i = 0; i < 2500; ++i) long10000 += "BUC1";
  EXPECT_EQ(fInterpretPattern(long10000), -1);
  EXPECT_EQ(gPatternOffsets.size(), 5000u);
}

TEST(PatternLanguage, StandardPatternsFitTheScaleSize) {
  EXPECT_EQ(fStdPatternForScale(0, 0), "BUC5LDC5");
  EXPECT_EQ(fStdPatternForScale(1, 0), "BUC10LDC10");
  EXPECT_EQ(fStdPatternForScale(0, 1), "BUC6LDC6");
  EXPECT_EQ(fStdPatternForScale(1, 2), "BUC14LDC14");
  EXPECT_EQ(fStdPatternForScale(7, 0), "BUJ2lDJ1");
  int shuddha = 0;
  for (int id = 1; id <= 25; ++id) shuddha += fIsShuddha(id) ? 1 : 0;
  EXPECT_EQ(shuddha, 15);
  EXPECT_TRUE(fIsShuddha(6) && fIsShuddha(18) && !fIsShuddha(7) && !fIsShuddha(0));
}

class Expansion : public ::testing::Test {
 protected:
  void SetUp() override {
    sInitScales();
    gCurrMode = 2;
    gBaseNoteIndex = kPlaceOfSa;
  }
  std::string scale(const std::string& patternText, std::int32_t kind) {
    EXPECT_EQ(fInterpretPattern(patternText), -1) << patternText;
    gPatternKind = kind;
    sCreateScalePatternFromBP();
    return gSelPhrase;
  }
  void major() {
    sInitScaleNotes();
    sSetScaleNotesForMajorScale();
  }
};

TEST_F(Expansion, WalksTheMajorScale) {
  major();
  EXPECT_EQ(gSelNoteCount, 15);
  EXPECT_EQ(scale("BUC7", 1), "S R G m P D N S>");
  EXPECT_EQ(scale("BUC7", 2), "S R G m P D N S> S> N D P m G R S");  // one pass each way
  EXPECT_EQ(scale("BUC1", 2),
            "S R R G G m m P P D D N N S> S> N N D D P P m m G G R R S");
  EXPECT_EQ(gBasePhrase, "S R");
  EXPECT_EQ(scale("BUJ2lDJ1", 2),
            "S G R R m G G P m m D P P N D D S> N N R> S> "
            "S> D N N P D D m P P G m m R G G S R R N< S");
  gBaseNoteIndex = 0;
  EXPECT_EQ(scale("BUC14LDC14", 1),
            "P< D< N< S R G m P D N S> R> G> m> P> P> m> G> R> S> N D P m G R S N< D< P<");
  gBaseNoteIndex = kPlaceOfSa;
  gCurrMode = 3;
  EXPECT_EQ(scale("BUC2", 2).rfind("S R G : R G m : G m P :", 0), 0u);
}

TEST_F(Expansion, WalksAFiveNoteScale) {
  sSetScaleAndSelNotesForPhrase("S R G P D S>");
  EXPECT_EQ(gSelNoteCount, 11);
  EXPECT_EQ(scale(fStdPatternForScale(0, 0), 1), "S R G P D S> S> D P G R S");
  EXPECT_EQ(scale("BUC1", 2), "S R R G G P P D D S> S> D D P P G G R R S");
}

// The overshoot is run-time error 6: forgiven, logged to ignoerr.txt, and
// the phrase left empty for the controller to explain.
TEST_F(Expansion, OvershootIsAForgivenFaultWithNoPhrase) {
  const auto log = std::filesystem::path(gDataPath) / "ignoerr.txt";
  std::filesystem::remove(log);
  major();
  for (const char* patternText : {"BUC20", "BDC5", "bUJ300"}) {
    EXPECT_EQ(scale(patternText, 1), "") << patternText;
    EXPECT_EQ(scale(patternText, 2), "") << patternText;
  }
  sSetScaleAndSelNotesForPhrase("S R G m D S>");  // no P: no "P<" to start from
  gBaseNoteIndex = 0;
  EXPECT_EQ(scale("BUC10", 1), "");
  EXPECT_NE(fileText(log).find("6"), std::string::npos);
}

TEST_F(Expansion, StraightensAndAugmentsRagaPhrases) {
  EXPECT_EQ(fStraightenOutPhrase("S R G R G'R m", 1), "S R G'R m");  // a word's note: its first part
  EXPECT_EQ(fStraightenOutPhrase("S> N D N D'N P", -1), "S> N D'N P");
  EXPECT_EQ(fStraightenOutPhrase("N< S R> S>", 1), "N< S");  // R> tops the ladder and is left out
  std::int16_t head = 0;
  EXPECT_EQ(fPhraseWords(fAugmentRagaPhraseNotes("S R G m P D N S>", 1, head)),
            fPhraseWords("P< D< N< S R G m P D N S> R> G> m> P>"));
  EXPECT_EQ(head, 3);
  EXPECT_EQ(fPhraseWords(fAugmentRagaPhraseNotes("S> N D P G'm R S", 2, head)),
            fPhraseWords("P> G>'m> R> S> N D P G'm R S N< D< P<"));
  EXPECT_EQ(fAugmentRagaPhraseNotes("S R P>'P", 1, head), "");
  EXPECT_EQ(fAugmentRagaPhraseNotes("S N<'D", 1, head), "");
}

TEST_F(Expansion, WalksARagaLadder) {
  const std::string aroha = "S R G m P D N S>";
  const std::string avroha = "S> N D P m G R S";
  const std::string descent = "S> N N D D P P m m G G R R S";
  ASSERT_EQ(fInterpretPattern("BUC1"), -1);
  gPatternKind = 1;
  ASSERT_TRUE(fExpandRagaPattern(aroha, avroha));
  EXPECT_EQ(gSelPhrase, "S R " + descent);  // the descent runs to its end in One Time too
  EXPECT_EQ(gBasePhrase, "S R");
  gPatternKind = 2;
  ASSERT_TRUE(fExpandRagaPattern("S R'G m P D N S>", avroha));
  EXPECT_EQ(gSelPhrase, "S R'G G m m P P D D N N S> " + descent);  // R'G first in a pass: G
  ASSERT_EQ(fInterpretPattern("BUC3"), -1);
  EXPECT_FALSE(fExpandRagaPattern("S R P>'P", avroha));
  EXPECT_EQ(gSelPhrase, "");
  ASSERT_EQ(fInterpretPattern("BDC9"), -1);
  EXPECT_FALSE(fExpandRagaPattern(aroha, avroha));
}

}  // namespace
