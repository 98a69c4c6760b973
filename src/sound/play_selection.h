// Playing one note, or one phrase already in generation form, straight
// from the synthesis library into A.wav on the current screen's cMM.
// No state of its own.
#pragma once

#include <cstdint>
#include <string>

// Plays absolute note number noteNumber for durationMs with the drone mix
// droneMix. False after "Error creating music file" when the library fails
// or writes an empty file.
bool fPlaySelectedNote(std::int16_t noteNumber, std::int32_t durationMs, std::int32_t droneMix);

// Plays count notes in generation form (tokens and milliseconds) at full
// level, without testing the library's result.
void sPlaySelectedPhrase(std::int32_t count, const std::string& notes, const std::string& durations,
                         std::int32_t droneMix);
