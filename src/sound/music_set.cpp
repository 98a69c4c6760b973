// Loading, tuning and naming the music set in use. Keeps no state of its own.
#include "sound/music_set.h"

#include "core/errors.h"
#include "core/session.h"
#include "notation/vocabulary.h"
#include "sound/drone.h"
#include "sound/onpr_rows.h"
#include "sound/seeds.h"
#include "sound/sound_state.h"
#include "sound/step_result.h"
#include "sound/tuning.h"

namespace {

// Loads one set's seeds and tunes them by the music set's corrections.
bool loadTunedSet(const std::string& setName, std::int16_t instrumentType,
                  const char* loadMessage, const char* adjustMessage) {
  if (fStepFailed(fLoadNoteSeeds(setName), loadMessage)) return false;
  sLoadNoteAdjustSPCVector(setName, instrumentType, gCurrMusicSetId);
  return !fStepFailed(fAdjustNoteSeeds(setName, instrumentType), adjustMessage);
}

}  // namespace

std::int16_t fCreateNoteSeedsForUse() {
  NV_PROC("fCreateNoteSeedsForUse");
  if (!loadTunedSet(gMainSetName, kMainInstrument, "Error loading Main Note Seeds",
                    "Error adjusting Main Note Seeds"))
    return 0;
  if (!loadTunedSet(gDroneSetName, kDroneInstrument, "Error loading Drone Note Seeds",
                    "Error adjusting Drone Note Seeds"))
    return 0;
  return fStepFailed(fBuildDroneData(), "Error building Drone Data") ? 0 : 1;
}

std::int16_t fAdjustScaleNotesToCurrentSetting([[maybe_unused]] std::int16_t setId) {
  NV_PROC("fAdjustScaleNotesToCurrentSetting");
  std::int16_t result = 1;
  if (fStepFailed(fCreateNoteSeedsForUse(), "Error Creating Note Seeds")) result = 0;
  if (fStepFailed(fApplyScaleShift(gScaleShiftSpec), "Error in applying music set")) result = 0;
  if (fStepFailed(fBuildDroneData(), "Error in building Drone Data")) result = 0;
  return result;
}

std::string fGetScaleInfo() {
  NV_PROC("fGetScaleInfo");
  const std::string tonicName = fGetTonicNoteName(gCurrTonicNoteId);
  if (gCurrMusicSetId > kLastBuiltInSetId)
    return "Using User-defined scale '" + gCurrMusicSetName + "' with " + tonicName +
           " as nominal 'sA' (Tonic Note)";
  return "Using NV Scale with " + tonicName + " As 'sA' (Tonic Note)";
}
