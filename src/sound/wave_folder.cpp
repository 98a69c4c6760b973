// The music files' folder and its one message (see wave_folder.h).
#include "sound/wave_folder.h"

#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

#include "core/messages.h"
#include "core/session.h"

namespace {

// A probe as large as a short phrase's file, so that a file system with a
// little room left but not enough for a phrase is found full.
constexpr std::size_t kProbeBytes = 256 * 1024;
// Some four minutes of sound: a long composition's file.
constexpr unsigned long long kLeastFreeBytes = 32ull * 1024 * 1024;

enum class BuildFault { Unknown, FolderFine, FolderTold };
BuildFault gBuildFault = BuildFault::Unknown;

// Writes all of `bytes` to fd; the system's error number, or 0.
int writeAll(int fd, const std::vector<char>& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return n < 0 ? errno : ENOSPC;
    done += static_cast<std::size_t>(n);
  }
  return 0;
}

bool hasLittleRoom(const std::string& folder) {
  struct statvfs info {};
  return statvfs(folder.c_str(), &info) == 0 &&
         static_cast<unsigned long long>(info.f_bavail) * info.f_frsize < kLeastFreeBytes;
}

}  // namespace

void sBeginWaveBuild() {
  gBuildFault = BuildFault::Unknown;
  std::error_code ignored;
  if (!gTempPath.empty()) std::filesystem::create_directories(gTempPath, ignored);
}

std::string fWaveFolderFault(const std::string& folder) {
  std::error_code ec;
  std::filesystem::create_directories(folder, ec);
  if (ec) return ec.message();
  std::string probe = folder + "probe-XXXXXX";
  const int fd = mkstemp(probe.data());
  if (fd < 0) return std::strerror(errno);
  const int error = writeAll(fd, std::vector<char>(kProbeBytes));
  const bool closed = close(fd) == 0;
  unlink(probe.c_str());
  if (error != 0) return std::strerror(error);
  if (!closed || hasLittleRoom(folder)) return std::strerror(ENOSPC);
  return "";
}

std::string fWaveFolderMessage(const std::string& folder, const std::string& fault) {
  return "Nadavik cannot write its sound files in the folder '" + folder + "' (" + fault +
         "). Please make room on that disk or make the folder writable, or start Nadavik with "
         "TMPDIR set to another folder. Music cannot be played until then.";
}

bool fToldWaveFolderFault(const std::string& file) {
  if (gTempPath.empty() || file.rfind(gTempPath, 0) != 0) return false;
  if (gBuildFault == BuildFault::Unknown) {
    const std::string fault = fWaveFolderFault(gTempPath);
    gBuildFault = fault.empty() ? BuildFault::FolderFine : BuildFault::FolderTold;
    if (!fault.empty()) sShowMessage(fWaveFolderMessage(gTempPath, fault));
  }
  return gBuildFault == BuildFault::FolderTold;
}
