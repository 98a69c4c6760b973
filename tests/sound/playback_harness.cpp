// The playing chain's test stage (see playback_harness.h).
#include "playback_harness.h"

#include "audio_fixture.h"

#include <QApplication>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <numeric>

#include <unistd.h>

#include "control/screen_manager.h"
#include "core/session.h"
#include "keyboard/keyboard_layout.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "notation/devanagari.h"
#include "notation/vocabulary.h"
#include "platform/audio.h"
#include "platform/qt/qt_window_system.h"
#include "platform/silent_audio.h"
#include "sound/music_buffers.h"
#include "sound/music_file.h"
#include "sound/notes_list.h"
#include "sound/play_chain.h"
#include "sound/play_state.h"
#include "sound/play_status.h"
#include "sound/playback.h"

namespace playbackstage {

std::int16_t buildSilentPhraseFile(std::int16_t buffer);

namespace {

// A silent 8 kHz wave file of durationMs.
void writeSilentWave(const std::string& path, long durationMs) {
  platform::testing::WaveSpec spec;
  spec.sampleRate = 8000;
  spec.frames = static_cast<std::uint32_t>(durationMs * 8);
  spec.toneHz = 0;
  platform::testing::writeBytes(path, platform::testing::waveBytes(spec));
}

platform::Screen* gStageForm = nullptr;

void stageController(std::int16_t event) {
  if (event == 18) {
    sTrackPlayingNote(*gCurrForm, gDelayMO);
    return;
  }
  stage().events.push_back(event);
  // At the end of a run a looping screen starts the item again.
  if (event == kEventRangeEnded && gLooping) {
    gPlaySet.Position = gPlaySet.FirstPhrase;
    const std::int16_t buffer = fBufferForPhrase(gPlaySet.Position);
    gMusicBuffers[static_cast<std::size_t>(buffer)].Count = fCreateNotesList1(buffer);
    buildSilentPhraseFile(buffer);
    fPlayMusicPhrases(*gCurrForm);
  }
}

void recordOpen() {
  stage().opened.push_back(std::filesystem::path(gCurrMusicFile).filename().string());
}

void setUpOnce() {
  static bool done = false;
  if (done) return;
  done = true;
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  static int argc = 1;
  static char name[] = "playback_test";
  static char* argv[] = {name, nullptr};
  new QApplication(argc, argv);
  auto* windows = new platform::QtWindowSystem(NADAVIK_SCREENS_DIR);
  windows->setDevanagariConverters({fKeymapToUnicode, fUnicodeToKeymap});
  windows->setAudioDeviceFactory(
      [] { return platform::createSilentAudioDevice(stage().clock, stage().clock); });
  windows->setMessageBoxResponder([](const std::string& text, int, const std::string&) {
    stage().messages.push_back(text);
    return platform::kAnswerOk;
  });
  platform::setWindowSystem(windows);

  const auto folder = std::filesystem::temp_directory_path() /
                      ("nadavik-playback-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  gDataPath = folder.string();
  gErrTraceFile = (folder / "errtrace.txt").string();
  for (std::size_t i = 0; i < 3; ++i)
    gWavFiles[i] = (folder / std::string(1, static_cast<char>('A' + i))).string() + ".wav";
  static const std::filesystem::path removeAtExit = folder;
  std::atexit([] {
    std::error_code ignored;
    std::filesystem::remove_all(removeAtExit, ignored);
  });

  sInitScales();
  sInitReedColorType();
  sInitReedsDisplayedData();
  gPlayScreenProcedures.owners[kContextMainOperations] = stageController;
  platform::Screen& form = windows->screen("MainOperations");
  form.load();
  form.setWidth(1366);
  form.setHeight(768);
  form.on("cMM", platform::EventKind::Done, [](const platform::Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
  });
  form.on("cMM", platform::EventKind::Status,
          [](const platform::Event&) { stageController(18); });
  gPlayScreenProcedures.displayPrompt = recordOpen;
  gBuildPhraseFile = buildSilentPhraseFile;
  gStageForm = &form;
}

}  // namespace

Stage& stage() {
  static Stage s;
  return s;
}

platform::Screen& reset() {
  setUpOnce();
  // Let anything still owed by the device arrive before the records clear.
  gCallbackContext = kContextNone;
  stage().clock.advance(60000);
  platform::Screen& form = *gStageForm;
  gCurrForm = &form;
  gCurrFormId = kFormMainOperations;
  gFormH = 768;
  gCurrTonicNoteId = 3;
  gNotationScript = 2;
  gGraceNotes = 1;
  gDelayMO = 0;
  gLooping = false;
  gBufferRotation = true;
  gPrefetchMode = kPrefetchNext;
  gCurrItemType = 3;
  gCurrPhraseKind = 3;
  gCurrMode = 1;
  gCallbackContext = kContextMainOperations;
  gFileOpened = 0;
  sDisplayKeyboardAlt(form, 1);
  sUpdateReedLabelsAlt(form);
  form.control("cCurrentItem").setText("");
  Stage& s = stage();
  s.events.clear();
  s.builds.clear();
  s.messages.clear();
  s.opened.clear();
  s.failBuildOfBuffer = -1;
  return form;
}

void preparePlaySet(const std::vector<std::pair<std::string, std::string>>& phrases,
                    std::int16_t first, std::int16_t last) {
  PhraseSet set;
  for (const auto& [notes, durations] : phrases) {
    set.NotePhrases.push_back(notes);
    set.DurPhrases.push_back(durations);
    set.BaseDurPhrases.push_back(durations);
  }
  set.Count = static_cast<std::int16_t>(phrases.size());
  set.FirstPhrase = first;
  set.LastPhrase = last < 0 ? set.Count : last;
  set.Position = first;
  gPlaySet = set;
  const std::int16_t buffer = fBufferForPhrase(first);
  gMusicBuffers[static_cast<std::size_t>(buffer)].Count = fCreateNotesList1(buffer);
  buildSilentPhraseFile(buffer);
  stage().builds.clear();
}

bool startChain() { return fPlayMusicPhrases(*gCurrForm); }

void advance(long ms) { stage().clock.advance(ms); }

std::vector<std::pair<int, int>> markedReeds(platform::Screen& form) {
  std::vector<std::pair<int, int>> marked;
  for (std::int16_t n = kLowestReed; n <= kHighestReed; ++n)
    if (form.hasControl("cL", n) && form.control("cL", n).backColor() != fReedDefaultColor(n))
      marked.emplace_back(n, form.control("cL", n).backColor());
  return marked;
}

// The chain's file builder on the stage: a silent file as long as the
// buffer's notes, recording when it was built.
std::int16_t buildSilentPhraseFile(std::int16_t buffer) {
  using playbackstage::stage;
  if (buffer == stage().failBuildOfBuffer) return 0;
  const MusicBuffer& b = gMusicBuffers[static_cast<std::size_t>(buffer)];
  const long lengthMs = std::accumulate(b.DurationsMs.begin(), b.DurationsMs.begin() + std::min<long>(b.Count, static_cast<long>(b.DurationsMs.size())), 0L);
  bool playing = false;
  if (gCurrForm != nullptr && gCurrForm->hasControl("cMM"))
    playing = gCurrForm->control("cMM").device().mode() == platform::kModePlaying;
  stage().builds.push_back({buffer, stage().clock.nowMs(), playing});
  playbackstage::writeSilentWave(gWavFiles[static_cast<std::size_t>(buffer)], lengthMs);
  return 1;
}

}  // namespace playbackstage
