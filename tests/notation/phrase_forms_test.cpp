// Tests of the phrase forms: legality, colon and glide removal, display
// forms, the generation form, note codes and beat-marked composition text.
#include "notation/phrase_forms.h"

#include <gtest/gtest.h>

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
    gNotationScript = 2;
    gGraceNotes = 2;
    gCurrTonicNoteId = 3;
  }
};

TEST_F(PhraseForms, LegalPhrases) {
  struct Row {
    const char* phrase;
    bool legal;
  };
  const Row rows[] = {
      {"", true},
      {"S R G m P D N S> S> N D P m G R S", true},
      {" S> N n D d P M m G g R r S", true},  // the leading blank is harmless
      {"S R :G m", true},                    // segmented pakad
      {"S R : G", true},
      {"S , R", false},  // a comma word fails
      {"S R x", false},
      {"S'R'G", false},
  };
  for (const Row& r : rows) EXPECT_EQ(fIsLegalNotationPhrase(r.phrase, 2), r.legal) << r.phrase;
  EXPECT_TRUE(fIsColon(":"));
  EXPECT_FALSE(fIsColon(" :"));
}

TEST_F(PhraseForms, RemoveColons) {
  EXPECT_EQ(fRemoveColons("S R : G m"), "S R G m");
  EXPECT_EQ(fRemoveColons("  S R  "), "S R");
  EXPECT_EQ(fRemoveColons("S R :G m"), "S R G m");
  EXPECT_EQ(fRemoveColons(": S  R : : G :"), "S  R G");  // inner blanks stay
  EXPECT_EQ(fRemoveColons(":"), "");
}

TEST_F(PhraseForms, RemoveGlidesIsPositional) {
  EXPECT_EQ(fRemoveGlides("S R'G n<'S> P"), "S G S> P");
  EXPECT_EQ(fRemoveGlides("S , : G:"), "S , : :");
  EXPECT_EQ(fRemoveGlides("<"), "<");
  EXPECT_EQ(fRemoveGlides(""), "");
}

TEST_F(PhraseForms, DisplayForms) {
  EXPECT_EQ(fPrepareNotationDisplayString(" S  R'G "), "S   R'G");
  EXPECT_EQ(fPrepareNotationDevnagariString("S , R : G"), "saa     ro  :  ga");
  EXPECT_EQ(fPrepareNotationDevnagariString("S'R M> x"), "saa'ro ma\\M ");
  EXPECT_EQ(fPrepareNotationDisplayString(fPrepareNotationDevnagariString("S , R : G")),
            "saa   ro   :   ga");
}

TEST_F(PhraseForms, NotesForScript) {
  EXPECT_EQ(fPrepareNotesForScript("S'R G", 2, 2), "S'R G");
  EXPECT_EQ(fPrepareNotesForScript("S'R G", 2, 1), "R G");
  EXPECT_EQ(fPrepareNotesForScript("S'R G", 1, 1), "ro ga");
}

TEST_F(PhraseForms, GenerationFormAppliesTheTonic) {
  struct Row {
    const char* phrase;
    int tonic;
    const char* generation;
  };
  const Row rows[] = {
      {"S R G", 3, "12 14 16"}, {"S<", 3, "00"},     {"S'R", 3, "1214"},
      {"S R G", 5, "14 16 18"}, {"S'R", 5, "1416"},  {"S<", 1, "-02"},
      {"", 3, ""},              {"x", 5, "02"},      {"N> S'R'G", 12, "44 212325"},
  };
  for (const Row& r : rows)
    EXPECT_EQ(fConvertNotePhraseToMusicGenerationFormat(r.phrase, r.tonic), r.generation)
        << r.phrase << " at " << r.tonic;
  gCurrTonicNoteId = 2;
  EXPECT_EQ(fConvertNotePhraseToMusicGenerationFormat("S"), "11");
  EXPECT_EQ(fConvertDurPhraseToMusicGenerationFormat("2.5 25  0.33 x"), "25 250 3.3 0");
}

TEST_F(PhraseForms, IntegerNoteCodes) {
  EXPECT_EQ(fGetNoteCode("S"), 12);
  EXPECT_EQ(fGetNoteCode("S'R"), 1214);
  EXPECT_EQ(fGetNoteCode("r<'S"), 112);  // the leading zero is lost
  EXPECT_EQ(fGetNoteCode("x"), 0);
  const auto forgivenBefore = gIgnorableCount;
  EXPECT_EQ(fGetNoteCode("S'R'G"), 0);  // 121416 does not fit 16 bits
  EXPECT_EQ(gIgnorableCount - forgivenBefore, 1);
}

TEST_F(PhraseForms, BeatMarks) {
  std::string notes, ones, expected;
  for (int i = 1; i <= 34; ++i) {
    notes += "S ";
    ones += "1 ";
    expected += "   ";
    if (i == 1 || i == 17 || i == 33) expected += kBeatMarkEnglish;
    expected += "S";
  }
  EXPECT_EQ(fCreateBeatMarkedString(notes, ones, 16, 1, kBeatMarkEnglish), expected);
  EXPECT_EQ(fCreateBeatMarkedString("S R G", "1 1 1", 3, 2, kBeatMarkDevanagari),
            "   S   R   .1.G");
  // A word that jumps over beat 1 still marks the next word.
  EXPECT_EQ(fCreateBeatMarkedString("S R G", "2 2 1", 3, 1, "(1)"), "   (1)S   R   (1)G");
  EXPECT_EQ(fCreateBeatMarkedString("S R", "1", 4, 1, "(1)"), "   (1)S   R");  // missing length 0
  EXPECT_EQ(fCreateBeatMarkedString("", "", 16, 1, "(1)"), "");
}

}  // namespace
