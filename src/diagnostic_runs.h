// Hidden diagnostic runs of the whole program, for the checks that must run
// the real program rather than a test harness (scripts/soak.sh and
// scripts/crash-trials.sh). They are started by options the program's help
// and menus never mention; each one takes over once the main window is
// shown and runs until the process is killed.
//   --loop-alap=ID     plays the alap of raga ID on the Raga Exploration
//                      screen over and over, so that memory and descriptors
//                      can be watched over hours of playing.
//   --repeat-saves=KIND  saves one kind of thing over and over, alternating
//                      between two known versions, and prints "saved N" on
//                      standard output after each save that returned, so
//                      that a kill -9 can land in the middle of a save.
//                      KIND is settings (the usage parameters),
//                      scales (a user scale, redefined under its name),
//                      patterns (a workbench pattern of the user's, a new
//                      one each time, of one of two versions by turn) or
//                      compositions (a two-part composition of raga 1,
//                      header and both parts in one save).
#pragma once

#include <QString>
#include <QStringList>
#include <QTimer>
#include <optional>

#include "platform/screen.h"

// The diagnostic run asked for on the command line, if any.
class DiagnosticRun {
 public:
  // Nothing when the command line asks for none; an error message on
  // standard error and `invalid` when it asks for one that does not exist.
  static std::optional<DiagnosticRun> fromArguments(const QStringList& arguments, bool& invalid);
  // Whether a command-line word is one of these options (the program's own
  // command-line reading must not see them).
  static bool isOption(const QString& word);

  DiagnosticRun(const DiagnosticRun&) = delete;
  DiagnosticRun(DiagnosticRun&&) = default;
  // Starts the run; `main` is the main window, already shown.
  void start(platform::Screen& main);

 private:
  enum class Kind { LoopAlap, RepeatSaves, RepeatScaleSaves, RepeatPatternSaves,
                    RepeatCompositionSaves };
  DiagnosticRun(Kind kind, int ragaId) : kind_(kind), ragaId_(ragaId) {}
  void enterExploration(platform::Screen& main);
  void playAlapAgainWhenDone();
  [[noreturn]] void repeatSettingsSaves();
  [[noreturn]] void repeatScaleSaves();
  [[noreturn]] void repeatPatternSaves();
  [[noreturn]] void repeatCompositionSaves();

  Kind kind_;
  int ragaId_ = 0;
  long alapsPlayed_ = 0;
  platform::Screen* exploration_ = nullptr;
  std::unique_ptr<QTimer> poll_;
};
