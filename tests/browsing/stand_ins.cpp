// A stand-in for the working raga record's loader, which the browsing tests
// do not need: it counts its calls and remembers the raga it was called for.
#include "stand_ins.h"

#include "core/session.h"
#include "store/working_record.h"

int gTestSetupCalls = 0;
std::int16_t gTestSetupRagaId = 0;

void sSetupForCurrRaga() {
  ++gTestSetupCalls;
  gTestSetupRagaId = gCurrRagaId;
}
