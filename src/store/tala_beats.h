// Beat count and divisions (vibhags) of a tala, read from "Tala - Technical
// Information" of the library store gDbA. No state of its own.
#pragma once

#include <cstdint>
#include <vector>

#include "notation/vibhags.h"

// "Beat Count" of the tala; 0 when the tala is missing or no store is open.
std::int16_t fGetBeatCountForTala(std::int16_t talaId);

// The tala's divisions in order, each with its first beat, length and mark
// ("x" sam, "0" khali, a number for another tali); empty when the tala is
// missing, no store is open, or its divisions are absent or malformed (the
// content check refuses those in the shipped library).
std::vector<Vibhag> fGetVibhagsForTala(std::int16_t talaId);
