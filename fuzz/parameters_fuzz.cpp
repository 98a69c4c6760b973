// Fuzz target: the usage parameter values of the user store, as a damaged or
// edited store may hold them. The input, split at line ends, gives the
// stored text of each parameter in turn (a line "\N" stands for Null); after
// the start's reading every parameter lies in its range and the window lies
// on the screen, whatever was stored.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <stdlib.h>

#include "control/parameters.h"
#include "control/user_store.h"
#include "core/session.h"
#include "platform/screen.h"
#include "platform/store.h"

namespace {

using platform::RecordsetType;
using platform::Value;

constexpr float kScreenW = 1366;
constexpr float kScreenH = 768;

void check(bool ok) {
  if (!ok) __builtin_trap();
}

// A window system with a screen and nothing else: reading the parameters
// asks only for the screen's size.
class ScreenOnly : public platform::WindowSystem {
 public:
  platform::Screen& screen(const std::string&) override { __builtin_trap(); }
  int messageBox(const std::string&, int, const std::string&) override { return platform::kAnswerOk; }
  int askChoice(const std::string&, const std::string&, const std::vector<std::string>&) override { return -1; }
  std::string chooseFileToOpen(const std::string&, const std::string&, const std::string&) override { return ""; }
  bool openDocument(const std::string&) override { return false; }
  float screenWidth() const override { return kScreenW; }
  float screenHeight() const override { return kScreenH; }
  std::vector<std::string> fontFamilies() const override { return {}; }
  int addFontResource(const std::string&) override { return 0; }
  void processEvents() override {}
  [[noreturn]] void endProcess(int) override { __builtin_trap(); }
};

// A library store with three tips and a user store with one user scale
// (set 13), in a folder of the run's own.
bool initialise() {
  static ScreenOnly windows;
  platform::setWindowSystem(&windows);
  // In $TMPDIR, which scripts/fuzz-all.sh empties after each run.
  std::string folder = (std::filesystem::temp_directory_path() / "nadavik-fuzz-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) __builtin_trap();
  gWorkspace = &platform::defaultWorkspace();
  gDevnagariOk = -1;
  const std::string dir = folder;
  gWorkspace->createDatabase(dir + "/mrA.nvy", "CREATE TABLE NVTips (TipId INTEGER PRIMARY KEY, Tip TEXT);"
                                               "INSERT INTO NVTips (Tip) VALUES ('a'), ('b'), ('c');");
  gDbA = gWorkspace->openDatabase(dir + "/mrA.nvy", true, true, "");
  gWorkspace->createDatabase(dir + "/mrB.nvy", kUserStoreSchema);
  gDbB = gWorkspace->openDatabase(dir + "/mrB.nvy", true, false, "");
  gDbB->execute("INSERT INTO [Scale Shift Specs] (NPSetId, NPSetName, TonicNoteId) VALUES (13, 'Just', 5);");
  return true;
}

void storeValues(const std::string& text) {
  std::istringstream in(text);
  auto rs = gDbB->openRecordset("User Parameters", RecordsetType::Table);
  for (std::string line; !rs->eof() && std::getline(in, line); rs->moveNext()) {
    rs->edit();
    rs->setField("Parameter Value", line == "\\N" ? Value() : Value(line));
    rs->update();
  }
  rs->close();
}

bool within(double v, double low, double high) { return v >= low && v <= high; }

void checkRanges() {
  check(within(gCurrTonicNoteId, 1, 12) && within(gKeyboardDisplay, 1, 2));
  check(gCurrMusicSetId == 13 || within(gCurrMusicSetId, 1, 12));
  check(within(gFormW, kScreenW / 4, kScreenW) && within(gFormH, kScreenH / 4, kScreenH));
  check(within(gFormL, 0, kScreenW - gFormW) && within(gFormT, 0, kScreenH - gFormH));
  check(within(gFormState, 0, 2) && within(gSortingMode, 0, 5) && within(gNotationScript, 1, 2));
  check(within(gLastTip, 0, 3) && within(gTipSignal, 0, 1));
  for (auto delay : {gDelayC, gDelayMO, gDelayPC, gDelayW}) check(within(delay, 0, 1000));
  check(within(gCurrDroneFactor, 0.5, 1.5));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool initialised = initialise();
  (void)initialised;
  storeValues(std::string(reinterpret_cast<const char*>(data), size));
  sSetDefaultOptions();
  checkRanges();
  return 0;
}
