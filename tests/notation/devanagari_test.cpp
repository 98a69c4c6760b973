// Tests of key-map notation to Unicode Devanagari and back.
#include "notation/devanagari.h"

#include <gtest/gtest.h>

#include "notation/phrase_forms.h"
#include "notation/vocabulary.h"

namespace {

class Devanagari : public ::testing::Test {
 protected:
  void SetUp() override { sInitScales(); }
};

TEST_F(Devanagari, SyllablesAndMarks) {
  const std::pair<const char*, const char*> rows[] = {
      // komal: line below; tivra: stroke above; lower: dot below the
      // consonant; upper: anusvara
      {"saa", "सा"},   {"ro\\", "रे\u0952"},   {"ma\\", "म\u0951"},   {"saa,", "स\u093Cा"},
      {"saaM", "सां"}, {"ro\\M", "रें\u0952"}, {"ma\\M", "मं\u0951"}, {"ina\\,", "न\u093Cि\u0952"},
      {"p", "प"},      {"Qa", "ध"},           {"ina", "नि"},
  };
  for (const auto& [keymap, unicode] : rows) {
    EXPECT_EQ(fKeymapToUnicode(keymap), unicode) << keymap;
    EXPECT_EQ(fUnicodeToKeymap(unicode), keymap) << keymap;
  }
}

TEST_F(Devanagari, WholeVocabularyRoundTrips) {
  for (std::size_t id = 0; id < kNoteCount; ++id) {
    const std::string& keymap = gNoteDev[id];
    const std::string unicode = fKeymapToUnicode(keymap);
    EXPECT_NE(unicode, keymap) << keymap;
    EXPECT_EQ(fUnicodeToKeymap(unicode), keymap) << keymap;
    for (std::size_t other = 0; other < id; ++other)
      EXPECT_NE(fKeymapToUnicode(gNoteDev[other]), unicode) << keymap;
  }
}

TEST_F(Devanagari, SeparatorsAndOtherTextSurvive) {
  const std::string texts[] = {
      // a grace pair, colon and blanks; a comma section break; a lower Sa
      // then a comma; a beat mark of a composition line; no notes at all
      "saa'ro   ga : ma\\", "saa , ro", "saa,,ro", ",saa", "   .1.saa   ro", "saa\\ sa Playing x", "",
      fPrepareNotationDisplayString(fPrepareNotationDevnagariString("S< r'R , g G : m M> P'd> D n N S>")),
  };
  for (const std::string& text : texts) EXPECT_EQ(fUnicodeToKeymap(fKeymapToUnicode(text)), text) << text;
  EXPECT_EQ(fKeymapToUnicode("saa\\ Qaa"), "saa\\ Qaa");
  EXPECT_EQ(fKeymapToUnicode("   .1.saa"), "   .1.सा");
}

TEST_F(Devanagari, TypedDevanagariBecomesKeymap) {
  const std::pair<const char*, const char*> rows[] = {
      {"स रि ग म प ध नी", "saa ro ga ma p Qa ina"},
      {"सा'रे : गा,मा", "saa'ro : ga,ma"},
      {"सा\u0323 नि\u0331 रे\u0307", "saa, ina\\ roM"},     // other dots and lines
      {"\u0931\u0947\u0952 \u0929\u093F", "ro\\, ina,"},  // composed forms (NFC) of the dot
      {"सा\u1CDD सँ", "saa, saaM"},                        // vedic dot below, candrabindu
      {"saa ro\\", "saa ro\\"},                           // key-map letters pass
  };
  for (const auto& [typed, keymap] : rows) EXPECT_EQ(fUnicodeToKeymap(typed), keymap) << typed;
}

TEST_F(Devanagari, MarksThatMakeNoNotePassThrough) {
  const char* texts[] = {
      // komal Sa, tivra Re, lower and upper at once, Ni without its vowel, a
      // vowel Re never takes, a conjunct, a mark twice, no note letters
      "सा\u0952", "रे\u0951", "स\u093Cां", "न", "रो", "स्व", "सा\u0952\u0952", "कल",
  };
  for (const char* text : texts) EXPECT_EQ(fUnicodeToKeymap(text), text) << text;
  EXPECT_EQ(fUnicodeToKeymap("\xE0\xA4"), "\xE0\xA4");  // cut-off UTF-8 passes byte by byte
  EXPECT_EQ(fUnicodeToKeymap("\xFF" "सा"), "\xFF" "saa");
}

}  // namespace
