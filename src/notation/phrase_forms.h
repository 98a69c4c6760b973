// The phrase grammar and its text forms: legality of a typed phrase, colon
// and glide removal, and the English and Devanagari display forms.
//
// A stored note phrase is blank-separated English words: a note ("S",
// "r>"), a grace pair "x'y" (grace note first), a colon word ":" between
// segments, a note with one colon stuck to one end (segmented pakad), or a
// comma word "," between sections. Stateless; the script and the grace-note
// choice are read from the session where stated.
#pragma once

#include <cstdint>
#include <string>

// True when word is exactly ":".
bool fIsColon(const std::string& word);

// True when every blank-separated word is ":" or passes fIsLegalNote in the
// script. A comma word fails; an empty phrase is legal.
bool fIsLegalNotationPhrase(const std::string& phrase, std::int16_t script);

// Splits at every ":", trims each piece of blanks at both ends and joins the
// non-empty pieces with one blank.
std::string fRemoveColons(const std::string& phrase);

// Keeps the last note of each word: its last two characters when it ends in
// "<" or ">", else its last character. Words joined by one blank.
std::string fRemoveGlides(const std::string& phrase);

// English display form: the words joined by three blanks.
std::string fPrepareNotationDisplayString(const std::string& phrase);

// Devanagari key-map form, word by word: "," gives three blanks, ":" gives
// " : ", other words are translated piece by piece at "'" (a piece that is
// no English note gives nothing). Words joined by one blank.
std::string fPrepareNotationDevnagariString(const std::string& phrase);

// A note phrase made ready for the display choices, before the display form:
// glides removed when graceNotes is 1 (none), then the Devanagari form when
// script is 1.
std::string fPrepareNotesForScript(const std::string& phrase, std::int16_t script,
                                   std::int16_t graceNotes);
