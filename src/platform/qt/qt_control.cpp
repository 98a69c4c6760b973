// Qt backend of a control (see qt_control.h).
#include "platform/qt/qt_control.h"

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>
#include <QTimer>
#include <QtMath>
#include <algorithm>

#include "platform/audio.h"
#include "platform/qt/qt_accessibility.h"
#include "platform/qt/qt_screen.h"
#include "platform/qt/qt_window_system.h"

namespace platform {

namespace {

// A line box shows the start of its text: a box that only shows (a
// composition's line, the pakad) must not open scrolled to its end, where
// QLineEdit puts the cursor after setText. A box being typed into keeps
// its cursor at the end.
void setLineText(QLineEdit* edit, const QString& text) {
  edit->setText(text);
  if (edit->isReadOnly()) edit->home(false);
}

QColor fromBgr(int bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }

QString q(const std::string& s) { return QString::fromStdString(s); }

// A line between two points of the drawing area. The widget covers the
// bounding box of the two ends and paints the line inside it.
class LineWidget : public QWidget {
 public:
  using QWidget::QWidget;
  void setEnds(QPointF a, QPointF b) {
    a_ = a;
    b_ = b;
    QRectF box = QRectF(a, b).normalized().adjusted(-1, -1, 1, 1);
    setGeometry(box.toAlignedRect());
    update();
  }
  void setColor(QColor c) {
    color_ = c;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(color_, 1.5));
    p.drawLine(a_ - QPointF(pos()), b_ - QPointF(pos()));
  }

 private:
  QPointF a_, b_;
  QColor color_ = Qt::black;
};

// Turns widget input events into the screen model's events.
class EventForwarder : public QObject {
 public:
  EventForwarder(QtControl& control, QObject* parent) : QObject(parent), control_(control) {}

 protected:
  bool eventFilter(QObject*, QEvent* e) override {
    switch (e->type()) {
      case QEvent::MouseButtonPress: {
        auto* m = static_cast<QMouseEvent*>(e);
        Event ev;
        ev.button = m->button() == Qt::RightButton ? 2 : 1;
        ev.x = static_cast<float>(m->position().x());
        ev.y = static_cast<float>(m->position().y());
        control_.fire(EventKind::MouseDown, ev);
        break;
      }
      case QEvent::MouseButtonRelease:
        if (control_.kind() == ControlKind::Label || control_.kind() == ControlKind::Picture)
          control_.fire(EventKind::Click);
        break;
      case QEvent::MouseButtonDblClick:
        control_.fire(EventKind::DblClick);
        break;
      case QEvent::KeyPress: {
        auto* k = static_cast<QKeyEvent*>(e);
        Event down;
        down.keyCode = k->key();
        down.shift = (k->modifiers() & Qt::ShiftModifier ? 1 : 0) |
                     (k->modifiers() & Qt::ControlModifier ? 2 : 0) |
                     (k->modifiers() & Qt::AltModifier ? 4 : 0);
        control_.fire(EventKind::KeyDown, down);
        if (!k->text().isEmpty()) {
          Event press;
          press.keyAscii = k->text().at(0).unicode();
          control_.fire(EventKind::KeyPress, press);
        }
        break;
      }
      default:
        break;
    }
    return false;
  }

 private:
  QtControl& control_;
};

}  // namespace

QtControl::QtControl(QtScreen& screen, const ControlDefinition& def)
    : screen_(screen), def_(def), caption_(def.caption), fontFamily_(def.fontFamily),
      fontPoints_(def.fontPoints), borderStyle_(def.border ? 1 : 0), locked_(def.locked),
      fixedRows_(def.fixedRows) {
  if (def.foreColor) foreColor_ = *def.foreColor;
  if (def.backColor) backColor_ = *def.backColor;
}

QtControl::~QtControl() { silence(); }

void QtControl::silence() {
  if (timer_) timer_->stop();
  if (device_) {
    device_->onDone = nullptr;
    device_->onStatus = nullptr;
    device_->notify = false;
    device_->wait = true;
    device_->command("Close");
  }
}

void QtControl::create(QWidget* parent, QMenu* parentMenu, QButtonGroup* optionGroup,
                       bool holdsEntries) {
  switch (def_.kind) {
    case ControlKind::Menu:
      createMenuEntry(parentMenu, parent, holdsEntries);
      return;
    case ControlKind::Timer:
      timer_ = new QTimer(parent);
      timer_->setInterval(def_.interval);
      timer_->setTimerType(Qt::PreciseTimer);
      QObject::connect(timer_, &QTimer::timeout, [this] { fire(EventKind::Timer); });
      if (def_.enabled && def_.interval > 0) timer_->start();
      return;
    case ControlKind::MediaControl:  // the device is opened on first use
    case ControlKind::SysInfo:
      return;
    default:
      createWidget(parent, optionGroup);
  }
}

void QtControl::createMenuEntry(QMenu* parentMenu, QWidget* menuBarOwner, bool holdsEntries) {
  auto* window = static_cast<QMainWindow*>(menuBarOwner->window());
  QMenuBar* bar = window->menuBar();
  for (int i = 0; i < def_.separatorsBefore && parentMenu; ++i) parentMenu->addSeparator();
  if (holdsEntries) {
    // A menu delivers its Click as it opens, before its entries show.
    menu_ = new QMenu(q(caption_), window);
    action_ = parentMenu ? parentMenu->addMenu(menu_) : bar->addMenu(menu_);
    QObject::connect(menu_, &QMenu::aboutToShow, [this] { fire(EventKind::Click); });
  } else {
    action_ = new QAction(q(caption_), window);
    action_->setSeparator(caption_ == "-");  // a named separator line
    action_->setCheckable(def_.checked);
    action_->setChecked(def_.checked);
    if (parentMenu)
      parentMenu->addAction(action_);
    else
      bar->addAction(action_);
    QObject::connect(action_, &QAction::triggered, [this] {
      // The check mark follows the logic, not the click.
      if (action_->isCheckable()) action_->setChecked(!action_->isChecked());
      fire(EventKind::Click);
    });
  }
  action_->setObjectName(q(def_.name));
  action_->setEnabled(def_.enabled);
  action_->setVisible(def_.visible);
  if (!def_.help.empty()) action_->setWhatsThis(q(def_.help));
}

void QtControl::createWidget(QWidget* parent, QButtonGroup* optionGroup) {
  QWidget* w = nullptr;
  switch (def_.kind) {
    case ControlKind::Label: {
      auto* label = new QLabel(parent);
      label->setWordWrap(true);
      label->setAlignment(def_.centred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignTop);
      w = label;
      break;
    }
    case ControlKind::TextBox:
      if (def_.multiline) {
        auto* edit = new QPlainTextEdit(parent);
        edit->setPlainText(shown(def_.text));
        edit->setReadOnly(def_.locked);
        w = edit;
      } else {
        auto* edit = new QLineEdit(shown(def_.text), parent);
        edit->setReadOnly(def_.locked);
        w = edit;
      }
      break;
    case ControlKind::CommandButton:
      w = new QPushButton(parent);
      break;
    case ControlKind::OptionButton: {
      auto* radio = new QRadioButton(parent);
      if (optionGroup) optionGroup->addButton(radio);
      w = radio;
      break;
    }
    case ControlKind::CheckBox:
      w = new QCheckBox(parent);
      break;
    case ControlKind::Frame:
      w = new QGroupBox(parent);
      break;
    case ControlKind::ListBox:
      w = new QListWidget(parent);
      break;
    case ControlKind::ComboBox:
      w = new QComboBox(parent);
      break;
    case ControlKind::Grid: {
      // The parser bounds a definition's numbers; a definition made in code
      // is held to the same bounds here.
      auto* grid = new QTableWidget(std::clamp(def_.rows, 1, kMaxGridRows),
                                    std::clamp(def_.cols, 1, kMaxGridCols), parent);
      grid->horizontalHeader()->hide();
      grid->verticalHeader()->hide();
      grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
      grid->setSelectionBehavior(QAbstractItemView::SelectRows);
      grid->setSelectionMode(QAbstractItemView::SingleSelection);
      w = grid;
      break;
    }
    case ControlKind::Slider: {
      auto* slider = new QSlider(Qt::Horizontal, parent);
      slider->setRange(def_.minValue, def_.maxValue);
      slider->setValue(def_.value);
      slider->setTickPosition(QSlider::TicksBelow);
      slider->setPageStep(1);
      w = slider;
      break;
    }
    case ControlKind::Picture: {
      auto* picture = new QLabel(parent);
      picture->setScaledContents(true);
      w = picture;
      break;
    }
    case ControlKind::Line:
      w = new LineWidget(parent);
      break;
    default:
      unsupported("creation");
  }
  widget_ = w;
  w->setObjectName(q(def_.name));
  if (!def_.help.empty()) w->setWhatsThis(q(def_.help));
  w->installEventFilter(new EventForwarder(*this, w));
  makeAccessible(*w, def_, hasCaption());
  ownEnabled_ = def_.enabled;
  w->setEnabled(def_.enabled);
  applyFont();
  applyColors();
  if (hasCaption()) setCaption(caption_);
  setBorderStyle(borderStyle_);
  if (def_.kind == ControlKind::CheckBox || def_.kind == ControlKind::OptionButton)
    setValue(def_.checked ? (def_.kind == ControlKind::OptionButton ? -1 : 1) : 0);
  connectSignals();
  ownVisible_ = def_.visible;
  w->setVisible(def_.visible);
}

bool QtControl::hasCaption() const {
  switch (def_.kind) {
    case ControlKind::Label:
    case ControlKind::CommandButton:
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
    case ControlKind::Frame:
    case ControlKind::Menu:
      return true;
    default:
      return false;
  }
}

void QtControl::setFrame(QtControl* frame) {
  frame_ = frame;
  frame->members_.push_back(this);
  applyVisibility();
  applyEnabled();
}

bool QtControl::shownVisible() const {
  return ownVisible_ && (!frame_ || frame_->shownVisible());
}

bool QtControl::shownEnabled() const {
  return ownEnabled_ && (!frame_ || frame_->shownEnabled());
}

void QtControl::applyVisibility() {
  if (widget_) widget_->setVisible(shownVisible());
  for (QtControl* member : members_) member->applyVisibility();
}

void QtControl::applyEnabled() {
  if (widget_) widget_->setEnabled(shownEnabled());
  for (QtControl* member : members_) member->applyEnabled();
}

void QtControl::connectSignals() {
  QWidget* w = widget_;
  switch (def_.kind) {
    case ControlKind::CommandButton:
      QObject::connect(static_cast<QPushButton*>(w), &QPushButton::clicked,
                       [this] { fire(EventKind::Click); });
      chooseByKeyboard(*w, [this] { fire(EventKind::Click); });
      break;
    case ControlKind::OptionButton:
    case ControlKind::CheckBox: {
      auto* button = static_cast<QAbstractButton*>(w);
      const int checkedValue = def_.kind == ControlKind::OptionButton ? -1 : 1;
      QObject::connect(button, &QAbstractButton::pressed, [this] { pressed_ = true; });
      QObject::connect(button, &QAbstractButton::released, [this] { pressed_ = false; });
      QObject::connect(button, &QAbstractButton::clicked, [this, checkedValue] {
        auto* b = static_cast<QAbstractButton*>(widget_.data());
        value_ = b->isChecked() ? checkedValue : 0;
        fire(EventKind::Click);
      });
      // A checked state set without a click acts as a click. The
      // accessibility interface's Toggle action, which screen readers and
      // voice control press, calls toggle() and emits no clicked: the mode
      // button ticked and the mode stayed. Every click emits pressed before
      // it changes the state, so a change outside a press is such a toggle;
      // one inside a press is left to the clicked that follows it.
      QObject::connect(button, &QAbstractButton::toggled, [this, checkedValue](bool on) {
        value_ = on ? checkedValue : 0;
        if (on && !pressed_ && !settingValue_) fire(EventKind::Click);
      });
      break;
    }
    case ControlKind::ListBox:
      QObject::connect(static_cast<QListWidget*>(w), &QListWidget::itemClicked,
                       [this](QListWidgetItem*) { fire(EventKind::Click); });
      chooseByKeyboard(*w, [this] { fire(EventKind::Click); });
      break;
    case ControlKind::ComboBox:
      QObject::connect(static_cast<QComboBox*>(w), &QComboBox::activated,
                       [this](int) { fire(EventKind::Click); });
      break;
    case ControlKind::Grid:
      QObject::connect(static_cast<QTableWidget*>(w), &QTableWidget::cellClicked,
                       [this](int, int) { fire(EventKind::Click); });
      chooseByKeyboard(*w, [this] { fire(EventKind::Click); });
      break;
    case ControlKind::Slider:
      QObject::connect(static_cast<QSlider*>(w), &QSlider::valueChanged,
                       [this](int) { fire(EventKind::Change); });
      break;
    case ControlKind::TextBox:
      if (def_.multiline)
        QObject::connect(static_cast<QPlainTextEdit*>(w), &QPlainTextEdit::textChanged,
                         [this] { fire(EventKind::Change); });
      else
        QObject::connect(static_cast<QLineEdit*>(w), &QLineEdit::textChanged,
                         [this](const QString&) { fire(EventKind::Change); });
      break;
    default:
      break;
  }
}

void QtControl::fire(EventKind kind, Event event) {
  event.kind = kind;
  event.index = def_.index;
  screen_.dispatch(def_.name, kind, event);
}

void QtControl::unsupported(const char* property) const {
  throw ProgramError("Control '" + def_.name + "' of kind " + kindKeyword(def_.kind) +
                     " has no property " + property);
}

bool QtControl::isDevanagari() const { return fontFamily_ == kNotationFontName; }

QString QtControl::shown(const std::string& text) const {
  const auto& dev = qtWindowSystem().devanagari();
  if (isDevanagari() && dev.toUnicode) return q(dev.toUnicode(text));
  return q(text);
}

std::string QtControl::stored(const QString& text) const {
  const auto& dev = qtWindowSystem().devanagari();
  if (isDevanagari() && dev.toKeymap) return dev.toKeymap(text.toStdString());
  return text.toStdString();
}

// --- captions and text ------------------------------------------------------

std::string QtControl::caption() const {
  if (!hasCaption()) unsupported("Caption");
  return caption_;
}

void QtControl::setCaption(const std::string& text) {
  caption_ = text;
  switch (def_.kind) {
    case ControlKind::Label:
      static_cast<QLabel*>(widget_.data())->setText(shown(text));
      break;
    case ControlKind::CommandButton:
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
      static_cast<QAbstractButton*>(widget_.data())->setText(shown(text));
      nameAfterCaption(*widget_, def_, text);
      break;
    case ControlKind::Frame:
      static_cast<QGroupBox*>(widget_.data())->setTitle(shown(text));
      break;
    case ControlKind::Menu:
      if (menu_) menu_->setTitle(q(text));
      if (action_) action_->setText(q(text));
      break;
    default:
      unsupported("Caption");
  }
}

std::string QtControl::text() const {
  switch (def_.kind) {
    case ControlKind::TextBox:
      if (def_.multiline) return stored(static_cast<QPlainTextEdit*>(widget_.data())->toPlainText());
      return stored(static_cast<QLineEdit*>(widget_.data())->text());
    case ControlKind::ListBox: {
      auto* list = static_cast<QListWidget*>(widget_.data());
      return list->currentRow() < 0 ? "" : stored(list->currentItem()->text());
    }
    case ControlKind::ComboBox:
      return stored(static_cast<QComboBox*>(widget_.data())->currentText());
    case ControlKind::Grid:
      return textMatrix(row(), col());
    default:
      unsupported("Text");
  }
}

void QtControl::setText(const std::string& text) {
  switch (def_.kind) {
    case ControlKind::TextBox:
      if (def_.multiline)
        static_cast<QPlainTextEdit*>(widget_.data())->setPlainText(shown(text));
      else
        setLineText(static_cast<QLineEdit*>(widget_.data()), shown(text));
      break;
    case ControlKind::ComboBox:
      static_cast<QComboBox*>(widget_.data())->setCurrentText(shown(text));
      break;
    case ControlKind::Grid:
      setTextMatrix(row(), col(), text);
      break;
    default:
      unsupported("Text");
  }
}

// --- state ------------------------------------------------------------------

bool QtControl::visible() const {
  if (def_.kind == ControlKind::Menu) return action_ && action_->isVisible();
  if (!widget_) unsupported("Visible");
  return ownVisible_;
}

void QtControl::setVisible(bool on) {
  if (def_.kind == ControlKind::Menu) {
    if (action_) action_->setVisible(on);
    return;
  }
  if (!widget_) unsupported("Visible");
  ownVisible_ = on;
  applyVisibility();
}

bool QtControl::enabled() const {
  if (def_.kind == ControlKind::Timer) return timer_->isActive();
  if (def_.kind == ControlKind::Menu) return action_ && action_->isEnabled();
  if (!widget_) unsupported("Enabled");
  return ownEnabled_;
}

void QtControl::setEnabled(bool on) {
  if (def_.kind == ControlKind::Timer) {
    if (on)
      timer_->start();
    else
      timer_->stop();
    return;
  }
  if (def_.kind == ControlKind::Menu) {
    if (action_) action_->setEnabled(on);
    if (menu_) menu_->setEnabled(on);
    return;
  }
  if (!widget_) unsupported("Enabled");
  ownEnabled_ = on;
  applyEnabled();
}

bool QtControl::locked() const {
  if (def_.kind != ControlKind::TextBox) unsupported("Locked");
  return locked_;
}

void QtControl::setLocked(bool on) {
  if (def_.kind != ControlKind::TextBox) unsupported("Locked");
  locked_ = on;
  if (def_.multiline)
    static_cast<QPlainTextEdit*>(widget_.data())->setReadOnly(on);
  else
    static_cast<QLineEdit*>(widget_.data())->setReadOnly(on);
}

// --- geometry ---------------------------------------------------------------

float QtControl::left() const {
  if (!widget_) unsupported("Left");
  return static_cast<float>(widget_->x());
}
float QtControl::top() const {
  if (!widget_) unsupported("Top");
  return static_cast<float>(widget_->y());
}
float QtControl::width() const {
  if (!widget_) unsupported("Width");
  return static_cast<float>(widget_->width());
}
float QtControl::height() const {
  if (!widget_) unsupported("Height");
  return static_cast<float>(widget_->height());
}
void QtControl::setLeft(float v) {
  if (!widget_) unsupported("Left");
  widget_->move(qRound(v), widget_->y());
}
void QtControl::setTop(float v) {
  if (!widget_) unsupported("Top");
  widget_->move(widget_->x(), qRound(v));
}
void QtControl::setWidth(float v) {
  if (!widget_) unsupported("Width");
  widget_->resize(std::max(0, qRound(v)), widget_->height());
}
void QtControl::setHeight(float v) {
  if (!widget_) unsupported("Height");
  requestedHeight_ = std::max(0, qRound(v));
  applyHeight();
}

// A multi-line text box holds whole lines of its font: its height is
// trimmed down to them, so that no line shows cut through the middle (the
// prompts, the notation box); the few pixels left over show the picture
// behind. Every other control takes the height asked for.
void QtControl::applyHeight() {
  if (requestedHeight_ < 0) return;
  int height = requestedHeight_;
  if (def_.kind == ControlKind::TextBox && def_.multiline) {
    auto* edit = static_cast<QPlainTextEdit*>(widget_.data());
    const int chrome = 2 * edit->frameWidth() + 2 * qCeil(edit->document()->documentMargin());
    const int line = QFontMetrics(edit->font()).lineSpacing();
    const int lines = std::max(1, (height - chrome) / std::max(1, line));
    height = std::min(height, chrome + lines * line);
  }
  widget_->resize(widget_->width(), height);
}

// --- colours, border and font -----------------------------------------------

void QtControl::applyColors() {
  if (!widget_) return;
  if (def_.kind == ControlKind::Line) {
    static_cast<LineWidget*>(widget_.data())->setColor(foreColor_ < 0 ? Qt::black : fromBgr(foreColor_));
    return;
  }
  QString sheet;
  if (foreColor_ >= 0) sheet += "color: " + fromBgr(foreColor_).name() + ";";
  if (backColor_ >= 0) sheet += "background-color: " + fromBgr(backColor_).name() + ";";
  if (borderStyle_ == 1 && def_.kind == ControlKind::Label) sheet += "border: 1px solid #404040;";
  // The drawing area puts a plate behind text that stands on the picture.
  widget_->setProperty(kOwnBackgroundProperty, backColor_ >= 0);
  widget_->setStyleSheet(sheet.isEmpty() ? QString() : widget_->metaObject()->className() +
                                                           QString(" { ") + sheet + " }");
}

int QtControl::foreColor() const { return foreColor_ < 0 ? 0 : foreColor_; }
void QtControl::setForeColor(int bgr) {
  if (bgr == foreColor_) return;
  foreColor_ = bgr;
  applyColors();
}
int QtControl::backColor() const { return backColor_ < 0 ? 0xFFFFFF : backColor_; }
void QtControl::setBackColor(int bgr) {
  if (bgr == backColor_) return;
  backColor_ = bgr;
  applyColors();
}
int QtControl::borderStyle() const { return borderStyle_; }
void QtControl::setBorderStyle(int style) {
  borderStyle_ = style;
  applyColors();
}

void QtControl::applyFont() {
  if (!widget_) return;
  QFont font = widget_->font();
  if (isDevanagari()) {
    const std::string& family = qtWindowSystem().notationFamily();
    if (!family.empty()) font.setFamily(q(family));
  } else if (!fontFamily_.empty()) {
    font.setFamily(q(fontFamily_));
  }
  if (fontPoints_ > 0) font.setPointSizeF(fontPoints_);
  font.setBold(fontBold_);
  widget_->setFont(font);
  applyHeight();
}

std::string QtControl::fontName() const { return fontFamily_; }
void QtControl::setFontName(const std::string& family) {
  if (family == fontFamily_) return;
  // Text shown in the old script is re-shown in the new one.
  std::string keep = def_.kind == ControlKind::TextBox ? text() : std::string();
  fontFamily_ = family;
  applyFont();
  if (def_.kind == ControlKind::TextBox)
    setText(keep);
  else if (widget_ && hasCaption())
    setCaption(caption_);
}
float QtControl::fontSize() const {
  return widget_ ? static_cast<float>(widget_->font().pointSizeF()) : fontPoints_;
}
void QtControl::setFontSize(float points) {
  fontPoints_ = points;
  applyFont();
}

bool QtControl::fontBold() const { return fontBold_; }
void QtControl::setFontBold(bool on) {
  fontBold_ = on;
  applyFont();
}

void QtControl::setFocus() {
  if (!widget_) unsupported("SetFocus");
  widget_->setFocus();
}

void QtControl::refresh() {
  if (widget_) widget_->repaint();
}

// --- values -----------------------------------------------------------------

int QtControl::value() const {
  switch (def_.kind) {
    case ControlKind::Slider:
      return static_cast<QSlider*>(widget_.data())->value();
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
      return value_;
    default:
      unsupported("Value");
  }
}

void QtControl::setValue(int v) {
  switch (def_.kind) {
    case ControlKind::Slider:
      static_cast<QSlider*>(widget_.data())->setValue(v);
      break;
    case ControlKind::OptionButton: {
      // Setting an option true clicks it, as the screen model expects.
      auto* b = static_cast<QAbstractButton*>(widget_.data());
      settingValue_ = true;
      b->setChecked(v != 0);
      settingValue_ = false;
      value_ = v ? -1 : 0;
      if (v) fire(EventKind::Click);
      break;
    }
    case ControlKind::CheckBox:
      settingValue_ = true;
      static_cast<QAbstractButton*>(widget_.data())->setChecked(v != 0);
      settingValue_ = false;
      value_ = v;
      break;
    default:
      unsupported("Value");
  }
}

int QtControl::minValue() const {
  if (def_.kind != ControlKind::Slider) unsupported("Min");
  return static_cast<QSlider*>(widget_.data())->minimum();
}
int QtControl::maxValue() const {
  if (def_.kind != ControlKind::Slider) unsupported("Max");
  return static_cast<QSlider*>(widget_.data())->maximum();
}

bool QtControl::checked() const {
  if (def_.kind != ControlKind::Menu) unsupported("Checked");
  return action_ && action_->isChecked();
}
void QtControl::setChecked(bool on) {
  if (def_.kind != ControlKind::Menu) unsupported("Checked");
  if (action_) {
    action_->setCheckable(true);
    action_->setChecked(on);
  }
}

// --- lists ------------------------------------------------------------------

void QtControl::addItem(const std::string& item) {
  if (def_.kind == ControlKind::ListBox)
    static_cast<QListWidget*>(widget_.data())->addItem(shown(item));
  else if (def_.kind == ControlKind::ComboBox)
    static_cast<QComboBox*>(widget_.data())->addItem(shown(item));
  else
    unsupported("AddItem");
}

void QtControl::clear() {
  if (def_.kind == ControlKind::ListBox)
    static_cast<QListWidget*>(widget_.data())->clear();
  else if (def_.kind == ControlKind::ComboBox)
    static_cast<QComboBox*>(widget_.data())->clear();
  else if (def_.kind == ControlKind::Grid)
    static_cast<QTableWidget*>(widget_.data())->clearContents();
  else
    unsupported("Clear");
}

int QtControl::listCount() const {
  if (def_.kind == ControlKind::ListBox) return static_cast<QListWidget*>(widget_.data())->count();
  if (def_.kind == ControlKind::ComboBox) return static_cast<QComboBox*>(widget_.data())->count();
  unsupported("ListCount");
}

std::string QtControl::list(int i) const {
  if (i < 0 || i >= listCount()) return "";
  if (def_.kind == ControlKind::ListBox)
    return stored(static_cast<QListWidget*>(widget_.data())->item(i)->text());
  return stored(static_cast<QComboBox*>(widget_.data())->itemText(i));
}

int QtControl::listIndex() const {
  if (def_.kind == ControlKind::ListBox)
    return static_cast<QListWidget*>(widget_.data())->currentRow();
  if (def_.kind == ControlKind::ComboBox)
    return static_cast<QComboBox*>(widget_.data())->currentIndex();
  unsupported("ListIndex");
}

void QtControl::setListIndex(int i) {
  if (def_.kind == ControlKind::ListBox) {
    auto* list = static_cast<QListWidget*>(widget_.data());
    list->setCurrentRow(i);
    if (i < 0) list->clearSelection();
  } else if (def_.kind == ControlKind::ComboBox) {
    static_cast<QComboBox*>(widget_.data())->setCurrentIndex(i);
  } else {
    unsupported("ListIndex");
  }
}

// --- grid -------------------------------------------------------------------

namespace {
QTableWidget* asGrid(QWidget* w) { return static_cast<QTableWidget*>(w); }
}  // namespace

int QtControl::rows() const {
  if (def_.kind != ControlKind::Grid) unsupported("Rows");
  return asGrid(widget_)->rowCount();
}
void QtControl::setRows(int n) {
  if (def_.kind != ControlKind::Grid) unsupported("Rows");
  asGrid(widget_)->setRowCount(std::clamp(n, 0, kMaxGridRows));
}
int QtControl::cols() const {
  if (def_.kind != ControlKind::Grid) unsupported("Cols");
  return asGrid(widget_)->columnCount();
}
void QtControl::setCols(int n) {
  if (def_.kind != ControlKind::Grid) unsupported("Cols");
  asGrid(widget_)->setColumnCount(std::clamp(n, 0, kMaxGridCols));
}
int QtControl::row() const {
  if (def_.kind != ControlKind::Grid) unsupported("Row");
  return std::max(asGrid(widget_)->currentRow(), 0);
}
void QtControl::setRow(int r) {
  if (def_.kind != ControlKind::Grid) unsupported("Row");
  auto* grid = asGrid(widget_);
  grid->setCurrentCell(r, std::max(grid->currentColumn(), 0), QItemSelectionModel::NoUpdate);
}
int QtControl::rowSel() const {
  if (def_.kind != ControlKind::Grid) unsupported("RowSel");
  auto ranges = asGrid(widget_)->selectedRanges();
  return ranges.isEmpty() ? row() : ranges.first().bottomRow();
}
void QtControl::setRowSel(int r) {
  if (def_.kind != ControlKind::Grid) unsupported("RowSel");
  auto* grid = asGrid(widget_);
  grid->clearSelection();
  grid->setRangeSelected(QTableWidgetSelectionRange(std::min(row(), r), 0, std::max(row(), r),
                                                    grid->columnCount() - 1),
                         true);
}
int QtControl::col() const {
  if (def_.kind != ControlKind::Grid) unsupported("Col");
  return std::max(asGrid(widget_)->currentColumn(), 0);
}
void QtControl::setCol(int c) {
  if (def_.kind != ControlKind::Grid) unsupported("Col");
  auto* grid = asGrid(widget_);
  grid->setCurrentCell(std::max(grid->currentRow(), 0), c, QItemSelectionModel::NoUpdate);
}
std::string QtControl::textMatrix(int r, int c) const {
  if (def_.kind != ControlKind::Grid) unsupported("TextMatrix");
  auto* item = asGrid(widget_)->item(r, c);
  return item ? stored(item->text()) : "";
}
void QtControl::setTextMatrix(int r, int c, const std::string& text) {
  if (def_.kind != ControlKind::Grid) unsupported("TextMatrix");
  auto* grid = asGrid(widget_);
  auto* item = grid->item(r, c);
  if (!item) {
    item = new QTableWidgetItem;
    grid->setItem(r, c, item);
  }
  item->setText(shown(text));
  if (r < fixedRows_) {
    QFont bold = item->font();
    bold.setBold(true);
    item->setFont(bold);
    item->setBackground(QColor(0xE8, 0xE0, 0xD0));
    item->setFlags(Qt::ItemIsEnabled);
  }
}
void QtControl::setColWidth(int c, float width) {
  if (def_.kind != ControlKind::Grid) unsupported("ColWidth");
  asGrid(widget_)->setColumnWidth(c, qRound(width));
}
int QtControl::fixedRows() const {
  if (def_.kind != ControlKind::Grid) unsupported("FixedRows");
  return fixedRows_;
}

// --- timer, line, picture, system information, media ------------------------

int QtControl::interval() const {
  if (def_.kind != ControlKind::Timer) unsupported("Interval");
  return timer_->interval();
}
void QtControl::setInterval(int ms) {
  if (def_.kind != ControlKind::Timer) unsupported("Interval");
  timer_->setInterval(ms);
}

float QtControl::x1() const { return lineX1_; }
float QtControl::y1() const { return lineY1_; }
float QtControl::x2() const { return lineX2_; }
float QtControl::y2() const { return lineY2_; }
void QtControl::setLine(float ax, float ay, float bx, float by) {
  if (def_.kind != ControlKind::Line) unsupported("X1");
  lineX1_ = ax;
  lineY1_ = ay;
  lineX2_ = bx;
  lineY2_ = by;
  static_cast<LineWidget*>(widget_.data())->setEnds(QPointF(ax, ay), QPointF(bx, by));
}

void QtControl::setPicture(const std::string& path) {
  if (def_.kind != ControlKind::Picture) unsupported("Picture");
  static_cast<QLabel*>(widget_.data())->setPixmap(QPixmap(q(path)));
}

int QtControl::osPlatform() const {
  if (def_.kind != ControlKind::SysInfo) unsupported("OSPlatform");
  // The platform code of a modern 32/64-bit desktop system.
  return 2;
}

// The audio device is made when the logic first uses the media control, so
// that a screen that never plays never opens the sound output.
AudioDevice& QtControl::device() {
  if (def_.kind != ControlKind::MediaControl) unsupported("device");
  if (!device_) {
    device_ = qtWindowSystem().createAudioDevice();
    if (!device_) throw ProgramError("No audio device for '" + def_.name + "'");
    device_->onDone = [this](int code) {
      Event ev;
      ev.notifyCode = code;
      fire(EventKind::Done, ev);
    };
    device_->onStatus = [this] { fire(EventKind::Status); };
  }
  return *device_;
}

}  // namespace platform
