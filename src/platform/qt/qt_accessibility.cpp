// Accessible names, descriptions and keyboard choice (see qt_accessibility.h).
#include "platform/qt/qt_accessibility.h"

#include <QEvent>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QTableWidget>
#include <QWidget>
#include <utility>

namespace platform {
namespace {

bool worked(ControlKind kind) {
  return kind != ControlKind::Label && kind != ControlKind::Picture &&
         kind != ControlKind::Frame && kind != ControlKind::Line;
}

// Turns Enter and Space into a click; every other key goes on to the widget.
class KeyboardChoice : public QObject {
 public:
  KeyboardChoice(std::function<void()> click, QObject* parent)
      : QObject(parent), click_(std::move(click)) {}

 protected:
  bool eventFilter(QObject*, QEvent* e) override {
    if (e->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(e)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) return false;
    click_();
    return true;
  }

 private:
  std::function<void()> click_;
};

}  // namespace

QString accessibleNameFromHelp(const ControlDefinition& definition) {
  const QString help = QString::fromStdString(definition.help).trimmed();
  if (help.isEmpty()) return QString::fromStdString(definition.name);
  // A name is short: the help up to its first full stop or colon.
  static const QRegularExpression kEnd(R"([.:]\s)");
  const qsizetype end = help.indexOf(kEnd);
  QString sentence = end < 0 ? help : help.left(end);
  if (sentence.endsWith('.')) sentence.chop(1);
  return sentence;
}

void makeAccessible(QWidget& widget, const ControlDefinition& definition, bool hasCaption) {
  widget.setAccessibleDescription(QString::fromStdString(definition.help));
  if (hasCaption)
    nameAfterCaption(widget, definition, definition.caption);
  else
    widget.setAccessibleName(accessibleNameFromHelp(definition));
  if (worked(definition.kind)) widget.setFocusPolicy(Qt::StrongFocus);
  if (auto* grid = qobject_cast<QTableWidget*>(&widget)) grid->setTabKeyNavigation(false);
}

void nameAfterCaption(QWidget& widget, const ControlDefinition& definition,
                      const std::string& caption) {
  widget.setAccessibleName(caption.empty() ? accessibleNameFromHelp(definition) : QString());
}

void chooseByKeyboard(QWidget& widget, const std::function<void()>& click) {
  widget.installEventFilter(new KeyboardChoice(click, &widget));
}

}  // namespace platform
