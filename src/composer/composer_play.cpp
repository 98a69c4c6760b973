// Play on the Composer screen (see composer_play.h).
#include "composer/composer_play.h"

#include <algorithm>
#include <string>
#include <vector>

#include "composer/composer_save.h"
#include "composer/composer_slots.h"
#include "composer/row_images.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "platform/screen.h"
#include "sound/composition_files.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"
#include "sound/phrase_loading.h"
#include "sound/play_chain.h"
#include "sound/play_state.h"
#include "sound/play_status.h"
#include "sound/wave_folder.h"
#include "store/working_record_comp.h"

std::vector<std::vector<int>> gPlaySlots;
std::int16_t gPlayBaseSlot = 0;

namespace {

constexpr std::int16_t kCompositionItem = 6;
constexpr std::int16_t kCompositionKind = 8;
constexpr std::int16_t kFirstOwnPhraseKind = 4;  // Alap; Layakari and Taan follow
// A first-note cell the play chain cannot find: the composer marks its
// notes itself, on the slots the row images give them.
constexpr std::int16_t kNoCell = 9999;

// The phrase and note last marked while playing: 0 for none.
int gMarkedPhrase = 0;
int gMarkedNote = 0;

platform::Screen& form() { return *gCurrForm; }
platform::Control& ctl(const char* name, int index = -1) { return gCurrForm->control(name, index); }
bool fIsComposition() { return fCategoryHasSyllables(); }

// The slots of every note of each phrase: phrases of an alap, layakari or
// taan are apart by ","; a composition part is one phrase.
void sFindPlaySlots() {
  gPlaySlots.assign(1, {});
  for (std::int16_t r = 0; r < gRowImageCount && static_cast<std::size_t>(r) < gNotesRowImages.size(); ++r) {
    int slot = r * kSlotsPerRow;
    for (const std::string& word : fRowWords(gNotesRowImages[static_cast<std::size_t>(r)])) {
      if (word == "," && !fIsComposition()) {
        if (!gPlaySlots.back().empty()) gPlaySlots.emplace_back();
      } else if (word != "_") {
        gPlaySlots.back().push_back(slot);
      }
      ++slot;
    }
  }
}

bool fStartChain() {
  for (MusicBuffer& buffer : gMusicBuffers) buffer.FirstNotationCell = kNoCell;
  gMarkedPhrase = gMarkedNote = 0;
  gCallbackContext = kContextComposer;
  if (fPlayMusicPhrases(form())) {
    ctl("cMnuXpt").setEnabled(false);  // a sound export would rebuild the files sounding
    return true;
  }
  if (!fToldWaveFolderFault(gCurrBuildFile)) sShowMessage("Error Playing Music Phrases");
  return false;
}

// The phrases of the item (the raga's own aroha or pakad, or the user's
// phrases of the category) ready to play from the first, as Demo plays them.
void sSetUpPhrasesToPlay() {
  gPhraseSet.Position = 1;
  gPhraseSet.FirstPhrase = 1;
  gPhraseSet.LastPhrase = gCurrItemType == 1 || gCurrItemType == 2 ? 1 : gPhraseSet.Count;
  gPrefetchMode = kPrefetchNext;
  gWavOption = 1;
  gThekaMode = 2;
  gPlaySet = gPhraseSet;
  if (gPlaySet.Count == 0) return;
  const std::int16_t buffer = fBufferForPhrase(1);
  gMusicBuffers[static_cast<std::size_t>(buffer)].Count = fCreateNotesList1(buffer);
  if (fPrepareToPlaySelection1(buffer) == 0 && !fToldWaveFolderFault(gCurrBuildFile))
    sShowMessage("Error Setting up for Illustration");
}

// Builds both parts' files. The preparation builds both parts whatever is
// played, and a part without notes (an Antara not yet written) makes no
// file; such a part is built from the one on show for the time of the
// build, so that the part on show can be heard.
bool fBuildCompositionFiles(std::int16_t part) {
  CompPartRecord& other = gCompInfo[part == 1 ? 1 : 0];
  const CompPartRecord kept = other;
  if (fRowWords(other.Notation).empty()) {
    other = gCompInfo[static_cast<std::size_t>(part - 1)];
    other.Part = kept.Part;
  }
  const bool built = fCreateCompositionMusicFilesFromT() != 0;
  other = kept;
  return built;
}

void sPlayComposition() {
  const std::int16_t part = ctl("cOAsthai").value() != 0 ? 1 : 2;
  if (!fBuildCompositionFiles(part)) {
    if (!fToldWaveFolderFault(gCurrBuildFile)) sShowMessage("Error creating music files");
    return;
  }
  gPlaySet = gPhraseSet;
  gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = part;
  gPlaySet.Count = part;
  fStartChain();
}

}  // namespace

bool fRowImagesIntoRecord() {
  if (fIsComposition()) {
    sCreateNotesRowImageFromDisplay(1);
    sCreateNotesRowImageFromDisplay(2);
    return fUpdateCompTFromRowImages() != 0;
  }
  return fUpdateALTTFromRowImages() != 0;
}

bool fLoadItemToPlay() {
  const bool ragaPhrase = gCurrItemType == 1 || gCurrItemType == 2;
  if (!ragaPhrase) {
    if (gRowImageCount == 0 && fIsComposition()) ctl("cOAsthai").setValue(-1);
    if (!fRowImagesIntoRecord()) return false;
  }
  gCurrDbSelector = 2;
  if (ragaPhrase || !fIsComposition()) {
    // The user's own alap, layakari or taan (kinds 4 to 6), as the
    // exploration screen plays them; a leftover composition kind would
    // make the phrases read as a composition.
    if (!ragaPhrase) gCurrPhraseKind = static_cast<std::int16_t>(gCurrAltType + kFirstOwnPhraseKind - 1);
    sLoadMNFromT(kUnsegmentedText);
    return true;
  }
  gCurrPhraseKind = kCompositionKind;
  gCurrItemType = kCompositionItem;
  gThekaMode = 1;
  gCurrCompName = gTCompInfo.Name;
  return true;
}

void sComposerPlay() {
  NV_PROC("sComposerPlay");
  if (!fLoadItemToPlay()) return;
  if (gCurrItemType != 1 && gCurrItemType != 2) {
    gFirstDisplayRow = 1;
    sDisplayRowImages();
    sFindPlaySlots();
  }
  if (gCurrItemType != kCompositionItem) {
    sSetUpPhrasesToPlay();
    if (gPlaySet.Count > 0) fStartChain();
    return;
  }
  sPlayComposition();
}

void sPlayNotationSlot() {
  NV_PROC("sPlayNotationSlot");
  fAdvanceCurrentNote(form(), gDelayC);
  const int phrase = gCurrItemType == kCompositionItem ? 1 : gPlaySet.Position - 1;
  const int note = gMusicBuffers[static_cast<std::size_t>(gCurrBuffer)].CurrNote;
  if (phrase < 1 || static_cast<std::size_t>(phrase) > gPlaySlots.size()) return;
  const std::vector<int>& slots = gPlaySlots[static_cast<std::size_t>(phrase - 1)];
  if (note < 1 || static_cast<std::size_t>(note) > slots.size()) return;
  if (phrase == gMarkedPhrase && note == gMarkedNote) return;
  gMarkedPhrase = phrase;
  gMarkedNote = note;
  const int slot = slots[static_cast<std::size_t>(note - 1)];
  gPlayBaseSlot = static_cast<std::int16_t>(slots.front());
  const int row = slot / kSlotsPerRow + 1;
  if (row < gFirstDisplayRow || row > gFirstDisplayRow + 1) {
    gFirstDisplayRow = static_cast<std::int16_t>(std::min<int>(row, std::max<int>(gRowImageCount, 1)));
    sDisplayRowImages();
  }
  sSetComposerFormNoteSlotsToDefaultFrontColor();
  const int cell = slot - (gFirstDisplayRow - 1) * kSlotsPerRow;
  if (cell >= 0 && cell < kSlotCount) ctl("cNote", cell).setForeColor(kComposerMarkColor);
}
