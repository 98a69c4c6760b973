// Fuzz target: arbitrary text through the tokenizer, the legality test, the
// phrase conversions, the duration procedures and the Devanagari display
// conversion, with the invariants each promises. A range error (ErrorTrap)
// on text of more than 501 words is the designed answer, not a fault.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include <stdlib.h>

#include "core/errors.h"
#include "core/session.h"
#include "notation/beat_marks.h"
#include "notation/devanagari.h"
#include "notation/durations.h"
#include "notation/generation.h"
#include "notation/phrase_forms.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"

namespace {

void check(bool ok) {
  if (!ok) __builtin_trap();
}

bool isAscii(const std::string& s) {
  for (unsigned char c : s)
    if (c >= 0x80) return false;
  return true;
}

void tokenize(const std::string& text, const std::string& delimiter) {
  const std::int16_t count = fParseString(text, delimiter);
  check(count >= 0 && count <= kParseMaxWords);
  for (std::int16_t i = 1; i <= count; ++i) {
    const std::string word = fGetWord(text, i);
    check(!word.empty());
    check(delimiter.empty() || word.find(delimiter) == std::string::npos);
  }
}

void convertPhrase(const std::string& text) {
  for (std::int16_t script : {1, 2, 0}) {
    fIsLegalNotationPhrase(text, script);
    fPrepareNotesForScript(text, script, 1);
    fPrepareNotesForScript(text, script, 2);
  }
  check(fRemoveColons(text).find(':') == std::string::npos);
  fRemoveGlides(text);
  fPrepareNotationDisplayString(fPrepareNotationDevnagariString(text));
  fConvertFont(text, 1);
  fConvertFont(text, 2);
  fConvertNotePhraseToMusicGenerationFormat(text, 1);
  fConvertDurPhraseToMusicGenerationFormat(text);
  fGetNoteCode(text);
}

void convertDurations(const std::string& text, std::uint8_t selector) {
  fGetDurationValue(text);
  fGetBeatCountForPhrase(text);
  fConvertMatraToDuration(text, static_cast<std::int16_t>(selector));
  fCreateDurationPhrase(text, 6);
  fFactorTimingScriptBy(text, gSpeedFactors[selector % gSpeedFactors.size()]);
  std::string phrase = text;
  fGetTimingScript(phrase);
  fCreateBeatMarkedString(text, text, selector % 20, selector % 7, kBeatMarkEnglish);
}

void convertDevanagari(const std::string& text) {
  const std::string unicode = fKeymapToUnicode(text);
  if (isAscii(text)) check(fUnicodeToKeymap(unicode) == text);
  fUnicodeToKeymap(text);
}

// The note tables, and a data folder of the run's own for the forgiven
// faults' report, so that nothing is written to the current folder.
bool initialise() {
  sInitScales();
  // In $TMPDIR, which scripts/fuzz-all.sh empties after each run.
  std::string folder = (std::filesystem::temp_directory_path() / "nadavik-fuzz-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) __builtin_trap();
  gDataPath = folder;
  gErrTraceFile = gDataPath + "/errtrace.txt";
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool initialised = initialise();
  (void)initialised;
  if (size == 0) return 0;
  const std::uint8_t selector = data[0];
  const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
  try {
    tokenize(text, " ");
    tokenize(text, selector % 2 ? "'" : ", ");
    convertPhrase(text);
    convertDurations(text, selector);
    convertDevanagari(text);
  } catch (const ErrorTrap& e) {
    check(e.number == kErrSubscriptOutOfRange);
  }
  return 0;
}
