// The program's one random generator, behind every draw the screens make:
// the quiz's and the sampler's raga, kind and item, and the number of the
// next background picture.
//
// The screens reseed it from the clock before a draw, as the program always
// has ("randomize"). A test, or anyone who wants a run to repeat, fixes the
// seed once with sFixRandomSeed: from then on the reseeding is skipped and
// every draw comes from that one sequence, so the whole run is fixed.
//
// State: the generator and whether its seed is fixed.
#pragma once

#include <cstdint>

// Seeds the generator from the clock; nothing once a seed is fixed.
void sRandomize();

// Seeds the generator with `seed` and keeps that sequence: later calls of
// sRandomize leave it alone. Called again, it starts the sequence afresh.
void sFixRandomSeed(std::uint32_t seed);

// Lets sRandomize reseed from the clock again (the program's own way).
void sReleaseRandomSeed();

// The next number of the sequence, from 0 up to but not including 1.
double fRnd();

// A whole number from 1 to count, each equally likely: the integer part of
// count x fRnd() + 1. A count below 1 draws nothing and answers 1, the
// value that same formula gives for a count of 0.
std::int16_t fRandomFrom1To(std::int16_t count);
