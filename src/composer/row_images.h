// The composer's editing model: row images. A phrase may be many rows of 20
// slots long while the screen shows two rows; each row is kept as one text,
// its slots' words separated by blanks, "_" for an empty slot, in three
// parallel sets (notes, durations, syllables) so that a note, its duration
// and its syllable stay aligned when slots are inserted or deleted. Every
// reader splits a row at blanks, so a run of blanks counts as one.
//
// The procedures here are pure text work on the arrays they are given; the
// screen side (slots to rows and back) is in composer_slots.h.
//
// State: gNotesRowImages, gDurRowImages, gSylRowImages (entry r - 1 holds row
// r), gRowImageCount, gFirstDisplayRow, gSlotsUsed, gCurrNotationSlot.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

constexpr int kSlotsPerRow = 20;

extern std::vector<std::string> gNotesRowImages;  // English note words, "," or "_"
extern std::vector<std::string> gDurRowImages;    // numbers as shown, "," or "_"
extern std::vector<std::string> gSylRowImages;    // syllables (compositions only) or "_"
extern std::int16_t gRowImageCount;    // rows in use
extern std::int16_t gFirstDisplayRow;  // the row shown in the first screen row, from 1
extern std::int16_t gSlotsUsed;        // words of the phrase last loaded
extern std::int16_t gCurrNotationSlot; // screen slot last clicked, 0 to 39

// The words of a text split at blanks (runs of blanks count as one).
std::vector<std::string> fRowWords(const std::string& text);

// Cuts `source` into rows of 20 words from entry 0 of `images`; entries
// past the last cut row are emptied. The array grows when the words need
// more rows than it has (so that no word is ever dropped), and never
// shrinks. A "," or ":" takes a slot like a note.
void sCreateRowImagesFromSource(const std::string& source, std::vector<std::string>& images);

// The text without its "_" words, the others joined by one blank: an
// interior gap closes up.
std::string fEliminateUnderscores(const std::string& text);

// Entries 0 to count - 1 joined by one blank, without "_" words.
std::string fCombineRowImages(const std::vector<std::string>& images, std::int16_t count);

// Inserts an empty slot ("_") before word `position` of row `row` (both
// from 1) and lets the words that no longer fit spill into the rows below;
// a position past the row's last word appends the slot there. Deleting
// removes word `position` and pulls the following rows' words up. Either
// may grow the array (and `count`) by a row when the last row overflows;
// `count` is never lowered.
void sInsertBlankSlotInRowImages(std::vector<std::string>& images, std::int16_t& count,
                                 std::int16_t row, std::int16_t position);
void sDeleteSlotInRowImages(std::vector<std::string>& images, std::int16_t& count,
                            std::int16_t row, std::int16_t position);

// One syllable word for each note: the syllables, each followed by "_" for
// every further note that lies within its duration. Durations are in beats;
// sums are rounded to three decimals so that thirds add up. Once the
// syllables run out every further note gets "_".
std::string fCreateExpandedSylString(const std::string& syllables, const std::string& sylDurations,
                                     const std::string& noteDurations);

// The other way: one duration for each syllable, from the row images of
// syllables and durations (rows 0 to count - 1): a note without a syllable
// lengthens the syllable before it. The result begins with a blank. False
// (and "") when a row has fewer syllable words than duration words.
bool fCombineSylDurations(const std::vector<std::string>& sylImages,
                          const std::vector<std::string>& durImages, std::int16_t count,
                          std::string& result);

// Durations in stored units (hundredths of a second) to beats of `speed`
// units: the speed is the smallest whole value among the first ten words
// (commas skipped; 10000 when none is smaller) and each word but ","
// becomes value / speed. The speed is given back through `speed`.
std::string fConvertDurationToBeats(const std::string& durations, std::int16_t& speed);

// Beats back to stored units: each word x speed, rounded halves to even;
// "_" words are dropped and "," kept.
std::string fConvertBeatsToDuration(const std::string& beats, std::int16_t speed);
