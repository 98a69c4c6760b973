// The Export menu of the Raga Exploration screen: the item at hand, or every
// item of the raga's list in its order, captured into a score and handed to
// the export. No state of its own.
#pragma once

#include "export/export_job.h"

// The item last chosen (a list entry or the aroha, avroha or pakad box);
// without one, the user is told to choose an item first.
void sExportItemAtHand(ExportFormat format);

// Every entry of cNVIllusList in order, except comparisons with a similar
// raga and film songs, which are not this raga's own items. The screen's
// item at hand is the same afterwards, but for a sound export the parts'
// wave files (A.wav, B.wav) hold the raga's last composition until the
// next item is played.
void sExportWholeRaga(ExportFormat format);
