// The Composer screen's Export menu: the item Play would play, loaded as
// Play loads it, captured into a score and handed to the export's dialogs,
// as the composition player does. No state of its own.
#include <algorithm>

#include "composer/composer.h"
#include "composer/composer_play.h"
#include "composer/composer_slots.h"
#include "composer/row_images.h"
#include "core/errors.h"
#include "core/session.h"
#include "export/export_menu.h"
#include "export/score_capture.h"
#include "export/sound_render.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "store/working_record_comp.h"

namespace {

constexpr std::int16_t kCompositionKind = 8;

// The title the file name proposes: the composition's name, or the
// category of the phrases.
std::string titleOfItem() { return fCategoryHasSyllables() ? gTCompInfo.Name : fCategoryName(); }

}  // namespace

void sExportComposerItem(ExportFormat format) {
  NV_PROC("sExportComposerItem");
  const bool workArea = gCurrForm->control("cPlay").visible();
  if (workArea && !fLoadItemToPlay()) return;  // its message is told
  if (!workArea || (gCurrPhraseKind != kCompositionKind && gPhraseSet.Count == 0)) {
    platform::windowSystem().messageBox("Write something first: choose a raga and a category, then write notes.",
                                        platform::kMsgInformation, "Export");
    return;
  }
  // The composition preparation builds both parts, so its sound waits for
  // both (the Asthai and the Antara; the third record stays empty) to be
  // written; MIDI and PDF take a part alone.
  const auto unwritten = [](const CompPartRecord& part) { return fRowWords(part.Notation).empty(); };
  if (format == ExportFormat::Sound && gCurrPhraseKind == kCompositionKind &&
      std::any_of(gCompInfo.begin(), gCompInfo.begin() + 2, unwritten)) {
    platform::windowSystem().messageBox("Write both the Asthai and the Antara before saving the composition as sound.",
                                        platform::kMsgInformation, "Export");
    return;
  }
  Score score = fCaptureRagaScore();
  score.items.push_back(fCaptureItemAtHand(titleOfItem()));
  if (format == ExportFormat::Sound && (score.items.back().waves = fRenderItemWaves()).empty()) return;
  sExportScore(score, format);
}
