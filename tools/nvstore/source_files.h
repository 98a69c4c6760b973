// Finding and reading the source files of the library store: record files
// under the content folder and screen definitions under the screens folder.
// Folders are walked at run time (sorted by path, so that builds are
// repeatable), which is why the build lists the folders in its depfile.
#pragma once

#include <string>
#include <vector>

namespace nvstore {

// Reads a whole file into `text`; false when it cannot be read.
bool readText(const std::string& path, std::string& text);

// The files under `folder` (recursively) whose names end in `suffix`, sorted.
// A missing folder gives no files.
std::vector<std::string> filesUnder(const std::string& folder, const std::string& suffix);

// `folder` and every folder beneath it, so that adding a file is seen.
std::vector<std::string> foldersUnder(const std::string& folder);

}  // namespace nvstore
