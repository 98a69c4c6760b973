// What the Raga Exploration screen says: the line above the notation box
// while an item plays, and the prompt text of each playing mode at rest.
// No state of its own.
#pragma once

// Before each file starts: cInfo says what is playing (Demo) or which
// phrase is in the box (Learning, Practice), and the notation box starts
// with the buffer's first note. Acts on the screen gCurrFormId names; on
// the workbench only the notation box is set.
void sDisplayMPPrompt();

// cPrompts: the scale in use and what the controls of the mode do.
void sDisplayDemoModePrompts();
void sDisplayLearningModePrompts();
void sDisplayPracticeModePrompts();
// The prompts of the current mode.
void sDisplayCurrModePrompts();
