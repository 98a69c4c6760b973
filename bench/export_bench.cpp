// Whole-raga export from the Raga Exploration screen in the whole program
// (program harness: real screens on Qt offscreen, the built stores): the
// menu's Whole Raga entry from the click to the renamed file, as a PDF
// notation sheet, a MIDI file and a FLAC file (every phrase built by the
// program's music-file path, then encoded). The file dialog and the paper box are
// answered at once, so the time is the capture of every item, the writing
// and the rename. Counters: the raga's items and the file's size.
#include <benchmark/benchmark.h>

#include <QApplication>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "control/screen_manager.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "program_harness.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "whole_program_main.h"

using platform::EventKind;

namespace {

namespace fs = std::filesystem;

constexpr std::int16_t kYaman = 1;

class ExportStage {
 public:
  ExportStage() {
    program_.start();
    program_.clock().advance(7000);
    program_.fire("Nadavik", "cTimer", EventKind::Timer);
    if (gTipSignal == 1) program_.fire("Nadavik", "cOK", EventKind::Click);
    program_.fire("Nadavik", "cMnuExpRag", EventKind::Click);
    gCurrRagaId = kYaman;
    gCurrRagaName = fGetRagaName(kYaman);
    sSetupForCurrRaga();
    sMainOperations(0);
    program_.windows().setFileChooser([this](const std::string&) { return target_.string(); });
    program_.windows().setChoiceResponder([](const std::string&, const std::vector<std::string>&) { return 0; });
  }
  bool ready() const { return gCurrFormId == kFormMainOperations && program_.messages().empty(); }
  // Exports the whole raga into `name`; the file's size, 0 when none was made.
  std::uintmax_t exportWholeRaga(const char* menu, const char* name) {
    target_ = program_.folder() / name;
    program_.fire("MainOperations", menu, EventKind::Click);
    std::error_code error;
    const auto size = fs::file_size(target_, error);
    return error ? 0 : size;
  }
  int items() { return program_.screen("MainOperations").control("cNVIllusList").listCount(); }

 private:
  ProgramHarness program_;
  fs::path target_;
};

std::unique_ptr<ExportStage> gStage;

ExportStage& stage() {
  if (!gStage) gStage = std::make_unique<ExportStage>();
  return *gStage;
}

void exportBench(benchmark::State& state, const char* menu, const char* name) {
  ExportStage& s = stage();
  if (!s.ready()) {
    state.SkipWithError("the program could not be set up on Yaman");
    return;
  }
  std::uintmax_t bytes = 0;
  for (auto _ : state) bytes = s.exportWholeRaga(menu, name);
  if (bytes == 0) state.SkipWithError("no file was made");
  state.counters["items"] = s.items();
  state.counters["file_bytes"] = static_cast<double>(bytes);
}

void BM_WholeRagaAsPdf(benchmark::State& state) { exportBench(state, "cMnuXptRagPdf", "Yaman.pdf"); }
void BM_WholeRagaAsMidi(benchmark::State& state) { exportBench(state, "cMnuXptRagMid", "Yaman.mid"); }
void BM_WholeRagaAsFlac(benchmark::State& state) { exportBench(state, "cMnuXptRagSnd", "Yaman.flac"); }

BENCHMARK(BM_WholeRagaAsPdf)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_WholeRagaAsMidi)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_WholeRagaAsFlac)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  return runWholeProgramBenchmarks(argc, argv, [] { gStage.reset(); });
}
