// What the Workshop screen shows in each Workbench mode, the question
// dialogue in Frame2 (one question at a time, up to three answers), the
// selections a play disables and gives back, and the keyboard's states.
// Works on gCurrForm; state in workbench_state.h.
#pragma once

#include <cstdint>
#include <string>

// The prompt line: the prompts of a comma-separated list of ids.
void sWorkbenchPrompt(const std::string& ids);

void sSetModeDisplay();
void sSetOptionsDisplay();
void sScaleTypeSelection();
// An answer of the dialogue: choice 1, 2 or 3 at gOptionStage.
void sProcessOptionSelection(std::int16_t choice);
void sInitPatternSpec();
// Appends the token the dialogue (or a key) built to gPatternSpec, then
// expands it over the scale and shows the notes in cPatName; "Error in
// phrase patternText" (titled "Messge") when it is no pattern.
void sUpdatePatternPhrase();

void sEnableF13Selections();
void sDisableF13Selections();
void sCaptureMenuBarItemStatus();
void sEnableWSModeSelections();
void sDisableWSModeSelections();

void sHideDetails();
void sHideSlider();
void sShowSlider();
// Bit 1: Label1 and cScaleType; bit 2: Label3 and cPattern; bit 4: Label5
// and cCurrentItem.
void sShowUserData(std::int16_t mask);
void sShowCurrentItem();
void sShowSelectedNotes();
void sShowBasePattern();
// The scale's caption by gScaleSize.
std::string fSelectedScaleCaption();

void sDisplayKBForNoteSelection();
void sEnableKeyLabels();
void sHideNonOctaveNotes();
void sHideUnselectedNoteLabels();
void sAdjustF13NotationFonts();
void sLoadThataList();
// The label of note place `place` at the current tonic.
std::int16_t fLabelOfPlace(std::int32_t place);
