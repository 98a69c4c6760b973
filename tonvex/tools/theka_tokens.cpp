// Built-in thekas of the library's twelve talas and their placement on a
// phrase.
// Stateless.
#include "theka_tokens.h"

#include <cmath>
#include <cstdio>

namespace tonvex_render {

namespace {

struct BuiltInTala {
  std::string_view name;
  std::vector<int> bols;  // Theka Bol Id of each beat
};

// The thekas of the library's twelve talas (content/talas.rec, the default
// kit's theka type 4; a test keeps the two equal). Dha 1, Dhin 2, Ta 3,
// Tin 4, Na 5, Tun 6, Ge 7, Ke 8, Ti 9, Ki 11, Dhi 13, Ga 14, Tirakita 16,
// Dhage 17, Kat 19.
const std::vector<BuiltInTala>& builtInTalas() {
  static const std::vector<BuiltInTala> talas = {
      {"teentaal", {1, 2, 2, 1, 1, 2, 2, 1, 1, 4, 4, 3, 3, 2, 2, 1}},
      {"ektaal", {2, 2, 17, 16, 6, 5, 19, 3, 17, 16, 13, 5}},
      {"jhaptaal", {13, 5, 13, 13, 5, 9, 5, 13, 13, 5}},
      {"rupak", {4, 4, 5, 13, 5, 13, 5}},
      {"keherwa", {1, 7, 5, 9, 5, 8, 13, 5}},
      {"dadra", {1, 13, 5, 1, 9, 5}},
      {"chautaal", {1, 1, 2, 3, 11, 1, 2, 3, 9, 19, 14, 14}},
      {"jhoomra", {2, 1, 16, 2, 2, 17, 16, 4, 3, 16, 2, 2, 17, 16}},
      {"tilwada", {1, 16, 2, 2, 1, 1, 4, 4, 3, 16, 2, 2, 1, 1, 2, 2}},
      {"deepchandi", {1, 2, 7, 1, 1, 4, 7, 3, 4, 8, 1, 1, 2, 7}},
      {"dhamar", {19, 13, 3, 13, 3, 1, 7, 14, 9, 3, 9, 3, 3, 8}},
      {"sooltaal", {1, 1, 2, 3, 11, 1, 9, 19, 14, 14}},
  };
  return talas;
}

}  // namespace

std::optional<std::vector<int>> builtInTheka(std::string_view talaName) {
  for (const BuiltInTala& tala : builtInTalas())
    if (tala.name == talaName) return tala.bols;
  return std::nullopt;
}

std::string builtInTalaNames() {
  std::string names;
  for (const BuiltInTala& tala : builtInTalas())
    names += (names.empty() ? "" : "|") + std::string(tala.name);
  return names;
}

std::vector<std::string> thekaTokens(const std::vector<double>& durationsMs, double beatMs,
                                     const std::vector<int>& cycleBols, int startBeat) {
  std::vector<std::string> tokens;
  double noteStartMs = 0.0;
  long nextStroke = 0;  // strokes are at nextStroke * beatMs
  for (double durationMs : durationsMs) {
    const double noteEndMs = noteStartMs + durationMs;
    const long first = nextStroke;
    // A beat of no length, or a note that never ends, would never run out
    // of strokes: such a note gets none (the caller checks its arguments).
    if (beatMs > 0 && std::isfinite(noteEndMs))
      while (nextStroke * beatMs < noteEndMs - 1e-9) ++nextStroke;
    if (nextStroke == first) {
      tokens.push_back("0");
    } else {
      std::string token = std::to_string(nextStroke - first) + "/";
      for (long k = first; k < nextStroke; ++k) {
        const size_t beat = size_t(startBeat - 1 + k) % cycleBols.size();
        token += std::to_string(cycleBols[beat]) + "/";
      }
      char offset[32];
      std::snprintf(offset, sizeof offset, "%.6g", (first * beatMs - noteStartMs) / beatMs);
      tokens.push_back(token + offset);
    }
    noteStartMs = noteEndMs;
  }
  return tokens;
}

}  // namespace tonvex_render
