// Runs the content check on the shipped content folder: every fault fails,
// the completeness ones (group sizes 30/20/20, missing prompts) included.
#include "content_check.h"

#include <gtest/gtest.h>

#include "source_files.h"

namespace {

TEST(ShippedContent, ReadsAndPassesEveryCheck) {
  std::vector<nvstore::Row> rows;
  const auto files = nvstore::filesUnder(NADAVIK_CONTENT_DIR, ".rec");
  ASSERT_FALSE(files.empty());
  for (const std::string& f : files) {
    const nvstore::RecordFile r = nvstore::readRecordFile(f);
    for (const auto& e : r.errors) ADD_FAILURE() << e.text();
    rows.insert(rows.end(), r.rows.begin(), r.rows.end());
  }
  for (const auto& p : contentcheck::checkContent(rows, {true})) ADD_FAILURE() << p.text();
}

}  // namespace
