// The English note words of stored phrases, as the content check needs
// them: the 36 notes of three octaves (ids 0 to 35, middle "S" is 12), and
// the legality of a phrase word (a note, or a grace pair "x'y", with at most
// one colon stuck to one end). Fixed tables, no state.
#pragma once

#include <string>
#include <vector>

namespace contentcheck {

// The note id of an English note word, or -1 when it is no note.
int noteId(const std::string& word);

// Whether a word is a legal note word of a stored phrase.
bool isLegalNoteWord(const std::string& word);

// The notes of a legal note word, grace note first; stuck colons dropped.
std::vector<std::string> notesOfWord(const std::string& word);

// Splits at runs of blanks, dropping empty words.
std::vector<std::string> words(const std::string& text);

// Splits at every occurrence of `separator` (kept pieces may be empty).
std::vector<std::string> pieces(const std::string& text, char separator);

}  // namespace contentcheck
