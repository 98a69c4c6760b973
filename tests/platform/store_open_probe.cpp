// A second process for the store engine tests: tries to open a store file
// exclusively and prints "0" on success or the error number and message.
// Usage: store_open_probe <path> <ro|rw>
#include <iostream>
#include <string>

#include "platform/store.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: store_open_probe <path> <ro|rw>\n";
    return 2;
  }
  try {
    auto store = platform::defaultWorkspace().openDatabase(argv[1], true,
                                                          std::string(argv[2]) == "ro", "");
    std::cout << "0\n";
  } catch (const platform::StoreError& error) {
    std::cout << error.number << ' ' << error.what() << '\n';
  }
  return 0;
}
