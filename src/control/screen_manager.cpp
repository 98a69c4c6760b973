// The screen manager (see screen_manager.h): the screen table, the current
// screen and its parent chain, laying a screen out from the stored ratios,
// leaving screens, the shared menu check marks, the main-window selections.
#include "control/screen_manager.h"

#include <filesystem>
#include <map>

#include "control/screen_table.h"
#include "control/trace_menu.h"
#include "core/error_state.h"
#include "core/errors.h"
#include "core/random.h"
#include "core/session.h"
#include "core/trace.h"
#include "keyboard/keyboard_layout.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/positioning.h"

namespace {

std::map<std::int16_t, ScreenEntry>& screenTable() {
  static std::map<std::int16_t, ScreenEntry> table;
  return table;
}

// Screens that carry the trace menu entries.
bool hasTraceMenu(std::int16_t formId) {
  switch (formId) {
    case 1: case 7: case 9: case 13: case 14: case 20: case 22: case 27: case 28:
      return true;
    default:
      return false;
  }
}

// The halt procedure: unloads the screens up the parent chain to the main
// window, deletes the wave file now playing, and unloads the main window.
void unloadEveryScreen() {
  while (gCurrFormId != kFormNadavik) {
    platform::Screen* leaving = gCurrForm;
    gInternalClose = 1;
    if (leaving) leaving->unload();
    std::int16_t parent = gCurrFormId >= 1 && gCurrFormId <= 28 ? gParentFormIds[gCurrFormId - 1] : 0;
    gCurrFormId = parent > 0 ? parent : kFormNadavik;
    sSetCurrFormById();
  }
  std::error_code ec;
  if (!gCurrMusicFile.empty()) std::filesystem::remove(gCurrMusicFile, ec);
  if (gCurrForm) gCurrForm->unload();
}

void setChecked(const char* name, bool on) { gCurrForm->control(name).setChecked(on); }

void uncheckAll(std::initializer_list<const char*> names) {
  for (const char* n : names) setChecked(n, false);
}

std::string backgroundPicture() {
  return gDataPath + "/nv" + std::to_string(gImageIndex) + ".jpg";
}

// Places one control from its layout row; W and H are the window's outer
// size. Menus, timers, media and system-information controls are skipped.
void placeControl(platform::Control& c, const platform::Recordset& row, float w, float h) {
  using platform::ControlKind;
  if (c.kind() == ControlKind::Menu || c.kind() == ControlKind::Timer ||
      c.kind() == ControlKind::MediaControl || c.kind() == ControlKind::SysInfo)
    return;
  float x = float(row.field("LocRatX").asDouble());
  float y = float(row.field("LocRatY").asDouble());
  float cw = float(row.field("SizRatWidth").asDouble());
  float ch = float(row.field("SizRatHeight").asDouble());
  if (c.kind() == ControlKind::Line) {
    c.setLine(x * w, y * h, cw * w, ch * h);
    return;
  }
  c.setLeft(x * w);
  c.setTop(y * h);
  c.setWidth(cw * w);
  if (c.kind() != ControlKind::ComboBox) c.setHeight(ch * h);
}

// Sets the window to the saved geometry and answers the size controls are
// laid out against.
void applySavedGeometry(platform::Screen& s, float& w, float& h) {
  w = h = 0;
  if (gFormState == 0) {
    s.setVisible(true);
    s.setWindowState(0);
    s.setWidth(gFormW);
    s.setHeight(gFormH);
    s.setTop(gFormT);
    s.setLeft(gFormL);
    s.setVisible(false);
    w = gFormW;
    h = gFormH;
  } else if (gFormState == 2) {
    s.setVisible(true);
    s.setWindowState(2);
    s.setVisible(false);
    w = gMaxFormW;
    h = gMaxFormH;
  }
}

void layOutControls(platform::Screen& s, float w, float h) {
  auto forms = gDbA->openRecordset("NVForms", platform::RecordsetType::Table);
  sSetTableIndexRecord(*forms, "Form Name", platform::Value(s.name()));
  if (forms->noMatch()) {
    forms->close();
    sRaiseError(kErrProgram, "Screen '" + s.name() + "' has no layout in NVForms");
    return;
  }
  auto formId = forms->field("Form Id");
  long count = forms->field("TotalControlCount").asInteger();
  forms->close();

  auto rows = gDbA->openRecordset("NVFormControls", platform::RecordsetType::Table);
  sSetTablePKRecord2(*rows, formId, platform::Value(0));
  for (long i = 0; i < count; ++i) {
    if (rows->noMatch() || rows->eof()) {
      rows->close();
      sRaiseError(kErrProgram, "Control " + std::to_string(i) + " of '" + s.name() +
                                   "' has no layout row");
      return;
    }
    placeControl(s.controlAt(static_cast<int>(i)), *rows, w, h);
    if (i < count - 1) rows->moveNext();
  }
  rows->close();
}

}  // namespace

// --- screen table -------------------------------------------------------------

void sRegisterScreen(const ScreenEntry& entry) { screenTable()[entry.formId] = entry; }

const ScreenEntry* fScreenEntry(std::int16_t formId) {
  auto it = screenTable().find(formId);
  return it == screenTable().end() ? nullptr : &it->second;
}

void sCallController(std::int16_t formId, std::int16_t event) {
  const ScreenEntry* entry = fScreenEntry(formId);
  if (entry && entry->controller) entry->controller(event);
}

void sCreateScreenObjects() {
  for (auto& [id, entry] : screenTable()) {
    platform::Screen& s = platform::windowSystem().screen(entry.name);
    if (id != kFormNadavik) sBindCommonScreenEvents(s);
    if (entry.binder) entry.binder(s);
  }
  gMainMenuForm = fFormById(kFormNadavik);
  sSetHaltProcedure(unloadEveryScreen);
}

platform::Screen* fFormById(std::int16_t formId) {
  const ScreenEntry* entry = fScreenEntry(formId);
  return entry ? &platform::windowSystem().screen(entry->name) : nullptr;
}

// --- current screen and chain -----------------------------------------------

void sSetCurrFormById() {
  if (platform::Screen* s = fFormById(gCurrFormId)) gCurrForm = s;
  if (hasTraceMenu(gCurrFormId)) sMnuTraceCheck();
}

void sEnterForm(std::int16_t formId) {
  gPrevForm = gCurrForm;
  gParentFormIds[formId - 1] = gCurrFormId;
  gCurrFormId = formId;
  sSetCurrFormById();
  sShowForm(1);
}

void sShowForm(std::int16_t mode) {
  NV_PROC("sShowForm");
  platform::Screen& s = *gCurrForm;
  float w = 0, h = 0;
  applySavedGeometry(s, w, h);
  layOutControls(s, w, h);
  sRandomize();
  sShowNextPicture(s);
  s.show();
  if (mode == 1 && gPrevForm && gPrevForm != &s) gPrevForm->setVisible(false);
}

void sShowNextPicture(platform::Screen& s) {
  gImageFile = backgroundPicture();
  s.setPicture(gImageFile);
  gImageIndex = fRandomFrom1To(kPictureCount);
}

void sSetFormParameters() {
  NV_PROC("sSetFormParameters");
  platform::Screen& s = *gCurrForm;
  switch (s.windowState()) {
    case 0:
      gFormState = 0;
      gFormL = s.left();
      gFormT = s.top();
      gFormW = s.width();
      gFormH = s.height();
      break;
    case 1:
      gFormState = 1;
      break;
    case 2:
      gFormState = 2;
      break;
  }
}

void sResizeForm() {
  if (gResizeEnabled != 1) return;
  gResizeEnabled = 0;
  sSetFormParameters();
  sShowForm(0);
  // The layout rows place cLine1 but not the keys built at run time.
  sRelayKeyboard(*gCurrForm);
}

void sRevertToParentForm() {
  NV_PROC("sRevertToParentForm");
  gPrevForm = gCurrForm;
  gCurrFormId = gParentFormIds[gCurrFormId - 1];
  sSetCurrFormById();
  if (gCurrFormId == kFormMainOperations) gCallbackContext = 12;
  gPrevForm->setVisible(false);
  gCurrForm->setVisible(true);
}

void sStructuredTermination(std::int16_t levels) {
  NV_PROC("sStructuredTermination");
  for (int i = 1; i <= levels; ++i) {
    gInternalClose = 1;
    sSetFormParameters();
    sRevertToParentForm();
    gPrevForm->unload();
  }
}

void sBindResizeAndActivate(platform::Screen& screen) {
  using platform::EventKind;
  screen.on("", EventKind::Resize, [](const platform::Event&) { sResizeForm(); });
  screen.on("", EventKind::Activate, [&screen](const platform::Event&) {
    gFormState = static_cast<std::int16_t>(screen.windowState());
    gResizeEnabled = 1;
  });
}

void sBindCommonScreenEvents(platform::Screen& screen) {
  sBindResizeAndActivate(screen);
  screen.on("", platform::EventKind::Unload, [](const platform::Event&) {
    if (gInternalClose != 1) {
      sSetFormParameters();
      sRevertToParentForm();
    } else {
      gInternalClose = 0;
    }
  });
}

// --- main-window selections -------------------------------------------------

namespace {
void enableMainSelections(bool on) {
  platform::Screen& main = *gMainMenuForm;
  for (const char* name : {"cExit", "cMnuHel", "cMnuTip", "cMnuMaiOpe", "cMnuSupOpe"})
    main.control(name).setEnabled(on);
}
}  // namespace

void sDisableNVSelections() { enableMainSelections(false); }

void sEnableAllNVSelections() { enableMainSelections(true); }

void sEnableNVSelections() {
  sEnableAllNVSelections();
  gMainMenuForm->control("cExit").setEnabled(true);
}

// --- shared menu check marks ------------------------------------------------

void sMnuGraceNotesUncheck() { uncheckAll({"cMnuNoGraNot", "cMnuUseGraNot"}); }
void sMnuGraceNotesCheck() {
  sMnuGraceNotesUncheck();
  if (gGraceNotes == 1) setChecked("cMnuNoGraNot", true);
  if (gGraceNotes == 2) setChecked("cMnuUseGraNot", true);
}

void sMnuKeyboardDisplayUncheck() { uncheckAll({"cMnuShoKey", "cMnuDonShoKey"}); }
void sMnuKeyboardDisplayCheck() {
  sMnuKeyboardDisplayUncheck();
  if (gKeyboardDisplay == 1) setChecked("cMnuShoKey", true);
  if (gKeyboardDisplay == 2) setChecked("cMnuDonShoKey", true);
}

void sMnuNotationUncheck() { uncheckAll({"cMnuDonShoNot", "cMnuShoNot"}); }
void sMnuNotationCheck() {
  sMnuNotationUncheck();
  if (gNotationDisplay == 0) setChecked("cMnuDonShoNot", true);
  if (gNotationDisplay == 1) setChecked("cMnuShoNot", true);
}

void sMnuNotationScriptUncheck() { uncheckAll({"cMnuDev", "cMnuEng"}); }
void sMnuNotationScriptCheck() {
  sMnuNotationScriptUncheck();
  setChecked(gNotationScript == 1 ? "cMnuDev" : "cMnuEng", true);
}

void sMnuNotePalletUncheck() { uncheckAll({"cMnuNotForRag", "cMnuAllNot"}); }
void sMnuNotePalletCheck() {
  sMnuNotePalletUncheck();
  if (gNotePallet == 1) setChecked("cMnuNotForRag", true);
  if (gNotePallet == 2) setChecked("cMnuAllNot", true);
}

namespace {
const char* const kSortingEntries[] = {"cMnuRag", "cMnuTha", "cMnuJat",
                                       "cMnuVad", "cMnuSam", "cMnuAppTim"};
const char* const kTonicEntries[] = {"cMnuW7", "cMnuW1", "cMnuB1", "cMnuW2", "cMnuB2", "cMnuW3",
                                     "cMnuW4", "cMnuB3", "cMnuW5", "cMnuB4", "cMnuW6", "cMnuB5"};
}  // namespace

void sMnuRagaSortingModeUncheck() {
  for (const char* n : kSortingEntries) setChecked(n, false);
}
void sMnuRagaSortingModeCheck() {
  sMnuRagaSortingModeUncheck();
  if (gSortingMode >= 0 && gSortingMode <= 5) setChecked(kSortingEntries[gSortingMode], true);
}

void sMnuThekaUncheck() { uncheckAll({"cMnuUseThe", "cMnuNoThe"}); }
void sMnuThekaCheck() {
  sMnuThekaUncheck();
  if (gThekaMode == 1) setChecked("cMnuUseThe", true);
  if (gThekaMode == 2) setChecked("cMnuNoThe", true);
}

void sMnuTipsUncheck() { uncheckAll({"cMnuShoTip", "cMnuDonShoTip"}); }
void sMnuTipsCheck() {
  sMnuTipsUncheck();
  if (gTipSignal == 1) setChecked("cMnuShoTip", true);
  if (gTipSignal == 0) setChecked("cMnuDonShoTip", true);
}

void sMnuTonicNoteUncheck() {
  for (const char* n : kTonicEntries) setChecked(n, false);
}
void sMnuTonicNoteCheck() {
  sMnuTonicNoteUncheck();
  if (gCurrMusicSetId < 13 && gCurrTonicNoteId >= 1 && gCurrTonicNoteId <= 12)
    setChecked(kTonicEntries[gCurrTonicNoteId - 1], true);
}
