// Drone parameters, drone type by raga and drone loudness steps. Keeps no
// state of its own; see drone.h for the session variables it uses.
#include "sound/drone.h"

#include <cmath>

#include "core/errors.h"
#include "core/session.h"
#include "sound/sound_state.h"
#include "sound/step_result.h"
#include "sound/tuning_math.h"
#include "tonvex/tonvex.h"

namespace {

// The drone's loudness counted in whole tenths of its factor: 5 (0.5) to
// 15 (1.5), one tenth a step.
constexpr long kDroneTenthsMax = 15;
constexpr long kDroneTenthsMin = 5;
constexpr double kTenth = 10.0;

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

// The limits are compared in whole tenths, not on the running binary sum:
// five steps of 0.1 down from 1.0 leave 0.50000000000000011, which is still
// above 0.5, so a sixth Softer took the drone to 0.4, below its floor.
double fSteppedDroneFactor(double factor, std::int16_t step) {
  const long tenths = std::lround(factor * kTenth);
  if (step == 1 && tenths < kDroneTenthsMax) return static_cast<double>(tenths + 1) / kTenth;
  if (step == -1 && tenths > kDroneTenthsMin) return static_cast<double>(tenths - 1) / kTenth;
  return factor;
}

std::int16_t fAdjustDroneVolume() {
  NV_PROC("fAdjustDroneVolume");
  gWavOption = 1;
  gCurrDroneFactor = fSteppedDroneFactor(gCurrDroneFactor, gDroneStep);
  return fStepFailed(fBuildDroneData(), "Error in Building DroneData") ? 0 : 1;
}
