// Copying the raga, the settings and the item at hand into a Score.
#include "export/score_capture.h"

#include <cmath>

#include "core/session.h"
#include "notation/phrase_forms.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "sound/music_buffers.h"
#include "sound/notes_list.h"
#include "sound/speed_factor.h"
#include "sound/theka_tokens.h"
#include "store/tala_beats.h"
#include "store/working_record.h"
#include "store/working_record_comp.h"

namespace {

constexpr int kCompositionKind = 8;
constexpr int kScratchBuffer = 2;
constexpr int kGraceDroppedAtOrBelowMs = 250;  // too short a note sounds without its grace note

std::string joined(const std::vector<std::string>& parts) {
  std::string out;
  for (const std::string& p : parts) out += (out.empty() ? "" : " ") + p;
  return out;
}

// A note code of the music buffer: two digits a note, four a grace note
// and its main note.
ScoreNote noteOfCode(int code, int startMs, int durationMs) {
  ScoreNote n{code % 100, code >= 100 ? code / 100 : -1, startMs, durationMs};
  if (durationMs <= kGraceDroppedAtOrBelowMs) n.graceNoteId = -1;
  return n;
}

// The phrases of gPhraseSet, each made into a music buffer as the player
// makes it (in the spare buffer, restored afterwards with the playlist).
std::vector<ScorePhrase> capturePhrases() {
  const PhraseSet savedPlaySet = gPlaySet;
  const MusicBuffer savedBuffer = gMusicBuffers[kScratchBuffer];
  std::vector<ScorePhrase> phrases;
  gPlaySet = gPhraseSet;
  for (std::int16_t p = 1; p <= gPhraseSet.Count; ++p) {
    gPlaySet.Position = p;
    const std::int16_t count = fCreateNotesList1(kScratchBuffer);
    const MusicBuffer& b = gMusicBuffers[kScratchBuffer];
    ScorePhrase phrase;
    phrase.notation = gPhraseSet.NotePhrases[static_cast<std::size_t>(p - 1)];
    int at = 0;
    for (std::int16_t i = 0; i < count; ++i) {
      phrase.notes.push_back(noteOfCode(b.NoteCodes[static_cast<std::size_t>(i)], at, b.DurationsMs[static_cast<std::size_t>(i)]));
      at += b.DurationsMs[static_cast<std::size_t>(i)];
    }
    phrases.push_back(std::move(phrase));
  }
  gPlaySet = savedPlaySet;
  gMusicBuffers[kScratchBuffer] = savedBuffer;
  return phrases;
}

// Strokes of a theka token list, one token per note ("0", or
// "count/bol/.../bol/offset" with the offset in beats): stroke k of a note
// falls offset + k beats after the note's start.
std::vector<ScoreStroke> strokesOfTokens(const std::string& tokens, const std::vector<ScoreNote>& notes, int beatMs) {
  std::vector<ScoreStroke> strokes;
  const std::vector<std::string> words = fSplitWords(tokens, " ");
  for (std::size_t i = 0; i < words.size() && i < notes.size(); ++i) {
    const std::vector<std::string> fields = fSplitWords(words[i], "/");
    if (fields.size() < 3) continue;
    const double offset = fNumericValue(fields.back());
    for (std::size_t k = 1; k + 1 < fields.size(); ++k)
      strokes.push_back({notes[i].startMs + static_cast<int>(std::lround((offset + double(k - 1)) * beatMs)),
                         ZenvoVal(fields[k])});
  }
  return strokes;
}

// One composition part on the beat grid: each note lasts its beats at the
// current tempo; the grace pieces of a word ("x'y") as the player reads them.
ScorePhrase capturePart(const CompPartRecord& part, int beatMs) {
  ScorePhrase phrase;
  phrase.beatMs = beatMs;
  phrase.notation = gGraceNotes == 1 ? fRemoveGlides(part.Notation) : part.Notation;
  const std::vector<std::string> words = fSplitWords(phrase.notation, " ");
  const std::vector<std::string> beats = fSplitWords(part.NotesDuration, " ");
  int at = 0;
  for (std::size_t i = 0; i < words.size() && i < beats.size(); ++i) {
    const int durationMs = static_cast<int>(std::lround(fNumericValue(beats[i]) * beatMs));
    std::string code;
    for (const std::string& piece : fSplitWords(words[i], "'")) code += fGetFnameForNote(piece);
    phrase.notes.push_back(noteOfCode(ZenvoVal(code), at, durationMs));
    at += durationMs;
  }
  if (gThekaMode == 1)
    phrase.strokes = strokesOfTokens(
        fCreateThekaTokens(part.NotesDuration, part.TalaId, part.StartingBeat,
                           static_cast<std::int16_t>(gThekaInstrument), fGetBeatCountForTala(part.TalaId)),
        phrase.notes, beatMs);
  return phrase;
}

ScoreItem captureComposition(const std::string& title) {
  ScoreItem item{title, {}, {}, {}};
  const int beatMs = fCurrBeatMs();
  static const char* const kCaptions[] = {"Asthai", "Antara"};
  for (int p = 0; p < 2; ++p) {
    const CompPartRecord& part = gCompInfo[static_cast<std::size_t>(p)];
    if (part.NotationIndex == 0 || part.Notation.empty()) continue;
    item.phrases.push_back(capturePart(part, beatMs));
    item.parts.push_back({kCaptions[p], part.Syllables, part.SyllableDuration, item.phrases.back().notation,
                          part.NotesDuration, part.TalaId, std::max<int>(1, part.StartingBeat)});
  }
  return item;
}

}  // namespace

Score fCaptureRagaScore() {
  Score score;
  score.ragaName = gCurrRagaName;
  score.info = {gTRaga.Thata,
                gTRaga.Vadi,
                gTRaga.Samvadi,
                gTRaga.Jati,
                gTRaga.AppropriateTime,
                gTRaga.ScaleNotes[0],
                gTRaga.ScaleNotes[1],
                joined(gTRaga.PakadNotes)};
  score.tonicId = gCurrTonicNoteId;
  score.droneType = gCurrDroneType >= 1 && gCurrDroneType <= 3 ? gCurrDroneType : 1;
  score.script = gNotationScript;
  return score;
}

ScoreItem fCaptureItemAtHand(const std::string& title) {
  if (gCurrPhraseKind == kCompositionKind) return captureComposition(title);
  return {title, capturePhrases(), {}, {}};
}
