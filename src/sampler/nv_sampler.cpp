// Controller of the NVSampler screen, which plays random pieces of the
// collection once or in a loop.
//
// The end of a piece is found by polling: cTimer1 ticks while a piece may
// be playing and asks the device whether it still plays; once it does not,
// cTimer1 stops and cTimer waits the 300 ms pause between pieces, then
// draws the next piece when looping, or gives the Play buttons back. The
// playing chain tells this screen nothing (callback context 9).
// State: the keyboard and theka settings saved on entry.
#include "sampler/sampler.h"

#include "control/screen_manager.h"
#include "control/trace_menu.h"
#include "core/errors.h"
#include "core/session.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "sampler/sample_selection.h"
#include "sound/music_set.h"
#include "sound/play_buttons.h"
#include "sound/playback.h"
#include "store/lookups.h"

namespace {

constexpr std::int16_t kNoKeyboard = 2;
constexpr std::int16_t kNoTheka = 2;
constexpr int kPauseBetweenPiecesMs = 300;

std::int16_t gSamplerSavedKeyboard = 1;
std::int16_t gSamplerSavedTheka = 2;

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }

void sDisplayPromptForSampler() {
  ctl("cPrompts").setText(fGetPrompts("33") + gSeparator + fGetScaleInfo());
}

// Event 1.
void sPlaySample() {
  sEnablePlayStopButtons();
  if (!fSelectSample()) return;
  gCurrForm->control("cDesc").refresh();
  ctl("cDesc").setFocus();
  ctl("cTimer1").setEnabled(true);
}

// Event 2: the device still answers the stopped play with its done
// notification, which closes the file.
void sStopSample() {
  platform::AudioDevice& mm = ctl("cMM").device();
  mm.notify = false;
  mm.wait = true;
  mm.command("Stop");
  sEnablePlayStartButtons();
}

// Event 3: the tick of cTimer1.
void sWatchPiece() {
  platform::Control& watch = ctl("cTimer1");
  if (ctl("cMM").device().mode() == platform::kModePlaying) {
    watch.setEnabled(false);  // starts the interval again
    watch.setEnabled(true);
    return;
  }
  watch.setEnabled(false);
  ctl("cTimer").setInterval(kPauseBetweenPiecesMs);
  ctl("cTimer").setEnabled(true);
}

// The tick of cTimer, after the pause.
void sCheckLooping() {
  ctl("cTimer").setEnabled(false);
  if (gLooping)
    sNVSampler(1);
  else
    sEnablePlayStartButtons();
}

}  // namespace

void sInitNVSampler() {
  NV_PROC("sInitNVSampler");
  gCallbackContext = kContextSampler;
  gCurrMode = 1;
  gCurrDbSelector = 1;
  gSamplerSavedKeyboard = gKeyboardDisplay;
  gKeyboardDisplay = kNoKeyboard;
  gSamplerSavedTheka = gThekaMode;
  gThekaMode = kNoTheka;
  sEnterForm(kFormNVSampler);
  sMnuTraceCheck();
  sDisplayPromptForSampler();
  gLooping = false;
  sEnablePlayStartButtons();
}

void sTerminateNVSampler() {
  NV_PROC("sTerminateNVSampler");
  gKeyboardDisplay = gSamplerSavedKeyboard;
  gThekaMode = gSamplerSavedTheka;
  sStructuredTermination(1);
}

void sNVSampler(std::int16_t event) {
  NV_PROC("sNVSampler");
  switch (event) {
    case 0: sInitNVSampler(); break;
    case 1: sPlaySample(); break;
    case 2: sStopSample(); break;
    case 3: sWatchPiece(); break;
    case 20: sTerminateNVSampler(); break;
    default: break;  // other events do nothing
  }
}

void sBindNVSamplerEvents(platform::Screen& screen) {
  using platform::Event;
  using platform::EventKind;
  screen.on("cPlay", EventKind::Click, [](const Event&) { sNVSampler(1); });
  screen.on("cStartLoop", EventKind::Click, [](const Event&) {
    gLooping = true;
    sNVSampler(1);
  });
  screen.on("cStop", EventKind::Click, [](const Event&) { sNVSampler(2); });
  screen.on("cStopLoop", EventKind::Click, [](const Event&) {
    gLooping = false;
    sNVSampler(2);
  });
  screen.on("cTimer1", EventKind::Timer, [](const Event&) { sNVSampler(3); });
  screen.on("cTimer", EventKind::Timer, [](const Event&) { sCheckLooping(); });
  screen.on("cMM", EventKind::Done, [](const Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
  });
  screen.on("cReturn", EventKind::Click, [](const Event&) { sNVSampler(20); });
  sBindTraceMenuEvents(screen);
}
