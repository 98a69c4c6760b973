// The records tonvex-seeds writes for the store: their tables, counts and
// columns, read back the way the store tool reads them.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "tonvex/seed_design.h"

namespace {

using Row = std::map<std::string, std::string>;

// Rows by table, from "[Table]" headers and "Column = value" lines.
std::map<std::string, std::vector<Row>> readRecords(const std::string& path) {
  std::map<std::string, std::vector<Row>> tables;
  std::ifstream in(path);
  std::vector<Row>* rows = nullptr;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line.front() == '[' && line.back() == ']') {
      rows = &tables[line.substr(1, line.size() - 2)];
      rows->emplace_back();
    } else if (const size_t eq = line.find(" = "); rows != nullptr && eq != std::string::npos) {
      rows->back()[line.substr(0, eq)] = line.substr(eq + 3);
    }
  }
  return tables;
}

// The tool's output, written once for all tests into the temporary directory.
const std::map<std::string, std::vector<Row>>& records() {
  static const auto tables = [] {
    const std::string path = (std::filesystem::temp_directory_path() /
                              ("tonvex-seeds-" + std::to_string(::getpid()) + ".rec"))
                                 .string();
    const int status = std::system((std::string(TONVEX_SEEDS_TOOL) + " " + path).c_str());
    auto result = status == 0 ? readRecords(path) : std::map<std::string, std::vector<Row>>{};
    std::filesystem::remove(path);
    return result;
  }();
  return tables;
}

TEST(SeedRecordsTest, BothSetsHoldFortyOneNotesWithWholePeriods) {
  ASSERT_TRUE(records().count("Note Specifications"));
  const auto& specs = records().at("Note Specifications");
  ASSERT_EQ(specs.size(), 82u);
  size_t expectedSamples = 0;
  for (const Row& row : specs) {
    EXPECT_TRUE(row.at("Instr Name") == "c" || row.at("Instr Name") == "e");
    const int type = row.at("Instr Name") == "c" ? tonvex::kInstrumentMain : tonvex::kInstrumentDrone;
    const double spc = std::stod(row.at("SamPerCyc")) + std::stod(row.at("Fractional Value"));
    EXPECT_NEAR(spc, 44100.0 / tonvex::seedHz(type, std::stoi(row.at("Note Id"))), 1e-6);
    expectedSamples += std::stoul(row.at("SamPerCyc")) + 1;
  }
  const auto& samples = records().at("Sample Values");
  EXPECT_EQ(samples.size(), expectedSamples);
  EXPECT_EQ(samples.front().at("Sample Id"), "0");
  EXPECT_EQ(samples.front().size(), 4u);
}

TEST(SeedRecordsTest, TuningRowsCoverEveryTonicAndInstrument) {
  ASSERT_TRUE(records().count("ONPR"));
  const auto& sets = records().at("ONPRSets");
  const auto& onpr = records().at("ONPR");
  ASSERT_EQ(sets.size(), 24u);
  ASSERT_EQ(onpr.size(), 24u);
  for (const Row& row : sets) EXPECT_EQ(row.size(), 2u + 27u);
  for (const Row& row : onpr) {
    EXPECT_EQ(row.size(), 4u + 27u);
    EXPECT_EQ(row.at("NPSetId"), row.at("TonicNoteId"));
    EXPECT_EQ(row.at("07"), "0");  // the middle Sa keeps its seed's tuning
  }
  EXPECT_EQ(onpr.front().at("NPSetName"), "NV Scale White-7 (B)");
  EXPECT_EQ(sets.front().at("26"), "3");
}

}  // namespace
