// Drone parameters, drone type by raga and drone loudness steps. Keeps no
// state of its own; see drone.h for the session variables it uses.
#include "sound/drone.h"

#include "core/errors.h"
#include "core/session.h"
#include "sound/sound_state.h"
#include "sound/step_result.h"
#include "sound/tuning_math.h"
#include "tonvex/tonvex.h"

namespace {

constexpr double kDroneFactorMax = 1.5;
constexpr double kDroneFactorMin = 0.5;
constexpr double kDroneFactorStep = 0.1;

}  // namespace

std::int16_t fBuildDroneData() {
  NV_PROC("fBuildDroneData");
  // Mode 1 (the one in use) sounds the drone from the upper S slot; mode 2
  // from the middle S, with the data folder as path.
  const std::int16_t result =
      gDroneMode == 2
          ? FWavLoadDroneData(gDataPath + "/", gCurrTonicNoteId + kMiddleSaAboveTonic,
                              gCurrDroneType, gDroneSetName, gCurrDroneFactor, 2)
          : FWavLoadDroneData("", gCurrTonicNoteId + kUpperSaAboveTonic, gCurrDroneType,
                              gDroneSetName, gCurrDroneFactor, 1);
  return fStepFailed(result, "Error in FWavLoadDroneData") ? 0 : 1;
}

void sAdjustDroneType(std::int32_t droneType) {
  NV_PROC("sAdjustDroneType");
  if (droneType < 0 || droneType == gCurrDroneType) return;
  gCurrDroneType = droneType;
  fStepFailed(fBuildDroneData(), "Error in loading drone data");
}

double fSteppedDroneFactor(double factor, std::int16_t step) {
  if (step == 1 && factor < kDroneFactorMax) return factor + kDroneFactorStep;
  if (step == -1 && factor > kDroneFactorMin) return factor - kDroneFactorStep;
  return factor;
}

std::int16_t fAdjustDroneVolume() {
  NV_PROC("fAdjustDroneVolume");
  gWavOption = 1;
  gCurrDroneFactor = fSteppedDroneFactor(gCurrDroneFactor, gDroneStep);
  return fStepFailed(fBuildDroneData(), "Error in Building DroneData") ? 0 : 1;
}
