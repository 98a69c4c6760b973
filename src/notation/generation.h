// The generation form handed to the synthesis library, and the integer note
// codes held in a music buffer.
//
// Generation note phrase: per word, the absolute note number of each "'"
// piece in at least two digits, written together (grace first); words joined
// by one blank. The tonic is applied here and nowhere else on this path.
// Generation duration phrase: each stored word (hundredths of a second)
// times 10, in milliseconds. Stateless apart from the tonic default.
#pragma once

#include <cstdint>
#include <string>

#include "core/session.h"

// "S R G" at tonic 3 gives "12 14 16"; the pair "S'R" gives "1214". A piece
// that is no note counts as number 0, giving tonic - 3. No range test: at
// tonic 1 "S<" gives "-2".
std::string fConvertNotePhraseToMusicGenerationFormat(const std::string& phrase,
                                                      int tonicNoteId = gCurrTonicNoteId);

// Each word's numeric value times 10 in general number formatting: "2.5"
// gives "25", "25" gives "250".
std::string fConvertDurPhraseToMusicGenerationFormat(const std::string& phrase);

// Integer code of one word: the two-digit numbers of its pieces, not shifted
// to the tonic, concatenated and read as a decimal number ("S" 12, "S'R"
// 1214, "r<'S" 112). A code beyond 16 bits raises the (forgiven) overflow
// and gives 0.
std::int16_t fGetNoteCode(const std::string& word);
