// Filling a music buffer from the playlist: note codes of plain and grace
// words, durations and running times of stored phrases, phrases without
// durations, the beat grid of compositions, the text in both scripts, and
// bad cursors and buffers.
#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "core/errors.h"
#include "fake_screen.h"
#include "music_fixture.h"
#include "notation/durations.h"
#include "notation/phrase_forms.h"
#include "notation/tokenizer.h"
#include "sound/notes_list.h"
#include "sound/speed_factor.h"

namespace {

using Codes = std::vector<std::int16_t>;
using Ms = std::vector<std::int32_t>;
using NotesListTest = MusicFileTest;

// The arrays have bounds 0 to n; the entry past the last note stays 0.
Codes codesOf(const MusicBuffer& b) { return Codes(b.NoteCodes.begin(), b.NoteCodes.end() - 1); }
Ms durationsOf(const MusicBuffer& b) { return Ms(b.DurationsMs.begin(), b.DurationsMs.end() - 1); }

// Note codes of plain and grace words (the pieces joined into one code, a
// first piece losing its leading zero), durations in ms and running times.
// Without durations each note lasts a second, even for a composition
// outside Demo; notes past the last duration word get no time; only taans
// (kind 6) and film songs (kind 9) keep a decimal part, halves to even.
TEST_F(NotesListTest, CodesDurationsAndRunningTimes) {
  const struct {
    std::int16_t kind, mode;
    const char* notes;
    const char* durations;
    Codes codes;
    Ms durationsMs, timesMs;  // times {}: not checked
  } cases[] = {
      {1, 1, "N< R G M D N S>", "40 40 40 40 40 40 80", {11, 14, 16, 18, 21, 23, 24},
       {400, 400, 400, 400, 400, 400, 800}, {0, 400, 800, 1200, 1600, 2000, 2400, 3200}},
      {1, 1, "N<'R S D<'S R'G r<'S", "60 160 15 25 30", {1114, 12, 912, 1416, 112},
       {600, 1600, 150, 250, 300}, {0, 600, 2200, 2350, 2600, 2900}},
      {8, 3, "S R G", "", {12, 14, 16}, {1000, 1000, 1000}, {0, 1000, 2000, 3000}},
      {1, 1, "S R G", "50", {12, 14, 16}, {500, 0, 0}, {0, 500, 0, 0}},
      {6, 1, "S R G", "2.5 1.25 15", {12, 14, 16}, {25, 12, 150}, {}},
      {9, 1, "S R G", "0.26 7.5 3", {12, 14, 16}, {3, 75, 30}, {}},
      {1, 1, "S R G", "2.5 1.25 15", {12, 14, 16}, {20, 10, 150}, {}},
      {4, 1, "S R G", "2.9 0.5 15", {12, 14, 16}, {20, 0, 150}, {}},
      {8, 1, "S R G", "2.5 1.25 15", {12, 14, 16}, {20, 10, 150}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.notes) + " / " + c.durations);
    gCurrPhraseKind = c.kind;
    gCurrMode = c.mode;
    sPlayOnePhrase(c.notes, c.durations);
    ASSERT_EQ(fCreateNotesList1(1), static_cast<std::int16_t>(c.codes.size()));
    const MusicBuffer& b = gMusicBuffers[1];
    EXPECT_EQ(codesOf(b), c.codes);
    EXPECT_EQ(durationsOf(b), c.durationsMs);
    if (!c.timesMs.empty()) {
      EXPECT_EQ(b.TimesMs, c.timesMs);
    }
    EXPECT_EQ(b.CurrNote, 1);
    EXPECT_EQ(b.Script, 2);
    EXPECT_EQ(b.Text, c.notes);
    EXPECT_EQ(b.Count, 0) << "the caller stores the count";
  }
  EXPECT_EQ(fGetWord1(gMusicBuffers[1].Text, 3, gMusicBuffers[1].WordStarts,
                      gMusicBuffers[1].WordLengths), "G");
}

TEST_F(NotesListTest, ACompositionOutsideDemoIsTimedOnItsBeatGrid) {
  gCurrPhraseKind = 8;
  gBaseMatraMs = 33;
  gRowsPerCycle = 2;
  gFormBeatCount = 4;
  sPlayOnePhrase("S R G M", "66 33 33 132");
  for (std::int16_t mode : {2, 3}) {
    gCurrMode = mode;
    ASSERT_EQ(fCreateNotesList1(0), 4);
    // Slots 1 to 7 of the two rows at 330 ms; the last entry stays 0.
    EXPECT_EQ(gMusicBuffers[0].TimesMs, (Ms{0, 330, 660, 990, 1320, 1650, 1980, 2310, 0}));
    EXPECT_EQ(durationsOf(gMusicBuffers[0]), (Ms{660, 330, 330, 1320}));
  }
  gCurrMode = 1;  // Demo: per note
  ASSERT_EQ(fCreateNotesList1(0), 4);
  EXPECT_EQ(gMusicBuffers[0].TimesMs, (Ms{0, 660, 990, 1320, 2640}));
}

TEST_F(NotesListTest, TheGridRunsAtTheSlidersTempoRoundedAtEachSlot) {
  FakeScreen screen;
  gCurrForm = &screen;
  gSpeedFactors = {0, 5.0, 3.33, 2.5, 2.0, 1.67, 1.43, 1.25, 1.11, 1.0,
                   0.8, 0.67, 0.57, 0.5, 0.44, 0.4, 0.36, 0.33, 0};
  gCurrPhraseKind = 8;
  gCurrMode = 2;
  gBaseMatraMs = 33;
  gRowsPerCycle = 1;
  gFormBeatCount = 4;
  sPlayOnePhrase("S R G M", "33 33 33 33");
  struct Row {
    int slider;
    Ms times;
    int beatMs;
  } rows[] = {
      {9, {0, 330, 660, 990, 0}, 330},
      {13, {0, 165, 330, 495, 0}, 165},
      {5, {0, 551, 1102, 1653, 0}, 551},  // 551.1 a slot, rounded at every step
  };
  for (const Row& r : rows) {
    screen.control("cSlider").setValue(r.slider);
    ASSERT_EQ(fCreateNotesList1(0), 4);
    EXPECT_EQ(gMusicBuffers[0].TimesMs, r.times) << r.slider;
    EXPECT_EQ(fCurrBeatMs(), r.beatMs) << r.slider;
  }
  screen.control("cSlider").setValue(19);
  EXPECT_THROW(fCreateNotesList1(0), ErrorTrap);
  gCurrForm = nullptr;
}

TEST_F(NotesListTest, DevanagariTextKeepsOneWordPerNote) {
  gNotationScript = 1;
  sPlayOnePhrase("N<'R S G>", "30 30 30");
  ASSERT_EQ(fCreateNotesList1(0), 3);
  const MusicBuffer& b = gMusicBuffers[0];
  EXPECT_EQ(b.Script, 1);
  EXPECT_EQ(b.Text, fPrepareNotationDevnagariString("N<'R S G>"));
  EXPECT_EQ(fGetWord1(b.Text, 1, b.WordStarts, b.WordLengths), fGetDevForEng("N<'R"));
  EXPECT_EQ(fGetWord1(b.Text, 3, b.WordStarts, b.WordLengths), fGetDevnagariStringForNote("G>"));
  EXPECT_EQ(codesOf(b), (Codes{1114, 12, 28}));
}

TEST_F(NotesListTest, AScriptChangeReScriptsTheTwoPlayingBuffers) {
  sPlayOnePhrase("S R'G n<", "30 30 30");
  fCreateNotesList1(0);
  gPlaySet.NotePhrases[0] = "P D";
  fCreateNotesList1(2);
  gMusicBuffers[1] = {};
  gNotationScript = 1;
  sAdjustMDMStr();
  const MusicBuffer& b = gMusicBuffers[0];
  EXPECT_EQ(b.Script, 1);
  EXPECT_EQ(b.Text, fConvertFont("S R'G n<", 2));
  EXPECT_EQ(fGetWord1(b.Text, 2, b.WordStarts, b.WordLengths), fGetDevForEng("R'G"));
  EXPECT_TRUE(gMusicBuffers[1].Text.empty());
  EXPECT_EQ(gMusicBuffers[2].Text, "P D") << "buffer 2 is not re-scripted";
  gNotationScript = 2;
  sAdjustMDMStr();
  EXPECT_EQ(gMusicBuffers[0].Text, "S R'G n<");
}

TEST_F(NotesListTest, BadBuffersCursorsAndOverlongPhrasesAreRangeErrors) {
  sPlayOnePhrase("S R", "10 10");
  EXPECT_THROW(fCreateNotesList1(3), ErrorTrap);
  EXPECT_THROW(fCreateNotesList1(-1), ErrorTrap);
  gPlaySet.Position = 2;
  EXPECT_THROW(fCreateNotesList1(0), ErrorTrap);
  std::string words;
  for (int i = 0; i < 502; ++i) words += "S ";
  sPlayOnePhrase(words, "");
  EXPECT_THROW(fCreateNotesList1(0), ErrorTrap);
  sPlayOnePhrase(words.substr(2), "");
  EXPECT_EQ(fCreateNotesList1(0), 501);
}

}  // namespace
