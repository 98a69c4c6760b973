// Tests of the note vocabulary: the tables, look-ups, translation of words,
// legality of one word and the tonic names.
#include "notation/vocabulary.h"

#include <gtest/gtest.h>

#include "core/errors.h"
#include "core/session.h"

namespace {

class Vocabulary : public ::testing::Test {
 protected:
  void SetUp() override {
    sInitScales();
    gNotationScript = 2;
  }
};

TEST_F(Vocabulary, TablesHoldThreeOctavesInOrder) {
  const char* english[] = {"S", "r", "R", "g", "G", "m", "M", "P", "d", "D", "n", "N"};
  const char* devanagari[] = {"saa", "ro\\", "ro", "ga\\", "ga", "ma",
                              "ma\\", "p", "Qa\\", "Qa", "ina\\", "ina"};
  const char* octaveEng[] = {"<", "", ">"};
  const char* octaveDev[] = {",", "", "M"};
  for (int octave = 0; octave < 3; ++octave) {
    for (int degree = 0; degree < 12; ++degree) {
      const auto id = static_cast<std::size_t>(octave * 12 + degree);
      EXPECT_EQ(gNoteEng[id], std::string(english[degree]) + octaveEng[octave]) << id;
      EXPECT_EQ(gNoteDev[id], std::string(devanagari[degree]) + octaveDev[octave]) << id;
      EXPECT_EQ(std::stoi(gNoteFileNo[id]), static_cast<int>(id));
      EXPECT_EQ(gNoteFileNo[id].size(), 2u);
    }
  }
  EXPECT_EQ(gNoteEng[kMiddleSaId], "S");
  EXPECT_TRUE(gNoteEng[36].empty());
  EXPECT_EQ(gNoteDev[1], "ro\\,");  // the backslash is one literal character
  EXPECT_EQ(gNoteDev[1].size(), 4u);
}

TEST_F(Vocabulary, LookupsAreWholeAndCaseSensitive) {
  EXPECT_TRUE(fIsEnglishNote("S"));
  EXPECT_FALSE(fIsEnglishNote("s"));
  EXPECT_FALSE(fIsEnglishNote("S "));
  EXPECT_FALSE(fIsEnglishNote(""));  // the empty slot 36 is never searched
  EXPECT_TRUE(fIsDevnagriNote("ma\\"));
  EXPECT_FALSE(fIsDevnagriNote("ma\\\\"));
  EXPECT_EQ(fGetDevnagariStringForNote("m"), "ma");
  EXPECT_EQ(fGetDevnagariStringForNote("M"), "ma\\");
  EXPECT_EQ(fGetDevnagariStringForNote("X"), "");
  EXPECT_EQ(fGetFnameForNote("N>"), "35");
  EXPECT_EQ(fGetFnameForNote("r<"), "01");
  EXPECT_EQ(fGetFnameForNote("saa"), "");
}

TEST_F(Vocabulary, StringForNoteFollowsTheScript) {
  EXPECT_EQ(fGetStringForNote(24, 1), "saaM");
  EXPECT_EQ(fGetStringForNote(24, 2), "S>");
  EXPECT_EQ(fGetStringForNote(36, 2), "");
  EXPECT_EQ(fGetStringForNote(24, 0), "");
  EXPECT_THROW(fGetStringForNote(37, 2), ErrorTrap);
  EXPECT_THROW(fGetStringForNote(-1, 2), ErrorTrap);
}

TEST_F(Vocabulary, WordTranslation) {
  struct Row {
    const char* in;
    const char* dev;
  };
  const Row rows[] = {
      {"S'R", "saa'ro"}, {"S'X", "saa'"},  {"X'S", "'saa"},  {"S'R'G", "saa'roga"},
      {"n<", "ina\\,"},  {"'S", "saa"},    {"", ""},         {"s", ""},
  };
  for (const Row& r : rows) EXPECT_EQ(fGetDevForEng(r.in), r.dev) << r.in;
  EXPECT_EQ(fGetEngForDev("saa'ro\\M"), "S'r>");
  EXPECT_EQ(fGetEngForDev("S"), "");
  for (std::size_t id = 0; id < kNoteCount; ++id)
    EXPECT_EQ(fGetEngForDev(fGetDevForEng(gNoteEng[id])), gNoteEng[id]);
}

TEST_F(Vocabulary, LegalityOfOneWord) {
  struct Row {
    const char* word;
    bool legal;
  };
  const Row english[] = {
      {"S", true},   {":S", true},    {"S:", true},  {":S:", false}, {"S'R", true},
      {"S'R'G", false}, {"", true},   {":", true},   {"s", false},   {"S'x", false},
      {"::S", false}, {"S'", true},   {",", false},  {"saa", false},
  };
  for (const Row& r : english) EXPECT_EQ(fIsLegalNote(r.word, 2), r.legal) << r.word;
  EXPECT_TRUE(fIsLegalNote("saa'ro\\", 1));
  EXPECT_TRUE(fIsLegalNote(":ina,", 1));
  EXPECT_FALSE(fIsLegalNote("S", 1));
  // No script: no piece fails, but two apostrophes still do.
  EXPECT_TRUE(fIsLegalNote("anything", 0));
  EXPECT_FALSE(fIsLegalNote("a'b'c", 0));
}

TEST_F(Vocabulary, TonicNamesAndAbsoluteNumbers) {
  EXPECT_EQ(fGetTonicNoteName(1), "White-7 (B)");
  EXPECT_EQ(fGetTonicNoteName(5), "Black-2 (D#)");
  EXPECT_EQ(fGetTonicNoteName(12), "Black-5 (A#)");
  EXPECT_EQ(fGetTonicNoteName(0), "");
  EXPECT_EQ(fGetTonicNoteName(13), "");
  EXPECT_EQ(fGetAbsoluteNoteNumber(kMiddleSaId, kNeutralTonicId), 12);
  EXPECT_EQ(fGetAbsoluteNoteNumber(kMiddleSaId, 2), 11);
  EXPECT_EQ(fGetAbsoluteNoteNumber(0, 1), -2);
}

TEST_F(Vocabulary, ConvertFontWordByWord) {
  EXPECT_EQ(fConvertFont("S R G", 2), "saa ro ga");
  EXPECT_EQ(fConvertFont("saa ro\\ ina,", 1), "S r N<");
  EXPECT_EQ(fConvertFont("X S", 2), "saa");      // nothing at the start: no blank
  EXPECT_EQ(fConvertFont("S X R", 2), "saa  ro");  // in the middle the blank stays
  EXPECT_EQ(fConvertFont("S R", 3), "");
}

}  // namespace
