// The event handlers of PlayComposition1: each sets the session values its
// event needs and calls the controller. No state of its own.
#include <array>
#include <cstdint>

#include "control/screen_manager.h"
#include "control/tonic_menu.h"
#include "control/trace_menu.h"
#include "core/session.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "player/composition_grid.h"
#include "player/player.h"
#include "sound/play_chain.h"
#include "sound/playback.h"
#include "sound/sound_state.h"

namespace {

using platform::Event;
using platform::EventKind;

void onClick(platform::Screen& s, const char* control, void (*handler)()) {
  s.on(control, EventKind::Click, [handler](const Event&) { handler(); });
}

void raise(std::int16_t event) { sPlayCompositions(event); }

bool fPlayerIsCurrent() { return gCurrFormId == kFormPlayComposition1; }

void bindButtons(platform::Screen& s) {
  onClick(s, "cAsthai", [] { gCompPart = 1; raise(2); });
  onClick(s, "cAntara", [] { gCompPart = 2; raise(2); });
  onClick(s, "cLearn", [] { gCurrMode = 2; raise(3); });
  onClick(s, "cPractice", [] { gCurrMode = 3; raise(3); });
  onClick(s, "cPlay", [] { raise(1); });
  onClick(s, "cStartLoop", [] { gLooping = true; raise(1); });
  onClick(s, "cStop", [] { raise(11); });
  onClick(s, "cStopLoop", [] { gLooping = false; raise(11); });
  onClick(s, "cReturn", [] { raise(20); });
  s.on("cSlider", EventKind::Change, [](const Event&) { raise(7); });
}

// The device's notifications. A done that arrives after the screen was
// closed belongs to no run any more and is dropped.
void bindDevice(platform::Screen& s) {
  s.on("cMM", EventKind::Status, [](const Event&) {
    if (fPlayerIsCurrent()) raise(12);
  });
  s.on("cMM", EventKind::Done, [](const Event& e) {
    if (!fPlayerIsCurrent()) return;
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
  });
}

void bindMenus(platform::Screen& s) {
  onClick(s, "cMnuDroLou", [] { gDroneStep = 1; raise(10); });
  onClick(s, "cMnuDroSof", [] { gDroneStep = -1; raise(10); });
  onClick(s, "cMnuUseGraNot", [] { gGraceNotes = 2; sMnuGraceNotesCheck(); raise(5); });
  onClick(s, "cMnuNoGraNot", [] { gGraceNotes = 1; sMnuGraceNotesCheck(); raise(5); });
  onClick(s, "cMnuDev", [] { gNotationScript = 1; sMnuNotationScriptCheck(); raise(8); });
  onClick(s, "cMnuEng", [] { gNotationScript = 2; sMnuNotationScriptCheck(); raise(8); });
  onClick(s, "cMnuSlo", [] { if (gDelayPC > 0) --gDelayPC; });
  onClick(s, "cMnuSpe", [] { if (gDelayPC < INT16_MAX) ++gDelayPC; });
  onClick(s, "cMnuUseThe", [] { gThekaMode = 1; sMnuThekaCheck(); raise(9); });
  onClick(s, "cMnuNoThe", [] { gThekaMode = 2; sMnuThekaCheck(); raise(9); });
  onClick(s, "cMnuXptSnd", [] { sExportComposition(ExportFormat::Sound); });
  onClick(s, "cMnuXptMid", [] { sExportComposition(ExportFormat::Midi); });
  onClick(s, "cMnuXptPdf", [] { sExportComposition(ExportFormat::Pdf); });
  sBindTonicMenu(s, raise, 4);
}

// The close box: a sounding part is silenced, and the screen is left as by
// Go Back, so that a tonic changed here reaches the exploration screen.
void bindWindow(platform::Screen& s) {
  s.on("", EventKind::Resize, [](const Event&) {
    sResizeForm();
    sPlaceCompositionGrid();
  });
  s.on("", EventKind::Unload, [&s](const Event&) {
    if (gInternalClose == 1) {
      gInternalClose = 0;
      return;
    }
    platform::AudioDevice& mm = s.control("cMM").device();
    mm.notify = false;
    mm.command("Stop");
    mm.command("Close");
    gFileOpened = 0;
    gLooping = false;
    sSetFormParameters();
    sRevertToParentForm();
    sHandBackTonic();
  });
}

}  // namespace

void sBindPlayComposition1Events(platform::Screen& screen) {
  bindButtons(screen);
  bindDevice(screen);
  bindMenus(screen);
  bindWindow(screen);
  sBindTraceMenuEvents(screen);
  gPlayScreenProcedures.resetCompositionSlots = sSetCompNotationSlotsToDefaultColor;
  gPlayScreenProcedures.owners[kContextComposition] = sPlayCompositions;
}
