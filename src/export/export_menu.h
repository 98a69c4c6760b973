// The Export menu's work, shared by every screen that offers the menu: ask
// where to save (proposing "<raga> - <item>.<extension>"), and for a sheet
// the paper, then write the file in the background with a progress bar and
// Cancel, and say plainly, naming the file, when it could not be written.
// The caller captures the score (export/score_capture.h) before calling,
// so later changes on the screen do not reach the export.
// State: the folder last saved into, for the next dialog.
#pragma once

#include "export/export_job.h"
#include "export/score.h"

// The file name proposed for a score: "Yaman - Pakad.mid"; a score of more
// than one item is "Yaman - Whole Raga". Characters a file name cannot hold
// ("/") become "-".
std::string fProposedExportName(const Score& score, ExportFormat format);

// Runs the whole exchange for the score; nothing happens when the user
// cancels a dialog. The items' wave files (a sound export) are removed
// afterwards, whatever became of the export.
void sExportScore(const Score& score, ExportFormat format);
