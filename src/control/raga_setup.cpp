// A raga made current with its sound (see raga_setup.h).
#include "control/raga_setup.h"

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "sound/drone.h"
#include "sound/music_set.h"
#include "store/lookups.h"
#include "store/working_record.h"

void sSetupRagaAndSound() {
  NV_PROC("sSetupRagaAndSound");
  sSetupForCurrRaga();
  if (gTRaga.RagaId == 0) return;  // missing or damaged: reported already, no seeds
  const std::int32_t droneType = fGetRagaDroneType(gCurrRagaId);
  if (droneType == kNoSuchRaga || droneType == gCurrDroneType) return;
  gCurrDroneType = droneType;
  if (fCreateNoteSeedsForUse() == 0) sShowMessage("Error in setting up for current Raga");
}

std::int16_t fSetupSeqRaga(std::int16_t n) {
  NV_PROC("fSetupSeqRaga");
  const std::int16_t ragaId = fGetSeqRagaId(n);
  if (ragaId != 0) sAdjustDroneType(fGetRagaDroneType(ragaId));
  return ragaId;
}
