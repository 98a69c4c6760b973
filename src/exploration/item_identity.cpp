// List entries back into items (see item_identity.h).
#include "exploration/item_identity.h"

#include <array>
#include <vector>

#include "core/errors.h"
#include "core/session.h"
#include "exploration/exploration_state.h"
#include "notation/text_utils.h"
#include "platform/screen.h"
#include "store/working_record_comp.h"

namespace {

constexpr std::int16_t kUnchanged = -1;

struct ItemKind {
  const char* firstWord;
  std::int16_t altType;     // kUnchanged keeps the previous value
  std::int16_t phraseKind;
  std::int16_t itemType;
  int nameWord;             // zero-based word the name starts at; 0: no name
  std::int16_t infoType;    // type of the item's heading in the store
};

constexpr std::array<ItemKind, 8> kItemKinds = {{
    {"Aroha", 6, 1, 1, 0, 0},
    {"Pakad", 7, 3, 2, 0, 0},
    {"Alap", 1, 4, 3, 0, 0},
    {"Layakari", 2, 5, 4, 0, 0},
    {"Taan", 3, 6, 5, 0, 0},
    {"Composition", 5, 8, 6, 2, 2},
    {"Similar", kUnchanged, 7, 7, 3, 1},
    {"Film", kUnchanged, 9, 6, 3, 3},
}};

std::vector<std::string> fBlankWords(const std::string& text) {
  std::vector<std::string> words(1);
  for (char c : text) {
    if (c == ' ')
      words.emplace_back();
    else
      words.back() += c;
  }
  return words;
}

// The words from `first` on, joined by blanks as they stood.
std::string fTextFromWord(const std::vector<std::string>& words, int first) {
  std::vector<std::string> rest;
  for (std::size_t i = static_cast<std::size_t>(first); i < words.size(); ++i)
    rest.push_back(words[i]);
  return fJoinWords(rest, " ");
}

}  // namespace

void sSetMusicParameters(const std::string& itemText, std::int16_t source) {
  NV_PROC("sSetMusicParameters");
  const std::vector<std::string> words = fBlankWords(itemText);
  for (const ItemKind& kind : kItemKinds) {
    if (words.front() != kind.firstWord) continue;
    if (kind.altType != kUnchanged) gCurrAltType = kind.altType;
    gCurrPhraseKind = kind.phraseKind;
    gCurrItemType = kind.itemType;
    if (kind.nameWord == 0) return;
    gCurrCompName = fTextFromWord(words, kind.nameWord);
    sDBToTCompInfo(source, kind.infoType, gCurrCompName);
    sDBToTCompData(source, gCurrCompIndex);
    if (gCurrPhraseKind == 9) {
      gCurrMode = 1;
      gCurrForm->control("Option1").setValue(-1);
    }
    return;
  }
}
