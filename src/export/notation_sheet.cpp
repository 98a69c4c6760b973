// Laying out the notation sheet: a cursor runs down the page; a block that
// does not fit on what is left of it starts a new page.
#include "export/notation_sheet.h"

#include <algorithm>
#include <cmath>

#include "display/fonts.h"
#include "notation/devanagari.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"

namespace {

constexpr int kDevanagari = 1;
constexpr double kParagraphGapMm = 2.5, kBlockGapMm = 5.0;

class Layout {
 public:
  Layout(platform::PdfSheet& sheet, int script) : sheet_(sheet), script_(script) {}

  platform::SheetFont font(double points, bool bold = false) const { return {"DejaVu Sans", points, bold}; }
  platform::SheetFont notes(double points) const {
    return script_ == kDevanagari ? platform::SheetFont{kDevanagariFontName, points + 1, false} : font(points);
  }

  // Makes room for a block of heightMm, on a new page when it does not fit.
  void reserve(double heightMm) {
    if (y_ + heightMm > sheet_.heightMm() && y_ > 0) {
      sheet_.newPage();
      y_ = 0;
    }
  }
  void gap(double mm) { y_ += mm; }

  // One line of text at the cursor.
  void line(const std::string& text, const platform::SheetFont& f, double x = 0) {
    const double h = sheet_.lineHeightMm(f);
    reserve(h);
    sheet_.drawText(x, y_ + h * 0.8, text, f);
    y_ += h;
  }

  // A label and its words, wrapped at word boundaries under the label's end.
  void labelled(const std::string& label, const std::string& words, const platform::SheetFont& wordsFont) {
    const platform::SheetFont labelFont = font(10, true);
    const double indent = label.empty() ? 0 : sheet_.textWidthMm(label + "  ", labelFont);
    const double h = std::max(sheet_.lineHeightMm(labelFont), sheet_.lineHeightMm(wordsFont));
    reserve(h);
    if (!label.empty()) sheet_.drawText(0, y_ + h * 0.8, label, labelFont);
    double x = indent;
    const double space = sheet_.textWidthMm(" ", wordsFont);
    for (const std::string& w : fSplitWords(words, " ")) {
      const double width = sheet_.textWidthMm(w, wordsFont);
      if (x > indent && x + width > sheet_.widthMm()) {
        y_ += h;
        reserve(h);
        x = indent;
      }
      sheet_.drawText(x, y_ + h * 0.8, w, wordsFont);
      x += width + space * 1.5;
    }
    y_ += h;
  }

  platform::PdfSheet& sheet() { return sheet_; }
  double y() const { return y_; }
  void setY(double y) { y_ = y; }
  int script() const { return script_; }

 private:
  platform::PdfSheet& sheet_;
  int script_;
  double y_ = 0;
};

void drawHeader(Layout& l, const Score& score) {
  l.line(score.ragaName, l.font(20, true));
  l.gap(1);
  const ScoreRagaInfo& i = score.info;
  l.labelled("Thata", i.thata, l.font(10));
  l.labelled("Vadi", fSheetText(i.vadi, score.script), l.notes(10));
  l.labelled("Samvadi", fSheetText(i.samvadi, score.script), l.notes(10));
  l.labelled("Jati", i.jati, l.font(10));
  l.labelled("Time", i.time, l.font(10));
  l.labelled("Aroha", fSheetText(i.aroha, score.script), l.notes(11));
  l.labelled("Avroha", fSheetText(i.avroha, score.script), l.notes(11));
  l.labelled("Pakad", fSheetText(i.pakad, score.script), l.notes(11));
  l.sheet().drawLine(0, l.y() + 2, l.sheet().widthMm(), l.y() + 2);
  l.gap(kBlockGapMm);
}

// One part on its grid: the beat numbers once, then for each cycle the
// syllables, the notes under them, and the division marks under the notes;
// a bar stands before each division's first beat.
void drawGrid(Layout& l, const ScoreCompositionPart& part, const TalaLayout& tala) {
  const int beats = std::max(1, tala.beats);
  const std::vector<std::string> syllables = fGridCells(part.syllables, part.syllableBeats, beats, part.startingBeat);
  const std::vector<std::string> notes =
      fGridCells(fSheetText(part.notation, l.script()), part.noteBeats, beats, part.startingBeat);
  const std::size_t rows = std::max(syllables.size(), notes.size()) / static_cast<std::size_t>(beats);
  const double cell = l.sheet().widthMm() / beats;
  const platform::SheetFont small = l.font(7), syllableFont = l.font(8, false), markFont = l.font(9, true);
  const double noteSize = std::clamp(cell * 1.0, 6.0, 11.0);
  const platform::SheetFont noteFont = l.notes(noteSize);
  const double syllableH = l.sheet().lineHeightMm(syllableFont), noteH = l.sheet().lineHeightMm(noteFont),
               markH = l.sheet().lineHeightMm(markFont), rowH = syllableH + noteH + markH + 1.5;

  // the part stays on one page when it fits on one
  const double captionH = l.sheet().lineHeightMm(l.font(11, true)), numbersH = l.sheet().lineHeightMm(small);
  l.reserve(std::min(captionH + numbersH + static_cast<double>(rows) * rowH, l.sheet().heightMm()));
  l.line(part.caption, l.font(11, true));
  l.reserve(numbersH + rowH);
  for (int b = 0; b < beats; ++b) l.sheet().drawText(b * cell + 0.8, l.y() + 2.5, std::to_string(b + 1), small);
  l.gap(numbersH);

  auto fitted = [&](const std::string& text, platform::SheetFont f) {
    while (f.points > 4 && l.sheet().textWidthMm(text, f) > cell - 1) f.points -= 0.5;
    return f;
  };
  for (std::size_t r = 0; r < rows; ++r) {
    l.reserve(rowH);
    const double top = l.y();
    for (int b = 0; b < beats; ++b) {
      const std::size_t i = r * static_cast<std::size_t>(beats) + static_cast<std::size_t>(b);
      const double x = b * cell + 0.8;
      if (i < syllables.size() && !syllables[i].empty())
        l.sheet().drawText(x, top + syllableH * 0.8, syllables[i], fitted(syllables[i], syllableFont));
      if (i < notes.size() && !notes[i].empty())
        l.sheet().drawText(x, top + syllableH + noteH * 0.8, notes[i], fitted(notes[i], noteFont));
      const std::string mark = vibhagMarkOnBeat(tala.vibhags, b + 1);
      if (!mark.empty()) l.sheet().drawText(x, top + syllableH + noteH + markH * 0.8, mark, markFont);
      if (vibhagDividerBefore(tala.vibhags, b + 1)) l.sheet().drawLine(b * cell, top, b * cell, top + syllableH + noteH);
    }
    l.gap(rowH);
  }
  l.gap(kParagraphGapMm);
}

void drawItem(Layout& l, const ScoreItem& item, const TalaLayouts& talas) {
  l.reserve(item.parts.empty() ? 20 : 60);  // a title stays with the start of what it heads
  l.line(item.title, l.font(13, true));
  l.gap(1);
  if (!item.parts.empty()) {
    for (const ScoreCompositionPart& part : item.parts) drawGrid(l, part, talas(part.talaId));
  } else {
    for (const ScorePhrase& p : item.phrases) {
      l.labelled("", fSheetText(p.notation, l.script()), l.notes(11));
      l.gap(kParagraphGapMm);
    }
  }
  l.gap(kBlockGapMm);
}

}  // namespace

// Word by word through the vocabulary rather than fConvertFont, whose
// procedure trace belongs to the screens' thread: the sheet is drawn on
// the export's own.
std::string fSheetText(const std::string& englishWords, int script) {
  if (script != kDevanagari) return englishWords;
  std::string keymap;
  for (const std::string& word : fSplitWords(englishWords, " ")) keymap += (keymap.empty() ? "" : " ") + fGetDevForEng(word);
  return fKeymapToUnicode(keymap);
}

std::vector<std::string> fGridCells(const std::string& words, const std::string& wordBeats, int beats,
                                    int startingBeat) {
  const std::vector<std::string> w = fSplitWords(words, " "), d = fSplitWords(wordBeats, " ");
  std::vector<std::string> cells;
  double position = startingBeat - 1;
  for (std::size_t i = 0; i < w.size(); ++i) {
    const auto slot = static_cast<std::size_t>(position);
    if (cells.size() <= slot) cells.resize((slot / beats + 1) * beats);
    cells[slot] += w[i];
    position += i < d.size() ? fNumericValue(d[i]) : 0.0;
  }
  return cells;
}

bool fDrawNotationSheet(const Score& score, const TalaLayouts& talas, platform::PdfSheet& sheet) {
  Layout layout(sheet, score.script);
  drawHeader(layout, score);
  for (const ScoreItem& item : score.items) drawItem(layout, item, talas);
  return sheet.finish();
}
