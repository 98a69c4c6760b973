// Program control: start-up, the main window, tips and the stop sequence.
//
// Start: the main window's Load event shows the opening screen; when the
// user goes on, sNVControl(0) sets the paths, takes the user store (a second
// copy is refused there, before it writes anything), starts a new trace
// file, reads the command line, sets the fixed values (checking the music
// files' folder), checks the font, opens both stores (the library
// read-only), reads the usage parameters and calls sInitApp1, which readies
// the sound library and greets the user with the drone. After the greeting's
// timer, sInitApp2 shows the tips and enables the menu.
// Stop: sNVControl(20) deletes the temporary wave files, saves the usage
// parameters, closes both stores and unloads the main window.
#include "control/startup.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "control/parameters.h"
#include "control/program_folders.h"
#include "control/screen_manager.h"
#include "control/screen_table.h"
#include "control/trace_menu.h"
#include "control/user_store.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "core/trace.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "sound/library_setup.h"
#include "sound/playback.h"
#include "sound/wave_folder.h"
#include "store/lookups.h"
#include "store/positioning.h"
#include "store/queries.h"
#include "store/schema_check.h"

namespace fs = std::filesystem;

namespace {

std::string gCommandLine;
// Why the temporary folder cannot take music files, "" when it can (checked
// once at the start).
std::string gWaveFolderFault;

const char* const kCredits =
    "Harmonium, tanpura and tabla are synthesised by Nadavik's own sound library. "
    "Ragas, phrases and compositions written for Nadavik.";

bool fileExists(const std::string& path) {
  std::error_code ec;
  return !path.empty() && fs::exists(path, ec);
}

void removeIfExists(const std::string& path) {
  std::error_code ec;
  if (!path.empty()) fs::remove(path, ec);
}

platform::Screen& mainWindow() { return *gMainMenuForm; }

void removeRunTempFolder() {
  std::error_code ec;
  if (!gTempPath.empty()) fs::remove_all(gTempPath, ec);
}

// Writes the start lines of a new trace file in place of the last run's.
// They are written beside it and renamed over it only when whole, so that a
// full disk leaves the last run's trace as it was, not an empty file. A
// data directory that cannot take them ends the start with a message that
// names it and the cause, as a second copy does, and false.
bool openErrorTraceFile() {
  const std::string fresh = gErrTraceFile + ".new";
  std::string cause;
  {
    std::ofstream out(fresh, std::ios::trunc);
    out << "\n" << "Opened Error Trace File" << "\n" << fDateTimeLine() << "\n\n";
    out.close();
    if (!out) cause = std::strerror(errno);
  }
  if (cause.empty()) {
    std::error_code ec;
    fs::rename(fresh, gErrTraceFile, ec);
    if (!ec) return true;
    cause = ec.message();
  }
  removeIfExists(fresh);
  sShowMessage("Nadavik cannot write its files in the folder '" + fProgramFolders().state + "' (" + cause +
               "). Please make room on that disk or make that folder writable for your user, "
               "and start Nadavik again.");
  sSetExitStatus(1);
  sCloseStores();
  fFormById(kFormNadavik)->unload();
  return false;
}

void readScriptFile() {
  std::ifstream in(gDataPath + "/NVScript.txt");
  if (!in) return;
  gScriptLines.assign(1, std::string());
  std::string line;
  while (std::getline(in, line)) {
    gScriptLines.push_back(line);
    ++gScriptLineCount;
  }
}

void fillMainLabels() {
  platform::Screen& s = mainWindow();
  s.control("Label4").setCaption("Nadavik\u2122");
  s.control("Label5").setCaption(
      "A comprehensive multi-media guide for Introduction to and Self-Instruction  of  Ragas of  "
      "North Indian Classical Music - Version " +
      fGetNVVerString());
  s.control("Label3").setCaption(kCredits);
}

// Maximises the main window for a moment to learn the largest area a screen
// can have. This is done while the window is hidden: a shown window would
// flash, and the window system's late report of the maximised state would
// be taken for the user's own choice.
void readMaximisedGeometry() {
  platform::Screen& s = mainWindow();
  s.setWindowState(2);
  gMaxFormH = s.height();
  gMaxFormL = s.left();
  gMaxFormT = s.top();
  gMaxFormW = s.width();
  s.setWindowState(0);
  gResizeEnabled = 0;
}

// Ends a start that cannot go on, with a non-zero exit status.
void refuseStart() {
  sSetExitStatus(1);
  fFormById(kFormNadavik)->unload();
}

// A second copy of the program must know that it is one before it writes
// anything (it used to empty the running copy's trace file). The first sign
// it can have is the user store's exclusive lock, so that store is opened
// first of all, before the trace file: a refusal there ends the start with
// "Nadavik is already running" and a non-zero exit status, with no file
// touched. A user store that fails for another reason is left to openStores,
// where the fault is reported as usual; a missing one means that no copy
// runs on this folder.
bool holdUserStore() {
  const std::string path = fProgramFolders().user + "/mrB.nvy";
  gDbB.reset();
  if (!fileExists(path)) return true;
  try {
    gDbB = platform::defaultWorkspace().openDatabase(path, true, false, kConnectString);
  } catch (const platform::StoreError& e) {
    if (e.number != 3045) return true;
    sShowMessage("Nadavik is already running");
    refuseStart();
    return false;
  }
  return true;
}

// Opens both stores and brings an older user store up to this version; false
// when the library store lacks a table or column the program reads (a
// damaged or foreign file), or the user store is of a newer version, after
// one message that names the file, and the halt. The library is shared,
// read-only data, opened read-only and not exclusively: an installed library
// on a read-only disk starts, and two users of one computer may both use it.
// A second copy is refused by the user store's lock alone (holdUserStore).
bool openStores() {
  gWorkspace = &platform::defaultWorkspace();
  gDbA = gWorkspace->openDatabase(gStoreAPath, false, true, kConnectString);
  if (auto missing = fFirstMissingSchemaItem(*gDbA, kLibraryStoreSchema)) {
    const std::string what = missing->column.empty()
                                 ? "the table '" + missing->table + "'"
                                 : "the column '" + missing->column + "' of the table '" +
                                       missing->table + "'";
    sShowMessage("Nadavik cannot start: its library file '" + gStoreAPath + "' is damaged (" +
                 what + " is missing). Please reinstall Nadavik.");
    sHaltProgramExecution();
    return false;
  }
  if (!gDbB) {
    sEnsureUserStore(gStoreBPath);
    gDbB = gWorkspace->openDatabase(gStoreBPath, true, false, kConnectString);
  }
  if (!fUpgradeUserStore(*gDbB)) {
    sHaltProgramExecution();
    return false;
  }
  return true;
}

void showMainPicture() {
  gImageFile = gDataPath + "/nv" + std::to_string(gImageIndex) + ".jpg";
  mainWindow().setPicture(gImageFile);
}

void setTipControlsVisible(bool on) {
  platform::Screen& s = mainWindow();
  for (const char* name : {"Label11", "cOK", "cShowNext", "cTip"}) s.control(name).setVisible(on);
}

void startProgram() {
  gExeFile = gAppPath + "/tonvex.exe";
  gErrTraceFile = fProgramFolders().state + "/errtrace.txt";
  if (!fMakeWritableFolders(fProgramFolders())) return refuseStart();
  const std::string userStoreMove = fMoveOldUserStore(fProgramFolders());
  if (!holdUserStore() || !openErrorTraceFile()) return;
  if (!userStoreMove.empty()) sTraceLine(userStoreMove);
  sCheckCommandLine();
  sSetGlobalVariables();
  sCheckFont();
  sSetSQLStrings();
  gCurrFormId = kFormNadavik;
  sSetCurrFormById();
  readMaximisedGeometry();
  mainWindow().setVisible(true);
  sMnuTraceCheck();
  fillMainLabels();
  mainWindow().setVisible(false);
  if (!openStores()) return;
  sCheckSetNVVersion();
  sSetDefaultOptions();
  sMnuTipsCheck();
  showMainPicture();
  sNVControl(2);
}

void stopProgram() {
  sDisableNVSelections();
  gTimerPurpose = 2;
  gImageIndex = 6;
  showMainPicture();
  sDeleteWavFiles();
  // The run's temporary folder goes with every file in it, the greeting
  // drone among them (the close box once kept the last played file).
  removeRunTempFolder();
  sSaveUsageParameters();
  sCloseStores();
  gDbA.reset();
  gDbB.reset();
  if (gCloseReason == 1) sTerminateApp();
}

}  // namespace

void sSetProgramLocation(const ProgramFolders& folders, const std::string& commandLine) {
  sSetExitStatus(0);
  sSetProgramFolders(folders);
  gAppPath = folders.program;
  gDataPath = folders.data;
  gCommandLine = commandLine;
}

void sNVControl(std::int16_t event) {
  gCallbackContext = 0;
  switch (event) {
    case 0:
      startProgram();
      break;
    case 2:
      sInitApp1();
      break;
    case 3:
      sCallController(kFormWorkshop, 0);
      break;
    case 4:
      sCallController(kFormComposer, 0);
      break;
    case 20:
      stopProgram();
      break;
    default:
      break;
  }
}

void sCheckCommandLine() {
  NV_PROC("sCheckCommandLine");
  bool trace = gCommandLine.find('1') != std::string::npos;
  gTraceEnabled = trace ? -1 : 0;
  gTraceOn = trace ? -1 : 0;
  gScriptLineCount = 0;
  if (gCommandLine.find('2') != std::string::npos && fileExists(gDataPath + "/NVScript.txt"))
    readScriptFile();
}

// The program's own folder under the temporary folder (TMPDIR, else /tmp).
// It is given even when it cannot be made or written (the start's check
// makes it and names it in a message when it cannot): music files are then
// refused there, where an empty answer used to put "A.wav" into the
// current folder.
std::string fGetTempFilesPathName() {
  NV_PROC("fGetTempFilesPathName");
  const char* tmpdir = std::getenv("TMPDIR");
  std::error_code ec;
  fs::path base = fs::absolute(tmpdir != nullptr && *tmpdir != '\0' ? tmpdir : "/tmp", ec);
  if (ec) base = "/tmp";
  return fRunTempFolder(base.string());
}

void sSetGlobalVariables() {
  NV_PROC("sSetGlobalVariables");
  gCrLf = "\r\n";
  gSeparator = " - ";
  gStoreAPath = gDataPath + "/mrA.nvy";
  gStoreBPath = fProgramFolders().user + "/mrB.nvy";
  gTempPath = fGetTempFilesPathName();
  gWaveFolderFault = fWaveFolderFault(gTempPath);
  if (!gWaveFolderFault.empty()) sShowMessage(fWaveFolderMessage(gTempPath, gWaveFolderFault));
  gWavA = gTempPath + "A.wav";
  gWavB = gTempPath + "B.wav";
  gWavC = gTempPath + "C.wav";
  gWavFiles = {gWavA, gWavB, gWavC, ""};
  gDroneWavFile = gTempPath + "D.wav";
  gInstrLibFiles = {"", "", gDataPath + "/vlb.nvy", gDataPath + "/clb.nvy", ""};
  sCreateScreenObjects();
}

std::int16_t fSushaExists() {
  NV_PROC("fSushaExists");
  for (const auto& family : platform::windowSystem().fontFamilies())
    if (family == "Shusha") return -1;
  return 0;
}

std::int16_t fInstallSusha() {
  NV_PROC("fInstallSusha");
  return static_cast<std::int16_t>(
      platform::windowSystem().addFontResource(gDataPath + "/Shusha.ttf"));
}

void sCheckFont() {
  NV_PROC("sCheckFont");
  gDevnagariOk = -1;
  if (fSushaExists() == 0 && fInstallSusha() != 1) {
    sShowMessage("There was a problem installing Font Shusha. This installation will always show "
                 "notation using English script.");
    gDevnagariOk = 0;
  }
}

std::int16_t fGetNVTipCount() {
  NV_PROC("fGetNVTipCount");
  auto rs = gDbA->openRecordset("NVTips", platform::RecordsetType::Table);
  auto count = static_cast<std::int16_t>(rs->recordCount());
  rs->close();
  return count;
}

void sLoadNextTip() {
  NV_PROC("sLoadNextTip");
  auto rs = gDbA->openRecordset("NVTips", platform::RecordsetType::Table);
  ++gLastTip;
  if (gLastTip > gTipCount) gLastTip = 1;
  sSetTablePKRecord(*rs, platform::Value(static_cast<int>(gLastTip)));
  if (!rs->noMatch()) mainWindow().control("cTip").setText(rs->field("Tip").asText());
  rs->close();
}

void sInitApp1() {
  NV_PROC("sInitApp1");
  gIgnorableCount = 0;
  gErrorTrapCount = 0;
  gResizeEnabled = 0;
  if (!fStartSoundLibrary()) return;
  mainWindow().setVisible(true);
  sShowForm(0);
  sDisableNVSelections();
  gDroneCycles = 2;
  platform::Control& timer = mainWindow().control("cTimer");
  timer.setInterval(100);
  // The greeting drone is written in the temporary folder: when the start
  // has told that the folder cannot take it, the start goes on without it.
  if (gWaveFolderFault.empty()) {
    if (!fGenerateGreetingDrone()) return;
    gCurrMusicFile = gDroneWavFile;
    gCurrItemType = 0;
    gCallbackContext = 0;
    gFileOpened = 0;
    sPlayMusicFile(gCurrMusicFile);
    timer.setInterval(gDroneCycles * 3200 + 100);
  }
  timer.setEnabled(true);
}

void sInitApp2(std::int16_t step) {
  NV_PROC("sInitApp2");
  platform::Screen& s = mainWindow();
  s.control("cTimer").setEnabled(false);
  if (step == 0 && gTipSignal == 1) {
    setTipControlsVisible(true);
    sLoadNextTip();
    return;
  }
  setTipControlsVisible(false);
  sEnableNVSelections();
  s.control("cPrompts").setText(fGetPrompts("1"));
  s.control("Label1").setVisible(true);
}

void sDeleteWavFilePair(const std::string& name) {
  NV_PROC("sDeleteWavFilePair");
  removeIfExists(name);
  if (name.size() >= 3) removeIfExists(name.substr(0, name.size() - 3) + "vaw");
}

void sDeleteWavFiles() {
  NV_PROC("sDeleteWavFiles");
  sDeleteWavFilePair(gWavA);
  sDeleteWavFilePair(gWavB);
  sDeleteWavFilePair(gWavC);
}

void sTerminateApp() {
  NV_PROC("sTerminateApp");
  if (fileExists(gCurrMusicFile)) removeIfExists(gCurrMusicFile);
  gCurrForm->unload();
}
