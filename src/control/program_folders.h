// Where the program finds its files and where it writes them.
//
// Read-only data (the library store, tabla kits, pictures, screen
// definitions, the notation font): beside the program when it runs from its
// build folder, or in <prefix>/share/nadavik when it is installed in
// <prefix>/bin. Nothing is ever written there.
// The user's store mrB.nvy: $XDG_DATA_HOME/nadavik (by default
// ~/.local/share/nadavik). Trace files (errtrace.txt, ignoerr.txt):
// $XDG_STATE_HOME/nadavik (by default ~/.local/state/nadavik). An XDG
// variable that is unset, empty or not an absolute path is ignored, as the
// XDG base directory rules ask.
// NADAVIK_DATA_FOLDER names one self-contained folder used for all three
// (the checks run the program on a copy of its data files that way); the
// screen definitions are still read from the program's own data.
// State: the folders of this run, set once by sSetProgramLocation.
#pragma once

#include <string>

struct ProgramFolders {
  std::string program;  // the program's own folder
  std::string data;     // read-only data files
  std::string user;     // the user's store
  std::string state;    // trace and error files
};

// The environment the folders are chosen from; an empty text is an unset
// variable.
struct FolderEnvironment {
  std::string dataFolder;    // NADAVIK_DATA_FOLDER
  std::string xdgDataHome;   // XDG_DATA_HOME
  std::string xdgStateHome;  // XDG_STATE_HOME
  std::string home;          // HOME (or the password file's home folder)
};

// The environment of this process.
FolderEnvironment fFolderEnvironment();

// The read-only data folder of a program in `programFolder`:
// programFolder/../share/nadavik when it holds the library store mrA.nvy,
// otherwise programFolder itself (the build folder).
std::string fReadOnlyDataFolder(const std::string& programFolder);

// All the folders of a program in `programFolder` (see the banner).
ProgramFolders fResolveProgramFolders(const std::string& programFolder,
                                      const FolderEnvironment& environment);

// One folder for everything: the program, its data, the user store and the
// trace files (NADAVIK_DATA_FOLDER, and the tests' program folders).
ProgramFolders fSelfContainedFolders(const std::string& folder);

// The folders of this run.
const ProgramFolders& fProgramFolders();
void sSetProgramFolders(const ProgramFolders& folders);

// Makes the user and state folders (private to the user) when missing;
// false, after a message that names the folder, when one cannot be made.
bool fMakeWritableFolders(const ProgramFolders& folders);

// A user store left beside a program run from its build folder (where
// earlier versions kept it) is moved once into the user folder, unless the
// user folder has one already: then it stays, and Carry Over Data can bring
// its contents in. Answers the trace line that tells of the move, or ""
// when nothing was moved.
std::string fMoveOldUserStore(const ProgramFolders& folders);

// The private folder of this run's temporary wave files, the greeting drone
// among them: <base>/nadavik-<uid>-<pid>/ (with the trailing "/"), made
// readable by the user alone; this run removes it at every way out. The
// folders that runs of this user left under <base> when they were killed
// (their process is gone) are removed first. When the folder cannot be
// made, the music files' folder check (sound/wave_folder.h) tells why.
std::string fRunTempFolder(const std::string& base);

// The user guide's first page: <prefix>/share/doc/nadavik/user-guide when
// installed, doc/user-guide in the data folder of a build; "" when missing.
std::string fUserGuidePage(const ProgramFolders& folders);
