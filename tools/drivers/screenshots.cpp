// Takes pictures of every screen for the documentation: runs the program in
// this process (as the program tests do), enters each screen from the main
// menu at the given window size and saves what it shows.
//
//   nadavik_screenshots OUT_FOLDER [WIDTH HEIGHT]
//
// The desktop's size is the offscreen platform's screen: give it with
// QT_QPA_PLATFORM=offscreen:configfile=FILE (see docs/screenshots).
#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <cstdio>
#include <string>

#include "core/session.h"
#include "exploration/exploration.h"
#include "platform/qt/qt_screen.h"
#include "program_harness.h"
#include "store/lookups.h"
#include "store/working_record.h"

namespace {

// Clicks the entry of the exploration screen's item list that begins with
// `start`.
void clickItem(ProgramHarness& p, const std::string& start) {
  platform::Control& list = p.screen("MainOperations").control("cNVIllusList");
  for (int i = 0; i < list.listCount(); ++i) {
    if (list.list(i).rfind(start, 0) != 0) continue;
    list.setListIndex(i);
    p.fire("MainOperations", "cNVIllusList", platform::EventKind::Click);
    return;
  }
}

void save(ProgramHarness& p, const std::string& screen, const std::string& file) {
  auto& s = static_cast<platform::QtScreen&>(p.screen(screen));
  p.settle();
  s.drawingArea()->window()->grab().save(QString::fromStdString(file));
  std::printf("%s\n", file.c_str());
}

// Yaman's aroha in Demo halfway through, in English and in Devanagari.
void saveDemo(ProgramHarness& p, const std::string& out, const std::string& size) {
  for (const char* script : {"cMnuEng", "cMnuDev"}) {
    p.fire("MainOperations", script, platform::EventKind::Click);
    clickItem(p, "Aroha");
    p.clock().advance(2500);
    save(p, "MainOperations",
         out + "/MainOperations-demo-" + (script[4] == 'D' ? "devanagari-" : "english-") + size + ".png");
    p.fire("MainOperations", "cStop", platform::EventKind::Click);
    p.clock().advance(500);
  }
}

// Yaman's first composition in the composition player, its Asthai playing
// for three seconds, in English and in Devanagari.
void saveCompositionPlayer(ProgramHarness& p, const std::string& out, const std::string& size) {
  clickItem(p, "Composition - ");
  for (const char* script : {"cMnuEng", "cMnuDev"}) {
    p.fire("PlayComposition1", script, platform::EventKind::Click);
    p.fire("PlayComposition1", "cPlay", platform::EventKind::Click);
    p.clock().advance(3000);
    save(p, "PlayComposition1", out + "/PlayComposition1-" +
                                    (script[4] == 'D' ? "devanagari-" : "english-") + size + ".png");
    p.fire("PlayComposition1", "cStop", platform::EventKind::Click);
    p.clock().advance(500);
  }
  p.fire("PlayComposition1", "cReturn", platform::EventKind::Click);
}

// Maximises a screen's window as its maximise button would.
void maximise(ProgramHarness& p, const std::string& screen) {
  p.fire(screen, "", platform::EventKind::Activate);
  p.screen(screen).setWindowState(2);
  p.settle();
}

std::string desktopSize() {
  const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
  return std::to_string(area.width()) + "x" + std::to_string(area.height());
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: nadavik_screenshots OUT_FOLDER [WIDTH HEIGHT]\n");
    return 2;
  }
  const std::string out = argv[1];
  const float width = argc > 3 ? std::stof(argv[2]) : 1366;
  const float height = argc > 3 ? std::stof(argv[3]) : 768;
  const std::string size = std::to_string(int(width)) + "x" + std::to_string(int(height));

  ProgramHarness p;
  p.start();
  p.clock().advance(7000);
  p.fire("Nadavik", "cTimer", platform::EventKind::Timer);
  save(p, "Nadavik", out + "/main-tips-" + size + ".png");
  p.fire("Nadavik", "cOK", platform::EventKind::Click);
  // Later screens open with the saved geometry: make it the size asked for.
  gFormL = gFormT = 0;
  gFormW = width;
  gFormH = height;
  gFormState = 0;
  const std::pair<const char*, const char*> screens[] = {
      {"cMnuExpRag", "RagaSelection1"}, {"cMnuTakQui", "Quiz"},
      {"cMnuUseMusSam", "NVSampler"},   {"cMnuOpeWor", "Workshop"},
      {"cMnuInvCom", "Composer"},       {"cMnuDefPitShi", "ScaleShifting"},
      {"cMnuRevRagGro", "ReviewRagas"},
  };
  for (const auto& [menu, screen] : screens) {
    p.fire("Nadavik", menu, platform::EventKind::Click);
    save(p, screen, out + "/" + screen + "-" + size + ".png");
    p.fire(screen, "cReturn", platform::EventKind::Click);
  }
  // Yaman on the exploration screen at a tonic on a white key (C): its
  // aroha in Demo halfway through, in English and in Devanagari, and its
  // alap in Learning; then the aroha again in the maximised window.
  p.fire("Nadavik", "cMnuExpRag", platform::EventKind::Click);
  gCurrRagaId = 1;
  gCurrRagaName = fGetRagaName(1);
  sSetupForCurrRaga();
  sMainOperations(0);
  p.fire("MainOperations", "cMnuW1", platform::EventKind::Click);
  saveDemo(p, out, size);
  p.fire("MainOperations", "Option2", platform::EventKind::Click);
  clickItem(p, "Alap");
  save(p, "MainOperations", out + "/MainOperations-learning-" + size + ".png");
  saveCompositionPlayer(p, out, size);
  p.fire("MainOperations", "Option1", platform::EventKind::Click);
  maximise(p, "MainOperations");
  saveDemo(p, out, "max-" + desktopSize());
  p.fire("MainOperations", "cReturn", platform::EventKind::Click);
  save(p, "RagaSelection1", out + "/RagaSelection1-grid-" + size + ".png");
  p.fire("RagaSelection1", "cReturn", platform::EventKind::Click);
  save(p, "Nadavik", out + "/main-" + size + ".png");
  p.fire("Nadavik", "cExit", platform::EventKind::Click);
  return 0;
}
