// The Practice box's text: English notes typed under Devanagari, and the
// first wrong word of a box that cannot be played (see practice_notation.h).
#include "exploration/practice_notation.h"

#include "notation/devanagari.h"
#include "notation/phrase_forms.h"
#include "notation/vocabulary.h"

namespace {

// Characters of a wrong word shown in the message; a pasted run of
// thousands of letters is cut there.
constexpr std::size_t kShownWordLength = 20;

std::string fPieceInDevanagari(const std::string& piece) {
  return fIsEnglishNote(piece) ? fGetDevnagariStringForNote(piece) : piece;
}

// One word with its English pieces in the key map; colons stuck to either
// end stay where they are.
std::string fWordInDevanagari(const std::string& word) {
  const std::size_t first = word.find_first_not_of(':');
  if (first == std::string::npos) return word;
  const std::size_t last = word.find_last_not_of(':');
  const std::string notes = word.substr(first, last - first + 1);
  std::string converted;
  for (std::size_t i = 0, start = 0; i <= notes.size(); ++i) {
    if (i < notes.size() && notes[i] != '\'') continue;
    converted += fPieceInDevanagari(notes.substr(start, i - start));
    if (i < notes.size()) converted += '\'';
    start = i + 1;
  }
  return word.substr(0, first) + converted + word.substr(last + 1);
}

// The first kShownWordLength characters of a UTF-8 word, "..." after a cut.
std::string fShownWord(const std::string& word) {
  std::size_t characters = 0;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const bool startsCharacter = (static_cast<unsigned char>(word[i]) & 0xC0) != 0x80;
    if (startsCharacter && ++characters > kShownWordLength) return word.substr(0, i) + "...";
  }
  return word;
}

}  // namespace

std::string fNotationInScript(const std::string& text, std::int16_t script) {
  if (script != 1) return text;
  std::string out;
  std::string word;
  for (char c : text) {
    if (c != ' ') {
      word += c;
      continue;
    }
    out += fWordInDevanagari(word) + ' ';
    word.clear();
  }
  return out + fWordInDevanagari(word);
}

NotationFault fFirstNotationFault(const std::string& text, std::int16_t script) {
  std::size_t number = 0;
  bool segmentHasNote = false;  // the segment under way holds a note
  NotationFault lastColon;      // the word of the last ":" met
  std::string word;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i < text.size() && text[i] != ' ') {
      word += text[i];
      continue;
    }
    if (word.empty()) continue;
    ++number;
    if (!fIsColon(word) && !fIsLegalNote(word, script)) return {number, word, "unknown note"};
    if (i > kLongestNotation)
      return {number, word, "beyond character " + std::to_string(kLongestNotation)};
    for (char c : word) {
      if (c != ':') {
        segmentHasNote = true;
        continue;
      }
      if (!segmentHasNote) return {number, word, "empty segment"};
      segmentHasNote = false;
      lastColon = {number, word, "empty segment"};
    }
    if (number > kMostNotationWords)
      return {number, word, "too many notes (at most " + std::to_string(kMostNotationWords) + ")"};
    word.clear();
  }
  // A box that ends in ":" leaves an empty last segment behind its colon.
  if (lastColon.wordNumber != 0 && !segmentHasNote) return lastColon;
  return {};
}

std::string fNotationFaultMessage(const NotationFault& fault, std::int16_t script) {
  const std::string word = script == 1 ? fKeymapToUnicode(fault.word) : fault.word;
  return "One or more changes you made are not allowable. Please check and correct errors.\n"
         "The first wrong word is word " + std::to_string(fault.wordNumber) + ", \"" +
         fShownWord(word) + "\": " + fault.reason + ".";
}
