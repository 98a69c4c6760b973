// Runs the content check on the shipped content folder. Until every
// writer's ragas and the prompts are in, the completeness faults (group
// sizes, prompts) are only reported unless NADAVIK_REQUIRE_COMPLETE_CONTENT
// is set, which the finished product builds with.
#include "content_check.h"

#include <gtest/gtest.h>

#include "source_files.h"

namespace {

bool completenessFault(contentcheck::Fault f) {
  return f == contentcheck::Fault::GroupCount || f == contentcheck::Fault::MissingPrompt;
}

TEST(ShippedContent, ReadsAndPassesEveryCheck) {
  std::vector<nvstore::Row> rows;
  const auto files = nvstore::filesUnder(NADAVIK_CONTENT_DIR, ".rec");
  ASSERT_FALSE(files.empty());
  for (const std::string& f : files) {
    const nvstore::RecordFile r = nvstore::readRecordFile(f);
    for (const auto& e : r.errors) ADD_FAILURE() << e.text();
    rows.insert(rows.end(), r.rows.begin(), r.rows.end());
  }
  for (const auto& p : contentcheck::checkContent(rows, {true})) {
    if (completenessFault(p.fault) && !NADAVIK_REQUIRE_COMPLETE_CONTENT)
      std::cout << "(not yet required) " << p.text() << "\n";
    else
      ADD_FAILURE() << p.text();
  }
}

}  // namespace
