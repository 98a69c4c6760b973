// Writing one export file: the score as MIDI or as a PDF notation sheet,
// into a temporary file beside the chosen one that is renamed to it only
// when complete, so that a cancelled or failed export leaves neither a
// half-written file nor a damaged older one of that name.
// Runs on any thread; reads nothing but its arguments. No state.
#pragma once

#include <functional>
#include <string>

#include "export/notation_sheet.h"
#include "export/score.h"
#include "platform/pdf.h"

enum class ExportFormat { Midi, Pdf, Sound };

struct ExportRequest {
  ExportFormat format = ExportFormat::Midi;
  std::string path;  // the file to make
  platform::PaperSize paper = platform::PaperSize::A4;
};

enum class ExportResult { Written, Cancelled, Failed };

struct ExportOutcome {
  ExportResult result = ExportResult::Failed;
  std::string reason;  // why it failed, for the message naming the file
};

// The temporary name of a file being made: ".<name>.part" in its folder.
std::string fPartFileName(const std::string& path);

// Writes the export; a sound export encodes the items' waves (sound_file.h)
// by the path's extension. progress(fraction) is told how far it has got and
// answers false to cancel; the temporary file is then removed.
ExportOutcome fWriteExport(const Score& score, const ExportRequest& request, const TalaLayouts& talas,
                           const std::function<bool(double)>& progress);
