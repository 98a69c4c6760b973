// A sample of the quiz (see quiz_sample.h).
//
// The wait while the sample sounds: the quiz used to wait for the device in
// a loop that let events through, until its mode left "playing". Here the
// event that starts the sample returns at once, with every control that
// could act disabled (cOK, cPlay, the list of ragas, Go Back and the menus)
// and the answer buttons hidden; the end of the sample arrives as the
// device's done notification, whose handler raises event 19, and event 19
// does what followed the wait. Nothing runs a nested event loop, so the
// screen keeps painting and a test on a virtual clock simply advances the
// clock. A sample that did not start (the file could not be built or
// opened) ends at once, as the wait did when the device was not playing.
#include "quiz/quiz_sample.h"

#include <cstddef>
#include <string>

#include "control/raga_setup.h"
#include "control/screen_manager.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/random.h"
#include "core/session.h"
#include "display/fonts.h"
#include "display/notation_display.h"
#include "exploration/exploration_state.h"
#include "exploration/illustration_setup.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "quiz/quiz_state.h"
#include "sound/music_set.h"
#include "sound/play_chain.h"
#include "sound/play_state.h"
#include "store/lookups.h"
#include "store/working_record.h"

namespace {

// The quiz draws from the library's first 70 ragas: a fixed number, not a
// count of the table.
constexpr std::int16_t kQuizRagaCount = 70;
constexpr std::int16_t kNotes = 1;
constexpr std::int16_t kDurations = 2;
constexpr std::int16_t kLibraryAlt = 1;
constexpr std::int16_t kAlapAlt = 1;

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }

void sSetF20Selections(bool on) {
  for (const char* name : {"cReturn", "cMnuNot", "cMnuNotScr", "cMnuHel", "cMnuDro"})
    ctl(name).setEnabled(on);
}

void sHideAnswer() {
  for (const char* name : {"cGuess", "cShow", "Label4", "Label5"}) ctl(name).setVisible(false);
  ctl("Label4").setCaption("");
  ctl("Label5").setCaption("");
}

// A raga by position and a kind of those ticked; false when the library
// has no raga at the drawn position.
bool fDrawRagaAndKind() {
  sRandomize();
  if (fSetupSeqRaga(fRandomFrom1To(kQuizRagaCount)) == 0) return false;
  gQuizItem = gQuizItems[static_cast<std::size_t>(fRandomFrom1To(gQuizItemCount))];
  gCurrRagaName = fGetRagaName(gCurrRagaId);
  sSetupForCurrRaga();
  gSelRagaName = gCurrRagaName;
  gSelRagaId = gCurrRagaId;
  gGraceNotes = 2;
  return true;
}

// Loads the phrase of the drawn kind; false when the raga has none of that
// kind (no alap, or a scale or pakad stored empty).
bool fLoadDrawnPhrase() {
  switch (gQuizItem) {
    case kQuizScale:
    case kQuizPakad: {
      const bool scale = gQuizItem == kQuizScale;
      const auto phrase = scale ? fGetFromT_ScalePhraseUnSeg : fGetFromT_PakadPhraseUnSeg;
      gCurrItemType = scale ? 1 : 2;
      gCurrPhraseKind = scale ? 1 : 3;
      gSelPhrase = phrase(kNotes);
      gSelDurPhrase = phrase(kDurations);
      break;
    }
    default: {
      gCurrItemType = 3;
      gCurrPhraseKind = 4;
      if (fHasAlap(gCurrRagaId, kLibraryAlt) == 0) return false;
      const std::int16_t count = fAlapCount(gCurrRagaId, kLibraryAlt);
      sRandomize();
      const std::int16_t phrase = fRandomFrom1To(count);
      gSelPhrase = fGetFromT_AnALTPhraseUnSeg(kLibraryAlt, kAlapAlt, kNotes, phrase);
      gSelDurPhrase = fGetFromT_AnALTPhraseUnSeg(kLibraryAlt, kAlapAlt, kDurations, phrase);
      break;
    }
  }
  return gSelPhrase.find_first_not_of(' ') != std::string::npos;
}

void sFinishPlaying() {
  gThekaMode = gQuizSavedTheka;
  gKeyboardDisplay = gSavedKeyboard;
  sEnableF20Selections();
  for (const char* name : {"cPlay", "cGuess", "cShow"}) ctl(name).setVisible(true);
  ctl("cPlay").setEnabled(true);
  ctl("cRagaList").setEnabled(true);
  ctl("cNotation").setVisible(false);
  ctl("cOK").setCaption("Selected");
}

}  // namespace

void sEnableF20Selections() { sSetF20Selections(true); }
void sDisableF20Selections() { sSetF20Selections(false); }

void sSetUpForQuizModeIllustration() {
  NV_PROC("sSetUpForQuizModeIllustration");
  gPrefetchMode = kPrefetchNext;
  gWavOption = 1;
  gThekaMode = gQuizTheka;
  gKeyboardDisplay = gQuizKeyboard;
  sSetUpForPlayingSelectedPhrase();
}

// A drawn kind that the raga turns out not to have (a raga without alap, a
// phrase stored empty) or a position past the library's last raga is never
// played: the draw starts again with a new raga and kind, up to once for
// each of the 70 ragas. (Asking a raga without alap for its first alap
// phrase used to be a fatal subscript error.) Should every draw come up
// empty, the quiz says so and offers a new sample again.
void sSelectQuizSample() {
  NV_PROC("sSelectQuizSample");
  ctl("cPrompts").setText(fGetPrompts("32") + gSeparator + fGetScaleInfo());
  for (const char* name : {"cPlay", "cExplore"}) ctl(name).setVisible(false);
  sHideAnswer();
  bool found = false;
  for (std::int16_t draw = 0; draw < kQuizRagaCount && !found; ++draw) {
    found = fDrawRagaAndKind() && fLoadDrawnPhrase();
  }
  if (!found) {
    sShowMessage("None of the ragas of the library store (mrA.nvy) has a phrase of the kinds you ticked. Please go back and start the quiz with other kinds ticked, or reinstall Nadavik if the library is damaged.");
    return;
  }
  ctl("cOK").setCaption("Selected and Playing");
  ctl("cOK").setEnabled(false);
  sPlayQuizSample();
}

void sPlayQuizSample() {
  NV_PROC("sPlayQuizSample");
  sHideAnswer();
  ctl("cPlay").setEnabled(false);
  ctl("cRagaList").setEnabled(false);
  sDisableF20Selections();
  if (gNotationDisplay == 1) {
    platform::Control& box = ctl("cNotation");
    sAdjustFont(box);
    box.setVisible(true);
    sLoadNotation(box, gSelPhrase);
    box.refresh();
  }
  sSetUpForQuizModeIllustration();
  gQuizSamplePlaying = true;
  if (!fPlayMusicPhrases(*gCurrForm)) sShowMessage("Error playing music phrases");
  sRandomize();
  sShowNextPicture(*gCurrForm);
  if (ctl("cMM").device().mode() != platform::kModePlaying) sQuizSamplePlayed();
}

void sQuizSamplePlayed() {
  NV_PROC("sQuizSamplePlayed");
  if (!gQuizSamplePlaying) return;
  gQuizSamplePlaying = false;
  sFinishPlaying();
}
