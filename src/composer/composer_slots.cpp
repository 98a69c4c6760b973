// The composer's palettes and slots (see composer_slots.h).
#include "composer/composer_slots.h"

#include <algorithm>
#include <vector>

#include "composer/row_images.h"
#include "core/errors.h"
#include "core/session.h"
#include "display/fonts.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/positioning.h"

bool gFillingSlots = false;

namespace {

constexpr std::int16_t kTaan = 3;

// Set while the program itself fills or empties the slots, so that the
// syllable boxes' change events do not write half-filled rows back.
class FillingSlots {
 public:
  FillingSlots() : was_(gFillingSlots) { gFillingSlots = true; }
  ~FillingSlots() { gFillingSlots = was_; }
  FillingSlots(const FillingSlots&) = delete;
  FillingSlots& operator=(const FillingSlots&) = delete;

 private:
  bool was_;
};
constexpr int kHeadingsPerRow = 4;
constexpr float kGapRatio = 0.02f;  // of the screen's height, between groups

const char* const kHeadings[kHeadingsPerRow] = {"Grace Notes", "Main Notes", "Duration", "Syllables"};
const char* const kBeatValues[kTimeValueCount] = {"0.0625", "0.125", "0.25", "0.33", "0.5",
                                                  "0.67",   "0.75",  "1",    "1.25", "1.33",
                                                  "1.5",    "1.67",  "1.75", "2",    "2.5",
                                                  "3",      "3.5",   "4",    "5"};

platform::Screen& form() { return *gCurrForm; }
platform::Control& ctl(const char* name, int index = -1) { return gCurrForm->control(name, index); }

bool fIsTaan() { return gCurrAltType == kTaan; }

// Element `index` of an array, made when it does not exist yet.
platform::Control& element(const char* name, int index) {
  return index == 0 ? ctl(name, 0) : form().loadElement(name, index);
}

void place(platform::Control& c, float left, float top, float width, float height) {
  c.setLeft(left);
  c.setTop(top);
  c.setWidth(width);
  c.setHeight(height);
}

// A cell of a palette or slot line: white, so that its text and the red
// mark read on every picture.
void sShowCell(platform::Control& c, float left, float top, float width, float height) {
  place(c, left, top, width, height);
  c.setBackColor(kCellBackColor);
  c.setVisible(true);
}

// The width of a cell of element 0 of `name`, narrowed so that `cells` of
// them fit the screen's width.
float fCellWidth(const char* name, float cells) {
  return std::min(ctl(name, 0).width(), gFormW / cells);
}

void sSetNoteFont(platform::Control& c) {
  if (gNotationScript == 1)
    sSetDevnagariFont(c);
  else
    sSetEnglishFont(c);
}

// The display string of palette note `id` in the script in force.
std::string fPaletteCaption(int id) {
  return gNotationScript == 1 ? gNoteDev[static_cast<std::size_t>(id)] : gNoteEng[static_cast<std::size_t>(id)];
}

// The English word of a note caption: the palette note it equals.
std::string fEnglishOfCaption(const std::string& caption) {
  return gNoteEng[static_cast<std::size_t>(fGetNotationIndex(caption))];
}

// The lines of one screen row, top to bottom, by category.
std::vector<const char*> fSlotLines() {
  std::vector<const char*> lines;
  if (!fIsTaan()) lines.push_back("cGNote");
  lines.push_back("cNote");
  if (!fIsTaan()) lines.push_back("cTime");
  if (fCategoryHasSyllables()) lines.push_back("cCompSyl");
  return lines;
}

int fHeadingOfLine(const char* line) {
  const std::string name = line;
  if (name == "cGNote") return 0;
  if (name == "cNote") return 1;
  if (name == "cTime") return 2;
  return 3;
}

// The row image set behind screen row `displayRow`, grown when that row is
// the one past the last.
std::string& fImageForDisplayRow(std::vector<std::string>& images, std::int16_t displayRow) {
  const std::int16_t row = static_cast<std::int16_t>(gFirstDisplayRow + displayRow - 1);
  if (row > gRowImageCount) {
    gRowImageCount = row;
    for (std::vector<std::string>* set : {&gNotesRowImages, &gDurRowImages, &gSylRowImages})
      if (set->size() < static_cast<std::size_t>(gRowImageCount)) set->resize(static_cast<std::size_t>(gRowImageCount));
    sShowRowCaptions();
  }
  if (images.size() < static_cast<std::size_t>(row)) images.resize(static_cast<std::size_t>(row));
  return images[static_cast<std::size_t>(row - 1)];
}

// The 20 words of one screen row, `word` giving each slot's word.
template <class Word>
std::string fRowFromSlots(std::int16_t displayRow, Word word) {
  std::vector<std::string> words;
  const int first = (displayRow - 1) * kSlotsPerRow;
  for (int s = first; s < first + kSlotsPerRow; ++s) words.push_back(word(s));
  return fJoinWords(words, " ");
}

std::string fNoteSlotWord(int s) {
  const std::string note = ctl("cNote", s).caption();
  if (note.empty()) return "_";
  if (note == ",") return ",";
  const std::string grace = fIsTaan() ? "" : ctl("cGNote", s).caption();
  return (grace.empty() ? "" : fEnglishOfCaption(grace) + "'") + fEnglishOfCaption(note);
}

// A syllable is one word of its row image: blanks typed in a slot go.
std::string fSylSlotWord(int s) {
  const std::string syllable = fRmvAllChar(ctl("cCompSyl", s).text(), " ");
  return syllable.empty() ? "_" : syllable;
}

void sShowNoteWord(int slot, const std::string& word) {
  if (word == "_") return;
  platform::Control& note = ctl("cNote", slot);
  if (word == ",") {
    sSetEnglishFont(note);
    note.setCaption(",");
    return;
  }
  const std::vector<std::string> pieces = fSplitWords(word, "'");
  const std::string main = pieces.back();
  auto shown = [](const std::string& english) {
    return gNotationScript == 1 ? fGetDevnagariStringForNote(english) : english;
  };
  note.setCaption(shown(main));
  if (pieces.size() == 2 && !fIsTaan()) ctl("cGNote", slot).setCaption(shown(pieces.front()));
}

// Words of the row images `images` from gFirstDisplayRow over `rows` rows,
// into the slots, one word a slot.
template <class Show>
void sShowRows(const std::vector<std::string>& images, std::int16_t rows, Show show) {
  int slot = 0;
  for (std::int16_t r = 0; r < rows; ++r) {
    const auto entry = static_cast<std::size_t>(gFirstDisplayRow - 1 + r);
    if (entry >= images.size()) break;
    for (const std::string& word : fRowWords(images[entry])) {
      if (slot >= kSlotCount) return;
      show(slot++, word);
    }
  }
}

void sResetRowFonts() {
  for (int s = 0; s < kSlotCount; ++s) {
    if (!form().hasControl("cNote", s)) continue;
    sSetNoteFont(ctl("cNote", s));
    if (!fIsTaan()) sSetNoteFont(ctl("cGNote", s));
  }
}

void sHide(const char* name) {
  if (form().hasControl(name)) ctl(name).setVisible(false);
}

void sHideArray(const char* name, int last) {
  for (int i = 0; i <= last; ++i)
    if (form().hasControl(name, i)) ctl(name, i).setVisible(false);
}

}  // namespace

bool fCategoryHasDurations() { return gCurrAltType != kTaan; }
bool fCategoryHasSyllables() { return gCurrAltType == 4 || gCurrAltType == 5; }

std::string fTimeValueCaption(std::int16_t category, int index) {
  if (category == 1) return std::to_string(10 + 5 * index);
  return kBeatValues[index];
}

void sLoadNotesPalletToForm(float top) {
  NV_PROC("sLoadNotesPalletToForm");
  const float width = fCellWidth("cNotation", 29);
  const float height = ctl("cNotation", 0).height();
  const float first = gFormW / 2 - width * 14.5f;
  for (int id = kFirstPaletteNote; id <= kPaletteComma; ++id)
    sShowCell(element("cNotation", id), first + static_cast<float>(id - kFirstPaletteNote) * width, top, width, height);
  sLoadPalletNotes();
  platform::Control& comma = ctl("cNotation", kPaletteComma);
  sSetEnglishFont(comma);
  comma.setCaption(",");
}

void sLoadPalletNotes() {
  NV_PROC("sLoadPalletNotes");
  for (int id = kFirstPaletteNote; id <= kLastPaletteNote; ++id) {
    if (!form().hasControl("cNotation", id)) return;
    platform::Control& cell = ctl("cNotation", id);
    sSetNoteFont(cell);
    cell.setCaption(fPaletteCaption(id));
  }
}

void sAdjustNotesPalletForRaga() {
  NV_PROC("sAdjustNotesPalletForRaga");
  if (!form().hasControl("cNotation", kFirstPaletteNote)) return;
  std::string ids;
  if (gDbA) {
    auto notes = gDbA->openRecordset("Raga - Notes", platform::RecordsetType::Table);
    sSetTablePKRecord(*notes, gCurrRagaId);
    if (!notes->noMatch()) ids = notes->field("Raga Note Ids").asText();
  }
  for (int id = kFirstPaletteNote; id <= kLastPaletteNote; ++id) ctl("cNotation", id).setVisible(false);
  for (const std::string& word : fRowWords(ids)) {
    const std::int32_t id = ZenvoVal(word);
    for (std::int32_t octave : {id - 12, id, id + 12})
      if (octave >= kFirstPaletteNote && octave <= kLastPaletteNote) ctl("cNotation", octave).setVisible(true);
  }
}

void sShowAllNotesInPallet() {
  NV_PROC("sShowAllNotesInPallet");
  for (int id = kFirstPaletteNote; id <= kLastPaletteNote; ++id)
    if (form().hasControl("cNotation", id)) ctl("cNotation", id).setVisible(true);
}

void sLoadTimeValuesArrayToForm(float top) {
  NV_PROC("sLoadTimeValuesArrayToForm");
  const float width = fCellWidth("cTimeVal", 20);
  const float height = ctl("cTimeVal", 0).height();
  const float first = gFormW / 2 - width * kTimeValueCount / 2;
  for (int i = 0; i < kTimeValueCount; ++i) {
    platform::Control& cell = element("cTimeVal", i);
    cell.setCaption(fTimeValueCaption(gCurrAltType, i));
    sShowCell(cell, first + static_cast<float>(i) * width, top, width, height);
  }
}

void sLoadNotesArrayToForm() {
  NV_PROC("sLoadNotesArrayToForm");
  const float width = fCellWidth("cNote", kSlotsPerRow);
  const float height = ctl("cNote", 0).height();
  const float left = gFormW / 2 - width * 10;
  const float gap = gFormH * kGapRatio / 2;
  platform::Control& moveUp = ctl("cMoveU");
  const float paletteBottom = ctl("cNotation", kFirstPaletteNote).top() + ctl("cNotation", kFirstPaletteNote).height();
  moveUp.setLeft(left);
  moveUp.setTop(paletteBottom + gap);
  moveUp.setEnabled(gFirstDisplayRow > 1);
  moveUp.setVisible(true);
  float top = moveUp.top() + moveUp.height() + gap;
  const std::vector<const char*> lines = fSlotLines();
  for (int row = 1; row <= 2; ++row) {
    platform::Control& rowNumber = ctl(row == 1 ? "Label9" : "Label10");
    rowNumber.setLeft(left + width * kSlotsPerRow + gap);
    rowNumber.setTop(top);
    for (const char* line : lines) {
      const int heading = (row - 1) * kHeadingsPerRow + fHeadingOfLine(line);
      platform::Control& label = element("cLabel", heading);
      label.setCaption(kHeadings[fHeadingOfLine(line)]);
      place(label, left - label.width(), top, label.width(), height);
      label.setVisible(true);
      for (int s = 0; s < kSlotsPerRow; ++s) {
        platform::Control& slot = element(line, (row - 1) * kSlotsPerRow + s);
        sShowCell(slot, left + static_cast<float>(s) * width, top, width, height);
        if (std::string(line) == "cNote" || std::string(line) == "cGNote") sSetNoteFont(slot);
      }
      top += height;
    }
    top += gap;
  }
  platform::Control& moveDown = ctl("cMoveD");
  moveDown.setLeft(left + width * kSlotsPerRow - moveDown.width());
  moveDown.setTop(top);
  moveDown.setVisible(true);
  float buttonLeft = left;
  for (const char* button : {"cPlay", "cSave", "cNewCat", "cNewRaga", "cRename", "cDelete"}) {
    platform::Control& b = ctl(button);
    b.setLeft(buttonLeft);
    b.setTop(top + moveDown.height() + gap);
    buttonLeft += b.width() + gap;
    if (std::string(button) == "cRename") b.setVisible(gCurrAltType == 4 || gCurrAltType == 5);
    else b.setVisible(true);
  }
}

std::int16_t fGetNotationIndex(const std::string& caption) {
  for (int id = kFirstPaletteNote; id <= kLastPaletteNote; ++id)
    if (form().hasControl("cNotation", id) && ctl("cNotation", id).caption() == caption)
      return static_cast<std::int16_t>(id);
  return 0;
}

void sCreateNotesRowImageFromDisplay(std::int16_t displayRow) {
  NV_PROC("sCreateNotesRowImageFromDisplay");
  if (!form().hasControl("cNote", (displayRow - 1) * kSlotsPerRow)) return;
  fImageForDisplayRow(gNotesRowImages, displayRow) = fRowFromSlots(displayRow, fNoteSlotWord);
  if (displayRow == 2) ctl("cMoveD").setEnabled(true);
}

void sCreateDurRowImageFromDisplay(std::int16_t displayRow) {
  NV_PROC("sCreateDurRowImageFromDisplay");
  if (!fCategoryHasDurations()) return;
  fImageForDisplayRow(gDurRowImages, displayRow) = fRowFromSlots(displayRow, [](int s) {
    const std::string time = ctl("cTime", s).caption();
    return time.empty() ? std::string("_") : time;
  });
  if (displayRow == 2) ctl("cMoveD").setEnabled(true);
}

void sCreateSylRowImageFromDisplay(std::int16_t displayRow) {
  NV_PROC("sCreateSylRowImageFromDisplay");
  if (!fCategoryHasSyllables() || gFillingSlots) return;
  fImageForDisplayRow(gSylRowImages, displayRow) = fRowFromSlots(displayRow, fSylSlotWord);
}

void sClearPhraseDisplay() {
  NV_PROC("sClearPhraseDisplay");
  const FillingSlots filling;
  for (int s = 0; s < kSlotCount && form().hasControl("cNote", s); ++s) {
    ctl("cNote", s).setCaption("");
    if (fCategoryHasDurations()) {
      ctl("cGNote", s).setCaption("");
      ctl("cTime", s).setCaption("");
    }
    if (fCategoryHasSyllables()) ctl("cCompSyl", s).setText("");
  }
}

void sDisplayRowImages() {
  NV_PROC("sDisplayRowImages");
  if (!form().hasControl("cNote", kSlotCount - 1)) return;
  const FillingSlots filling;
  sClearPhraseDisplay();
  sResetRowFonts();
  const std::int16_t rows = gRowImageCount == gFirstDisplayRow ? 1 : 2;
  sShowRows(gNotesRowImages, rows, sShowNoteWord);
  if (fCategoryHasDurations())
    sShowRows(gDurRowImages, rows, [](int slot, const std::string& word) {
      if (word != "_") ctl("cTime", slot).setCaption(word);
    });
  if (fCategoryHasSyllables())
    sShowRows(gSylRowImages, rows, [](int slot, const std::string& word) {
      if (word != "_") ctl("cCompSyl", slot).setText(word);
    });
  sShowRowCaptions();
}

void sShowRowCaptions() {
  const std::string count = std::to_string(gRowImageCount);
  platform::Control& first = ctl("Label9");
  first.setCaption("Row " + std::to_string(gFirstDisplayRow) + "/" + count);
  first.setVisible(true);
  platform::Control& second = ctl("Label10");
  if (gFirstDisplayRow < gRowImageCount) {
    second.setCaption("Row " + std::to_string(gFirstDisplayRow + 1) + "/" + count);
    second.setVisible(true);
  } else {
    second.setVisible(false);
  }
  ctl("cMoveU").setEnabled(gFirstDisplayRow > 1);
  ctl("cMoveD").setEnabled(gFirstDisplayRow < gRowImageCount);
}

namespace {

template <class Edit>
void sEditSlot(std::int16_t slot, Edit edit) {
  const std::int16_t row = static_cast<std::int16_t>(gFirstDisplayRow + (slot >= kSlotsPerRow ? 1 : 0));
  const std::int16_t position = static_cast<std::int16_t>(slot % kSlotsPerRow + 1);
  // Every set is edited with the same count, so that they stay aligned.
  const std::int16_t count = gRowImageCount;
  std::int16_t grown = count;
  edit(gNotesRowImages, grown, row, position);
  if (fCategoryHasDurations()) {
    std::int16_t durCount = count;
    edit(gDurRowImages, durCount, row, position);
    grown = std::max(grown, durCount);
  }
  if (fCategoryHasSyllables()) {
    std::int16_t sylCount = count;
    edit(gSylRowImages, sylCount, row, position);
    grown = std::max(grown, sylCount);
  }
  gRowImageCount = grown;
  for (std::vector<std::string>* set : {&gNotesRowImages, &gDurRowImages, &gSylRowImages})
    if (set->size() < static_cast<std::size_t>(gRowImageCount)) set->resize(static_cast<std::size_t>(gRowImageCount));
  sDisplayRowImages();
}

}  // namespace

void sInsertBlankSlot(std::int16_t slot) {
  NV_PROC("sInsertBlankSlot");
  sEditSlot(slot, sInsertBlankSlotInRowImages);
}

void sDeleteCurrentSlot(std::int16_t slot) {
  NV_PROC("sDeleteCurrentSlot");
  sEditSlot(slot, sDeleteSlotInRowImages);
}

void sSetComposerFormNoteSlotsToDefaultFrontColor() {
  for (int s = 0; s < kSlotCount && form().hasControl("cNote", s); ++s) ctl("cNote", s).setForeColor(0);
}

void sHidePhraseDisplayControls() {
  NV_PROC("sHidePhraseDisplayControls");
  for (const char* name : {"cAntara", "cAsthai", "cMoveD", "cMoveU", "cMukhada", "cNewCat", "cNewRaga",
                           "cOK", "cPlay", "cRagaList", "cSave", "cRename", "cDelete", "cSpeed",
                           "cStartBeatAnt", "cStartBeatAst", "cTaal", "Label8", "Label9", "Label10",
                           "Label12", "Label13", "Label14", "Label15", "Label16", "Label17", "Label18",
                           "Frame1"})
    sHide(name);
  for (const char* array : {"cGNote", "cNote", "cTime", "cCompSyl"}) sHideArray(array, kSlotCount - 1);
  sHideArray("cLabel", 2 * kHeadingsPerRow - 1);
  sHideArray("cNotation", kPaletteComma);
  sHideArray("cTimeVal", kTimeValueCount - 1);
}

void sHideRagaInfoDisplayControls() {
  NV_PROC("sHideRagaInfoDisplayControls");
  for (const char* name : {"Label2", "Label3", "Label4", "Label5", "Label6", "Label7", "cRaga", "cAroha",
                           "cAvroha", "cVadi", "cSamvadi", "cPakad", "cLine1"})
    sHide(name);
}

void sUnloadPhraseArrayElements() {
  NV_PROC("sUnloadPhraseArrayElements");
  auto unload = [](const char* name, int first, int last) {
    for (int i = first; i <= last; ++i)
      if (form().hasControl(name, i)) form().unloadElement(name, i);
  };
  for (const char* array : {"cNote", "cGNote", "cTime", "cCompSyl"}) unload(array, 1, kSlotCount - 1);
  unload("cLabel", 1, 2 * kHeadingsPerRow - 1);
  unload("cNotation", kFirstPaletteNote, kPaletteComma);
  unload("cTimeVal", 1, kTimeValueCount - 1);
}
