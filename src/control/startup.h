// Program control: the start-up and stop sequences, the main window's
// controller sNVControl, the fixed values set once at start, the font check
// and the tips.
#pragma once

#include <cstdint>
#include <string>

#include "control/program_folders.h"

namespace platform {
class Screen;
}

// The connect string both stores are opened with (accepted and ignored by
// the SQLite engine, which has no passwords).
inline constexpr const char* kConnectString = "MS ACCESS;PWD=QtLrBeHuVcPoD";

// Where the program runs from, reads and writes (see program_folders.h), and
// what it was started with; main() sets these before the main window loads.
void sSetProgramLocation(const ProgramFolders& folders, const std::string& commandLine);

void sNVControl(std::int16_t event);
void sSetGlobalVariables();
void sCheckCommandLine();
void sCheckFont();
std::int16_t fSushaExists();
std::int16_t fInstallSusha();
std::int16_t fGetNVTipCount();
void sLoadNextTip();
void sInitApp1();
void sInitApp2(std::int16_t step);
void sDeleteWavFiles();
void sDeleteWavFilePair(const std::string& name);
void sTerminateApp();
std::string fGetTempFilesPathName();

// Event handlers of the main window and the opening screen.
void sBindNadavikEvents(platform::Screen& screen);
void sBindOpeningScreenEvents(platform::Screen& screen);
