// Phrase legality, colon and glide removal, and the display forms.
#include "notation/phrase_forms.h"

#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"

namespace {

// The last note of one word (see fRemoveGlides).
std::string lastNote(const std::string& word) {
  const char last = word.back();
  const std::size_t keep = (last == '<' || last == '>') ? 2 : 1;
  return word.size() <= keep ? word : word.substr(word.size() - keep);
}

}  // namespace

bool fIsColon(const std::string& word) { return word == ":"; }

bool fIsLegalNotationPhrase(const std::string& phrase, std::int16_t script) {
  NV_PROC("fIsLegalNotationPhrase");
  for (const std::string& word : fSplitWords(phrase, " "))
    if (!fIsColon(word) && !fIsLegalNote(word, script)) return false;
  return true;
}

std::string fRemoveColons(const std::string& phrase) {
  std::vector<std::string> pieces;
  for (const std::string& piece : fSplitWords(phrase, ":")) {
    std::string trimmed = fRmvTrailBlk(fRmvLeadBlk(piece));
    if (!trimmed.empty()) pieces.push_back(std::move(trimmed));
  }
  return fJoinWords(pieces, " ");
}

std::string fRemoveGlides(const std::string& phrase) {
  std::vector<std::string> notes;
  for (const std::string& word : fSplitWords(phrase, " ")) notes.push_back(lastNote(word));
  return fJoinWords(notes, " ");
}

std::string fPrepareNotationDisplayString(const std::string& phrase) {
  return fJoinWords(fSplitWords(phrase, " "), "   ");
}

std::string fPrepareNotationDevnagariString(const std::string& phrase) {
  NV_PROC("fPrepareNotationDevnagariString");
  std::vector<std::string> shown;
  for (const std::string& word : fSplitWords(phrase, " ")) {
    if (word == ",") {
      shown.emplace_back("   ");
    } else if (fIsColon(word)) {
      shown.emplace_back(" : ");
    } else {
      shown.push_back(fGetDevForEng(word));  // piece by piece, as the note look-up does
    }
  }
  return fJoinWords(shown, " ");
}

std::string fPrepareNotesForScript(const std::string& phrase, std::int16_t script,
                                   std::int16_t graceNotes) {
  std::string notes = graceNotes == 1 ? fRemoveGlides(phrase) : phrase;
  if (script == 1) notes = fPrepareNotationDevnagariString(notes);
  return notes;
}
