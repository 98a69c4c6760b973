// Controller of PlayComposition1, which plays a composition beat by beat on
// its tala grid: a whole part in Learning mode, a typed stretch in Practice
// mode, once or looped, with the cell of the sounding beat walking through
// the grid. Loop rounds follow each other without a break: while a round
// sounds, the next round's file is queued on the device to sound straight
// after it. In Learning each round of the part is built afresh, turn about
// in the part's own buffer and in the stretch's (C.wav), so that the drone,
// which the synthesis library carries on from one built file to the next,
// runs on in phase across the rounds instead of starting its cycle again;
// a typed stretch is a cut from the part's file and its rounds repeat that
// cut. State: gRebuilt, gSavedTonicNoteId.
#include "player/player.h"

#include <cstddef>

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "display/notation_display.h"
#include "display/raga_display.h"
#include "notation/durations.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "player/composition_grid.h"
#include "player/stretch.h"
#include "sound/composition_files.h"
#include "sound/composition_prep.h"
#include "sound/composition_segment.h"
#include "sound/drone.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/music_set.h"
#include "sound/play_bols.h"
#include "sound/play_chain.h"
#include "sound/play_state.h"
#include "sound/playback.h"
#include "sound/speed_factor.h"
#include "store/working_record_comp.h"

std::int16_t gRebuilt = 0;
std::int16_t gSavedTonicNoteId = 0;

namespace {

constexpr std::int16_t kLearning = 2;
constexpr std::int16_t kPractice = 3;
constexpr std::int16_t kCompositionItem = 6;
constexpr std::int16_t kStretchBuffer = 2;
constexpr std::int16_t kExplorationTonicEvent = 14;

platform::Screen& form() { return *gCurrForm; }
platform::Control& ctl(const char* name, int index = -1) { return form().control(name, index); }
platform::AudioDevice& mediaControl() { return ctl("cMM").device(); }

void sPointer(int pointer) { form().setMousePointer(pointer); }

// Both parts' files built afresh, and the stretch's file and the records
// forgotten. False when a build failed (its message, if any, shown).
bool fRebuild() {
  sPointer(platform::kPointerHourglass);
  const bool built = fCreateCompositionMusicFilesFromT() != 0;
  sPointer(platform::kPointerDefault);
  if (!built) return false;
  sInitCS(2);
  sInitCS(3);
  return true;
}

void sShowModePrompts() {
  if (gCurrMode == kPractice)
    sDisplayPracticeModePromptsForCompositions();
  else
    sDisplayLearningModePromptsForCompositions();
}

// The buffer a Learning round of the part on show plays from: its own (0
// or 1), or the stretch's, turn about.
std::int16_t fPartBuffer() { return static_cast<std::int16_t>(gCompPart == 2 ? 1 : 0); }
std::int16_t fOtherRoundBuffer(std::int16_t buffer) {
  return buffer == kStretchBuffer ? fPartBuffer() : kStretchBuffer;
}

// Builds the part on show afresh into `buffer`'s file, its timing copied
// from the part's buffer; the stretch's file, when overwritten, is to be
// cut again. False when the build failed (its message shown).
bool fBuildLearningRound(std::int16_t buffer) {
  if (buffer != fPartBuffer())
    gMusicBuffers[static_cast<std::size_t>(buffer)] = gMusicBuffers[static_cast<std::size_t>(fPartBuffer())];
  if (buffer == kStretchBuffer) sInitCS(3);
  return fPrepareToPlaySelection1(buffer) != 0;
}

// The file of the round after this one, queued to follow it: in Learning the
// part built afresh in the other buffer, in Practice the same cut.
void sQueueNextRound() {
  if (gCurrMode != kLearning) {
    sQueueMusicFile(gCurrMusicFile);
    return;
  }
  const std::int16_t next = fOtherRoundBuffer(gCurrBuffer);
  if (fBuildLearningRound(next))
    sQueueMusicFile(gWavFiles[static_cast<std::size_t>(next)]);
  else
    gLooping = false;  // this round ends the run
}

// Starts the chain and, while looping, queues the next round behind it, so
// that the next round begins without a break.
void sStartRound() {
  if (!fPlayMusicPhrases(form())) {
    sShowMessage("Error playing music phrases");
    return;
  }
  if (gLooping && gFileOpened != 0) sQueueNextRound();
}

// Play in Learning mode: the whole part on show. A loop's first round is
// built afresh, so that the drone of the rounds after it follows on from
// this one's (the other part was built after it).
void sPlayWholePart() {
  sDisableF14Selections();
  gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = gCompPart;
  gBufferRotation = false;
  gCurrBuffer = fPartBuffer();
  if (gLooping && !fBuildLearningRound(gCurrBuffer)) {
    sEnableF14Selections();
    return;
  }
  sStartRound();
}

PartExtent fPartOnShow() {
  const CompPartRecord& part = gCompInfo[gCompPart == 2 ? 1 : 0];
  return PartExtent{gCompFirstBeat, gFormBeatCount, fGetBeatCountForPhrase(part.NotesDuration)};
}

// Play in Practice mode: the typed stretch, checked, marked on the grid,
// cut when it is new, then played.
void sPlayStretch() {
  const PartExtent part = fPartOnShow();
  gCompLastRow = static_cast<std::int16_t>(fPartLastRow(part));
  gCompLastBeat = static_cast<std::int16_t>(fPartLastBeat(part));
  const StretchCheck check = fCheckStretch(
      {ctl("cFRow").text(), ctl("cFBeat").text(), ctl("cTRow").text(), ctl("cTBeat").text()}, part);
  if (!check.message.empty()) {
    sShowMessage(check.message);
    return;
  }
  sSetDefaultDisplayColors();
  gSegmentBounds[0] = static_cast<std::int16_t>(check.firstSlot);
  gSegmentBounds[1] = static_cast<std::int16_t>(check.lastSlot);
  ctl("cMatra", check.firstSlot - 1).setBorderStyle(1);
  ctl("cMatra", check.lastSlot - 1).setBorderStyle(1);
  sGetReadyToPlaySegment();
  if (fNewCompSegment() != 0 || gRebuilt != 0) {
    // A refused cut gives the screen back rather than leaving it locked.
    if (fCreateCompSegmentMusicFile() == 0) {
      sSetDefaultDisplayColors();
      sEnableF14Selections();
      return;
    }
    sUpdateCS(3);
  }
  gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = 1;
  gPrefetchMode = kPrefetchNone;
  gCurrBuildFile = gWavC;
  gBufferRotation = false;
  gCurrBuffer = kStretchBuffer;
  sStartRound();
}

// Event 1. The tempo is compared only here: a changed slider rebuilds the
// whole parts first (and then the stretch too).
void sPlay() {
  gRebuilt = 0;
  if (static_cast<float>(fCurrSpeedFactor()) != CS[static_cast<std::size_t>(gCompPart - 1)].Tempo) {
    if (!fRebuild()) return;
    sUpdateCS(gCurrMode);
    gRebuilt = -1;
  }
  if (gCurrMode == kPractice)
    sPlayStretch();
  else
    sPlayWholePart();
}

// A composition the grid cannot show is refused before the screen opens,
// with a message that names it; the screen below stays as it was.
bool fRefusedComposition() {
  const std::string refusal = fCompositionRefusal();
  if (refusal.empty()) return false;
  sShowMessage(refusal);
  return true;
}

// Event 0.
void sStart() {
  sInitPlayCompositions();
  // Setting the part's button raises its click, and through it event 2,
  // which names the part and fills the grid.
  ctl(gCompPart == 2 ? "cAntara" : "cAsthai").setValue(-1);
  fRebuild();
}

// Event 4.
void sTonicChanged() {
  gCurrTonicNoteId = gTonicChoice;
  sMnuTonicNoteCheck();
  gCurrMusicSetId = gCurrTonicNoteId;
  if (fCreateNoteSeedsForUse() != 1) {
    sShowMessage("Error Creating Mote Seeds");
    return;
  }
  if (!fRebuild()) return;
  sShowModePrompts();
}

// Event 12: one step of the highlight when the device has reached the next
// slot's time (brought forward by gDelayPC a slot).
void sAdvanceHighlight() {
  if (gCurrBuffer < 0 || gCurrBuffer >= kMusicBufferCount) return;
  MusicBuffer& buffer = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)];
  const std::int16_t limit = gCurrMode == kLearning ? buffer.BeatCount : buffer.Count;
  const std::int16_t pos = buffer.CurrNote;
  if (pos >= limit || static_cast<std::size_t>(pos) >= buffer.TimesMs.size()) return;
  const long target = buffer.TimesMs[static_cast<std::size_t>(pos)] - pos * gDelayPC;
  if (mediaControl().position() < target) return;
  buffer.CurrNote = static_cast<std::int16_t>(pos + 1);
  sPlayCurrBol1Alt(form());
}

// Event 19: the part or stretch has played (or was stopped).
void sRoundEnded() {
  sSetDefaultDisplayColors();
  if (!gLooping) {
    sEnableF14Selections();
    return;
  }
  const std::int16_t phrase = gCurrMode == kLearning ? gCompPart : 1;
  gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = phrase;
  if (gCurrMode == kLearning) gCurrBuffer = fOtherRoundBuffer(gCurrBuffer);  // the round queued
  sStartRound();
}

void sStop() {
  platform::AudioDevice& mm = mediaControl();
  mm.notify = false;
  mm.wait = true;
  mm.command("Stop");
}

void sModeChosen() {
  if (gCurrMode == kPractice) {
    sDisplayPracticeParams();
    sDisplayPracticeModePromptsForCompositions();
  } else {
    sHidePracticeParams();
    sDisplayLearningModePromptsForCompositions();
  }
}

}  // namespace

void sInitPlayCompositions() {
  NV_PROC("sInitPlayCompositions");
  gCurrItemType = kCompositionItem;
  gThekaMode = 1;
  gSavedTonicNoteId = gCurrTonicNoteId;
  gTonicChoice = gCurrTonicNoteId;
  sSetFormParameters();
  sEnterForm(kFormPlayComposition1);
  if (gDevnagariOk == 0) ctl("cMnuDev").setVisible(false);
  sMnuGraceNotesCheck();
  sMnuNotationScriptCheck();
  sMnuThekaCheck();
  sMnuTonicNoteCheck();
  sMnuTraceCheck();
  sDisplayRagaBasicData();
  const CompPartRecord& part = gCompInfo[gCompPart == 2 ? 1 : 0];
  gCompStartBeat = part.StartingBeat;
  sAdjustDisplayForTala();
  gFormBeatCount = gGridBeats;
  sEnableF14Selections();
  // Setting a mode button raises its click, and through it event 3.
  ctl(gCurrMode == kPractice ? "cPractice" : "cLearn").setValue(-1);
}

void sTerminatePlayCompositions() {
  NV_PROC("sTerminatePlayCompositions");
  gBufferRotation = true;
  sStructuredTermination(1);
  sHandBackTonic();
}

void sHandBackTonic() {
  if (gCurrTonicNoteId == gSavedTonicNoteId) return;
  gTonicChoice = gCurrTonicNoteId;
  sTellPlayOwner(kContextMainOperations, kExplorationTonicEvent);
  sMnuTonicNoteCheck();
}

void sPlayCompositions(std::int16_t event) {
  NV_PROC("sPlayCompositions");
  if (event == 0 && fRefusedComposition()) return;
  gCallbackContext = kContextComposition;
  switch (event) {
    case 0: sStart(); break;
    case 1: sPlay(); break;
    case 2:
      sSetupForCurrCompPart();
      sDisplayCompositionData();
      break;
    case 3: sModeChosen(); break;
    case 4: sTonicChanged(); break;
    case 5:
      sDisplayCompositionData();
      sAdjustNotation();
      fRebuild();
      break;
    case 8:
      sAdjustFontForDisplay();
      sDisplayCompositionData();
      sAdjustNotation();
      break;
    case 9: fRebuild(); break;
    case 10:
      if (fAdjustDroneVolume() == 0) {
        sShowMessage("Error in Building DroneData");
        break;
      }
      fRebuild();
      break;
    case 11: sStop(); break;
    case 12: sAdvanceHighlight(); break;
    case 19: sRoundEnded(); break;
    case 20: sTerminatePlayCompositions(); break;
    default: break;  // 6, 7 (the tempo is read at Play) and 13 to 18 do nothing
  }
}
