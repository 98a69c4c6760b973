// Checks of one stored phrase: see phrase_checks.h.
#include "phrase_checks.h"

#include <cmath>
#include <cstdlib>

#include "note_words.h"

namespace contentcheck {
namespace {

bool isNumber(const std::string& w, double& value) {
  char* end = nullptr;
  value = std::strtod(w.c_str(), &end);
  return !w.empty() && *end == '\0' && std::isfinite(value);
}

std::string plural(int n, const char* what) {
  return std::to_string(n) + " " + what + (n == 1 ? "" : "s");
}

}  // namespace

std::string firstIllegalWord(const std::string& notes, Separators allowed) {
  for (const std::string& w : words(notes)) {
    if (w == ":" && allowed != Separators::None) continue;
    if (w == "," && allowed == Separators::ColonsAndCommas) continue;
    const bool stuckColon = w.size() > 1 && (w.front() == ':' || w.back() == ':');
    if (stuckColon && allowed == Separators::None) return w;
    if (!isLegalNoteWord(w)) return w;
  }
  return "";
}

int noteWordCount(const std::string& notes) {
  int n = 0;
  for (const std::string& w : words(notes))
    if (w != ":" && w != ",") ++n;
  return n;
}

std::string firstBadDuration(const std::string& durations, bool whole, bool commas) {
  for (const std::string& w : words(durations)) {
    if (w == "," && commas) continue;
    double v = 0;
    if (!isNumber(w, v) || v <= 0 || (whole && v != std::floor(v))) return w;
  }
  return "";
}

double durationSum(const std::string& durations) {
  double sum = 0, v = 0;
  for (const std::string& w : words(durations))
    if (isNumber(w, v)) sum += v;
  return sum;
}

std::string countMismatch(const std::string& notes, const std::string& durations) {
  const auto notePhrases = pieces(notes, ',');
  const auto durPhrases = pieces(durations, ',');
  if (notePhrases.size() != durPhrases.size())
    return plural(static_cast<int>(notePhrases.size()), "phrase") + " of notes but " +
           plural(static_cast<int>(durPhrases.size()), "phrase") + " of durations";
  for (std::size_t p = 0; p < notePhrases.size(); ++p) {
    const int n = noteWordCount(notePhrases[p]);
    const int d = static_cast<int>(words(durPhrases[p]).size());
    if (n != d) {
      const std::string where = notePhrases.size() > 1 ? "phrase " + std::to_string(p + 1) + ": " : "";
      return where + plural(n, "note") + " but " + plural(d, "duration");
    }
  }
  return "";
}

std::string pakadMismatch(const std::string& notes, const std::string& durations) {
  const int available = static_cast<int>(words(durations).size());
  int used = 0, segment = 0;
  for (const std::string& seg : pieces(notes, ':')) {
    ++segment;
    used += noteWordCount(seg);
    if (used > available)
      return "the durations run out in segment " + std::to_string(segment) + " (" +
             plural(available, "duration") + " for " + plural(noteWordCount(notes), "note") + ")";
  }
  if (used < available) return plural(available - used, "duration") + " left over after the last segment";
  return "";
}

}  // namespace contentcheck
