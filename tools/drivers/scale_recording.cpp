// A recorded check of a user scale on a real sound output (not a test: run
// by hand under scripts/with-audio-server.sh --record). Two steps, each a
// fresh start of the program, so that the second finds the scale as a
// restart does:
//
//   nadavik_scale_recording make STORE SPC_UP
//       on the ScaleShifting screen, the key of tonic 5 is tuned SPC_UP
//       samples per cycle shorter (higher) than recorded, a scale is made
//       on it and saved as "Tonic 5 up"; the user store is copied to STORE
//       and the tuned note's recorded and new periods are printed.
//   nadavik_scale_recording play STORE [SCALE]
//       with STORE as the user store, Yaman on the Raga Exploration screen
//       with the drone at its softest, the scale SCALE chosen in the scale
//       list (without it, tonic 5 from the Tonic Note menu: the library's
//       own scale, for reference), then the raga's scale item played in
//       Demo on the real sound output to its end.
//
// The slider steps a tenth of the way to the next key (about 1.8 samples
// per cycle at tonic 5), so `make` sets the period under trial directly,
// as the slider would if it had finer steps, before clicking Play.
#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "core/session.h"
#include "exploration/exploration.h"
#include "platform/audio.h"
#include "platform/qt/qt_audio.h"
#include "platform/qt/qt_scheduler.h"
#include "platform/qt/qt_window_system.h"
#include "platform/store.h"
#include "program_harness.h"
#include "scales/scale_state.h"
#include "store/lookups.h"
#include "store/working_record.h"

namespace fs = std::filesystem;
using platform::EventKind;

namespace {

bool waitFor(const std::function<bool()>& done, long limitMs) {
  QElapsedTimer waited;
  waited.start();
  while (!done()) {
    if (waited.elapsed() > limitMs) return false;
    QApplication::processEvents(QEventLoop::AllEvents, 5);
  }
  return true;
}

int make(ProgramHarness& program, const std::string& store, double spcUp) {
  program.start();
  program.finishStartUp();
  program.fire("Nadavik", "cMnuDefPitShi", EventKind::Click);
  const char* screen = "ScaleShifting";
  platform::Event key;
  key.index = 14;  // reed of tonic 5
  program.fire(screen, "cL", EventKind::Click, key);
  program.fire(screen, "cTimer", EventKind::Timer);
  program.fire(screen, "cTuneNote", EventKind::Click);
  gNewSPC = gBaseSPC - spcUp;
  program.fire(screen, "cAdjust", EventKind::Click);
  program.screen(screen).control("cSettingName").setText("Tonic 5 up");
  program.fire(screen, "cOK", EventKind::Click);
  program.fire(screen, "cReturn", EventKind::Click);
  std::printf("base_spc %.4f new_spc %.4f\n", gBaseSPC, gNewSPC);
  gDbB.reset();  // closed, so that the copy is whole
  fs::copy_file(program.folder() / "mrB.nvy", store, fs::copy_options::overwrite_existing);
  return 0;
}

int play(ProgramHarness& program, const std::string& store, const std::string& scale) {
  platform::QtScheduler scheduler;
  platform::NoOutputNotice noSound{[](const std::string& m) { std::fprintf(stderr, "%s\n", m.c_str()); }};
  static_cast<platform::QtWindowSystem&>(platform::windowSystem()).setAudioDeviceFactory(
      [&] { return platform::createAudioDevice(scheduler, noSound); });
  fs::copy_file(store, program.folder() / "mrB.nvy", fs::copy_options::overwrite_existing);
  program.start();
  program.finishStartUp();
  waitFor([&] { return program.screen("Nadavik").control("cMM").device().mode() != platform::kModePlaying; },
          60000);
  program.fire("Nadavik", "cMnuExpRag", EventKind::Click);
  gCurrRagaId = 1;
  gCurrRagaName = fGetRagaName(1);
  sSetupForCurrRaga();
  sMainOperations(0);
  const char* screen = "MainOperations";
  platform::Control& scales = program.screen(screen).control("cScaleList");
  if (scale.empty()) {
    program.fire(screen, "cMnuB2", EventKind::Click);  // tonic 5
  } else {
    for (int i = 0; i < scales.listCount(); ++i)
      if (scales.list(i) == scale) scales.setListIndex(i);
    if (scales.listIndex() < 0) {
      std::fprintf(stderr, "no scale %s in the list\n", scale.c_str());
      return 1;
    }
    program.fire(screen, "cScaleList", EventKind::Click);
  }
  for (int i = 0; i < 12; ++i) program.fire(screen, "cMnuDroSof", EventKind::Click);
  std::printf("music_set %d tonic %d\n", gCurrMusicSetId, gCurrTonicNoteId);
  program.fire(screen, "Option1", EventKind::Click);  // Demo
  platform::Control& items = program.screen(screen).control("cNVIllusList");
  items.setListIndex(0);  // the raga's scale: aroha and avroha
  std::printf("playing %s\n", items.list(0).c_str());
  program.fire(screen, "cNVIllusList", EventKind::Click);
  waitFor([&] { return false; }, 500);
  waitFor([&] { return items.enabled(); }, 120000);
  waitFor([&] { return false; }, 1000);
  for (const RecordedMessage& m : program.messages()) std::printf("message: %s\n", m.text.c_str());
  return program.messages().empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const std::string step = argc > 2 ? argv[1] : "";
  if ((step != "make" || argc != 4) && (step != "play" || argc > 4)) {
    std::fprintf(stderr, "usage: %s make STORE SPC_UP | play STORE [SCALE]\n", argv[0]);
    return 2;
  }
  ProgramHarness program;
  if (step == "make") return make(program, argv[2], std::atof(argv[3]));
  return play(program, argv[2], argc > 3 ? argv[3] : "");
}
