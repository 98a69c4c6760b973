// Building wave files from music buffers: generation tokens at each tonic,
// the note and duration lists (grace notes dropped from short notes, two
// blanks between tokens), the lowest-note refusal, file lengths measured
// from the wave header against the buffer's times, and the messages of a
// failing library.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/errors.h"
#include "music_fixture.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"

namespace fs = std::filesystem;

namespace {

using MusicFileBuildTest = MusicFileTest;
using Messages = std::vector<std::string>;

TEST_F(MusicFileBuildTest, NoteCodesBecomeTokensAtTheTonic) {
  struct Row {
    std::int16_t code;
    std::int16_t tonic;
    const char* token;
  } rows[] = {
      {12, 3, "12"},     {12, 5, "14"},    {10, 2, "09"},     {1214, 5, "1416"},
      {5, 3, "05"},      {3, 1, "01"},     {112, 3, "0112"},  {112, 12, "1021"},
      {999, 3, "0999"},  {1000, 3, "1000"}, {35, 12, "44"},
      {100, 3, "10"},  // three digits without the padding: the last digit is lost
  };
  for (const Row& r : rows) {
    gCurrTonicNoteId = r.tonic;
    EXPECT_EQ(fGetFnameForCurrTonicNote(r.code), r.token) << r.code << " at tonic " << r.tonic;
  }
}

TEST_F(MusicFileBuildTest, ListsDropGraceNotesFromShortNotesAndUseTwoBlanks) {
  GenerationLists lists;
  ASSERT_TRUE(fCreateGenerationLists({12, 1214, 1416, 1114, 14}, {500, 250, 251, 100, 300}, 5,
                                     lists));
  EXPECT_EQ(lists.notes, "12  14  1416  14  14");
  EXPECT_EQ(lists.durations, "500 250 251 100 300");
  ASSERT_TRUE(fCreateGenerationLists({12, 14}, {500, 300}, 1, lists));
  EXPECT_EQ(lists.notes, "12");
  EXPECT_EQ(lists.durations, "500");
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MusicFileBuildTest, TheThreeLowestNotesAreRefusedAtAnyTonic) {
  const std::string refusal =
      "Error in creating current musical illustration. Note value outside range.";
  for (std::int16_t tonic : {1, 3, 12}) {
    gCurrTonicNoteId = tonic;
    for (std::int16_t code : {0, 1, 2}) {
      windows_.messages.clear();
      GenerationLists lists;
      EXPECT_FALSE(fCreateGenerationLists({12, code}, {400, 400}, 2, lists));
      EXPECT_EQ(messageTexts(), Messages{refusal});
    }
  }
  windows_.messages.clear();
  gCurrTonicNoteId = 3;
  gCurrBuildFile = gWavA;
  EXPECT_EQ(fCreateMusicFile({3, 2}, {400, 400}, 2), 0);
  EXPECT_EQ(messageTexts(), Messages{refusal});
  EXPECT_FALSE(fs::exists(gWavA));
  windows_.messages.clear();
  EXPECT_EQ(fCreateMusicFile({3, 2}, {400, 400}, 1), 1) << "only the first count notes count";
  EXPECT_TRUE(messageTexts().empty());
}

TEST_F(MusicFileBuildTest, EachFileLastsAsLongAsItsBufferWithinOneMillisecond) {
  struct Row {
    const char* what;
    const char* notes;
    const char* durations;
    std::int16_t tonic;
  } rows[] = {
      {"stored aroha", "N< R G M D N S>", "40 40 40 40 40 40 80", 3},
      {"alap phrase with grace notes", "N< R G M G R N<'R S", "60 60 110 60 60 110 25 160", 3},
      {"short grace note", "S R'G G'M P", "11 25 26 33", 7},
      {"no durations", "S R G", "", 12},
      {"taan at odd lengths", "S R G M P D N S>", "7 13 17 19 23 29 31 37", 1},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    gCurrTonicNoteId = r.tonic;
    sPlayOnePhrase(r.notes, r.durations);
    for (std::int16_t buffer : {0, 1, 2}) {
      MusicBuffer& b = gMusicBuffers[static_cast<std::size_t>(buffer)];
      b.Count = fCreateNotesList1(buffer);
      ASSERT_EQ(fPrepareToPlaySelection1(buffer), 1);
      EXPECT_EQ(gCurrBuildFile, gWavFiles[static_cast<std::size_t>(buffer)]);
      EXPECT_NEAR(fWaveLengthMs(gCurrBuildFile), b.TimesMs[static_cast<std::size_t>(b.Count)],
                  1.0);
    }
  }
  EXPECT_TRUE(messageTexts().empty());
}

// A drone mix the library does not know, an unwritable folder and a zero
// length note (the durations run out) fail in the library: its message,
// then the preparation's. A stale file is deleted before the build, so a
// failure leaves none.
TEST_F(MusicFileBuildTest, ALibraryFailureShowsItsMessageThenThePreparationMessage) {
  const struct {
    const char* durations;
    std::int16_t wavOption;
    std::string file;
  } cases[] = {{"40 40 40", 7, gWavA}, {"40 40 40", 1, (file("no such folder") / "A.wav").string()},
               {"40", 1, gWavA}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    windows_.messages.clear();
    sPlayOnePhrase("S R G", c.durations);
    gMusicBuffers[0].Count = fCreateNotesList1(0);
    gWavOption = c.wavOption;
    gWavFiles[0] = c.file;
    std::ofstream(gWavA) << "stale";
    EXPECT_EQ(fPrepareToPlaySelection1(0), 0);
    EXPECT_EQ(messageTexts(), (Messages{"Error creating music file", "Error Preparing Music File"}));
    EXPECT_FALSE(fs::exists(c.file));
  }
}

TEST_F(MusicFileBuildTest, ABufferOutsideTheThreeIsARangeError) {
  EXPECT_THROW(fPrepareToPlaySelection1(3), ErrorTrap);
  EXPECT_THROW(fPrepareToPlaySelection1(-1), ErrorTrap);
  EXPECT_THROW(fCreateMusicFile({12}, {400}, 2), ErrorTrap);
}

}  // namespace
