// The printed notation sheet of a score: a header with the raga's
// particulars, then each item under its title, its phrases one paragraph
// each as the notation box shows them, and a composition's parts on their
// tala grid: one row per cycle, the syllable above its note, a bar before
// each division and the division's mark under its first beat (x the sam,
// 0 a khali, the other talis numbered). All in the score's script.
// Stateless; draws through platform/pdf.h.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "export/score.h"
#include "notation/vibhags.h"
#include "platform/pdf.h"

// The divisions of a tala (by its id) and its beat count, as the store
// gives them; passed in so that the sheet can be drawn without the store,
// on any thread.
struct TalaLayout {
  int beats = 0;
  std::vector<Vibhag> vibhags;
};
using TalaLayouts = std::function<TalaLayout(int talaId)>;

// The text of a phrase in a script: English words as they are; Devanagari
// as UTF-8 with its komal, tivra and octave marks.
std::string fSheetText(const std::string& englishWords, int script);

// The cells of one composition part: cell i (0-based, row-major over cycles
// of `beats`) holds the words that fall on it, joined with nothing between
// them; the first word falls on startingBeat of the first row.
std::vector<std::string> fGridCells(const std::string& words, const std::string& wordBeats, int beats,
                                    int startingBeat);

// Draws the whole score; false when the sheet could not be finished.
bool fDrawNotationSheet(const Score& score, const TalaLayouts& talas, platform::PdfSheet& sheet);
