// Composer: the Composer screen (form id 27), where the user writes his own
// alap, layakari and taan phrases and compositions for a raga, plays them
// and keeps them in the user store.
//
// The screen steps through stages, each shown by its group of controls:
// choose a raga, choose a category, then for a new composition its words,
// its tala and its data (mukhada, starting beats, beat duration), or for an
// existing one the composition; then the work area of palettes and two
// rows of 20 slots. The editing model is row_images.h, the work area
// composer_slots.h, validation and saving composer_save.h.
//
// State: the values below, for as long as the screen is open.
#pragma once

#include <cstdint>

#include "export/export_job.h"

namespace platform {
class Screen;
}

extern std::int16_t gListUse;          // a click in cRagaList: 1 raga, 2 tala, 3 composition
extern std::int16_t gOKUse;            // cOK: 2 words done, 5 data done
extern std::int16_t gSelNotation;      // selected cNotation entry, -1 none
extern std::int16_t gPrevSelNotation;  // the entry shown as selected, -1 none
extern std::int16_t gSelTimeVal;       // selected cTimeVal entry, -1 none
extern std::int16_t gPrevSelTimeVal;
extern bool gInsertPending;            // the next slot click inserts
extern bool gDeletePending;            // the next slot click deletes
extern std::int16_t gBaseItemType;     // the category's item type, to return to after the raga's own phrases
extern std::int16_t gSavedMode;        // gCurrMode when the screen opened
extern std::int16_t gCompTalaId;       // the tala chosen for a new composition

// Controller of the screen. Events: 0 open; 1 list choice; 2 category; 3
// OK; 4, 5 palette marks; 6, 7, 8 main-note, grace-note and duration slot
// clicks; 9 Play; 11, 12 Move Down and Up; 13 New Category; 14 New Raga;
// 15 a syllable typed; 16 Save; 17, 18 Asthai and Antara; 19 playing
// ended; 20 leave; 21 the device's status; 22, 23 palette of the raga's or
// all notes; 24 script changed; 25 rename and 26 delete the user's own
// composition or phrases (with a confirmation). Other numbers do nothing.
void sComposer(std::int16_t event);
void sInitComposer();
void sTerminateComposer();
// Empties the header of the composition in hand and its data fields.
void sInitCompInfo();
// The phrase category in hand (gCurrAltType 1 to 3): "Alap", "Layakari" or
// "Taan".
const char* fCategoryName();
// The Export menu: the item Play would play (the category's phrases or
// the composition being written) saved through the export's dialogs under
// "<raga> - <item>". Offered only while nothing sounds.
void sExportComposerItem(ExportFormat format);
void sBindComposerEvents(platform::Screen& screen);
