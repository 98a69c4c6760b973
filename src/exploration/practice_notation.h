// The notation box of Practice as the learner typed it: English note words
// typed while Devanagari is shown are taken into the Devanagari key map, and
// a box that cannot be played is told by its first wrong word and why.
// Pure text over the note vocabulary; no state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// The most words a notation box may hold: a phrase's word lists have room
// for 501 entries.
constexpr std::size_t kMostNotationWords = 500;
// The last character of a box where a word may end: the tokenizer that
// reads a phrase places no word beyond character 32767.
constexpr std::size_t kLongestNotation = 32767;

// The box's text in the script shown: with script 1 (Devanagari) every
// piece of a word (split at "'", a colon stuck to either end set aside)
// that is an English note becomes its key-map string; every other piece,
// and the blanks, stay as they are. Script 2 gives the text back unchanged.
// A learner with a Latin keyboard cannot type Devanagari, so "S R G" is
// taken for सा रे ग.
std::string fNotationInScript(const std::string& text, std::int16_t script);

// The first word that keeps a box from being played, and why.
struct NotationFault {
  std::size_t wordNumber = 0;  // 1-based blank-separated word; 0: nothing wrong
  std::string word;            // as it stands in the box (key map in Devanagari)
  std::string reason;          // "unknown note", "too many notes (at most 500)",
                               // "empty segment", "beyond character 32767"
};

// Walks the box's words in order. A word is wrong when it is no note in
// the script (a grace pair "x'y" and one colon stuck to one end allowed,
// ":" alone a segment mark; "," and anything else an unknown note), when it
// is word 501 or later (too many notes), when it ends beyond character
// 32767 (where it could not be played), or when it holds the ":" that
// closes a segment without a note, or opens a last one without a note
// (empty segment). A box of blanks only is not judged here: it is reported
// as empty before. The first wrong word wins.
NotationFault fFirstNotationFault(const std::string& text, std::int16_t script);

// The message of a refused box: the screen's sentence "One or more changes
// you made are not allowable. Please check and correct errors." and, on a
// line of its own, the first wrong word (in Devanagari when script is 1)
// and why.
std::string fNotationFaultMessage(const NotationFault& fault, std::int16_t script);
