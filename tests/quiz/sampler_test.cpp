// The NVSampler screen in the whole program: pieces drawn from a seeded
// generator are of kinds the raga has, the screen says what plays and the
// file is as long as that piece; looping goes on after the pause of cTimer,
// and the two stops.
#include <map>
#include <regex>

#include "exploration/exploration_state.h"
#include "random_screen_fixture.h"
#include "sampler/sample_selection.h"
#include "sound/playback.h"

namespace {

class SamplerTest : public RandomScreenTest {
 protected:
  void SetUp() override { enter("cMnuUseMusSam", "NVSampler"); }
  void tick(const char* timer) { program.fire(name_, timer, platform::EventKind::Timer); }
  // Plays the piece out as the timers would: cTimer1 watches, cTimer pauses.
  void playOut() {
    runOut();
    tick("cTimer1");
    ASSERT_FALSE(ctl("cTimer1").enabled());
    ASSERT_TRUE(ctl("cTimer").enabled());
    EXPECT_EQ(ctl("cTimer").interval(), 300);
    tick("cTimer");
  }
  Names enabledButtons() {
    Names on;
    for (const char* b : {"cPlay", "cStop", "cStartLoop", "cStopLoop", "cReturn"})
      if (ctl(b).enabled()) on.push_back(b);
    return on;
  }
};

TEST_F(SamplerTest, EachPieceIsOfAKindTheRagaHasAndIsDescribedAsItPlays) {
  EXPECT_EQ(ctl("cPrompts").text().rfind(fGetPrompts("33") + " - ", 0), 0u);
  const struct {
    std::int16_t kind;
    std::regex description;
  } kinds[] = {
      {kSampleScale, std::regex("Playing Aroha and Avroha")},
      {kSamplePakad, std::regex("Playing Pakad")},
      {kSampleAlap, std::regex("Playing Alap No. [1-9][0-9]*")},
      {kSampleComposition, std::regex("Playing (Astai|Antara) of composition '.+' \\(without theka\\)")},
      {kSampleLayakari, std::regex("Playing Layakari pattern No. [1-9][0-9]*")},
      {kSampleTaan, std::regex("Playing Taan pattern No. [1-9][0-9]*")},
  };
  std::map<std::int16_t, int> drawn;
  for (int piece = 0; piece < 40; ++piece) {
    click("cPlay");
    ASSERT_TRUE(playing()) << piece;
    EXPECT_EQ(enabledButtons(), Names{"cStop"});
    EXPECT_GT(gSampleItemCounts[static_cast<std::size_t>(gSampleKind)], 0);
    EXPECT_GE(gSampleItem, 1);
    EXPECT_LE(gSampleItem, gSampleItemCounts[static_cast<std::size_t>(gSampleKind)]);
    EXPECT_EQ(ctl("cRaga").text(), fGetRagaName(gCurrRagaId));
    ++drawn[gSampleKind];
    for (const auto& k : kinds) {
      if (k.kind == gSampleKind) {
        EXPECT_TRUE(std::regex_match(ctl("cDesc").text(), k.description)) << ctl("cDesc").text();
      }
    }
    EXPECT_NEAR(ctl("cMM").device().length(), phraseMs(gSelDurPhrase), 250) << ctl("cDesc").text();
    playOut();
    EXPECT_EQ(enabledButtons(), (Names{"cPlay", "cStartLoop", "cReturn"}));
  }
  EXPECT_EQ(drawn.count(kSampleFilmSong), 0u) << "no raga has a film song";
  EXPECT_EQ(drawn.size(), 6u);
  EXPECT_TRUE(program.messages().empty());
}

// A loop draws piece after piece, each after the pause; Stop ends the piece
// but not the loop's flag; Stop Looping ends both.
TEST_F(SamplerTest, LoopingGoesOnAfterThePauseUntilStopLooping) {
  click("cStartLoop");
  EXPECT_EQ(enabledButtons(), Names{"cStopLoop"});
  tick("cTimer1");
  EXPECT_TRUE(ctl("cTimer1").enabled()) << "still playing: the watch goes on";
  playOut();
  EXPECT_TRUE(playing()) << "the next piece";
  EXPECT_EQ(enabledButtons(), Names{"cStopLoop"});

  click("cStop");
  EXPECT_FALSE(playing());
  EXPECT_TRUE(gLooping);
  click("cStartLoop");
  click("cStopLoop");
  EXPECT_FALSE(gLooping || playing());
  program.clock().advance(100);
  tick("cTimer1");
  tick("cTimer");
  EXPECT_EQ(enabledButtons(), (Names{"cPlay", "cStartLoop", "cReturn"}));
  click("cReturn");
  EXPECT_EQ(gCurrFormId, 1);
  EXPECT_EQ(gKeyboardDisplay, keyboardOnEntry);
}

}  // namespace
