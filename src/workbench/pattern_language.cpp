// The workbench's pattern language (see pattern_language.h).
#include "workbench/pattern_language.h"

#include <cstddef>

#include "core/errors.h"
#include "notation/text_utils.h"
#include "notation/vocabulary.h"

const std::array<std::string, kNotePlaces> gNoteNames = {
    "P<", "d<", "D<", "n<", "N<", "S", "r", "R", "g", "G", "m", "M", "P",
    "d",  "D",  "n",  "N",  "S>", "r>", "R>", "g>", "G>", "m>", "M>", "P>"};

const std::array<std::string, kNotePlaces> gNoteDevNames = {
    "p,",   "Qa\\,", "Qa,", "ina\\,", "ina,", "saa",  "ro\\",  "ro",   "ga\\",
    "ga",   "ma",    "ma\\", "p",     "Qa\\", "Qa",   "ina\\", "ina",  "saaM",
    "ro\\M", "roM",  "ga\\M", "gaM",  "maM",  "ma\\M", "pM"};

const std::array<std::string, kStdPatternCount> gStdPatterns = {
    "BUC7LDC7", "BUC14LDC14", "BUC1", "BUC2", "BUC3", "BUC1BUC2", "BUC2BUC3", "BUJ2lDJ1"};

std::vector<std::int32_t> gPatternOffsets;

namespace {

constexpr std::int32_t kLargestCount = 32767;
constexpr std::size_t kLongTokenFrom = 8;  // characters left for a 5-character token

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The tokens of a pattern, as fInterpretPattern describes.
std::vector<std::string> fPatternTokens(const std::string& patternText) {
  std::vector<std::string> tokens;
  std::size_t at = 0;
  while (patternText.size() - at >= kLongTokenFrom) {
    const std::size_t length = isDigit(patternText[at + 4]) ? 5 : 4;
    tokens.push_back(patternText.substr(at, length));
    at += length;
  }
  if (at < patternText.size()) tokens.push_back(patternText.substr(at));
  return tokens;
}

// The count after a token's three letters; -1 when it is no decimal number
// or too large.
std::int32_t fTokenCount(const std::string& token) {
  if (token.size() < 4) return -1;
  std::int32_t count = 0;
  for (std::size_t i = 3; i < token.size(); ++i) {
    if (!isDigit(token[i])) return -1;
    count = count * 10 + (token[i] - '0');
    if (count > kLargestCount) return -1;
  }
  return count;
}

// Appends one token's offsets; false when it is no token.
bool fAddTokenOffsets(const std::string& token, std::int32_t& end) {
  const std::int32_t count = fTokenCount(token);
  const std::string letters = "BbLl";
  if (count < 0 || letters.find(token[0]) == std::string::npos) return false;
  if (token[1] != 'U' && token[1] != 'D') return false;
  if (token[2] != 'C' && token[2] != 'J') return false;
  const std::int32_t start = token[0] == 'B' || token[0] == 'b' ? 0 : end;
  const std::int32_t step = token[1] == 'U' ? 1 : -1;
  if (token[0] == 'B' || token[0] == 'L') gPatternOffsets.push_back(start);
  if (token[2] == 'C') {
    for (std::int32_t n = 1; n <= count; ++n) gPatternOffsets.push_back(start + n * step);
  } else {
    gPatternOffsets.push_back(start + count * step);
  }
  end = start + count * step;
  return true;
}

// Note number 1 to 36 of a word's first "'"-part; 0 when it is no note.
int fNoteNumberOfWord(const std::string& word) {
  const std::string note = word.substr(0, word.find('\''));
  for (int id = 0; id < kNoteCount; ++id)
    if (gNoteEng[static_cast<std::size_t>(id)] == note) return id + 1;
  return 0;
}

// One "'"-part moved by an octave: up (+1) or down (-1). False when the
// part is already marked for the octave it would go to.
bool fMovePart(std::string& part, int octave) {
  const char toward = octave > 0 ? '>' : '<';
  const char away = octave > 0 ? '<' : '>';
  if (part.size() == 1) {
    part += toward;
    return true;
  }
  if (!part.empty() && part.back() == away) {
    part.pop_back();
    return true;
  }
  return part.empty() || part.back() != toward;
}

// A word, grace part and main part alike, moved by an octave; false as
// for fMovePart.
bool fMoveWord(const std::string& word, int octave, std::string& moved) {
  const std::size_t mark = word.find('\'');
  std::string first = word.substr(0, mark);
  if (!fMovePart(first, octave)) return false;
  moved = first;
  if (mark == std::string::npos) return true;
  std::string second = word.substr(mark + 1);
  if (!fMovePart(second, octave)) return false;
  moved += "'" + second;
  return true;
}

// The words to copy an octave away: last character among `lastNotes`, and
// not already marked for an octave at its end.
bool fCopiesToOctave(const std::string& word, const std::string& lastNotes) {
  const char last = word.back();
  return last != '>' && last != '<' && lastNotes.find(last) != std::string::npos;
}

}  // namespace

std::vector<std::string> fPhraseWords(const std::string& text) {
  std::vector<std::string> words;
  std::string word;
  for (char c : text + " ") {
    if (c != ' ') {
      word += c;
    } else if (!word.empty()) {
      words.push_back(word);
      word.clear();
    }
  }
  return words;
}

std::int16_t fInterpretPattern(const std::string& patternText) {
  NV_PROC("fInterpretPattern");
  gPatternOffsets.clear();
  std::int32_t end = 0;
  for (const std::string& token : fPatternTokens(patternText)) {
    if (!fAddTokenOffsets(token, end)) {
      gPatternOffsets.clear();
      return 0;
    }
  }
  return gPatternOffsets.empty() ? 0 : -1;
}

std::string fStdPatternForScale(int index, std::int16_t scaleSize) {
  const std::string& pattern = gStdPatterns[static_cast<std::size_t>(index)];
  if (index == 0) {
    const std::string count = std::to_string(scaleSize + 5);
    return pattern.substr(0, 3) + count + pattern.substr(4, 3) + count;
  }
  if (index == 1) {
    const std::string count = std::to_string(2 * scaleSize + 10);
    return pattern.substr(0, 3) + count + pattern.substr(5, 3) + count;
  }
  return pattern;
}

bool fIsShuddha(std::int32_t id) {
  switch (id) {
    case 1: case 3: case 5: case 6: case 8: case 10: case 11: case 13:
    case 15: case 17: case 18: case 20: case 22: case 23: case 25:
      return true;
    default:
      return false;
  }
}

std::string fStraightenOutPhrase(const std::string& phrase, std::int16_t direction) {
  NV_PROC("fStraightenOutPhrase");
  const std::vector<std::string> words = fPhraseWords(phrase);
  std::array<std::size_t, kNoteCount + 1> slots{};  // word number + 1 by note number; 0 empty
  int last = direction > 0 ? 0 : kNoteCount + 1;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const int k = fNoteNumberOfWord(words[i]);
    if (k == 0) continue;
    const bool rises = direction > 0 && k > last && k < 26;
    const bool falls = direction < 0 && k < last && k >= 12;
    if (rises || falls) slots[static_cast<std::size_t>(k)] = i + 1;
    last = k;
  }
  std::vector<std::string> ladder;
  for (int k = 1; k <= kNoteCount; ++k) {
    const int slot = direction > 0 ? k : kNoteCount + 1 - k;
    const std::size_t word = slots[static_cast<std::size_t>(slot)];
    if (word != 0) ladder.push_back(words[word - 1]);
  }
  return fJoinWords(ladder, " ");
}

std::string fAugmentRagaPhraseNotes(const std::string& phrase, std::int16_t direction,
                                    std::int16_t& headWords) {
  NV_PROC("fAugmentRagaPhraseNotes");
  std::vector<std::string> tail;
  std::vector<std::string> head;
  headWords = 0;
  for (const std::string& word : fPhraseWords(phrase)) {
    std::string moved;
    if (fCopiesToOctave(word, "rRgGmMP")) {
      if (!fMoveWord(word, 1, moved)) return "";
      tail.push_back(moved);
    }
    if (fCopiesToOctave(word, "PdDnN")) {
      if (!fMoveWord(word, -1, moved)) return "";
      head.push_back(moved);
    }
  }
  headWords = static_cast<std::int16_t>(head.size());
  const std::string lower = fJoinWords(head, " ");
  const std::string upper = fJoinWords(tail, " ");
  const std::string& before = direction == 1 ? lower : upper;
  const std::string& after = direction == 1 ? upper : lower;
  return before + " " + phrase + " " + after;
}
