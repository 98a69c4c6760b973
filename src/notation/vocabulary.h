// The note vocabulary: 36 notes over three octaves, in English and in the
// key map of the Devanagari notation font, with their two-digit numbers.
//
// State: gNoteEng, gNoteDev and gNoteFileNo, filled once by sInitScales at
// start-up and read-only afterwards. Slot 36 stays empty and is never
// searched. Look-ups compare whole strings, case-sensitively, scanning ids
// 0 to 35 upward; the first match wins.
#pragma once

#include <array>
#include <cstdint>
#include <string>

constexpr int kNoteCount = 36;      // ids 0 to 35
constexpr int kNoteSlots = 37;      // tables are sized 0 to 36
constexpr int kMiddleSaId = 12;     // "S" whatever the tonic
constexpr int kNeutralTonicId = 3;  // tonic at which note id = absolute number

extern std::array<std::string, kNoteSlots> gNoteEng;     // "S<" .. "N>"
extern std::array<std::string, kNoteSlots> gNoteDev;     // "saa," .. "inaM"
extern std::array<std::string, kNoteSlots> gNoteFileNo;  // "00" .. "35"

// Fills the three tables.
void sInitScales();

// The note's string in the script (1 Devanagari, 2 English); "" for any
// other script. An id outside 0..36 is a range error.
std::string fGetStringForNote(std::int16_t noteId, std::int16_t script);

// Devanagari key-map string, or two-digit number, of one English note;
// "" when the note is not in the table.
std::string fGetDevnagariStringForNote(const std::string& english);
std::string fGetFnameForNote(const std::string& english);

// Whether s is one whole entry of the English, or the Devanagari, table.
bool fIsEnglishNote(const std::string& s);
bool fIsDevnagriNote(const std::string& s);

// Translate one phrase word, which may be a grace pair "x'y". A piece found
// nowhere adds nothing; one "'" is written when the second piece is reached.
std::string fGetDevForEng(const std::string& word);
std::string fGetEngForDev(const std::string& word);

// Whether a word is a note, or two notes joined by one "'", in the script
// (1 Devanagari, 2 English), with at most one ":" stuck to it at one end.
// A word too long for the tokenizer to split (beyond 32767 characters) is
// none.
bool fIsLegalNote(const std::string& word, std::int16_t script);

// "White-7 (B)" .. "Black-5 (A#)" for tonic ids 1 to 12; "" otherwise.
std::string fGetTonicNoteName(std::int16_t tonicId);

// Absolute note number (the sound store's note id) of a note id at a tonic:
// noteId + tonicNoteId - 3. Tonic 3 is neutral.
int fGetAbsoluteNoteNumber(int noteId, int tonicNoteId);

// Converts a blank-separated phrase word by word: fromScript 1 Devanagari to
// English, 2 English to Devanagari; any other script converts every word to
// "". Words are joined by one blank once the result is non-empty.
std::string fConvertFont(const std::string& phrase, std::int16_t fromScript);
