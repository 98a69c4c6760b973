// The tokenizer: word positions into the shared arrays or the caller's own.
#include "notation/tokenizer.h"

#include <limits>

#include "core/errors.h"

std::array<std::int16_t, kParseMaxWords> gParseStart{};
std::array<std::int16_t, kParseMaxWords> gParseLen{};
std::int16_t gParseCount = 0;

namespace {

constexpr std::size_t kMaxPosition = std::numeric_limits<std::int16_t>::max();

// Records one word found at 0-based offset `at` with length `len`; false when
// the arrays are full (after raising the range error) or the position no
// longer fits 16 bits (after raising the overflow, which is forgiven).
bool recordWord(std::size_t at, std::size_t len, std::int16_t& count,
                std::span<std::int16_t> starts, std::span<std::int16_t> lengths) {
  const auto slot = static_cast<std::size_t>(count);
  if (slot >= starts.size() || slot >= lengths.size()) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fParseString");
    return false;
  }
  if (at + 1 > kMaxPosition || len > kMaxPosition) {
    sRaiseError(kErrOverflow, "Overflow", "fParseString");
    return false;
  }
  starts[slot] = static_cast<std::int16_t>(at + 1);
  lengths[slot] = static_cast<std::int16_t>(len);
  ++count;
  return true;
}

}  // namespace

std::int16_t fParseString1(const std::string& text, const std::string& delimiter,
                           std::span<std::int16_t> starts, std::span<std::int16_t> lengths) {
  std::int16_t count = 0;
  if (delimiter.empty()) {
    if (!text.empty()) recordWord(0, text.size(), count, starts, lengths);
    return count;
  }
  std::size_t from = 0;
  while (from <= text.size()) {
    std::size_t hit = text.find(delimiter, from);
    if (hit == std::string::npos) hit = text.size();
    if (hit > from && !recordWord(from, hit - from, count, starts, lengths)) break;
    from = hit + delimiter.size();
  }
  return count;
}

std::int16_t fParseString(const std::string& text, const std::string& delimiter) {
  gParseCount = 0;
  gParseCount = fParseString1(text, delimiter, gParseStart, gParseLen);
  return gParseCount;
}

std::string fGetWord1(const std::string& text, std::int16_t index,
                      std::span<const std::int16_t> starts,
                      std::span<const std::int16_t> lengths) {
  if (index < 1 || static_cast<std::size_t>(index) > starts.size() ||
      static_cast<std::size_t>(index) > lengths.size()) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fGetWord");
    return "";
  }
  const int start = starts[static_cast<std::size_t>(index - 1)];
  const int len = lengths[static_cast<std::size_t>(index - 1)];
  if (start < 1 || len <= 0 || static_cast<std::size_t>(start) > text.size()) return "";
  return text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(len));
}

std::string fGetWord(const std::string& text, std::int16_t index) {
  return fGetWord1(text, index, gParseStart, gParseLen);
}

std::vector<std::string> fSplitWords(const std::string& text, const std::string& delimiter) {
  std::array<std::int16_t, kParseMaxWords> starts{};
  std::array<std::int16_t, kParseMaxWords> lengths{};
  const std::int16_t count = fParseString1(text, delimiter, starts, lengths);
  std::vector<std::string> words;
  words.reserve(static_cast<std::size_t>(count));
  for (std::int16_t i = 1; i <= count; ++i) words.push_back(fGetWord1(text, i, starts, lengths));
  return words;
}
