// Building both parts of a stored composition into A.wav and B.wav, a film
// song's one part, and a failing first part, through the real preparation
// of the parts.
#include <gtest/gtest.h>

#include <filesystem>

#include "music_fixture.h"
#include "notation/durations.h"
#include "notation/tokenizer.h"
#include "sound/composition_files.h"
#include "sound/theka_tokens.h"
#include "store/working_record_comp.h"

namespace fs = std::filesystem;

namespace {

using CompositionFilesTest = MusicFileTest;

void sChooseComposition(std::int16_t kind, std::int32_t notationIndex, std::int16_t beats) {
  gCurrItemType = 6;
  gCurrPhraseKind = kind;
  gThekaMode = kind == 8 ? 1 : 2;
  gFormBeatCount = beats;
  sDBToTCompData(1, notationIndex);
}

double fLastTimeMs(const MusicBuffer& b) {
  return b.TimesMs[static_cast<std::size_t>(b.Count)];
}

TEST_F(CompositionFilesTest, BothPartsAreBuiltAndTheCursorGoesBackToTheAsthai) {
  sChooseComposition(8, 101, 16);
  gWavOption = 2;
  ASSERT_EQ(fCreateCompositionMusicFilesFromT(), 1);
  EXPECT_EQ(gWavOption, 1);
  EXPECT_EQ(gPhraseSet.Position, 1);
  EXPECT_EQ(gPhraseSet.FirstPhrase, 1);
  EXPECT_EQ(gPhraseSet.LastPhrase, 2);
  EXPECT_EQ(gPlaySet.Position, 2) << "the play set keeps the last copy";
  for (std::size_t i : {0u, 1u}) {
    SCOPED_TRACE(i);
    const MusicBuffer& b = gMusicBuffers[i];
    EXPECT_EQ(b.Count, static_cast<std::int16_t>(fSplitWords(gCompInfo[i].Notation, " ").size()));
    EXPECT_NEAR(fWaveLengthMs(gWavFiles[i]), fLastTimeMs(b), 1.0);
  }
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(CompositionFilesTest, AFilmSongBuildsOnlyItsOnePart) {
  sChooseComposition(9, 101, 16);
  ASSERT_EQ(fCreateCompositionMusicFilesFromT(), 1);
  EXPECT_TRUE(fs::exists(gWavA));
  EXPECT_FALSE(fs::exists(gWavB));
  EXPECT_EQ(gPhraseSet.LastPhrase, 1);
}

TEST_F(CompositionFilesTest, AFailingAsthaiStopsBeforeTheAntara) {
  sChooseComposition(8, 101, 16);
  gCompInfo[0].Notation = "S< " + gCompInfo[0].Notation.substr(gCompInfo[0].Notation.find(' ') + 1);
  EXPECT_EQ(fCreateCompositionMusicFilesFromT(), 0);
  EXPECT_FALSE(fs::exists(gWavB));
  EXPECT_EQ(messageTexts(),
            (std::vector<std::string>{
                "Error in creating current musical illustration. Note value outside range.",
                "Error Preparing Music File"}));
}

}  // namespace
