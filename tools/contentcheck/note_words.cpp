// English note words: see note_words.h.
#include "note_words.h"

#include <array>
#include <sstream>

namespace contentcheck {
namespace {

const std::array<const char*, 36> kEnglishNotes = {
    "S<", "r<", "R<", "g<", "G<", "m<", "M<", "P<", "d<", "D<", "n<", "N<",
    "S",  "r",  "R",  "g",  "G",  "m",  "M",  "P",  "d",  "D",  "n",  "N",
    "S>", "r>", "R>", "g>", "G>", "m>", "M>", "P>", "d>", "D>", "n>", "N>"};

// The word without one colon stuck to its start, or else to its end.
std::string withoutStuckColon(const std::string& word) {
  if (!word.empty() && word.front() == ':') return word.substr(1);
  if (!word.empty() && word.back() == ':') return word.substr(0, word.size() - 1);
  return word;
}

}  // namespace

int noteId(const std::string& word) {
  for (std::size_t id = 0; id < kEnglishNotes.size(); ++id)
    if (word == kEnglishNotes[id]) return static_cast<int>(id);
  return -1;
}

std::vector<std::string> pieces(const std::string& text, char separator) {
  std::vector<std::string> out;
  std::string piece;
  std::istringstream in(text);
  while (std::getline(in, piece, separator)) out.push_back(piece);
  if (!text.empty() && text.back() == separator) out.push_back("");
  return out;
}

std::vector<std::string> words(const std::string& text) {
  std::vector<std::string> out;
  std::istringstream in(text);
  std::string w;
  while (in >> w) out.push_back(w);
  return out;
}

std::vector<std::string> notesOfWord(const std::string& word) {
  return pieces(withoutStuckColon(word), '\'');
}

bool isLegalNoteWord(const std::string& word) {
  const std::vector<std::string> notes = notesOfWord(word);
  if (notes.empty() || notes.size() > 2) return false;
  for (const std::string& n : notes)
    if (noteId(n) < 0) return false;
  return true;
}

}  // namespace contentcheck
