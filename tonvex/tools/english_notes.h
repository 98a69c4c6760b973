// English note words of the renderer: the 36 notes "S<" to "N>" (lower-case
// r g d n komal, upper-case M tivra, "<" lower octave, ">" upper octave) and
// grace pairs "G'R". Stateless.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tonvex_render {

// Note id 0 to 35 of one English note ("S" is 12), or nullopt.
std::optional<int> englishNoteId(std::string_view note);

// The generation token of a word at a tonic (1 to 12): the absolute note
// numbers (id + tonic - 3) in two digits, grace note first; nullopt for an
// unknown word or a note outside 0 to 40.
std::optional<std::string> generationToken(std::string_view word, int tonicId);

}  // namespace tonvex_render
