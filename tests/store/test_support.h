// What the store tests' stand-in error trap records, and the small stores
// the tests run on.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

extern long gTestForgivenCount;  // forgiven faults raised so far
extern long gTestLastForgiven;   // number of the last one

extern int gTestDroneAdjustments;  // calls of sAdjustDroneType

// State of other modules, defined by the stand-ins.
extern std::int16_t gFirstReed;
extern std::int16_t gLastReed;
extern std::int16_t gCompListMode;

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
