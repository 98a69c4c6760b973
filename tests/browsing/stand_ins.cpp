// A stand-in for the working raga record's loader, which the browsing tests
// do not need: it counts its calls, remembers the raga it was called for and
// makes the working record that raga's, as the loader does for a raga found.
#include "stand_ins.h"

#include "control/session.h"
#include "store/working_record.h"

int gTestSetupCalls = 0;
std::int16_t gTestSetupRagaId = 0;

void sSetupForCurrRaga() {
  ++gTestSetupCalls;
  gTestSetupRagaId = gCurrRagaId;
  gTRaga.RagaId = gCurrRagaId;
}
