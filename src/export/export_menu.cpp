// The Export menu's dialogs around one export job.
#include "export/export_menu.h"

#include <cstdlib>
#include <filesystem>
#include <map>

#include "core/errors.h"
#include "platform/screen.h"
#include "export/sound_file.h"
#include "export/sound_render.h"
#include "store/tala_beats.h"

namespace {

std::string gLastExportFolder;

struct FormatFacts {
  const char* extension;
  const char* dialogTitle;
  const char* filter;
};

FormatFacts factsOf(ExportFormat format) {
  if (format == ExportFormat::Midi) return {".mid", "Save as MIDI", "MIDI files (*.mid)"};
  if (format == ExportFormat::Sound) return {".flac", "Save as Sound", "Sound files (*.flac *.wav *.ogg)"};
  return {".pdf", "Save as PDF", "PDF documents (*.pdf)"};
}

std::string startFolder() {
  if (!gLastExportFolder.empty()) return gLastExportFolder;
  const char* home = std::getenv("HOME");
  return home ? home : ".";
}

// The divisions of every tala the score's compositions use, read from the
// store now, on the screen's thread.
TalaLayouts talaLayoutsOf(const Score& score) {
  std::map<int, TalaLayout> layouts;
  for (const ScoreItem& item : score.items)
    for (const ScoreCompositionPart& part : item.parts)
      layouts[part.talaId] = {fGetBeatCountForTala(static_cast<std::int16_t>(part.talaId)),
                              fGetVibhagsForTala(static_cast<std::int16_t>(part.talaId))};
  return [layouts](int talaId) {
    const auto found = layouts.find(talaId);
    return found == layouts.end() ? TalaLayout{} : found->second;
  };
}

// Paper for a sheet; false when the box is closed.
bool askPaper(platform::PaperSize& paper) {
  const int answer = platform::windowSystem().askChoice("On which paper size should the notation sheet be laid out?",
                                                        "Save as PDF", {"A4", "Letter"});
  if (answer < 0) return false;
  paper = answer == 0 ? platform::PaperSize::A4 : platform::PaperSize::Letter;
  return true;
}

// The dialogs, the job in the background and its message.
void exportOnce(const Score& score, ExportFormat format) {
  const FormatFacts facts = factsOf(format);
  auto& windows = platform::windowSystem();
  ExportRequest request{format, windows.chooseFileToSave(facts.dialogTitle, startFolder(),
                                                         fProposedExportName(score, format), facts.filter)};
  if (request.path.empty()) return;
  const bool named = format == ExportFormat::Sound ? fSoundFormatFor(request.path) != 0
                                                  : std::filesystem::path(request.path).extension() == facts.extension;
  if (!named) request.path += facts.extension;
  if (format == ExportFormat::Pdf && !askPaper(request.paper)) return;
  gLastExportFolder = std::filesystem::path(request.path).parent_path().string();

  const TalaLayouts talas = talaLayoutsOf(score);
  ExportOutcome outcome;
  windows.runWithProgress("Saving " + std::filesystem::path(request.path).filename().string() + " ...",
                          [&](const platform::WindowSystem::ProgressReport& progress) {
                            outcome = fWriteExport(score, request, talas, progress);
                          });
  if (outcome.result != ExportResult::Failed) return;
  windows.messageBox("Could not save \"" + request.path + "\": " + outcome.reason +
                         ". Nothing was written. Choose another folder or file name, or make room on the disk.",
                     platform::kMsgExclamation, "Export");
}

}  // namespace

std::string fProposedExportName(const Score& score, ExportFormat format) {
  std::string name = score.ragaName + " - " + (score.items.size() == 1 ? score.items.front().title : "Whole Raga");
  for (char& c : name)
    if (c == '/') c = '-';
  return name + factsOf(format).extension;
}

void sExportScore(const Score& score, ExportFormat format) {
  NV_PROC("sExportScore");
  exportOnce(score, format);
  for (const ScoreItem& item : score.items) sRemoveWaves(item.waves);
}
