// Theka tokens: where strokes fall in notes on and off the beat, the bols of
// Teentaal and Rupak from the library store with the cycle wrapping, the
// token list of stored compositions, and a composition file with its theka
// as long as its notes.
#include <gtest/gtest.h>

#include <string>

#include "core/errors.h"
#include "music_fixture.h"
#include "notation/durations.h"
#include "notation/tokenizer.h"
#include "platform/store.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"
#include "sound/theka_tokens.h"
#include "store/working_record_comp.h"

namespace {

using ThekaTest = MusicFileTest;

constexpr std::int16_t kTeentaal = 1, kRupak = 4, kThekaType = 4;

TEST(ThekaStrokes, EachNoteSaysHowManyStrokesBeginInItAndWhere) {
  struct Row {
    float position, duration;
    std::int16_t beats;
    const char* token;
    float next;
  } rows[] = {
      {0.0f, 1.0f, 16, "1/1/0", 1.0f},       // on the beat
      {0.0f, 2.0f, 16, "2/1/0", 2.0f},
      {0.0f, 1.5f, 16, "2/1/0", 1.5f},       // a part beat more holds one more stroke
      {1.5f, 1.0f, 16, "1/2/0.5", 2.5f},     // off the beat: the stroke half a beat in
      {1.5f, 1.5f, 16, "1/2/0.5", 3.0f},     // ends on a beat, which belongs to the next note
      {1.5f, 1.75f, 16, "2/2/0.5", 3.25f},
      {0.0f, 0.5f, 16, "1/1/0", 0.5f},       // short note on the beat
      {0.5f, 0.5f, 16, "0", 1.0f},           // short note inside a beat
      {0.75f, 0.5f, 16, "1/1/0.25", 1.25f},  // short note across a beat
      {15.0f, 2.0f, 16, "2/16/0", 1.0f},     // the cycle wraps
      {6.0f, 1.0f, 7, "1/7/0", 0.0f},
      {2.25f, 0.25f, 7, "0", 2.5f},
  };
  for (const Row& r : rows) {
    float p = r.position;
    EXPECT_EQ(fGetTalaStringForNote(p, r.duration, r.beats), r.token)
        << r.position << " + " << r.duration;
    EXPECT_FLOAT_EQ(p, r.next);
  }
}

TEST_F(ThekaTest, StrokesTakeTheBolsOfTheirBeatsAndWrapRoundTheCycle) {
  auto rs = gDbA->openRecordset("ThekaTypeBolsForTaal", platform::RecordsetType::Table);
  struct Row {
    const char* strokes;
    std::int16_t tala, beats;
    const char* theka;
  } rows[] = {
      {"0", kTeentaal, 16, "0"},
      {"1/1/0", kTeentaal, 16, "1/1/0"},
      {"4/9/0", kTeentaal, 16, "4/1/4/4/3/0"},
      {"2/16/0.5", kTeentaal, 16, "2/1/1/0.5"},  // beats 16 and 1
      {"1/4/0", kRupak, 7, "1/13/0"},
      {"3/6/0.5", kRupak, 7, "3/13/5/4/0.5"},  // beats 6, 7, 1
  };
  for (const Row& r : rows)
    EXPECT_EQ(fGetThekaStringForTalaString(r.strokes, r.tala, kThekaType, *rs, r.beats), r.theka)
        << r.strokes;
  // A theka type the store lacks gives rests.
  EXPECT_EQ(fGetThekaStringForTalaString("2/1/0", kRupak, 3, *rs, 7), "2/0/0/0");
  rs->close();
}

TEST_F(ThekaTest, ARupakLineGetsOneTokenPerNote) {
  EXPECT_EQ(fCreateThekaTokens("1 1 2 0.5 0.5 3", kRupak, 6, kThekaType, 7),
            "1/13/0 1/5/0 2/4/4/0 1/5/0 0 3/13/5/13/0");
}

TEST_F(ThekaTest, StoredTeentaalCompositionGetsATokenForEachNote) {
  gCurrPhraseKind = 8;
  sDBToTCompData(1, 101);  // Teentaal, both parts from beat 9
  gFormBeatCount = 16;
  const std::string asthai = fCreateTalaStringForCompFromT(1, kThekaType);
  const std::vector<std::string> tokens = fSplitWords(asthai, " ");
  EXPECT_EQ(tokens.size(), fSplitWords(gCompInfo[0].Notation, " ").size());
  // Each token of a whole-beat note holds as many strokes as the note has
  // beats, beginning with beat 9's bol.
  EXPECT_EQ(tokens[0], "1/1/0");
  EXPECT_EQ(tokens[2], "2/4/3/0") << "beats 11 and 12";
  EXPECT_EQ(fCreateTalaStringForCompFromT(2, kThekaType).substr(0, 5), "1/1/0");
  EXPECT_THROW(fCreateTalaStringForCompFromT(3, kThekaType), ErrorTrap);
}

TEST_F(ThekaTest, ACompositionWithItsThekaLastsAsLongAsItsNotes) {
  gCurrItemType = 6;
  gCurrPhraseKind = 8;
  gThekaMode = 1;
  sDBToTCompData(1, 1001);  // Rupak
  const CompPartRecord& part = gCompInfo[0];
  gFormBeatCount = 7;
  gBaseMatraMs = part.PlayingSpeed;
  sPlayOnePhrase(part.Notation, fConvertMatraToDuration(part.NotesDuration, part.PlayingSpeed));
  MusicBuffer& b = gMusicBuffers[0];
  b.Count = fCreateNotesList1(0);
  b.StartingBeat = part.StartingBeat;
  b.Theka = fCreateTalaStringForCompFromT(1, kThekaType);
  ASSERT_EQ(fPrepareToPlaySelection1(0), 1);
  EXPECT_EQ(gCompStartBeat, part.StartingBeat);
  EXPECT_NEAR(fWaveLengthMs(gWavA), b.TimesMs[static_cast<std::size_t>(b.Count)], 1.0);
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(ThekaTest, ATablaKitTheLibraryLacksFailsWithItsMessage) {
  gCurrItemType = 6;
  gCurrPhraseKind = 8;
  gThekaMode = 1;
  gFormBeatCount = 7;
  gBaseMatraMs = 30;
  sPlayOnePhrase("S R G", "30 30 30");
  MusicBuffer& b = gMusicBuffers[1];
  b.Count = fCreateNotesList1(1);
  b.StartingBeat = 1;
  b.Theka = "1/4/0 1/4/0 1/5/0";
  gThekaInstrument = 2;  // not the kit loaded at start
  EXPECT_EQ(fPrepareToPlaySelection1(1), 0);
  EXPECT_EQ(messageTexts(),
            (std::vector<std::string>{"Music File Generation Failed", "Error Preparing Music File"}));
  // With the theka switched off the same buffer builds without it.
  windows_.messages.clear();
  gThekaMode = 2;
  EXPECT_EQ(fPrepareToPlaySelection1(1), 1);
  EXPECT_TRUE(messageTexts().empty());
}

}  // namespace
