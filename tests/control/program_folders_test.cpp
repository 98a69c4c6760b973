// Where the program reads and writes: the read-only data of a build folder
// and of an installed layout, the XDG folders set, unset and not absolute,
// the self-contained folder of NADAVIK_DATA_FOLDER, and the move of a user
// store left beside a build-folder program.
#include "control/program_folders.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

class ProgramFoldersTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = fs::temp_directory_path() / ("nadavik-folders-" + std::to_string(getpid()));
    fs::remove_all(root_);
    fs::create_directories(root_ / "build");
    fs::create_directories(root_ / "usr/bin");
    fs::create_directories(root_ / "usr/share/nadavik");
    std::ofstream(root_ / "usr/share/nadavik/mrA.nvy") << "library";
  }
  void TearDown() override { fs::remove_all(root_); }
  std::string at(const char* relative) const { return (root_ / relative).string(); }

  fs::path root_;
};

TEST_F(ProgramFoldersTest, DataFromTheLayoutAndUserFilesFromTheXdgFolders) {
  const struct {
    const char* name;
    const char* program;
    FolderEnvironment environment;
    ProgramFolders expected;  // program folder left out: always the given one
  } cases[] = {
      {"build folder, XDG unset", "build", {"", "", "", "/home/u"},
       {"", at("build"), "/home/u/.local/share/nadavik", "/home/u/.local/state/nadavik"}},
      {"installed, XDG set", "usr/bin", {"", "/x/data", "/x/state", "/home/u"},
       {"", at("usr/share/nadavik"), "/x/data/nadavik", "/x/state/nadavik"}},
      {"XDG not absolute is ignored", "usr/bin", {"", "rel/data", "rel/state", "/home/u"},
       {"", at("usr/share/nadavik"), "/home/u/.local/share/nadavik", "/home/u/.local/state/nadavik"}},
      {"one self-contained folder", "usr/bin", {"/copy", "/x/data", "/x/state", "/home/u"},
       {"", "/copy", "/copy", "/copy"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const ProgramFolders got = fResolveProgramFolders(at(c.program), c.environment);
    EXPECT_EQ(got.program, at(c.program));
    EXPECT_EQ(got.data, c.expected.data);
    EXPECT_EQ(got.user, c.expected.user);
    EXPECT_EQ(got.state, c.expected.state);
  }
}

TEST_F(ProgramFoldersTest, TheUserGuideIsFoundInTheInstalledAndTheBuildLayout) {
  EXPECT_EQ(fUserGuidePage(fResolveProgramFolders(at("build"), {})), "");
  for (const char* page : {"usr/share/doc/nadavik/user-guide/index.html", "build/doc/user-guide/index.html"}) {
    fs::create_directories((root_ / page).parent_path());
    std::ofstream(root_ / page) << "<html>";
  }
  EXPECT_EQ(fUserGuidePage(fResolveProgramFolders(at("usr/bin"), {})),
            at("usr/share/doc/nadavik/user-guide/index.html"));
  EXPECT_EQ(fUserGuidePage(fResolveProgramFolders(at("build"), {})), at("build/doc/user-guide/index.html"));
}

TEST_F(ProgramFoldersTest, AnOldUserStoreBesideABuildFolderProgramMovesOnceAndNeverOverwrites) {
  const ProgramFolders build = fResolveProgramFolders(at("build"), {"", at("data"), at("state"), ""});
  ASSERT_TRUE(fMakeWritableFolders(build));
  std::ofstream(root_ / "build/mrB.nvy") << "old";
  EXPECT_NE(fMoveOldUserStore(build).find(at("data/nadavik/mrB.nvy")), std::string::npos);
  EXPECT_FALSE(fs::exists(root_ / "build/mrB.nvy"));

  std::ofstream(root_ / "build/mrB.nvy") << "older still";
  EXPECT_EQ(fMoveOldUserStore(build), "");
  std::ifstream kept(root_ / "data/nadavik/mrB.nvy");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), "old");
  EXPECT_TRUE(fs::exists(root_ / "build/mrB.nvy"));
}

}  // namespace
