// The arithmetic of tuning by ear, in samples per cycle (SPC): the period a
// position of the tuning slider stands for, and the rounding of a
// refinement's correction. A smaller SPC is a higher note. Stateless: the
// periods come in as arguments.
#pragma once

#include <string>

// The slider runs from -10 to 10 (kSliderLowest to kSliderHighest).
constexpr int kSliderLowest = -10;
constexpr int kSliderHighest = 10;

// Rounds to one decimal, halves to the even neighbour (3.25 gives 3.2,
// 3.35 gives 3.4).
double fRoundToTenth(double value);

// The SPC for slider position `slider`: baseSpc at 0, moving in equal
// tenths towards belowSpc (the next lower note's period) for -1 to -10, or
// towards aboveSpc (the next higher note's) for 1 to 10, so that the ends
// reach the neighbours; rounded to one decimal. A position beyond the ends
// counts as the end.
double fSliderSPC(int slider, double baseSpc, double belowSpc, double aboveSpc);

// A refinement's correction rounded to one decimal and kept off whole
// numbers of samples: one that lands on a whole number (0.0 included) goes
// 0.1 further "Up" or "Down"; any other direction word leaves it there.
float fRoundOffSPCVal(float value, const std::string& direction);
