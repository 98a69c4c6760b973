// What the stand-in for the working raga record's loader records. The
// stand-in object is linked before the store library, so its
// sSetupForCurrRaga is the one the raga grid calls.
#pragma once

#include <cstdint>

extern int gTestSetupCalls;            // calls of sSetupForCurrRaga so far
extern std::int16_t gTestSetupRagaId;  // gCurrRagaId at the last call
