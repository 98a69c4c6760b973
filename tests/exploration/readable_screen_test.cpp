// The Raga Exploration screen read by a learner on the common desktops, as
// a window and filling the screen, in both scripts, at a tonic on a white
// key (C): the keyboard spans the window, its labels hold their text, the
// middle Sa stands out and the raga's notes are marked; every raga's item
// list and pakad and the prompt show whole; text on every picture reads.
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextDocument>
#include <cmath>

#include "display/raga_display.h"
#include "exploration/illustrations.h"
#include "exploration_fixture.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "platform/qt/qt_control.h"

namespace {

constexpr int kMiddleSa = 2 + 9;  // its reed at tonic White 1 (C)

// Contrast ratio of two colours by relative luminance, 1 to 21, as the
// accessibility guidelines define it.
double fContrastRatio(const QColor& a, const QColor& b) {
  auto luminance = [](const QColor& c) {
    auto linear = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
  };
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}
QColor fBgr(int bgr) { return QColor(bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF); }

class ReadableScreen : public ExplorationTest {
 protected:
  template <class Widget = QWidget>
  Widget* widget(const char* name, int index = -1) {
    return static_cast<Widget*>(static_cast<platform::QtControl&>(screen().control(name, index)).widget());
  }
  bool showsWholeText(QPlainTextEdit* box) {
    QTextDocument text(box->toPlainText());
    text.setDefaultFont(box->font());
    text.setTextWidth(box->contentsRect().width());
    return text.size().height() <= box->contentsRect().height();
  }
};

TEST_F(ReadableScreen, ShowsWholeAtEveryDesktopSizeInBothScripts) {
  click("cMnuW1");
  for (const auto& [width, height] : {std::pair{1229, 691}, {1366, 768}, {1728, 972}, {1920, 1080}}) {
    screen().setWidth(static_cast<float>(width));
    screen().setHeight(static_cast<float>(height));
    program.fire("MainOperations", "", platform::EventKind::Activate);
    program.fire("MainOperations", "", platform::EventKind::Resize);
    for (const char* script : {"cMnuEng", "cMnuDev"}) {
      click(script);
      SCOPED_TRACE(testing::Message() << width << "x" << height << " " << script);
      EXPECT_NEAR(widget("cR", gFirstReed)->x(), 0.02 * width, 1);
      EXPECT_NEAR(widget("cR", gLastReed)->geometry().right() + 1, 0.98 * width, 1);
      for (int n = gFirstReed; n <= gLastReed; ++n)
        EXPECT_LE(widget<QLabel>("cL", n)->fontMetrics().height(), widget("cL", n)->height()) << n;
      const platform::Control& sa = screen().control("cL", kMiddleSa);
      EXPECT_GE(fContrastRatio(fBgr(sa.foreColor()), fBgr(sa.backColor())), 4.5);
      EXPECT_EQ(screen().control("cL", kMiddleSa + 6).backColor(), kRagaNoteMarkerColor) << "tivra Ma";
      EXPECT_EQ(screen().control("cL", kMiddleSa + 5).backColor(), kWhiteReedColor) << "shuddha Ma";
      for (std::int16_t id = 1; !fGetRagaName(id).empty(); ++id) {
        gCurrRagaId = id;
        sSetupForCurrRaga();
        sDisplayRagaBasicData();
        sLoadSystemIllustratinsList();
        auto* list = widget<QListWidget>("cNVIllusList");
        int rows = 2 * list->frameWidth();
        for (int row = 0; row < list->count(); ++row) rows += list->sizeHintForRow(row);
        EXPECT_LE(rows, list->height()) << id;
        EXPECT_LE(list->sizeHintForColumn(0) + 2 * list->frameWidth(), list->width()) << id;
        auto* pakad = widget<QLineEdit>("cPakad");
        EXPECT_LE(pakad->fontMetrics().horizontalAdvance(pakad->text()), pakad->contentsRect().width() - 4) << id;
      }
      for (const char* mode : {"Option3", "Option2", "Option1"}) {
        click(mode);
        EXPECT_TRUE(showsWholeText(widget<QPlainTextEdit>("cPrompts"))) << mode;
      }
    }
  }
}

// Labels and mode buttons stand on the picture, the darkest included.
TEST_F(ReadableScreen, TextOnEveryPictureReadsAtAContrastOfAtLeast4_5) {
  QWidget* area = widget("Label1")->parentWidget();
  for (int picture = 1; picture <= 8; ++picture) {
    screen().setPicture(gDataPath + "/nv" + std::to_string(picture) + ".jpg");
    QImage backdrop(area->size(), QImage::Format_RGB32);
    area->render(&backdrop, QPoint(), QRegion(), QWidget::DrawWindowBackground);
    for (QWidget* child : area->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      auto* label = qobject_cast<QLabel*>(child);
      const bool onPicture = label ? !label->text().isEmpty() && label->styleSheet().isEmpty()
                                   : qobject_cast<QRadioButton*>(child) && child->isEnabled();
      if (!child->isVisible() || !onPicture) continue;
      const QRect part = child->geometry() & backdrop.rect();
      double worst = 21;
      for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
          worst = std::min(worst, fContrastRatio(child->palette().color(child->foregroundRole()),
                                                 backdrop.pixelColor(x, y)));
      EXPECT_GE(worst, 4.5) << "picture " << picture << ", " << child->objectName().toStdString();
    }
  }
}

}  // namespace
