// Stand-in for the keyboard display's range of reeds on show, which the
// query catalogue reads; the sound tests never run the reed query.
#include <cstdint>

std::int16_t gFirstReed = 0;
std::int16_t gLastReed = 0;
