// End-to-end tests of the nvstore-build program: a store built from a
// small source tree, the depfile it writes, a second schema file, a failing
// source, and a user store that is made once and then left alone.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

class NvstoreBuild : public ::testing::Test {
 protected:
  fs::path dir = fs::temp_directory_path() / ("nvstore_build_test_" + std::to_string(::getpid()));

  void SetUp() override {
    fs::remove_all(dir);
    fs::create_directories(dir / "content" / "ragas");
    fs::create_directories(dir / "screens");
    write("schema.sql",
          "CREATE TABLE \"Tala - Technical Information\" (\"Tala Id\" INTEGER NOT NULL, "
          "\"Tala Name\" TEXT, \"Beat Count\" INTEGER, PRIMARY KEY (\"Tala Id\"));"
          "CREATE TABLE NVForms (\"Form Name\" TEXT, \"Form Id\" INTEGER, TotalControlCount INTEGER);"
          "CREATE TABLE NVFormControls (\"Form Id\" INTEGER, \"Control Index\" INTEGER, LocRatX REAL,"
          " LocRatY REAL, SizRatWidth REAL, SizRatHeight REAL);");
    write("content/ragas/talas.rec", "[Tala - Technical Information]\nTala Id = 6\nTala Name = Dadra\nBeat Count = 6\n");
    write("screens/Quiz.screen", "screen Quiz id=20 caption=\"Quiz\"\nbutton cPlay caption=\"&Play\" at=0.1,0.2 size=0.1,0.05\n");
  }
  void TearDown() override { fs::remove_all(dir); }

  void write(const std::string& name, const std::string& text) { std::ofstream(dir / name) << text; }

  std::string read(const std::string& name) {
    std::ifstream in(dir / name);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }

  // Runs the tool with the given extra arguments; returns its exit status.
  int run(const std::string& args) {
    const std::string command = std::string(NVSTORE_BUILD) + " --schema " + (dir / "schema.sql").string() + " " +
                                args + " > " + (dir / "out.txt").string() + " 2>&1";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::string libraryArgs() {
    return "--out " + (dir / "mrA.nvy").string() + " --content " + (dir / "content").string() + " --screens " +
           (dir / "screens").string() + " --depfile " + (dir / "mrA.d").string();
  }

  std::string scalar(const char* sql) {
    sqlite3* db = nullptr;
    sqlite3_open((dir / "mrA.nvy").string().c_str(), &db);
    sqlite3_stmt* st = nullptr;
    std::string out;
    if (sqlite3_prepare_v2(db, sql, -1, &st, nullptr) == SQLITE_OK && sqlite3_step(st) == SQLITE_ROW)
      out = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
    sqlite3_finalize(st);
    sqlite3_close(db);
    return out;
  }
};

TEST_F(NvstoreBuild, BuildsTheStoreFromRecordsAndScreens) {
  ASSERT_EQ(run(libraryArgs()), 0) << read("out.txt");
  EXPECT_EQ(scalar("SELECT \"Tala Name\" FROM \"Tala - Technical Information\""), "Dadra");
  EXPECT_EQ(scalar("SELECT \"Form Name\" || '/' || \"Form Id\" || '/' || TotalControlCount FROM NVForms"), "Quiz/20/1");
  EXPECT_EQ(scalar("SELECT LocRatY FROM NVFormControls"), "0.2");
}

TEST_F(NvstoreBuild, DepfileNamesEverySourceAndFolder) {
  ASSERT_EQ(run(libraryArgs()), 0) << read("out.txt");
  std::istringstream dep(read("mrA.d"));
  std::string target, word;
  dep >> target;
  EXPECT_EQ(target, (dir / "mrA.nvy").string() + ":");
  std::set<std::string> inputs;
  while (dep >> word)
    if (word != "\\") inputs.insert(word);
  for (const char* part : {"schema.sql", "content/ragas/talas.rec", "screens/Quiz.screen", "content",
                           "content/ragas", "screens"})
    EXPECT_TRUE(inputs.count((dir / part).string())) << part;
  EXPECT_EQ(inputs.size(), 6u);
}

TEST_F(NvstoreBuild, AFaultyRecordFailsAndNamesFileAndLine) {
  ASSERT_EQ(run(libraryArgs()), 0);
  write("content/ragas/bad.rec", "[Tala - Technical Information]\nTala Id = 7\nBeat Count = twelve\n");
  EXPECT_EQ(run(libraryArgs()), 1);
  EXPECT_NE(read("out.txt").find("bad.rec:3: column 'Beat Count' needs a number"), std::string::npos)
      << read("out.txt");
  // the store of the last good build is still there and unchanged
  EXPECT_EQ(scalar("SELECT COUNT(*) FROM \"Tala - Technical Information\""), "1");
}

TEST_F(NvstoreBuild, AFaultyScreenFailsTheBuild) {
  write("screens/Bad.screen", "screen Bad id=2\nwidget W\n");
  EXPECT_EQ(run(libraryArgs()), 1);
  EXPECT_NE(read("out.txt").find("Bad.screen:2:"), std::string::npos) << read("out.txt");
  EXPECT_FALSE(fs::exists(dir / "mrA.nvy"));
}

TEST_F(NvstoreBuild, KeepExistingLeavesAUserStoreAlone) {
  const std::string args = "--out " + (dir / "mrA.nvy").string() + " --keep-existing";
  ASSERT_EQ(run(args), 0);
  ASSERT_TRUE(fs::exists(dir / "mrA.nvy"));
  write("mrA.nvy", "the user's own data");
  EXPECT_EQ(run(args), 0);
  EXPECT_EQ(read("mrA.nvy"), "the user's own data");
}

TEST_F(NvstoreBuild, ASecondSchemaAddsItsTablesAndCountsAsASource) {
  write("shared.sql", "CREATE TABLE Prompts (\"Prompt Id\" INTEGER NOT NULL, Prompt TEXT, "
                      "PRIMARY KEY (\"Prompt Id\"));");
  write("content/prompts.rec", "[Prompts]\nPrompt Id = 1\nPrompt = Listen\n");
  const std::string shared = "--schema " + (dir / "shared.sql").string() + " ";
  ASSERT_EQ(run(shared + libraryArgs()), 0) << read("out.txt");
  EXPECT_EQ(scalar("SELECT Prompt FROM Prompts"), "Listen");
  EXPECT_EQ(scalar("SELECT \"Tala Name\" FROM \"Tala - Technical Information\""), "Dadra");
  EXPECT_NE(read("mrA.d").find((dir / "shared.sql").string()), std::string::npos);
}

TEST_F(NvstoreBuild, AMissingSchemaFailsAndIsNamed) {
  const std::string missing = (dir / "missing.sql").string();
  EXPECT_EQ(run("--schema " + missing + " " + libraryArgs()), 1);
  EXPECT_NE(read("out.txt").find(missing + ":0: cannot read the schema"), std::string::npos)
      << read("out.txt");
  EXPECT_FALSE(fs::exists(dir / "mrA.nvy"));
}

TEST_F(NvstoreBuild, BadArgumentsShowTheUsage) {
  EXPECT_EQ(run("--bogus"), 2);
  EXPECT_NE(read("out.txt").find("usage:"), std::string::npos);
}

}  // namespace
