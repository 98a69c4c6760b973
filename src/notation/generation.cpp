// Conversion of note and duration phrases to the generation form, and the
// integer note codes of phrase words.
#include "notation/generation.h"

#include <cstdio>
#include <cstdlib>
#include <limits>

#include "core/errors.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"

namespace {

// n in at least two digits, a sign before them: 5 "05", -2 "-02".
std::string twoDigits(int n) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%s%02d", n < 0 ? "-" : "", std::abs(n));
  return buf;
}

}  // namespace

std::string fConvertNotePhraseToMusicGenerationFormat(const std::string& phrase, int tonicNoteId) {
  NV_PROC("fConvertNotePhraseToMusicGenerationFormat");
  std::vector<std::string> tokens;
  for (const std::string& word : fSplitWords(phrase, " ")) {
    std::string token;
    for (const std::string& piece : fSplitWords(word, "'")) {
      const int number = ZenvoVal(fGetFnameForNote(piece));
      token += twoDigits(fGetAbsoluteNoteNumber(number, tonicNoteId));
    }
    tokens.push_back(std::move(token));
  }
  return fJoinWords(tokens, " ");
}

std::string fConvertDurPhraseToMusicGenerationFormat(const std::string& phrase) {
  NV_PROC("fConvertDurPhraseToMusicGenerationFormat");
  std::vector<std::string> ms;
  for (const std::string& word : fSplitWords(phrase, " "))
    ms.push_back(fFormatNumber(fNumericValue(word) * 10));
  return fJoinWords(ms, " ");
}

std::int16_t fGetNoteCode(const std::string& word) {
  std::string digits;
  for (const std::string& piece : fSplitWords(word, "'")) digits += fGetFnameForNote(piece);
  const std::int32_t code = ZenvoVal(digits);
  if (code > std::numeric_limits<std::int16_t>::max()) {
    sRaiseError(kErrOverflow, "Overflow", "fGetNoteCode");
    return 0;
  }
  return static_cast<std::int16_t>(code);
}
