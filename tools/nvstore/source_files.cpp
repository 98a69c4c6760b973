// Finding and reading source files: see source_files.h.
#include "source_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace nvstore {

namespace fs = std::filesystem;

bool readText(const std::string& path, std::string& text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream buf;
  buf << in.rdbuf();
  text = buf.str();
  return true;
}

std::vector<std::string> filesUnder(const std::string& folder, const std::string& suffix) {
  std::vector<std::string> files;
  std::error_code ec;
  for (fs::recursive_directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    const std::string path = it->path().string();
    if (it->is_regular_file(ec) && path.size() > suffix.size() &&
        path.compare(path.size() - suffix.size(), suffix.size(), suffix) == 0)
      files.push_back(path);
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::string> foldersUnder(const std::string& folder) {
  std::vector<std::string> folders;
  std::error_code ec;
  if (!fs::is_directory(folder, ec)) return folders;
  folders.push_back(folder);
  for (fs::recursive_directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
    if (it->is_directory(ec)) folders.push_back(it->path().string());
  std::sort(folders.begin(), folders.end());
  return folders;
}

}  // namespace nvstore
