// The tala grid of the composition player: one row for each cycle of the
// tala, one cell for each beat, a syllable cell (cMatra) above a note cell
// (cNote), beat numbers (cBeat) along the top with the sam (beat 1) marked,
// and row numbers (cRow) down the side. The tala's divisions are marked as
// notation books mark them: the first beat of each carries its mark ("x 1",
// "2 5", "0 9"; Rupak's sam, a khali, "0 1") and a line (cVibhag) stands
// before it, beat 1 excepted. Element 0 of each array is designed
// into the screen; the layout creates the rest.
//
// Slot s (1-based) is array index s - 1, in row Int((s - 1) / beats) + 1 at
// beat ((s - 1) mod beats) + 1.
//
// State: gGridBeats; the composition's first and last row and beat, which
// the player checks a stretch against (gCompFirstRow, gCompFirstBeat,
// gCompLastRow, gCompLastBeat); the tala's divisions (composition_grid.cpp).
// gRowsPerCycle and gFormBeatCount are the
// music buffers' (sound/music_buffers.h).
#pragma once

#include <cstdint>

extern std::int16_t gGridBeats;
extern std::int16_t gCompFirstRow;
extern std::int16_t gCompFirstBeat;
extern std::int16_t gCompLastRow;
extern std::int16_t gCompLastBeat;

// Colours of the cells (blue in the high byte).
constexpr int kSyllableCellColor = 0xC0C0FF;
constexpr int kNoteCellColor = 0x8080FF;
constexpr int kSoundingCellColor = 0x0000FF;

// Builds the grid for the tala of the part on show, once for each opening
// of the screen: Label25 and Label26 name the tala and its beats,
// gRowsPerCycle = Int(matras of the longer part / beats) + 1 (at most
// kMaxGridRows), and every cell is created and placed.
void sAdjustDisplayForTala();

// Places the grid's cells for the screen's present size: cells as wide as
// the beats of the widest tala allow left of the controls, as high as the
// rows allow above the prompt line, with a font that fits them. Called by
// sAdjustDisplayForTala and after every change of size.
void sPlaceCompositionGrid();

// Fills the grid and the text boxes with the part on show (gCompPart): the
// words, the name, each syllable and note in the cell of the beat it falls
// on (words shorter than a beat share a cell, side by side), and
// gCompLastBeat from the last row's last filled note cell.
void sDisplayCompositionData();

// Gives every note cell the font of the script in force, sized to the cell.
void sAdjustFontForDisplay();

// Every cell back to its default colour, the syllable cells without border.
void sSetDefaultDisplayColors();

// The note cells alone back to their default colour (gRowsPerCycle x
// gFormBeatCount of them), at each start of a phrase.
void sSetCompNotationSlotsToDefaultColor();
