// State of the Workshop screen (see workbench_state.h).
#include "workbench/workbench_state.h"

std::int16_t gWBMode = 0;
std::int16_t gPatternSource = 0;
std::int16_t gStdPatternIndex = 0;
std::int16_t gWBKeyAction = 2;
std::int16_t gWBListUse = 0;
std::int16_t gSliderMoved = 0;
std::int16_t gWBPlayKind = 2;
std::int16_t gNoteLength = 200;
std::array<std::string, 2> gMeendNotes;
std::string gWBNotation;
std::string gWBShownNotation;
std::string gRagaScalePhrase;
std::int16_t gDefPatternMode = 2;
std::int16_t gOptionStage = 0;
std::int16_t gCountPage = 1;
std::string gSpecStart, gSpecDir, gSpecKind;
std::int32_t gSpecCount = 0;
std::array<bool, 7> gMenuBarItemStatus{};
std::string gQuizNote;
