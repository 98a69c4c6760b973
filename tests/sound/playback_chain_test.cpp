// The playing chain on a silent device with a virtual clock: the order of
// open, play, done, close and the next phrase, the next file built while
// one sounds, the end of a run reaching the controller, stopping, looping
// and the routing of the end of a file.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/session.h"
#include "platform/audio.h"
#include "playback_harness.h"
#include "sound/music_buffers.h"
#include "sound/play_buttons.h"
#include "sound/play_chain.h"
#include "sound/play_selection.h"
#include "sound/play_state.h"
#include "sound/play_stop.h"
#include "sound/playback.h"

namespace {

using playbackstage::advance;
using playbackstage::preparePlaySet;
using playbackstage::reset;
using playbackstage::stage;
using playbackstage::startChain;
using Files = std::vector<std::string>;
using Events = std::vector<std::int16_t>;

// Three notes of half a second: each phrase sounds 1500 ms.
const std::pair<std::string, std::string> kPhrase1{"S R G", "50 50 50"};
const std::pair<std::string, std::string> kPhrase2{"m P D", "50 50 50"};
const std::pair<std::string, std::string> kPhrase3{"N S> R>", "50 50 50"};
constexpr long kPhraseMs = 1500;
// Enough for the last status tick and the done notification.
constexpr long kSettleMs = 100;

platform::AudioDevice& mm() { return gCurrForm->control("cMM").device(); }

TEST(PlaybackChain, PlaysEachPhraseInTurnAndReportsTheEndOnce) {
  reset();
  preparePlaySet({kPhrase1, kPhrase2, kPhrase3});
  ASSERT_TRUE(startChain());
  EXPECT_EQ(stage().opened, (Files{"A.wav"}));
  EXPECT_EQ(mm().mode(), platform::kModePlaying);
  EXPECT_EQ(gFileOpened, 1);
  EXPECT_EQ(gCurrBuffer, 0);
  EXPECT_EQ(gPlaySet.Position, 2);

  advance(kPhraseMs - 10);
  EXPECT_EQ(stage().opened.size(), 1u) << "the first phrase is still sounding";
  advance(kSettleMs);
  EXPECT_EQ(stage().opened, (Files{"A.wav", "B.wav"}));
  EXPECT_EQ(gCurrBuffer, 1);
  EXPECT_EQ(gNotifyCode, platform::kNotifySuccessful);
  EXPECT_TRUE(stage().events.empty());

  advance(kPhraseMs);
  EXPECT_EQ(stage().opened, (Files{"A.wav", "B.wav", "A.wav"}));
  advance(kPhraseMs + kSettleMs);
  EXPECT_EQ(stage().events, (Events{kEventRangeEnded}));
  EXPECT_EQ(gPlaySet.Position, gPlaySet.FirstPhrase);
  EXPECT_NE(mm().mode(), platform::kModePlaying);

  advance(5000);
  EXPECT_EQ(stage().events.size(), 1u) << "nothing follows the end of the run";
  EXPECT_EQ(stage().opened.size(), 3u);
}

// Runs of the chain to their end: the files opened in turn, the buffers
// built while a file sounds, and the end of the run reported once, with the
// cursor back on the range's first phrase.
TEST(PlaybackChain, RunsOfTheChain) {
  const struct {
    const char* what;
    int phrases;
    std::int16_t first, last;
    std::int16_t prefetch;
    bool rotation;
    Files opened;
    std::vector<std::int16_t> builtWhilePlaying;
  } runs[] = {
      // phrase 3 reuses the first buffer; no phrase follows the last
      {"three phrases", 3, 1, 3, kPrefetchNext, true, {"A.wav", "B.wav", "A.wav"}, {1, 0}},
      {"the chosen range", 3, 2, 3, kPrefetchNext, true, {"B.wav", "A.wav"}, {0}},
      {"one phrase", 1, 1, 1, kPrefetchNext, true, {"A.wav"}, {}},
      {"without prefetch", 2, 1, 2, kPrefetchNone, true, {"A.wav", "B.wav"}, {}},
      {"a fixed buffer", 2, 1, 2, kPrefetchNone, false, {"A.wav", "A.wav"}, {}},
  };
  const std::pair<std::string, std::string> phrases[] = {kPhrase1, kPhrase2, kPhrase3};
  for (const auto& r : runs) {
    SCOPED_TRACE(r.what);
    reset();
    gPrefetchMode = r.prefetch;
    preparePlaySet({phrases, phrases + r.phrases}, r.first, r.last);
    gBufferRotation = r.rotation;
    if (!r.rotation) gCurrBuffer = 0;
    startChain();
    advance(r.phrases * (kPhraseMs + kSettleMs) + 5000);
    EXPECT_EQ(stage().opened, r.opened);
    std::vector<std::int16_t> built;
    for (const auto& b : stage().builds)
      if (b.whilePlaying) built.push_back(b.buffer);
    EXPECT_EQ(built, r.builtWhilePlaying);
    EXPECT_EQ(stage().events, (Events{kEventRangeEnded}));
    EXPECT_EQ(gPlaySet.Position, r.first);
  }
}

TEST(PlaybackChain, AFailedBuildStopsTheChainWithItsMessage) {
  reset();
  preparePlaySet({kPhrase1, kPhrase2, kPhrase3});
  startChain();
  stage().failBuildOfBuffer = 0;
  advance(kPhraseMs + kSettleMs);
  EXPECT_EQ(stage().messages, (std::vector<std::string>{"Error playing music phrases"}));
}

TEST(PlaybackChain, AFileTheDeviceRefusesEndsTheRunWithAMessage) {
  reset();
  preparePlaySet({kPhrase1, kPhrase2, kPhrase3});
  startChain();
  advance(700);  // B.wav is built by now; take it away before it is opened
  std::filesystem::remove(gWavFiles[1]);
  advance(kPhraseMs + kSettleMs);
  ASSERT_EQ(stage().messages.size(), 1u);
  EXPECT_EQ(stage().messages[0].rfind("Nadavik could not play the sound file '", 0), 0u);
  EXPECT_EQ(stage().events, (Events{kEventRangeEnded}));
  EXPECT_NE(mm().mode(), platform::kModePlaying);
}

TEST(PlaybackChain, StopEndsTheRunAndClearsTheBox) {
  platform::Screen& form = reset();
  preparePlaySet({kPhrase1, kPhrase2, kPhrase3});
  startChain();
  advance(700);
  form.control("cCurrentItem").setText("S   R");
  sStopMusicPhrases(form);
  EXPECT_NE(mm().mode(), platform::kModePlaying);
  EXPECT_EQ(form.control("cCurrentItem").text(), "");
  advance(kSettleMs);
  EXPECT_EQ(stage().events, (Events{kEventRangeEnded}));
  advance(5000);
  EXPECT_EQ(stage().opened, (Files{"A.wav"}));
}

TEST(PlaybackChain, StopCurrentGoesOnWithTheNextPhrase) {
  platform::Screen& form = reset();
  preparePlaySet({kPhrase1, kPhrase2});
  startChain();
  advance(700);
  EXPECT_FALSE(playbackstage::markedReeds(form).empty());
  sStopCurrentPhrase(form);
  EXPECT_TRUE(playbackstage::markedReeds(form).empty());
  advance(kSettleMs);
  EXPECT_EQ(stage().opened, (Files{"A.wav", "B.wav"}));
  EXPECT_TRUE(stage().events.empty());
}

TEST(PlaybackChain, LoopingStartsTheItemAgainUntilSwitchedOff) {
  reset();
  preparePlaySet({kPhrase1});
  gLooping = true;
  startChain();
  advance(kPhraseMs + kSettleMs);
  advance(kPhraseMs + kSettleMs);
  EXPECT_EQ(stage().opened, (Files{"A.wav", "A.wav", "A.wav"}));
  gLooping = false;
  advance(kPhraseMs + kSettleMs);
  advance(5000);
  EXPECT_EQ(stage().opened.size(), 3u);
  EXPECT_EQ(stage().events, (Events{kEventRangeEnded, kEventRangeEnded, kEventRangeEnded}));
}

TEST(PlaybackLoopingFile, RepeatsTheOpenFileWhileLoopingIsOn) {
  platform::Screen& form = reset();
  preparePlaySet({kPhrase1});
  gCallbackContext = kContextNone;
  int dones = 0;
  form.on("cMM", platform::EventKind::Done, [&dones](const platform::Event&) {
    ++dones;
    sPlayMusicFile1(gCurrMusicFile);
  });
  gLooping = true;
  gCurrMusicFile = gWavFiles[0];
  gFileOpened = 0;
  sPlayMusicFile1(gCurrMusicFile);
  advance(3 * (kPhraseMs + kSettleMs));
  EXPECT_EQ(dones, 3);
  EXPECT_EQ(mm().mode(), platform::kModePlaying);
  gLooping = false;
  advance(kPhraseMs + kSettleMs);
  EXPECT_NE(mm().mode(), platform::kModePlaying);
  EXPECT_EQ(mm().mode(), platform::kModeNotOpen);
  form.on("cMM", platform::EventKind::Done, [](const platform::Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
  });
}

Events gCompositionEvents;

TEST(PlaybackCallback, RoutesTheEndOfAFileByItsOwner) {
  reset();
  gPlayScreenProcedures.owners[kContextComposition] = [](std::int16_t event) {
    gCompositionEvents.push_back(event);
  };
  preparePlaySet({kPhrase1, kPhrase2});
  gCallbackContext = kContextComposition;
  sDoCallback();
  EXPECT_EQ(gCompositionEvents, (Events{kEventRangeEnded}));
  EXPECT_TRUE(stage().opened.empty());

  for (std::int16_t quiet : {kContextScaleShifting, kContextQuiz, kContextSampler, kContextNone}) {
    gCallbackContext = quiet;
    sDoCallback();
    EXPECT_TRUE(stage().opened.empty()) << "context " << quiet;
  }
  gCallbackContext = kContextMainOperations;
  sDoCallback();
  EXPECT_EQ(stage().opened, (Files{"A.wav"})) << "the main screen goes on with its chain";
  EXPECT_EQ(gCompositionEvents.size(), 1u);
}

// The synthesis library is not started here, so it makes no file.
TEST(PlaySelectedNote, AFailedFileIsToldAndNotPlayed) {
  reset();
  gCurrMusicFile = "";
  EXPECT_FALSE(fPlaySelectedNote(12, 500, 0));
  EXPECT_EQ(stage().messages, (std::vector<std::string>{"Error creating music file"}));
  EXPECT_EQ(gCurrMusicFile, "");
  EXPECT_NE(mm().mode(), platform::kModePlaying);
}

TEST(PlayButtons, EnableOnlyWhatSuitsTheState) {
  platform::Screen& form = reset();
  auto enabled = [&form](const char* name) { return form.control(name).enabled(); };
  sEnablePlayStartButtons();
  EXPECT_TRUE(enabled("cPlay") && enabled("cStartLoop") && enabled("cReturn"));
  EXPECT_FALSE(enabled("cStop") || enabled("cStopLoop"));
  gLooping = false;
  sEnablePlayStopButtons();
  EXPECT_FALSE(enabled("cPlay") || enabled("cStartLoop") || enabled("cReturn"));
  EXPECT_TRUE(enabled("cStop"));
  EXPECT_FALSE(enabled("cStopLoop"));
  gLooping = true;
  sEnablePlayStopButtons();
  EXPECT_FALSE(enabled("cStop"));
  EXPECT_TRUE(enabled("cStopLoop"));
  gLooping = false;
  sDisplayPlayControlButtons();
  for (const char* name : {"cPlay", "cStop", "cStartLoop", "cStopLoop"})
    EXPECT_TRUE(form.control(name).visible()) << name;
}

}  // namespace
