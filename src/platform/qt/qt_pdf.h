// The PDF sheet on Qt's PDF writer (QPdfWriter and QPainter), which embeds
// the fonts used, so the sheet prints the same everywhere.
#pragma once

#include <memory>
#include <string>

#include "platform/pdf.h"

namespace platform::qt {

// A sheet writing to path, 15 mm margins, 300 dpi; nothing when the file
// cannot be opened for writing.
std::unique_ptr<PdfSheet> makeQtPdfSheet(const std::string& path, PaperSize paper, const std::string& title);

}  // namespace platform::qt
