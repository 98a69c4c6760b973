// A small stage for the playing chain: the MainOperations screen on the Qt
// backend (offscreen), its cMM a silent audio device on a virtual clock, a
// test controller registered for the screen that records the events it
// receives and does what the screen's controller does with 18 (note
// tracking) and the done notification, and a file builder of its own.
//
// The stage's builder, installed as the chain's gBuildPhraseFile, writes a
// silent wave file as long as
// the buffer's notes into gWavFiles[buffer] and records each build with the
// clock time and whether a file was sounding then, so that tests can see
// the next phrase being built while one plays.
//
// State: one QApplication, window system and virtual clock for the whole
// test process; the event and build records, cleared by reset().
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/screen.h"

namespace playbackstage {

struct Build {
  std::int16_t buffer;
  long atMs;
  bool whilePlaying;
};

struct Stage {
  platform::VirtualClock clock;
  std::vector<std::int16_t> events;      // controller events other than 18
  std::vector<Build> builds;
  std::vector<std::string> messages;     // message box texts
  std::vector<std::string> opened;       // files opened on cMM, in order
  int failBuildOfBuffer = -1;            // a build of this buffer fails
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
