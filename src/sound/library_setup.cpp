// Start-up of the synthesis library and the drone greeting. Keeps no state.
#include "sound/library_setup.h"

#include <cstddef>

#include "core/errors.h"
#include "core/session.h"
#include "sound/music_set.h"
#include "sound/step_result.h"
#include "tonvex/tonvex.h"

namespace {

// Loads the tabla kit file of gThekaInstrument (1 to 5); a number without
// a file counts as a failed load.
std::int16_t fLoadThekaInstrument() {
  const std::size_t index = static_cast<std::size_t>(gThekaInstrument) - 1;
  if (gThekaInstrument < 1 || index >= gInstrLibFiles.size()) return 0;
  return FWavLoadThekaData(gInstrLibFiles[index], gThekaInstrument);
}

}  // namespace

bool fStartSoundLibrary() {
  NV_PROC("fStartSoundLibrary");
  return !fStepFailed(FWavSetGlobalVariables(gSynthNames), "Error in Setting GlobalVariables") &&
         !fStepFailed(FWavSetCurrInstr(gMainSetName), "Error in Setting Instrument Name") &&
         !fStepFailed(fCreateNoteSeedsForUse(), "Error in Creating Note Seeds") &&
         !fStepFailed(fLoadThekaInstrument(), "Error in Loading Theka Data");
}

bool fGenerateGreetingDrone() {
  NV_PROC("fGenerateGreetingDrone");
  return !fStepFailed(FWavGenerateDroneFile(gDroneCycles, gDroneWavFile, 1),
                      "Error in generating drone file");
}
