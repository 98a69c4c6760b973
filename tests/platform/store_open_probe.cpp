// A second process for the store engine tests: tries to open a store file
// exclusively and prints "0" on success or the error number and message.
// Usage: store_open_probe <path> <ro|rw|keep>
// keep: opens read-only and leaves the store open when main returns, held in
// an object with static storage, as the program's own stores are; the
// process must still end cleanly (exit status 0, no sanitizer report).
#include <iostream>
#include <memory>
#include <string>

#include "platform/store.h"

namespace {

// Defined before any store is opened, so that its destructor runs after
// those of the statics the engine makes on first use.
std::unique_ptr<platform::Database> gKept;

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: store_open_probe <path> <ro|rw|keep>\n";
    return 2;
  }
  const std::string mode = argv[2];
  try {
    auto store = platform::defaultWorkspace().openDatabase(argv[1], true, mode != "rw", "");
    std::cout << "0\n";
    if (mode == "keep") gKept = std::move(store);
  } catch (const platform::StoreError& error) {
    std::cout << error.number << ' ' << error.what() << '\n';
  }
  return 0;
}
