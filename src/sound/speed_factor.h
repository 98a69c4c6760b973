// The tempo of the current screen: the factor of gSpeedFactors at its
// cSlider value. Keeps no state.
#pragma once

// The slider value at which the tempo factor is 1.0.
constexpr int kNeutralSlider = 9;

// The current screen's cSlider value; kNeutralSlider when no screen is
// current.
int fCurrSliderValue();

// 1.0 when no screen is current; a slider value outside the table is a
// range error and gives 1.0.
double fCurrSpeedFactor();

// Length of one beat in milliseconds at the current tempo: gBaseMatraMs x
// the factor x 10, rounded to a whole number.
int fCurrBeatMs();
