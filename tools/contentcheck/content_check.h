// The musical and bookkeeping check of the library content: runs over the
// rows of the record files (before they become a store) and reports every
// fault with the file and line that holds it. Used by the test suite on the
// shipped content and on small fixtures. No state between calls.
#pragma once

#include <string>
#include <vector>

#include "record_file.h"

namespace contentcheck {

enum class Fault {
  IllegalNote,          // a word of a note phrase that is no note
  BadDuration,          // a duration word that is no positive number
  CountMismatch,        // notes and durations differ in number
  PakadDurationsRunOut, // a pakad segment without enough durations
  TalaCycle,            // a composition part that does not fill whole tala cycles
  SyllableCount,        // syllables against their durations or the words
  MissingPart,          // a composition or notation row without its partner
  MissingPrompt,        // a prompt number the screens need is absent
  DuplicateName,        // a name or id given twice
  NoteOutsideRaga,      // aroha, avroha or pakad uses a note not in Raga - Notes
  BadNoteIds,           // Raga - Notes or VadiNum/SamvadiNum malformed
  MissingRow,           // a raga without its technical, notes or alap row
  GroupCount,           // a raga outside its group, or groups not of 30, 20, 20
  FilmSongShipped,      // a film-song row in the library
  ThekaIncomplete,      // a theka without exactly one known bol per beat
  TechnicalData,        // an unknown thata, a drone on a note the raga lacks, a wrong TimeNum
  VibhagData,           // a tala's divisions missing, or not filling its cycle, or wrongly marked
};

struct Problem {
  Fault fault;
  std::string file;
  int line = 0;
  std::string message;
  std::string text() const;  // "file:line: message"
};

struct CheckOptions {
  // The rows are the whole library to be shipped: also check the prompts,
  // the group counts, and that no film song is in it.
  bool wholeLibrary = false;
};

std::vector<Problem> checkContent(const std::vector<nvstore::Row>& rows, const CheckOptions& options);

}  // namespace contentcheck
