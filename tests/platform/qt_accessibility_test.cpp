// What a screen reader finds on every shipped screen: the accessibility
// tree (QAccessible, which AT-SPI reads on the desktop) is walked from each
// window, and every control a user works (button, option, check box, list,
// grid, text box, slider, menu entry) must have a name, and every widget
// among them a description. (Enter and Space on the raga grid: the browsing
// tests.)
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QRadioButton>
#include <filesystem>
#include <set>
#include <string>

#include "platform/qt/qt_accessibility.h"
#include "platform/qt/qt_screen.h"
#include "platform/qt/qt_window_system.h"

namespace fs = std::filesystem;

namespace {

bool worked(QAccessible::Role role) {
  static const std::set<QAccessible::Role> kWorked = {
      QAccessible::PushButton, QAccessible::CheckBox, QAccessible::RadioButton,
      QAccessible::ComboBox,   QAccessible::List,     QAccessible::Table,
      QAccessible::EditableText, QAccessible::Slider, QAccessible::MenuItem};
  return kWorked.count(role) != 0;
}

// The worked controls under `node` that have no name, or (for those that
// are widgets, not menu entries) no description, as "role at path (name)".
void collectNameless(QAccessibleInterface* node, const QString& path, QStringList& nameless) {
  if (!node) return;
  const QAccessible::Role role = node->role();
  const QString here = path + "/" + node->text(QAccessible::Name);
  const bool isWidget = node->object() && node->object()->isWidgetType();
  if (worked(role) &&
      (node->text(QAccessible::Name).trimmed().isEmpty() ||
       (isWidget && node->text(QAccessible::Description).isEmpty())))
    nameless << QString("role %1 at %2 (%3)")
                    .arg(role)
                    .arg(here)
                    .arg(node->object() ? node->object()->objectName() : "");
  // Items of lists, grids and drop-down lists carry their own text.
  if (role == QAccessible::List || role == QAccessible::Table || role == QAccessible::ComboBox)
    return;
  for (int i = 0; i < node->childCount(); ++i) collectNameless(node->child(i), here, nameless);
}

TEST(Accessibility, EveryWorkedControlOfEveryScreenHasANameAndADescription) {
  platform::QtWindowSystem windows(NADAVIK_SCREENS_DIR);
  platform::setWindowSystem(&windows);
  int screens = 0;
  for (const auto& entry : fs::directory_iterator(NADAVIK_SCREENS_DIR)) {
    if (entry.path().extension() != ".screen") continue;
    const std::string name = entry.path().stem().string();
    SCOPED_TRACE(name);
    auto& screen = static_cast<platform::QtScreen&>(windows.screen(name));
    screen.load();
    QWidget* window = screen.drawingArea()->window();
    window->show();  // controls hidden at opening are walked too
    QStringList nameless;
    collectNameless(QAccessible::queryAccessibleInterface(window), "", nameless);
    EXPECT_TRUE(nameless.isEmpty()) << nameless.join("\n").toStdString();
    window->hide();
    ++screens;
  }
  EXPECT_GE(screens, 12);
}

TEST(Accessibility, AControlWithoutCaptionIsNamedByTheFirstSentenceOfItsHelp) {
  const struct {
    const char* help;
    const char* name;
  } cases[] = {
      {"All ragas of Nadavik. Click a raga to explore it.", "All ragas of Nadavik"},
      {"The notes of the phrase.", "The notes of the phrase"},
      {"Everything it can play: aroha, pakad.", "Everything it can play"},
      {"Version 2.2 of the notes", "Version 2.2 of the notes"},
      {"", "cNotes"},
  };
  for (const auto& c : cases) {
    platform::ControlDefinition definition;
    definition.name = "cNotes";
    definition.help = c.help;
    EXPECT_EQ(platform::accessibleNameFromHelp(definition).toStdString(), c.name);
  }
  // A button named by its help while its caption is empty, then by the caption.
  platform::ControlDefinition answer;
  answer.kind = platform::ControlKind::OptionButton;
  answer.help = "The first answer. Choose it when you hear it.";
  QRadioButton button;
  auto announced = [&button] {
    return QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name).toStdString();
  };
  platform::makeAccessible(button, answer, true);
  EXPECT_EQ(announced(), "The first answer");
  button.setText("Yaman");
  platform::nameAfterCaption(button, answer, "Yaman");
  EXPECT_EQ(announced(), "Yaman");
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
