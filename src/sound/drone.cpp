// Drone parameters, drone type by raga and drone loudness steps. Keeps no
// state of its own; see drone.h for the session variables it uses.
#include "sound/drone.h"

#include "control/errors.h"
#include "control/session.h"
#include "sound/sound_state.h"
#include "sound/step_result.h"
#include "store/positioning.h"
#include "tonvex/tonvex.h"

namespace {

constexpr double kDroneFactorMax = 1.5;
constexpr double kDroneFactorMin = 0.5;
constexpr double kDroneFactorStep = 0.1;

}  // namespace

std::int16_t fBuildDroneData() {
  NV_PROC("fBuildDroneData");
  const bool dataFolderMode = gDroneMode == 2;
  const std::int16_t result =
      dataFolderMode
          ? FWavLoadDroneData(gDataPath + "/", gCurrTonicNoteId + 9, gCurrDroneType,
                              gDroneSetName, gCurrDroneFactor, 2)
          : FWavLoadDroneData("", gCurrTonicNoteId + 21, gCurrDroneType, gDroneSetName,
                              gCurrDroneFactor, 1);
  return fStepFailed(result, "Error in FWavLoadDroneData") ? 0 : 1;
}

void sAdjustDroneType(platform::Recordset& recordset) {
  NV_PROC("sAdjustDroneType");
  sSetTablePKRecord(recordset, static_cast<int>(gCurrRagaId));
  if (recordset.noMatch()) return;
  const auto droneType = static_cast<std::int32_t>(recordset.field("DroneType").asInteger());
  if (droneType == gCurrDroneType) return;
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
