// Filling a music buffer from the playlist's current phrase (see
// notes_list.h).
#include "sound/notes_list.h"

#include <cstddef>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "notation/durations.h"
#include "notation/generation.h"
#include "notation/phrase_forms.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "sound/music_buffers.h"
#include "sound/speed_factor.h"

namespace {

constexpr std::int32_t kUntimedNoteMs = 1000;

// A composition outside Demo is timed on its beat grid, not per note. A
// phrase without durations is always timed per note.
bool fIsTimedOnGrid(const std::string& durPhrase) {
  return gCurrPhraseKind == 8 && gCurrMode != 1 && !durPhrase.empty();
}

// Text in the buffer's script and the positions of its words.
void sSetBufferText(MusicBuffer& b, const std::string& text) {
  b.Text = text;
  std::vector<std::int16_t> starts(kParseMaxWords), lengths(kParseMaxWords);
  const std::int16_t n = fParseString1(text, " ", starts, lengths);
  starts.resize(static_cast<std::size_t>(n) + 1);
  lengths.resize(static_cast<std::size_t>(n) + 1);
  b.WordStarts = std::move(starts);
  b.WordLengths = std::move(lengths);
}

// One duration word in milliseconds: kinds 6 (taan) and 9 (film song) keep
// a decimal part, all others read the whole number in front.
std::int32_t fWordDurationMs(const std::string& word) {
  if ((gCurrPhraseKind == 6 || gCurrPhraseKind == 9) && word.find('.') != std::string::npos)
    return fRoundToInt32(fNumericValue(word) * 10.0);
  return ZenvoVal(word) * 10;
}

// Times on the composition's grid: one slot per beat at the current tempo,
// rounded at every step.
void sFillGridTimes(MusicBuffer& b) {
  const std::size_t slots = b.TimesMs.size() - 1;
  const double slotMs = gBaseMatraMs * fCurrSpeedFactor() * 10.0;
  for (std::size_t i = 1; i < slots; ++i) b.TimesMs[i] = fRoundToInt32(b.TimesMs[i - 1] + slotMs);
}

void sFillDurations(MusicBuffer& b, const std::string& durPhrase, std::size_t n, bool onGrid) {
  if (durPhrase.empty()) {
    for (std::size_t i = 1; i <= n; ++i) {
      b.DurationsMs[i - 1] = kUntimedNoteMs;
      b.TimesMs[i] = b.TimesMs[i - 1] + kUntimedNoteMs;
    }
    return;
  }
  if (onGrid) sFillGridTimes(b);
  const std::vector<std::string> words = fSplitWords(durPhrase, " ");
  for (std::size_t i = 1; i <= n && i <= words.size(); ++i) {
    b.DurationsMs[i - 1] = fWordDurationMs(words[i - 1]);
    if (!onGrid) b.TimesMs[i] = b.TimesMs[i - 1] + b.DurationsMs[i - 1];
  }
}

}  // namespace

std::int16_t fCreateNotesList1(std::int16_t buffer) {
  NV_PROC("fCreateNotesList1");
  if (buffer < 0 || buffer >= kMusicBufferCount || gPlaySet.Position < 1 ||
      static_cast<std::size_t>(gPlaySet.Position) > gPlaySet.NotePhrases.size()) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fCreateNotesList1");
    return 0;
  }
  const std::size_t at = static_cast<std::size_t>(gPlaySet.Position - 1);
  const std::string& phrase = gPlaySet.NotePhrases[at];
  const std::string durPhrase = at < gPlaySet.DurPhrases.size() ? gPlaySet.DurPhrases[at] : "";
  const std::vector<std::string> words = fSplitWords(phrase, " ");
  const std::size_t n = words.size();
  const bool onGrid = fIsTimedOnGrid(durPhrase);

  MusicBuffer& b = gMusicBuffers[static_cast<std::size_t>(buffer)];
  b.NoteCodes.assign(n + 1, 0);
  b.DurationsMs.assign(n + 1, 0);
  const std::size_t gridSlots = static_cast<std::size_t>(
      gRowsPerCycle > 0 && gFormBeatCount > 0 ? gRowsPerCycle * gFormBeatCount : 0);
  b.TimesMs.assign((onGrid ? gridSlots : n) + 1, 0);

  b.Script = gNotationScript;
  sSetBufferText(b, gNotationScript == 1 ? fPrepareNotationDevnagariString(phrase) : phrase);
  for (std::size_t i = 0; i < n; ++i) b.NoteCodes[i] = fGetNoteCode(words[i]);

  sFillDurations(b, durPhrase, n, onGrid);
  b.CurrNote = 1;
  return static_cast<std::int16_t>(n);
}

void sAdjustMDMStr() {
  NV_PROC("sAdjustMDMStr");
  for (std::size_t i = 0; i < 2; ++i) {
    MusicBuffer& b = gMusicBuffers[i];
    if (b.Text.empty()) continue;
    const std::string text = fConvertFont(b.Text, b.Script);
    b.Script = gNotationScript;
    sSetBufferText(b, text);
  }
}
