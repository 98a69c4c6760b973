// The event handlers of the ScaleShifting screen: each sets the session
// values its event needs and calls the controller. No state of its own.
#include <utility>

#include "control/trace_menu.h"
#include "core/session.h"
#include "platform/screen.h"
#include "scales/scale_state.h"
#include "scales/scales.h"
#include "sound/playback.h"
#include "sound/sound_state.h"

namespace {

using platform::Event;
using platform::EventKind;

void onClick(platform::Screen& s, const char* control, std::int16_t event) {
  s.on(control, EventKind::Click, [event](const Event&) { sShiftScale(event); });
}

void onSensitivity(platform::Screen& s, const char* option, std::int16_t sensitivity) {
  s.on(option, EventKind::Click, [sensitivity](const Event&) { gSensitivity = sensitivity; });
}

}  // namespace

void sBindScaleShiftingEvents(platform::Screen& screen) {
  screen.on("cL", EventKind::Click, [](const Event& e) {
    gLabelIndex = static_cast<std::int16_t>(e.index);
    sShiftScale(1);
  });
  const std::pair<const char*, std::int16_t> clicks[] = {
      {"cTuneNote", 2}, {"cRefineNotes", 3}, {"cSetTonic", 4},       {"cPlay", 5},
      {"cAdjust", 6},   {"cSave", 7},        {"cOK", 8},             {"cMnuPlaMajSca", 9},
      {"cMnuPlaFulSca", 10}, {"cScalesList", 12}, {"Option6", 13},   {"Option7", 14},
      {"cMnuSelRag", 16},    {"cMnuScaRag", 18},  {"cReturn", 20},   {"cMnuPakRag", 21},
      {"cSwitch", 22},       {"cRename", 24},     {"cDelete", 25}};
  for (const auto& [control, event] : clicks) onClick(screen, control, event);
  screen.on("cMnuDroLou", EventKind::Click, [](const Event&) { gDroneStep = 1; sShiftScale(11); });
  screen.on("cMnuDroSof", EventKind::Click, [](const Event&) { gDroneStep = -1; sShiftScale(11); });
  onSensitivity(screen, "Option3", 0);
  onSensitivity(screen, "Option4", 1);
  onSensitivity(screen, "Option5", 2);
  screen.on("cTimer", EventKind::Timer, [](const Event&) { sShiftScale(17); });
  screen.on("cMM", EventKind::Done, [](const Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
  });
  screen.on("", EventKind::QueryUnload, [](const Event& e) {
    if (e.unloadMode == 0) sRestoreEntryScale();  // the user's close box
  });
  sBindTraceMenuEvents(screen);
}
