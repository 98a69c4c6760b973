// An export written through its temporary name: complete, or on Cancel at
// any point nothing new, with an older file of that name left as it was.
#include "export/export_job.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/qt/qt_pdf.h"

namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(ExportJob, CancelAtAnyReportLeavesTheOlderFileAndNoPart) {
  platform::setPdfSheetFactory(platform::qt::makeQtPdfSheet);
  const fs::path folder = fs::path(testing::TempDir()) / "nadavik-export-job";
  fs::create_directories(folder);
  Score score;
  score.ragaName = "Yaman";
  score.items.push_back({"Pakad", {{"N< R G", {{11, -1, 0, 500}, {14, -1, 500, 500}}, {}, 0}}, {}, {}});
  for (ExportFormat format : {ExportFormat::Midi, ExportFormat::Pdf}) {
    const fs::path path = folder / (format == ExportFormat::Midi ? "pakad.mid" : "pakad.pdf");
    std::ofstream(path) << "older";
    for (int cancelAt = 0; cancelAt < 3; ++cancelAt) {
      int reports = 0;
      const ExportOutcome outcome =
          fWriteExport(score, {format, path.string()}, [](int) { return TalaLayout{}; },
                       [&](double) { return reports++ != cancelAt; });
      if (reports <= cancelAt) continue;  // this format reports fewer times
      EXPECT_EQ(outcome.result, ExportResult::Cancelled);
      EXPECT_EQ(contents(path), "older");
      EXPECT_FALSE(fs::exists(fPartFileName(path.string())));
    }
    EXPECT_EQ(fWriteExport(score, {format, path.string()}, [](int) { return TalaLayout{}; }, [](double) { return true; })
                  .result,
              ExportResult::Written);
    EXPECT_NE(contents(path), "older");
    EXPECT_FALSE(fs::exists(fPartFileName(path.string())));
  }
}

}  // namespace
