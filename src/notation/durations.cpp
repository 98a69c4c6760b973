// Durations: sums of duration phrases, matras to duration words, timing
// scripts for phrases without rhythm, and the speed slider's factor.
#include "notation/durations.h"

#include <cmath>
#include <limits>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "notation/phrase_forms.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"

std::int16_t gBaseMatraMs = 0;

std::int32_t fGetDurationValue(const std::string& durPhrase) {
  NV_PROC("fGetDurationValue");
  std::int32_t sum = 0;
  for (const std::string& word : fSplitWords(durPhrase, " "))
    sum = fRoundToInt32(sum + fNumericValue(word));
  return sum;
}

std::int16_t fGetBeatCountForPhrase(const std::string& durPhrase) {
  NV_PROC("fGetBeatCountForPhrase");
  double sum = 0;
  for (const std::string& word : fSplitWords(durPhrase, " ")) sum += fNumericValue(word);
  return fRoundToInt16(sum);
}

namespace {

// x whole, rounding up only a fraction strictly above one half; beyond 16
// bits the (forgiven) overflow gives 0.
std::int16_t roundHalfDown(double x) {
  double whole = std::floor(x);
  if (x - whole > 0.5) whole += 1;
  if (!(whole >= std::numeric_limits<std::int16_t>::min() &&
        whole <= std::numeric_limits<std::int16_t>::max())) {
    sRaiseError(kErrOverflow, "Overflow", "fConvertMatraToDuration");
    return 0;
  }
  return static_cast<std::int16_t>(whole);
}

}  // namespace

std::string fConvertMatraToDuration(const std::string& matraPhrase, std::int16_t matraDuration) {
  NV_PROC("fConvertMatraToDuration");
  std::vector<std::string> words;
  for (const std::string& word : fSplitWords(matraPhrase, " "))
    words.push_back(std::to_string(roundHalfDown(fNumericValue(word) * matraDuration)));
  return fJoinWords(words, " ");
}

std::string fCreateDurationPhrase(const std::string& phrase, std::int16_t kind) {
  NV_PROC("fCreateDurationPhrase");
  int unit = 0;
  if (kind == 6) unit = kBaseNoteWord;
  if (kind == 10) unit = gBaseMatraMs;
  const std::string unitWord = std::to_string(unit) + " ";
  const std::vector<std::string> sections = fSplitWords(phrase, ",");
  std::string out;
  for (std::size_t s = 0; s < sections.size(); ++s) {
    const std::size_t notes = fSplitWords(fRemoveColons(sections[s]), " ").size();
    for (std::size_t i = 0; i < notes; ++i) out += unitWord;
    if (s + 1 < sections.size()) out += ", ";
  }
  return out;
}

std::string fGetTimingScript(std::string& phrase) {
  NV_PROC("fGetTimingScript");
  phrase = fRmvTrailBlk(fRmvLeadBlk(phrase));
  const std::vector<std::string> words = fSplitWords(phrase, " ");
  return fJoinWords(std::vector<std::string>(words.size(), std::to_string(kBaseNoteWord)), " ");
}

std::string fFactorTimingScriptBy(const std::string& script, double factor) {
  if (factor == 1.0) return script;
  std::vector<std::string> sections;
  for (const std::string& section : fSplitWords(script, ",")) {
    std::vector<std::string> words;
    for (const std::string& word : fSplitWords(section, " "))
      words.push_back(std::to_string(fRoundToInt16(fNumericValue(word) * factor)));
    sections.push_back(fJoinWords(words, " "));
  }
  return fJoinWords(sections, " , ");
}

std::string fFactorTimingScript(const std::string& script, int slider) {
  NV_PROC("fFactorTimingScript");
  if (slider < 0 || slider >= static_cast<int>(gSpeedFactors.size())) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fFactorTimingScript");
    return script;
  }
  return fFactorTimingScriptBy(script, gSpeedFactors[static_cast<std::size_t>(slider)]);
}
