// The seed bank: the seeds of the harmonium set and the tanpura set (notes
// 0 to 40 each, as seed_design.h makes them) in one binary file, written at
// build time by tonvex-seeds, so that tonvex-render reads its seeds at
// start-up instead of synthesising all 82 of them again. Stateless.
//
// Format: the line "tonvex-seed-bank 1\n"; then for instrument types 1 and
// 2 and notes 0 to 40 in order: samPerCyc (int32), fractional (IEEE double
// bits, uint64), samPerCyc + 1 samples (int16), all little-endian; then the
// FNV-1a hash (uint32) of every byte before it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "tonvex/seed_design.h"
#include "tonvex/tonvex.h"

namespace tonvex_render {

struct SeedBank {
  // sets[instrumentType - 1][noteId]
  std::array<std::vector<tonvex::SeedSpec>, 2> sets;
};

// The bank made from the seed design.
SeedBank designedSeedBank();

// Writes the bank to path ("<path>.part", renamed when complete); false
// when it cannot be written.
bool writeSeedBank(const SeedBank& bank, const std::string& path);

// Reads a bank; nullopt when the file is missing, cut short, altered or of
// another version, or a seed is out of the library's range.
std::optional<SeedBank> readSeedBank(const std::string& path);

}  // namespace tonvex_render
