// Start-up of the synthesis library and the drone greeting: the whole
// sequence on the built stores and kit, and each failure with its message.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/session.h"
#include "sound/library_setup.h"
#include "sound_test_support.h"
#include "tonvex/tonvex.h"

namespace {

using LibrarySetupTest = SoundStoreTest;
using Messages = std::vector<std::string>;

TEST_F(LibrarySetupTest, StartsAndGreetsWithTheDrone) {
  ASSERT_TRUE(fStartSoundLibrary());
  ASSERT_TRUE(fGenerateGreetingDrone());
  EXPECT_TRUE(messageTexts().empty());
  // Two cycles of 3200 ms of 16-bit mono at the library's rate.
  const auto bytes = std::filesystem::file_size(gDroneWavFile);
  const double seconds = double(bytes - 44) / (2.0 * tonvex::kSampleRate);
  EXPECT_NEAR(seconds, 6.4, 0.05);
}

TEST_F(LibrarySetupTest, EachStartFailureShowsItsMessageAndStops) {
  struct Row {
    const char* what;
    void (*change)();
    Messages messages;
  } rows[] = {
      {"no set names", [] { gSynthNames = ""; }, {"Error in Setting GlobalVariables"}},
      {"main set not declared",
       [] { gMainSetName = std::string("x"); },
       {"Error in Setting Instrument Name"}},
      {"drone cannot be built",
       [] { gCurrDroneType = 9; },
       {"Error in FWavLoadDroneData", "Error building Drone Data", "Error in Creating Note Seeds"}},
      {"kit file missing",
       [] { gInstrLibFiles[3] = gDataPath + "/none.nvy"; },
       {"Error in Loading Theka Data"}},
      {"theka instrument 0", [] { gThekaInstrument = 0; }, {"Error in Loading Theka Data"}},
      {"theka instrument 6", [] { gThekaInstrument = 6; }, {"Error in Loading Theka Data"}},
      {"theka instrument without a file",
       [] { gThekaInstrument = 2; },
       {"Error in Loading Theka Data"}},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.what);
    SoundStoreTest::TearDown();
    SoundStoreTest::SetUp();
    windows_.messages.clear();
    r.change();
    EXPECT_FALSE(fStartSoundLibrary());
    EXPECT_EQ(messageTexts(), r.messages);
  }
}

TEST_F(LibrarySetupTest, AGreetingThatCannotBeWrittenShowsItsMessage) {
  ASSERT_TRUE(fStartSoundLibrary());
  gDroneCycles = 0;
  EXPECT_FALSE(fGenerateGreetingDrone());
  gDroneCycles = 2;
  gDroneWavFile = gDataPath + "/missing-folder/D.Wav";
  EXPECT_FALSE(fGenerateGreetingDrone());
  EXPECT_EQ(messageTexts(),
            (Messages{"Error in generating drone file", "Error in generating drone file"}));
  EXPECT_FALSE(std::filesystem::exists(gDroneWavFile));
}

}  // namespace
