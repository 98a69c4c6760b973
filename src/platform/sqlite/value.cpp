// Conversions of a field's value between text and numbers, as a plain
// text-to-number conversion does them: the leading number of a text counts
// and the rest is ignored; Null reads as 0 or "". Keeps no state.
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string_view>

#include "platform/store.h"

namespace platform {
namespace {

// The leading number of `text` after blanks: sign, digits, a fraction and an
// exponent that has digits. Empty when the text does not start with one.
struct LeadingNumber {
  std::string_view digits;  // with sign, ready for from_chars
  bool integral = true;
};

LeadingNumber leadingNumber(std::string_view text) {
  std::size_t start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return {};
  std::size_t i = start;
  auto isDigit = [&](std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
  };
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  std::size_t digitCount = 0;
  for (; isDigit(i); ++i) ++digitCount;
  bool integral = true;
  if (i < text.size() && text[i] == '.') {
    integral = false;
    for (++i; isDigit(i); ++i) ++digitCount;
  }
  if (digitCount == 0) return {};
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t exponent = i + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    if (isDigit(exponent)) {
      integral = false;
      i = exponent;
      while (isDigit(i)) ++i;
    }
  }
  std::string_view digits = text.substr(start, i - start);
  if (digits.front() == '+') digits.remove_prefix(1);  // from_chars takes no '+'
  return {digits, integral};
}

double parseDouble(std::string_view digits) {
  double value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

// Nearest integer, halves to even, clamped to the 64-bit range; NaN is 0.
std::int64_t roundToInteger(double value) {
  if (std::isnan(value)) return 0;
  constexpr double limit = 9.2233720368547758e18;
  if (value >= limit) return std::numeric_limits<std::int64_t>::max();
  if (value <= -limit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(std::nearbyint(value));
}

}  // namespace

std::string Value::asText() const {
  if (const auto* text = std::get_if<std::string>(&v_)) return *text;
  if (const auto* integer = std::get_if<std::int64_t>(&v_)) return std::to_string(*integer);
  if (const auto* real = std::get_if<double>(&v_)) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.15g", *real);
    return buffer;
  }
  return "";
}

std::int64_t Value::asInteger() const {
  if (const auto* integer = std::get_if<std::int64_t>(&v_)) return *integer;
  if (const auto* real = std::get_if<double>(&v_)) return roundToInteger(*real);
  if (const auto* text = std::get_if<std::string>(&v_)) {
    LeadingNumber number = leadingNumber(*text);
    if (number.digits.empty()) return 0;
    if (number.integral) {
      std::int64_t value = 0;
      auto result = std::from_chars(number.digits.data(),
                                    number.digits.data() + number.digits.size(), value);
      if (result.ec == std::errc()) return value;
    }
    return roundToInteger(parseDouble(number.digits));
  }
  return 0;
}

double Value::asDouble() const {
  if (const auto* real = std::get_if<double>(&v_)) return *real;
  if (const auto* integer = std::get_if<std::int64_t>(&v_)) return static_cast<double>(*integer);
  if (const auto* text = std::get_if<std::string>(&v_)) {
    LeadingNumber number = leadingNumber(*text);
    return number.digits.empty() ? 0.0 : parseDouble(number.digits);
  }
  return 0.0;
}

}  // namespace platform
