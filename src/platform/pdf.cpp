// The installed PDF sheet factory.
#include "platform/pdf.h"

namespace platform {

namespace {
PdfSheetFactory& installed() {
  static PdfSheetFactory factory;
  return factory;
}
}  // namespace

void setPdfSheetFactory(PdfSheetFactory factory) { installed() = std::move(factory); }

std::unique_ptr<PdfSheet> openPdfSheet(const std::string& path, PaperSize paper, const std::string& title) {
  return installed() ? installed()(path, paper, title) : nullptr;
}

}  // namespace platform
