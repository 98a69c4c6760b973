// What the sound tests (and the keyboard's) share. On the stores: a copy of
// the built library store and a fresh user store holding the user music set
// 13, opened as gDbA and gDbB; the session's sound defaults; a recording
// window system for message boxes; the music buffer set-up with the
// synthesis library started; and the pitch and length of rendered files,
// measured by the tonvex tests' measurements. On the screen: the stage of
// the playing chain below.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/screen.h"
#include "recording_window_system.h"
#include "sound/tuning_math.h"

// The user music set stored in the test's user store: tonic 7, main row
// column i = kUserMainBase + i / 100, drone row column i = -(i / 100).
constexpr int kUserSetId = 13;
constexpr int kUserSetTonic = 7;
constexpr float kUserMainBase = 0.5f;

using Messages = std::vector<std::string>;

class SoundStoreTest : public ::testing::Test {
 public:
  // Runs SQL on the library store copy (which the program opens read-only)
  // and reopens it as gDbA.
  void changeLibraryStore(const std::string& sql);
  // Puts back a fresh copy of the built library store as gDbA.
  void resetLibraryStore();
  // The texts of the message boxes shown so far; fails the test when one was
  // not an information box titled "Message".
  Messages messageTexts() const;
  std::filesystem::path file(const std::string& name) const { return dir_ / name; }

 protected:
  void SetUp() override;
  void TearDown() override;

  std::filesystem::path dir_;
  RecordingWindowSystem windows_;
};

// The stores with the synthesis library started (seeds, drone and tabla
// kit), wave files A, B and C in the test's folder, and the session of a
// stored raga phrase in Demo in English.
class MusicFileTest : public SoundStoreTest {
 protected:
  void SetUp() override;
};

// gPlaySet holds the one phrase, with the cursor on it.
void sPlayOnePhrase(const std::string& notes, const std::string& durations);

// Play length in milliseconds of a wave file; -1 when it is none.
double fWaveLengthMs(const std::filesystem::path& path);

// Renders one note of the current instrument set alone (no drone) through
// the synthesis library and returns its fundamental in Hz, measured over the
// steady middle of the note near expectedHz. 0 when rendering fails.
double fMeasureRenderedNoteHz(int noteId, double expectedHz, const std::filesystem::path& wavFile);

// Distance from b to a in cents.
double fCents(double aHz, double bHz);

// A small stage for the playing chain: the MainOperations screen on the Qt
// backend (offscreen), its cMM a silent audio device on a virtual clock, a
// test controller registered for the screen that records the events it
// receives and does what the screen's controller does with 18 (note
// tracking) and the done notification.
//
// The stage's builder, installed as the chain's gBuildPhraseFile, writes a
// silent wave file as long as the buffer's notes into gWavFiles[buffer] and
// records each build with whether a file was sounding then, so that tests
// can see the next phrase being built while one plays.
//
// State: one QApplication, window system and virtual clock for the whole
// test process; the records below, cleared by reset().
namespace playbackstage {

struct Build {
  std::int16_t buffer;
  bool whilePlaying;
};

struct Stage {
  platform::VirtualClock clock;
  std::vector<std::int16_t> events;   // controller events other than 18
  std::vector<Build> builds;
  std::vector<std::string> messages;  // message box texts
  std::vector<std::string> opened;    // files opened on cMM, in order
  int failBuildOfBuffer = -1;         // a build of this buffer fails
  int badFileOfBuffer = -1;           // a build of this buffer writes no wave file
};

Stage& stage();

// Sets the process up once, then makes MainOperations current with its
// keyboard loaded and laid out at tonic 3, English labels, no grace notes,
// the chain owned by the main operations screen, nothing playing, and all
// records cleared.
platform::Screen& reset();

// Fills gPlaySet with phrases (note phrase, duration phrase in hundredths),
// positions 1 to n, the range first..last, and builds the first phrase's
// buffer as a set-up does.
void preparePlaySet(const std::vector<std::pair<std::string, std::string>>& phrases,
                    std::int16_t first = 1, std::int16_t last = -1);

// Starts the chain as a Play click does.
bool startChain();

// Advances the virtual clock by ms, delivering the device's notifications.
void advance(long ms);

// Colours of labels cL(first..last) that are not their reed's default.
std::vector<std::pair<int, int>> markedReeds(platform::Screen& form);

}  // namespace playbackstage
