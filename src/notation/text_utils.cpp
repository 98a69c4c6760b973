// Blank handling, padding and number reading for phrase text.
#include "notation/text_utils.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <limits>

#include "core/errors.h"

std::string fJoinWords(const std::vector<std::string>& words, const std::string& separator) {
  std::string out;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) out += separator;
    out += words[i];
  }
  return out;
}

std::string fPackString(const std::string& text) { return fRmvAllChar(text, " "); }

std::string fFPack(const std::string& text, std::int16_t width) {
  if (width <= 0 || text.size() >= static_cast<std::size_t>(width)) return text;
  return std::string(static_cast<std::size_t>(width) - text.size(), ' ') + text;
}

std::string fRmvAllChar(const std::string& text, const std::string& character) {
  if (character.empty()) return text;
  std::string out;
  out.reserve(text.size());
  for (char c : text)
    if (c != character[0]) out += c;
  return out;
}

std::string fRmvLeadBlk(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first);
}

std::string fRmvTrailBlk(const std::string& text) {
  const auto last = text.find_last_not_of(' ');
  return last == std::string::npos ? "" : text.substr(0, last + 1);
}

std::string fTruncateToActual(const std::string& text) {
  const auto nul = text.find('\0');
  return nul == std::string::npos ? text : text.substr(0, nul);
}

namespace {

bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

// Length of the run of digits in text from position i.
std::size_t digitRun(const std::string& text, std::size_t i) {
  std::size_t n = 0;
  while (i + n < text.size() && isDigit(text[i + n])) ++n;
  return n;
}

}  // namespace

double fNumericValue(const std::string& text) {
  std::size_t i = text.find_first_not_of(" \t");
  if (i == std::string::npos) return 0;
  const std::size_t begin = i;
  if (text[i] == '+' || text[i] == '-') ++i;
  const std::size_t intDigits = digitRun(text, i);
  i += intDigits;
  std::size_t fracDigits = 0;
  if (i < text.size() && text[i] == '.') {
    fracDigits = digitRun(text, i + 1);
    i += 1 + fracDigits;
  }
  if (intDigits + fracDigits == 0) return 0;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    const std::size_t expDigits = digitRun(text, j);
    if (expDigits > 0) i = j + expDigits;
  }
  const double value = std::strtod(text.substr(begin, i - begin).c_str(), nullptr);
  if (!std::isfinite(value)) {
    sRaiseError(kErrOverflow, "Overflow", "fNumericValue");
    return 0;
  }
  return value;
}

std::int32_t ZenvoVal(const std::string& text) {
  std::int64_t value = 0;
  for (char c : text) {
    if (!isDigit(c)) break;
    value = value * 10 + (c - '0');
    if (value > std::numeric_limits<std::int32_t>::max()) {
      sRaiseError(kErrOverflow, "Overflow", "ZenvoVal");
      return 0;
    }
  }
  return static_cast<std::int32_t>(value);
}

namespace {

template <typename Int>
Int roundTo(double x) {
  const double r = std::nearbyint(x);  // the default mode rounds halves to even
  if (!(r >= std::numeric_limits<Int>::min() && r <= std::numeric_limits<Int>::max())) {
    sRaiseError(kErrOverflow, "Overflow", "Nadavik");
    return 0;
  }
  return static_cast<Int>(r);
}

}  // namespace

std::int16_t fRoundToInt16(double x) { return roundTo<std::int16_t>(x); }
std::int32_t fRoundToInt32(double x) { return roundTo<std::int32_t>(x); }

std::string fFormatNumber(double x) {
  if (x == 0) x = 0;  // no "-0"
  char buf[40];
  std::snprintf(buf, sizeof buf, "%.15G", x);
  return buf;
}
