// How the seed data and tuning tables that tonvex-seeds writes into the
// library store are made, shared with the tests and benchmarks that need the
// same seeds without a store. Stateless.
//
// Pitch: absolute note 11 is C3 (130.81 Hz, equal temperament from A4 =
// 440 Hz). Tonic 3 (C#), at which note ids and absolute numbers agree, then
// puts the middle Sa at C#3 = 138.59 Hz, the usual Sa of a male voice, and the
// set spans C#2 (note 0) to F5 (note 40): the range of a harmonium's male and
// bass reeds. The drone set "e" sounds each note one octave lower than the
// main set "c": the application passes the upper S slot (tonic + 21) as the
// drone's Sa, which so sounds at the middle Sa, and the tanpura's low Sa an
// octave below that stays within notes 0 to 40 at every tonic.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace tonvex {

inline constexpr int kInstrumentMain = 1;   // set "c", harmonium
inline constexpr int kInstrumentDrone = 2;  // set "e", tanpura
inline constexpr int kOnprColumns = 27;     // columns "00" to "26"

struct SeedSpec {
  int32_t samPerCyc = 0;
  double fractional = 0.0;        // samPerCyc + fractional = 44100 / Hz exactly
  std::vector<int16_t> samples;   // samPerCyc + 1 values: one period from phase 0
};

// Equal-tempered frequency of an absolute note (0 to 40) of an instrument.
double seedHz(int instrumentType, int noteId);

// One period of a harmonium reed (type 1) or a tanpura string (type 2).
SeedSpec makeSeed(int instrumentType, int noteId);

// Just ratio of a note to Sa, by semitones above (or below) Sa, octaves
// folded: S 1/1, r 16/15, R 9/8, g 6/5, G 5/4, m 4/3, M 45/32, P 3/2,
// d 8/5, D 5/3, n 9/5, N 15/8.
double justRatio(int semitonesFromSa);

// The "ONPRSets" ratios of columns "00" to "26" (notes tonic + 2 to tonic +
// 28, column "07" the middle Sa) relative to the middle Sa of the main set.
// The drone set's ratios are half, as it sounds an octave lower.
std::array<double, kOnprColumns> onprRatios(int instrumentType);

// The SPC correction that tunes a note (0 to 40) of an instrument to its
// just ratio to the main set's middle Sa (note tonic + 9) at a tonic (1 to
// 12), in whichever octave it lies: the period of that ratio less the seed's
// own period. For the notes outside the 27 columns this is the program's
// octave rule (a note takes the tuned period of the same swara an octave
// further in, doubled or halved), as the seeds are equal-tempered.
double justCorrection(int tonicId, int instrumentType, int noteId);

// The "ONPR" SPC corrections of the built-in music set of a tonic (1 to 12):
// for column i, the period that gives the note its just ratio to the main
// set's middle Sa (note tonic + 9) less the seed's own period. Columns whose
// note lies beyond 40 are 0.
std::array<double, kOnprColumns> onprCorrections(int tonicId, int instrumentType);

}  // namespace tonvex
