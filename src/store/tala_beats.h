// Beat count of a tala, read from "Tala - Technical Information" of the
// library store gDbA. No state of its own.
#pragma once

#include <cstdint>

// "Beat Count" of the tala; 0 when the tala is missing or no store is open.
std::int16_t fGetBeatCountForTala(std::int16_t talaId);
