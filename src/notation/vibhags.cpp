// Tala divisions and their marks: parsing the library's two texts.
#include "notation/vibhags.h"

#include <sstream>

namespace {

std::vector<std::string> wordsOf(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string w; in >> w;) words.push_back(w);
  return words;
}

bool isPositiveNumber(const std::string& word) {
  if (word.empty() || word.size() > 3) return false;
  for (char ch : word)
    if (ch < '0' || ch > '9') return false;
  return std::stoi(word) > 0;
}

bool isValidMark(const std::string& mark, bool first) {
  if (mark == "0") return true;
  if (first) return mark == "x";
  return mark.size() == 1 && mark[0] >= '2' && mark[0] <= '9';
}

std::optional<std::vector<Vibhag>> fail(std::string* fault, const std::string& why) {
  if (fault) *fault = why;
  return std::nullopt;
}

}  // namespace

std::optional<std::vector<Vibhag>> parseVibhags(const std::string& beatsText, const std::string& marksText,
                                                int beatCount, std::string* fault) {
  const auto lengths = wordsOf(beatsText), marks = wordsOf(marksText);
  if (lengths.empty()) return fail(fault, "no Vibhag Beats");
  if (lengths.size() != marks.size())
    return fail(fault, std::to_string(lengths.size()) + " Vibhag Beats but " + std::to_string(marks.size()) + " Vibhag Marks");
  std::vector<Vibhag> vibhags;
  int beat = 1;
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    if (!isPositiveNumber(lengths[i])) return fail(fault, "Vibhag Beats '" + lengths[i] + "' is no positive number");
    if (!isValidMark(marks[i], i == 0))
      return fail(fault, "Vibhag Marks '" + marks[i] + "' must be " + (i == 0 ? "x or 0" : "0 or a tali from 2 to 9"));
    vibhags.push_back({beat, std::stoi(lengths[i]), marks[i]});
    beat += vibhags.back().beats;
  }
  if (beat - 1 != beatCount)
    return fail(fault, "Vibhag Beats add up to " + std::to_string(beat - 1) + ", not the tala's " + std::to_string(beatCount));
  return vibhags;
}

std::string vibhagMarkOnBeat(const std::vector<Vibhag>& vibhags, int beat) {
  for (const Vibhag& v : vibhags)
    if (v.firstBeat == beat) return v.mark;
  return "";
}

bool vibhagDividerBefore(const std::vector<Vibhag>& vibhags, int beat) {
  return beat > 1 && !vibhagMarkOnBeat(vibhags, beat).empty();
}
