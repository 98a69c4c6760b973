// The divisions (vibhags) of a tala cycle and the mark written over each,
// read from the two texts the library keeps for a tala ("Vibhag Beats",
// e.g. "4 4 4 4", and "Vibhag Marks", e.g. "x 2 0 3"). Stateless.
//
// Marks follow the Bhatkhande notation: "x" the sam, "0" a khali, and a
// number for every other tali, counted by its division. A tala whose sam is
// itself a khali (Rupak) starts with "0".
#pragma once

#include <optional>
#include <string>
#include <vector>

struct Vibhag {
  int firstBeat = 1;  // 1-based beat of the cycle on which the division starts
  int beats = 0;      // length of the division in beats
  std::string mark;   // "x", "0", or the tali's number
};

// The divisions in order, when the texts are well formed: as many marks as
// lengths, every length positive and together exactly beatCount, the first
// mark "x" or "0", every other mark "0" or a number from 2 to 9 (the sam is
// marked once, by "x"). Otherwise nothing, and *fault (when given) says why.
std::optional<std::vector<Vibhag>> parseVibhags(const std::string& beatsText, const std::string& marksText,
                                                int beatCount, std::string* fault = nullptr);

// The mark over the given beat (1-based) of the cycle, or "" when the beat
// starts no division.
std::string vibhagMarkOnBeat(const std::vector<Vibhag>& vibhags, int beat);

// True when a divider stands before the given beat (1-based): the first beat
// of every division but the first, as notation books draw the bar lines
// within a cycle (the printed sheet and the player's grid alike).
bool vibhagDividerBefore(const std::vector<Vibhag>& vibhags, int beat);
