// Fuzz target: arbitrary text through the workbench's pattern interpreter
// and its expansions over the major scale, a five-note scale and a raga's
// aroha and avroha, and arbitrary phrases through the raga ladders, with
// the invariants each promises: a refused pattern leaves no offsets, an
// expansion gives only note names of the 25 places, or nothing (the
// overshoot, a forgiven fault logged to ignoerr.txt).
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include <stdlib.h>

#include "core/session.h"
#include "notation/vocabulary.h"
#include "workbench/pattern_expansion.h"
#include "workbench/pattern_language.h"
#include "workbench/scale_notes.h"

namespace {

void check(bool ok) {
  if (!ok) __builtin_trap();
}

bool fIsPlaceName(const std::string& word) {
  for (const std::string& name : gNoteNames)
    if (name == word) return true;
  return false;
}

void expandOverScale(std::int32_t kind) {
  gPatternKind = kind;
  sCreateScalePatternFromBP();
  for (const std::string& word : fPhraseWords(gSelPhrase)) check(word == ":" || fIsPlaceName(word));
  check(gSelPhrase.empty() == gBasePhrase.empty());
}

void expandPattern(const std::string& text, std::uint8_t selector) {
  const std::int16_t ok = fInterpretPattern(text);
  check(ok == -1 || ok == 0);
  check((ok == 0) == gPatternOffsets.empty());
  if (ok == 0) return;
  gCurrMode = selector % 2 ? 3 : 2;
  gBaseNoteIndex = selector % 3 ? kPlaceOfSa : 0;
  sInitScaleNotes();
  sSetScaleNotesForMajorScale();
  expandOverScale(1);
  expandOverScale(2);
  sSetScaleAndSelNotesForPhrase("S R G P D S>");
  expandOverScale(2);
  gPatternKind = selector % 2 ? 1 : 2;
  if (!fExpandRagaPattern("N< R G M D N S>", "S> N D P M G R S")) check(gSelPhrase.empty());
}

// The text as two raga phrases, split at its first "|".
void walkPhrases(const std::string& text) {
  const std::size_t bar = text.find('|');
  const std::string ascent = text.substr(0, bar);
  const std::string descent = bar == std::string::npos ? ascent : text.substr(bar + 1);
  std::int16_t head = 0;
  fAugmentRagaPhraseNotes(fStraightenOutPhrase(ascent, 1), 1, head);
  check(head >= 0);
  if (fInterpretPattern("BUC2") == -1 && !fExpandRagaPattern(ascent, descent)) check(gSelPhrase.empty());
}

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
  if (selector & 0x80)
    walkPhrases(text);
  else
    expandPattern(text, selector);
  return 0;
}
