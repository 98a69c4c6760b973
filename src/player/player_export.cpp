// The composition player's Export menu: the composition at hand captured
// into a score and handed to the export's dialogs. No state of its own.
#include "core/errors.h"
#include "core/session.h"
#include "export/export_menu.h"
#include "export/score_capture.h"
#include "export/sound_render.h"
#include "player/player.h"

void sExportComposition(ExportFormat format) {
  NV_PROC("sExportComposition");
  Score score = fCaptureRagaScore();
  score.items.push_back(fCaptureItemAtHand(gCurrCompName));
  if (format == ExportFormat::Sound && (score.items.back().waves = fRenderItemWaves()).empty()) return;
  sExportScore(score, format);
}
