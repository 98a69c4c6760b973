// Where the program finds and writes its files (see program_folders.h).
#include "control/program_folders.h"

#include <pwd.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "core/messages.h"

namespace fs = std::filesystem;

namespace {

ProgramFolders gFolders;

std::string environmentText(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

// The home folder: HOME, or the password file's entry when HOME is unset.
std::string homeFolder() {
  std::string home = environmentText("HOME");
  if (!home.empty()) return home;
  const passwd* entry = getpwuid(getuid());
  return entry != nullptr && entry->pw_dir != nullptr ? entry->pw_dir : "";
}

// An XDG base folder: the variable's value when it is an absolute path,
// otherwise the default under the home folder.
std::string xdgBase(const std::string& variable, const std::string& home,
                    const char* defaultUnderHome) {
  if (!variable.empty() && variable.front() == '/') return variable;
  return home + "/" + defaultUnderHome;
}

bool isFile(const fs::path& path) {
  std::error_code ec;
  return fs::is_regular_file(path, ec);
}

// Moves a file, across file systems too (a copy, then the original
// removed); false, with the original kept, when that fails.
bool moveFile(const fs::path& from, const fs::path& to) {
  std::error_code ec;
  fs::rename(from, to, ec);
  if (!ec) return true;
  if (!fs::copy_file(from, to, ec)) {
    fs::remove(to, ec);
    return false;
  }
  fs::remove(from, ec);
  return true;
}

// True when no process has the id `pid` any more.
bool processGone(const std::string& pid) {
  char* end = nullptr;
  const long id = std::strtol(pid.c_str(), &end, 10);
  if (pid.empty() || *end != '\0' || id <= 0) return false;
  return kill(static_cast<pid_t>(id), 0) != 0 && errno == ESRCH;
}

// Removes the run folders "<prefix><pid>" under `base` whose process is gone.
void removeFoldersOfGoneRuns(const fs::path& base, const std::string& prefix) {
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(base, ec)) {
    const std::string name = entry.path().filename().string();
    if (name.rfind(prefix, 0) == 0 && entry.is_directory(ec) && processGone(name.substr(prefix.size())))
      fs::remove_all(entry.path(), ec);
  }
}

}  // namespace

FolderEnvironment fFolderEnvironment() {
  return {environmentText("NADAVIK_DATA_FOLDER"), environmentText("XDG_DATA_HOME"),
          environmentText("XDG_STATE_HOME"), homeFolder()};
}

std::string fReadOnlyDataFolder(const std::string& programFolder) {
  const fs::path installed = fs::path(programFolder).parent_path() / "share" / "nadavik";
  if (isFile(installed / "mrA.nvy")) return installed.lexically_normal().string();
  return programFolder;
}

ProgramFolders fResolveProgramFolders(const std::string& programFolder,
                                      const FolderEnvironment& environment) {
  if (!environment.dataFolder.empty()) {
    ProgramFolders folders = fSelfContainedFolders(fs::absolute(environment.dataFolder).string());
    folders.program = programFolder;
    return folders;
  }
  return {programFolder, fReadOnlyDataFolder(programFolder),
          xdgBase(environment.xdgDataHome, environment.home, ".local/share") + "/nadavik",
          xdgBase(environment.xdgStateHome, environment.home, ".local/state") + "/nadavik"};
}

ProgramFolders fSelfContainedFolders(const std::string& folder) {
  return {folder, folder, folder, folder};
}

const ProgramFolders& fProgramFolders() { return gFolders; }

void sSetProgramFolders(const ProgramFolders& folders) { gFolders = folders; }

bool fMakeWritableFolders(const ProgramFolders& folders) {
  for (const std::string& folder : {folders.user, folders.state}) {
    std::error_code ec;
    // A folder made here is the user's alone, as the XDG rules ask.
    if (fs::create_directories(folder, ec)) fs::permissions(folder, fs::perms::owner_all, ec);
    if (!ec && access(folder.c_str(), W_OK) == 0) continue;
    sShowMessage("Nadavik cannot write its files in the folder '" + folder +
                 "'. Please make that folder writable for your user and start Nadavik again.");
    return false;
  }
  return true;
}

std::string fMoveOldUserStore(const ProgramFolders& folders) {
  const fs::path old = fs::path(folders.program) / "mrB.nvy";
  const fs::path moved = fs::path(folders.user) / "mrB.nvy";
  if (folders.data != folders.program || folders.user == folders.program) return "";
  if (!isFile(old) || fs::exists(moved)) return "";
  if (!moveFile(old, moved))
    return "Could not move the user store " + old.string() + " to " + moved.string() +
           "; it stays there for Carry Over Data, and a new store is made";
  // A journal left by a run that was killed belongs with its store.
  moveFile(old.string() + "-journal", moved.string() + "-journal");
  return "Moved the user store from " + old.string() + " to " + moved.string();
}

std::string fRunTempFolder(const std::string& base) {
  const std::string prefix = "nadavik-" + std::to_string(getuid()) + "-";
  removeFoldersOfGoneRuns(base, prefix);
  const fs::path folder = fs::path(base) / (prefix + std::to_string(getpid()));
  mkdir(folder.c_str(), 0700);  // a failure is told by the music files' folder check
  return folder.string() + "/";
}

std::string fUserGuidePage(const ProgramFolders& folders) {
  const fs::path data = folders.data;
  for (const fs::path& page : {data.parent_path() / "doc/nadavik/user-guide/index.html",
                               data / "doc/user-guide/index.html"})
    if (isFile(page)) return page.lexically_normal().string();
  return "";
}
