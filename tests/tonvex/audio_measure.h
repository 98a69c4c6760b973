// Measurements of rendered audio for the tonvex and sound tests: reading a file,
// pitch by long-lag correlation, RMS, band level, largest step, zero-crossing
// rate, and a
// scratch directory for output files. Stateless.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tonvex_test {

// Samples of a wave file the library wrote, as floats (full scale 1.0);
// empty if it cannot be read.
std::vector<float> readSamples(const std::string& path);

// Frequency in Hz of the periodic signal in [from, to), near expectedHz
// (within 3 %): the lag of best normalised correlation over one period, then
// over as many periods as fit, refined by a parabola and divided by them.
double measureHz(const std::vector<float>& x, size_t from, size_t to, double expectedHz);

double centsBetween(double hz, double referenceHz);

double rms(const std::vector<float>& x, size_t from, size_t to);

// Largest |x[n] - x[n-1]| for n in [from, to).
double maxStep(const std::vector<float>& x, size_t from, size_t to);

// Level in dB of the component at hz in [from, to): one bin of a
// Hann-windowed DFT, scaled so that the bins of a band add up to its mean
// square (full scale 0 dB).
double toneLevelDb(const std::vector<float>& x, size_t from, size_t to, double hz);

// Level in dB of the components between loHz and hiHz in [from, to): the
// power of those bins.
double bandLevelDb(const std::vector<float>& x, size_t from, size_t to, double loHz, double hiHz);

// Zero crossings per second in [from, to): a rough measure of brightness.
double zeroCrossingRate(const std::vector<float>& x, size_t from, size_t to);

// A fresh directory for this test's files, and a file name in it.
std::string scratchFile(const std::string& name);

inline bool fileExists(const std::string& path) { return std::filesystem::exists(path); }

// Sample index of a time in milliseconds.
inline size_t at(double ms) { return static_cast<size_t>(ms * 44.1); }

}  // namespace tonvex_test
