// The exclusive (or shared) hold a process keeps on an open store file.
//
// An flock on a descriptor of our own, held for the life of the open store:
// a second process that wants the file is refused at once. Opens inside this
// process are checked against a registry of held files first, so that a
// refused open never opens and closes a descriptor of the file: closing any
// descriptor would drop the POSIX locks SQLite holds on it.
// State: the descriptor and the registry entry of this hold.
#pragma once

#include <sys/types.h>

#include <string>

namespace platform::sqlite {

class FileLock {
 public:
  // Takes the hold or throws StoreError: 3024 for a missing file, 3045 when
  // another opener holds it, 3051 when it cannot be opened or is empty.
  FileLock(const std::string& path, bool exclusive, bool readOnly);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  // Gives the hold up; call only after the SQLite connection is closed.
  void release();

 private:
  int fd_ = -1;
  dev_t device_ = 0;
  ino_t inode_ = 0;
};

}  // namespace platform::sqlite
