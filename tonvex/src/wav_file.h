// Reading and writing 16-bit mono PCM wave files at 44100 Hz, through
// libsndfile; the files have the canonical 44-byte header. Writing goes to
// "<path>.part", block by block or at once, and is renamed to path only when
// complete, so a failed or interrupted write never leaves a valid-looking
// file. Stateless apart from an open writer's file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "sample_sink.h"

namespace tonvex {

// Opens a streaming wave file writer on "<path>.part"; finish() completes the
// header's sizes and renames it to path. nullptr when the file cannot be
// opened, or when path or "<path>.part" is there and is not a regular file
// (a device, pipe, folder or link is never replaced). A write that would
// take the file past the format's 2 GB fails.
std::unique_ptr<FileSink> openWavFileSink(const std::string& path);

// Writes the samples; false if the file cannot be written (nothing is left),
// or if path or "<path>.part" is there and is not a regular file (a device,
// pipe, folder or link is never replaced).
bool writeWavFile(const std::string& path, std::span<const int16_t> samples);

// Reads a file in the format writeWavFile produces: mono, 16-bit PCM, 44100 Hz.
// Anything else, a truncated file (its data chunk longer than the file) or an
// empty one gives nullopt.
std::optional<std::vector<int16_t>> readWavFile(const std::string& path);

// Reads at most count samples from sample `from` on of such a file (fewer
// when the file ends before); nullopt as readWavFile, or when from is at or
// past the end. The file's length in samples goes to *totalSamples.
std::optional<std::vector<int16_t>> readWavRange(const std::string& path, size_t from,
                                                 size_t count, size_t* totalSamples);

}  // namespace tonvex
