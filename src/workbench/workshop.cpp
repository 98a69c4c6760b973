// Controller of the Workshop screen (see workbench.h). Every control's
// handler sets a session value or two and calls sWorkshop with its event
// number; the controller dispatches to itself. State: workbench_state.h.
//
// Where this screen waits for the device (the end of a single note, event
// 10), it does not loop: cTimer1 fires again until the device has stopped.
#include "workbench/workbench.h"

#include <cstddef>
#include <string>
#include <vector>

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/random.h"
#include "core/session.h"
#include "display/fonts.h"
#include "display/notation_display.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reed_marks.h"
#include "notation/durations.h"
#include "notation/phrase_forms.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "sound/drone.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/music_set.h"
#include "sound/notes_list.h"
#include "sound/play_buttons.h"
#include "sound/play_chain.h"
#include "sound/play_reeds.h"
#include "sound/play_state.h"
#include "sound/play_status.h"
#include "sound/playback.h"
#include "sound/speed_factor.h"
#include "sound/wave_folder.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "tonvex/tonvex.h"
#include "workbench/pattern_expansion.h"
#include "workbench/pattern_language.h"
#include "workbench/scale_notes.h"
#include "workbench/user_patterns.h"
#include "workbench/workbench_state.h"
#include "workbench/workshop_display.h"

namespace {

constexpr std::int16_t kNotes = 1;
constexpr std::int16_t kDurations = 2;
constexpr std::int16_t kTrue = -1;
constexpr std::int16_t kLearning = 2;
constexpr std::int16_t kPractice = 3;
constexpr std::int16_t kWorkbenchDurationKind = 10;
constexpr std::int32_t kLoopDrone = 2;  // FWavGenerateDroneFile: a seamless loop
constexpr std::size_t kNotesPerFile = 8;

platform::Screen& form() { return *gCurrForm; }
platform::Control& ctl(const char* name) { return gCurrForm->control(name); }
platform::AudioDevice& device() { return ctl("cMM").device(); }
bool fDevicePlaying() { return device().mode() == platform::kModePlaying; }

void sPlayPhrases() {
  gCallbackContext = kContextWorkbench;
  if (!fPlayMusicPhrases(form()) && !fToldWaveFolderFault(gCurrBuildFile))
    sShowMessage("Error playing music phrases");
}

void sSetDroneType(std::int32_t type) {
  if (gCurrDroneType == type) return;
  gCurrDroneType = type;
  if (fBuildDroneData() != 1) sShowMessage("Error in loading drone data");
}

// Builds the first buffer's file from gPlaySet; a failure is told.
void sPrepareFirstBuffer() {
  gMusicBuffers[0].Count = fCreateNotesList1(0);
  if (fPrepareToPlaySelection1(0) == 0 && !fToldWaveFolderFault(gCurrBuildFile)) {
    sShowMessage("Error Setting up for Illustration");
    gPlaySet.Count = 0;
  }
}

// gSelPhrase with gSelDurPhrase as the one phrase of gPlaySet, built.
void sSetUpForPlayingSelectedPhrase() {
  gPlaySet = PhraseSet{};
  gPlaySet.Count = gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = 1;
  gPlaySet.NotePhrases = {gSelPhrase};
  gPlaySet.DurPhrases = {gSelDurPhrase};
  gPlaySet.BaseDurPhrases = {gSelDurPhrase};
  sPrepareFirstBuffer();
}

// A text of the notation box in English: each word of a Devanagari box
// translated, ":" kept.
std::string fBoxTextInEnglish(const std::string& text) {
  if (gNotationScript != 1) return fRmvTrailBlk(fRmvLeadBlk(text));
  std::vector<std::string> words;
  for (const std::string& word : fPhraseWords(text)) words.push_back(word == ":" ? word : fGetEngForDev(word));
  return fJoinWords(words, " ");
}

// The phrases a pattern plays as: its ":" segments (Practice's passes), a
// segment longer than kNotesPerFile notes cut into pieces of that many.
// Each phrase is one wave file, and the chain plays them without a break,
// so the cut is not heard; it lets the first file, built before the first
// note sounds, stay short however long the pattern (a long pattern as one
// file took a fifth of a second to start), and keeps every phrase within
// the 500 notes one buffer holds.
std::vector<std::string> fSegments(const std::string& text) {
  std::vector<std::string> phrases;
  std::vector<std::string> words;
  auto endPhrase = [&] {
    if (!words.empty()) phrases.push_back(fJoinWords(words, " "));
    words.clear();
  };
  for (const std::string& word : fPhraseWords(text)) {
    std::string note;
    for (char c : word + " ") {
      if (c != ':' && c != ' ') {
        note += c;
        continue;
      }
      if (!note.empty()) words.push_back(note);
      note.clear();
      if (c == ':' || words.size() == kNotesPerFile) endPhrase();
    }
  }
  endPhrase();
  return phrases;
}

// The timing the pattern's notes take: the raga's own for its aroha-avroha
// and pakad, else one matra a note.
std::string fPatternTiming(const std::string& text) {
  const bool ownPhrase = gWBMode == 3 && gPatternSource == 1;
  if (ownPhrase && gStdPatternIndex == 0) return fGetFromT_ScalePhraseUnSeg(kDurations);
  if (ownPhrase && gStdPatternIndex == 1) return fGetFromT_PakadPhraseUnSeg(kDurations);
  return fCreateDurationPhrase(fRemoveColons(text), kWorkbenchDurationKind);
}

// Whether the user changed the notation box since it was shown.
bool fBoxEdited() {
  platform::Control& box = ctl("cCurrentItem");
  return box.visible() && fBoxTextInEnglish(box.text()) != fJoinWords(fPhraseWords(gWBShownNotation), " ");
}

}  // namespace

void sSetUpForWorkbenchModeIllustrations(std::int16_t source) {
  NV_PROC("sSetUpForWorkbenchModeIllustrations");
  gPracticeSet = PhraseSet{};
  gPlaySet = PhraseSet{};
  std::string text;
  if (source == 1) {
    text = gSelPhrase;
    platform::Control& box = ctl("cCurrentItem");
    sAdjustFont(box);
    sLoadNotation(box, text);
    gWBNotation = gWBShownNotation = text;
  } else {
    text = gWBNotation;
  }
  const std::vector<std::string> segments = fSegments(text);
  if (segments.empty()) return;
  const std::vector<std::string> timing =
      fPhraseWords(fFactorTimingScript(fPatternTiming(text), fCurrSliderValue()));
  std::size_t next = 0;
  for (const std::string& segment : segments) {
    std::vector<std::string> durations;
    for (std::size_t w = fPhraseWords(segment).size(); w > 0; --w)
      durations.push_back(next < timing.size() ? timing[next++] : std::to_string(gBaseMatraMs));
    gPracticeSet.NotePhrases.push_back(segment);
    gPracticeSet.DurPhrases.push_back(fJoinWords(durations, " "));
    gPracticeSet.BaseDurPhrases.push_back(gPracticeSet.DurPhrases.back());
  }
  gPracticeSet.Count = static_cast<std::int16_t>(segments.size());
  gPracticeSet.Position = gPracticeSet.FirstPhrase = 1;
  gPracticeSet.LastPhrase = gPracticeSet.Count;
  gPrefetchMode = kPrefetchNext;
  gWavOption = gCurrMode == kPractice ? 2 : 1;
  sSetUpForWBModeLoop();
}

void sSetUpForWBModeLoop() {
  NV_PROC("sSetUpForWBModeLoop");
  gPlaySet = gPracticeSet;
  if (gPlaySet.Count > 0) sPrepareFirstBuffer();
}

namespace {

// Event 1: a mode chosen. What the last mode left on show goes first, and
// its pattern with it: a pattern is chosen anew over the new notes (setting
// cOLearn in mode 3 raises its click, which would otherwise play the last
// mode's pattern over a raga not yet chosen).
void sModeChosen() {
  sHideDetails();
  gPatternSource = 0;
  switch (gWBMode) {
    case 1:
      sInitScaleNotes();
      sSetScaleNotesForMajorScale();
      sSetModeDisplay();
      sHideUnselectedNoteLabels();
      sShowSelectedNotes();
      sSetDroneType(1);
      break;
    case 2:
      gOptionStage = 1;
      sSetOptionsDisplay();
      sWorkbenchPrompt("88");
      break;
    case 3: {
      ctl("cOLearn").setValue(kTrue);
      gCurrMode = kLearning;
      ctl("Label7").setVisible(false);
      ctl("cCurrentItem").setText("");
      platform::Control& list = ctl("cRagaList");
      list.clear();
      std::vector<std::string> names;
      sLoadRagaList(names);
      for (const std::string& name : names) list.addItem(name);
      gWBListUse = 3;
      ctl("Label6").setCaption("Select Raga");
      ctl("Label6").setVisible(true);
      list.setVisible(true);
      ctl("Frame1").setVisible(false);
      sHideSlider();
      sWorkbenchPrompt("70");
      break;
    }
    case 4:
      gOptionStage = 11;
      sSetOptionsDisplay();
      sWorkbenchPrompt("97");
      break;
    default: break;
  }
}

void sThataChosen() {
  sInitScaleNotes();
  sSetScaleNotesForThata();
  sSetModeDisplay();
  sHideUnselectedNoteLabels();
  sShowSelectedNotes();
  ctl("cScaleType").setText("Scale for Thata '" + ctl("cRagaList").text() + "'");
  ctl("cRagaList").clear();
  ctl("cRagaList").setVisible(false);
  ctl("Label4").setVisible(false);
  sSetDroneType(1);
  sWorkbenchPrompt("40,87,35");
}

void sRagaChosen() {
  gCurrRagaName = ctl("cRagaList").text();
  gCurrRagaId = fGetRagaId(gCurrRagaName);
  if (gCurrRagaId == 0) return;
  sAdjustDroneType(fGetRagaDroneType(gCurrRagaId));
  sShowUserData(3);
  fLoadRagaNotesInVector();
  sAugmentScaleNotes();
  sSetUpSelNotes1(0, kNotePlaces - 1);
  sHideUnselectedNoteLabels();
  ctl("Label6").setVisible(false);
  ctl("cRagaList").clear();
  ctl("cRagaList").setVisible(false);
  sSetModeDisplay();
  ctl("cScaleType").setText("Notes for raga '" + fGetRagaName(gCurrRagaId) + "'");
  sWorkbenchPrompt("40,91,92,35");
}

// Event 2: a click in cRagaList, by what the list holds.
void sListChosen() {
  if (ctl("cRagaList").listIndex() < 0) return;
  switch (gWBListUse) {
    case 1: sThataChosen(); break;
    case 3: sRagaChosen(); break;
    case 4: sProcessSelectedUserPattern(); break;
    default: break;
  }
}

// The swar pairs of which a scale takes one form: picking either hides
// both. Note places.
bool fSwarPair(std::int32_t place, std::int32_t& first, std::int32_t& second) {
  static constexpr std::int32_t kPairs[][2] = {{6, 7}, {8, 9}, {10, 11}, {12, 12}, {13, 14}, {15, 16}};
  for (const auto& pair : kPairs) {
    if (place != pair[0] && place != pair[1]) continue;
    first = pair[0];
    second = pair[1];
    return true;
  }
  return false;
}

void sHideLabelOfPlace(std::int32_t place) {
  const std::int16_t label = fLabelOfPlace(place);
  if (form().hasControl("cL", label)) form().control("cL", label).setVisible(false);
}

void sScaleComplete() {
  const auto flagged = [](int place) { return gScaleNoteFlags[static_cast<std::size_t>(place)] == 1; };
  sSetDroneType(flagged(12) ? 1 : flagged(10) ? 2 : 3);
  ctl("cScaleType").setText(fSelectedScaleCaption());
  sAugmentScaleNotes();
  sKeyBoardDisplayOn(form(), 1);
  sSetUpSelNotes1(0, kNotePlaces - 1);
  sHideUnselectedNoteLabels();
  gWBKeyAction = 2;
  ctl("Label10").setCaption("Working with Note Scales - Select desired Music Pattern");
  sWorkbenchPrompt("40,87,35");
}

// Key action 1: a note of the scale picked.
void sScaleNotePicked() {
  const std::int32_t place = gLabelIndex - gCurrTonicNoteId - 4;
  std::int32_t first = 0;
  std::int32_t second = 0;
  if (!fSwarPair(place, first, second) || gScaleNoteFlags[static_cast<std::size_t>(place)] == 1) return;
  gScaleNoteFlags[static_cast<std::size_t>(place)] = 1;
  sShowSelectedNotes();
  sHideLabelOfPlace(first);
  sHideLabelOfPlace(second);
  if (++gSelNoteCount == gScaleSize + 6) sScaleComplete();
}

// The note of a clicked label in English.
std::string fLabelNote() {
  const std::string text = form().control("cL", gLabelIndex).caption();
  return gNotationScript == 1 ? fGetEngForDev(text) : text;
}

// The notes quiz: the clicked key answers the question. Our own addition:
// without it the quiz would only let the user hear the note and show it.
void sJudgeQuizAnswer(const std::string& note) {
  if (gWBMode != 4 || gQuizNote.empty()) return;
  const bool right = note == gQuizNote;
  ctl("Label4").setCaption(right ? "Right! The note is " + note
                                 : "Not " + note + ". Listen again, or press Show Note");
  ctl("Label4").setVisible(true);
}

// Key action 2: the clicked note is heard, in single plays only.
void sClickedNoteHeard() {
  const std::int32_t id = gLabelIndex + 3 - gCurrTonicNoteId;
  if (fDevicePlaying() || gCurrMode != 1 || id < 0 || id >= kNoteCount) return;
  sCaptureMenuBarItemStatus();
  sDisableF13Selections();
  gSelPhrase = gNoteEng[static_cast<std::size_t>(id)];
  gSelDurPhrase = std::to_string(gNoteLength);
  sJudgeQuizAnswer(gSelPhrase);
  sSetUpForPlayingSelectedPhrase();
  sWorkshop(17);
}

// Key action 3: the two notes of a glide.
void sMeendNotePicked() {
  const std::string note = fLabelNote();
  if (gMeendNotes[0].empty()) {
    gMeendNotes[0] = note;
    ctl("Label10").setCaption("Meend Pattern Demo - select second Note");
    sWorkbenchPrompt("95");
    return;
  }
  gMeendNotes[1] = note;
  gSelPhrase = gMeendNotes[0] + " " + gMeendNotes[1] + " " + gMeendNotes[0] + "'" + gMeendNotes[1];
  gMeendNotes = {};
  ctl("Label10").setCaption("Meend Pattern Demo - select first Note");
  sWorkbenchPrompt("94");
  sWorkshop(7);
}

void sKeyClicked() {
  if (!form().hasControl("cL", gLabelIndex)) return;
  switch (gWBKeyAction) {
    case 1: sScaleNotePicked(); break;
    case 2: sClickedNoteHeard(); break;
    case 3: sMeendNotePicked(); break;
    case 4:
      gSpecStart = "b";
      gSpecDir = "U";
      gSpecKind = "J";
      gSpecCount = fNoteOrdinalInScale(static_cast<std::int16_t>(gLabelIndex - gCurrTonicNoteId - 4));
      sUpdatePatternPhrase();
      break;
    default: break;
  }
}

void sThataListShown() {
  ctl("cRagaList").clear();
  sLoadThataList();
  gWBListUse = 1;
  ctl("Label6").setCaption("Select Thata");
  ctl("Label6").setVisible(true);
  ctl("cRagaList").setVisible(true);
  ctl("Frame1").setVisible(false);
  sHideSlider();
  sWorkbenchPrompt("89");
  gScaleSize = 2;
}

void sRunPattern() {
  sDisableF13Selections();
  sEnablePlayStopButtons();
  gCurrItemType = 3;
  gKeyboardDisplay = 1;
  ctl("cCurrentItem").setText("");
  sPlayPhrases();
}

// Event 5: Play or Start Looping in Learning or Practice.
void sPlayPressed() {
  if (gSliderMoved != 0 || fBoxEdited()) {
    gWBNotation = fBoxTextInEnglish(ctl("cCurrentItem").text());
    if (!fIsLegalNotationPhrase(gWBNotation, 2)) {
      sShowMessage("One or more changes you made are not allowable. Please check and correct errors.");
      sHideUnselectedNoteLabels();
      sEnablePlayStartButtons();
      ctl("Frame1").setVisible(true);
      sShowSlider();
      sWorkbenchPrompt("35,39");
      gLooping = false;
      return;
    }
    gWBShownNotation = gWBNotation;
    sSetUpForWorkbenchModeIllustrations(2);
    gSliderMoved = 0;
  }
  if (gPlaySet.Count == 0) {
    gLooping = false;
    return;
  }
  sRunPattern();
}

// The raga's own aroha-avroha or pakad, as the two first patterns of mode 3.
void sRagaOwnPhrase() {
  const bool pakad = gStdPatternIndex == 1;
  gSelPhrase = (pakad ? fGetFromT_PakadPhraseUnSeg : fGetFromT_ScalePhraseUnSeg)(kNotes);
  gCurrItemType = pakad ? 2 : 1;
  if (gGraceNotes == 1) gSelPhrase = fRemoveGlides(gSelPhrase);
  gBasePhrase = gSelPhrase;
}

bool fPhraseSpecError(const char* title) {
  platform::windowSystem().messageBox("Error in phrase patternText", platform::kMsgInformation, title);
  return false;
}

// Event 6 before the display: the pattern expanded into gSelPhrase.
bool fExpandPatternInForce() {
  const bool standard = gPatternSource == 1;
  if (gWBMode == 3) {
    sDBToTBaseInfo();
    if (standard && gStdPatternIndex <= 1) {
      sRagaOwnPhrase();
      return true;
    }
    const std::string& patternText = standard ? gStdPatterns[static_cast<std::size_t>(gStdPatternIndex)] : gPatternSpec;
    if (fInterpretPattern(patternText) == 0) return fPhraseSpecError("Message");
    sCreateRagaPatternFromBP();
    return !gSelPhrase.empty();
  }
  std::string patternText = gPatternSpec;
  if (standard) {
    patternText = gWBMode == 2 ? fStdPatternForScale(gStdPatternIndex, gScaleSize)
                        : gStdPatterns[static_cast<std::size_t>(gStdPatternIndex)];
    gBaseNoteIndex = gStdPatternIndex == 1 ? 0 : kPlaceOfSa;
    gPatternKind = gStdPatternIndex <= 1 ? 1 : 2;
  }
  if (fInterpretPattern(patternText) == 0) return fPhraseSpecError("Messge");
  sCreateScalePatternFromBP();
  if (gSelPhrase.empty()) sShowMessage(kOvershootMessage);
  return !gSelPhrase.empty();
}

void sPatternChosen() {
  if (gWBMode == 0 || gWBMode == 4 || !fExpandPatternInForce()) return;
  sShowBasePattern();
  gCurrItemType = 1;
  sShowUserData(7);
  sEnablePlayStartButtons();
  ctl("Frame1").setVisible(true);
  sShowSlider();
  sWorkbenchPrompt("35,39");
  sWorkshop(7);
}

void sPlayPatternNow() {
  sSetUpForWorkbenchModeIllustrations(1);
  if (gPlaySet.Count == 0) return;
  sRunPattern();
}

// Event 8: the quiz's note marked on the keyboard and heard again.
void sShowQuizNote() {
  sDisableF13Selections();
  sEnableKeyLabels();
  gKeyboardDisplay = 1;
  sKeyBoardDisplayOn(form(), 1);
  gCurrItemType = 3;
  sPlayReeds1Alt(form());
  ctl("cCurrentItem").setText("");
  sPlayPhrases();
  ctl("cTimer1").setInterval(gNoteLength);
  ctl("cTimer1").setEnabled(true);
}

// A new quiz note in gSelPhrase, built.
void sDrawQuizNote() {
  sRandomize();
  sUnMarkAllReeds(form());
  gSelNoteCount = 1;
  gSelPhrase.clear();
  gSelDurPhrase.clear();
  for (std::int16_t n = 1; n <= gSelNoteCount; ++n) {
    gQuizNote = gNoteEng[static_cast<std::size_t>(fGetValidNoteId() + 6)];
    gSelPhrase += gQuizNote + " ";
    gSelDurPhrase += std::to_string(gNoteLength) + " ";
  }
  ctl("Label4").setVisible(false);
  sSetUpForPlayingSelectedPhrase();
}

void sSelectNewPressed() {
  if (gWBMode == 2 || gWBMode == 3) {
    sHideDetails();
    sWorkshop(1);
  } else if (gWBMode == 4) {
    sDrawQuizNote();
    sWorkshop(17);
    ctl("Frame1").setVisible(false);
    sHideSlider();
  }
}

// Event 10: a single play has had its time; the selections come back once
// the device has stopped (the timer fires again until then).
void sSinglePlayTimer() {
  if (fDevicePlaying()) {
    ctl("cTimer1").setEnabled(true);
    return;
  }
  if (gLooping) return;
  sEnableF13Selections();
  sUnMarkAllReeds(form());
  sEnablePlayStartButtons();
}

void sTonicChosen() {
  if (gTonicChoice < 1 || gTonicChoice > 12) return;
  sKeyBoardDisplayOn(form(), 1);
  gCurrTonicNoteId = gTonicChoice;
  sMnuTonicNoteCheck();
  gCurrMusicSetId = gCurrTonicNoteId;
  if (fCreateNoteSeedsForUse() != 1) {
    sShowMessage("Error Creating Mote Seeds");
    return;
  }
  sUpdateReedLabelsAlt(form());
  sImplementCurrKBDisplayMode();
  if (gWBMode != 0) sHideUnselectedNoteLabels();
}

void sMeendDemo() {
  sKeyBoardDisplayOn(form(), 1);
  sHideUnselectedNoteLabels();
  sHideDetails();
  gWBKeyAction = 3;
  gMeendNotes = {};
  ctl("Label10").setCaption("Meend Pattern Demo - select first note");
  sWorkbenchPrompt("94");
}

void sSinglePlay() {
  sEnablePlayStopButtons();
  gCurrItemType = 3;
  ctl("cCurrentItem").setText("");
  if (gPlaySet.Count > 0) sPlayPhrases();
  ctl("cTimer1").setInterval(gNoteLength);
  ctl("cTimer1").setEnabled(true);
}

void sRunEnded() {
  if (gLooping) {
    if (gCurrMode == kPractice) sSetUpForWBModeLoop();
    sPlayPhrases();
    return;
  }
  sEnableF13Selections();
  if (gCurrMode != 1) sShowCurrentItem();
  sEnableKeyLabels();
  sSetAllReedLabelColorToDefault(form());
  sUnMarkAllReeds(form());
  sEnablePlayStartButtons();
}

void sSwitchMode() {
  gWBMode = 0;
  gWBKeyAction = 2;
  sHideDetails();
  sSetModeDisplay();
  sHideSlider();
  ctl("Label7").setVisible(true);
  sWorkbenchPrompt("34");
  sImplementCurrKBDisplayMode();
  ctl("Frame1").setVisible(false);
}

// Event 22. Music: the cursor past the end, so that the stopped play's done
// ends the run. The drone: stopped at once (its status handler would
// otherwise keep it going from the start), and its done closes it.
void sStopPressed() {
  platform::AudioDevice& mm = device();
  ctl("cTimer1").setEnabled(false);
  if (gWBPlayKind == 2) {
    gPlaySet.Position = static_cast<std::int16_t>(gPlaySet.Count + 1);
  } else {
    gLooping = false;
    gWBMode = 0;
    sSetModeDisplay();
  }
  mm.notify = false;
  mm.wait = true;
  mm.command("Stop");
}

// Event 23. The drone goes back to its start at half its length, so that
// it never reaches its end: its two cycles join without a gap.
void sStatusUpdate() {
  if (gWBPlayKind == 2) {
    sTrackPlayingNote(form(), gDelayW);
    return;
  }
  platform::AudioDevice& mm = device();
  if (!gLooping || mm.position() < mm.length() / 2) return;
  mm.notify = false;
  mm.wait = false;
  mm.command("Seek to start");
}

void sScriptChanged() {
  sAdjustF13NotationFonts();
  if (ctl("cPattern").visible()) sShowSelectedNotes();
  if (ctl("cPatName").visible() && !ctl("cOK").visible()) sShowBasePattern();
  if (ctl("cCurrentItem").visible()) sShowCurrentItem();
  sAdjustMDMStr();
}

void sDroneOnly() {
  sSetModeDisplay();
  if (fBuildDroneData() != 1) {
    sShowMessage("Error building Drone Data");
    return;
  }
  gDroneCycles = 2;
  if (FWavGenerateDroneFile(gDroneCycles, gDroneWavFile, kLoopDrone) != 1) {
    if (!fToldWaveFolderFault(gDroneWavFile)) sShowMessage("Error in generating drone file");
    return;
  }
  gWBPlayKind = 1;
  gLooping = true;
  sDisableF13Selections();
  sEnablePlayStopButtons();
  gCurrMusicFile = gDroneWavFile;
  gFileOpened = 0;
  sPlayMusicFile1(gCurrMusicFile);
}

void sDefinePattern() {
  gPatternSpec.clear();
  sInitPatternSpec();
  ctl("Label6").setCaption("Selected Base Pattern");
  ctl("Label6").setVisible(true);
  platform::Control& name = ctl("cPatName");
  name.setVisible(true);
  name.setText("");
  sAdjustFont(name);
  if (gDefPatternMode == 1) {
    gOptionStage = 3;
    sSetOptionsDisplay();
    sWorkbenchPrompt("90");
    return;
  }
  gWBKeyAction = 4;
  sKeyBoardDisplayOn(form(), 1);
  sHideUnselectedNoteLabels();
  sHideNonOctaveNotes();
  gOptionStage = 9;
  sSetOptionsDisplay();
  sWorkbenchPrompt("96");
}

void sDefineScale() {
  ctl("Frame2").setVisible(false);
  sInitScaleNotes();
  gSelNoteCount = 2;
  gScaleNoteFlags[kPlaceOfSa] = 1;
  gScaleNoteFlags[kPlaceOfUpperSa] = 1;
  gWBKeyAction = 1;
  sShowSelectedNotes();
  sDisplayKBForNoteSelection();
  sHideLabelOfPlace(kPlaceOfSa);
  sHideLabelOfPlace(kPlaceOfUpperSa);
  ctl("Label4").setVisible(false);
  sSetModeDisplay();
  sWorkbenchPrompt("38,35");
}

void sUserPatternsAsked() {
  if (fLoadUserPatternsList() == 0) {
    platform::windowSystem().messageBox("No User-defined Patterns are available",
                                        platform::kMsgInformation, "Message'");
    return;
  }
  ctl("cPatName").setVisible(false);
  ctl("cOK").setVisible(false);
  sWorkbenchPrompt("93,35");
}

void sQuizStarts() {
  gCurrMode = 1;
  gWavOption = 1;
  sSetModeDisplay();
  sHideDetails();
  sDrawQuizNote();
  sEnablePlayStartButtons();
  sKeyBoardDisplayOn(form(), 1);
  ctl("Frame1").setVisible(false);
  sHideSlider();
  sWorkbenchPrompt("36");
}

}  // namespace

void sInitWorkshop() {
  NV_PROC("sInitWorkshop");
  gNoteLength = 200;
  gBaseMatraMs = 70;
  gCurrPhraseKind = 10;
  gWBPlayKind = 2;
  // The grace-note choice stays the learner's, as the session holds it:
  // setting it here would change it for every other screen too.
  gMenuBarItemStatus.fill(true);
  sEnterForm(kFormWorkshop);
  ctl("cMnuDev").setVisible(gDevnagariOk == kTrue);
  sLoadKBReedsAndLabels(form());
  sAdjustFont(ctl("cCurrentItem"));
  sAdjustFont(ctl("cPattern"));
  sMnuNotationScriptCheck();
  sMnuKeyboardDisplayCheck();
  sMnuTonicNoteCheck();
  sMnuGraceNotesCheck();
  sMnuTraceCheck();
  sImplementCurrKBDisplayMode();
  sUpdateReedLabelsAlt(form());
  gPatternSource = 0;
  gSliderMoved = 0;
  gWBKeyAction = 2;
  gLooping = false;
  gQuizNote.clear();
  ctl("Label7").setVisible(true);
  sWorkbenchPrompt("34");
  gWBMode = 0;
  sSetModeDisplay();
}

void sTerminateWorkshop() {
  NV_PROC("sTerminateWorkshop");
  sStructuredTermination(1);
}

void sWorkshop(std::int16_t event) {
  NV_PROC("sWorkshop");
  gCallbackContext = kContextWorkbench;
  switch (event) {
    case 0:
      sInitWorkshop();
      ctl("cOLearn").setValue(kTrue);
      gCurrMode = kLearning;
      break;
    case 1: sModeChosen(); break;
    case 2: sListChosen(); break;
    case 3: sKeyClicked(); break;
    case 4: sThataListShown(); break;
    case 5: sPlayPressed(); break;
    case 6: sPatternChosen(); break;
    case 7: sPlayPatternNow(); break;
    case 8: sShowQuizNote(); break;
    case 9: sSelectNewPressed(); break;
    case 10: sSinglePlayTimer(); break;
    case 11:
    case 12:
    case 13: sProcessOptionSelection(static_cast<std::int16_t>(event - 10)); break;
    case 14:
      sMnuGraceNotesCheck();
      sSetModeDisplay();
      if (gPatternSource != 0) sWorkshop(6);
      break;
    case 15: sTonicChosen(); break;
    case 16: sMeendDemo(); break;
    case 17: sSinglePlay(); break;
    case 18: sImplementCurrKBDisplayMode(); break;
    case 19: sRunEnded(); break;
    case 20: sTerminateWorkshop(); break;
    case 21: sSwitchMode(); break;
    case 22: sStopPressed(); break;
    case 23: sStatusUpdate(); break;
    case 24: sScriptChanged(); break;
    case 25: sDroneOnly(); break;
    case 26: sDefinePattern(); break;
    case 27: sDefineScale(); break;
    case 28: sPatNameConfirmed(); break;
    case 29: sUserPatternsAsked(); break;
    case 30: sQuizStarts(); break;
    case 31: sAskNewPatternName(); break;
    case 32: sDeleteUserPattern(); break;
    default: break;  // other numbers do nothing
  }
}
