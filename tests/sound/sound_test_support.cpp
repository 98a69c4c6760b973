// Stores, session defaults, measurements and the playing chain's stage for
// the sound tests.
#include "sound_test_support.h"

#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <sstream>

#include "audio_measure.h"
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
#include "platform/store.h"
#include "sound/library_setup.h"
#include "sound/music_buffers.h"
#include "sound/notes_list.h"
#include "sound/play_chain.h"
#include "sound/play_state.h"
#include "sound/play_status.h"
#include "sound/playback.h"
#include "sound/sound_state.h"
#include "store/queries.h"
#include "tonvex/tonvex.h"
#include "wav_file.h"
#include "../support/helpers.h"

namespace fs = std::filesystem;

namespace {

std::unique_ptr<platform::Database> openStore(const fs::path& path, bool readOnly) {
  return platform::defaultWorkspace().openDatabase(path.string(), true, readOnly, "");
}

// The user music set of the tests: its "ONPR" rows for both instruments
// and its "Scale Shift Specs" row.
std::string userSetRows() {
  std::ostringstream sql;
  for (int type : {1, 2}) {
    sql << "INSERT INTO \"ONPR\" VALUES (" << kUserSetId << ", " << type << ", 'Test Scale', "
        << kUserSetTonic;
    for (int i = 0; i < kOnprColumns; ++i)
      sql << ", " << (type == 1 ? kUserMainBase + i / 100.0f : -(i / 100.0f));
    sql << ");\n";
  }
  sql << "INSERT INTO \"Scale Shift Specs\" VALUES (" << kUserSetId
      << ", 'Test Scale', 'c', " << kUserSetTonic << ", 254.5, 250.5);\n";
  return sql.str();
}

void setSoundDefaults(const fs::path& dir) {
  gDataPath = dir.string();
  gErrTraceFile = (dir / "errtrace.txt").string();
  gTraceEnabled = gTraceOn = 0;
  gSynthNames = "ce";
  gMainSetName = "c";
  gDroneSetName = "e";
  gCurrTonicNoteId = gCurrMusicSetId = 3;
  gCurrMusicSetName.clear();
  gCurrDroneType = 1;
  gCurrDroneFactor = 1.0;
  gDroneMode = gWavOption = 1;
  gThekaInstrument = 4;
  gInstrLibFiles = {"", "", "", NADAVIK_TEST_KIT_FILE, ""};
  gDroneCycles = 2;
  gDroneWavFile = (dir / "D.Wav").string();
  gNoteAdjust = gMainAdjust = gDroneAdjust = {};
  gScaleShiftSpec = {};
  gDroneStep = 0;
}

}  // namespace

void SoundStoreTest::SetUp() {
  dir_ = fs::temp_directory_path() /
         ("nadavik-sound-" + std::to_string(::getpid()) + "-" +
          ::testing::UnitTest::GetInstance()->current_test_info()->name());
  fs::remove_all(dir_);
  fs::create_directories(dir_);
  fs::copy_file(NADAVIK_TEST_LIBRARY_STORE, dir_ / "mrA.nvy");
  platform::defaultWorkspace().createDatabase((dir_ / "mrB.nvy").string(),
                                              fileText(NADAVIK_TEST_USER_SCHEMA) + "\n" +
                                                  fileText(NADAVIK_TEST_SHARED_SCHEMA));
  gDbB = openStore(dir_ / "mrB.nvy", false);
  gDbB->execute(userSetRows());
  gDbA = openStore(dir_ / "mrA.nvy", true);
  platform::setWindowSystem(&windows_);
  setSoundDefaults(dir_);
  sSetSQLStrings();
  ASSERT_EQ(FWavSetGlobalVariables(gSynthNames), 1);
  ASSERT_EQ(FWavSetCurrInstr(gMainSetName), 1);
}

void SoundStoreTest::TearDown() {
  for (auto* db : {&gDbA, &gDbB})
    if (*db) (*db)->close(), db->reset();
  fs::remove_all(dir_);
}

void SoundStoreTest::changeLibraryStore(const std::string& sql) {
  gDbA->close();
  auto writable = openStore(dir_ / "mrA.nvy", false);
  writable->execute(sql);
  writable->close();
  gDbA = openStore(dir_ / "mrA.nvy", true);
}

void SoundStoreTest::resetLibraryStore() {
  gDbA->close();
  fs::copy_file(NADAVIK_TEST_LIBRARY_STORE, dir_ / "mrA.nvy", fs::copy_options::overwrite_existing);
  gDbA = openStore(dir_ / "mrA.nvy", true);
}

Messages SoundStoreTest::messageTexts() const {
  Messages texts;
  for (const ShownMessage& m : windows_.messages) {
    EXPECT_EQ(m.title, "Message") << m.text;
    EXPECT_EQ(m.style, platform::kMsgInformation) << m.text;
    texts.push_back(m.text);
  }
  return texts;
}

void MusicFileTest::SetUp() {
  SoundStoreTest::SetUp();
  sInitScales();
  ASSERT_TRUE(fStartSoundLibrary());
  gWavFiles = {gWavA = file("A.wav").string(), gWavB = file("B.wav").string(), gWavC = file("C.wav").string(), ""};
  gCurrForm = nullptr;
  gNotationScript = 2;
  gCurrItemType = gCurrPhraseKind = gCurrMode = 1;
  gThekaMode = 2;
  gMusicBuffers = {};
}

void sPlayOnePhrase(const std::string& notes, const std::string& durations) {
  gPlaySet = {};
  gPlaySet.Count = gPlaySet.Position = gPlaySet.FirstPhrase = gPlaySet.LastPhrase = 1;
  gPlaySet.NotePhrases = {notes};
  gPlaySet.DurPhrases = gPlaySet.BaseDurPhrases = {durations};
}

double fWaveLengthMs(const fs::path& path) {
  return fs::exists(path) ? tonvex_test::readSamples(path.string()).size() / 44.1 : -1.0;
}

double fMeasureRenderedNoteHz(int noteId, double expectedHz, const fs::path& wavFile) {
  const std::string token = (noteId < 10 ? "0" : "") + std::to_string(noteId);
  if (FWavGenerateMusicFile(1, token, "1000", wavFile.string(), 0, 0.2, 1, 1000, 60, 80, 50) != 1)
    return 0.0;
  using tonvex_test::at;
  return tonvex_test::measureHz(tonvex_test::readSamples(wavFile.string()), at(200), at(900),
                                expectedHz);
}

double fCents(double aHz, double bHz) { return tonvex_test::centsBetween(aHz, bHz); }

namespace playbackstage {

namespace {

platform::Screen* gStageForm = nullptr;

// The chain's file builder on the stage: a silent file as long as the
// buffer's notes, recording when it was built.
std::int16_t buildSilentPhraseFile(std::int16_t buffer) {
  if (buffer == stage().failBuildOfBuffer) return 0;
  const MusicBuffer& b = gMusicBuffers[static_cast<std::size_t>(buffer)];
  const long count = std::min<long>(b.Count, static_cast<long>(b.DurationsMs.size()));
  const long lengthMs = std::accumulate(b.DurationsMs.begin(), b.DurationsMs.begin() + count, 0L);
  const bool playing = gCurrForm != nullptr && gCurrForm->hasControl("cMM") &&
                       gCurrForm->control("cMM").device().mode() == platform::kModePlaying;
  stage().builds.push_back({buffer, playing});
  if (buffer == stage().badFileOfBuffer) {
    std::ofstream(gWavFiles[static_cast<std::size_t>(buffer)]) << "not a wave file";
    return 1;
  }
  const std::vector<std::int16_t> silence(std::size_t(std::max(1L, lengthMs * 441 / 10)), 0);
  return tonvex::writeWavFile(gWavFiles[static_cast<std::size_t>(buffer)], silence) ? 1 : 0;
}

// What the screen's controller does with note tracking (18).
void stageController(std::int16_t event) {
  if (event == 18) return sTrackPlayingNote(*gCurrForm, gDelayMO);
  stage().events.push_back(event);
}

void setUpOnce() {
  if (gStageForm != nullptr) return;
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

  static const auto folder =
      std::filesystem::temp_directory_path() / ("nadavik-playback-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  std::atexit([] {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  });
  gDataPath = folder.string();
  gErrTraceFile = (folder / "errtrace.txt").string();
  for (std::size_t i = 0; i < 3; ++i) gWavFiles[i] = (folder / std::string(1, char('A' + i))).string() + ".wav";

  sInitScales();
  sInitReedColorType();
  sInitReedsDisplayedData();
  gPlayScreenProcedures.owners[kContextMainOperations] = stageController;
  gPlayScreenProcedures.displayPrompt = [] {
    stage().opened.push_back(std::filesystem::path(gCurrMusicFile).filename().string());
  };
  gBuildPhraseFile = buildSilentPhraseFile;
  platform::Screen& form = windows->screen("MainOperations");
  form.load();
  form.setWidth(1366);
  form.setHeight(768);
  form.on("cMM", platform::EventKind::Done, [](const platform::Event& e) {
    gNotifyCode = static_cast<std::int16_t>(e.notifyCode);
    sPlayMusicFile(gCurrMusicFile);
  });
  form.on("cMM", platform::EventKind::Status, [](const platform::Event&) { stageController(18); });
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
  gCurrItemType = gCurrPhraseKind = 3;
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
  s.badFileOfBuffer = -1;
  return form;
}

void preparePlaySet(const std::vector<std::pair<std::string, std::string>>& phrases,
                    std::int16_t first, std::int16_t last) {
  gPlaySet = PhraseSet{};
  for (const auto& [notes, durations] : phrases) {
    gPlaySet.NotePhrases.push_back(notes);
    gPlaySet.DurPhrases.push_back(durations);
    gPlaySet.BaseDurPhrases.push_back(durations);
  }
  gPlaySet.Count = static_cast<std::int16_t>(phrases.size());
  gPlaySet.Position = gPlaySet.FirstPhrase = first;
  gPlaySet.LastPhrase = last < 0 ? gPlaySet.Count : last;
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
    if (form.hasControl("cL", n) && form.control("cL", n).backColor() != fReedLabelBackColor(form, n))
      marked.emplace_back(n, form.control("cL", n).backColor());
  return marked;
}

}  // namespace playbackstage
