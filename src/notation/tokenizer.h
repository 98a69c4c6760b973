// The one tokenizer every phrase reader uses. It records where the words of a
// text lie (1-based start, length) rather than copying them, so that word n
// can be taken out of the same text later, as the notation box does while a
// phrase plays.
//
// State: gParseStart, gParseLen and gParseCount, shared and overwritten by
// every fParseString. Code that needs two word lists at once, or that calls
// something which parses while it walks a list, uses fParseString1 with
// arrays of its own.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

constexpr int kParseMaxWords = 501;

extern std::array<std::int16_t, kParseMaxWords> gParseStart;  // 1-based
extern std::array<std::int16_t, kParseMaxWords> gParseLen;
extern std::int16_t gParseCount;

// Splits text at each occurrence of delimiter into the shared arrays and
// returns the word count. Empty pieces (repeated delimiters, delimiters at
// either end) make no word. A 502nd word is a range error. An empty
// delimiter makes the whole non-empty text one word. Positions are 16-bit:
// a word beyond character 32767 raises the (forgiven) overflow and ends the
// split there.
std::int16_t fParseString(const std::string& text, const std::string& delimiter);

// The same into the caller's arrays, indexed from 0. A word beyond their size
// is a range error.
std::int16_t fParseString1(const std::string& text, const std::string& delimiter,
                           std::span<std::int16_t> starts, std::span<std::int16_t> lengths);

// Word number index (1-based) of text, which must be the text last parsed
// into the shared arrays. An index outside 1..501 is a range error; a start
// or length that does not fit the text is clipped to it.
std::string fGetWord(const std::string& text, std::int16_t index);

// The same from the caller's arrays.
std::string fGetWord1(const std::string& text, std::int16_t index,
                      std::span<const std::int16_t> starts,
                      std::span<const std::int16_t> lengths);

// All words of text at delimiter, through fParseString1 with arrays of 501
// entries, so the same limit and range error hold. Leaves the shared arrays
// alone.
std::vector<std::string> fSplitWords(const std::string& text, const std::string& delimiter);
