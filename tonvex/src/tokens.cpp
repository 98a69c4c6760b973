// Parsers of note tokens, durations and theka tokens. Stateless.
#include "tokens.h"

#include <cctype>
#include <cstdlib>

#include "tonvex/tonvex.h"

namespace tonvex {
namespace {

constexpr int kMaxBolId = 20;
constexpr int kMaxStrokesPerNote = 64;

bool allDigits(std::string_view word) {
  if (word.empty()) return false;
  for (char c : word)
    if (!std::isdigit(static_cast<unsigned char>(c))) return false;
  return true;
}

std::optional<int> parseNoteNumber(std::string_view twoDigits) {
  const int n = (twoDigits[0] - '0') * 10 + (twoDigits[1] - '0');
  if (n > kMaxNoteId) return std::nullopt;
  return n;
}

std::vector<std::string_view> splitAt(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  size_t start = 0;
  for (size_t i = 0; i <= text.size(); ++i) {
    if (i == text.size() || text[i] == separator) {
      parts.push_back(text.substr(start, i - start));
      start = i + 1;
    }
  }
  return parts;
}

std::optional<ThekaToken> parseThekaToken(std::string_view word) {
  if (word == "0") return ThekaToken{};
  const auto parts = splitAt(word, '/');
  if (parts.size() < 3 || !allDigits(parts[0]) || parts[0].size() > 2) return std::nullopt;
  const int count = std::atoi(std::string(parts[0]).c_str());
  if (count < 1 || count > kMaxStrokesPerNote || parts.size() != size_t(count) + 2)
    return std::nullopt;
  ThekaToken token;
  for (int j = 1; j <= count; ++j) {
    if (!allDigits(parts[j]) || parts[j].size() > 2) return std::nullopt;
    const int bol = std::atoi(std::string(parts[j]).c_str());
    if (bol > kMaxBolId) return std::nullopt;
    token.bolIds.push_back(bol);
  }
  const auto offset = parseDecimal(parts.back());
  if (!offset || *offset > 1.0) return std::nullopt;
  token.offsetBeats = *offset;
  return token;
}

}  // namespace

std::vector<std::string_view> splitWords(std::string_view text) {
  std::vector<std::string_view> words;
  size_t i = 0;
  while (i < text.size()) {
    while (i < text.size() && text[i] == ' ') ++i;
    const size_t start = i;
    while (i < text.size() && text[i] != ' ') ++i;
    if (i > start) words.push_back(text.substr(start, i - start));
  }
  return words;
}

std::optional<double> parseDecimal(std::string_view word) {
  int digits = 0, points = 0;
  for (char c : word) {
    if (std::isdigit(static_cast<unsigned char>(c))) ++digits;
    else if (c == '.') ++points;
    else return std::nullopt;
  }
  if (digits == 0 || points > 1 || word.size() > 32) return std::nullopt;
  return std::strtod(std::string(word).c_str(), nullptr);
}

std::optional<std::vector<NoteToken>> parseNoteTokens(std::string_view notes) {
  std::vector<NoteToken> tokens;
  for (std::string_view word : splitWords(notes)) {
    if (!allDigits(word) || (word.size() != 2 && word.size() != 4)) return std::nullopt;
    NoteToken token;
    const auto main = parseNoteNumber(word.substr(word.size() - 2));
    if (!main) return std::nullopt;
    token.mainNote = *main;
    if (word.size() == 4) {
      const auto grace = parseNoteNumber(word.substr(0, 2));
      if (!grace) return std::nullopt;
      token.graceNote = *grace;
    }
    tokens.push_back(token);
  }
  return tokens;
}

std::optional<std::vector<double>> parseDurationsMs(std::string_view durations) {
  std::vector<double> values;
  for (std::string_view word : splitWords(durations)) {
    const auto value = parseDecimal(word);
    if (!value) return std::nullopt;
    values.push_back(*value);
  }
  return values;
}

std::optional<std::vector<ThekaToken>> parseThekaTokens(std::string_view theka) {
  std::vector<ThekaToken> tokens;
  for (std::string_view word : splitWords(theka)) {
    auto token = parseThekaToken(word);
    if (!token) return std::nullopt;
    tokens.push_back(std::move(*token));
  }
  return tokens;
}

}  // namespace tonvex
