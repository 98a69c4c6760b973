// The one way sound steps report a failure: the synthesis library and the
// steps built on it give 1 for success, and anything else is told to the
// user in a message box titled "Message". Keeps no state.
#pragma once

#include <cstdint>
#include <string>

// True, after showing message, when result is not 1.
bool fStepFailed(std::int16_t result, const std::string& message);
