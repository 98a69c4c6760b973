// Showing, hiding, enabling and describing the controls of the Raga
// Exploration screen (gCurrForm) as an item is chosen, played and ended.
// No state of its own.
#pragma once

// The notation box, the line above it and the play buttons that suit the
// mode and the item: locked or editable box, Next/Prev or part buttons.
void sDisplayMOControls();
// Hides the notation box, its line, the play buttons, the slider and Frame2.
void sHideMOControls();
// Everything a user may choose while nothing plays, on or off.
void sEnableF28Selections();
void sDisableF28Selections();
// The notation box in the font of the script in force.
void sUpdateF28NotationItemFonts();
// cInfo: which phrase of the item is in the box.
void sSetCurrItemDesc();
// Empties cInfo and the notation box.
void sClearNotationBox();
