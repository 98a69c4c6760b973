// The display in step with the sound: the notation box and the reed marks
// at each status step, the growing lead, grace notes, notes off the
// keyboard, and the composition grid's sounding cell.
#include <gtest/gtest.h>

#include <cctype>

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
// time is a multiple of 20 is reached exactly on its tick. Each step
// advances the clock, then expects the sounding note and the reed marks.
struct Step {
  long advanceMs;
  int currNote;
  Marks marks;
};
struct MarkCase {
  const char* what;
  std::int16_t tonic, grace;  // grace 2: grace notes on
  int delayMs;
  std::string notes, durations;
  std::vector<Step> steps;  // the first at 0 ms: as the chain starts
};

const MarkCase kMarkCases[] = {
    {"each note when the position reaches it", 3, 1, 0, "S R G", "50 50 50",
     {{0, 1, {{12, kRed}}}, {480, 1, {{12, kRed}}}, {20, 2, {{14, kRed}}},
      {480, 2, {{14, kRed}}}, {20, 3, {{16, kRed}}}, {400, 3, {{16, kRed}}}}},
    // Notes 2, 3 and 4 are due at 500 - 40, 1000 - 80 and 1500 - 120.
    {"the lead grows with each note", 3, 1, 40, "S R G P", "50 50 50 50",
     {{440, 1, {{12, kRed}}}, {20, 2, {{14, kRed}}}, {440, 2, {{14, kRed}}},
      {20, 3, {{16, kRed}}}, {460, 4, {{19, kRed}}}}},
    // Five notes of 10 ms, all due before the first tick at 20 ms.
    {"one note per status step, so short notes trail", 3, 1, 0, "S R G m P D", "1 1 1 1 1 100",
     {{20, 2, {{14, kRed}}}, {20, 3, {{16, kRed}}}, {60, 6, {{21, kRed}}}}},
    {"a grace pair marks the main note red and the grace pink", 3, 2, 0, "S'R G", "50 50",
     {{0, 1, {{12, kPink}, {14, kRed}}}, {500, 2, {{16, kRed}}}}},
    // r< is note 01: the code 112 has lost its leading zero.
    {"a three-digit grace code marks the main note only", 3, 2, 0, "r<'S", "50",
     {{0, 1, {{12, kRed}}}}},
    {"without grace notes a grace pair is not marked", 3, 1, 0, "S'R", "50", {{0, 1, {}}}},
    // At tonic 1 reed = note - 2: S< lies on reed -2, R< on reed 0.
    {"notes below the keyboard make no mark", 1, 1, 0, "S< r< R< S", "50 50 50 50",
     {{0, 1, {}}, {1000, 3, {}}, {500, 4, {{10, kRed}}}}},
    {"marks follow the tonic", 8, 1, 0, "S P", "50 50",
     {{0, 1, {{17, kRed}}}, {500, 2, {{24, kRed}}}}},
};

class PlaybackMarks : public ::testing::TestWithParam<MarkCase> {};

TEST_P(PlaybackMarks, FollowTheSoundingNote) {
  const MarkCase& c = GetParam();
  platform::Screen& form = reset();
  gCurrTonicNoteId = c.tonic;
  gGraceNotes = c.grace;
  gDelayMO = static_cast<std::int16_t>(c.delayMs);
  sUpdateReedLabelsAlt(form);
  preparePlaySet({{c.notes, c.durations}});
  playbackstage::startChain();
  for (const Step& step : c.steps) {
    advance(step.advanceMs);
    EXPECT_EQ(sounding().CurrNote, step.currNote) << "after " << step.advanceMs;
    EXPECT_EQ(markedReeds(form), step.marks) << "after " << step.advanceMs;
  }
}

INSTANTIATE_TEST_SUITE_P(Phrases, PlaybackMarks, ::testing::ValuesIn(kMarkCases),
                         [](const ::testing::TestParamInfo<MarkCase>& param) {
                           std::string name;
                           for (const char* c = param.param.what; *c; ++c)
                             if (std::isalnum(static_cast<unsigned char>(*c))) name += *c;
                           return name;
                         });

// The notation box grows by one note with each step.
TEST(PlaybackBox, GrowsByOneNoteAtEachStep) {
  platform::Screen& form = reset();
  preparePlaySet({{"S R G", "50 50 50"}});
  playbackstage::startChain();
  const std::pair<long, const char*> steps[] = {{480, ""}, {20, "   R"}, {500, "   R   G"}};
  for (const auto& [ms, box] : steps) {
    advance(ms);
    EXPECT_EQ(form.control("cCurrentItem").text(), box);
  }
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
