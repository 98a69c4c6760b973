// Single-line text of a composition part with the first beat of every tala
// cycle marked. Stateless: the caller passes the part's notes (or
// syllables), their lengths in matras, the tala's beat count and the part's
// starting beat.
#pragma once

#include <string>

constexpr const char* kBeatMarkEnglish = "(1)";
// The Devanagari notation font has no parentheses.
constexpr const char* kBeatMarkDevanagari = ".1.";

// Each word is preceded by three blanks, and by `mark` when it stands on
// beat 1. The position starts at startingBeat and grows by each word's
// length (the matching word of durations, 0 when missing); once it reaches
// beatCount + 1 or more, one cycle is taken off and the next word is marked,
// so a word that jumps over beat 1 still marks the next one.
std::string fCreateBeatMarkedString(const std::string& words, const std::string& durations,
                                    int beatCount, int startingBeat, const std::string& mark);
