// Tests of the phrase forms: colon and glide removal, display
// forms, the generation form, note codes and beat-marked composition text.
#include "notation/phrase_forms.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/errors.h"
#include "core/session.h"
#include "notation/beat_marks.h"
#include "notation/generation.h"
#include "notation/vocabulary.h"

namespace {

class PhraseForms : public ::testing::Test {
 protected:
  void SetUp() override {
    sInitScales();
    gCurrTonicNoteId = 3;
  }
};

// Each form of a phrase: colons and glides removed (glides by position),
// the display forms, the notes for a script and grace choice.
TEST_F(PhraseForms, FormsOfAPhrase) {
  const std::pair<std::string, std::string> rows[] = {
      {fRemoveColons("S R : G m"), "S R G m"},
      {fRemoveColons("  S R  "), "S R"},
      {fRemoveColons("S R :G m"), "S R G m"},
      {fRemoveColons(": S  R : : G :"), "S  R G"},  // inner blanks stay
      {fRemoveColons(":"), ""},
      {fRemoveGlides("S R'G n<'S> P"), "S G S> P"},
      {fRemoveGlides("S , : G:"), "S , : :"},
      {fRemoveGlides("<"), "<"},
      {fRemoveGlides(""), ""},
      {fPrepareNotationDisplayString(" S  R'G "), "S   R'G"},
      {fPrepareNotationDevnagariString("S , R : G"), "saa     ro  :  ga"},
      {fPrepareNotationDevnagariString("S'R M> x"), "saa'ro ma\\M "},
      {fPrepareNotationDisplayString(fPrepareNotationDevnagariString("S , R : G")), "saa   ro   :   ga"},
      {fPrepareNotesForScript("S'R G", 1, 1), "ro ga"},
      {fPrepareNotesForScript("S'R G", 1, 2), "saa'ro ga"},
  };
  for (const auto& [got, expected] : rows) EXPECT_EQ(got, expected);
}

TEST_F(PhraseForms, GenerationFormAppliesTheTonic) {
  const std::tuple<const char*, std::int16_t, const char*> rows[] = {
      {"S R G", 3, "12 14 16"}, {"S<", 3, "00"},    {"S'R", 3, "1214"},
      {"S R G", 5, "14 16 18"}, {"S'R", 5, "1416"}, {"S<", 1, "-02"},
      {"", 3, ""},              {"x", 5, "02"},     {"N> S'R'G", 12, "44 212325"},
  };
  for (const auto& [phrase, tonic, generation] : rows)
    EXPECT_EQ(fConvertNotePhraseToMusicGenerationFormat(phrase, tonic), generation) << phrase << " at " << tonic;
  gCurrTonicNoteId = 2;
  EXPECT_EQ(fConvertNotePhraseToMusicGenerationFormat("S"), "11");
  EXPECT_EQ(fConvertDurPhraseToMusicGenerationFormat("2.5 25  0.33 x"), "25 250 3.3 0");
}

TEST_F(PhraseForms, IntegerNoteCodes) {
  const std::pair<const char*, int> rows[] = {{"S", 12}, {"S'R", 1214}, {"r<'S", 112}, {"x", 0}};
  for (const auto& [word, code] : rows) EXPECT_EQ(fGetNoteCode(word), code) << word;  // r<'S: the zero is lost
  const auto forgivenBefore = gIgnorableCount;
  EXPECT_EQ(fGetNoteCode("S'R'G"), 0);  // 121416 does not fit 16 bits
  EXPECT_EQ(gIgnorableCount - forgivenBefore, 1);
}

TEST_F(PhraseForms, BeatMarks) {
  std::string notes, ones, expected;
  for (int i = 1; i <= 34; ++i) {
    notes += "S ";
    ones += "1 ";
    expected += std::string("   ") + (i % 16 == 1 ? kBeatMarkEnglish : "") + "S";
  }
  EXPECT_EQ(fCreateBeatMarkedString(notes, ones, 16, 1, kBeatMarkEnglish), expected);
  EXPECT_EQ(fCreateBeatMarkedString("S R G", "1 1 1", 3, 2, kBeatMarkDevanagari), "   S   R   .1.G");
  // A word that jumps over beat 1 still marks the next word.
  EXPECT_EQ(fCreateBeatMarkedString("S R G", "2 2 1", 3, 1, "(1)"), "   (1)S   R   (1)G");
  EXPECT_EQ(fCreateBeatMarkedString("S R", "1", 4, 1, "(1)"), "   (1)S   R");  // missing length 0
  EXPECT_EQ(fCreateBeatMarkedString("", "", 16, 1, "(1)"), "");
}

}  // namespace
