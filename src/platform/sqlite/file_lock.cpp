// The hold a process keeps on an open store file: an flock on our own
// descriptor plus a registry of the files this process holds.
// State: the registry (files held by this process, by device and inode).
// The registry lives until the process ends and is never destroyed: stores
// held in objects with static storage are released by their destructors at
// exit, which may run after the destructors of this file's own statics.
#include "platform/sqlite/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <utility>

#include "platform/store.h"

namespace platform::sqlite {
namespace {

struct Hold {
  int sharedCount = 0;
  bool exclusive = false;
};

// Made once and deliberately never freed (see the banner), so that a
// release during static destruction still finds it.
std::map<std::pair<dev_t, ino_t>, Hold>& heldFiles() {
  static auto* held = new std::map<std::pair<dev_t, ino_t>, Hold>;
  return *held;
}

[[noreturn]] void throwInUse(const std::string& path) {
  throw StoreError(3045, "Could not use '" + path + "'; file already in use.", path);
}

[[noreturn]] void throwCannotOpen(const std::string& path, const std::string& why) {
  throw StoreError(3051, "Cannot open the store file '" + path + "': " + why + ".", path);
}

}  // namespace

FileLock::FileLock(const std::string& path, bool exclusive, bool readOnly) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) {
    if (errno == ENOENT || errno == ENOTDIR)
      throw StoreError(3024, "Could not find file '" + path + "'.", path);
    throwCannotOpen(path, std::strerror(errno));
  }
  if (!S_ISREG(info.st_mode)) throwCannotOpen(path, "not a regular file");
  if (info.st_size == 0) throwCannotOpen(path, "the file is empty, not a store");

  device_ = info.st_dev;
  inode_ = info.st_ino;
  auto found = heldFiles().find({device_, inode_});
  if (found != heldFiles().end() && (exclusive || found->second.exclusive)) throwInUse(path);

  fd_ = open(path.c_str(), (readOnly ? O_RDONLY : O_RDWR) | O_CLOEXEC);
  if (fd_ < 0) throwCannotOpen(path, std::strerror(errno));
  if (flock(fd_, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0) {
    int error = errno;
    // No SQLite connection of this process is on this file (the registry
    // said so), so closing the descriptor drops no lock of ours.
    close(fd_);
    fd_ = -1;
    if (error == EWOULDBLOCK) throwInUse(path);
    throwCannotOpen(path, std::strerror(error));
  }
  Hold& hold = heldFiles()[{device_, inode_}];
  hold.exclusive = exclusive;
  ++hold.sharedCount;
}

FileLock::~FileLock() { release(); }

void FileLock::release() {
  if (fd_ < 0) return;
  close(fd_);
  fd_ = -1;
  auto found = heldFiles().find({device_, inode_});
  if (found != heldFiles().end() && --found->second.sharedCount <= 0) heldFiles().erase(found);
}

}  // namespace platform::sqlite
