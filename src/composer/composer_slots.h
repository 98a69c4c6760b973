// The composer's work area on the current screen (gCurrForm): the note and
// duration palettes, the two screen rows of 20 slots each (grace note,
// main note, duration, syllable), their headings and buttons, and the
// passage between those slots and the row images (row_images.h).
//
// Slot s is 0 to 19 in the first screen row and 20 to 39 in the second.
// Palette cNotation(5) to cNotation(31) are the note ids, cNotation(32) the
// ","; cTimeVal(0) to cTimeVal(18) the durations of the category.
// No state of its own beyond the row images.
#pragma once

#include <cstdint>
#include <string>

constexpr int kSlotCount = 40;
constexpr int kFirstPaletteNote = 5;
constexpr int kLastPaletteNote = 31;
constexpr int kPaletteComma = 32;
constexpr int kTimeValueCount = 19;

// The mark of the selected palette entry and of the sounding note: a red
// dark enough to read at 4.5:1 on the white cells (pure red reads at 4:1).
constexpr int kComposerMarkColor = 0x0000C0;
constexpr int kCellBackColor = 0xFFFFFF;

// True while the program fills or empties the slots (their change events
// are then not the user's typing).
extern bool gFillingSlots;

// Whether the category at hand (gCurrAltType) has durations (all but the
// taan) and syllables (compositions).
bool fCategoryHasDurations();
bool fCategoryHasSyllables();

// The 19 duration values of a category: 10 to 100 in steps of 5 for an
// alap (hundredths of a second), beats for the others.
std::string fTimeValueCaption(std::int16_t category, int index);

// Palettes: laid out in a line from `top`, centred; the note captions in
// the script in force; the raga's notes only (in all three octaves) or all.
void sLoadNotesPalletToForm(float top);
void sLoadPalletNotes();
void sAdjustNotesPalletForRaga();
void sShowAllNotesInPallet();
void sLoadTimeValuesArrayToForm(float top);

// Builds and shows the two rows of slots below the palettes, with their
// headings, row numbers and the buttons around them.
void sLoadNotesArrayToForm();

// The palette index whose caption equals `caption` (5 to 31), 0 when none.
std::int16_t fGetNotationIndex(const std::string& caption);

// Screen row 1 or 2 into the row image behind it; editing the second row
// of the last row image opens a new one.
void sCreateNotesRowImageFromDisplay(std::int16_t displayRow);
void sCreateDurRowImageFromDisplay(std::int16_t displayRow);
void sCreateSylRowImageFromDisplay(std::int16_t displayRow);

// Empties the 40 slots of the category.
void sClearPhraseDisplay();
// Fills the two screen rows from the row images from gFirstDisplayRow, with
// the row numbers and the Move buttons.
void sDisplayRowImages();
// Shows the row numbers and enables Move Up and Move Down for
// gFirstDisplayRow.
void sShowRowCaptions();

// An empty slot inserted before, or the slot removed at, screen slot 0 to
// 39, in every row image set of the category, then shown again.
void sInsertBlankSlot(std::int16_t slot);
void sDeleteCurrentSlot(std::int16_t slot);

// All note cells back to the default colour.
void sSetComposerFormNoteSlotsToDefaultFrontColor();

// Hiding the work area (and the composition's fields), the raga's data,
// and removing the run-time elements of the arrays.
void sHidePhraseDisplayControls();
void sHideRagaInfoDisplayControls();
void sUnloadPhraseArrayElements();
