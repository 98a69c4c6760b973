// English note vocabulary of the renderer, scanned linearly. Stateless.
#include "english_notes.h"

#include <array>
#include <cstdio>

namespace tonvex_render {
namespace {

constexpr std::array<std::string_view, 12> kDegrees = {"S", "r", "R", "g", "G", "m",
                                                       "M", "P", "d", "D", "n", "N"};

std::optional<std::string> twoDigits(std::string_view note, int tonicId) {
  const auto id = englishNoteId(note);
  if (!id) return std::nullopt;
  const int absolute = *id + tonicId - 3;
  if (absolute < 0 || absolute > 40) return std::nullopt;
  char text[4];
  std::snprintf(text, sizeof text, "%02d", absolute);
  return std::string(text);
}

}  // namespace

std::optional<int> englishNoteId(std::string_view note) {
  int octave = 1;
  if (note.size() == 2 && note[1] == '<') octave = 0;
  else if (note.size() == 2 && note[1] == '>') octave = 2;
  else if (note.size() != 1) return std::nullopt;
  for (size_t d = 0; d < kDegrees.size(); ++d)
    if (note.substr(0, 1) == kDegrees[d]) return int(octave * 12 + d);
  return std::nullopt;
}

std::optional<std::string> generationToken(std::string_view word, int tonicId) {
  const size_t apostrophe = word.find('\'');
  if (apostrophe == std::string_view::npos) return twoDigits(word, tonicId);
  const auto grace = twoDigits(word.substr(0, apostrophe), tonicId);
  const auto main = twoDigits(word.substr(apostrophe + 1), tonicId);
  if (!grace || !main) return std::nullopt;
  return *grace + *main;
}

}  // namespace tonvex_render
