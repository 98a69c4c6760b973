// The session values of the ScaleShifting screen, kept for the process.
#pragma once

#include "core/session.h"  // gLabelIndex
#include <array>
#include <cstdint>
#include <string>

// The operation: identifying a tonic, tuning it, refining notes.
constexpr std::int16_t kIdentifyTonic = 0;
constexpr std::int16_t kTuneTonic = 1;
constexpr std::int16_t kRefineNotes = 2;
extern std::int16_t gScaleState;

// What a click in cScalesList means: 1 a scale, 2 a raga.
constexpr std::int16_t kListsScales = 1;
constexpr std::int16_t kListsRagas = 2;
extern std::int16_t gScaleListUse;

// What the name box is for: a new scale, or renaming the scale being
// refined (our addition).
enum class NamingFor { NewScale, Rename };
extern NamingFor gNamingFor;

extern std::int16_t gPlayedLabel;  // the reed of the note being worked on
extern std::int16_t gPrevLabel;    // the label last marked; -1 for none
extern std::int16_t gSavedNotationScript;
extern std::int16_t gSavedTonic;
// The music set and its name on entry, put back on leaving when the set
// still exists (our addition: leaving used to drop a user scale in use for
// the library scale of its tonic).
extern std::int16_t gSavedMusicSetId;
extern std::string gSavedMusicSetName;

// Periods in samples per cycle of the note being tuned.
extern double gBaseSPC;         // its recorded period
extern double gNewSPC;          // reached by the last tuning
extern double gTestSPC;         // under trial
extern double gSPCDelta;        // the correction given to the library
extern double gSPCOfNoteAbove;  // recorded period of the next higher note
extern double gSPCOfNoteBelow;  // recorded period of the next lower note

// 0 Coarse, 1 Medium, 2 Fine; the SPC step of each (entry 3 unused).
extern std::int16_t gSensitivity;
extern std::array<float, 4> gSensitivitySteps;

// The group masks in force (see scale_display.h).
extern std::int16_t gGrpButtons;
extern std::int16_t gGrpControls;
extern std::int16_t gGrpHeaders;
extern std::int16_t gGrpKB;
extern std::int16_t gGrpOperations;
extern std::int16_t gGrpOptFrms;
