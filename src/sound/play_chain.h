// The playing chain: one phrase of gPlaySet after another, each opened on
// the current screen's cMM as its predecessor's done notification closes
// it, the next phrase's file built while one sounds, and the end of the
// range reported to the screen that owns the chain (gCallbackContext) as
// its controller's event 19.
//
// State: gPlayScreenProcedures, the procedures of the screens' own modules
// the chain calls at each phrase, and the controllers of the screens that
// own a chain; whether a first note waits to be marked; the buffer shift of
// a looping run's repeats (play_chain.cpp); each module sets its members when its screen is bound, and a
// member left empty is skipped. Sound thus reaches the screens above it
// only through what they install here.
#pragma once

#include <array>
#include <cstdint>

#include "core/session.h"

namespace platform {
class Screen;
}

// The event a controller receives when the range has played.
constexpr std::int16_t kEventRangeEnded = 19;

using PlayOwnerController = void (*)(std::int16_t event);

struct PlayScreenProcedures {
  void (*displayPrompt)() = nullptr;             // says what is playing (sDisplayMPPrompt)
  void (*resetCompositionSlots)() = nullptr;     // sSetCompNotationSlotsToDefaultColor
  void (*resetComposerNoteCells)() = nullptr;    // the composer's note cells at the end
  // The controller of each callback context's screen, by context number.
  std::array<PlayOwnerController, kContextNone + 1> owners{};
};
extern PlayScreenProcedures gPlayScreenProcedures;

// How the chain builds the next phrase's wave file while one sounds:
// fPrepareToPlaySelection1 unless replaced. The playback tests put a
// builder of silent files here, to see when each build happens on the
// virtual clock without synthesising sound.
using PhraseFileBuilder = std::int16_t (*)(std::int16_t buffer);
extern PhraseFileBuilder gBuildPhraseFile;

// One step of the chain, called to start a run and after each file closes.
// Past gPlaySet.LastPhrase the range has ended: the cursor goes back to
// FirstPhrase and the owner gets event 19. Otherwise the phrase at the
// cursor starts playing from its buffer's file, its first note is marked
// (once heard, on the exploration screen), the cursor moves on and, with
// gPrefetchMode 1, the next phrase's buffer is filled and its file built;
// the next phrase's file (built now or, with gPrefetchMode 2, before the
// run) is queued to follow without a gap. While the exploration screen
// loops, the last phrase is followed in the same way by the first of the
// next repeat, so that repeats join as phrases do and the drone runs on.
// False when a build fails.
bool fPlayMusicPhrases(platform::Screen& form);

// True while the first note of the phrase that plays has not been marked:
// on the exploration screen, until the device sounds it.
extern bool gFirstNoteOwed;
// Marks the owed first note once cMM has begun to sound it; the status step
// calls it before moving the marks on.
void sMarkOwedFirstNote(platform::Screen& form);

// Calls the controller that the screen of a callback context installed,
// with an event; nothing when that screen installed none.
void sTellPlayOwner(std::int16_t context, std::int16_t event);
