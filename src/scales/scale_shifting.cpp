// Controller of the ScaleShifting screen, "Define/Refine Pitch-Shifted
// Scales": a new scale is made by finding the key nearest to the wanted Sa
// (state 0), tuning it with the slider (state 1) and naming the scale built
// on it; a stored scale's notes are refined one by one (state 2). Every
// note or phrase played opens a listening period that the screen's timer
// ends (event 17), with the keys locked meanwhile. State: scale_state.h.
//
// Where this screen departs from the way it first worked, on purpose:
// - It does not wait in a loop for the device before a note: whatever can
//   start a note is locked until the listening period has ended, and a
//   note started while another sounds replaces it.
// - In state 1 a click on another candidate key makes it the note being
//   tuned afresh (its periods are read again, the slider goes back to 0 and
//   the key tuned before gets its recorded seed back); moving only the mark
//   made Play tune the new key by the old key's correction.
// - A note that cannot be played, or seeds that cannot be built, give the
//   keys and the pointer back at once instead of leaving the screen locked.
// - Leaving puts back the music set in use on entry when it still exists
//   (a user scale stays chosen), else the library scale of the entry tonic;
//   the window's close box leaves the same way (it used to leave the scale
//   being made in force for the whole program).
// - Playing a scale leaves the keyboard setting of the other screens alone.
// - A raga's scale or pakad asked for before a raga was chosen says so.
// - Names are trimmed of blanks at both ends and may not be longer than
//   kLongestScaleName; a redefinition keeps the scale's id and is one
//   transaction, so a kill part-way never loses the scale.
// - The scale being refined can be renamed and deleted (events 24, 25),
//   each after a confirmation.
#include "scales/scales.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "display/raga_display.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reeds.h"
#include "notation/durations.h"
#include "notation/generation.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "scales/scale_display.h"
#include "scales/scale_math.h"
#include "scales/scale_sets.h"
#include "scales/scale_state.h"
#include "sound/drone.h"
#include "sound/music_set.h"
#include "sound/onpr_rows.h"
#include "sound/play_selection.h"
#include "sound/seeds.h"
#include "sound/sound_state.h"
#include "store/lookups.h"
#include "store/positioning.h"
#include "store/queries.h"
#include "tonvex/tonvex.h"

namespace {

constexpr std::int32_t kNoteMs = 3000;
constexpr int kListeningMs = kNoteMs + 1000;
constexpr int kMajorScaleListeningMs = 17000;
constexpr int kFullScaleListeningMs = 27000;
constexpr int kLongestListeningMs = 60000;
constexpr int kMarkColor = 255;
constexpr std::int16_t kFirstTonicReed = 10;
constexpr std::int16_t kLastTonicReed = 21;
constexpr std::int16_t kRagaScale = 6;
constexpr std::int16_t kRagaPakad = 7;

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }
void pointer(int shape) { gCurrForm->setMousePointer(shape); }
void prompt(const char* ids) { ctl("cPrompts").setText(fGetPrompts(ids)); }

void armTimer(int ms) {
  platform::Control& timer = ctl("cTimer");
  timer.setEnabled(false);
  timer.setInterval(ms);
  timer.setEnabled(true);
}

bool isReed(std::int16_t reed) { return reed >= kLowestReed && reed <= kHighestReed; }

void focusName() { ctl("cSettingName").setFocus(); }

// The recorded period of note `noteId` of the main set; `fallback` when the
// set has no such note.
double recordedSpc(platform::Recordset& specs, std::int16_t noteId, double fallback) {
  sSetTablePKRecord2(specs, platform::Value(gMainSetName), platform::Value(noteId));
  if (specs.noMatch()) return fallback;
  return static_cast<double>(specs.field("SamPerCyc").asInteger()) +
         specs.field("Fractional Value").asDouble();
}

// gBaseSPC, gNewSPC and the neighbours' periods for the note gPlayedLabel.
void sReadTunedNotePeriods() {
  auto specs = gDbA->openRecordset("Note Specifications", platform::RecordsetType::Table);
  gBaseSPC = recordedSpc(*specs, gPlayedLabel, 0.0);
  gNewSPC = gBaseSPC;
  gSPCOfNoteAbove = recordedSpc(*specs, static_cast<std::int16_t>(gPlayedLabel + 1), gBaseSPC);
  gSPCOfNoteBelow = recordedSpc(*specs, static_cast<std::int16_t>(gPlayedLabel - 1), gBaseSPC);
  specs->close();
}

// Plays the note being worked on for a listening period, the keys locked;
// when it cannot be played, says so and ends the period at once.
void sListenToNote(std::int32_t droneMix) {
  sDisableNoteLabels();
  if (!fPlaySelectedNote(gPlayedLabel, kNoteMs, droneMix)) {
    sShowMessage("Error in playing selected note");
    sShiftScale(17);
    return;
  }
  armTimer(kListeningMs);
}

// Reloads the note being worked on and tunes it by gSPCDelta from its
// recorded period, so that a tuning never adds up on itself.
void sRetuneNote() {
  if (fLoadIndividualNoteSeed(gMainSetName, gPlayedLabel) != 1)
    sShowMessage("Error Loading Note Seed for Selected Note");
  if (FWavTuneNote(gMainSetName, gPlayedLabel, gSPCDelta) != 1)
    sShowMessage("Error Tuning Selected Note");
}

void sMarkClickedLabel() {
  if (gPrevLabel >= 0 && gCurrForm->hasControl("cL", gPrevLabel))
    gCurrForm->control("cL", gPrevLabel).setForeColor(0);
  if (gCurrForm->hasControl("cL", gLabelIndex))
    gCurrForm->control("cL", gLabelIndex).setForeColor(kMarkColor);
  gPrevLabel = gLabelIndex;
}

void sShowMenusForScales(bool on) {
  ctl("cMnuPlaSca").setVisible(on);
  ctl("cMnuSelRag").setVisible(on);
}

void sShowTonicBeingDefined() {
  ctl("cTuneNote").setEnabled(false);
  ctl("cScale").setText("Tonic for New Scale being defined.");
  prompt("9");
}

void sInitShiftScale() {
  NV_PROC("sInitShiftScale");
  sEnterForm(kFormScaleShifting);
  sMnuTraceCheck();
  gSavedNotationScript = gNotationScript;
  gNotationScript = 2;
  gSavedTonic = gCurrTonicNoteId;
  gSavedMusicSetId = gCurrMusicSetId;
  gSavedMusicSetName = gCurrMusicSetName;
  gCurrTonicNoteId = 3;
  gSensitivitySteps = {1.0f, 0.3f, 0.1f, 0.0f};
  gCurrRagaName.clear();
  sLoadKBReedsAndLabels(*gCurrForm);
  gPrevLabel = -1;
  gPlayedLabel = 0;
  gCurrRagaId = 0;
  gCurrMusicSetId = gCurrTonicNoteId;
  gScaleState = kIdentifyTonic;
  if (fCreateNoteSeedsForUse() != 1) sShowMessage("Error in adjusting notes");
  sGrpDispAll(0, kMasksStart);
  sShowTonicBeingDefined();
}

// Event 1, state 0: the key is heard alone as a candidate tonic.
void sTryTonic() {
  pointer(platform::kPointerHourglass);
  gCurrTonicNoteId = gCurrMusicSetId = 3;
  sGrpDispAll(1, kMasksIdentifying);
  ctl("cTuneNote").setEnabled(false);
  ctl("cScale").setText("Tonic Note for New Scale being identified");
  ctl("cNote").setText(fGetTonicNoteName(static_cast<std::int16_t>(gLabelIndex - 9)).substr(0, 7));
  sDisableNoteLabels();
  if (fCreateNoteSeedsForUse() != 1) {
    sShowMessage("Error Creating Note Seeds");
    sShiftScale(17);
    return;
  }
  sListenToNote(0);
}

// Event 1, state 1: another key becomes the note being tuned.
void sTuneAnotherKey(std::int16_t previous) {
  if (isReed(previous)) fLoadIndividualNoteSeed(gMainSetName, previous);
  gCurrTonicNoteId = static_cast<std::int16_t>(gPlayedLabel - 9);
  ctl("cSlider").setValue(0);
  sReadTunedNotePeriods();
}

void sKeyClicked() {
  if (!isReed(gLabelIndex)) return;
  const bool candidate = gLabelIndex >= kFirstTonicReed && gLabelIndex <= kLastTonicReed;
  if (gScaleState == kTuneTonic && !candidate) return;
  const std::int16_t previous = gPlayedLabel;
  gPlayedLabel = gLabelIndex;
  sMarkClickedLabel();
  if (gScaleState == kIdentifyTonic) return sTryTonic();
  if (gScaleState == kTuneTonic) return sTuneAnotherKey(previous);
  sGrpDispAll(1, kMasksNoteClicked);
  sDisplayCurrNoteName(gPlayedLabel, ctl("cNote"));
  sListenToNote(1);
}

void sTuneSelectedNote() {
  if (gPlayedLabel < kFirstTonicReed || gPlayedLabel > kLastTonicReed) return;
  sGrpDispAll(1, kMasksTuning);
  gScaleState = kTuneTonic;
  gCurrTonicNoteId = static_cast<std::int16_t>(gPlayedLabel - 9);
  ctl("cSlider").setValue(0);
  ctl("cTuneNote").setVisible(false);
  sReadTunedNotePeriods();
  prompt("10");
}

void sDisplayScalesList() {
  NV_PROC("sDisplayScalesList");
  platform::Control& list = ctl("cScalesList");
  list.clear();
  auto rs = gDbB->openRecordset(gSQLStr2, platform::RecordsetType::Snapshot);
  if (rs->eof()) sShowMessage("No Scales Defined as yet");
  for (; !rs->eof(); rs->moveNext()) list.addItem(rs->field("NPSetName").asText());
  rs->close();
}

void sChooseScaleToRefine() {
  gScaleState = kRefineNotes;
  gScaleListUse = kListsScales;
  sGrpDispAll(1, kMasksChoosingScale);
  sDisplayScalesList();
  prompt("11");
}

void sSetTonicChosen() {
  gCurrTonicNoteId = gCurrMusicSetId = 3;
  gNotationScript = 2;
  gScaleState = kIdentifyTonic;
  sGrpDispAll(1, kMasksIdentifying);
  sShowTonicBeingDefined();
  sShowMenusForScales(false);
}

void sPlayPressed() {
  if (!isReed(gPlayedLabel)) return;
  if (gScaleState == kTuneTonic) {
    gTestSPC = fGetNewValue(static_cast<std::int16_t>(ctl("cSlider").value()));
    gSPCDelta = gTestSPC - gBaseSPC;
    gNewSPC = gTestSPC;
    sRetuneNote();
    ctl("cPlay").setEnabled(false);
    ctl("cAdjust").setEnabled(false);
    sListenToNote(0);
  } else if (gScaleState == kRefineNotes) {
    sListenToNote(1);
  }
}

void sCreateScale() {
  gScaleShiftSpec = {gPlayedLabel, static_cast<float>(gBaseSPC), static_cast<float>(gNewSPC)};
  pointer(platform::kPointerHourglass);
  gCurrMusicSetId = static_cast<std::int16_t>(gPlayedLabel - 9);
  if (fAdjustScaleNotesToCurrentSetting(gCurrMusicSetId) != 1) {
    sShowMessage("Error in adjusting notes");
    pointer(platform::kPointerDefault);
    return;
  }
  gNamingFor = NamingFor::NewScale;
  sGrpDispAll(1, kMasksNaming);
  ctl("cSettingName").setText("");
  prompt("12");
  focusName();
  pointer(platform::kPointerDefault);
}

void sSetUpForRefinementOperation() {
  NV_PROC("sSetUpForRefinementOperation");
  gScaleState = kRefineNotes;
  const std::optional<StoredScale> scale = fFindScale(gCurrMusicSetName);
  if (!scale) {  // deleted since the list was filled
    sChooseScaleToRefine();
    return;
  }
  gCurrMusicSetId = scale->id;
  gCurrTonicNoteId = scale->tonicNoteId;
  if (fCreateNoteSeedsForUse() != 1) sShowMessage("Error Creating Note Seeds");
  sLoadNoteAdjustSPCVector(gMainSetName, kMainInstrument, gCurrMusicSetId);
  sGrpDispAll(1, kMasksRefinementSetUp);
  ctl("cScale").setText(gCurrMusicSetName);
  gNotationScript = gSavedNotationScript;
  prompt("13,173");
  sShowMenusForScales(true);
}

void sSaveRefinement() {
  NV_PROC("sSaveRefinement");
  if (gCurrMusicSetId <= kLastBuiltInSetId) {
    sShowMessage("No stored scale is being refined: choose one with 'Refine Notes in the "
                 "Selected Scale' first.");
    return;
  }
  platform::Transaction transaction(*gDbB);
  auto rs = gDbB->openRecordset("ONPR", platform::RecordsetType::Table);
  sSetTablePKRecord2(*rs, platform::Value(gCurrMusicSetId), platform::Value(kMainInstrument));
  if (rs->noMatch()) {
    sShowMessage("Error saving Scale Data");
    return;
  }
  rs->edit();
  sUpdateNoteAdjustmentSPCs(*rs, gNoteAdjust);
  rs->update();
  rs->close();
  transaction.commit();
  sShowMessage("Changes Saved");
}

void sSaveNewScale(const std::string& name) {
  if (fStoreScale(name, false) != 1) {
    if (fAskYesNo("Name already used. Want to redefine?") != platform::kAnswerYes) {
      sShowMessage("Enter Another Name");
      ctl("cSettingName").setText("");
      focusName();
      return;
    }
    if (fStoreScale(name, true) != 1) {
      sShowMessage("Error saving Scale Data");
      return;
    }
  }
  sShowMessage("Scale " + name + " Saved. Switching to Scale Refinement Mode");
  gCurrMusicSetName = name;
  sSetUpForRefinementOperation();
}

// Back to refining the scale, its name and tuning as they are.
void sResumeRefinement() {
  sGrpDispAll(1, kMasksRefinementSetUp);
  ctl("cScale").setText(gCurrMusicSetName);
  prompt("13,173");
}

void sRenameScaleTo(const std::string& name) {
  const std::string old = gCurrMusicSetName;
  if (name == old) return sResumeRefinement();
  if (fAskYesNo("Rename the scale '" + old + "' to '" + name + "'?") != platform::kAnswerYes)
    return sResumeRefinement();
  if (fRenameScale(old, name) != 1) {
    sShowMessage("Name already used by another scale. Enter Another Name");
    focusName();
    return;
  }
  if (gSavedMusicSetName == old) gSavedMusicSetName = name;
  gCurrMusicSetName = name;
  sShowMessage("Scale " + old + " Renamed to " + name);
  sResumeRefinement();
}

void sNameConfirmed() {
  const std::string name = fTrimmedScaleName(ctl("cSettingName").text());
  if (name.empty()) {
    platform::windowSystem().messageBox("Please specify a Name to save the current setting under",
                                        platform::kMsgInformation, "Messag");
    focusName();
    return;
  }
  if (const std::optional<std::string> problem = fScaleNameProblem(name)) {
    sShowMessage(*problem);
    focusName();
    return;
  }
  if (gNamingFor == NamingFor::Rename) return sRenameScaleTo(name);
  sSaveNewScale(name);
}

void sPlayScale(const std::string& notes, int listeningMs) {
  sGrpDispAll(1, kMasksPlayingScales);
  const int count = static_cast<int>(fSplitWords(notes, " ").size());
  gCurrItemType = 1;
  sDisableNoteLabels();
  sPlaySelectedPhrase(count, fConvertNotePhraseToMusicGenerationFormat(notes),
                      fConvertDurPhraseToMusicGenerationFormat(fScaleDurations(count)), 1);
  armTimer(listeningMs);
}

void sListClicked() {
  platform::Control& list = ctl("cScalesList");
  const int index = list.listIndex();
  if (index < 0) return;
  const std::string text = list.list(index);
  list.setListIndex(-1);
  if (gScaleListUse == kListsScales) {
    gCurrMusicSetName = text;
    sSetUpForRefinementOperation();
    return;
  }
  gCurrRagaName = text;
  gCurrRagaId = fGetRagaId(text);
  ctl("cRaga").setText(fGetRagaName(gCurrRagaId));
  sGrpDispControls(0);
  gGrpControls = 0;
  sKeyBoardDisplayOn(*gCurrForm, 1);
}

// Events 13 and 14: the note moves by one step of the sensitivity chosen,
// a smaller period being higher.
void sRefine(bool higher) {
  if (!isReed(gPlayedLabel) || gSensitivity < 0 || gSensitivity > 2) return;
  const float step = gSensitivitySteps[static_cast<std::size_t>(gSensitivity)];
  float& adjust = gNoteAdjust[static_cast<std::size_t>(gPlayedLabel)];
  adjust = higher ? fRoundOffSPCVal(adjust - step, "Down") : fRoundOffSPCVal(adjust + step, "Up");
  gSPCDelta = adjust;
  ctl("Frame2").setEnabled(false);
  ctl("Frame3").setEnabled(false);
  sShiftScale(15);
}

void sApplyRefinement() {
  sRetuneNote();
  ctl("Option6").setValue(0);
  ctl("Option7").setValue(0);
  sListenToNote(1);
}

void sListRagas() {
  std::vector<std::string> ragas;
  sLoadRagaList(ragas);
  platform::Control& list = ctl("cScalesList");
  list.clear();
  for (const std::string& raga : ragas) list.addItem(raga);
  sGrpDispControls(2);
  gGrpControls = 2;
  gScaleListUse = kListsRagas;
}

void sListeningEnded() {
  ctl("cTimer").setEnabled(false);
  if (gScaleState == kIdentifyTonic) {
    sGrpDispAll(1, kMasksIdentifying);
    sDisplayTonicNoteLabels();
    ctl("cTuneNote").setEnabled(isReed(gPlayedLabel));
    pointer(platform::kPointerDefault);
  } else if (gScaleState == kTuneTonic) {
    sDisplayTonicNoteLabels();
    ctl("cTuneNote").setEnabled(false);
    ctl("cPlay").setEnabled(true);
    ctl("cAdjust").setEnabled(true);
  } else {
    ctl("Frame2").setEnabled(true);
    ctl("Frame3").setEnabled(true);
  }
  sEnableNoteLabels();
}

void sPlayRagaPhrase(std::int16_t kind) {
  if (gCurrRagaId == 0) {
    sShowMessage("Please choose a Raga first: 'Play Scales', 'Scales Based on Ragas', "
                 "'Select Raga'.");
    return;
  }
  sGrpDispAll(1, kMasksPlayingScales);
  sDisplayCurrNoteName(gPlayedLabel, ctl("cNote"));
  std::string notes, durations;
  sCreateRagaPhraseData(kind, notes, durations);
  const int count = static_cast<int>(fSplitWords(notes, " ").size());
  const int interval = std::min(fGetDurationValue(durations) + 1000, kLongestListeningMs);
  sDisableNoteLabels();
  sPlaySelectedPhrase(count, notes, durations, 1);
  armTimer(interval);
}

// The music set (or tonic) of the entry back in force, its seeds rebuilt;
// false after "Error Creating Note Seeds".
bool fRestoreEntrySetting() {
  const std::optional<std::string> savedScale =
      gSavedMusicSetId > kLastBuiltInSetId ? fScaleNameOfId(gSavedMusicSetId) : std::nullopt;
  gCurrTonicNoteId = gSavedTonic;
  gCurrMusicSetId = savedScale ? gSavedMusicSetId : gSavedTonic;
  gCurrMusicSetName = savedScale ? *savedScale : "";
  gNotationScript = gSavedNotationScript;
  if (fCreateNoteSeedsForUse() == 1) return true;
  sShowMessage("Error Creating Note Seeds");
  return false;
}

void sLeave() {
  if (!fRestoreEntrySetting()) return;
  ctl("cTimer").setEnabled(false);
  sTerminateShiftScale();
}

void sSwitchOperation() {
  sGrpDispAll(1, kMasksSwitching);
  ctl("cScale").setText("");
  prompt("71");
}

void sRenameChosen() {
  if (gScaleState != kRefineNotes || gCurrMusicSetId <= kLastBuiltInSetId) return;
  gNamingFor = NamingFor::Rename;
  sGrpDispAll(1, kMasksRenaming);
  ctl("cSettingName").setText(gCurrMusicSetName);
  prompt("172");
  focusName();
}

void sDeleteChosen() {
  if (gScaleState != kRefineNotes || gCurrMusicSetId <= kLastBuiltInSetId) return;
  const std::string name = gCurrMusicSetName;
  if (fAskYesNo("Delete the scale '" + name + "'? It cannot be brought back.") !=
      platform::kAnswerYes)
    return;
  fRemoveScale(name);
  sShowMessage("Scale " + name + " Deleted");
  gCurrMusicSetName.clear();
  sChooseScaleToRefine();
}

}  // namespace

void sRestoreEntryScale() {
  NV_PROC("sRestoreEntryScale");
  ctl("cTimer").setEnabled(false);
  fRestoreEntrySetting();
}

void sTerminateShiftScale() {
  NV_PROC("sTerminateShiftScale");
  sStructuredTermination(1);
}

void sShiftScale(std::int16_t event) {
  NV_PROC("sShiftScale");
  gCallbackContext = kContextScaleShifting;
  switch (event) {
    case 0: return sInitShiftScale();
    case 1: return sKeyClicked();
    case 2: return sTuneSelectedNote();
    case 3: return sChooseScaleToRefine();
    case 4: return sSetTonicChosen();
    case 5: return sPlayPressed();
    case 6: return sCreateScale();
    case 7: return sSaveRefinement();
    case 8: return sNameConfirmed();
    case 9: return sPlayScale(kMajorScaleNotes, kMajorScaleListeningMs);
    case 10: return sPlayScale(kFullScaleNotes, kFullScaleListeningMs);
    case 11:
      if (fAdjustDroneVolume() != 1) sShowMessage("Error in Building DroneData");
      return;
    case 12: return sListClicked();
    case 13:
      if (gScaleState == kRefineNotes) sRefine(true);
      return;
    case 14:
      if (gScaleState == kTuneTonic || gScaleState == kRefineNotes) sRefine(false);
      return;
    case 15: return sApplyRefinement();
    case 16: return sListRagas();
    case 17: return sListeningEnded();
    case 18: return sPlayRagaPhrase(kRagaScale);
    case 20: return sLeave();
    case 21: return sPlayRagaPhrase(kRagaPakad);
    case 22: return sSwitchOperation();
    case 24: return sRenameChosen();
    case 25: return sDeleteChosen();
    default: return;  // 19, 23 and others do nothing
  }
}
