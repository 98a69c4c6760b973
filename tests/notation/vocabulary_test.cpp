// Tests of the note vocabulary: the tables, look-ups, translation of words,
// legality of one word and the tonic names.
#include "notation/vocabulary.h"

#include <gtest/gtest.h>

#include <tuple>

#include "core/errors.h"
#include "core/session.h"

namespace {

class Vocabulary : public ::testing::Test {
 protected:
  void SetUp() override { sInitScales(); }
};

// Look-ups are whole and case-sensitive; the empty slot 36 is never searched.
TEST_F(Vocabulary, LookupsAndStringsForNotes) {
  EXPECT_TRUE(fIsEnglishNote("S") && fIsDevnagriNote("ma\\"));
  for (const char* word : {"s", "S ", ""}) EXPECT_FALSE(fIsEnglishNote(word)) << word;
  EXPECT_FALSE(fIsDevnagriNote("ma\\\\"));
  const std::pair<const char*, const char*> devanagari[] = {{"m", "ma"}, {"M", "ma\\"}, {"X", ""}};
  for (const auto& [note, dev] : devanagari) EXPECT_EQ(fGetDevnagariStringForNote(note), dev);
  const std::pair<const char*, const char*> files[] = {{"N>", "35"}, {"r<", "01"}, {"saa", ""}};
  for (const auto& [note, file] : files) EXPECT_EQ(fGetFnameForNote(note), file);
}

TEST_F(Vocabulary, WordTranslation) {
  const std::pair<const char*, const char*> rows[] = {
      {"S'R", "saa'ro"}, {"S'X", "saa'"}, {"X'S", "'saa"}, {"S'R'G", "saa'roga"},
      {"n<", "ina\\,"},  {"'S", "saa"},   {"", ""},        {"s", ""},
  };
  for (const auto& [eng, dev] : rows) EXPECT_EQ(fGetDevForEng(eng), dev) << eng;
  EXPECT_EQ(fGetEngForDev("saa'ro\\M"), "S'r>");
  EXPECT_EQ(fGetEngForDev("S"), "");
  for (std::size_t id = 0; id < kNoteCount; ++id) EXPECT_EQ(fGetEngForDev(fGetDevForEng(gNoteEng[id])), gNoteEng[id]);
  const std::tuple<const char*, std::int16_t, const char*> texts[] = {
      {"S R G", 2, "saa ro ga"},
      {"saa ro\\ ina,", 1, "S r N<"},
      {"X S", 2, "saa"},        // nothing at the start: no blank
      {"S X R", 2, "saa  ro"},  // in the middle the blank stays
      {"S R", 3, ""},
  };
  for (const auto& [text, script, converted] : texts) EXPECT_EQ(fConvertFont(text, script), converted) << text;
}

TEST_F(Vocabulary, LegalityOfOneWord) {
  const std::tuple<std::string, std::int16_t, bool> rows[] = {
      {"S", 2, true},      {":S", 2, true},    {"S:", 2, true},    {":S:", 2, false},   {"S'R", 2, true},
      {"S'R'G", 2, false}, {"", 2, true},      {":", 2, true},     {"s", 2, false},     {"S'x", 2, false},
      {"::S", 2, false},   {"S'", 2, true},    {",", 2, false},    {"saa", 2, false},   {"saa'ro\\", 1, true},
      {":ina,", 1, true},  {"S", 1, false},
      // No script: no piece fails, but two apostrophes still do.
      {"anything", 0, true}, {"a'b'c", 0, false},
      // Beyond the tokenizer's 32767 characters nothing is split or judged.
      {std::string(32768, 'S'), 2, false}, {"S'" + std::string(40000, 'x'), 0, false},
  };
  for (const auto& [word, script, legal] : rows) EXPECT_EQ(fIsLegalNote(word, script), legal) << word.substr(0, 20);
}

TEST_F(Vocabulary, TonicNamesAndAbsoluteNumbers) {
  const std::pair<int, const char*> names[] = {
      {1, "White-7 (B)"}, {5, "Black-2 (D#)"}, {12, "Black-5 (A#)"}, {0, ""}, {13, ""}};
  for (const auto& [tonic, name] : names) EXPECT_EQ(fGetTonicNoteName(tonic), name);
  EXPECT_EQ(fGetAbsoluteNoteNumber(kMiddleSaId, kNeutralTonicId), 12);
  EXPECT_EQ(fGetAbsoluteNoteNumber(kMiddleSaId, 2), 11);
  EXPECT_EQ(fGetAbsoluteNoteNumber(0, 1), -2);
}

}  // namespace
