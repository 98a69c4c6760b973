// The Composer screen's handlers: each control sets a value or two and
// raises the controller's event (see composer.h).
#include <cstdint>

#include "composer/composer.h"
#include "composer/composer_save.h"
#include "composer/composer_slots.h"
#include "composer/row_images.h"
#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/session.h"
#include "platform/screen.h"
#include "sound/play_chain.h"
#include "sound/playback.h"

namespace {

using platform::Event;
using platform::EventKind;

void raise(std::int16_t event) { sComposer(event); }

template <class Action>
void onClick(platform::Screen& s, const char* control, Action action) {
  s.on(control, EventKind::Click, [action](const Event&) { action(); });
}

// A category button: its category and item type, then event 2.
void bindCategory(platform::Screen& s, const char* control, std::int16_t category, std::int16_t itemType) {
  s.on(control, EventKind::Click, [category, itemType](const Event&) {
    gCurrAltType = category;
    gCurrItemType = itemType;
    gBaseItemType = itemType;
    raise(2);
  });
}

// A click on a palette entry selects it, or clears the selection when it
// was the one selected.
void bindPalette(platform::Screen& s, const char* palette, std::int16_t& selected, std::int16_t event) {
  s.on(palette, EventKind::Click, [&selected, event](const Event& e) {
    selected = static_cast<std::int16_t>(selected == e.index ? -1 : e.index);
    raise(event);
  });
}

void bindSlots(platform::Screen& s) {
  const struct {
    const char* control;
    EventKind kind;
    std::int16_t event;
  } slots[] = {{"cNote", EventKind::Click, 6},
               {"cGNote", EventKind::Click, 7},
               {"cTime", EventKind::Click, 8},
               {"cCompSyl", EventKind::Change, 15}};
  for (const auto& slot : slots)
    s.on(slot.control, slot.kind, [event = slot.event](const Event& e) {
      if (e.index < 0 || e.index >= kSlotCount) return;
      gCurrNotationSlot = static_cast<std::int16_t>(e.index);
      raise(event);
    });
}

// The raga's own aroha, avroha or pakad played from its box.
void bindRagaPhrases(platform::Screen& s) {
  for (const char* box : {"cAroha", "cAvroha", "cPakad"})
    s.on(box, EventKind::Click, [box](const Event&) {
      gCurrItemType = std::string(box) == "cPakad" ? 2 : 1;
      if (gBaseItemType == 0) gBaseItemType = gCurrItemType;
      raise(9);
    });
}

void bindMenus(platform::Screen& s) {
  onClick(s, "cMnuDev", [] { gNotationScript = 1; sMnuNotationScriptCheck(); raise(24); });
  onClick(s, "cMnuEng", [] { gNotationScript = 2; sMnuNotationScriptCheck(); raise(24); });
  onClick(s, "cMnuNotForRag", [] { gNotePallet = 1; sMnuNotePalletCheck(); raise(22); });
  onClick(s, "cMnuAllNot", [] { gNotePallet = 2; sMnuNotePalletCheck(); raise(23); });
  onClick(s, "cMnuSlo", [] { if (gDelayC > 0) --gDelayC; });
  onClick(s, "cMnuSpe", [] { if (gDelayC < INT16_MAX) ++gDelayC; });
  onClick(s, "cMnuXptSnd", [] { sExportComposerItem(ExportFormat::Sound); });
  onClick(s, "cMnuXptMid", [] { sExportComposerItem(ExportFormat::Midi); });
  onClick(s, "cMnuXptPdf", [] { sExportComposerItem(ExportFormat::Pdf); });
  sBindTraceMenuEvents(s);
}

// The close box asks the same question as Go Back before a composition
// never saved is left, and leaves the session as Go Back does.
void bindClose(platform::Screen& s) {
  s.on("", EventKind::QueryUnload, [](const Event& e) {
    if (e.unloadMode != 0 || gCurrFormId != kFormComposer) return;
    if (fCheckForComp(3) == 0) {
      if (e.cancel) *e.cancel = true;
      return;
    }
    sInitCompInfo();
    gCurrDbSelector = 1;
    gCurrMode = gSavedMode;
  });
}

}  // namespace

void sBindComposerEvents(platform::Screen& screen) {
  onClick(screen, "cRagaList", [] { raise(1); });
  onClick(screen, "cOK", [] { raise(3); });
  bindCategory(screen, "cOAlap", 1, 3);
  bindCategory(screen, "cOLayakari", 2, 4);
  bindCategory(screen, "cOTaan", 3, 5);
  bindCategory(screen, "cOCompN", 4, 6);
  bindCategory(screen, "cOCompE", 5, 6);
  bindPalette(screen, "cNotation", gSelNotation, 4);
  bindPalette(screen, "cTimeVal", gSelTimeVal, 5);
  bindSlots(screen);
  bindRagaPhrases(screen);
  onClick(screen, "cPlay", [] { raise(9); });
  onClick(screen, "cMoveD", [] { raise(11); });
  onClick(screen, "cMoveU", [] { raise(12); });
  onClick(screen, "cNewCat", [] { raise(13); });
  onClick(screen, "cNewRaga", [] { raise(14); });
  onClick(screen, "cSave", [] { raise(16); });
  onClick(screen, "cOAsthai", [] { raise(17); });
  onClick(screen, "cOAntara", [] { raise(18); });
  onClick(screen, "cReturn", [] { raise(20); });
  onClick(screen, "cRename", [] { raise(25); });
  onClick(screen, "cDelete", [] { raise(26); });
  onClick(screen, "cOIns", [] { gInsertPending = true; gDeletePending = false; });
  onClick(screen, "cODel", [] { gDeletePending = true; gInsertPending = false; });
  screen.on("cMM", EventKind::Done, [](const Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
  });
  screen.on("cMM", EventKind::Status, [](const Event&) { raise(21); });
  bindMenus(screen);
  bindClose(screen);
  gPlayScreenProcedures.resetComposerNoteCells = sSetComposerFormNoteSlotsToDefaultFrontColor;
  gPlayScreenProcedures.owners[kContextComposer] = sComposer;
}
