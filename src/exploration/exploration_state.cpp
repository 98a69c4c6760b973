// State of the Raga Exploration screen (see exploration_state.h).
#include "exploration/exploration_state.h"

std::int16_t gComparePick = 1;
std::string gCurrNotation;
std::string gLastLearnNotation;
std::int16_t gLastLearnSpeed = 0;
std::string gRagaNotesText;
std::int16_t gUserItemsShown = 0;
std::int16_t gUserScalesShown = 0;
std::int16_t gModeFrameShown = 0;
std::string gComparedRagaName;
