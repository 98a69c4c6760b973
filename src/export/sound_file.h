// Encoding an export's wave files into one sound file with libsndfile: WAV
// (16-bit PCM), FLAC (16-bit) or Ogg Vorbis, chosen by the file's
// extension, the items joined with kPauseBetweenItemsMs of silence between
// them. Runs on any thread. No state.
#pragma once

#include <functional>
#include <string>
#include <vector>

// The libsndfile format for a file name's extension (.wav, .flac, .ogg,
// any case); 0 for any other.
int fSoundFormatFor(const std::string& path);

// Writes the waves of each item, item after item, into outFile. Answers ""
// when written whole, "cancelled" when progress answered false, otherwise
// why it failed. progress(fraction) is told after each wave.
std::string fEncodeSound(const std::vector<std::vector<std::string>>& itemWaves, const std::string& outFile,
                         int format, const std::function<bool(double)>& progress);
