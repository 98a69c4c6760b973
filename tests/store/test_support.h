// The small stores the store tests run on.
#pragma once

#include <filesystem>

// A temporary directory holding a library store and a user store built
// from the schema with a few rows; opens them as gDbA (read-only) and gDbB
// (writable), both exclusive, and closes and removes everything at the end.
class TestStores {
 public:
  TestStores();
  ~TestStores();
  TestStores(const TestStores&) = delete;
  TestStores& operator=(const TestStores&) = delete;

 private:
  std::filesystem::path dir_;
};
