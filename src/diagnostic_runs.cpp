// Hidden diagnostic runs of the whole program (see diagnostic_runs.h).
#include "diagnostic_runs.h"

#include <QApplication>
#include <cstdio>
#include <memory>

#include "composer/composer_store.h"
#include "control/parameters.h"
#include "core/session.h"
#include "exploration/exploration.h"
#include "platform/qt/qt_screen.h"
#include "store/lookups.h"
#include "store/working_record.h"

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

const QStringList kSaveKinds = {"settings", "compositions"};

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
      const int kind = static_cast<int>(kSaveKinds.indexOf(word.mid(kRepeatSaves.size())));
      if (kind >= 0) return DiagnosticRun(Kind::RepeatSaves, 0, kind);
    } else {
      continue;
    }
    std::fprintf(stderr, "nadavik: %s: expected --loop-alap=RAGA-ID or --repeat-saves=settings|compositions\n",
                 word.toLocal8Bit().constData());
    invalid = true;
    return std::nullopt;
  }
  return std::nullopt;
}

void DiagnosticRun::start(platform::Screen& main) {
  if (kind_ == Kind::RepeatSaves && saveKind_ == 0) repeatSettingsSaves();
  if (kind_ == Kind::RepeatSaves) repeatCompositionSaves();
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
