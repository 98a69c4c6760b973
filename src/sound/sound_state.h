// State of the tuning and the drone, kept for the whole process: the SPC
// corrections of the note set being tuned, the vectors saved for a user
// scale, the scale shift being applied and the last drone loudness step.
#pragma once

#include <array>
#include <cstdint>

// Instrument types of the tuning tables: the main (harmonium) set and the
// drone (tanpura) set.
constexpr std::int16_t kMainInstrument = 1;
constexpr std::int16_t kDroneInstrument = 2;
// Music sets 1 to 12 are built in (id = tonic id, rows in the library
// store); higher ids are the user's scales, in the user store.
constexpr std::int16_t kLastBuiltInSetId = 12;

// One SPC correction per absolute note number; 0 to 40 are used, 41 is spare.
constexpr int kNoteAdjustSize = 42;
using NoteAdjustVector = std::array<float, kNoteAdjustSize>;

// A pitch-shifted scale: the note the user tuned (absolute number of the
// middle S of the shifted scale, tonic id + 9), its recorded SPC and the SPC
// it was tuned to. NewSPC below BaseSPC raises the scale.
struct ScaleShiftSpec {
  std::int32_t RefNote = 0;
  float BaseSPC = 0.0f;
  float NewSPC = 0.0f;
};

// SPC delta of each note for the set being worked on; zeroed before filling.
extern NoteAdjustVector gNoteAdjust;
// The vectors of the main and the drone set, saved for storing a user scale.
extern NoteAdjustVector gMainAdjust;
extern NoteAdjustVector gDroneAdjust;
extern ScaleShiftSpec gScaleShiftSpec;
// +1 after "Louder", -1 after "Softer" on the drone menu.
extern std::int16_t gDroneStep;
