// Writing an export file through a temporary name.
#include "export/export_job.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "export/midi_file.h"
#include "export/sound_file.h"

namespace {

namespace fs = std::filesystem;

ExportOutcome failed(const std::string& part, const std::string& reason) {
  std::error_code ignored;
  fs::remove(part, ignored);
  return {ExportResult::Failed, reason};
}

ExportOutcome cancelled(const std::string& part) {
  std::error_code ignored;
  fs::remove(part, ignored);
  return {ExportResult::Cancelled, ""};
}

// Writes bytes whole, or says why not (a full disk shows at the flush or
// the close).
std::string writeBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) return std::strerror(errno);
  out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  out.flush();
  if (!out) return std::strerror(errno);
  out.close();
  return out ? "" : std::strerror(errno);
}

// The sheet with a progress report after each item; false from the report
// stops the drawing.
bool drawSheet(const Score& score, const std::string& part, const ExportRequest& request, const TalaLayouts& talas,
               const std::function<bool(double)>& progress, std::string& reason) {
  errno = 0;
  auto sheet = platform::openPdfSheet(part, request.paper, score.ragaName);
  if (!sheet) {
    reason = errno != 0 ? std::strerror(errno) : "the file cannot be made there";
    return false;
  }
  if (!progress(0.1)) return false;
  if (!fDrawNotationSheet(score, talas, *sheet)) {
    reason = "the sheet could not be written whole (is the disk full?)";
    return false;
  }
  return true;
}

}  // namespace

std::string fPartFileName(const std::string& path) {
  const fs::path p(path);
  return (p.parent_path() / ("." + p.filename().string() + ".part")).string();
}

ExportOutcome fWriteExport(const Score& score, const ExportRequest& request, const TalaLayouts& talas,
                           const std::function<bool(double)>& progress) {
  const std::string part = fPartFileName(request.path);
  if (!progress(0.0)) return cancelled(part);
  std::string reason;
  if (request.format == ExportFormat::Sound) {
    std::vector<std::vector<std::string>> waves;
    for (const ScoreItem& item : score.items) waves.push_back(item.waves);
    reason = fEncodeSound(waves, part, fSoundFormatFor(request.path), progress);
    if (reason == "cancelled") return cancelled(part);
    if (!reason.empty()) return failed(part, reason);
  } else if (request.format == ExportFormat::Midi) {
    reason = writeBytes(part, fMakeMidiFile(score));
    if (!reason.empty()) return failed(part, reason);
  } else if (!drawSheet(score, part, request, talas, progress, reason)) {
    return reason.empty() ? cancelled(part) : failed(part, reason);
  }
  if (!progress(1.0)) return cancelled(part);
  std::error_code error;
  fs::rename(part, request.path, error);
  if (error) return failed(part, error.message());
  return {ExportResult::Written, ""};
}
