// Reading and writing 16-bit mono PCM wave files at 44100 Hz. Writing goes to
// "<path>.part" and is renamed to path only when complete, so a failed or
// interrupted write never leaves a valid-looking file. Stateless.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tonvex {

// Writes the samples; false if the file cannot be written (nothing is left),
// or if path or "<path>.part" is there and is not a regular file (a device,
// pipe, folder or link is never replaced).
bool writeWavFile(const std::string& path, std::span<const int16_t> samples);

// Reads a file in the format writeWavFile produces: mono, 16-bit PCM, 44100 Hz.
// Anything else, or a truncated file, gives nullopt.
std::optional<std::vector<int16_t>> readWavFile(const std::string& path);

}  // namespace tonvex
