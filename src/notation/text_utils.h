// Small text helpers used by every phrase reader: blank removal and padding,
// and reading the number at the front of a word. Stateless.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The words joined by separator, empty words included.
std::string fJoinWords(const std::vector<std::string>& words, const std::string& separator);

// Removes every blank.
std::string fPackString(const std::string& text);

// Pads text with blanks on the left to width; longer text comes back as is.
std::string fFPack(const std::string& text, std::int16_t width);

// Removes each occurrence of one character (the first of `character`;
// an empty `character` removes nothing).
std::string fRmvAllChar(const std::string& text, const std::string& character);

// Drops leading, or trailing, blanks; all blanks gives "".
std::string fRmvLeadBlk(const std::string& text);
std::string fRmvTrailBlk(const std::string& text);

// Cuts text at its first character of value 0 (a fixed buffer's contents).
std::string fTruncateToActual(const std::string& text);

// The number at the front of text, as a plain text-to-number conversion
// reads it: leading blanks, a sign, digits, a decimal point and an exponent;
// it stops at the first character that does not fit. No number gives 0. A
// value beyond the range of a double raises the (forgiven) overflow and
// gives 0.
double fNumericValue(const std::string& text);

// The decimal value of the digits at the front of text; it stops at the first
// non-digit. "" gives 0. A value beyond 32 bits raises the (forgiven)
// overflow and gives 0.
std::int32_t ZenvoVal(const std::string& text);

// x rounded to the nearest integer, halves to the even neighbour, as a
// 16-bit or 32-bit integer. Out of range raises the (forgiven) overflow and
// gives 0.
std::int16_t fRoundToInt16(double x);
std::int32_t fRoundToInt32(double x);

// x written as general number formatting writes it: up to 15 significant
// digits, no trailing zeros, no decimal point for whole numbers.
std::string fFormatNumber(double x);
