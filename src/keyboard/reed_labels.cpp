// Reed labels: note names and resting colours (see reed_labels.h).
#include "keyboard/reed_labels.h"

#include <sstream>

#include "core/errors.h"
#include "core/session.h"
#include "keyboard/reeds.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"

std::int16_t gReedOffset = 0;
std::array<bool, 12> gRagaNoteClasses = {};
const platform::Screen* gRagaNotesScreen = nullptr;

namespace {

// Reed of the middle Sa above the reed numbered like the tonic.
constexpr std::int16_t kMiddleSaAboveTonic = 9;
constexpr int kSemitonesInOctave = 12;

void setLabelFont(platform::Control& label) {
  label.setFontBold(true);
  if (gNotationScript == 1) {
    label.setFontName("Shusha");
    label.setFontSize(16);
  } else {
    label.setFontName("Times New Roman");
    label.setFontSize(12);
  }
}

std::string noteNameOnReed(std::int16_t reed) {
  const int noteId = reed + gReedOffset;
  if (noteId < 0 || noteId >= kNoteCount) return "";
  const auto id = static_cast<std::size_t>(noteId);
  return gNotationScript == 1 ? gNoteDev[id] : gNoteEng[id];
}

bool isMiddleSa(std::int32_t reed) { return reed == gCurrTonicNoteId + kMiddleSaAboveTonic; }

bool isRagaNote(std::int32_t reed) {
  if (reed < kLowestReed) return false;  // the template shows no note
  const int noteId = reed + gReedOffset;
  if (noteId < 0 || noteId >= kNoteCount) return false;
  return gRagaNoteClasses[static_cast<std::size_t>(noteId % kSemitonesInOctave)];
}

// Adds the note of one piece of a word (":" and "," stripped) to the set.
void addNoteClass(std::string piece) {
  std::erase_if(piece, [](char c) { return c == ':' || c == ','; });
  const std::string number = fGetFnameForNote(piece);
  if (!number.empty()) gRagaNoteClasses[static_cast<std::size_t>(std::stoi(number) % kSemitonesInOctave)] = true;
}

}  // namespace

void sSetRagaNoteClasses(const platform::Screen& form, const std::string& englishPhrase) {
  gRagaNotesScreen = &form;
  gRagaNoteClasses = {};
  std::istringstream words(englishPhrase);
  for (std::string word; words >> word;) {
    std::istringstream pieces(word);
    for (std::string piece; std::getline(pieces, piece, '\'');) addNoteClass(piece);
  }
}

int fReedLabelBackColor(const platform::Screen& form, std::int32_t reed) {
  if (isMiddleSa(reed)) return kTonicMarkerColor;
  if (&form == gRagaNotesScreen && isRagaNote(reed)) return kRagaNoteMarkerColor;
  return fReedDefaultColor(static_cast<std::int16_t>(reed));
}

int fReedLabelTextColor(std::int32_t reed) {
  return isMiddleSa(reed) ? kTonicLabelColor : kWindowTextColor;
}

void sUpdateReedLabelsAlt(platform::Screen& form) {
  NV_PROC("sUpdateReedLabelsAlt");
  gReedOffset = static_cast<std::int16_t>(kNeutralTonicId - gCurrTonicNoteId);
  for (std::int16_t n = gFirstReed; n <= gLastReed; ++n) {
    if (n < kLowestReed || !form.hasControl("cL", n)) continue;
    platform::Control& label = form.control("cL", n);
    setLabelFont(label);
    label.setCaption(noteNameOnReed(n));
    label.setForeColor(fReedLabelTextColor(n));
    label.setBackColor(fReedLabelBackColor(form, n));
  }
}

void sSetAllReedLabelColorToDefault(platform::Screen& form) {
  NV_PROC("sSetAllReedLabelColorToDefault");
  for (std::int16_t n = 0; n <= kHighestReed; ++n)
    if (form.hasControl("cL", n)) form.control("cL", n).setBackColor(fReedLabelBackColor(form, n));
}
