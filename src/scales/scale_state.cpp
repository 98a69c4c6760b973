// The session values of the ScaleShifting screen (see scale_state.h).
#include "scales/scale_state.h"

std::int16_t gScaleState = kIdentifyTonic;
std::int16_t gScaleListUse = kListsScales;
NamingFor gNamingFor = NamingFor::NewScale;
std::int16_t gPlayedLabel = 0;
std::int16_t gPrevLabel = -1;
std::int16_t gSavedNotationScript = 2;
std::int16_t gSavedTonic = 3;
std::int16_t gSavedMusicSetId = 3;
std::string gSavedMusicSetName;
double gBaseSPC = 0;
double gNewSPC = 0;
double gTestSPC = 0;
double gSPCDelta = 0;
double gSPCOfNoteAbove = 0;
double gSPCOfNoteBelow = 0;
std::int16_t gSensitivity = 0;
std::array<float, 4> gSensitivitySteps{1.0f, 0.3f, 0.1f, 0.0f};
std::int16_t gGrpButtons = 0;
std::int16_t gGrpControls = 0;
std::int16_t gGrpHeaders = 0;
std::int16_t gGrpKB = 0;
std::int16_t gGrpOperations = 0;
std::int16_t gGrpOptFrms = 0;
