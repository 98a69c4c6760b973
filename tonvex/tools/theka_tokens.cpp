// Built-in thekas of six common talas and their placement on a phrase.
// Stateless.
#include "theka_tokens.h"

#include <cmath>
#include <cstdio>

namespace tonvex_render {

std::optional<std::vector<int>> builtInTheka(std::string_view talaName) {
  // Dha 1, Dhin 2, Ta 3, Tin 4, Na 5, Tun 6, Ge 7, Ke 8, Ti 9, Dhi 13,
  // Tirakita 16, Dhage 17, Kat 19.
  if (talaName == "teentaal") return std::vector<int>{1, 2, 2, 1, 1, 2, 2, 1, 1, 4, 4, 3, 3, 2, 2, 1};
  if (talaName == "ektaal") return std::vector<int>{2, 2, 17, 16, 6, 5, 19, 3, 17, 16, 13, 5};
  if (talaName == "jhaptaal") return std::vector<int>{13, 5, 13, 13, 5, 9, 5, 13, 13, 5};
  if (talaName == "rupak") return std::vector<int>{4, 4, 5, 13, 5, 13, 5};
  if (talaName == "keherwa") return std::vector<int>{1, 7, 5, 9, 5, 8, 13, 5};
  if (talaName == "dadra") return std::vector<int>{1, 13, 5, 1, 9, 5};
  return std::nullopt;
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
