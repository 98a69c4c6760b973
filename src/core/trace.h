// Trace file and the error trap's reports.
#pragma once

#include <cstdint>
#include <string>

void sTrace(std::int16_t mode);
// A line in the trace file, written whether or not tracing is on: a saved
// value that was not used, or a store that was upgraded, is worth knowing
// about when something seems to have been forgotten.
void sTraceLine(const std::string& line);
std::int16_t fIgnorable();
void sFillErrorParam();
void sProgramErrorExit();
// Ends the run through the halt procedure that the screen manager installs
// (it unloads the screens up the parent chain, deletes the wave file now
// playing and unloads the main window), so that this core knows no screen.
// Without one, only the wave file is deleted. Either way the greeting drone
// file goes too, when this run holds the user store (and so owns the file).
void sHaltProgramExecution();
// The status the process ends with: 0 until a halt, then 1, so that a run
// ended by a fatal error or a refusal is told from an orderly exit.
int fExitStatus();
void sSetExitStatus(int status);
using HaltProcedure = void (*)();
void sSetHaltProcedure(HaltProcedure procedure);

// "Monday, November 23, 2026" padded to the next 14-character print zone,
// then the time: the date-and-time line of the trace and error reports.
std::string fDateTimeLine();
