// The event handlers of the Workshop screen: each sets the session values
// its event needs and calls the controller. No state of its own.
#include <array>
#include <cstdint>

#include "control/screen_manager.h"
#include "control/tonic_menu.h"
#include "control/trace_menu.h"
#include "core/session.h"
#include "platform/audio.h"
#include "platform/screen.h"
#include "sound/music_buffers.h"
#include "sound/play_chain.h"
#include "sound/playback.h"
#include "workbench/workbench.h"
#include "workbench/workbench_state.h"

namespace {

using platform::Event;
using platform::EventKind;

struct Entry {
  const char* control;
  std::int16_t value;
};

constexpr std::array<Entry, 8> kPatternEntries = {{
    {"cMnuSToS", 0}, {"cMnuPToP", 1}, {"cMnu1UC", 2}, {"cMnu2UC", 3}, {"cMnu3UC", 4},
    {"cMnu1UC2UC", 5}, {"cMnu2UC3UC", 6}, {"cMnu2UJD1J", 7},
}};
constexpr std::array<Entry, 4> kModeButtons = {{
    {"cMajorScale", 1}, {"cNotePatterns", 2}, {"cNotesForRaga", 3}, {"cNotesQuiz", 4}}};
constexpr std::array<Entry, 3> kDroneEntries = {{{"cMnuWitP", 1}, {"cMnuWitM", 2}, {"cMnuWitN", 3}}};

void raise(std::int16_t event) { sWorkshop(event); }

void onClick(platform::Screen& s, const char* control, void (*handler)()) {
  s.on(control, EventKind::Click, [handler](const Event&) { handler(); });
}

// Each entry of a table sets its value through `set` and raises `event`.
template <std::size_t N>
void bindEntries(platform::Screen& s, const std::array<Entry, N>& entries, void (*set)(std::int16_t),
                 std::int16_t event) {
  for (const Entry& entry : entries)
    s.on(entry.control, EventKind::Click, [entry, set, event](const Event&) {
      set(entry.value);
      raise(event);
    });
}

// Play and Start Looping: a single play in the notes quiz, else the pattern.
void sPlayButton(bool loop) {
  if (gCurrMode == 1) {
    raise(17);
    return;
  }
  gLooping = loop;
  raise(5);
}

void sPlayingModeChosen(std::int16_t mode) {
  gCurrMode = mode;
  if (gPatternSource != 0) raise(6);
}

void bindModesAndDialogue(platform::Screen& s) {
  bindEntries(s, kModeButtons, [](std::int16_t mode) { gWBMode = mode; }, 1);
  onClick(s, "cRagaList", [] { raise(2); });
  s.on("cL", EventKind::Click, [](const Event& e) {
    gLabelIndex = static_cast<std::int16_t>(e.index);
    raise(3);
  });
  onClick(s, "cO1", [] { raise(11); });
  onClick(s, "cO2", [] { raise(12); });
  onClick(s, "cO3", [] { raise(13); });
  onClick(s, "cOLearn", [] { sPlayingModeChosen(2); });
  onClick(s, "cOPract", [] { sPlayingModeChosen(3); });
  onClick(s, "cShowNote", [] { raise(8); });
  onClick(s, "cSelNewSca", [] { raise(9); });
  onClick(s, "cSwitchWBMode", [] { raise(21); });
  onClick(s, "cOK", [] { raise(28); });
  s.on("cSlider", EventKind::Change, [](const Event&) { gSliderMoved = -1; });
  s.on("cTimer1", EventKind::Timer, [](const Event&) {
    gCurrForm->control("cTimer1").setEnabled(false);
    raise(10);
  });
}

void bindPlaying(platform::Screen& s) {
  onClick(s, "cPlay", [] { sPlayButton(false); });
  onClick(s, "cStartLoop", [] { sPlayButton(true); });
  onClick(s, "cStop", [] { raise(22); });
  onClick(s, "cStopLoop", [] { gLooping = false; raise(22); });
  onClick(s, "cReturn", [] { raise(20); });
  // A notification that arrives once the screen has been left (its close
  // box stops what sounds) has nothing left to do.
  s.on("cMM", EventKind::Done, [](const Event& e) {
    if (gCurrFormId != kFormWorkshop) return;
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    if (gWBPlayKind == 1)
      sPlayMusicFile1(gCurrMusicFile);
    else
      sPlayMusicFile(gCurrMusicFile);
  });
  s.on("cMM", EventKind::Status, [](const Event&) {
    if (gCurrFormId == kFormWorkshop) raise(23);
  });
  // The close box (and Go Back, which unloads the screen once its parent
  // is current): whatever sounds stops with the screen.
  s.on("", EventKind::QueryUnload, [&s](const Event&) {
    gLooping = false;
    gPlaySet.Position = static_cast<std::int16_t>(gPlaySet.LastPhrase + 1);
    s.control("cTimer1").setEnabled(false);
    s.control("cMM").device().command("Stop");
  });
}

void bindMenus(platform::Screen& s) {
  bindEntries(s, kPatternEntries, [](std::int16_t index) {
    gStdPatternIndex = index;
    gPatternSource = 1;
  }, 6);
  sBindTonicMenu(s, raise, 15);
  bindEntries(s, kDroneEntries, [](std::int16_t type) { gCurrDroneType = type; }, 25);
  onClick(s, "cMnuUsePat", [] { gPatternSource = 2; raise(29); });
  onClick(s, "cMnuRenPat", [] { raise(31); });
  onClick(s, "cMnuDelPat", [] { raise(32); });
  onClick(s, "cMnuDefPat", [] { gDefPatternMode = 2; raise(26); });
  onClick(s, "cMnuMeePat", [] { raise(16); });
  onClick(s, "cMnuUseGraNot", [] { gGraceNotes = 2; raise(14); });
  onClick(s, "cMnuNoGraNot", [] { gGraceNotes = 1; raise(14); });
  onClick(s, "cMnuShoKey", [] { gKeyboardDisplay = 1; sMnuKeyboardDisplayCheck(); raise(18); });
  onClick(s, "cMnuDonShoKey", [] { gKeyboardDisplay = 2; sMnuKeyboardDisplayCheck(); raise(18); });
  onClick(s, "cMnuDev", [] { gNotationScript = 1; sMnuNotationScriptCheck(); raise(24); });
  onClick(s, "cMnuEng", [] { gNotationScript = 2; sMnuNotationScriptCheck(); raise(24); });
  onClick(s, "cMnuSlo", [] { if (gDelayW > 0) --gDelayW; });
  onClick(s, "cMnuSpe", [] { if (gDelayW < INT16_MAX) ++gDelayW; });
}

}  // namespace

void sBindWorkshopEvents(platform::Screen& screen) {
  bindModesAndDialogue(screen);
  bindPlaying(screen);
  bindMenus(screen);
  sBindTraceMenuEvents(screen);
  gPlayScreenProcedures.owners[kContextWorkbench] = sWorkshop;
}
