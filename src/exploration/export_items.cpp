// Capturing the screen's items for the Export menu.
#include "exploration/export_items.h"

#include "core/errors.h"
#include "core/session.h"
#include "exploration/exploration_state.h"
#include "exploration/item_identity.h"
#include "export/export_menu.h"
#include "export/score_capture.h"
#include "export/sound_render.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/phrase_loading.h"
#include "store/working_record_comp.h"

namespace {

// What choosing another item changes, put back after the whole raga.
struct ItemAtHand {
  std::int16_t altType = gCurrAltType, phraseKind = gCurrPhraseKind, itemType = gCurrItemType, mode = gCurrMode;
  std::string compName = gCurrCompName;
  std::int32_t compIndex = gCurrCompIndex;
  std::int16_t dbSelector = gCurrDbSelector;
  TCompInfoRecord tCompInfo = gTCompInfo;
  std::array<CompPartRecord, kCompPartCount> compInfo = gCompInfo;
  PhraseSet phraseSet = gPhraseSet, playSet = gPlaySet;
  std::array<MusicBuffer, kMusicBufferCount> buffers = gMusicBuffers;

  void restore() const {
    gCurrAltType = altType, gCurrPhraseKind = phraseKind, gCurrItemType = itemType, gCurrMode = mode;
    gCurrCompName = compName, gCurrCompIndex = compIndex, gCurrDbSelector = dbSelector;
    gTCompInfo = tCompInfo, gCompInfo = compInfo, gPhraseSet = phraseSet, gPlaySet = playSet;
    gMusicBuffers = buffers;
  }
};

// The title of the item at hand, as the file name proposes it.
std::string titleOfItemAtHand() {
  switch (gCurrPhraseKind) {
    case 1: return "Aroha";
    case 2: return "Avroha";
    case 3: return "Pakad";
    case 4: return "Alap";
    case 5: return "Layakari";
    case 6: return "Taan";
    default: return gCurrCompName;
  }
}

bool isOwnItem(const std::string& entry) { return entry.rfind("Similar", 0) != 0 && entry.rfind("Film", 0) != 0; }

}  // namespace

void sExportItemAtHand(ExportFormat format) {
  NV_PROC("sExportItemAtHand");
  const bool composition = gCurrPhraseKind == 8;
  if (gCurrItemType == 0 || (!composition && gPhraseSet.Count == 0)) {
    platform::windowSystem().messageBox(
        "Choose an item first: click one in a list, or the aroha, avroha or pakad.", platform::kMsgInformation,
        "Export");
    return;
  }
  Score score = fCaptureRagaScore();
  score.items.push_back(fCaptureItemAtHand(titleOfItemAtHand()));
  if (format == ExportFormat::Sound && (score.items.back().waves = fRenderItemWaves()).empty()) return;
  sExportScore(score, format);
}

void sExportWholeRaga(ExportFormat format) {
  NV_PROC("sExportWholeRaga");
  const ItemAtHand atHand;
  platform::Control& list = gCurrForm->control("cNVIllusList");
  Score score = fCaptureRagaScore();
  for (int i = 0; i < list.listCount(); ++i) {
    const std::string entry = list.list(i);
    if (!isOwnItem(entry)) continue;
    gCurrDbSelector = 1;
    sSetMusicParameters(entry, 1);
    sLoadMNFromT(kUnsegmentedText);
    score.items.push_back(fCaptureItemAtHand(entry));
    if (format == ExportFormat::Sound && (score.items.back().waves = fRenderItemWaves()).empty()) break;
  }
  atHand.restore();
  const bool rendered = format != ExportFormat::Sound || score.items.empty() || !score.items.back().waves.empty();
  if (!rendered) {  // a wave could not be built: its builder has told why
    for (const ScoreItem& item : score.items) sRemoveWaves(item.waves);
    return;
  }
  sExportScore(score, format);
}
