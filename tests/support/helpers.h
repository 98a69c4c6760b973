// Small helpers the tests share: a temporary folder of their own, the text of
// a file, and the number of the error an action throws.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

// A fresh temporary folder for one test, removed with everything in it when
// the object goes.
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

// The bytes of a file; empty when it cannot be read.
inline std::string fileText(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The number of the Error (a type with a `number`) that action throws; 0
// when it throws none.
template <class Error>
long errorNumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.number;
  }
  return 0;
}
