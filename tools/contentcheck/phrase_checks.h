// Checks of one stored phrase or phrase pair, on plain strings: the legal
// words of a note phrase, the number words of a duration phrase, and the
// agreement of notes and durations. Each answers "" when all is well and
// otherwise a short description of the first fault. No state.
#pragma once

#include <string>

namespace contentcheck {

enum class Separators { None, Colons, ColonsAndCommas };

// The first word of a note phrase that is neither a note word nor an
// allowed separator ("" when none).
std::string firstIllegalWord(const std::string& notes, Separators allowed);

// The number of note words (colon and comma words are not counted).
int noteWordCount(const std::string& notes);

// The first word of a duration phrase that is not a positive number, or
// not a whole number when `whole` is set; comma words are allowed where
// `commas` is set. "" when none.
std::string firstBadDuration(const std::string& durations, bool whole, bool commas);

// The sum of a duration phrase's numbers.
double durationSum(const std::string& durations);

// Notes against durations, phrase by phrase when the notes hold commas:
// the durations must have one word per note, and one comma word between
// phrases. "" when they agree.
std::string countMismatch(const std::string& notes, const std::string& durations);

// A pakad: segments by ":" in the notes, one flat duration list. Answers
// the segment in which the durations run out, or the durations left over.
std::string pakadMismatch(const std::string& notes, const std::string& durations);

}  // namespace contentcheck
