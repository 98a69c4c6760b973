// A fresh temporary folder for one test, removed with everything in it when
// the object goes. Shared by the tests that work on files of their own.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "nadavik-test-XXXXXX").string();
    EXPECT_NE(mkdtemp(pattern.data()), nullptr) << pattern;
    path_ = pattern;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  std::string file(const std::string& name) const { return (path_ / name).string(); }
  std::string string() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};
