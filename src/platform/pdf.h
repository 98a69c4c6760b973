// Drawing a printed sheet into a PDF file, page by page. The logic lays the
// sheet out in millimetres from the page's top left corner and hands text
// as UTF-8; a backend (qt/qt_pdf.cpp, on Qt's PDF writer) draws it. The
// family "Shusha" (the notation font's name in the logic) stands for the
// Devanagari font the backend has.
//
// A sheet may be drawn on any one thread; it owns its file until finish().
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace platform {

enum class PaperSize { A4, Letter };

struct SheetFont {
  std::string family;
  double points = 11;
  bool bold = false;
};

class PdfSheet {
 public:
  virtual ~PdfSheet() = default;
  // The printable area (within the margins), in mm.
  virtual double widthMm() const = 0;
  virtual double heightMm() const = 0;
  virtual double textWidthMm(const std::string& utf8, const SheetFont& font) const = 0;
  virtual double lineHeightMm(const SheetFont& font) const = 0;
  // Text with its baseline at yMm.
  virtual void drawText(double xMm, double yMm, const std::string& utf8, const SheetFont& font) = 0;
  virtual void drawLine(double x1Mm, double y1Mm, double x2Mm, double y2Mm) = 0;
  virtual void newPage() = 0;
  // Ends the document; false when the file could not be written whole.
  virtual bool finish() = 0;
};

// Starts a sheet in the file at path; nothing when the file cannot be made.
using PdfSheetFactory =
    std::function<std::unique_ptr<PdfSheet>(const std::string& path, PaperSize paper, const std::string& title)>;

// The factory the program installs at start (main) or a test installs.
void setPdfSheetFactory(PdfSheetFactory factory);
// A new sheet, or nothing when no factory is installed or the file cannot be made.
std::unique_ptr<PdfSheet> openPdfSheet(const std::string& path, PaperSize paper, const std::string& title);

}  // namespace platform
