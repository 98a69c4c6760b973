// Theka tokens for the renderer: which strokes of a tala's theka fall inside
// each note of a phrase, in the token form FWavGenerateMusicFile1 reads.
// Stateless.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tonvex_render {

// Theka Bol Ids of one cycle of a tala of the library by its name in lower
// case ("teentaal", "ektaal", ... "sooltaal"), or nullopt.
std::optional<std::vector<int>> builtInTheka(std::string_view talaName);

// The names builtInTheka knows, in the library's order, joined by "|".
std::string builtInTalaNames();

// One token per note: "0" when no stroke starts within the note, otherwise
// count/bol/.../offset, strokes falling every beatMs from the phrase's start
// and the first on startBeat (1-based) of the cycle. A beatMs that is not
// above 0, or a duration that is not finite, places no strokes.
std::vector<std::string> thekaTokens(const std::vector<double>& durationsMs, double beatMs,
                                     const std::vector<int>& cycleBols, int startBeat);

}  // namespace tonvex_render
