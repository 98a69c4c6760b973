// The main() of the benchmarks that run the whole program in process
// (offscreen unless a platform is asked for): the Qt application, then the
// benchmarks, then `releaseStage`, which lets the program's windows go
// before the application does.
#pragma once

#include <QApplication>
#include <benchmark/benchmark.h>
#include <cstdlib>

inline int runWholeProgramBenchmarks(int argc, char** argv, void (*releaseStage)() = nullptr) {
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (releaseStage) releaseStage();
  return 0;
}
