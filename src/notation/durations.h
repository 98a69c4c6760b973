// Time in phrases: tala beats, matras, phrase duration words (hundredths of
// a second) and the tempo factor of the speed slider.
//
// State: gBaseMatraMs, the length of one matra in duration-word units
// (hundredths of a second), set when a composition is loaded and by the
// workbench. The tempo table gSpeedFactors lives with the session state.
#pragma once

#include <cstdint>
#include <string>

extern std::int16_t gBaseMatraMs;

// Duration word of a note that has no rhythm of its own: 150 ms.
constexpr int kBaseNoteWord = 15;

// Sum of the blank-separated values, rounded to a whole number (halves to
// even) after each addition, so rounding errors add up: "1 1 0.5" is 2.
std::int32_t fGetDurationValue(const std::string& durPhrase);

// Sum of the values in double precision, rounded once at the end, halves to
// even: "1 1 0.5" is 2.
std::int16_t fGetBeatCountForPhrase(const std::string& durPhrase);

// Each word v becomes v x matraDuration, whole: the fraction rounds up only
// when strictly above one half (12.5 gives 12). Joined by one blank.
std::string fConvertMatraToDuration(const std::string& matraPhrase, std::int16_t matraDuration);

// One duration word per note word of a comma-sectioned phrase (colons
// dropped): the unit is 15 for kind 6 (taan), gBaseMatraMs for kind 10
// (workbench), 0 otherwise. Each word is followed by a blank and each section
// but the last by ", ": "S R , G m" gives "15 15 , 15 15 ".
std::string fCreateDurationPhrase(const std::string& phrase, std::int16_t kind);

// Trims the caller's phrase of leading and trailing blanks in place and
// gives "15" for each of its words, joined by one blank.
std::string fGetTimingScript(std::string& phrase);

// The script at the tempo of a screen's cSlider value (its factor in
// gSpeedFactors): see fFactorTimingScriptBy. A slider value outside 0..18 is
// a range error and leaves the script as it is.
std::string fFactorTimingScript(const std::string& script, int slider);

// The script at tempo factor f. At exactly 1.0 the script comes back
// untouched. Otherwise it is rebuilt: sections at ",", words at blanks, each
// value x f rounded to a 16-bit integer (halves to even), words joined by one
// blank and sections by " , ", with no trailing blank.
std::string fFactorTimingScriptBy(const std::string& script, double factor);
