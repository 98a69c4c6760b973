// Expanding an interpreted pattern into a note phrase (see
// pattern_expansion.h).
#include "workbench/pattern_expansion.h"

#include <cstddef>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "notation/phrase_forms.h"
#include "notation/text_utils.h"
#include "platform/screen.h"
#include "store/working_record.h"
#include "workbench/pattern_language.h"
#include "workbench/scale_notes.h"

std::int32_t gPatternKind = 1;
std::int32_t gBaseNoteIndex = kPlaceOfSa;
std::string gBasePhrase;
std::int16_t gPhraseStartWord = 1;
std::string gPatternSpec;

namespace {

constexpr std::int16_t kNotes = 1;
constexpr std::int16_t kPractice = 3;

// Position (from 1) of a place in gSelNotes; 0 when the scale lacks it.
std::int32_t fPositionOfPlace(std::int32_t place) {
  for (std::int32_t p = 1; p <= gSelNoteCount; ++p)
    if (gSelNotes[static_cast<std::size_t>(p)] == place) return p;
  return 0;
}

bool fInScale(std::int64_t position) { return position >= 1 && position <= gSelNoteCount; }

std::int16_t fPlaceAt(std::int64_t position) {
  return gSelNotes[static_cast<std::size_t>(position)];
}

void sAppendWord(std::string& phrase, const std::string& word) {
  if (!phrase.empty()) phrase += ' ';
  phrase += word;
}

// Appends one pass from `from`, each offset times `sign`; false when a
// position falls outside the scale.
bool fAppendScalePass(std::int64_t from, int sign) {
  for (std::int32_t offset : gPatternOffsets) {
    const std::int64_t position = from + sign * static_cast<std::int64_t>(offset);
    if (!fInScale(position)) return false;
    sAppendWord(gSelPhrase, gNoteNames[static_cast<std::size_t>(fPlaceAt(position))]);
  }
  return true;
}

// The passes of one part of a Series: from `start`, moving `sign` with each
// pass, until the last note of a pass is place `goal`.
bool fAppendScaleSeries(std::int32_t start, int sign, std::int16_t goal, bool firstPart) {
  for (std::int64_t t = 0;; ++t) {
    const std::int64_t from = start + sign * t;
    if (!fAppendScalePass(from, sign)) return false;
    if (firstPart && t == 0) gBasePhrase = gSelPhrase;
    if (gCurrMode == kPractice) gSelPhrase += " :";
    const std::int64_t last = from + sign * static_cast<std::int64_t>(gPatternOffsets.back());
    if (fPlaceAt(last) == goal) return true;
  }
}

bool fExpandOverScale() {
  const std::int32_t base = fPositionOfPlace(gBaseNoteIndex);
  if (base == 0 || gPatternOffsets.empty()) return false;
  if (gPatternKind == 1) {
    if (!fAppendScalePass(base, 1)) return false;
    gBasePhrase = gSelPhrase;
    return true;
  }
  if (!fAppendScaleSeries(base, 1, kPlaceOfUpperSa, true)) return false;
  const std::int32_t top = fPositionOfPlace(kPlaceOfUpperSa);
  return top != 0 && fAppendScaleSeries(top, -1, kPlaceOfSa, false);
}

bool fEndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string fFirstPart(const std::string& word) { return word.substr(0, word.find('\'')); }

// Word (from 1) of the first word whose note is `note`; `otherwise` if none.
std::int16_t fStartWord(const std::vector<std::string>& words, const std::string& note,
                        std::int16_t otherwise) {
  for (std::size_t i = 0; i < words.size(); ++i)
    if (fFirstPart(words[i]) == note) return static_cast<std::int16_t>(i + 1);
  return otherwise;
}

// The passes over one raga phrase. The ascent sets gBasePhrase and, in One
// Time, stops after its first pass; each part ends when gSelPhrase ends in
// `goal`.
bool fWalkRagaPhrase(const std::vector<std::string>& words, const std::string& goal, bool ascent) {
  for (std::int64_t t = 0;; ++t) {
    for (std::size_t i = 0; i < gPatternOffsets.size(); ++i) {
      const std::int64_t p = gPhraseStartWord + t + gPatternOffsets[i];
      if (p < 1 || p > static_cast<std::int64_t>(words.size())) return false;
      const std::string& word = words[static_cast<std::size_t>(p - 1)];
      const std::size_t mark = word.find('\'');
      sAppendWord(gSelPhrase, i == 0 && mark != std::string::npos ? word.substr(mark + 1) : word);
    }
    if (ascent && t == 0) {
      gBasePhrase = gSelPhrase;
      if (gPatternKind == 1) return true;
    }
    if (fEndsWith(gSelPhrase, goal)) return true;
  }
}

// A raga phrase made ready for the walk: straightened, augmented, and the
// start word found.
std::vector<std::string> fRagaLadder(const std::string& phrase, std::int16_t direction,
                                     const std::string& startNote) {
  const std::string straight = fStraightenOutPhrase(phrase, direction);
  std::int16_t headWords = 0;
  const std::vector<std::string> words =
      fPhraseWords(fAugmentRagaPhraseNotes(straight, direction > 0 ? 1 : 2, headWords));
  gPhraseStartWord = fStartWord(words, startNote, static_cast<std::int16_t>(headWords + 1));
  return words;
}

std::string fRagaPhrase(std::string (*getter)(std::int16_t)) {
  const std::string phrase = getter(kNotes);
  return gGraceNotes == 1 ? fRemoveGlides(phrase) : phrase;
}

}  // namespace

void sCreateScalePatternFromBP() {
  NV_PROC("sCreateScalePatternFromBP");
  gSelPhrase.clear();
  gBasePhrase.clear();
  if (fExpandOverScale()) return;
  gSelPhrase.clear();
  gBasePhrase.clear();
  sRaiseError(kErrOverflow, "Overflow: the pattern goes beyond the notes of the scale");
}

bool fExpandRagaPattern(const std::string& ascent, const std::string& descent) {
  NV_PROC("fExpandRagaPattern");
  gSelPhrase.clear();
  gBasePhrase.clear();
  bool expanded = !gPatternOffsets.empty();
  if (expanded) expanded = fWalkRagaPhrase(fRagaLadder(ascent, 1, "S"), "S>", true);
  // The descent always runs to its end, in One Time too. The base pattern
  // stays the ascent's first pass.
  if (expanded) expanded = fWalkRagaPhrase(fRagaLadder(descent, -1, "S>"), "S", false);
  if (!expanded) {
    gSelPhrase.clear();
    gBasePhrase.clear();
  }
  return expanded;
}

void sCreateRagaPatternFromBP() {
  NV_PROC("sCreateRagaPatternFromBP");
  if (fExpandRagaPattern(fRagaPhrase(fGetFromT_ArohaPhrase), fRagaPhrase(fGetFromT_AvrohaPhrase)))
    return;
  platform::windowSystem().messageBox("The selected phrase cannot be illustrated. Please select another.",
                                      platform::kMsgInformation, "MEssage");
}
