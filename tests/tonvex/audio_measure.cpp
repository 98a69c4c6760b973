// Audio measurements for the tonvex and sound tests. Stateless.
#include "audio_measure.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>

#include "wav_file.h"

namespace tonvex_test {

std::vector<float> readSamples(const std::string& path) {
  std::vector<float> out;
  if (const auto samples = tonvex::readWavFile(path))
    for (int16_t s : *samples) out.push_back(s / 32767.0f);
  return out;
}

namespace {

double correlation(const std::vector<float>& x, size_t from, size_t length, size_t lag) {
  double xy = 0, xx = 0, yy = 0;
  for (size_t n = from; n < from + length; ++n) {
    xy += double(x[n]) * x[n + lag];
    xx += double(x[n]) * x[n];
    yy += double(x[n + lag]) * x[n + lag];
  }
  return xx > 0 && yy > 0 ? xy / std::sqrt(xx * yy) : 0.0;
}

// The lag of best correlation in [lo, hi], refined by a parabola.
double bestLag(const std::vector<float>& x, size_t from, size_t length, size_t lo, size_t hi) {
  size_t best = lo;
  double bestValue = -2.0;
  for (size_t lag = lo; lag <= hi; ++lag)
    if (const double c = correlation(x, from, length, lag); c > bestValue) bestValue = c, best = lag;
  const double left = correlation(x, from, length, best - 1);
  const double right = correlation(x, from, length, best + 1);
  return double(best) + 0.5 * (left - right) / (left - 2 * bestValue + right);
}

}  // namespace

double measureHz(const std::vector<float>& x, size_t from, size_t to, double expectedHz) {
  if (to > x.size() || to <= from) return 0.0;
  const size_t length = (to - from) / 2;
  const double expected = 44100.0 / expectedHz;
  // One period first, within 3 %; then many periods, within 0.4 of a period.
  const double period = bestLag(x, from, length, size_t(expected * 0.97), size_t(expected * 1.03) + 1);
  const double periods = std::floor(double(length) / period);
  const double lag = bestLag(x, from, length, size_t(periods * period - 0.4 * period),
                             size_t(periods * period + 0.4 * period));
  return 44100.0 * periods / lag;
}

double centsBetween(double hz, double referenceHz) { return 1200.0 * std::log2(hz / referenceHz); }

double rms(const std::vector<float>& x, size_t from, size_t to) {
  double sum = 0;
  for (size_t n = from; n < to; ++n) sum += double(x[n]) * x[n];
  return std::sqrt(sum / double(to - from));
}

double maxStep(const std::vector<float>& x, size_t from, size_t to) {
  double step = 0;
  for (size_t n = std::max<size_t>(from, 1); n < to; ++n)
    step = std::max(step, double(std::fabs(x[n] - x[n - 1])));
  return step;
}

double toneLevelDb(const std::vector<float>& x, size_t from, size_t to, double hz) {
  const double n = double(to - from), pi = 3.141592653589793;
  double re = 0.0, im = 0.0;
  for (size_t i = from; i < to; ++i) {
    const double t = double(i - from), w = 0.5 - 0.5 * std::cos(2 * pi * t / n);
    re += w * x[i] * std::cos(2 * pi * hz * t / 44100.0);
    im -= w * x[i] * std::sin(2 * pi * hz * t / 44100.0);
  }
  return 10.0 * std::log10((re * re + im * im) * 16.0 / (3.0 * n * n) + 1e-30);
}

double bandLevelDb(const std::vector<float>& x, size_t from, size_t to, double loHz, double hiHz) {
  const double binHz = 44100.0 / double(to - from);
  double power = 0.0;  // Parseval over the band's bins, the Hann window's power 3/8
  for (double hz = std::ceil(loHz / binHz) * binHz; hz < hiHz; hz += binHz)
    power += std::pow(10.0, toneLevelDb(x, from, to, hz) / 10.0);
  return 10.0 * std::log10(power + 1e-30);
}

double zeroCrossingRate(const std::vector<float>& x, size_t from, size_t to) {
  int crossings = 0;
  for (size_t n = from + 1; n < to; ++n) crossings += (x[n - 1] < 0) != (x[n] < 0);
  return crossings * 44100.0 / double(to - from);
}

std::string scratchFile(const std::string& name) {
  const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string test = std::string(info->test_suite_name()) + "." + info->name();
  for (char& c : test)
    if (c == '/') c = '_';
  const auto dir = std::filesystem::temp_directory_path() / "tonvex-tests" /
                   (test + "." + std::to_string(::getpid()));
  std::filesystem::create_directories(dir);
  return (dir / name).string();
}

}  // namespace tonvex_test
