// End-to-end tests of the nvstore-build program: a store built from a
// small source tree, the depfile it writes, a second schema file, failing
// sources that leave the last good store alone, and a user store that is
// made once and then left alone.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include "../support/helpers.h"

namespace {

namespace fs = std::filesystem;

class NvstoreBuild : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(dir / "content" / "ragas");
    fs::create_directories(dir / "screens");
    write("schema.sql",
          "CREATE TABLE \"Tala - Technical Information\" (\"Tala Id\" INTEGER NOT NULL, "
          "\"Tala Name\" TEXT, \"Beat Count\" INTEGER, PRIMARY KEY (\"Tala Id\"));"
          "CREATE TABLE NVForms (\"Form Name\" TEXT, \"Form Id\" INTEGER, TotalControlCount INTEGER);"
          "CREATE TABLE NVFormControls (\"Form Id\" INTEGER, \"Control Index\" INTEGER, LocRatX REAL,"
          " LocRatY REAL, SizRatWidth REAL, SizRatHeight REAL);");
    write("shared.sql",
          "CREATE TABLE Prompts (\"Prompt Id\" INTEGER NOT NULL, Prompt TEXT, PRIMARY KEY (\"Prompt Id\"));");
    write("content/prompts.rec", "[Prompts]\nPrompt Id = 1\nPrompt = Listen\n");
    write("content/ragas/talas.rec", "[Tala - Technical Information]\nTala Id = 6\nTala Name = Dadra\nBeat Count = 6\n");
    write("screens/Quiz.screen", "screen Quiz id=20 caption=\"Quiz\"\nbutton cPlay caption=\"&Play\" at=0.1,0.2 size=0.1,0.05\n");
  }
  TempFolder dir;

  void write(const std::string& name, const std::string& text) { std::ofstream(dir / name) << text; }

  std::string read(const std::string& name) { return fileText(dir / name); }

  // Runs the tool with the given arguments; returns its exit status.
  int run(const std::string& args) {
    const std::string command = std::string(NVSTORE_BUILD) + " " + args + " > " + (dir / "out.txt").string() + " 2>&1";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  // The library store from both schemas, the content and the screens.
  int build() {
    return run("--schema " + (dir / "schema.sql").string() + " --schema " + (dir / "shared.sql").string() + " --out " +
               (dir / "mrA.nvy").string() + " --content " + (dir / "content").string() + " --screens " +
               (dir / "screens").string() + " --depfile " + (dir / "mrA.d").string());
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

TEST_F(NvstoreBuild, BuildsTheStoreFromRecordsAndScreensAndNamesEverySourceInTheDepfile) {
  ASSERT_EQ(build(), 0) << read("out.txt");
  EXPECT_EQ(scalar("SELECT \"Tala Name\" FROM \"Tala - Technical Information\""), "Dadra");
  EXPECT_EQ(scalar("SELECT Prompt FROM Prompts"), "Listen");
  EXPECT_EQ(scalar("SELECT \"Form Name\" || '/' || \"Form Id\" || '/' || TotalControlCount FROM NVForms"), "Quiz/20/1");
  std::istringstream dep(read("mrA.d"));
  std::string target, word;
  dep >> target;
  EXPECT_EQ(target, (dir / "mrA.nvy").string() + ":");
  std::set<std::string> inputs;
  while (dep >> word)
    if (word != "\\") inputs.insert(word);
  std::set<std::string> expected;
  for (const char* part : {"schema.sql", "shared.sql", "content/ragas/talas.rec", "content/prompts.rec",
                           "screens/Quiz.screen", "content", "content/ragas", "screens"})
    expected.insert((dir / part).string());
  EXPECT_EQ(inputs, expected);
}

// A faulty record, screen or schema fails the build, names its file and
// line, and leaves the store of the last good build as it was.
TEST_F(NvstoreBuild, AFaultySourceFailsAndNamesFileAndLine) {
  ASSERT_EQ(build(), 0);
  const std::string good = read("mrA.nvy");
  const struct { const char* file; std::string text, message; } cases[] = {
      {"content/ragas/bad.rec", "[Tala - Technical Information]\nTala Id = 7\nBeat Count = twelve\n",
       "bad.rec:3: column 'Beat Count' needs a number"},
      {"content/ragas/bad.rec", std::string("[Prompts]\nPrompt Id = 2\nPrompt = a\0b\n", 37),
       "bad.rec:3: the line holds a NUL byte"},
      {"screens/Bad.screen", "screen Bad id=2\nwidget W\n", "Bad.screen:2:"},
      {"shared.sql", "CREATE TABLE (", "shared.sql:"},
  };
  for (const auto& c : cases) {
    const std::string before = read(c.file);
    write(c.file, c.text);
    EXPECT_EQ(build(), 1) << c.file;
    EXPECT_NE(read("out.txt").find(c.message), std::string::npos) << read("out.txt");
    EXPECT_EQ(read("mrA.nvy"), good);
    EXPECT_FALSE(fs::exists(dir / "mrA.nvy.part"));
    if (before.empty()) fs::remove(dir / c.file); else write(c.file, before);
  }
  fs::remove(dir / "schema.sql");
  EXPECT_EQ(build(), 1);
  EXPECT_NE(read("out.txt").find((dir / "schema.sql").string() + ":0: cannot read the schema"), std::string::npos);
}

TEST_F(NvstoreBuild, KeepExistingLeavesAUserStoreAloneAndBadArgumentsShowTheUsage) {
  const std::string args = "--schema " + (dir / "schema.sql").string() + " --out " + (dir / "mrB.nvy").string() +
                           " --keep-existing";
  ASSERT_EQ(run(args), 0);
  ASSERT_TRUE(fs::exists(dir / "mrB.nvy"));
  write("mrB.nvy", "the user's own data");
  EXPECT_EQ(run(args), 0);
  EXPECT_EQ(read("mrB.nvy"), "the user's own data");
  EXPECT_EQ(run("--bogus"), 2);
  EXPECT_NE(read("out.txt").find("usage:"), std::string::npos);
}

}  // namespace
