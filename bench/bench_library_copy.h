// Set-up shared by the benchmarks that run on the built library store: a
// private copy of it opened as gDbA, and the session's sound defaults.
// Keeps no state of its own; it sets session variables only.
#pragma once

#include <filesystem>
#include <string>

namespace benchsupport {

// Copies the built store storeFile into a fresh folder nadavik-<name>-<pid>
// of the temporary directory and opens the copy as gDbA (stores are opened
// exclusively, so each benchmark works on its own). Returns the folder.
std::filesystem::path openLibraryCopy(const std::string& name, const char* storeFile);

// Closes gDbA and removes the folder openLibraryCopy made.
void closeLibraryCopy(const std::filesystem::path& folder);

// Main set c and drone set e, music set 3 on tonic 3, drone type 1 at
// factor 1.0 in mode 1.
void setSoundDefaults();

// What making music files needs on top of the sound defaults: both
// synthesis sets, the tabla kit kitFile as theka instrument 4 and the wave
// files A, B and C in folder.
void setMusicFileDefaults(const std::filesystem::path& folder, const char* kitFile);

}  // namespace benchsupport
