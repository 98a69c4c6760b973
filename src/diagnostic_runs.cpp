// Hidden diagnostic runs of the whole program (see diagnostic_runs.h).
#include "diagnostic_runs.h"

#include <QApplication>
#include <cstdio>
#include <memory>

#include "composer/composer_store.h"
#include "control/parameters.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "scales/scale_sets.h"
#include "sound/sound_state.h"
#include "platform/qt/qt_screen.h"
#include "store/lookups.h"
#include "store/working_record.h"
#include "workbench/user_patterns.h"

namespace {

const QString kLoopAlap = "--loop-alap=";
const QString kRepeatSaves = "--repeat-saves=";

// How long the greeting drone and its timer take after the main window is
// shown, before the tips can be dismissed.
constexpr int kGreetingMs = 8000;

void click(platform::Screen& screen, const std::string& control) {
  static_cast<platform::QtScreen&>(screen).dispatch(control, platform::EventKind::Click, {});
}

// The two versions of the settings a settings save alternates between: every
// row differs, and the rows span most of the save (crash-trials.sh checks
// that the store holds all of one version, never a mixture).
void setSettingsVersion(bool second) {
  gKeyboardDisplay = second ? 2 : 1;
  gSortingMode = second ? 5 : 4;
  gDelayC = gDelayMO = gDelayPC = gDelayW = second ? 200 : 100;
}

// The two versions of a user scale a scale save alternates between, each
// stored as a redefinition of the scale "Crash Trial" (one transaction that
// removes the old rows and writes the new ones): every value of the three
// rows differs, and each is exact in a Single so that the check reads it
// back as written.
void setScaleVersion(bool second) {
  gCurrTonicNoteId = 3;
  gScaleShiftSpec = {12, 100.0f, second ? 101.5f : 100.5f};
  gMainAdjust.fill(second ? 1.5f : 0.5f);
  gDroneAdjust.fill(second ? 1.25f : 0.25f);
}

// The two versions of a composition a composition save alternates between:
// the header (written by the first save) and both parts, each part's
// notation, durations and words differing between the versions.
void setCompositionVersion(bool second, TCompInfoRecord& header,
                           std::array<CompPartRecord, kCompPartCount>& parts) {
  header = TCompInfoRecord{1, "Crash trial", kCompositionInfoType, 1};
  for (std::int16_t part : {1, 2}) {
    CompPartRecord& record = parts[static_cast<std::size_t>(part - 1)];
    record = CompPartRecord{};
    record.NotationIndex = 1;
    record.Part = part;
    record.RagaId = 1;
    record.Mukhada = header.Name;
    record.TalaId = 1;
    record.StartingBeat = part == 1 ? 1 : 9;
    record.PlayingSpeed = 60;
  }
  parts[0].Notation = second ? "P D" : "S R";
  parts[1].Notation = second ? "N S>" : "G M";
  for (CompPartRecord& record : parts) {
    record.NotesDuration = second ? "2 2" : "1 1";
    record.Text = second ? "second words" : "first words";
  }
}

}  // namespace

bool DiagnosticRun::isOption(const QString& word) {
  return word.startsWith(kLoopAlap) || word.startsWith(kRepeatSaves);
}

std::optional<DiagnosticRun> DiagnosticRun::fromArguments(const QStringList& arguments,
                                                          bool& invalid) {
  invalid = false;
  for (const QString& word : arguments) {
    if (word.startsWith(kLoopAlap)) {
      bool number = false;
      const int id = word.mid(kLoopAlap.size()).toInt(&number);
      if (number && id > 0) return DiagnosticRun(Kind::LoopAlap, id);
    } else if (word.startsWith(kRepeatSaves)) {
      const QString kind = word.mid(kRepeatSaves.size());
      if (kind == "settings") return DiagnosticRun(Kind::RepeatSaves, 0);
      if (kind == "scales") return DiagnosticRun(Kind::RepeatScaleSaves, 0);
      if (kind == "patterns") return DiagnosticRun(Kind::RepeatPatternSaves, 0);
      if (kind == "compositions") return DiagnosticRun(Kind::RepeatCompositionSaves, 0);
    } else {
      continue;
    }
    std::fprintf(stderr, "nadavik: %s: expected --loop-alap=RAGA-ID or --repeat-saves=settings|scales|patterns|compositions\n",
                 word.toLocal8Bit().constData());
    invalid = true;
    return std::nullopt;
  }
  return std::nullopt;
}

void DiagnosticRun::start(platform::Screen& main) {
  if (kind_ == Kind::RepeatSaves) repeatSettingsSaves();
  if (kind_ == Kind::RepeatScaleSaves) repeatScaleSaves();
  if (kind_ == Kind::RepeatPatternSaves) repeatPatternSaves();
  if (kind_ == Kind::RepeatCompositionSaves) repeatCompositionSaves();
  QTimer::singleShot(kGreetingMs, [this, &main] { enterExploration(main); });
}

// The way the exploration tests enter the screen: from the main window's
// menu, with the raga made current as the raga selection makes it.
void DiagnosticRun::enterExploration(platform::Screen& main) {
  if (gTipSignal == 1) click(main, "cOK");
  click(main, "cMnuExpRag");
  gCurrRagaId = static_cast<std::int16_t>(ragaId_);
  gCurrRagaName = fGetRagaName(gCurrRagaId);
  sSetupForCurrRaga();
  sMainOperations(0);
  exploration_ = &platform::windowSystem().screen("MainOperations");
  poll_ = std::make_unique<QTimer>();
  QObject::connect(poll_.get(), &QTimer::timeout, [this] { playAlapAgainWhenDone(); });
  poll_->start(500);
}

// The item list is disabled while a run plays; once it is enabled again the
// alap is chosen anew.
void DiagnosticRun::playAlapAgainWhenDone() {
  platform::Control& items = exploration_->control("cNVIllusList");
  if (!items.enabled()) return;
  for (int i = 0; i < items.listCount(); ++i) {
    if (items.list(i).rfind("Alap", 0) != 0) continue;
    items.setListIndex(i);
    click(*exploration_, "cNVIllusList");
    std::fprintf(stderr, "nadavik: alap of %s started, time %ld\n", gCurrRagaName.c_str(),
                 ++alapsPlayed_);
    return;
  }
  std::fprintf(stderr, "nadavik: raga %d has no alap\n", ragaId_);
  QCoreApplication::exit(1);
}

void DiagnosticRun::repeatSettingsSaves() {
  for (long saves = 1;; ++saves) {
    setSettingsVersion(saves % 2 == 0);
    sSaveUsageParameters();
    std::printf("saved %ld\n", saves);
    std::fflush(stdout);
  }
}

void DiagnosticRun::repeatScaleSaves() {
  for (long saves = 1;; ++saves) {
    setScaleVersion(saves % 2 == 0);
    fStoreScale("Crash Trial", true);
    std::printf("saved %ld\n", saves);
    std::fflush(stdout);
  }
}

// Each save is a new pattern under a name of this run's own: odd saves the
// first version ("BUC1", One Time), even saves the second ("BUJ2lDJ1",
// Series). crash-trials.sh checks that every row is one whole version and
// that the last row is the last save that returned, or the one under way.
void DiagnosticRun::repeatPatternSaves() {
  const std::string run = std::to_string(QCoreApplication::applicationPid());
  for (long saves = 1;; ++saves) {
    const bool second = saves % 2 == 0;
    fAddUserPattern("Trial " + run + " " + std::to_string(saves), second ? "BUJ2lDJ1" : "BUC1",
                    second ? 2 : 1);
    std::printf("saved %ld\n", saves);
    std::fflush(stdout);
  }
}

void DiagnosticRun::repeatCompositionSaves() {
  TCompInfoRecord header;
  std::array<CompPartRecord, kCompPartCount> parts;
  for (long saves = 1;; ++saves) {
    setCompositionVersion(saves % 2 == 0, header, parts);
    sWriteCompositionToStore(*gDbB, header, parts);
    std::printf("saved %ld\n", saves);
    std::fflush(stdout);
  }
}
