// The Raga Exploration screen read by a learner on the common desktops
// (1366x768 and 1920x1080, as a window and filling the screen), in both
// scripts, at a tonic on a white key: the keyboard spans the window and no
// black key covers a white key's label; the middle Sa stands out; the
// raga's notes are marked; every raga's item list and pakad show whole, and
// so does the prompt. Whole program on Qt offscreen.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QImage>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

#include "display/raga_display.h"
#include "exploration/illustrations.h"
#include "exploration_fixture.h"
#include "keyboard/reed_labels.h"
#include "keyboard/reeds.h"
#include "platform/qt/qt_control.h"

namespace {

struct WindowSize {
  int width, height;
};
// The default window and the whole screen of each desktop.
constexpr WindowSize kSizes[] = {{1229, 691}, {1366, 768}, {1728, 972}, {1920, 1080}};
constexpr const char* kScripts[] = {"cMnuEng", "cMnuDev"};
constexpr int kMiddleSaAtWhiteC = 2 + 9;  // tonic White 1 (C): reed of the middle Sa

// Contrast ratio of two colours (0xBBGGRR) by relative luminance, as the
// accessibility guidelines define it: 1 to 21.
double fContrastRatio(int a, int b) {
  auto luminance = [](int bgr) {
    const double weights[] = {0.2126, 0.7152, 0.0722};  // red, green, blue
    double sum = 0;
    for (int i = 0; i < 3; ++i) {
      const double c = ((bgr >> (8 * i)) & 0xFF) / 255.0;
      sum += weights[i] * (c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4));
    }
    return sum;
  };
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

int fBgr(const QColor& colour) { return colour.red() | colour.green() << 8 | colour.blue() << 16; }

// The lowest contrast of a colour against the pixels of a part of a picture.
double fWorstContrast(const QImage& picture, const QRect& part, const QColor& text) {
  double worst = 21;
  const QRect inside = part & picture.rect();
  for (int y = inside.top(); y <= inside.bottom(); ++y)
    for (int x = inside.left(); x <= inside.right(); ++x)
      worst = std::min(worst, fContrastRatio(fBgr(text), fBgr(picture.pixelColor(x, y))));
  return worst;
}

class ReadableScreen : public ExplorationTest {
 protected:
  // Sizes the window as a user would and lets the screen lay itself out.
  void resizeTo(const WindowSize& size) {
    screen().setWidth(static_cast<float>(size.width));
    screen().setHeight(static_cast<float>(size.height));
    program.fire("MainOperations", "", platform::EventKind::Activate);
    program.fire("MainOperations", "", platform::EventKind::Resize);
  }
  template <class Widget>
  Widget* widget(const char* name, int index = -1) {
    return static_cast<Widget*>(static_cast<platform::QtControl&>(screen().control(name, index)).widget());
  }
  QRect rect(const char* name, int index) { return widget<QWidget>(name, index)->geometry(); }
  // Whether a box shows its whole text, wrapped at its width, without scrolling.
  bool showsWholeText(QPlainTextEdit* box) {
    QTextDocument text;
    text.setDefaultFont(box->font());
    text.setDocumentMargin(box->document()->documentMargin());
    text.setPlainText(box->toPlainText());
    text.setTextWidth(box->contentsRect().width());
    return text.size().height() <= box->contentsRect().height();
  }
};

TEST_F(ReadableScreen, KeyboardSpansTheWindowWithEveryLabelWholeAndTheScaleMarked) {
  click("cMnuW1");
  for (const WindowSize& size : kSizes) {
    resizeTo(size);
    for (const char* script : kScripts) {
      click(script);
      SCOPED_TRACE(testing::Message() << size.width << "x" << size.height << " " << script);
      std::vector<int> whites, blacks;
      for (int n = kLowestReed; n <= kHighestReed; ++n)
        if (screen().hasControl("cR", n) && screen().control("cR", n).visible())
          (gReedColorType[static_cast<std::size_t>(n)] == kWhiteReed ? whites : blacks).push_back(n);
      ASSERT_FALSE(whites.empty());
      const float width = screen().width();
      EXPECT_NEAR(rect("cR", whites.front()).left(), 0.02 * width, 2);
      EXPECT_NEAR(rect("cR", whites.back()).right(), 0.98 * width, whites.size());
      for (int n : whites) {
        const QRect label = rect("cL", n);
        EXPECT_TRUE(rect("cR", n).contains(label)) << n;
        for (int b : blacks) EXPECT_FALSE(label.intersects(rect("cR", b))) << n << " under " << b;
        auto* text = widget<QLabel>("cL", n);
        EXPECT_LE(text->fontMetrics().height(), label.height()) << n;
      }
      const platform::Control& sa = screen().control("cL", kMiddleSaAtWhiteC);
      EXPECT_GE(fContrastRatio(sa.foreColor(), sa.backColor()), 4.5);
      EXPECT_NE(sa.backColor(), kWhiteReedColor);
      // Yaman takes tivra Ma (6 semitones above Sa), not shuddha Ma (5).
      EXPECT_EQ(screen().control("cL", kMiddleSaAtWhiteC + 6).backColor(), kRagaNoteMarkerColor);
      EXPECT_EQ(screen().control("cL", kMiddleSaAtWhiteC + 5).backColor(), kWhiteReedColor);
    }
  }
}

TEST_F(ReadableScreen, EveryRagasItemsPakadAndPromptShowWithoutScrolling) {
  for (const WindowSize& size : kSizes) {
    resizeTo(size);
    for (const char* script : kScripts) {
      click(script);
      SCOPED_TRACE(testing::Message() << size.width << "x" << size.height << " " << script);
      int ragas = 0;
      for (std::int16_t id = 1; !fGetRagaName(id).empty(); ++id, ++ragas) {
        gCurrRagaId = id;
        sSetupForCurrRaga();
        sDisplayRagaBasicData();
        sLoadSystemIllustratinsList();
        auto* list = widget<QListWidget>("cNVIllusList");
        int rowsHeight = 0;
        for (int row = 0; row < list->count(); ++row) rowsHeight += list->sizeHintForRow(row);
        EXPECT_LE(rowsHeight + 2 * list->frameWidth(), list->height()) << fGetRagaName(id);
        EXPECT_LE(list->sizeHintForColumn(0) + 2 * list->frameWidth(), list->width()) << fGetRagaName(id);
        auto* pakad = widget<QLineEdit>("cPakad");
        EXPECT_LE(pakad->fontMetrics().horizontalAdvance(pakad->text()), pakad->contentsRect().width() - 4)
            << fGetRagaName(id);
      }
      EXPECT_GE(ragas, 70);
      for (const char* mode : {"Option1", "Option2", "Option3"}) {
        click(mode);
        EXPECT_TRUE(showsWholeText(widget<QPlainTextEdit>("cPrompts"))) << mode;
      }
      click("Option1");
    }
  }
}

// The labels and the mode buttons stand on the screen's picture, whichever
// of the eight it is, the darkest included.
TEST_F(ReadableScreen, TextOnEveryPictureReadsAtAContrastOfAtLeast4_5) {
  QWidget* area = widget<QWidget>("Label1")->parentWidget();
  for (int picture = 1; picture <= 8; ++picture) {
    screen().setPicture(gDataPath + "/nv" + std::to_string(picture) + ".jpg");
    QImage backdrop(area->size(), QImage::Format_RGB32);
    area->render(&backdrop, QPoint(), QRegion(), QWidget::DrawWindowBackground);
    for (QWidget* child : area->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      auto* label = qobject_cast<QLabel*>(child);
      const bool onPicture = label ? !label->text().isEmpty() && label->styleSheet().isEmpty()
                                   : qobject_cast<QRadioButton*>(child) && child->isEnabled();
      if (!child->isVisible() || !onPicture) continue;
      const QColor text = child->palette().color(child->foregroundRole());
      EXPECT_GE(fWorstContrast(backdrop, child->geometry(), text), 4.5)
          << "picture " << picture << ", " << child->objectName().toStdString();
    }
  }
}

}  // namespace
