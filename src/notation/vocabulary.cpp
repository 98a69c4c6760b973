// The note vocabulary tables, their look-ups and the legality of one word.
#include "notation/vocabulary.h"

#include <algorithm>

#include "core/errors.h"
#include "core/session.h"
#include "notation/tokenizer.h"

std::array<std::string, kNoteSlots> gNoteEng;
std::array<std::string, kNoteSlots> gNoteDev;
std::array<std::string, kNoteSlots> gNoteFileNo;

namespace {

struct NoteRow {
  const char* english;
  const char* devanagari;  // key map of the notation font; "\" is literal
};

// By note id: three octaves of S r R g G m M P d D n N.
constexpr std::array<NoteRow, kNoteCount> kNotes = {{
    {"S<", "saa,"}, {"r<", "ro\\,"}, {"R<", "ro,"},  {"g<", "ga\\,"}, {"G<", "ga,"},
    {"m<", "ma,"},  {"M<", "ma\\,"}, {"P<", "p,"},   {"d<", "Qa\\,"}, {"D<", "Qa,"},
    {"n<", "ina\\,"}, {"N<", "ina,"},
    {"S", "saa"},   {"r", "ro\\"},   {"R", "ro"},    {"g", "ga\\"},   {"G", "ga"},
    {"m", "ma"},    {"M", "ma\\"},   {"P", "p"},     {"d", "Qa\\"},   {"D", "Qa"},
    {"n", "ina\\"}, {"N", "ina"},
    {"S>", "saaM"}, {"r>", "ro\\M"}, {"R>", "roM"},  {"g>", "ga\\M"}, {"G>", "gaM"},
    {"m>", "maM"},  {"M>", "ma\\M"}, {"P>", "pM"},   {"d>", "Qa\\M"}, {"D>", "QaM"},
    {"n>", "ina\\M"}, {"N>", "inaM"},
}};

constexpr std::array<const char*, 12> kTonicNames = {
    "White-7 (B)", "White-1 (C)", "Black-1 (C#)", "White-2 (D)",
    "Black-2 (D#)", "White-3 (E)", "White-4 (F)", "Black-3 (F#)",
    "White-5 (G)", "Black-4 (G#)", "White-6 (A)", "Black-5 (A#)",
};

// Id of s in table, scanning ids 0 to 35; -1 when absent.
int findNote(const std::array<std::string, kNoteSlots>& table, const std::string& s) {
  const auto end = table.begin() + kNoteCount;
  const auto it = std::find(table.begin(), end, s);
  return it == end ? -1 : static_cast<int>(it - table.begin());
}

// Translates each "'"-separated piece of word from one table to the other.
std::string translateWord(const std::string& word, const std::array<std::string, kNoteSlots>& from,
                          const std::array<std::string, kNoteSlots>& to) {
  const std::vector<std::string> pieces = fSplitWords(word, "'");
  std::string out;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i == 1) out += '\'';
    const int id = findNote(from, pieces[i]);
    if (id >= 0) out += to[static_cast<std::size_t>(id)];
  }
  return out;
}

}  // namespace

void sInitScales() {
  NV_PROC("sInitScales");
  for (int id = 0; id < kNoteCount; ++id) {
    const auto slot = static_cast<std::size_t>(id);
    gNoteEng[slot] = kNotes[slot].english;
    gNoteDev[slot] = kNotes[slot].devanagari;
    gNoteFileNo[slot] = std::string(1, static_cast<char>('0' + id / 10)) +
                        static_cast<char>('0' + id % 10);
  }
}

std::string fGetStringForNote(std::int16_t noteId, std::int16_t script) {
  if (noteId < 0 || noteId >= kNoteSlots) {
    sRaiseError(kErrSubscriptOutOfRange, "Subscript out of range", "fGetStringForNote");
    return "";
  }
  const auto slot = static_cast<std::size_t>(noteId);
  if (script == 1) return gNoteDev[slot];
  if (script == 2) return gNoteEng[slot];
  return "";
}

std::string fGetDevnagariStringForNote(const std::string& english) {
  const int id = findNote(gNoteEng, english);
  return id < 0 ? "" : gNoteDev[static_cast<std::size_t>(id)];
}

std::string fGetFnameForNote(const std::string& english) {
  const int id = findNote(gNoteEng, english);
  return id < 0 ? "" : gNoteFileNo[static_cast<std::size_t>(id)];
}

bool fIsEnglishNote(const std::string& s) { return findNote(gNoteEng, s) >= 0; }
bool fIsDevnagriNote(const std::string& s) { return findNote(gNoteDev, s) >= 0; }

std::string fGetDevForEng(const std::string& word) { return translateWord(word, gNoteEng, gNoteDev); }
std::string fGetEngForDev(const std::string& word) { return translateWord(word, gNoteDev, gNoteEng); }

bool fIsLegalNote(const std::string& word, std::int16_t script) {
  std::string rest = word;
  if (!rest.empty() && rest.front() == ':')
    rest.erase(0, 1);
  else if (!rest.empty() && rest.back() == ':')
    rest.pop_back();
  const auto apostrophes = static_cast<std::size_t>(std::count(rest.begin(), rest.end(), '\''));
  if (apostrophes >= 2) return false;
  std::size_t judged = apostrophes;  // characters of the word judged so far
  for (const std::string& piece : fSplitWords(rest, "'")) {
    if (script == 1 && !fIsDevnagriNote(piece)) return false;
    if (script == 2 && !fIsEnglishNote(piece)) return false;
    judged += piece.size();
  }
  // The tokenizer places no word beyond character 32767: its (forgiven)
  // overflow ends the split there, and a longer word would pass unjudged.
  return judged == rest.size();
}

std::string fGetTonicNoteName(std::int16_t tonicId) {
  if (tonicId < 1 || tonicId > static_cast<int>(kTonicNames.size())) return "";
  return kTonicNames[static_cast<std::size_t>(tonicId - 1)];
}

int fGetAbsoluteNoteNumber(int noteId, int tonicNoteId) {
  return noteId + tonicNoteId - kNeutralTonicId;
}

std::string fConvertFont(const std::string& phrase, std::int16_t fromScript) {
  NV_PROC("fConvertFont");
  std::string out;
  for (const std::string& word : fSplitWords(phrase, " ")) {
    std::string converted;
    if (fromScript == 1) converted = fGetEngForDev(word);
    if (fromScript == 2) converted = fGetDevForEng(word);
    if (!out.empty()) out += ' ';
    out += converted;
  }
  return out;
}
