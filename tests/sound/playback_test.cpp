// The playing chain on a silent device with a virtual clock: the files
// opened in turn with the next one built while one sounds, the end of a run
// reported once, failures, Stop and Stop Current, and the routing of the end
// of a file (a looping run is restarted by the screen's controller, checked
// on the exploration screen); the reed marks in step with the sound (the notation
// box growing with them is checked on the exploration screen); and an
// item's phrases taken from the working raga record.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "core/session.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "platform/audio.h"
#include "sound_test_support.h"
#include "sound/music_buffers.h"
#include "sound/phrase_loading.h"
#include "sound/play_bols.h"
#include "sound/play_chain.h"
#include "sound/play_selection.h"
#include "sound/play_state.h"
#include "sound/play_stop.h"
#include "sound/playback.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

namespace {

using namespace playbackstage;
using Files = std::vector<std::string>;
using Events = std::vector<std::int16_t>;
using Marks = std::vector<std::pair<int, int>>;
using Phrases = std::vector<std::string>;

// Three notes of half a second: each phrase sounds 1500 ms.
const std::pair<std::string, std::string> kPhrases[] = {
    {"S R G", "50 50 50"}, {"m P D", "50 50 50"}, {"N S> R>", "50 50 50"}};
constexpr long kPhraseMs = 1500;
constexpr long kSettleMs = 100;  // the last status tick and the done notification
constexpr int kRed = kSoundingReedColor;
constexpr int kPink = kGraceReedColor;

platform::AudioDevice& mm() { return gCurrForm->control("cMM").device(); }
bool playing() { return mm().mode() == platform::kModePlaying; }

// Runs of the chain to their end: the files opened in turn (the next only
// when one has ended), the buffers built while a file sounds, and the end
// of the run reported once, with the cursor back on the range's first.
TEST(PlaybackChain, RunsOfTheChain) {
  const struct { const char* what; int phrases; std::int16_t first, last, prefetch; bool rotation;
                 Files opened; std::vector<std::int16_t> builtWhilePlaying; } runs[] = {
      // phrase 3 reuses the first buffer; no phrase follows the last
      {"three phrases", 3, 1, 3, kPrefetchNext, true, {"A.wav", "B.wav", "A.wav"}, {1, 0}},
      {"the chosen range", 3, 2, 3, kPrefetchNext, true, {"B.wav", "A.wav"}, {0}},
      {"one phrase", 1, 1, 1, kPrefetchNext, true, {"A.wav"}, {}},
      {"without prefetch", 2, 1, 2, kPrefetchNone, true, {"A.wav", "B.wav"}, {}},
      {"a fixed buffer", 2, 1, 2, kPrefetchNone, false, {"A.wav", "A.wav"}, {}},
  };
  for (const auto& r : runs) {
    SCOPED_TRACE(r.what);
    reset();
    gPrefetchMode = r.prefetch;
    preparePlaySet({kPhrases, kPhrases + r.phrases}, r.first, r.last);
    gBufferRotation = r.rotation;
    if (!r.rotation) gCurrBuffer = 0;
    ASSERT_TRUE(startChain());
    EXPECT_TRUE(playing());
    advance(kPhraseMs - 10);
    EXPECT_EQ(stage().opened.size(), 1u) << "the first phrase is still sounding";
    advance(r.phrases * (kPhraseMs + kSettleMs) + 5000);
    EXPECT_EQ(stage().opened, r.opened);
    std::vector<std::int16_t> built;
    for (const auto& b : stage().builds)
      if (b.whilePlaying) built.push_back(b.buffer);
    EXPECT_EQ(built, r.builtWhilePlaying);
    EXPECT_EQ(stage().events, (Events{kEventRangeEnded}));
    EXPECT_EQ(gPlaySet.Position, r.first);
    EXPECT_FALSE(playing());
  }
}

// Something happens 700 ms into the first of the phrases; the run then
// plays out.
TEST(PlaybackChain, FailuresStopAndStopCurrent) {
  // opened {}: not checked; message: the start of the one message box, or "".
  const struct { const char* what; int phrases; std::function<void(platform::Screen&)> at700;
                 Files opened; Events events; std::string message; int badFile = -1; } cases[] = {
      {"a build fails", 3, [](platform::Screen&) { stage().failBuildOfBuffer = 0; },
       {}, {kEventRangeEnded}, "Error playing music phrases"},
      // It cannot be queued either, so it is opened, and refused, in turn.
      {"the device refuses the next file", 3, [](platform::Screen&) {},
       {"A.wav", "B.wav"}, {kEventRangeEnded}, "Nadavik could not play the sound file '", 1},
      {"Stop", 3,
       [](platform::Screen& form) {
         form.control("cCurrentItem").setText("S   R");
         sStopMusicPhrases(form);
         EXPECT_FALSE(playing());
         EXPECT_EQ(form.control("cCurrentItem").text(), "");
       },
       {"A.wav"}, {kEventRangeEnded}, ""},
      {"Stop Current", 2,
       [](platform::Screen& form) {
         EXPECT_FALSE(markedReeds(form).empty());
         sStopCurrentPhrase(form);
         EXPECT_TRUE(markedReeds(form).empty());
       },
       {"A.wav", "B.wav"}, {kEventRangeEnded}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    platform::Screen& form = reset();
    stage().badFileOfBuffer = c.badFile;
    preparePlaySet({kPhrases, kPhrases + c.phrases});
    startChain();
    advance(700);
    c.at700(form);
    advance(c.phrases * (kPhraseMs + kSettleMs) + 5000);
    if (!c.opened.empty()) { EXPECT_EQ(stage().opened, c.opened); }
    EXPECT_EQ(stage().events, c.events);
    ASSERT_EQ(stage().messages.size(), c.message.empty() ? 0u : 1u);
    if (!c.message.empty()) { EXPECT_EQ(stage().messages[0].rfind(c.message, 0), 0u); }
    EXPECT_FALSE(playing());
  }
}

// The end of a file goes to the screen that owns the playing: screens
// without a chain take nothing, the main screen goes on with its chain. A
// selected note the library cannot make (it is not started here) is told
// and not played.
TEST(PlaybackChain, TheEndOfAFileGoesToItsOwner) {
  reset();
  static Events composition;
  gPlayScreenProcedures.owners[kContextComposition] = [](std::int16_t e) { composition.push_back(e); };
  gCurrMusicFile = "";
  EXPECT_FALSE(fPlaySelectedNote(12, 500, 0));
  EXPECT_EQ(stage().messages, (std::vector<std::string>{"Error creating music file"}));
  EXPECT_EQ(gCurrMusicFile, "");
  EXPECT_FALSE(playing());
  preparePlaySet({kPhrases[0], kPhrases[1]});
  for (std::int16_t owner :
       {kContextComposition, kContextScaleShifting, kContextQuiz, kContextSampler, kContextNone}) {
    gCallbackContext = owner;
    sDoCallback();
  }
  EXPECT_EQ(composition, (Events{kEventRangeEnded}));
  EXPECT_TRUE(stage().opened.empty());
  gCallbackContext = kContextMainOperations;
  sDoCallback();
  EXPECT_EQ(stage().opened, (Files{"A.wav"}));
}

// While the exploration screen loops, the first phrase of the next repeat
// is built while the last of this one sounds and queued behind it, so that
// the repeats join like phrases and the drone runs on; with an odd number of phrases the next
// repeat runs on the other buffers, so that the build does not overwrite
// the phrase sounding. A run after Stop Loop starts on the first buffer.
TEST(PlaybackChain, ALoopingRunQueuesItsNextRepeatWhileTheLastPhraseSounds) {
  const struct { const char* what; int phrases; std::int16_t prefetch; Files shown; std::vector<std::int16_t> built; } cases[] = {
      // Built again for each repeat, so that the drone runs on in phase.
      {"one phrase built before the run (Learning)", 1, kPrefetchNone, {"A.wav", "B.wav", "A.wav"}, {1, 0, 1}},
      {"three phrases built as they sound (Practice)", 3, kPrefetchNext,
       {"A.wav", "B.wav", "A.wav", "B.wav", "A.wav", "B.wav", "A.wav"}, {1, 0, 1, 0, 1, 0, 1}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    platform::Screen& form = reset();
    const PlayOwnerController stageOwner = gPlayScreenProcedures.owners[kContextMainOperations];
    gPlayScreenProcedures.owners[kContextMainOperations] = [](std::int16_t event) {
      if (gLooping) startChain();  // as the screen's controller does
      else stage().events.push_back(event);
    };
    gPrefetchMode = c.prefetch;
    preparePlaySet({kPhrases, kPhrases + c.phrases});
    gLooping = true;
    startChain();
    advance(static_cast<long>(c.shown.size()) * kPhraseMs - kPhraseMs / 2);
    EXPECT_EQ(stage().opened, c.shown);
    std::vector<std::int16_t> built;
    for (const auto& b : stage().builds) {
      EXPECT_TRUE(b.whilePlaying);
      built.push_back(b.buffer);
    }
    EXPECT_EQ(built, c.built);
    gLooping = false;
    sStopMusicPhrases(form);
    advance(kSettleMs);
    EXPECT_EQ(stage().events, Events{kEventRangeEnded});
    EXPECT_TRUE(stage().messages.empty());
    stage().opened.clear();
    preparePlaySet({kPhrases, kPhrases + c.phrases});
    startChain();
    advance(kSettleMs);
    EXPECT_EQ(stage().opened, Files{"A.wav"});
    gPlayScreenProcedures.owners[kContextMainOperations] = stageOwner;
  }
}

// A single file whose done notification goes to sPlayMusicFile1, as on the
// screens that play one file, repeats while looping is on, then closes.
TEST(PlaybackChain, AFileOfItsOwnRepeatsWhileLoopingIsOn) {
  platform::Screen& form = reset();
  preparePlaySet({kPhrases[0]});
  gCallbackContext = kContextNone;
  int dones = 0;
  form.on("cMM", platform::EventKind::Done, [&dones](const platform::Event&) {
    ++dones, sPlayMusicFile1(gCurrMusicFile);
  });
  gLooping = true;
  gCurrMusicFile = gWavFiles[0];
  sPlayMusicFile1(gCurrMusicFile);
  advance(3 * (kPhraseMs + kSettleMs));
  EXPECT_EQ(dones, 3);
  EXPECT_TRUE(playing());
  gLooping = false;
  advance(kPhraseMs + kSettleMs);
  EXPECT_EQ(mm().mode(), platform::kModeNotOpen);
  form.on("cMM", platform::EventKind::Done, [](const platform::Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode), sPlayMusicFile(gCurrMusicFile);
  });
}

// Status ticks come every 20 ms from the start of play, so a note whose
// time is a multiple of 20 is reached exactly on its tick. The first note
// is marked only once the device has begun to sound it, at the first tick,
// not at Play. Each step advances the clock, then expects the sounding note
// and the reed marks.
struct Step { long advanceMs; int currNote; Marks marks; };
// grace 2: grace notes on; the first step at 0 ms: as the chain starts.
struct MarkCase { const char* what; std::int16_t tonic, grace; int delayMs; std::string notes, durations;
                  std::vector<Step> steps; };

const MarkCase kMarkCases[] = {
    {"each note when the position reaches it", 3, 1, 0, "S R G", "50 50 50",
     {{0, 1, {}}, {20, 1, {{12, kRed}}}, {460, 1, {{12, kRed}}}, {20, 2, {{14, kRed}}},
      {480, 2, {{14, kRed}}}, {20, 3, {{16, kRed}}}, {400, 3, {{16, kRed}}}}},
    // Notes 2, 3 and 4 are due at 500 - 40, 1000 - 80 and 1500 - 120.
    {"the lead grows with each note", 3, 1, 40, "S R G P", "50 50 50 50",
     {{440, 1, {{12, kRed}}}, {20, 2, {{14, kRed}}}, {440, 2, {{14, kRed}}},
      {20, 3, {{16, kRed}}}, {460, 4, {{19, kRed}}}}},
    // Five notes of 10 ms, all due before the first tick at 20 ms.
    {"one note per status step, so short notes trail", 3, 1, 0, "S R G m P D", "1 1 1 1 1 100",
     {{20, 2, {{14, kRed}}}, {20, 3, {{16, kRed}}}, {60, 6, {{21, kRed}}}}},
    {"a grace pair marks the main note red and the grace pink", 3, 2, 0, "S'R G", "50 50",
     {{0, 1, {}}, {20, 1, {{12, kPink}, {14, kRed}}}, {480, 2, {{16, kRed}}}}},
    {"without grace notes a grace pair is not marked", 3, 1, 0, "S'R", "50", {{0, 1, {}}}},
    // Marks follow the tonic: at tonic 1 reed = note - 2, S< on reed -2, R< on reed 0.
    {"notes below the keyboard make no mark", 1, 1, 0, "S< r< R< S", "50 50 50 50",
     {{0, 1, {}}, {1000, 3, {}}, {500, 4, {{10, kRed}}}}},
};

TEST(PlaybackMarks, FollowTheSoundingNote) {
  for (const MarkCase& c : kMarkCases) {
    SCOPED_TRACE(c.what);
    platform::Screen& form = reset();
    gCurrTonicNoteId = c.tonic;
    gGraceNotes = c.grace;
    gDelayMO = static_cast<std::int16_t>(c.delayMs);
    sUpdateReedLabelsAlt(form);
    preparePlaySet({{c.notes, c.durations}});
    startChain();
    for (const Step& step : c.steps) {
      advance(step.advanceMs);
      EXPECT_EQ(gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)].CurrNote, step.currNote) << step.advanceMs;
      EXPECT_EQ(markedReeds(form), step.marks) << "after " << step.advanceMs;
    }
  }
}

TEST(PlaybackMarksAndBox, TheCompositionGridMarksTheSoundingBeat) {
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
  constexpr int kCell = 0x8080FF;
  const struct { std::int16_t currNote; std::vector<int> colours; /* of cells 0 to 5 */ } steps[] = {
      {1, {kCell, kCell, kRed, kCell, kCell, kCell}},
      {3, {kCell, kCell, kRed, kCell, kRed, kCell}},   // only the cell before is restored
      {4, {kCell, kCell, kRed, kCell, kCell, kCell}},  // past the grid's last slot: no mark
  };
  for (const auto& s : steps) {
    buffer.CurrNote = s.currNote;
    sPlayCurrBol1Alt(grid);
    std::vector<int> colours;
    for (int cell = 0; cell < 6; ++cell) colours.push_back(grid.control("cNote", cell).backColor());
    EXPECT_EQ(colours, s.colours) << s.currNote;
  }
}

class PhraseLoading : public ::testing::Test {
 protected:
  void SetUp() override {
    reset();
    gTRaga = TRagaRecord{};
    gTRaga.ScaleNotes = {"S R G", "G R S"};
    gTRaga.ScaleDurations = {"10 10 10", "20 20 20"};
    gTRaga.PakadNotes = {"S'R G", "m G"};
    gTRaga.PakadDurations = {"30 30", "40 40"};
    gTRaga.PakadSegmentCount = 2;
    // Two alap (layakari, taan) phrases: the first of two segments, the second of one.
    for (std::int16_t type = 1; type <= 3; ++type)
      gTAlt[static_cast<std::size_t>(type - 1)] = {
          .RagaId = 1, .PhraseType = type, .PhraseCount = 2, .SegmentCount = 3, .PhraseFirstToken = {},
          .PhraseFirstSegment = {1, 3}, .PhraseSegments = {2, 1}, .SegmentNotes = {"S R'G", "m P", "D N S>"},
          .SegmentDurations = {"50 60", "70 80", "10 20 30"}};
    gTAlt[2].SegmentDurations = {"", "", ""};  // a taan has none
    gCurrDbSelector = 1;
  }
};

// The scale is one phrase with its own file (durations unsegmented even in
// the segmented text); the pakad loses its glides without grace notes; alap
// and layakari give one phrase each, the cursor left on the last and the
// prefetch left to the set-up; a taan gets even durations.
TEST_F(PhraseLoading, EachItemGivesItsPhrases) {
  // prefetch 0: not checked
  const struct { std::int16_t item, grace, text; Phrases notes, durations; std::int16_t prefetch; } cases[] = {
      {1, 2, kUnsegmentedText, {"S R G G R S"}, {"10 10 10 20 20 20"}, kPrefetchNone},
      {1, 2, kSegmentedText, {"S R G : G R S"}, {"10 10 10 20 20 20"}, kPrefetchNone},
      {2, 1, kUnsegmentedText, {"R G m G"}, {"30 30 40 40"}, 0},
      {3, 2, kUnsegmentedText, {"S R'G m P", "D N S>"}, {"50 60 70 80", "10 20 30"}, kPrefetchNext},
      {3, 2, kSegmentedText, {"S R'G : m P", "D N S>"}, {"50 60 70 80", "10 20 30"}, kPrefetchNext},
      {5, 1, kUnsegmentedText, {"S G m P", "D N S>"}, {"15 15 15 15 ", "15 15 15 "}, kPrefetchNext},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.notes.front());
    gCurrItemType = c.item;
    gGraceNotes = c.grace;
    gPrefetchMode = kPrefetchNext;
    sLoadMNFromT(c.text);
    EXPECT_EQ(gPhraseSet.Count, static_cast<std::int16_t>(c.notes.size()));
    EXPECT_EQ(gPhraseSet.Position, gPhraseSet.Count);
    EXPECT_EQ(gPhraseSet.NotePhrases, c.notes);
    EXPECT_EQ(gPhraseSet.DurPhrases, c.durations);
    if (c.item != 5) { EXPECT_EQ(gPhraseSet.BaseDurPhrases, gPhraseSet.DurPhrases); }
    if (c.prefetch) { EXPECT_EQ(gPrefetchMode, c.prefetch); }
  }
}

// A composition plays its two parts at their tempo; a comparison, and a
// film song's one part, keep their durations as stored.
TEST_F(PhraseLoading, ACompositionPlaysItsTwoPartsAtTheirTempo) {
  gCurrPhraseKind = 8;
  gCompInfo[0].Notation = "S R G";
  gCompInfo[0].NotesDuration = "1 0.5 2";
  gCompInfo[0].PlayingSpeed = 70;
  gCompInfo[1].Notation = "P D";
  gCompInfo[1].NotesDuration = "1 1";
  gCompInfo[1].PlayingSpeed = 50;
  const struct { std::int16_t item, kind; Phrases notes, durations; } cases[] = {
      {6, 8, {"S R G", "P D"}, {"70 35 140", "50 50"}},
      {7, 8, {"S R G", "P D"}, {"1 0.5 2", "1 1"}},
      {6, 9, {"S R G"}, {"1 0.5 2"}}};
  for (const auto& c : cases) {
    gCurrItemType = c.item;
    gCurrPhraseKind = c.kind;
    sLoadMNFromT(kUnsegmentedText);
    EXPECT_EQ(gPhraseSet.NotePhrases, c.notes) << c.item << " " << c.kind;
    EXPECT_EQ(gPhraseSet.DurPhrases, c.durations) << c.item << " " << c.kind;
  }
}

}  // namespace
