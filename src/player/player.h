// Composition player: the PlayComposition1 screen (form id 14), a
// composition of the current raga on its tala grid, a whole part in
// Learning mode or a typed stretch in Practice mode.
//
// State: gRebuilt (-1 while a Play event has just rebuilt the whole parts)
// and gSavedTonicNoteId (the tonic when the screen opened).
#pragma once

#include <cstdint>

#include "export/export_job.h"

namespace platform {
class Screen;
}

extern std::int16_t gRebuilt;
extern std::int16_t gSavedTonicNoteId;

// Controller of the screen. Events: 0 open, 1 Play (and Start Looping), 2
// part chosen, 3 mode chosen, 4 tonic, 5 grace notes, 7 tempo slider
// (nothing: read at Play), 8 notation script, 9 theka, 10 drone, 11 Stop,
// 12 device status (the highlight), 19 the part or stretch has played, 20
// leave. Other numbers do nothing.
void sPlayCompositions(std::int16_t event);
void sInitPlayCompositions();
// Leaves for the Raga Exploration screen, handing back a new tonic.
void sTerminatePlayCompositions();
// Once the screen below is current again: when the tonic was changed here,
// the Raga Exploration screen sets itself up for it (its event 14).
void sHandBackTonic();

// Idle: every menu, frame, Play, Start Looping, the slider and Go Back
// enabled, Stop and Stop Looping disabled, the stretch fields editable.
void sEnableF14Selections();
// Sounding: all of those disabled (the stretch fields locked in Practice),
// then Stop enabled, or Stop Looping while looping.
void sDisableF14Selections();
// The stretch fields, their labels and frame: shown and emptied, or hidden.
void sDisplayPracticeParams();
void sHidePracticeParams();
// The prompt line: the scale and tonic, then the mode's prompts.
void sDisplayLearningModePromptsForCompositions();
void sDisplayPracticeModePromptsForCompositions();
// Label22 names the part on show: "Asthai" or "Antara".
void sSetupForCurrCompPart();
void sGetReadyToPlaySegment();

void sBindPlayComposition1Events(platform::Screen& screen);

// The Export menu: the composition on the screen, both parts, saved through
// the export's dialogs under the name "<raga> - <composition>". Offered
// only while nothing sounds, as a sound export rebuilds the parts' files.
void sExportComposition(ExportFormat format);
