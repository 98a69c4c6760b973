// What the sound tests share: a copy of the built library store and a fresh
// user store holding the user music set 13, opened as gDbA and gDbB; the
// session's sound defaults; a recording window system for message boxes;
// and pitch measurement of notes rendered by the synthesis library.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "recording_window_system.h"
#include "sound/tuning_math.h"

// The user music set stored in the test's user store: tonic 7, main row
// column i = kUserMainBase + i / 100, drone row column i = -(i / 100).
constexpr int kUserSetId = 13;
constexpr int kUserSetTonic = 7;
constexpr float kUserMainBase = 0.5f;

class SoundStoreTest : public ::testing::Test {
 public:
  // Runs SQL on the library store copy (which the program opens read-only)
  // and reopens it as gDbA.
  void changeLibraryStore(const std::string& sql);
  // Puts back a fresh copy of the built library store as gDbA.
  void resetLibraryStore();
  // The texts of the message boxes shown so far; fails the test when one was
  // not an information box titled "Message".
  std::vector<std::string> messageTexts() const;
  // Recorded SPC (SamPerCyc + Fractional Value) of a note of a set.
  double recordedSpc(const std::string& setName, int noteId) const;
  // The stored "ONPR" columns of a built-in set.
  OnprRow libraryOnpr(int setId, int instrumentType) const;
  std::filesystem::path file(const std::string& name) const { return dir_ / name; }

 protected:
  void SetUp() override;
  void TearDown() override;

  std::filesystem::path dir_;
  RecordingWindowSystem windows_;
};

// Renders one note of the current instrument set alone (no drone) through
// the synthesis library and returns its fundamental in Hz, measured over the
// steady middle of the note; expectedHz picks the period to look for (the
// measurement finds the true one within 1 % of it). 0 when rendering fails.
double fMeasureRenderedNoteHz(int noteId, double expectedHz, const std::filesystem::path& wavFile);

// Distance from b to a in cents.
double fCents(double aHz, double bHz);
