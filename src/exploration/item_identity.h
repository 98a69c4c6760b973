// Reading a list entry back into the identity of the item it names: its
// item type, phrase kind, store class and, for compositions, similar ragas
// and film songs, its name and its data from the chosen store.
// No state of its own.
#pragma once

#include <cstdint>
#include <string>

// Sets gCurrAltType, gCurrPhraseKind and gCurrItemType from the entry's first
// word; for the three named kinds also gCurrCompName, gCompInfo and, for a
// film song, Demo mode. source: 1 library store, 2 user store. An unknown
// first word changes nothing.
void sSetMusicParameters(const std::string& itemText, std::int16_t source);
