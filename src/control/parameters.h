// Usage parameters: what the user last chose (tonic, music set, window
// geometry, script, delays, tips), kept as rows of `User Parameters` in the
// user store, read at start and written at the stop.
#pragma once

#include <string>

namespace platform {
class Recordset;
}

void sSetDefaultOptions();
void sSaveUsageParameters();
std::string fGetUserParameter(const std::string& name);
void sClearParameterValue(platform::Recordset& parameters);
void sClearUpTpETables();
std::string fGetNVVerString();
void sCheckSetNVVersion();
// The text a value is stored as: a plain number with no format applied.
std::string fNumberText(double value);
