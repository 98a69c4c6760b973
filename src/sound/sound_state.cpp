// Definitions of the tuning and drone state declared in sound_state.h.
#include "sound/sound_state.h"

NoteAdjustVector gNoteAdjust{};
NoteAdjustVector gMainAdjust{};
NoteAdjustVector gDroneAdjust{};
ScaleShiftSpec gScaleShiftSpec;
std::int16_t gDroneStep = 0;
