// Trace file and the error trap's reports.
#pragma once

#include <cstdint>
#include <string>

void sTrace(std::int16_t mode);
std::int16_t fIgnorable();
void sFillErrorParam();
void sProgramErrorExit();
void sHaltProgramExecution();
void sMnuTraceCheck();

// "Monday, November 23, 2026" padded to the next 14-character print zone,
// then the time: the date-and-time line of the trace and error reports.
std::string fDateTimeLine();
