// Look-ups of ragas, talas, phrases, items and prompts by id and name. Each
// opens one recordset, answers and closes it; nothing is cached. `store`
// is a store selector (1 library, 2 user); truth values are -1 and 0.
// Keeps no state.
#pragma once

#include <cstdint>
#include <string>

namespace platform {
class Control;
class Screen;
}  // namespace platform

// RagaNameList: the raga's id (0 for a miss), its name ("" for a miss),
// its group (a miss is a fault: no current record).
std::int16_t fGetRagaId(const std::string& name);
std::string fGetRagaName(std::int16_t ragaId);
std::int16_t fGetRagaLevel(const std::string& name);

// Tala - Technical Information; a miss is a fault.
std::int16_t fGetTalaId(const std::string& name);
std::string fGetTalaName(std::int16_t talaId);

// Scale Shift Specs of the user store; a miss is a fault.
std::string fGetMusicSetName(std::int16_t setId);

// Rows of the user store's Raga - Additional Information plus 1. It counts
// rows, so after a deletion the answer can repeat an index in use.
std::int32_t fGetNextUserCompositionIndex();

// Whether the raga has alap, layakari or taan phrases in `store`.
std::int16_t fHasAlap(std::int16_t ragaId, std::int16_t store);
std::int16_t fHasLayakari(std::int16_t ragaId, std::int16_t store);
std::int16_t fHasTaan(std::int16_t ragaId, std::int16_t store);

// Whether the raga has similar ragas, compositions or film songs in `store`.
std::int16_t fHasSimilarRagas(std::int16_t ragaId, std::int16_t store);
std::int16_t fHasCompositions(std::int16_t ragaId, std::int16_t store);
std::int16_t fHasFilmSongs(std::int16_t ragaId, std::int16_t store);

// The number of comma-separated phrases of that kind; ask fHas... first:
// a raga without them is a fault.
std::int16_t fAlapCount(std::int16_t ragaId, std::int16_t store);
std::int16_t fLayakariCount(std::int16_t ragaId, std::int16_t store);
std::int16_t fTaanCount(std::int16_t ragaId, std::int16_t store);

// Items of `type` of gCurrRagaId in the library store; 0 when none.
std::int16_t fAddInfoCount(std::int16_t type);

// The prompts of a comma-separated list of prompt numbers, joined by " - ";
// a missing prompt leaves only its " - ".
std::string fGetPrompts(const std::string& numbers);

// Clears the list and fills it with the items of `type` of gCurrRagaId
// (on the composer only those with or without a notation, by
// gCompListMode); answers their count.
std::int16_t fLoadList(platform::Control& listControl, std::int16_t type);

// Adds every raga with technical data to cRagaList of `screen`, by name.
void sLoadRagaList(platform::Screen& screen);

// The id of row n (from 1, in stored order) of Raga - Technical
// Information; also makes it gCurrRagaId and adjusts the drone to it.
// 0, with nothing changed, when the table has no row n.
std::int16_t fGetSeqRagaId(std::int16_t n);
