// Test environment for the tests that run the real core without the whole
// program: the trace and forgiven-fault files go to a temporary data folder
// of their own, removed at the end, never to the current or root folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <unistd.h>

#include "core/session.h"

namespace {

class CoreEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    folder_ = std::filesystem::temp_directory_path() /
              ("nadavik-core-test-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder_);
    gDataPath = folder_.string();
    gErrTraceFile = gDataPath + "/errtrace.txt";
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

 private:
  std::filesystem::path folder_;
};

const ::testing::Environment* const kEnvironment =
    ::testing::AddGlobalTestEnvironment(new CoreEnvironment);

}  // namespace
