// Stand-ins for the error trap and session state while the notation library
// is tested, fuzzed or benchmarked on its own. sRaiseError throws ErrorTrap
// for every fatal error and records the forgiven ones (6, 11, 3075).
#pragma once

#include <vector>

// Forgiven error numbers raised since the last clear.
std::vector<long>& forgivenErrors();
