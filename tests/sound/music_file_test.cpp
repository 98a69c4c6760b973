// From the playlist to wave files: music buffers filled from phrases (note
// codes, durations, running times, the beat grid, both scripts), generation
// tokens and lists, theka tokens from the store's bols, and files built for
// phrases and for stored compositions, as long as their buffers say, with
// the messages of each failure.
#include <QApplication>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/errors.h"
#include "core/session.h"
#include "notation/durations.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "platform/qt/qt_window_system.h"
#include "platform/store.h"
#include "sound/composition_files.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"
#include "sound/speed_factor.h"
#include "sound/theka_tokens.h"
#include "sound_test_support.h"
#include "store/working_record_comp.h"

namespace fs = std::filesystem;

namespace {

using Codes = std::vector<std::int16_t>;
using Ms = std::vector<std::int32_t>;
using MusicFileBuildTest = MusicFileTest;

constexpr std::int16_t kTeentaal = 1, kRupak = 4, kThekaType = 4;
const std::string kOutsideRange = "Error in creating current musical illustration. Note value outside range.";

// The arrays have bounds 0 to n; the entry past the last note stays 0.
Codes codesOf(const MusicBuffer& b) { return Codes(b.NoteCodes.begin(), b.NoteCodes.end() - 1); }
Ms durationsOf(const MusicBuffer& b) { return Ms(b.DurationsMs.begin(), b.DurationsMs.end() - 1); }
double lastTimeMs(const MusicBuffer& b) { return b.TimesMs[static_cast<std::size_t>(b.Count)]; }

// A screen with a tempo slider (MainOperations on the Qt backend, offscreen),
// for the beat grid's tempo. Qt's window system stands in for the test's
// recording one until the test puts that back.
platform::Screen& sliderScreen() {
  static int argc = 1;
  static char name[] = "music_file_test";
  static char* argv[] = {name, nullptr};
  static QApplication app(argc, argv);
  static platform::QtWindowSystem windows(NADAVIK_SCREENS_DIR);
  platform::setWindowSystem(&windows);
  platform::Screen& screen = windows.screen("MainOperations");
  if (!screen.loaded()) screen.load();
  return screen;
}

// Note codes of plain and grace words (the pieces joined into one code, a
// first piece losing its leading zero), durations in ms and running times.
// Without durations each note lasts a second, even for a composition
// outside Demo; notes past the last duration word get no time; only taans
// (kind 6) and film songs (kind 9) keep a decimal part, halves to even.
TEST_F(MusicFileBuildTest, BuffersHoldCodesDurationsAndRunningTimes) {
  const struct { std::int16_t kind, mode; const char *notes, *durations; Codes codes; Ms durationsMs, timesMs; }
      cases[] = {
      {1, 1, "N<'R S D<'S R'G r<'S", "60 160 15 25 30", {1114, 12, 912, 1416, 112},
       {600, 1600, 150, 250, 300}, {0, 600, 2200, 2350, 2600, 2900}},
      {8, 3, "S R G", "", {12, 14, 16}, {1000, 1000, 1000}, {0, 1000, 2000, 3000}},
      {1, 1, "S R G", "50", {12, 14, 16}, {500, 0, 0}, {0, 500, 0, 0}},
      {6, 1, "S R G", "2.5 1.25 15", {12, 14, 16}, {25, 12, 150}, {0, 25, 37, 187}},
      {9, 1, "S R G", "0.26 7.5 3", {12, 14, 16}, {3, 75, 30}, {0, 3, 78, 108}},
      {1, 1, "S R G", "2.5 1.25 15", {12, 14, 16}, {20, 10, 150}, {0, 20, 30, 180}},
      {4, 1, "S R G", "2.9 0.5 15", {12, 14, 16}, {20, 0, 150}, {0, 20, 20, 170}},
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
    EXPECT_EQ(b.TimesMs, c.timesMs);
    EXPECT_EQ(b.CurrNote, 1);
    EXPECT_EQ(b.Text, c.notes);
  }
}

// A composition outside Demo is timed on its beat grid, at the slider's
// tempo rounded at each slot; in Demo per note.
TEST_F(MusicFileBuildTest, ACompositionOutsideDemoIsTimedOnItsBeatGrid) {
  platform::Screen& screen = sliderScreen();
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
  gCurrMode = 1;
  ASSERT_EQ(fCreateNotesList1(0), 4);
  EXPECT_EQ(gMusicBuffers[0].TimesMs, (Ms{0, 660, 990, 1320, 2640}));
  gCurrForm = &screen;
  gCurrMode = 2;
  gRowsPerCycle = 1;
  sPlayOnePhrase("S R G M", "33 33 33 33");
  const struct { int slider; Ms times; int beatMs; } rows[] = {
      {9, {0, 330, 660, 990, 0}, 330},
      {13, {0, 165, 330, 495, 0}, 165},
      {5, {0, 551, 1102, 1653, 0}, 551},  // 551.1 a slot, rounded at every step
  };
  for (const auto& r : rows) {
    screen.control("cSlider").setValue(r.slider);
    ASSERT_EQ(fCreateNotesList1(0), 4);
    EXPECT_EQ(gMusicBuffers[0].TimesMs, r.times) << r.slider;
    EXPECT_EQ(fCurrBeatMs(), r.beatMs) << r.slider;
  }
  gCurrForm = nullptr;
  platform::setWindowSystem(&windows_);
}

// In Devanagari the text keeps one word per note; a change of script
// re-scripts the two playing buffers (0 and 1), not buffer 2.
TEST_F(MusicFileBuildTest, TheTextKeepsOneWordPerNoteInEitherScript) {
  gNotationScript = 1;
  sPlayOnePhrase("N<'R S G>", "30 30 30");
  ASSERT_EQ(fCreateNotesList1(0), 3);
  const MusicBuffer& b = gMusicBuffers[0];
  EXPECT_EQ(b.Script, 1);
  EXPECT_EQ(fGetWord1(b.Text, 1, b.WordStarts, b.WordLengths), fGetDevForEng("N<'R"));
  EXPECT_EQ(codesOf(b), (Codes{1114, 12, 28}));
  gPlaySet.NotePhrases[0] = "P D";
  fCreateNotesList1(2);
  const std::string buffer2 = gMusicBuffers[2].Text;
  gNotationScript = 2;
  sAdjustMDMStr();
  EXPECT_EQ(b.Text, "N<'R S G>");
  EXPECT_EQ(fGetWord1(b.Text, 3, b.WordStarts, b.WordLengths), "G>");
  EXPECT_TRUE(gMusicBuffers[1].Text.empty());
  EXPECT_EQ(gMusicBuffers[2].Script, 1);
  EXPECT_EQ(gMusicBuffers[2].Text, buffer2);
}

// Tokens at the tonic; grace notes are dropped from notes under 250 ms,
// tokens part by two blanks, and only the first count notes are taken; the
// three lowest notes are refused at any tonic, before a file is written.
TEST_F(MusicFileBuildTest, GenerationTokensAndListsAtTheTonic) {
  const struct { std::int16_t code, tonic; const char* token; } rows[] = {
      {12, 3, "12"}, {12, 5, "14"},     {10, 2, "09"},    {1214, 5, "1416"},
      {3, 1, "01"},  {112, 12, "1021"}, {999, 3, "0999"}, {35, 12, "44"}};
  for (const auto& r : rows) {
    gCurrTonicNoteId = r.tonic;
    EXPECT_EQ(fGetFnameForCurrTonicNote(r.code), r.token) << r.code << " at tonic " << r.tonic;
  }
  gCurrTonicNoteId = 3;
  GenerationLists lists;
  ASSERT_TRUE(fCreateGenerationLists({12, 1214, 1416, 1114, 14}, {500, 250, 251, 100, 300}, 5, lists));
  EXPECT_EQ(lists.notes, "12  14  1416  14  14");
  EXPECT_EQ(lists.durations, "500 250 251 100 300");
  ASSERT_TRUE(fCreateGenerationLists({12, 14}, {500, 300}, 1, lists));
  EXPECT_EQ(lists.notes + " / " + lists.durations, "12 / 500");
  for (std::int16_t tonic : {1, 3, 12})
    for (std::int16_t code : {0, 1, 2}) {
      gCurrTonicNoteId = tonic;
      EXPECT_FALSE(fCreateGenerationLists({12, code}, {400, 400}, 2, lists)) << tonic << " " << code;
    }
  EXPECT_EQ(messageTexts(), Messages(9, kOutsideRange));
  windows_.messages.clear();
  gCurrTonicNoteId = 3;
  gCurrBuildFile = gWavA;
  EXPECT_EQ(fCreateMusicFile({3, 2}, {400, 400}, 2), 0);
  EXPECT_FALSE(fs::exists(gWavA));
  EXPECT_EQ(fCreateMusicFile({3, 2}, {400, 400}, 1), 1);
  EXPECT_EQ(messageTexts(), Messages{kOutsideRange});
}

TEST_F(MusicFileBuildTest, EachFileLastsAsLongAsItsBufferWithinOneMillisecond) {
  const struct { const char *notes, *durations; std::int16_t tonic; } rows[] = {
      {"N< R G M G R N<'R S", "60 60 110 60 60 110 25 160", 3},  // grace notes
      {"S R'G G'M P", "11 25 26 33", 7},                         // a short grace note
      {"S R G", "", 12},                                         // no durations
      {"S R G M P D N S>", "7 13 17 19 23 29 31 37", 1},         // odd lengths
  };
  for (const auto& r : rows) {
    gCurrTonicNoteId = r.tonic;
    sPlayOnePhrase(r.notes, r.durations);
    for (std::size_t buffer : {0u, 1u, 2u}) {
      MusicBuffer& b = gMusicBuffers[buffer];
      b.Count = fCreateNotesList1(std::int16_t(buffer));
      ASSERT_EQ(fPrepareToPlaySelection1(std::int16_t(buffer)), 1) << r.notes;
      EXPECT_EQ(gCurrBuildFile, gWavFiles[buffer]);
      EXPECT_NEAR(fWaveLengthMs(gCurrBuildFile), lastTimeMs(b), 1.0) << r.notes;
    }
  }
  EXPECT_TRUE(messageTexts().empty());
}

// A drone mix the library does not know, or an unwritable folder, fails in
// the library: its message, then the preparation's. A stale file is
// deleted before the build, so a failure leaves none.
TEST_F(MusicFileBuildTest, ALibraryFailureShowsItsMessageThenThePreparationMessage) {
  for (const auto& [wavOption, file] :
       {std::pair<std::int16_t, std::string>{7, gWavA}, {1, (file("no such folder") / "A.wav").string()}}) {
    windows_.messages.clear();
    sPlayOnePhrase("S R G", "40 40 40");
    gMusicBuffers[0].Count = fCreateNotesList1(0);
    gWavOption = wavOption;
    gWavFiles[0] = file;
    std::ofstream(gWavA) << "stale";
    EXPECT_EQ(fPrepareToPlaySelection1(0), 0);
    EXPECT_EQ(messageTexts(), (Messages{"Error creating music file", "Error Preparing Music File"}));
    EXPECT_FALSE(fs::exists(file)) << file;
  }
}

TEST(ThekaStrokes, EachNoteSaysHowManyStrokesBeginInItAndWhere) {
  const struct { float position, duration; std::int16_t beats; const char* token; float next; } rows[] = {
      {0.0f, 1.0f, 16, "1/1/0", 1.0f},       // on the beat
      {0.0f, 1.5f, 16, "2/1/0", 1.5f},       // a part beat more holds one more stroke
      {1.5f, 1.0f, 16, "1/3/0.5", 2.5f},     // off the beat: the stroke half a beat in, on beat 3
      {1.5f, 1.5f, 16, "1/3/0.5", 3.0f},     // ends on a beat, which belongs to the next note
      {1.5f, 1.75f, 16, "2/3/0.5", 3.25f},
      {0.5f, 0.5f, 16, "0", 1.0f},           // short note inside a beat
      {0.75f, 0.5f, 16, "1/2/0.25", 1.25f},  // short note across a beat
      {0.5f, 1.5f, 16, "1/2/0.5", 2.0f},     // "0.5 1.5": the second note's stroke is beat 2's
      {15.0f, 2.0f, 16, "2/16/0", 1.0f},     // the cycle wraps
      {15.5f, 1.0f, 16, "1/1/0.5", 0.5f},    // the stroke after the cycle's last beat is beat 1's
      {6.0f, 1.0f, 7, "1/7/0", 0.0f},
  };
  for (const auto& r : rows) {
    float p = r.position;
    EXPECT_EQ(fGetTalaStringForNote(p, r.duration, r.beats), r.token) << r.position << " + " << r.duration;
    EXPECT_FLOAT_EQ(p, r.next);
  }
}

// Strokes take the bols of their beats from the store, wrapping round the
// cycle, a theka type the store lacks giving rests; a stored Teentaal
// composition, both parts from beat 9, gets a token per note.
TEST_F(MusicFileBuildTest, StrokesTakeTheBolsOfTheirBeats) {
  auto rs = gDbA->openRecordset("ThekaTypeBolsForTaal", platform::RecordsetType::Table);
  const struct { const char* strokes; std::int16_t tala, type, beats; const char* theka; } rows[] = {
      {"0", kTeentaal, kThekaType, 16, "0"},     {"4/9/0", kTeentaal, kThekaType, 16, "4/1/4/4/3/0"},
      {"2/16/0.5", kTeentaal, kThekaType, 16, "2/1/1/0.5"},  // beats 16 and 1
      {"3/6/0.5", kRupak, kThekaType, 7, "3/13/5/4/0.5"},    // beats 6, 7, 1
      {"2/1/0", kRupak, 3, 7, "2/0/0/0"}};
  for (const auto& r : rows)
    EXPECT_EQ(fGetThekaStringForTalaString(r.strokes, r.tala, r.type, *rs, r.beats), r.theka) << r.strokes;
  rs->close();
  EXPECT_EQ(fCreateThekaTokens("1 1 2 0.5 0.5 3", kRupak, 6, kThekaType, 7),
            "1/13/0 1/5/0 2/4/4/0 1/5/0 0 3/13/5/13/0");
  gCurrPhraseKind = 8;
  sDBToTCompData(1, 101);
  gFormBeatCount = 16;
  const std::vector<std::string> tokens = fSplitWords(fCreateTalaStringForCompFromT(1, kThekaType), " ");
  EXPECT_EQ(tokens.size(), fSplitWords(gCompInfo[0].Notation, " ").size());
  EXPECT_EQ(tokens[0], "1/1/0");
  EXPECT_EQ(tokens[2], "2/4/3/0") << "beats 11 and 12";
  EXPECT_EQ(fCreateTalaStringForCompFromT(2, kThekaType).substr(0, 5), "1/1/0");
  EXPECT_THROW(fCreateTalaStringForCompFromT(3, kThekaType), ErrorTrap);
}

// A stored composition: both parts into A.wav and B.wav, each as long as
// its buffer with the theka, the cursor back on the Asthai; a film song
// builds its one part; a failing Asthai stops before the Antara; a tabla
// kit the library lacks fails with its message, and the same buffer builds
// with the theka switched off.
TEST_F(MusicFileBuildTest, ACompositionBuildsItsPartsWithTheirTheka) {
  auto choose = [](std::int16_t kind) {
    gCurrItemType = 6;
    gCurrPhraseKind = kind;
    gThekaMode = kind == 8 ? 1 : 2;
    gFormBeatCount = 16;
    sDBToTCompData(1, 101);
  };
  choose(8);
  gWavOption = 2;
  ASSERT_EQ(fCreateCompositionMusicFilesFromT(), 1);
  EXPECT_EQ(gWavOption, 1);
  EXPECT_EQ(gPhraseSet.Position, 1);
  EXPECT_EQ(gPhraseSet.LastPhrase, 2);
  for (std::size_t i : {0u, 1u}) {
    EXPECT_EQ(gMusicBuffers[i].Count, std::int16_t(fSplitWords(gCompInfo[i].Notation, " ").size()));
    EXPECT_NEAR(fWaveLengthMs(gWavFiles[i]), lastTimeMs(gMusicBuffers[i]), 1.0) << i;
  }
  EXPECT_TRUE(messageTexts().empty());
  fs::remove(gWavA);
  fs::remove(gWavB);
  choose(9);
  ASSERT_EQ(fCreateCompositionMusicFilesFromT(), 1);
  EXPECT_TRUE(fs::exists(gWavA));
  EXPECT_FALSE(fs::exists(gWavB));
  EXPECT_EQ(gPhraseSet.LastPhrase, 1);
  choose(8);
  gCompInfo[0].Notation = "S< " + gCompInfo[0].Notation.substr(gCompInfo[0].Notation.find(' ') + 1);
  EXPECT_EQ(fCreateCompositionMusicFilesFromT(), 0);
  EXPECT_FALSE(fs::exists(gWavB));
  EXPECT_EQ(messageTexts(), (Messages{kOutsideRange, "Error Preparing Music File"}));
  windows_.messages.clear();
  gThekaInstrument = 2;  // not the kit loaded at start
  EXPECT_EQ(fPrepareToPlaySelection1(1), 0);
  EXPECT_EQ(messageTexts(), (Messages{"Music File Generation Failed", "Error Preparing Music File"}));
  windows_.messages.clear();
  gThekaMode = 2;
  EXPECT_EQ(fPrepareToPlaySelection1(1), 1);
  EXPECT_TRUE(messageTexts().empty());
}

}  // namespace
