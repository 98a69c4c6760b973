// The floors of src/: a file of one folder may include headers of its own
// folder and of folders on lower floors only, and no logic folder includes
// Qt. A new folder must be given its floor here and in
// docs/architecture.md before anything can include it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>

namespace {

namespace fs = std::filesystem;

const std::map<std::string, int> kFloors = {
    {"platform", 0}, {"core", 1},     {"notation", 2},  {"store", 3},    {"display", 4},
    {"keyboard", 5}, {"sound", 6},    {"control", 7},   {"export", 7},   {"player", 8},   {"workbench", 8},
    {"scales", 8},   {"composer", 8}, {"exploration", 9}, {"browsing", 10}, {"quiz", 10},
    {"sampler", 10}, {"app", 11}};

TEST(Layering, EveryIncludePointsToTheSameOrALowerFloor) {
  const fs::path src = fs::path(NADAVIK_SOURCE_DIR) / "src";
  const std::regex quoted(R"re(^\s*#\s*include\s*"([a-z_]+)/[^"]+")re");
  const std::regex qt(R"re(^\s*#\s*include\s*<Q)re");
  int filesRead = 0;
  for (const auto& entry : fs::recursive_directory_iterator(src)) {
    if (!entry.is_regular_file()) continue;
    const fs::path relative = fs::relative(entry.path(), src);
    if (relative.begin() == relative.end() || std::next(relative.begin()) == relative.end())
      continue;  // the program's files at the top of src/ stand above every floor
    const std::string ext = entry.path().extension().string();
    if (ext != ".cpp" && ext != ".h") continue;
    const std::string folder = relative.begin()->string();
    ASSERT_TRUE(kFloors.count(folder)) << "src/" << folder << " has no floor";
    ++filesRead;
    std::ifstream in(entry.path());
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
      const std::string where = relative.string() + ":" + std::to_string(number);
      if (folder != "platform") {
        EXPECT_FALSE(std::regex_search(line, qt)) << where << " includes Qt";
      }
      std::smatch match;
      if (!std::regex_search(line, match, quoted)) continue;
      const std::string target = match[1];
      if (target == folder || !kFloors.count(target)) continue;
      EXPECT_LT(kFloors.at(target), kFloors.at(folder))
          << where << ": src/" << folder << " includes " << target << "/, a floor above or beside it";
    }
  }
  EXPECT_GT(filesRead, 100);
}

}  // namespace
