// Stand-ins for the modules around raga browsing that the browsing tests do
// not build: the working raga record's loader, which counts its calls and
// remembers the raga it was called for, and the state of the drone,
// keyboard and composer that the shared store look-ups refer to.
#include "stand_ins.h"

#include "control/session.h"
#include "platform/store.h"
#include "store/working_record.h"

int gTestSetupCalls = 0;
std::int16_t gTestSetupRagaId = 0;

void sSetupForCurrRaga() {
  ++gTestSetupCalls;
  gTestSetupRagaId = gCurrRagaId;
}

std::int16_t gFirstReed = 0;
std::int16_t gLastReed = 0;
std::int16_t gCompListMode = 1;

void sAdjustDroneType(platform::Recordset&) {}
