// The event handlers of the Raga Exploration screen: each sets the session
// values its event needs and calls the controller. No state of its own.
#include <array>
#include <cstdint>

#include "control/screen_manager.h"
#include "control/tonic_menu.h"
#include "control/trace_menu.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "exploration/exploration_state.h"
#include "exploration/export_items.h"
#include "exploration/prompts.h"
#include "platform/screen.h"
#include "sound/play_chain.h"
#include "sound/play_state.h"
#include "sound/playback.h"
#include "sound/sound_state.h"

namespace {

using platform::Event;
using platform::EventKind;

// The basic data boxes: phrase kind, item type and store class they play.
struct PhraseBox {
  const char* control;
  std::int16_t phraseKind;
  std::int16_t itemType;
  std::int16_t altType;
};

constexpr std::array<PhraseBox, 3> kPhraseBoxes = {{
    {"cAroha", 1, 1, 6}, {"cAvroha", 2, 1, 6}, {"cPakad", 3, 2, 7}}};

void onClick(platform::Screen& s, const char* control, void (*handler)()) {
  s.on(control, EventKind::Click, [handler](const Event&) { handler(); });
}

void raise(std::int16_t event) { sMainOperations(event); }

// Option4 and Option5: the choice is recorded by what is on show, the button
// released again, and event 11 raised.
void sPartButton(std::int16_t which) {
  const std::int16_t step = which == 1 ? 1 : -1;
  if (gCurrItemType == 7)
    gComparePick = which;
  else if (gCurrItemType == 6 && gCurrPhraseKind == 8)
    gCompPart = which;
  else
    gPhraseStep = step;
  gCurrForm->control(which == 1 ? "Option4" : "Option5").setValue(0);
  raise(11);
}

void bindModes(platform::Screen& s) {
  onClick(s, "Option1", [] { gCurrMode = 1; raise(3); });
  onClick(s, "Option2", [] { gCurrMode = 2; raise(3); });
  onClick(s, "Option3", [] { gCurrMode = 3; raise(3); });
  onClick(s, "Option4", [] { sPartButton(1); });
  onClick(s, "Option5", [] { sPartButton(2); });
}

void bindLists(platform::Screen& s) {
  onClick(s, "cNVIllusList", [] { raise(1); });
  onClick(s, "cUserIllusList", [] { raise(2); });
  onClick(s, "cScaleList", [] { raise(12); });
  for (const PhraseBox& box : kPhraseBoxes)
    s.on(box.control, EventKind::Click, [box](const Event&) {
      gCurrPhraseKind = box.phraseKind;
      gCurrItemType = box.itemType;
      gCurrAltType = box.altType;
      raise(5);
    });
}

void bindPlayButtons(platform::Screen& s) {
  onClick(s, "cPlay", [] { raise(21); });
  onClick(s, "cStartLoop", [] { gLooping = true; raise(21); });
  onClick(s, "cStop", [] { raise(9); });
  onClick(s, "cStopLoop", [] { gLooping = false; raise(9); });
  onClick(s, "cStopCur", [] { raise(10); });
  onClick(s, "cReturn", [] { raise(20); });
  s.on("cMM", EventKind::Done, [](const Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
  });
  s.on("cMM", EventKind::Status, [](const Event&) { raise(18); });
}

void bindMenus(platform::Screen& s) {
  onClick(s, "cMnuShoKey", [] { gKeyboardDisplay = 1; sMnuKeyboardDisplayCheck(); raise(13); });
  onClick(s, "cMnuDonShoKey", [] { gKeyboardDisplay = 2; sMnuKeyboardDisplayCheck(); raise(13); });
  onClick(s, "cMnuDev", [] { gNotationScript = 1; sMnuNotationScriptCheck(); raise(15); });
  onClick(s, "cMnuEng", [] { gNotationScript = 2; sMnuNotationScriptCheck(); raise(15); });
  onClick(s, "cMnuUseGraNot", [] { gGraceNotes = 2; sMnuGraceNotesCheck(); raise(22); });
  onClick(s, "cMnuNoGraNot", [] { gGraceNotes = 1; sMnuGraceNotesCheck(); raise(22); });
  onClick(s, "cMnuDroLou", [] { gDroneStep = 1; raise(16); });
  onClick(s, "cMnuDroSof", [] { gDroneStep = -1; raise(16); });
  onClick(s, "cMnuRagInf", [] { raise(17); });
  onClick(s, "cMnuXptItmSnd", [] { sExportItemAtHand(ExportFormat::Sound); });
  onClick(s, "cMnuXptItmMid", [] { sExportItemAtHand(ExportFormat::Midi); });
  onClick(s, "cMnuXptItmPdf", [] { sExportItemAtHand(ExportFormat::Pdf); });
  onClick(s, "cMnuXptRagSnd", [] { sExportWholeRaga(ExportFormat::Sound); });
  onClick(s, "cMnuXptRagMid", [] { sExportWholeRaga(ExportFormat::Midi); });
  onClick(s, "cMnuXptRagPdf", [] { sExportWholeRaga(ExportFormat::Pdf); });
  onClick(s, "cMnuSlo", [] { if (gDelayMO > 0) --gDelayMO; });
  onClick(s, "cMnuSpe", [] { if (gDelayMO < INT16_MAX) ++gDelayMO; });
  sBindTonicMenu(s, raise, 14);
}

}  // namespace

void sBindMainOperationsEvents(platform::Screen& screen) {
  bindModes(screen);
  bindLists(screen);
  bindPlayButtons(screen);
  bindMenus(screen);
  sBindTraceMenuEvents(screen);
  // A change of size lays the controls out from the screen's ratios; the
  // row of lists, which the screen arranges by its content, follows.
  screen.on("", EventKind::Resize, [&screen](const Event&) {
    sResizeForm();
    sLayOutMOColumns(screen);
  });
  gPlayScreenProcedures.displayPrompt = sDisplayMPPrompt;
  gPlayScreenProcedures.owners[kContextMainOperations] = sMainOperations;
}
