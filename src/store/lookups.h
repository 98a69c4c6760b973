// Look-ups of ragas, talas, phrases, items and prompts by id and name. Each
// opens one recordset, answers and closes it; nothing is cached. `store`
// is a store selector (1 library, 2 user); truth values are -1 and 0.
// Keeps no state.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

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

// Replaces `items` with the "Add Info" of the items of `type` of
// gCurrRagaId in the library store, in row order; answers their count. The
// caller passes the composer's list mode: 1 keeps the items with a
// notation, 2 those without, any other value (the raga summary passes 0)
// lists them all.
std::int16_t fLoadList(std::vector<std::string>& items, std::int16_t type,
                       std::int16_t listMode);

// Replaces `names` with every raga that has technical data, by name.
void sLoadRagaList(std::vector<std::string>& names);

// Replaces `names` with the ragas of one curriculum group, in row order:
// group 1 through the query of the ragas up to a group, any other through
// that of exactly this group (the two give the same ragas, since no raga
// has a group below 1).
void sLoadGroupRagaNames(std::vector<std::string>& names, std::int16_t level);

// The id of row n (from 1, in stored order) of Raga - Technical
// Information; also makes it gCurrRagaId. 0, with nothing changed, when the
// table has no row n. The drone is the caller's: see control/raga_setup.h.
std::int16_t fGetSeqRagaId(std::int16_t n);

// The thata (empty when Null or the raga is missing, so that the caller
// keeps its caption) and the time of day of a raga in Raga - Technical
// Information, for the raga's summary.
struct RagaThataAndTime {
  std::string thata;
  std::string time;
};
RagaThataAndTime fGetRagaThataAndTime(std::int16_t ragaId);

// "DroneType" of a raga in Raga - Technical Information (a Null reads 0);
// kNoSuchRaga for a raga missing from the library.
constexpr std::int32_t kNoSuchRaga = -1;
std::int32_t fGetRagaDroneType(std::int16_t ragaId);
