// Opening the Raga Exploration screen: the raga's data, its lists laid out
// in a row, Demo mode, the keyboard and the menus' check marks.
// No state of its own beyond the screen's session values it resets.
#include "exploration/exploration.h"

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/session.h"
#include "core/trace.h"
#include "display/fonts.h"
#include "display/raga_display.h"
#include "exploration/exploration_state.h"
#include "exploration/illustrations.h"
#include "exploration/prompts.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reed_labels.h"
#include "platform/screen.h"
#include "sound/play_state.h"
#include "sound/playback.h"
#include "store/working_record.h"

namespace {

constexpr std::int16_t kTrue = -1;

// Margin of the row of lists at each side, and the space between columns,
// as parts of the window's width.
constexpr float kRowMargin = 0.02F;
constexpr float kColumnGap = 0.02F;

// Places a list (or the mode frame) and its label at `left`; answers the
// left edge of the next column.
float fPlaceColumn(platform::Screen& form, const char* list, const char* label, float left) {
  form.control(list).setLeft(left);
  form.control(label).setLeft(left);
  form.control(list).setVisible(true);
  form.control(label).setVisible(true);
  return left + form.control(list).width() + kColumnGap * form.width();
}

void sHideColumn(platform::Screen& form, const char* list, const char* label) {
  form.control(list).setVisible(false);
  form.control(label).setVisible(false);
}

}  // namespace

// The row under the raga's data, from the left margin: the library's
// items, the user's items and the scales when they have any, the mode
// frame, and the prompts in the rest of the row. (The columns used to be
// centred, with the prompts in a row of their own below: on a 1366x768
// screen that left room neither for a list of nine items nor for the
// whole prompt.)
void sLayOutMOColumns(platform::Screen& form) {
  float left = kRowMargin * form.width();
  left = fPlaceColumn(form, "cNVIllusList", "Label1", left);
  if (gUserItemsShown == kTrue)
    left = fPlaceColumn(form, "cUserIllusList", "Label8", left);
  else
    sHideColumn(form, "cUserIllusList", "Label8");
  if (gUserScalesShown == kTrue)
    left = fPlaceColumn(form, "cScaleList", "Label16", left);
  else
    sHideColumn(form, "cScaleList", "Label16");
  // The mode buttons are placed on the screen, not inside the frame: they
  // move with it.
  const float shift = left - form.control("Frame1").left();
  for (const char* option : {"Option1", "Option2", "Option3"})
    form.control(option).setLeft(form.control(option).left() + shift);
  left = fPlaceColumn(form, "Frame1", "Label17", left);
  platform::Control& prompts = form.control("cPrompts");
  prompts.setLeft(left);
  prompts.setWidth((1 - kRowMargin) * form.width() - left);
}

void sInitMainOperations() {
  NV_PROC("sInitMainOperations");
  sSetFormParameters();
  sEnterForm(kFormMainOperations);
  gCallbackContext = 12;
  sMnuTraceCheck();
  platform::Screen& form = *gCurrForm;

  sDisplayRagaBasicData();
  sAdjustFont(form.control("cCurrentItem"));
  sLoadRagaNotes();
  sLoadSystemIllustratinsList();

  gCurrNotation.clear();
  gLastLearnNotation.clear();
  gLastLearnSpeed = 0;
  gPhraseStep = 1;
  gCurrMode = 1;
  gLooping = false;

  gUserScalesShown = fLoadScalesList();
  gModeFrameShown = kTrue;
  gUserItemsShown = fLoadUserIllustrationsList();
  form.control("cLine2").setVisible(true);
  sLayOutMOColumns(form);

  form.control("Option1").setValue(-1);
  form.control("cMnuDev").setVisible(gDevnagariOk == kTrue);

  // The raga's notes, those of its aroha and avroha, are marked on this
  // screen's keyboard.
  sSetRagaNoteClasses(form, fGetFromT_ScalePhraseUnSeg(1));
  sLoadKBReedsAndLabels(form);
  if (gKeyboardDisplay == 1) {
    form.control("cLine1").setVisible(true);
    sKeyBoardDisplayOn(form, 1);
  }
  form.control("cNotes").setVisible(true);
  form.control("cNotes").setText(gRagaNotesText);
  sMnuGraceNotesCheck();
  sMnuNotationScriptCheck();
  sMnuTonicNoteCheck();
  sMnuKeyboardDisplayCheck();
  sDisplayDemoModePrompts();
}

void sTerminateMainOperations() {
  NV_PROC("sTerminateMainOperations");
  sStructuredTermination(1);
}
