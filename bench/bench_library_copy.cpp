// Set-up shared by the benchmarks that run on the built library store.
// Keeps no state of its own; it sets session variables only.
#include "bench_library_copy.h"

#include <unistd.h>

#include "core/session.h"
#include "platform/store.h"

namespace fs = std::filesystem;

namespace benchsupport {

fs::path openLibraryCopy(const std::string& name, const char* storeFile) {
  const fs::path folder =
      fs::temp_directory_path() / ("nadavik-" + name + "-" + std::to_string(::getpid()));
  fs::remove_all(folder);
  fs::create_directories(folder);
  fs::copy_file(storeFile, folder / "mrA.nvy");
  gDbA = platform::defaultWorkspace().openDatabase((folder / "mrA.nvy").string(), true, true, "");
  return folder;
}

void closeLibraryCopy(const fs::path& folder) {
  gDbA->close();
  gDbA.reset();
  fs::remove_all(folder);
}

void setSoundDefaults() {
  gMainSetName = "c";
  gDroneSetName = "e";
  gCurrMusicSetId = 3;
  gCurrTonicNoteId = 3;
  gCurrDroneType = 1;
  gCurrDroneFactor = 1.0;
  gDroneMode = 1;
}

void setMusicFileDefaults(const fs::path& folder, const char* kitFile) {
  gSynthNames = "ce";
  gThekaInstrument = 4;
  gInstrLibFiles = {"", "", "", kitFile, ""};
  gWavFiles = {(folder / "A.wav").string(), (folder / "B.wav").string(),
               (folder / "C.wav").string(), ""};
}

}  // namespace benchsupport
