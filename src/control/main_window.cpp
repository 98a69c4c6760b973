// Event handlers of the main window (form id 1) and of the opening screen
// shown before it.
#include "control/carry_over.h"
#include "control/program_folders.h"
#include "control/screen_manager.h"
#include "control/screen_table.h"
#include "control/startup.h"
#include "control/trace_menu.h"
#include "core/messages.h"
#include "core/session.h"
#include "core/trace.h"
#include "platform/screen.h"
#include "sound/playback.h"

namespace {

using platform::Event;
using platform::EventKind;

// The main window's Load: the opening screen first; the program starts only
// when the user presses OK there.
void onMainLoad(platform::Screen& main) {
  gOpeningOk = 0;
  platform::windowSystem().screen("OpeningScreen").showModal();
  if (gOpeningOk == 0) {
    main.unload();
    return;
  }
  gResizeEnabled = 0;
  sNVControl(0);
}

void onMainQueryUnload(const Event& e) {
  if (e.unloadMode != 0) return;  // the program's own unload
  gCloseReason = 2;
  sNVControl(20);
}

// Help, User Guide: the guide's page in the desktop's browser, or a message
// that says where the page is when no browser could be started.
void openUserGuide() {
  const std::string page = fUserGuidePage(fProgramFolders());
  if (page.empty() || !platform::windowSystem().openDocument(page))
    sShowMessage(page.empty() ? "The user guide of Nadavik is not installed."
                              : "No web browser could be started to show the user guide. Please open the file '" +
                                    page + "' yourself.");
}

void onMainTimer() {
  gMainMenuForm->control("cTimer").setEnabled(false);
  if (gTimerPurpose == 1) sInitApp2(0);
  if (gTimerPurpose == 2) sTerminateApp();
}

void bindMenu(platform::Screen& s, const char* entry, std::int16_t formId) {
  s.on(entry, EventKind::Click, [formId](const Event&) { sCallController(formId, 0); });
}

}  // namespace

void sBindNadavikEvents(platform::Screen& s) {
  s.on("", EventKind::Load, [&s](const Event&) { onMainLoad(s); });
  sBindResizeAndActivate(s);
  s.on("", EventKind::QueryUnload, onMainQueryUnload);
  s.on("cExit", EventKind::Click, [](const Event&) {
    gCloseReason = 1;
    sNVControl(20);
  });
  s.on("cOK", EventKind::Click, [](const Event&) { sInitApp2(1); });
  s.on("cShowNext", EventKind::Click, [](const Event&) { sInitApp2(0); });
  s.on("cTimer", EventKind::Timer, [](const Event&) { onMainTimer(); });
  s.on("cMM", EventKind::Done, [](const Event&) { sPlayMusicFile(gCurrMusicFile); });
  bindMenu(s, "cMnuExpRag", kFormRagaSelection1);
  bindMenu(s, "cMnuTakQui", kFormQuiz);
  bindMenu(s, "cMnuUseMusSam", kFormNVSampler);
  s.on("cMnuOpeWor", EventKind::Click, [](const Event&) { sNVControl(3); });
  s.on("cMnuInvCom", EventKind::Click, [](const Event&) { sNVControl(4); });
  bindMenu(s, "cMnuDefPitShi", kFormScaleShifting);
  bindMenu(s, "cMnuRevRagGro", kFormReviewRagas);
  s.on("cMnuCarOve", EventKind::Click, [](const Event&) { sCarryOverFromOlderInstallation(); });
  s.on("cMnuShoTip", EventKind::Click, [](const Event&) {
    gTipSignal = 1;
    sMnuTipsCheck();
  });
  s.on("cMnuDonShoTip", EventKind::Click, [](const Event&) {
    gTipSignal = 0;
    sMnuTipsCheck();
  });
  s.on("cMnuHel", EventKind::Click, [](const Event&) { gCurrForm->enterWhatsThisMode(); });
  s.on("cMnuUseGui", EventKind::Click, [](const Event&) { openUserGuide(); });
  sBindTraceMenuEvents(s);
}

// The opening screen's description in Text1 comes with its definition; its
// picture is the one the main window opens with.
void sBindOpeningScreenEvents(platform::Screen& s) {
  s.on("", EventKind::Load, [&s](const Event&) {
    s.control("Picture1").setPicture(gDataPath + "/nv6.jpg");
  });
  s.on("OKButton", EventKind::Click, [&s](const Event&) {
    gOpeningOk = 1;
    s.unload();
  });
  s.on("CancelButton", EventKind::Click, [&s](const Event&) { s.unload(); });
}
