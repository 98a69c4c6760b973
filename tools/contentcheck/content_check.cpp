// The content check: see content_check.h. Walks the rows table by table;
// the phrase rules themselves are in phrase_checks.cpp.
#include "content_check.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>

#include "notation/vibhags.h"
#include "note_words.h"
#include "phrase_checks.h"

namespace contentcheck {
namespace {

using nvstore::Row;

// Prompt numbers the screens fetch.
bool promptNeeded(int id) { return (id >= 1 && id <= 71) || (id >= 87 && id <= 97); }

const std::map<int, int> kGroupSizes = {{1, 30}, {2, 20}, {3, 20}};

// The group of a raga by its index: 1 to 30, 31 to 50, 51 to 70; 0 beyond.
int groupOfIndex(int id) { return id < 1 ? 0 : id <= 30 ? 1 : id <= 50 ? 2 : id <= 70 ? 3 : 0; }

int toInt(const std::string& s) { return std::atoi(s.c_str()); }

// Rows of one table in source order, and the problems found so far.
struct Context {
  std::map<std::string, std::vector<const Row*>> tables;
  std::vector<Problem> problems;

  const std::vector<const Row*>& rowsOf(const std::string& table) { return tables[table]; }

  void report(Fault fault, const Row& row, const char* column, const std::string& message) {
    const nvstore::Field* f = column ? row.find(column) : nullptr;
    problems.push_back({fault, row.file, f ? f->line : row.line, message});
  }
};

std::string value(const Row& row, const char* column) {
  const nvstore::Field* f = row.find(column);
  return f ? f->value : "";
}

// Note words of one column, and its durations in the column `durColumn`.
// Answers whether the durations are all numbers, so that sums can be trusted.
bool checkPhrasePair(Context& c, const Row& row, const char* noteColumn, const char* durColumn,
                     Separators separators, bool wholeDurations) {
  const std::string notes = value(row, noteColumn), durations = value(row, durColumn);
  const std::string bad = firstIllegalWord(notes, separators);
  if (!bad.empty()) c.report(Fault::IllegalNote, row, noteColumn, std::string(noteColumn) + ": '" + bad + "' is no note word");
  const std::string badDur = firstBadDuration(durations, wholeDurations, separators == Separators::ColonsAndCommas);
  if (!badDur.empty())
    c.report(Fault::BadDuration, row, durColumn,
             std::string(durColumn) + ": '" + badDur + "' is no " + (wholeDurations ? "whole " : "") + "positive number");
  const std::string mismatch = countMismatch(notes, durations);
  if (!mismatch.empty())
    c.report(Fault::CountMismatch, row, durColumn, std::string(noteColumn) + " / " + durColumn + ": " + mismatch);
  return badDur.empty();
}

// The pitch classes (0 to 11) of the note words of a phrase.
std::set<int> pitchClasses(const std::string& notes) {
  std::set<int> classes;
  for (const std::string& w : words(notes))
    for (const std::string& n : notesOfWord(w))
      if (noteId(n) >= 0) classes.insert(noteId(n) % 12);
  return classes;
}

void checkNotesOfRaga(Context& c, const Row& tech, const std::set<int>& ragaClasses) {
  for (const char* column : {"AarohaAlt", "AvrohaAlt", "Pakad"}) {
    for (int pc : pitchClasses(value(tech, column))) {
      if (ragaClasses.count(pc) == 0) {
        c.report(Fault::NoteOutsideRaga, tech, column,
                 std::string(column) + " uses a note outside the raga's Raga Note Ids (pitch class " +
                     std::to_string(pc) + ")");
        break;
      }
    }
  }
}

// The drone sounds Pa (type 1), shuddha Ma (2) or Ni (3) against Sa: the
// raga must have that note. Which of its notes to choose is the writer's
// judgement (a raga with a weak Pa may take the Ma drone).
void checkDroneType(Context& c, const Row& tech, const std::set<int>& ragaClasses) {
  static const std::map<int, int> kDroneNote = {{1, 7}, {2, 5}, {3, 11}};  // pitch classes of P, m, N
  const auto drone = kDroneNote.find(toInt(value(tech, "DroneType")));
  if (drone == kDroneNote.end())
    c.report(Fault::TechnicalData, tech, "DroneType", "DroneType must be 1 (Pa), 2 (Ma) or 3 (Ni)");
  else if (!ragaClasses.empty() && !ragaClasses.count(drone->second))
    c.report(Fault::TechnicalData, tech, "DroneType", "the drone's note is not in the raga's Raga Note Ids");
}

void checkVadiNumber(Context& c, const Row& tech, const char* noteColumn, const char* numColumn) {
  const std::string note = value(tech, noteColumn);
  if (!isLegalNoteWord(note) || note.find('\'') != std::string::npos) {
    c.report(Fault::IllegalNote, tech, noteColumn, std::string(noteColumn) + ": '" + note + "' is not one note");
  } else if (tech.find(numColumn) == nullptr || toInt(value(tech, numColumn)) != noteId(note)) {
    c.report(Fault::BadNoteIds, tech, numColumn,
             std::string(numColumn) + " must be the note id of " + note + ", " + std::to_string(noteId(note)));
  }
}

// The hour of day (0 to 23) that `number` names when `rest` begins with
// "am", "pm", "noon" or "midnight"; -1 otherwise.
int clockHour(int number, const std::string& rest) {
  if (rest.rfind("am", 0) == 0) return number % 12;
  if (rest.rfind("pm", 0) == 0) return number % 12 + 12;
  if (rest.rfind("noon", 0) == 0) return 12;
  if (rest.rfind("midnight", 0) == 0) return 0;
  return -1;
}

// Hours from dawn (3 am) to the first clock time of a time of day ("6 pm",
// "12 noon", "12 midnight"), 0 to 23; 24 when the text names none.
int hoursFromDawn(const std::string& time) {
  auto digit = [&time](std::size_t i) {
    return i < time.size() && std::isdigit(static_cast<unsigned char>(time[i]));
  };
  for (std::size_t i = 0; i < time.size(); ++i) {
    if (!digit(i) || (i > 0 && digit(i - 1))) continue;
    std::size_t end = i;
    while (digit(end)) ++end;
    const std::size_t word = std::min(time.find_first_not_of(' ', end), time.size());
    const int hour = clockHour(std::atoi(time.substr(i, end - i).c_str()), time.substr(word));
    if (hour >= 0) return (hour + 21) % 24;  // 3 am is hour 0
  }
  return 24;
}

// The grid sorts by time on TimeNum: it must be the hours from dawn of the
// row's time, so that the times follow the clock.
void checkTimeNumber(Context& c, const Row& tech) {
  if (tech.find("Appropriate time") == nullptr) return;
  const int hours = hoursFromDawn(value(tech, "Appropriate time"));
  if (tech.find("TimeNum") == nullptr || value(tech, "TimeNum") != std::to_string(hours))
    c.report(Fault::TechnicalData, tech, "TimeNum",
             "TimeNum must be the hours from 3 am to the start of the Appropriate time, " +
                 std::to_string(hours));
}

// Raga Note Ids: the middle-octave notes of the raga and "24" (S>), blank-separated.
std::set<int> checkRagaNoteIds(Context& c, const Row& row) {
  std::set<int> classes;
  std::set<int> ids;
  for (const std::string& w : words(value(row, "Raga Note Ids"))) {
    char* end = nullptr;
    const long id = std::strtol(w.c_str(), &end, 10);
    if (*end != '\0' || id < 12 || id > 24 || !ids.insert(static_cast<int>(id)).second) {
      c.report(Fault::BadNoteIds, row, "Raga Note Ids", "Raga Note Ids: '" + w + "' is not a new id from 12 to 24");
      continue;
    }
    classes.insert(static_cast<int>(id) % 12);
  }
  if (!ids.count(12) || !ids.count(24))
    c.report(Fault::BadNoteIds, row, "Raga Note Ids", "Raga Note Ids must hold 12 (S) and 24 (S>)");
  return classes;
}

void checkDuplicates(Context& c, const std::string& table, std::initializer_list<const char*> key) {
  std::map<std::vector<std::string>, const Row*> seen;
  for (const Row* row : c.rowsOf(table)) {
    std::vector<std::string> k;
    std::string shown;
    for (const char* column : key) {
      k.push_back(value(*row, column));
      shown += (shown.empty() ? "" : ", ") + value(*row, column);
    }
    if (shown == "0") continue;  // a Notation Index of 0 means "none yet"
    const auto [it, fresh] = seen.emplace(k, row);
    if (!fresh)
      c.report(Fault::DuplicateName, *row, *key.begin(),
               "[" + table + "] " + shown + " is given twice (first at " + it->second->file + ":" +
                   std::to_string(it->second->line) + ")");
  }
}

void checkRagas(Context& c) {
  std::map<int, const Row*> notesRows, techRows, alapRows;
  for (const Row* r : c.rowsOf("Raga - Notes")) notesRows[toInt(value(*r, "Raga Index"))] = r;
  for (const Row* r : c.rowsOf("Raga - Technical Information")) techRows[toInt(value(*r, "Raga Index"))] = r;
  for (const Row* r : c.rowsOf("Raga - ALT Phrases"))
    if (value(*r, "PhraseType") == "1") alapRows[toInt(value(*r, "RagaIndex"))] = r;

  std::set<std::string> thatas;
  for (const Row* t : c.rowsOf("ThataScales")) thatas.insert(value(*t, "ThataName"));

  for (const Row* name : c.rowsOf("RagaNameList")) {
    const int id = toInt(value(*name, "Raga Index"));
    const std::string raga = value(*name, "Raga");
    if (toInt(value(*name, "Level")) != groupOfIndex(id))
      c.report(Fault::GroupCount, *name, "Level",
               raga + ": Raga Index " + std::to_string(id) + " belongs to group " + std::to_string(groupOfIndex(id)));
    if (!techRows.count(id)) c.report(Fault::MissingRow, *name, "Raga", raga + " has no [Raga - Technical Information] row");
    if (!notesRows.count(id)) c.report(Fault::MissingRow, *name, "Raga", raga + " has no [Raga - Notes] row");
    if (!alapRows.count(id)) c.report(Fault::MissingRow, *name, "Raga", raga + " has no alap ([Raga - ALT Phrases] type 1)");
  }
  for (const auto& [id, tech] : techRows) {
    checkPhrasePair(c, *tech, "AarohaAlt", "AaDuration", Separators::None, true);
    checkPhrasePair(c, *tech, "AvrohaAlt", "AvDuration", Separators::None, true);
    const std::string pakad = value(*tech, "Pakad");
    const std::string bad = firstIllegalWord(pakad, Separators::Colons);
    if (!bad.empty()) c.report(Fault::IllegalNote, *tech, "Pakad", "Pakad: '" + bad + "' is no note word");
    const std::string badDur = firstBadDuration(value(*tech, "PakadDuration"), true, false);
    if (!badDur.empty()) c.report(Fault::BadDuration, *tech, "PakadDuration", "PakadDuration: '" + badDur + "' is no whole positive number");
    const std::string runOut = pakadMismatch(pakad, value(*tech, "PakadDuration"));
    if (!runOut.empty())
      c.report(runOut.find("run out") != std::string::npos ? Fault::PakadDurationsRunOut : Fault::CountMismatch,
               *tech, "PakadDuration", "Pakad: " + runOut);
    checkVadiNumber(c, *tech, "Vadi", "VadiNum");
    checkVadiNumber(c, *tech, "Samvadi", "SamvadiNum");
    checkTimeNumber(c, *tech);
    if (!thatas.empty() && tech->find("Thata") && !thatas.count(value(*tech, "Thata")))
      c.report(Fault::TechnicalData, *tech, "Thata", "Thata '" + value(*tech, "Thata") + "' is not in [ThataScales]");
    std::set<int> classes;
    if (notesRows.count(id)) {
      classes = checkRagaNoteIds(c, *notesRows[id]);
      checkNotesOfRaga(c, *tech, classes);
    }
    checkDroneType(c, *tech, classes);
  }
  for (const Row* alt : c.rowsOf("Raga - ALT Phrases")) {
    if (value(*alt, "PhraseType") == "3") {
      const std::string bad = firstIllegalWord(value(*alt, "NotesPhrase"), Separators::ColonsAndCommas);
      if (!bad.empty()) c.report(Fault::IllegalNote, *alt, "NotesPhrase", "NotesPhrase: '" + bad + "' is no note word");
    } else {
      checkPhrasePair(c, *alt, "NotesPhrase", "DurationPhrase", Separators::ColonsAndCommas, true);
    }
  }
}

// The syllables, without blanks and "_", must spell the part's words.
void checkSyllableText(Context& c, const Row& part) {
  auto squeeze = [](const std::string& s, bool dropUnderscores) {
    std::string out;
    for (char ch : s)
      if (ch != ' ' && !(dropUnderscores && ch == '_')) out += ch;
    return out;
  };
  if (squeeze(value(part, "Syllables"), true) != squeeze(value(part, "CompositionText"), false))
    c.report(Fault::SyllableCount, part, "Syllables", "the syllables do not spell CompositionText");
}

void checkCompositionPart(Context& c, const Row& part, const std::map<int, int>& beatsOfTala) {
  const bool notesTimed = checkPhrasePair(c, part, "Notation", "NotesDuration", Separators::None, false);
  const std::string syl = value(part, "Syllables"), sylDur = value(part, "SyllableDuration");
  const std::string badDur = firstBadDuration(sylDur, false, false);
  if (!badDur.empty()) c.report(Fault::BadDuration, part, "SyllableDuration", "SyllableDuration: '" + badDur + "' is no positive number");
  const auto sylCount = words(syl).size(), durCount = words(sylDur).size();
  if (sylCount != durCount)
    c.report(Fault::SyllableCount, part, "SyllableDuration",
             std::to_string(sylCount) + " syllables but " + std::to_string(durCount) + " syllable durations");
  checkSyllableText(c, part);
  if (!notesTimed || !badDur.empty()) return;  // sums of bad durations prove nothing
  const double matras = durationSum(value(part, "NotesDuration"));
  if (std::fabs(durationSum(sylDur) - matras) > 1e-6)
    c.report(Fault::SyllableCount, part, "SyllableDuration", "the syllables last other matras than the notes");

  const auto tala = beatsOfTala.find(toInt(value(part, "Tala Id")));
  if (tala == beatsOfTala.end()) {
    c.report(Fault::TalaCycle, part, "Tala Id", "unknown Tala Id '" + value(part, "Tala Id") + "'");
    return;
  }
  const int beats = tala->second, start = toInt(value(part, "Starting Beat"));
  if (start < 1 || start > beats)
    c.report(Fault::TalaCycle, part, "Starting Beat", "Starting Beat must lie from 1 to " + std::to_string(beats));
  const double cycles = matras / beats;
  if (matras <= 0 || std::fabs(cycles - std::round(cycles)) > 1e-6)
    c.report(Fault::TalaCycle, part, "NotesDuration",
             "the part lasts " + std::to_string(matras) + " matras, not whole cycles of " + std::to_string(beats) + " beats");
  if (toInt(value(part, "Playing Speed")) <= 0)
    c.report(Fault::TalaCycle, part, "Playing Speed", "Playing Speed (length of a matra in 10 ms) must be positive");
}

// A similar raga: Notation holds the other raga's phrase, Syllables this
// raga's phrase, both timed in hundredths of a second and played as they
// stand, so without segment marks.
void checkComparison(Context& c, const Row& part) {
  checkPhrasePair(c, part, "Notation", "NotesDuration", Separators::None, true);
  checkPhrasePair(c, part, "Syllables", "SyllableDuration", Separators::None, true);
}

void checkCompositions(Context& c, const CheckOptions& options) {
  std::map<int, int> beatsOfTala;
  for (const Row* t : c.rowsOf("Tala - Technical Information"))
    beatsOfTala[toInt(value(*t, "Tala Id"))] = toInt(value(*t, "Beat Count"));
  std::map<std::pair<int, int>, const Row*> parts;
  for (const Row* p : c.rowsOf("Raga - Composition Notations"))
    parts[{toInt(value(*p, "Notation Index")), toInt(value(*p, "Composition Part"))}] = p;

  std::set<int> referenced;
  for (const Row* info : c.rowsOf("Raga - Additional Information")) {
    const int type = toInt(value(*info, "Add Info Type")), index = toInt(value(*info, "Notation Index"));
    if (type == 3 && options.wholeLibrary)
      c.report(Fault::FilmSongShipped, *info, "Add Info Type", "film songs are not shipped in the library");
    if (index == 0) continue;
    referenced.insert(index);
    const auto first = parts.find({index, 1}), second = parts.find({index, 2});
    if (first == parts.end()) {
      c.report(Fault::MissingPart, *info, "Notation Index", "no notation row (part 1) for Notation Index " + std::to_string(index));
      continue;
    }
    if (value(*first->second, "Raga Index") != value(*info, "Raga Index"))
      c.report(Fault::MissingPart, *first->second, "Raga Index", "Raga Index differs from its Additional Information row");
    if (type == 1) checkComparison(c, *first->second);
    if (type == 3) checkPhrasePair(c, *first->second, "Notation", "NotesDuration", Separators::None, false);
    if (type != 2) continue;
    if (second == parts.end())
      c.report(Fault::MissingPart, *info, "Notation Index", "composition " + std::to_string(index) + " has no Antara (part 2)");
    checkCompositionPart(c, *first->second, beatsOfTala);
    if (second != parts.end()) checkCompositionPart(c, *second->second, beatsOfTala);
  }
  for (const auto& [key, row] : parts)
    if (!referenced.count(key.first))
      c.report(Fault::MissingPart, *row, "Notation Index", "no [Raga - Additional Information] row names this notation");
}

// Every theka type given covers every tala, with one known bol (1 to 20)
// on each beat from 1 to the tala's beat count.
void checkThekas(Context& c) {
  std::map<int, const Row*> talas;
  for (const Row* t : c.rowsOf("Tala - Technical Information")) talas[toInt(value(*t, "Tala Id"))] = t;
  std::map<std::pair<int, int>, std::set<int>> beatsOf;  // (type, tala) -> beats with a bol
  for (const Row* b : c.rowsOf("ThekaTypeBolsForTaal")) {
    const int type = toInt(value(*b, "Theka Type Id")), tala = toInt(value(*b, "Tala Id"));
    const int beat = toInt(value(*b, "Tala Bol Id")), bol = toInt(value(*b, "Theka Bol Id"));
    if (!talas.count(tala)) {
      c.report(Fault::ThekaIncomplete, *b, "Tala Id", "no tala " + std::to_string(tala));
      continue;
    }
    const int beats = toInt(value(*talas[tala], "Beat Count"));
    if (beat < 1 || beat > beats)
      c.report(Fault::ThekaIncomplete, *b, "Tala Bol Id", "beat " + std::to_string(beat) + " outside 1 to " + std::to_string(beats));
    if (bol < 1 || bol > 20)
      c.report(Fault::ThekaIncomplete, *b, "Theka Bol Id", "Theka Bol Id must lie from 1 to 20");
    beatsOf[{type, tala}].insert(beat);
  }
  std::set<int> types;
  for (const auto& entry : beatsOf) types.insert(entry.first.first);
  for (int type : types) {
    for (const auto& [tala, row] : talas) {
      const int beats = toInt(value(*row, "Beat Count"));
      const auto& have = beatsOf[{type, tala}];
      for (int beat = 1; beat <= beats; ++beat) {
        if (have.count(beat)) continue;
        c.report(Fault::ThekaIncomplete, *row, "Tala Name",
                 value(*row, "Tala Name") + ": theka type " + std::to_string(type) + " has no bol on beat " + std::to_string(beat));
        break;
      }
    }
  }
}

// Every tala's divisions fill its cycle and carry a mark each. A tala
// without them passes only outside the whole library (small fixtures).
void checkVibhags(Context& c, bool required) {
  for (const Row* t : c.rowsOf("Tala - Technical Information")) {
    const std::string lengths = value(*t, "Vibhag Beats"), marks = value(*t, "Vibhag Marks");
    if (!required && lengths.empty() && marks.empty()) continue;
    std::string fault;
    if (!parseVibhags(lengths, marks, toInt(value(*t, "Beat Count")), &fault))
      c.report(Fault::VibhagData, *t, "Vibhag Beats", value(*t, "Tala Name") + ": " + fault);
  }
}

void checkLibraryWide(Context& c) {
  std::set<int> prompts;
  for (const Row* p : c.rowsOf("Prompts"))
    if (!value(*p, "Prompt").empty()) prompts.insert(toInt(value(*p, "Prompt Id")));
  std::string missing;  // as "1-3, 7, 90-97"
  for (int id = 1; id <= 97; ++id) {
    if (!promptNeeded(id) || prompts.count(id)) continue;
    int last = id;
    while (promptNeeded(last + 1) && !prompts.count(last + 1)) ++last;
    missing += (missing.empty() ? "" : ", ") + std::to_string(id) + (last > id ? "-" + std::to_string(last) : "");
    id = last;
  }
  if (!missing.empty())
    c.problems.push_back({Fault::MissingPrompt, "content/prompts.rec", 0, "prompts missing or empty: " + missing});

  std::map<int, int> groups;
  for (const Row* r : c.rowsOf("RagaNameList")) ++groups[toInt(value(*r, "Level"))];
  for (const auto& [level, count] : groups)
    if (!kGroupSizes.count(level))
      c.problems.push_back({Fault::GroupCount, "content/ragas", 0, "group " + std::to_string(level) + " does not exist"});
  for (const auto& [level, size] : kGroupSizes)
    if (groups[level] != size)
      c.problems.push_back({Fault::GroupCount, "content/ragas", 0,
                            "group " + std::to_string(level) + " holds " + std::to_string(groups[level]) +
                                " ragas instead of " + std::to_string(size)});
}

}  // namespace

std::string Problem::text() const { return file + ":" + std::to_string(line) + ": " + message; }

std::vector<Problem> checkContent(const std::vector<nvstore::Row>& rows, const CheckOptions& options) {
  Context c;
  for (const Row& r : rows) c.tables[r.table].push_back(&r);
  checkDuplicates(c, "RagaNameList", {"Raga"});
  checkDuplicates(c, "RagaNameList", {"Raga Index"});
  checkDuplicates(c, "Raga - Technical Information", {"Raga Index"});
  checkDuplicates(c, "Raga - Notes", {"Raga Index"});
  checkDuplicates(c, "Raga - ALT Phrases", {"RagaIndex", "PhraseType"});
  checkDuplicates(c, "Raga - Additional Information", {"Add Info", "Raga Index", "Add Info Type"});
  checkDuplicates(c, "Raga - Additional Information", {"Notation Index"});
  checkDuplicates(c, "Raga - Composition Notations", {"Notation Index", "Composition Part"});
  checkDuplicates(c, "Tala - Technical Information", {"Tala Name"});
  checkDuplicates(c, "Tala - Technical Information", {"Tala Id"});
  checkDuplicates(c, "ThataScales", {"ThataName"});
  checkDuplicates(c, "Prompts", {"Prompt Id"});
  checkDuplicates(c, "ThekaTypeBolsForTaal", {"Tala Id", "Theka Type Id", "Tala Bol Id"});
  checkRagas(c);
  checkCompositions(c, options);
  checkThekas(c);
  checkVibhags(c, options.wholeLibrary);
  if (options.wholeLibrary) checkLibraryWide(c);
  return c.problems;
}

}  // namespace contentcheck
