// What the stand-in for the working raga record's loader records.
#pragma once

#include <cstdint>

extern int gTestSetupCalls;            // calls of sSetupForCurrRaga so far
extern std::int16_t gTestSetupRagaId;  // gCurrRagaId at the last call

void sSetupForCurrRaga();
