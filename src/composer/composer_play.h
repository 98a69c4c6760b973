// Play on the Composer screen: what is written in the slots made into the
// working record's phrases and played through the playing chain, the
// raga's own aroha, avroha or pakad played from their boxes, and the
// sounding note marked in its slot. Compositions are prepared by the
// composition preparation (sound/composition_files.h), both parts' files
// built before the part on show sounds.
// State: gPlaySlots, and the note last marked.
#pragma once

#include <cstdint>
#include <vector>

// The slot (0-based, over all rows) of each note of each phrase of the
// last Play, phrase by phrase, as the device's status follows them.
extern std::vector<std::vector<int>> gPlaySlots;
// The slot of the first note of the phrase sounding.
extern std::int16_t gPlayBaseSlot;

// The row images into the working record (the part on show of a
// composition, or the category's phrases); false after a message.
bool fRowImagesIntoRecord();

// The item Play would play loaded as Play loads it: the raga's own phrase
// (gCurrItemType 1 or 2) or the category's phrases into gPhraseSet, or a
// composition (gCurrPhraseKind 8) from the slots into gCompInfo; false
// after a message.
bool fLoadItemToPlay();

// Event 9: plays the raga's own phrase (gCurrItemType 1 or 2), or what is
// written in the slots, from its first note.
void sComposerPlay();

// Event 21: the note now sounding marked in its slot (one at a time), the
// rows shown moved to it when it lies outside them. No loop waits for
// the device.
void sPlayNotationSlot();
