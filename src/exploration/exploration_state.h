// State of the Raga Exploration screen that outlives one event: the item's
// store class, the choices of the mode and replay buttons, the notation of
// the last Play, the raga's notes text and which lists are on show.
#pragma once

#include <cstdint>
#include <string>

extern std::int16_t gComparePick;        // 1 or 2: which raga of a comparison to replay
extern std::string gCurrNotation;        // the notation box's text at the last Play
extern std::string gLastLearnNotation;   // notation and slider value of the last Learning set-up
extern std::int16_t gLastLearnSpeed;
extern std::string gRagaNotesText;       // thata, jati, time and notes of the raga
extern std::int16_t gUserItemsShown;     // -1 when the user's list has items, else 0
extern std::int16_t gUserScalesShown;    // -1 when there are user-defined scales, else 0
extern std::int16_t gModeFrameShown;     // always -1 once the screen is open
extern std::string gComparedRagaName;    // the other raga of a comparison

