// Note seeds: one period of an instrument's waveform per note, read from
// the library store ("Note Specifications" and "Sample Values") and handed
// to the synthesis library. Keeps no state; the library holds the seeds.
#pragma once

#include <cstdint>
#include <string>

// Frees the set in the library, then loads every note of the set in Note Id
// order. 1 on success. On failure it shows its message and returns 0; notes
// after a failing one stay unloaded.
std::int16_t fLoadNoteSeeds(const std::string& setName);

// Reloads one note's seed, which clears its tuning. 1 on success; 0 with the
// message "Error Loading Seed Data For <set><note>" when the note is not in
// the store or the library refuses it.
std::int16_t fLoadIndividualNoteSeed(const std::string& setName, std::int32_t noteId);
