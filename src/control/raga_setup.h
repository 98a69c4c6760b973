// Making a raga the one at hand, with its sound. The store loads the raga's
// data and never rebuilds sound; this module runs the store's look-up
// and then renews the seeds or the drone for the raga's drone type, in the
// order the program has always done it. It serves wherever a raga
// becomes current: chosen from the grid, explored from the quiz, drawn at
// random by position. No state of their own.
#pragma once

#include <cstdint>

// sSetupForCurrRaga (the working record of gCurrRagaId), then, when the
// raga's drone type differs from gCurrDroneType, takes it and makes the
// note seeds again ("Error in setting up for current Raga" when that
// fails). A raga missing from the library, or damaged there, touches no
// seeds.
void sSetupRagaAndSound();

// A raga drawn by position (the sampler, the quiz): makes row n (from 1, in
// stored order) of the library's raga table gCurrRagaId by fGetSeqRagaId,
// then takes that raga's drone type with sAdjustDroneType, in that order.
// Answers the raga's id; 0, with nothing changed, when there is no row n.
// The caller loads the raga's working record itself.
std::int16_t fSetupSeqRaga(std::int16_t n);
