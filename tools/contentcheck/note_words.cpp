// English note words: see note_words.h. The notes themselves come from
// the program's note vocabulary, so the check and the program agree.
#include "note_words.h"

#include <sstream>

#include "notation/vocabulary.h"

namespace contentcheck {
namespace {

// The vocabulary tables, filled on first use.
void ensureVocabulary() {
  static const bool filled = (sInitScales(), true);
  (void)filled;
}

// The word without one colon stuck to its start, or else to its end.
std::string withoutStuckColon(const std::string& word) {
  if (!word.empty() && word.front() == ':') return word.substr(1);
  if (!word.empty() && word.back() == ':') return word.substr(0, word.size() - 1);
  return word;
}

}  // namespace

int noteId(const std::string& word) {
  ensureVocabulary();
  for (int id = 0; id < kNoteCount; ++id)
    if (word == gNoteEng[id]) return id;
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
