// The composition player's tala grid (see composition_grid.h). Measures are
// in the screen's pixels, taken from its present size, so that the grid
// fills the space left of the controls at any desktop size.
#include "player/composition_grid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "display/fonts.h"
#include "notation/phrase_forms.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "platform/screen.h"
#include "sound/composition_prep.h"
#include "sound/music_buffers.h"
#include "store/lookups.h"
#include "store/tala_beats.h"
#include "store/working_record_comp.h"
#include "store/working_record_comp_text.h"

std::int16_t gGridBeats = 0;
std::int16_t gCompFirstRow = 1;
std::int16_t gCompFirstBeat = 1;
std::int16_t gCompLastRow = 1;
std::int16_t gCompLastBeat = 1;

namespace {

// The grid's share of the screen: it ends left of the controls (at 79 %
// of the width) and above the prompt line.
constexpr float kGridRightShare = 0.785f;
constexpr float kWidestCellShare = 0.06f;   // cells of short talas stop growing here
constexpr float kTallestCellShare = 0.045f;
// Font height as a share of the cell's height, by script: the Devanagari
// font's line is taller for its size than the Latin one's.
constexpr float kEnglishFontShare = 0.7f;
constexpr float kDevanagariFontShare = 0.62f;
constexpr float kPixelsPerPoint = 96.0f / 72.0f;
// Across its width a syllable cell holds a syllable of six letters, about
// four ems; a note cell four quarter-beat notes, about three ems.
constexpr float kEmsAcrossCell = 4.2f;
constexpr float kEmsAcrossNoteCell = 3.0f;
// The sam, beat 1, is marked in the beat numbers: bold, in dark red.
constexpr int kSamColor = 0x0000A0;

// The divisions of the tala on show, read when the grid is built.
std::vector<Vibhag> gGridVibhags;

platform::Screen& form() { return *gCurrForm; }
platform::Control& ctl(const char* name, int index = -1) { return form().control(name, index); }

int fSlotCount() { return gRowsPerCycle * gGridBeats; }

int fDividerCount() {
  int dividers = 0;
  for (int b = 1; b <= gGridBeats; ++b) dividers += vibhagDividerBefore(gGridVibhags, b) ? 1 : 0;
  return dividers;
}

struct GridMeasures {
  float left = 0;        // of the first cell
  float top = 0;         // of the beat numbers
  float cellWidth = 0, cellHeight = 0, gap = 0, rowGap = 0;
  float rowLabelLeft = 0, rowLabelWidth = 0;
};

GridMeasures fMeasureGrid() {
  const float w = form().width(), h = form().height();
  GridMeasures m;
  m.gap = std::max(2.0f, std::round(w * 0.002f));
  m.rowGap = std::max(3.0f, std::round(h * 0.006f));
  m.rowLabelLeft = std::round(w / 100);
  m.rowLabelWidth = std::round(w * 0.025f);
  m.left = m.rowLabelLeft + m.rowLabelWidth + m.gap;
  const int beats = std::max<int>(gGridBeats, 1);
  const float across = w * kGridRightShare - m.left - static_cast<float>(beats - 1) * m.gap;
  m.cellWidth = std::floor(std::min(across / static_cast<float>(beats), w * kWidestCellShare));
  platform::Control& words = ctl("cComposition");
  m.top = std::round(words.top() + words.height() + h * 0.01f);
  const float bottom = ctl("cPrompts").top() - h * 0.01f;
  const int rows = std::max<int>(gRowsPerCycle, 1);
  // The beat numbers take one cell's height above the rows.
  const float perRow = (bottom - m.top) / (static_cast<float>(rows) + 0.5f);
  m.cellHeight = std::floor(std::min((perRow - m.rowGap) / 2, h * kTallestCellShare));
  return m;
}

void sPlace(platform::Control& c, float left, float top, float width, float height) {
  c.setLeft(left);
  c.setTop(top);
  c.setWidth(width);
  c.setHeight(height);
  c.setVisible(true);
}

// The font size of a cell, in half points: as tall as the cell allows for
// the script, and no wider than the cell's width allows.
float fFontPoints(const platform::Control& cell, bool devanagari, float ems = kEmsAcrossCell) {
  const float share = devanagari ? kDevanagariFontShare : kEnglishFontShare;
  const float pixels = std::min(cell.height() * share, cell.width() / ems);
  return std::max(6.0f, std::round(pixels / kPixelsPerPoint * 2) / 2);
}

// The note cell's font for the script in force, sized to its height.
void sFitNoteFont(platform::Control& cell) {
  sAdjustFont(cell);
  cell.setFontSize(fFontPoints(cell, gNotationScript == 1, kEmsAcrossNoteCell));
}

float fBeatLeft(const GridMeasures& m, int beatIndex) {
  return m.left + static_cast<float>(beatIndex) * (m.cellWidth + m.gap);
}

// Each beat's number; the first beat of a division carries its mark before
// the number, as "x 1", "2 5", "0 9".
void sPlaceBeatNumbers(const GridMeasures& m) {
  for (int b = 0; b < gGridBeats; ++b) {
    platform::Control& beat = ctl("cBeat", b);
    sPlace(beat, fBeatLeft(m, b), m.top, m.cellWidth, m.cellHeight);
    const std::string mark = vibhagMarkOnBeat(gGridVibhags, b + 1);
    beat.setCaption(mark.empty() ? std::to_string(b + 1) : mark + " " + std::to_string(b + 1));
    beat.setFontSize(fFontPoints(beat, false));
  }
  platform::Control& sam = ctl("cBeat", 0);
  sam.setFontBold(true);
  sam.setForeColor(kSamColor);
}

void sPlaceRows(const GridMeasures& m) {
  float y = m.top + m.cellHeight;
  for (int r = 0; r < gRowsPerCycle; ++r) {
    platform::Control& label = ctl("cRow", r);
    sPlace(label, m.rowLabelLeft, y, m.rowLabelWidth, 2 * m.cellHeight);
    label.setCaption(std::to_string(r + 1));
    label.setFontSize(fFontPoints(ctl("cBeat", 0), false));
    for (int b = 0; b < gGridBeats; ++b) {
      const int slot = r * gGridBeats + b;
      const float x = fBeatLeft(m, b);
      platform::Control& syllable = ctl("cMatra", slot);
      sPlace(syllable, x, y, m.cellWidth, m.cellHeight);
      syllable.setFontSize(fFontPoints(syllable, false));
      platform::Control& note = ctl("cNote", slot);
      sPlace(note, x, y + m.cellHeight, m.cellWidth, m.cellHeight);
      sFitNoteFont(note);
    }
    y += 2 * m.cellHeight + m.rowGap;
  }
}

// A line down the middle of the gap before each division's first beat, from
// the beat numbers to the last row's notes.
void sPlaceDividers(const GridMeasures& m) {
  const float bottom = m.top + m.cellHeight + static_cast<float>(gRowsPerCycle) * (2 * m.cellHeight + m.rowGap);
  int divider = 0;
  for (int b = 2; b <= gGridBeats; ++b) {
    if (!vibhagDividerBefore(gGridVibhags, b)) continue;
    platform::Control& line = ctl("cVibhag", divider++);
    const float x = fBeatLeft(m, b - 1) - m.gap / 2;
    line.setLine(x, m.top, x, bottom - m.rowGap);
    line.setVisible(true);
  }
}

// Puts each word in the cell of the slot it starts on: a running position
// in matras from the part's starting beat, the cell its whole part. A word
// beyond the grid (a part the grid was not made for) is left out.
void sPlaceWords(const char* cells, const std::string& words, const std::string& lengths) {
  const std::vector<std::string> items = fSplitWords(words, " ");
  const std::vector<std::string> matras = fSplitWords(lengths, " ");
  double position = gCompStartBeat - 1;
  int slot = static_cast<int>(position);
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (slot >= 0 && slot < fSlotCount()) {
      platform::Control& cell = ctl(cells, slot);
      cell.setCaption(cell.caption() + items[i]);
    }
    position += i < matras.size() ? fNumericValue(matras[i]) : 0;
    slot = static_cast<int>(position);
  }
}

// The last beat of the last row whose note cell holds something; as it was
// when that row is empty.
void sFindLastFilledBeat() {
  const int lastRow = gRowsPerCycle - 1;
  for (int b = gGridBeats; b >= 1; --b)
    if (!ctl("cNote", lastRow * gGridBeats + b - 1).caption().empty()) {
      gCompLastBeat = static_cast<std::int16_t>(b);
      return;
    }
}

}  // namespace

void sAdjustDisplayForTala() {
  NV_PROC("sAdjustDisplayForTala");
  const CompPartRecord& part = gCompInfo[gCompPart == 2 ? 1 : 0];
  gGridBeats = fGetBeatCountForTala(part.TalaId);
  gGridVibhags = fGetVibhagsForTala(part.TalaId);
  // A screen opened without a composition (no tala) shows an empty grid.
  ctl("Label25").setCaption("Tala : " + (part.TalaId != 0 ? fGetTalaName(part.TalaId) : ""));
  ctl("Label26").setCaption(std::to_string(gGridBeats) + " Beats");
  if (gGridBeats <= 0) return;
  const int rows = fGetMatraCountForComposition() / gGridBeats + 1;
  gRowsPerCycle = static_cast<std::int16_t>(std::min(rows, kMaxGridRows));
  for (int b = 1; b < gGridBeats; ++b) form().loadElement("cBeat", b);
  for (int r = 1; r < gRowsPerCycle; ++r) form().loadElement("cRow", r);
  for (int d = 1; d < fDividerCount(); ++d) form().loadElement("cVibhag", d);
  for (int s = 1; s < fSlotCount(); ++s) {
    form().loadElement("cMatra", s);
    form().loadElement("cNote", s);
  }
  sPlaceCompositionGrid();
}

void sPlaceCompositionGrid() {
  NV_PROC("sPlaceCompositionGrid");
  if (gGridBeats <= 0 || !form().hasControl("cNote", fSlotCount() - 1)) return;
  const GridMeasures m = fMeasureGrid();
  sPlaceBeatNumbers(m);
  sPlaceRows(m);
  sPlaceDividers(m);
}

void sDisplayCompositionData() {
  NV_PROC("sDisplayCompositionData");
  const CompPartRecord& part = gCompInfo[gCompPart == 2 ? 1 : 0];
  ctl("cComposition").setText(part.Text);
  gCompStartBeat = part.StartingBeat;
  gCompFirstBeat = part.StartingBeat;
  gCompFirstRow = 1;
  gFormBeatCount = fGetBeatCountForTala(part.TalaId);
  ctl("cMukhada").setText(gCurrCompName);
  for (int s = 0; s < fSlotCount(); ++s) {
    ctl("cMatra", s).setCaption("");
    ctl("cNote", s).setCaption("");
  }
  sPlaceWords("cMatra", part.Syllables, part.SyllableDuration);
  sPlaceWords("cNote", fPrepareNotesForScript(part.Notation, gNotationScript, gGraceNotes),
              part.NotesDuration);
  if (gRowsPerCycle > 0) sFindLastFilledBeat();
}

void sAdjustFontForDisplay() {
  NV_PROC("sAdjustFontForDisplay");
  for (int s = 0; s < fSlotCount(); ++s) sFitNoteFont(ctl("cNote", s));
}

void sSetDefaultDisplayColors() {
  NV_PROC("sSetDefaultDisplayColors");
  for (int s = 0; s < fSlotCount(); ++s) {
    platform::Control& syllable = ctl("cMatra", s);
    syllable.setBackColor(kSyllableCellColor);
    syllable.setBorderStyle(0);
    ctl("cNote", s).setBackColor(kNoteCellColor);
  }
}

void sSetCompNotationSlotsToDefaultColor() {
  NV_PROC("sSetCompNotationSlotsToDefaultColor");
  const int cells = gRowsPerCycle * gFormBeatCount;
  for (int s = 0; s < cells; ++s)
    if (form().hasControl("cNote", s)) ctl("cNote", s).setBackColor(kNoteCellColor);
}
