// Usage parameters: what the user last chose (tonic, music set, window
// geometry, script, delays, tips), kept as rows of `User Parameters` in the
// user store, read at start and written at the stop.
#pragma once

#include <string>

namespace platform {
class Database;
class Recordset;
}

void sSetDefaultOptions();
// Moves the marks' per-note lead from the old default, 10 ms, to the new one
// on each screen that still holds it (a lead the user trimmed stays), with a
// line in the trace: the upgrade of a user store to version 2.
void sMoveOldMarkLeads(platform::Database& store);
void sSaveUsageParameters();
// Leaves the usage parameters in the user store as they are at the stop of
// this run, instead of writing the run's own over them: the settings carried
// over from an older installation take effect at the next start.
void sKeepStoredParametersAtStop();
std::string fGetUserParameter(const std::string& name);
void sClearParameterValue(platform::Recordset& parameters);
void sClearUpTpETables();
std::string fGetNVVerString();
void sCheckSetNVVersion();
// The text a value is stored as: a plain number with no format applied.
std::string fNumberText(double value);
