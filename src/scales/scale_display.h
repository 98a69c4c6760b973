// The ScaleShifting screen's controls in groups, each group drawn from a
// bit mask, and the keyboard's labels as this screen uses them. Works on
// gCurrForm; remembers the masks in force in gGrp... (scale_state.h).
#pragma once

#include <cstdint>
#include <string>

namespace platform {
class Control;
}

// The masks of one situation of the screen.
struct GroupMasks {
  std::int16_t buttons, controls, headers, kb, operations, optFrms;
};
// buttons: 1 cSwitch, 2 cTuneNote, 4 cAdjust, 8 cPlay, 16 cSave, and, our
// addition, 32 cRename and 64 cDelete.
constexpr GroupMasks kMasksStart{1, 0, 0, 1, 2, 0};
constexpr GroupMasks kMasksIdentifying{3, 0, 0, 1, 2, 0};
constexpr GroupMasks kMasksNoteClicked{121, 0, 7, 2, 4, 1};
constexpr GroupMasks kMasksTuning{13, 4, 0, 1, 2, 0};
constexpr GroupMasks kMasksChoosingScale{1, 1, 0, 0, 4, 0};
constexpr GroupMasks kMasksNaming{0, 12, 2, 0, 2, 0};
constexpr GroupMasks kMasksRefinementSetUp{121, 0, 1, 2, 1, 1};
constexpr GroupMasks kMasksPlayingScales{121, 0, 7, 2, 2, 1};
constexpr GroupMasks kMasksSwitching{1, 0, 0, 0, 1, 0};
// Renaming the scale being refined (our addition): the name box, with
// cSwitch to leave the name as it was.
constexpr GroupMasks kMasksRenaming{1, 8, 1, 2, 1, 0};

// mode 0 draws all six groups, mode 1 only those whose mask differs from
// the one in force; the masks are then remembered.
void sGrpDispAll(std::int16_t mode, const GroupMasks& masks);
void sGrpDispControls(std::int16_t mask);

// Reeds 10 to 21, the twelve candidate tonics, captioned "W7", "W1", "B1",
// "W2", "B2", "W3", "W4", "B3", "W5", "B4", "B6", "B5" (the key White 6 reads
// "B6": that is its caption), with the other keys and labels hidden.
void sDisplayTonicNoteLabels();
// Locks or unlocks the key labels cL(1) to cL(40); the clicked one keeps
// its mark.
void sDisableNoteLabels();
void sEnableNoteLabels();
// The name of the note of `reed` in the script in force; reed 0 leaves the
// box as it is.
void sDisplayCurrNoteName(std::int16_t reed, platform::Control& textBox);
