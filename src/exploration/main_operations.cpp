// Controller of MainOperations, the screen on which one raga is explored in
// Demo, Learning or Practice mode. Every control's handler sets a session
// value or two and calls sMainOperations with its event number; the
// controller dispatches to itself. State: the exploration state.
#include "exploration/exploration.h"

#include <cstddef>
#include <string>

#include "control/screen_manager.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "display/notation_display.h"
#include "exploration/exploration_state.h"
#include "exploration/illustration_setup.h"
#include "exploration/item_identity.h"
#include "exploration/mo_controls.h"
#include "exploration/practice_notation.h"
#include "exploration/prompts.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reed_labels.h"
#include "notation/phrase_forms.h"
#include "platform/screen.h"
#include "player/player.h"
#include "sound/composition_files.h"
#include "sound/composition_prep.h"
#include "sound/drone.h"
#include "sound/music_buffers.h"
#include "sound/music_set.h"
#include "sound/phrase_loading.h"
#include "sound/play_buttons.h"
#include "sound/play_chain.h"
#include "sound/play_reeds.h"
#include "sound/play_state.h"
#include "sound/play_status.h"
#include "sound/play_stop.h"
#include "sound/playback.h"
#include "sound/wave_folder.h"
#include "store/positioning.h"
#include "store/working_record_comp.h"

namespace {

constexpr std::int16_t kCompositionKind = 8;
constexpr std::int16_t kFilmSongKind = 9;

platform::Screen& form() { return *gCurrForm; }
platform::Control& ctl(const char* name) { return gCurrForm->control(name); }

void sPointer(int pointer) { form().setMousePointer(pointer); }

void sSelectDemo() {
  gCurrMode = 1;
  ctl("Option1").setValue(-1);
}

// Starts the run of gPlaySet; a failure is told and the screen stays as it is.
void sPlayRun() {
  gCallbackContext = kContextMainOperations;
  if (!fPlayMusicPhrases(form()) && !fToldWaveFolderFault(gCurrBuildFile))
    sShowMessage("Error Playing Music Phrases");
}

// Events 1 and 2: a click in one of the item lists.
void sListClicked(const char* list, std::int16_t source) {
  platform::Control& items = ctl(list);
  const int index = items.listIndex();
  if (index < 0) return;
  gCurrDbSelector = source;
  ctl("cNotes").setVisible(false);
  if (source == 1) ctl("Frame2").setVisible(false);
  sSetMusicParameters(items.list(index), gCurrDbSelector);
  items.setListIndex(-1);
  switch (gCurrItemType) {
    case 1:
    case 2: sMainOperations(5); break;
    case 3:
    case 4:
    case 5: sMainOperations(6); break;
    case 6: sMainOperations(7); break;
    case 7: sMainOperations(8); break;
    default: break;
  }
}

// Events 5 and 6: one phrase item, or a group of phrases whose set-up is
// left to Play in Learning and Practice.
void sPlayPhraseItem(bool setUpNow) {
  switch (gCurrMode) {
    case 1:
      sSetUpForDemoModeIllustrations();
      sDisplayMOControls();
      sDisableF28Selections();
      sPlayRun();
      return;
    case 2:
      sLoadMNFromT(kUnsegmentedText);
      sLoadScriptFromMN(ctl("cCurrentItem"));
      if (setUpNow) sSetUpForLearningModeIllustration();
      break;
    default:
      sLoadMNFromT(kSegmentedText);
      sLoadScriptFromMN(ctl("cCurrentItem"));
      if (setUpNow) sSetUpForPracticeModeIllustrations1();
      break;
  }
  sDisplayMOControls();
  sSetCurrItemDesc();
  sPointer(platform::kPointerDefault);
}

// Builds both pieces of a composition, film song or comparison; false after
// the message.
bool fBuildPieces() {
  if (fCreateCompositionMusicFilesFromT() != 0) return true;
  if (fToldWaveFolderFault(gCurrBuildFile)) return false;
  platform::windowSystem().messageBox("Error creating music files", platform::kMsgExclamation,
                                      "Message");
  return false;
}

void sPlayComposition() {
  if (gCurrPhraseKind == kCompositionKind && gCurrMode != 1) {
    gCompPart = 1;
    sClearNotationBox();
    sHideMOControls();
    sPlayCompositions(0);
    return;
  }
  sSelectDemo();
  gThekaMode = gCurrPhraseKind == kCompositionKind ? 1 : 2;
  gCurrItemType = 6;
  if (!fBuildPieces()) return;
  const std::int16_t pieces = gCurrPhraseKind == kFilmSongKind ? 1 : 2;
  gPlaySet.Count = pieces;
  gPlaySet.LastPhrase = pieces;
  gPlaySet.FirstPhrase = 1;
  gPlaySet.Position = 1;
  sDisplayMOControls();
  sDisableF28Selections();
  sPlayRun();
}

void sPlayComparison() {
  sSelectDemo();
  gCurrItemType = 7;
  gCompPart = 1;
  // The names come from the parts that hold the phrases (see
  // fComparisonCaption), not from the list entry and the current raga.
  gComparedRagaName = gCompInfo[1].Mukhada;
  ctl("cInfo").setText(fComparisonCaption(0));
  if (!fBuildPieces()) return;
  gPlaySet.Count = 2;
  gPlaySet.LastPhrase = 2;
  gPlaySet.FirstPhrase = 1;
  gPlaySet.Position = 1;
  sDisplayMOControls();
  sDisableF28Selections();
  sPlayRun();
}

// Event 11: Next/Prev in Learning and Practice; in Demo a replay of one part.
void sPartOrStepChosen() {
  if (gCurrMode != 1) {
    sLoadScriptFromMN(ctl("cCurrentItem"));
    sSetCurrItemDesc();
    return;
  }
  sDisableF28Selections();
  ctl("Frame2").setEnabled(false);
  ctl("cCurrentItem").setVisible(true);
  const std::int16_t part = gCurrItemType == 7 ? gComparePick : gCompPart;
  if (part < 1 || part > 2) return;
  gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = part;
  gMusicBuffers[static_cast<std::size_t>(part - 1)].CurrNote = 1;
  sEnablePlayStopButtons();
  sPlayRun();
}

// After the seeds were rebuilt for a new tonic or scale: the keyboard anew.
void sRedrawKeyboard() {
  sUnMarkCurrentReeds(form());
  if (gKeyboardDisplay != 1) return;
  sHideKeyboard(form());
  ctl("cLine1").setVisible(true);
  sKeyBoardDisplayOn(form(), 1);
}

// A tonic or a scale that could not be set up gives the screen back as it
// was before the choice: the pointer to normal and the selections enabled.
// (Leaving early used to keep the hourglass and the disabled screen, so the
// user could do nothing but close the window.)
void sGiveBackAfterFailedChoice() {
  sPointer(platform::kPointerDefault);
  sEnableF28Selections();
}

// Event 12: a user-defined scale.
void sScaleChosen() {
  platform::Control& list = ctl("cScaleList");
  if (list.listIndex() < 0 || !gDbB) return;
  sPointer(platform::kPointerHourglass);
  sDisableF28Selections();
  sMnuTonicNoteUncheck();
  {
    auto table = gDbB->openRecordset("Scale Shift Specs", platform::RecordsetType::Table);
    sSetTableIndexRecord(*table, "Set Name", list.list(list.listIndex()));
    if (table->noMatch()) {  // deleted since the list was filled: nothing changed
      sMnuTonicNoteCheck();
      sGiveBackAfterFailedChoice();
      return;
    }
    gCurrMusicSetId = static_cast<std::int16_t>(table->field("NPSetId").asInteger());
    gCurrTonicNoteId = static_cast<std::int16_t>(table->field("TonicNoteId").asInteger());
    gCurrMusicSetName = table->field("NPSetName").asText();
  }
  if (fCreateNoteSeedsForUse() != 1) {
    sShowMessage("Error Creating Mote Seeds");
    sGiveBackAfterFailedChoice();
    return;
  }
  sRedrawKeyboard();
  sPointer(platform::kPointerDefault);
  sEnableF28Selections();
  sMainOperations(3);
}

// Event 14: a tonic from the Tonic Note menu.
void sTonicChosen() {
  if (gTonicChoice < 1 || gTonicChoice > 12) return;
  gCurrTonicNoteId = gTonicChoice;
  sMnuTonicNoteCheck();
  sPointer(platform::kPointerHourglass);
  sDisableF28Selections();
  ctl("cScaleList").setListIndex(-1);
  gCurrMusicSetId = gCurrTonicNoteId;
  if (fCreateNoteSeedsForUse() != 1) {
    sShowMessage("Error Creating Mote Seeds");
    sGiveBackAfterFailedChoice();
    return;
  }
  sRedrawKeyboard();
  sDisplayCurrModePrompts();
  sEnableF28Selections();
  sPointer(platform::kPointerDefault);
}

// Event 15: the notation script changed.
void sNotationChanged() {
  sUpdateF28NotationItemFonts();
  sAdjustNotation();
  if (ctl("cCurrentItem").visible()) sClearNotationBox();
  if (gKeyboardDisplay == 1) sKeyBoardDisplayOn(form(), 1);
}

// Whether the box holds the phrase as it was shown, with or without its
// grace notes, in the script in force.
bool fBoxShowsPhrase(const std::string& boxText, const std::string& phrase) {
  for (std::int16_t grace : {1, 2}) {
    const std::string shown = fPrepareNotesForScript(phrase, gNotationScript, grace);
    if (boxText == fPrepareNotationDisplayString(shown)) return true;
  }
  return false;
}

// Event 22: the grace notes changed. The phrase of Learning or Practice is
// taken from the working record again with the new choice and shown in the
// box; a box the learner has edited in Practice keeps his text, and in Demo
// the box keeps the notes played so far. (The grace-note entries used to
// raise event 15 with the script entries, which empties the box: a learner
// who turned grace notes off to hear a phrase plainly lost the phrase.)
void sGraceNotesChanged() {
  sUpdateF28NotationItemFonts();
  sAdjustNotation();
  if (gKeyboardDisplay == 1) sKeyBoardDisplayOn(form(), 1);
  platform::Control& box = ctl("cCurrentItem");
  const std::int16_t position = gPhraseSet.Position;
  const bool study = gCurrMode != 1 && gCurrItemType >= 1 && gCurrItemType <= 5;
  if (!box.visible() || !study || position < 1 || position > gPhraseSet.Count) return;
  const auto entry = static_cast<std::size_t>(position - 1);
  const bool edited = !fBoxShowsPhrase(box.text(), gPhraseSet.NotePhrases[entry]);
  sLoadMNFromT(gCurrMode == 3 ? kSegmentedText : kUnsegmentedText);
  gPhraseSet.Position = position;
  gLastLearnNotation.clear();  // Learning builds the phrase again at the next Play
  if (gCurrMode == 3 && edited) return;
  sLoadNotation(box, gPhraseSet.NotePhrases[entry]);
}

// Event 19 in Learning and Practice. While looping, the chain has already
// queued the next repeat's first phrase behind the last one, built from the
// same notation (the box is not read again, and a new speed is taken at
// the next Play): the repeat goes on at once, without a gap. (Building it
// here, after the run had ended, broke the sound and restarted the drone.)
void sStudyRunEnded() {
  if (gLooping) {
    if (gCurrMode == 3) ctl("cCurrentItem").setText(gCurrNotation);
    gCurrBuildFile = gWavA;
    sPlayRun();
    return;
  }
  sSetAllReedLabelColorToDefault(form());
  sEnableF28Selections();
  sPointer(platform::kPointerDefault);
  ctl("cCurrentItem").setText(gCurrNotation);
  sEnablePlayStartButtons();
  if (gCurrItemType >= 3 && gCurrItemType <= 5) {
    ctl("Frame2").setVisible(true);
    ctl("Option4").setVisible(true);
    ctl("Option5").setVisible(true);
    ctl("Frame2").setEnabled(true);
  }
  ctl("Option4").setValue(0);
}

void sDemoRunEnded() {
  sSetAllReedLabelColorToDefault(form());
  sEnableF28Selections();
  const bool parts = gCurrItemType == 7 || (gCurrItemType == 6 && gCurrPhraseKind == kCompositionKind);
  if (parts) {
    ctl("Frame2").setEnabled(true);
    ctl("Frame2").setCaption("Select to Play");
    ctl("Option4").setVisible(true);
    ctl("Option5").setVisible(true);
    ctl("Option4").setValue(0);
    ctl("Option5").setValue(0);
    sDisplayPatternNotation();
    ctl("cStopCur").setEnabled(false);
  } else {
    sHideMOControls();
  }
}

void sRunEnded() {
  if (gCurrMode == 1)
    sDemoRunEnded();
  else
    sStudyRunEnded();
  sPointer(platform::kPointerDefault);
}

std::size_t fWordCount(const std::string& text) {
  std::size_t words = 0;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != ' ' && (i == 0 || text[i - 1] == ' ')) ++words;
  return words;
}

// Event 21: Play or Start Looping.
// English note words typed while Devanagari is shown are played, and the
// box shows them converted; a box that cannot be played names its first
// wrong word and why after the screen's sentence. (Every refused box used
// to get the same sentence alone, and English words were refused under
// Devanagari, which a learner with a Latin keyboard cannot type.)
void sPlayNotation() {
  platform::Control& box = ctl("cCurrentItem");
  gCurrNotation = fNotationInScript(box.text(), gNotationScript);
  if (gCurrNotation != box.text()) box.setText(gCurrNotation);
  if (fWordCount(gCurrNotation) == 0) {  // nothing but blanks counts as empty
    sShowMessage("Please select an item to play");
    return;
  }
  const NotationFault fault = fFirstNotationFault(gCurrNotation, gNotationScript);
  if (fault.wordNumber != 0) {
    sShowMessage(fNotationFaultMessage(fault, gNotationScript));
    return;
  }
  if (gCurrMode == 3) {
    sSetUpForPracticeModeIllustrations1();
  } else if (gCurrMode == 2) {
    const auto speed = static_cast<std::int16_t>(ctl("cSlider").value());
    if (gCurrNotation != gLastLearnNotation || speed != gLastLearnSpeed)
      sSetUpForLearningModeIllustration();
    gLastLearnNotation = gCurrNotation;
    gLastLearnSpeed = speed;
  }
  ctl("Option4").setValue(0);
  sClearNotationBox();
  ctl("cPlay").setEnabled(false);
  ctl("cStop").setEnabled(!gLooping);
  ctl("cStartLoop").setEnabled(false);
  ctl("cStopLoop").setEnabled(gLooping);
  sPointer(platform::kPointerHourglass);
  sDisableF28Selections();
  sPlayRun();
}

}  // namespace

void sMainOperations(std::int16_t event) {
  NV_PROC("sMainOperations");
  switch (event) {
    case 0: sInitMainOperations(); break;
    case 1: sListClicked("cNVIllusList", 1); break;
    case 2: sListClicked("cUserIllusList", 2); break;
    case 3:
      sClearNotationBox();
      sHideMOControls();
      sDisplayCurrModePrompts();
      break;
    case 5: sPlayPhraseItem(true); break;
    case 6:
      sPointer(platform::kPointerHourglass);
      sPlayPhraseItem(false);
      break;
    case 7: sPlayComposition(); break;
    case 8: sPlayComparison(); break;
    case 9:
      sStopMusicPhrases(form());
      sClearNotationBox();
      break;
    case 10: sStopCurrentPhrase(form()); break;
    case 11: sPartOrStepChosen(); break;
    case 12: sScaleChosen(); break;
    case 13: sImplementCurrKBDisplayMode(); break;
    case 14: sTonicChosen(); break;
    case 15: sNotationChanged(); break;
    case 16:
      if (fAdjustDroneVolume() != 1) sShowMessage("Error in Building DroneData");
      break;
    case 17:
      ctl("cNotes").setVisible(true);
      ctl("cNotes").setText(gRagaNotesText);
      break;
    case 18: sTrackPlayingNote(form(), gDelayMO); break;
    case 19: sRunEnded(); break;
    case 20: sTerminateMainOperations(); break;
    case 21: sPlayNotation(); break;
    case 22: sGraceNotesChanged(); break;
    default: break;  // event 4 and numbers above 22 do nothing
  }
}
