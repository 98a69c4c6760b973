// Tests of the content check on fixture files. Each fixture marks the
// faults it holds with "# expect: <Fault>" comments, each naming a fault
// reported at the next line that is neither a comment nor blank; the check
// must report exactly those faults at exactly those lines.
#include "content_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace {

using contentcheck::Fault;

// The faults' names, in the order of contentcheck::Fault.
const std::vector<std::string> kFaultNames = {
    "IllegalNote",  "BadDuration", "CountMismatch",   "PakadDurationsRunOut", "TalaCycle", "SyllableCount",
    "MissingPart",  "MissingPrompt", "DuplicateName", "NoteOutsideRaga",      "BadNoteIds", "MissingRow",
    "GroupCount",   "FilmSongShipped", "ThekaIncomplete", "TechnicalData", "VibhagData"};

std::string fixture(const std::string& name) { return std::string(NADAVIK_FIXTURE_DIR) + "/" + name; }

// (fault name, line) pairs, sorted, for comparison as multisets.
using Expectations = std::vector<std::pair<std::string, int>>;

Expectations markedFaults(const std::string& path) {
  Expectations out;
  std::vector<std::string> pending;
  std::ifstream in(path);
  std::string line;
  const std::string marker = "# expect: ";
  for (int n = 1; std::getline(in, line); ++n) {
    if (line.rfind(marker, 0) == 0) {
      const std::string name = line.substr(marker.size());
      EXPECT_NE(std::find(kFaultNames.begin(), kFaultNames.end(), name), kFaultNames.end()) << path << ":" << n;
      pending.push_back(name);
    } else if (!line.empty() && line[0] != '#') {
      for (const std::string& f : pending) out.push_back({f, n});
      pending.clear();
    }
  }
  std::sort(out.begin(), out.end());
  return out;
}

std::vector<nvstore::Row> rowsOf(const std::vector<std::string>& names) {
  std::vector<nvstore::Row> rows;
  for (const std::string& name : names) {
    const nvstore::RecordFile f = nvstore::readRecordFile(fixture(name));
    EXPECT_TRUE(f.errors.empty()) << name << ": " << (f.errors.empty() ? "" : f.errors[0].text());
    rows.insert(rows.end(), f.rows.begin(), f.rows.end());
  }
  return rows;
}

std::string describe(const std::vector<contentcheck::Problem>& problems) {
  std::string s;
  for (const auto& p : problems) s += "  " + p.text() + "\n";
  return s;
}

class MarkedFixture : public ::testing::TestWithParam<const char*> {};

TEST_P(MarkedFixture, ReportsExactlyTheMarkedFaults) {
  const std::string name = GetParam();
  // the theka and vibhag fixtures bring their own talas; the others share talas.rec
  const bool ownTalas = name == "theka.rec" || name == "vibhag.rec";
  const auto files = ownTalas ? std::vector<std::string>{name} : std::vector<std::string>{"talas.rec", name};
  const auto problems = contentcheck::checkContent(rowsOf(files), {});
  Expectations found;
  for (const auto& p : problems)
    if (p.file == fixture(name)) found.push_back({kFaultNames.at(static_cast<std::size_t>(p.fault)), p.line});
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, markedFaults(fixture(name))) << "reported:\n" << describe(problems);
  EXPECT_EQ(found.size(), problems.size()) << describe(problems);
}

INSTANTIATE_TEST_SUITE_P(Fixtures, MarkedFixture,
                         ::testing::Values("clean.rec", "illegal-notes.rec", "durations.rec", "pakad.rec",
                                           "tala.rec", "syllables.rec", "duplicates.rec",
                                           "outside-notes.rec", "film-song.rec", "missing.rec", "theka.rec", "technical.rec",
                                           "vibhag.rec"),
                         [](const auto& param) {
                           std::string n = param.param;
                           n = n.substr(0, n.find('.'));
                           n.erase(std::remove(n.begin(), n.end(), '-'), n.end());
                           return n;
                         });

std::vector<contentcheck::Problem> only(Fault fault, const std::vector<contentcheck::Problem>& all) {
  std::vector<contentcheck::Problem> out;
  std::copy_if(all.begin(), all.end(), std::back_inserter(out), [&](const auto& p) { return p.fault == fault; });
  return out;
}

nvstore::Row row(const char* table, std::vector<nvstore::Field> fields) {
  return {table, "generated.rec", 1, std::move(fields)};
}

TEST(WholeLibrary, FilmSongsAreNeverShipped) {
  const auto rows = rowsOf({"talas.rec", "clean.rec"});
  EXPECT_TRUE(only(Fault::FilmSongShipped, contentcheck::checkContent(rows, {false})).empty());
  const auto shipped = only(Fault::FilmSongShipped, contentcheck::checkContent(rows, {true}));
  ASSERT_EQ(shipped.size(), 1u);
  EXPECT_EQ(shipped[0].file, fixture("clean.rec"));
}

TEST(WholeLibrary, EveryPromptTheScreensFetchMustBeThere) {
  std::vector<nvstore::Row> rows;
  for (int id = 1; id <= 100; ++id) {
    if (id == 5 || id == 97) continue;  // missing
    const std::string text = id == 60 ? "" : "A prompt";  // empty counts as missing
    rows.push_back(row("Prompts", {{"Prompt Id", std::to_string(id), 1}, {"Prompt", text, 1}}));
  }
  const auto missing = only(Fault::MissingPrompt, contentcheck::checkContent(rows, {true}));
  ASSERT_EQ(missing.size(), 1u) << describe(missing);
  EXPECT_EQ(missing[0].message, "prompts missing or empty: 5, 60, 97");
  EXPECT_EQ(only(Fault::MissingPrompt, contentcheck::checkContent({}, {true}))[0].message,
            "prompts missing or empty: 1-71, 87-97");
  // prompts 72 to 86 are not fetched by any screen
  EXPECT_TRUE(only(Fault::MissingPrompt, contentcheck::checkContent(rows, {false})).empty());
}

TEST(WholeLibrary, GroupsHoldThirtyTwentyAndTwentyRagas) {
  auto ragas = [](int g1, int g2, int g3, int g4) {
    std::vector<nvstore::Row> rows;
    int id = 0;
    for (auto [level, count] : {std::pair{1, g1}, {2, g2}, {3, g3}, {4, g4}})
      for (int i = 0; i < count; ++i, ++id)
        rows.push_back(row("RagaNameList", {{"Raga", "R" + std::to_string(id), 1},
                                            {"Raga Index", std::to_string(id + 1), 1},
                                            {"Level", std::to_string(level), 1}}));
    auto sizes = only(Fault::GroupCount, contentcheck::checkContent(rows, {true}));
    // keep the faults of the groups as a whole, not of single misplaced ragas
    std::erase_if(sizes, [](const auto& p) { return p.line != 0; });
    return sizes;
  };
  EXPECT_TRUE(ragas(30, 20, 20, 0).empty());
  EXPECT_EQ(ragas(31, 20, 20, 0).size(), 1u);
  EXPECT_EQ(ragas(30, 20, 19, 1).size(), 2u);  // group 3 short, group 4 unknown
  EXPECT_EQ(ragas(0, 0, 0, 0).size(), 3u);
}

}  // namespace
