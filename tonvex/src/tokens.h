// Parsing of the text arguments of the music operations: note tokens,
// durations in milliseconds and theka tokens. Stateless; every parser returns
// nullopt on any malformed word.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tonvex {

struct NoteToken {
  int graceNote = -1;  // absolute note number of the grace note, -1 if none
  int mainNote = 0;    // absolute note number
};

struct ThekaToken {
  std::vector<int> bolIds;   // strokes in order, one beat apart; empty for "0"
  double offsetBeats = 0.0;  // first stroke's distance from the note's start
};

// Words separated by runs of blanks (leading and trailing blanks ignored).
std::vector<std::string_view> splitWords(std::string_view text);

// Tokens of two digits ("12") or four digits ("1214": grace 12, main 14);
// every note number must be 0 to 40.
std::optional<std::vector<NoteToken>> parseNoteTokens(std::string_view notes);

// Plain decimal numbers ("250", "12.5"); no signs or exponents.
std::optional<std::vector<double>> parseDurationsMs(std::string_view durations);

// "0" or "count/bol/.../offset" with count bol ids of 0 to 20.
std::optional<std::vector<ThekaToken>> parseThekaTokens(std::string_view theka);

// A plain decimal number as above, or nullopt.
std::optional<double> parseDecimal(std::string_view word);

}  // namespace tonvex
