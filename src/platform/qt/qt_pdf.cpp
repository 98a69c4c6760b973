// PdfSheet on QPdfWriter. Millimetres are turned into the writer's device
// units; "Shusha" becomes a Devanagari family the font database has
// (preferably Noto Sans Devanagari, the font the program ships).
#include "platform/qt/qt_pdf.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace platform::qt {

namespace {

constexpr int kDotsPerInch = 300;
constexpr double kMarginMm = 15.0;
constexpr double kMmPerInch = 25.4;

QString devanagariFamily() {
  const QStringList families = QFontDatabase::families(QFontDatabase::Devanagari);
  for (const QString& preferred : {QStringLiteral("Noto Sans Devanagari"), QStringLiteral("Lohit Devanagari")})
    if (families.contains(preferred)) return preferred;
  return families.isEmpty() ? QStringLiteral("Noto Sans Devanagari") : families.front();
}

class QtPdfSheet : public PdfSheet {
 public:
  QtPdfSheet(std::unique_ptr<QFile> file, PaperSize paper, const std::string& title)
      : file_(std::move(file)), writer_(file_.get()) {
    writer_.setResolution(kDotsPerInch);
    writer_.setTitle(QString::fromStdString(title));
    writer_.setCreator(QStringLiteral("Nadavik"));
    writer_.setPageLayout(QPageLayout(QPageSize(paper == PaperSize::A4 ? QPageSize::A4 : QPageSize::Letter),
                                      QPageLayout::Portrait, QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm),
                                      QPageLayout::Millimeter));
    painter_.begin(&writer_);
  }
  ~QtPdfSheet() override {
    if (painter_.isActive()) painter_.end();
  }

  double widthMm() const override { return writer_.pageLayout().paintRect(QPageLayout::Millimeter).width(); }
  double heightMm() const override { return writer_.pageLayout().paintRect(QPageLayout::Millimeter).height(); }
  double textWidthMm(const std::string& utf8, const SheetFont& font) const override {
    return mm(QFontMetricsF(qfont(font), &writer_).horizontalAdvance(QString::fromStdString(utf8)));
  }
  double lineHeightMm(const SheetFont& font) const override {
    return mm(QFontMetricsF(qfont(font), &writer_).lineSpacing());
  }
  void drawText(double xMm, double yMm, const std::string& utf8, const SheetFont& font) override {
    painter_.setFont(qfont(font));
    painter_.drawText(QPointF(dots(xMm), dots(yMm)), QString::fromStdString(utf8));
  }
  void drawLine(double x1Mm, double y1Mm, double x2Mm, double y2Mm) override {
    painter_.setPen(QPen(Qt::black, dots(0.25)));
    painter_.drawLine(QPointF(dots(x1Mm), dots(y1Mm)), QPointF(dots(x2Mm), dots(y2Mm)));
  }
  void newPage() override { writer_.newPage(); }
  bool finish() override {
    const bool painted = painter_.end();
    file_->flush();
    const bool written = file_->error() == QFileDevice::NoError;
    file_->close();
    return painted && written;
  }

 private:
  static double dots(double mm) { return mm * kDotsPerInch / kMmPerInch; }
  static double mm(double dots) { return dots * kMmPerInch / kDotsPerInch; }
  QFont qfont(const SheetFont& font) const {
    QFont f(font.family == "Shusha" ? devanagariFamily() : QString::fromStdString(font.family));
    f.setPointSizeF(font.points);
    f.setBold(font.bold);
    return f;
  }

  std::unique_ptr<QFile> file_;
  mutable QPdfWriter writer_;
  QPainter painter_;
};

}  // namespace

std::unique_ptr<PdfSheet> makeQtPdfSheet(const std::string& path, PaperSize paper, const std::string& title) {
  auto file = std::make_unique<QFile>(QString::fromStdString(path));
  if (!file->open(QIODevice::WriteOnly | QIODevice::Truncate)) return nullptr;
  return std::make_unique<QtPdfSheet>(std::move(file), paper, title);
}

}  // namespace platform::qt
