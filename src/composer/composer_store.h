// The user's compositions and phrases in the user store: writing a whole
// composition (its header in "Raga - Additional Information" and both its
// parts in "Raga - Composition Notations"), replacing a raga's alap,
// layakari or taan row of "Raga - ALT Phrases", and renaming and deleting
// them. Each change is one transaction, durable when the call returns: a
// kill at any moment leaves the whole old state or the whole new one.
// Works on the store it is given and touches no screen; keeps no state.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "store/working_record_comp.h"

namespace platform {
class Database;
}

constexpr std::int16_t kCompositionInfoType = 2;

// The header row when it is missing (an existing one keeps its name), then
// parts 1 and 2 of `parts`, each added or replaced whole.
void sWriteCompositionToStore(platform::Database& store, const TCompInfoRecord& header,
                              const std::array<CompPartRecord, kCompPartCount>& parts);

// Replaces the raga's row of phrase type 1, 2 or 3 whole. A taan (3) keeps
// no durations: they are made from the notes when it is played.
void sWriteALTToStore(platform::Database& store, std::int16_t ragaId, std::int16_t phraseType,
                      const std::string& notes, const std::string& durations);

// One more than the highest notation index of the user's compositions
// (1 for none), so that an index is never used twice, after a deletion too.
std::int32_t fNextUserCompositionIndex(platform::Database& store);

// The notation index of the raga's composition named `name` (letter case
// ignored, as the store compares names); 0 when there is none.
std::int32_t fFindUserComposition(platform::Database& store, std::int16_t ragaId, const std::string& name);

// Gives composition `notationIndex` the name `newName`: its header and the
// mukhada of both parts.
void sRenameUserComposition(platform::Database& store, std::int32_t notationIndex, const std::string& newName);

// Removes composition `notationIndex`: header and both parts.
void sDeleteUserComposition(platform::Database& store, std::int32_t notationIndex);

// Removes the raga's phrases of one type; nothing when it has none.
void sDeleteUserPhrases(platform::Database& store, std::int16_t ragaId, std::int16_t phraseType);
