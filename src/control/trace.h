// Trace file and the error trap's reports.
#pragma once

#include <cstdint>

void sTrace(std::int16_t mode);
std::int16_t fIgnorable();
void sFillErrorParam();
void sProgramErrorExit();
void sHaltProgramExecution();
void sMnuTraceCheck();
