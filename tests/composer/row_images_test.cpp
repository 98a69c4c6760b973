// The composer's row images: cutting a phrase into rows of 20 slots, the
// slots inserted and deleted across rows, the rows combined back into the
// phrase, syllables spread over notes and gathered again, and layakari
// beats against stored units.
#include "composer/row_images.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Rows = std::vector<std::string>;

// "w1 w2 ... wn": n numbered words, so that every word's place shows.
std::string fNumbered(int first, int last) {
  std::string text;
  for (int i = first; i <= last; ++i) text += (text.empty() ? "" : " ") + std::to_string(i);
  return text;
}

TEST(RowImages, CutsIntoRowsOf20AndCombinesBackWithoutGaps) {
  const struct {
    const char* what;
    std::string phrase;
    Rows rows;
  } cases[] = {
      {"empty", "", {}},
      {"one short row", "S R , G", {"S R , G"}},
      {"runs of blanks are one separator", "  S   R  ", {"S R"}},
      {"exactly 20", fNumbered(1, 20), {fNumbered(1, 20)}},
      {"21 spills one word", fNumbered(1, 21), {fNumbered(1, 20), "21"}},
      {"45 words", fNumbered(1, 45), {fNumbered(1, 20), fNumbered(21, 40), fNumbered(41, 45)}},
  };
  for (const auto& c : cases) {
    Rows rows;
    sCreateRowImagesFromSource(c.phrase, rows);
    EXPECT_EQ(rows, c.rows) << c.what;
    EXPECT_EQ(fCombineRowImages(rows, static_cast<std::int16_t>(rows.size())), fEliminateUnderscores(c.phrase))
        << c.what << ": round trip";
  }
  Rows stale{"old row", "old row", "old row"};
  sCreateRowImagesFromSource("S R", stale);
  EXPECT_EQ(stale, (Rows{"S R", "", ""})) << "rows past the phrase are emptied, not left";
  EXPECT_EQ(fCombineRowImages({"S _ _ R", "_ _", "G _"}, 3), "S R G") << "gaps close up";
  EXPECT_EQ(fCombineRowImages({"_ _ _"}, 1), "") << "an all-blank row combines to nothing";
  EXPECT_EQ(fCombineRowImages({"S", "R"}, 1), "S") << "rows past the count are not read";
}

TEST(RowImages, InsertAndDeleteCarryWordsAcrossRows) {
  const struct {
    const char* what;
    bool insert;
    Rows before;
    std::int16_t row, position;
    Rows after;
    std::int16_t count;
  } cases[] = {
      {"insert in slot 20 of a full row carries the 20th word down", true,
       {fNumbered(1, 20)}, 1, 20, {fNumbered(1, 19) + " _", "20"}, 2},
      {"insert at the front of row 1 moves every row on", true,
       {fNumbered(1, 20), fNumbered(21, 40)}, 1, 1,
       {"_ " + fNumbered(1, 19), fNumbered(20, 39), "40"}, 3},
      {"insert past the last word appends the slot", true, {"S R"}, 1, 7, {"S R _"}, 1},
      {"delete in a one-row phrase leaves 19 words", false, {fNumbered(1, 20)}, 1, 5,
       {fNumbered(1, 4) + " " + fNumbered(6, 20)}, 1},
      {"delete pulls the next rows' words up", false, {fNumbered(1, 20), fNumbered(21, 25)}, 1, 1,
       {fNumbered(2, 21), fNumbered(22, 25)}, 2},
      {"delete in row 2 leaves row 1", false, {fNumbered(1, 20), fNumbered(21, 25)}, 2, 2,
       {fNumbered(1, 20), "21 23 24 25"}, 2},
      {"delete past the row's end changes nothing", false, {"S R"}, 1, 9, {"S R"}, 1},
  };
  for (const auto& c : cases) {
    Rows rows = c.before;
    std::int16_t count = static_cast<std::int16_t>(rows.size());
    if (c.insert)
      sInsertBlankSlotInRowImages(rows, count, c.row, c.position);
    else
      sDeleteSlotInRowImages(rows, count, c.row, c.position);
    EXPECT_EQ(rows, c.after) << c.what;
    EXPECT_EQ(count, c.count) << c.what;
  }
}

TEST(RowImages, SyllablesSpreadOverNotesAndGatheredBack) {
  // Syllables in beats over notes in beats; thirds written 0.33 and 0.67.
  const struct {
    const char* what;
    const char* syllables;
    const char* sylDurations;
    const char* noteDurations;
    const char* expanded;
  } cases[] = {
      {"one note a syllable", "ma na", "1 1", "1 1", "ma na"},
      {"a syllable held over two notes", "ma na", "2 1", "1 1 1", "ma _ na"},
      {"thirds add up to a beat", "ja ga", "1 1", "0.33 0.33 0.34 1", "ja _ _ ga"},
      {"syllables shorter than the notes run out", "a", "1", "1 1 1", "a _ _"},
      {"no syllables", "", "", "1 1", ""},
  };
  for (const auto& c : cases)
    EXPECT_EQ(fCreateExpandedSylString(c.syllables, c.sylDurations, c.noteDurations), c.expanded) << c.what;

  std::string combined;
  ASSERT_TRUE(fCombineSylDurations({"ma _ na _"}, {"1 0.5 1 _"}, 1, combined));
  EXPECT_EQ(combined, " 1.5 1") << "a note without a syllable lengthens the one before";
  ASSERT_TRUE(fCombineSylDurations({"ma _", "na"}, {"1 1", "2"}, 2, combined));
  EXPECT_EQ(combined, " 2 2") << "across rows";
  EXPECT_FALSE(fCombineSylDurations({"ma"}, {"1 1"}, 1, combined));
  EXPECT_EQ(combined, "");
}

TEST(RowImages, LayakariBeatsAgainstStoredUnits) {
  std::int16_t speed = 0;
  EXPECT_EQ(fConvertDurationToBeats("30 40 , 60 15", speed), "2 2.666667 , 4 1") << "the smallest value";
  EXPECT_EQ(speed, 15);
  EXPECT_EQ(fConvertDurationToBeats("40 40", speed), "1 1");
  EXPECT_EQ(speed, 40);
  EXPECT_EQ(fConvertBeatsToDuration("1 _ 0.5", 60), "60 30");
  EXPECT_EQ(fConvertBeatsToDuration("1 , 0.3333333 2.5", 60), "60 , 20 150") << "a third back to 20";
  EXPECT_EQ(fConvertBeatsToDuration("0.125", 20), "2") << "2.5 rounds half to even";
  const std::string beats = fConvertDurationToBeats("50 25 , 75", speed);
  EXPECT_EQ(fConvertBeatsToDuration(beats, speed), "50 25 , 75") << "round trip";
}

}  // namespace
