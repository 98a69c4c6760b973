// The display in step with the sound: the notation box and the reed marks
// at each status step, the growing lead, grace notes, notes off the
// keyboard, and the composition grid's sounding cell.
#include <gtest/gtest.h>

#include "core/session.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "platform/screen.h"
#include "playback_harness.h"
#include "sound/music_buffers.h"
#include "sound/play_bols.h"
#include "sound/play_reeds.h"
#include "sound/play_state.h"

namespace {

using playbackstage::advance;
using playbackstage::markedReeds;
using playbackstage::preparePlaySet;
using playbackstage::reset;
using Marks = std::vector<std::pair<int, int>>;

constexpr int kRed = kSoundingReedColor;
constexpr int kPink = kGraceReedColor;

const MusicBuffer& sounding() { return gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)]; }

// Status ticks come every 20 ms from the start of play, so a note whose
// time is a multiple of 20 is reached exactly on its tick.
TEST(PlaybackMarks, EachNoteIsShownWhenThePositionReachesIt) {
  platform::Screen& form = reset();
  preparePlaySet({{"S R G", "50 50 50"}});
  playbackstage::startChain();
  EXPECT_EQ(markedReeds(form), (Marks{{12, kRed}})) << "the first note is marked at the start";

  struct Step {
    long advanceMs;
    int currNote;
    std::string box;
    Marks marks;
  } steps[] = {
      {480, 1, "", {{12, kRed}}},
      {20, 2, "   R", {{14, kRed}}},
      {480, 2, "   R", {{14, kRed}}},
      {20, 3, "   R   G", {{16, kRed}}},
      {400, 3, "   R   G", {{16, kRed}}},
  };
  for (const Step& step : steps) {
    advance(step.advanceMs);
    EXPECT_EQ(sounding().CurrNote, step.currNote) << "after " << step.advanceMs;
    EXPECT_EQ(form.control("cCurrentItem").text(), step.box);
    EXPECT_EQ(markedReeds(form), step.marks);
  }
}

TEST(PlaybackMarks, TheLeadGrowsWithEachNote) {
  reset();
  gDelayMO = 40;
  preparePlaySet({{"S R G P", "50 50 50 50"}});
  playbackstage::startChain();
  // Notes 2, 3 and 4 are due at 500 - 40, 1000 - 80 and 1500 - 120.
  advance(440);
  EXPECT_EQ(sounding().CurrNote, 1);
  advance(20);
  EXPECT_EQ(sounding().CurrNote, 2);
  advance(440);
  EXPECT_EQ(sounding().CurrNote, 2);
  advance(20);
  EXPECT_EQ(sounding().CurrNote, 3);
  advance(1380 - 920);
  EXPECT_EQ(sounding().CurrNote, 4);
}

TEST(PlaybackMarks, OneNotePerStatusStepSoShortNotesTrail) {
  reset();
  // Five notes of 10 ms: all are due before the first tick at 20 ms.
  preparePlaySet({{"S R G m P D", "1 1 1 1 1 100"}});
  playbackstage::startChain();
  advance(20);
  EXPECT_EQ(sounding().CurrNote, 2);
  advance(20);
  EXPECT_EQ(sounding().CurrNote, 3);
  advance(60);
  EXPECT_EQ(sounding().CurrNote, 6);
}

TEST(PlaybackMarks, GraceNotesMarkTheMainNoteRedAndTheGracePink) {
  platform::Screen& form = reset();
  gGraceNotes = 2;
  preparePlaySet({{"S'R G", "50 50"}});
  playbackstage::startChain();
  EXPECT_EQ(markedReeds(form), (Marks{{12, kPink}, {14, kRed}}));
  advance(500);
  EXPECT_EQ(markedReeds(form), (Marks{{16, kRed}})) << "both reeds of the grace pair restored";
}

TEST(PlaybackMarks, ThreeDigitGraceCodeMarksTheMainNoteOnly) {
  platform::Screen& form = reset();
  gGraceNotes = 2;
  // r< is note 01: the code 112 has lost its leading zero.
  preparePlaySet({{"r<'S", "50"}});
  ASSERT_EQ(gMusicBuffers[0].NoteCodes[0], 112);
  playbackstage::startChain();
  EXPECT_EQ(markedReeds(form), (Marks{{12, kRed}}));
}

TEST(PlaybackMarks, WithoutGraceNotesAGracePairIsNotMarked) {
  platform::Screen& form = reset();
  preparePlaySet({{"S'R", "50"}});
  playbackstage::startChain();
  EXPECT_TRUE(markedReeds(form).empty());
}

TEST(PlaybackMarks, NotesBelowTheKeyboardMakeNoMark) {
  platform::Screen& form = reset();
  gCurrTonicNoteId = 1;
  sUpdateReedLabelsAlt(form);  // reed = note + tonic - 3
  preparePlaySet({{"S< r< R< S", "50 50 50 50"}});
  playbackstage::startChain();
  EXPECT_TRUE(markedReeds(form).empty()) << "S< lies on reed -2";
  advance(1000);
  EXPECT_TRUE(markedReeds(form).empty()) << "R< lies on reed 0";
  advance(500);
  EXPECT_EQ(markedReeds(form), (Marks{{10, kRed}}));
}

TEST(PlaybackMarks, MarksFollowTheTonic) {
  platform::Screen& form = reset();
  gCurrTonicNoteId = 8;
  sUpdateReedLabelsAlt(form);
  preparePlaySet({{"S P", "50 50"}});
  playbackstage::startChain();
  EXPECT_EQ(markedReeds(form), (Marks{{17, kRed}}));
  advance(500);
  EXPECT_EQ(markedReeds(form), (Marks{{24, kRed}}));
}

TEST(PlaybackMarks, RestoringAnIndexOutsideTheBufferDoesNothing) {
  platform::Screen& form = reset();
  preparePlaySet({{"S R", "50 50"}});
  playbackstage::startChain();
  for (std::int16_t index : {-1, 2, 500}) sSetReedLabelColorToDefault(form, index);
  EXPECT_EQ(markedReeds(form), (Marks{{12, kRed}}));
  sSetReedLabelColorToDefault(form, 0);
  EXPECT_TRUE(markedReeds(form).empty());
}

TEST(PlaybackMarks, ToggleAndUnmarkSetTheLabelText) {
  platform::Screen& form = reset();
  preparePlaySet({{"S R G", "50 50 50"}});
  gCurrBuffer = 0;
  gMusicBuffers[0].CurrNote = 2;
  sToggleCurrKBNote(2, form);
  EXPECT_EQ(form.control("cL", 14).foreColor(), 0x0000FF);
  sUnMarkCurrentReeds(form);
  EXPECT_EQ(form.control("cL", 14).foreColor(), 0);
  EXPECT_EQ(gMusicBuffers[0].CurrNote, 3) << "left at the count";
}

TEST(PlaybackMarks, TheCompositionGridMarksTheSoundingBeat) {
  reset();
  preparePlaySet({{"S R", "50 50"}});
  platform::Screen& grid = platform::windowSystem().screen("PlayComposition1");
  grid.load();
  for (int cell = 1; cell < 8; ++cell) grid.loadElement("cNote", cell);
  gCurrBuffer = 0;
  gRowsPerCycle = 1;
  gFormBeatCount = 4;
  MusicBuffer& buffer = gMusicBuffers[0];
  buffer.FirstNotationCell = 1;
  buffer.StartingBeat = 2;  // note c sounds in cell c + 1
  auto colours = [&grid] {
    std::vector<int> c;
    for (int cell = 0; cell < 6; ++cell) c.push_back(grid.control("cNote", cell).backColor());
    return c;
  };
  constexpr int kCell = 0x8080FF;
  buffer.CurrNote = 1;
  sPlayCurrBol1Alt(grid);
  EXPECT_EQ(colours(), (std::vector<int>{kCell, kCell, kRed, kCell, kCell, kCell}));
  buffer.CurrNote = 3;
  sPlayCurrBol1Alt(grid);
  EXPECT_EQ(colours(), (std::vector<int>{kCell, kCell, kRed, kCell, kRed, kCell}))
      << "only the cell before the current one is restored";
  buffer.CurrNote = 4;
  sPlayCurrBol1Alt(grid);
  EXPECT_EQ(colours(), (std::vector<int>{kCell, kCell, kRed, kCell, kCell, kCell}))
      << "past the grid's last slot nothing more is marked";
}

}  // namespace
