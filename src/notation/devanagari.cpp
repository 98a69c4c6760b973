// Key-map notation strings to Unicode Devanagari and back.
#include "notation/devanagari.h"

#include <array>
#include <cstdint>
#include <optional>

namespace {

enum class Quality { None, Komal, Tivra };  // what "\" means after the syllable

struct Syllable {
  const char* keymap;     // "saa"
  char32_t consonant;     // स
  char32_t vowelSign;     // ा, or 0 for the inherent vowel
  Quality backslash;      // meaning of a following "\"
};

constexpr std::array<Syllable, 7> kSyllables = {{
    {"saa", U'\u0938', U'\u093E', Quality::None},
    {"ro", U'\u0930', U'\u0947', Quality::Komal},
    {"ga", U'\u0917', 0, Quality::Komal},
    {"ma", U'\u092E', 0, Quality::Tivra},
    {"p", U'\u092A', 0, Quality::None},
    {"Qa", U'\u0927', 0, Quality::Komal},
    {"ina", U'\u0928', U'\u093F', Quality::Komal},
}};

enum class Octave { Middle, Lower, Upper };

struct Note {
  const Syllable* syllable;
  bool marked;  // "\" after the syllable: komal or tivra by the syllable
  Octave octave;
};

constexpr char32_t kNukta = U'\u093C';
constexpr char32_t kAnusvara = U'\u0902';
constexpr char32_t kCandrabindu = U'\u0901';
constexpr char32_t kUdatta = U'\u0951';    // tivra stroke above
constexpr char32_t kAnudatta = U'\u0952';  // komal line below
constexpr char32_t kRra = U'\u0931';       // र with nukta, precomposed (NFC)
constexpr char32_t kNnna = U'\u0929';      // न with nukta, precomposed (NFC)
constexpr char32_t kDotAbove = U'\u0307';
constexpr char32_t kDotBelow = U'\u0323';
constexpr char32_t kMacronBelow = U'\u0331';
constexpr char32_t kLowLine = U'\u0332';
constexpr char32_t kVedicDotBelow = U'\u1CDD';

void appendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// ---- key map to Unicode ----------------------------------------------------

bool isKeymapChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '\\' || c == ',';
}

// The vocabulary note starting at run[at], and its length in characters.
std::optional<Note> matchKeymapNote(const std::string& run, std::size_t at, std::size_t& length) {
  for (const Syllable& s : kSyllables) {
    const std::string key = s.keymap;
    if (run.compare(at, key.size(), key) != 0) continue;
    std::size_t end = at + key.size();
    Note note{&s, false, Octave::Middle};
    if (end < run.size() && run[end] == '\\' && s.backslash != Quality::None) {
      note.marked = true;
      ++end;
    }
    if (end < run.size() && run[end] == ',') {
      note.octave = Octave::Lower;
      ++end;
    } else if (end < run.size() && run[end] == 'M') {
      note.octave = Octave::Upper;
      ++end;
    }
    length = end - at;
    return note;
  }
  return std::nullopt;
}

void appendUnicodeNote(std::string& out, const Note& note) {
  appendUtf8(out, note.syllable->consonant);
  if (note.octave == Octave::Lower) appendUtf8(out, kNukta);
  if (note.syllable->vowelSign != 0) appendUtf8(out, note.syllable->vowelSign);
  if (note.octave == Octave::Upper) appendUtf8(out, kAnusvara);
  if (note.marked)
    appendUtf8(out, note.syllable->backslash == Quality::Tivra ? kUdatta : kAnudatta);
}

// One run of key-map characters: converted when it is wholly notes and lone
// commas, else unchanged.
std::string convertKeymapRun(const std::string& run) {
  std::string out;
  std::size_t at = 0;
  while (at < run.size()) {
    std::size_t length = 0;
    if (const auto note = matchKeymapNote(run, at, length)) {
      appendUnicodeNote(out, *note);
      at += length;
    } else if (run[at] == ',') {
      out += ',';
      ++at;
    } else {
      return run;
    }
  }
  return out;
}

// ---- Unicode to key map ----------------------------------------------------

// Decodes the code point at text[at]; an invalid sequence gives nullopt and
// length 1, so that the byte passes through.
std::optional<char32_t> decodeUtf8(const std::string& text, std::size_t at, std::size_t& length) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  length = 1;
  if (lead < 0x80) return lead;
  std::size_t extra = 0;
  char32_t cp = 0;
  if ((lead & 0xE0) == 0xC0) {
    extra = 1;
    cp = lead & 0x1F;
  } else if ((lead & 0xF0) == 0xE0) {
    extra = 2;
    cp = lead & 0x0F;
  } else if ((lead & 0xF8) == 0xF0) {
    extra = 3;
    cp = lead & 0x07;
  } else {
    return std::nullopt;
  }
  if (at + extra >= text.size()) return std::nullopt;
  for (std::size_t i = 1; i <= extra; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return std::nullopt;
    cp = (cp << 6) | (byte(at + i) & 0x3F);
  }
  length = extra + 1;
  return cp;
}

// The plain consonant of a precomposed consonant with nukta, or 0.
char32_t withoutNukta(char32_t cp) {
  if (cp == kRra) return U'\u0930';
  if (cp == kNnna) return U'\u0928';
  return 0;
}

bool isNoteConsonant(char32_t cp) {
  if (withoutNukta(cp) != 0) return true;
  for (const Syllable& s : kSyllables)
    if (s.consonant == cp) return true;
  return false;
}

// A mark that may follow a Devanagari consonant within its syllable.
bool isCombiningMark(char32_t cp) {
  return (cp >= 0x0900 && cp <= 0x0903) || (cp >= 0x093A && cp <= 0x094F) ||
         (cp >= 0x0951 && cp <= 0x0957) || cp == 0x0962 || cp == 0x0963 || cp == kDotAbove ||
         cp == kDotBelow || cp == kMacronBelow || cp == kLowLine ||
         (cp >= 0x1CD0 && cp <= 0x1CF9);
}

const Syllable* syllableFor(char32_t consonant, char32_t vowelSign) {
  const bool bare = vowelSign == 0;
  const bool aa = vowelSign == U'\u093E';
  switch (consonant) {
    case U'\u0938': return (bare || aa) ? &kSyllables[0] : nullptr;
    case U'\u0930':
      return (bare || vowelSign == U'\u0947' || vowelSign == U'\u093F' || vowelSign == U'\u0940')
                 ? &kSyllables[1] : nullptr;
    case U'\u0917': return (bare || aa) ? &kSyllables[2] : nullptr;
    case U'\u092E': return (bare || aa) ? &kSyllables[3] : nullptr;
    case U'\u092A': return (bare || aa) ? &kSyllables[4] : nullptr;
    case U'\u0927': return (bare || aa) ? &kSyllables[5] : nullptr;
    case U'\u0928':
      return (vowelSign == U'\u093F' || vowelSign == U'\u0940') ? &kSyllables[6] : nullptr;
    default: return nullptr;
  }
}

// What one syllable's marks say; a mark twice or one not understood spoils it.
struct Marks {
  char32_t vowelSign = 0;
  bool lower = false, upper = false, komal = false, tivra = false, spoilt = false;

  void set(bool& flag) {
    spoilt = spoilt || flag;
    flag = true;
  }
  void add(char32_t cp) {
    if (cp == kNukta || cp == kDotBelow || cp == kVedicDotBelow) return set(lower);
    if (cp == kAnusvara || cp == kCandrabindu || cp == kDotAbove) return set(upper);
    if (cp == kAnudatta || cp == kMacronBelow || cp == kLowLine) return set(komal);
    if (cp == kUdatta) return set(tivra);
    if (cp >= 0x093E && cp <= 0x094C && vowelSign == 0) {
      vowelSign = cp;
      return;
    }
    spoilt = true;
  }
};

// The note spelt by a consonant and its marks, when they make one.
std::optional<Note> readNote(char32_t consonant, const Marks& marks) {
  if (marks.spoilt || (marks.lower && marks.upper) || (marks.komal && marks.tivra))
    return std::nullopt;
  const Syllable* s = syllableFor(consonant, marks.vowelSign);
  if (s == nullptr) return std::nullopt;
  if (marks.komal && s->backslash != Quality::Komal) return std::nullopt;
  if (marks.tivra && s->backslash != Quality::Tivra) return std::nullopt;
  const Octave octave = marks.lower ? Octave::Lower : marks.upper ? Octave::Upper : Octave::Middle;
  return Note{s, marks.komal || marks.tivra, octave};
}

void appendKeymapNote(std::string& out, const Note& note) {
  out += note.syllable->keymap;
  if (note.marked) out += '\\';
  if (note.octave == Octave::Lower) out += ',';
  if (note.octave == Octave::Upper) out += 'M';
}

}  // namespace

std::string fKeymapToUnicode(const std::string& keymapText) {
  std::string out;
  out.reserve(keymapText.size() * 3);
  std::size_t at = 0;
  while (at < keymapText.size()) {
    if (!isKeymapChar(keymapText[at])) {
      out += keymapText[at++];
      continue;
    }
    std::size_t end = at;
    while (end < keymapText.size() && isKeymapChar(keymapText[end])) ++end;
    out += convertKeymapRun(keymapText.substr(at, end - at));
    at = end;
  }
  return out;
}

std::string fUnicodeToKeymap(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t length = 0;
    const auto cp = decodeUtf8(text, at, length);
    if (!cp || !isNoteConsonant(*cp)) {
      out.append(text, at, length);
      at += length;
      continue;
    }
    Marks marks;
    char32_t base = *cp;
    if (const char32_t plain = withoutNukta(base)) {
      base = plain;
      marks.lower = true;
    }
    std::size_t end = at + length;
    while (end < text.size()) {
      std::size_t markLength = 0;
      const auto mark = decodeUtf8(text, end, markLength);
      if (!mark || !isCombiningMark(*mark)) break;
      marks.add(*mark);
      end += markLength;
    }
    if (const auto note = readNote(base, marks))
      appendKeymapNote(out, *note);
    else
      out.append(text, at, end - at);
    at = end;
  }
  return out;
}
