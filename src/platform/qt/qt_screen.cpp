// Qt backend of a screen (see qt_screen.h).
#include "platform/qt/qt_screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QEventLoop>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWhatsThis>
#include <set>

#include "platform/audio.h"
#include "platform/qt/qt_control.h"

namespace platform {

namespace {

// How much of the window colour a plate under text lets show over the
// picture: with 0.65 black text keeps a contrast above 4.5:1 even on the
// darkest picture (about 7:1 over black).
constexpr double kPlateOpacity = 0.65;

// Whether a control draws text straight on the picture: labels with a
// caption, option buttons, check boxes and frames, unless they paint a
// background of their own.
bool drawsTextOnPicture(const QWidget* w) {
  if (!w->isVisible() || w->property(kOwnBackgroundProperty).toBool()) return false;
  if (const auto* label = qobject_cast<const QLabel*>(w)) return !label->text().isEmpty();
  if (qobject_cast<const QGroupBox*>(w)) return true;
  return qobject_cast<const QAbstractButton*>(w) && !qobject_cast<const QPushButton*>(w);
}

// The drawing area of a screen: paints the background picture scaled to
// its size, under every control, and a pale plate under each control whose
// text would stand on the picture, so that the text reads on dark and busy
// pictures alike.
class DrawingArea : public QWidget {
 public:
  using QWidget::QWidget;
  void setPicture(const QPixmap& picture) {
    picture_ = picture;
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    if (picture_.isNull()) {
      p.fillRect(rect(), palette().window());
      return;
    }
    p.drawPixmap(rect(), picture_);
    QColor plate = palette().window().color();
    plate.setAlphaF(kPlateOpacity);
    for (const QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
      if (drawsTextOnPicture(child)) p.fillRect(child->geometry(), plate);
  }

 private:
  QPixmap picture_;
};

// The size a screen opens with before the screen manager lays it out.
constexpr int kDesignWidth = 1024;
constexpr int kDesignHeight = 700;

}  // namespace

// --- the window -------------------------------------------------------------

ScreenWindow::ScreenWindow(QtScreen& screen) : screen_(screen) {
  setCentralWidget(new DrawingArea(this));
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
  QObject::connect(help, &QShortcut::activated, [this] { screen_.showContextHelp(); });
}

void ScreenWindow::setBackground(const QPixmap& picture) {
  static_cast<DrawingArea*>(centralWidget())->setPicture(picture);
}

void ScreenWindow::closeEvent(QCloseEvent* event) { screen_.windowCloseRequested(event); }

void ScreenWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  screen_.windowResized();
}

void ScreenWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) screen_.windowResized();
}

bool ScreenWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) screen_.windowActivated();
  return QMainWindow::event(event);
}

// --- the screen -------------------------------------------------------------

QtScreen::QtScreen(ScreenDefinition definition) : def_(std::move(definition)) {}

QtScreen::~QtScreen() {
  if (window_) {
    for (auto& c : controls_) c.reset();
    delete window_.data();
  }
}

void QtScreen::ensureLoaded() const {
  if (!window_) const_cast<QtScreen*>(this)->load();
}

void QtScreen::load() {
  if (window_) return;
  window_ = new ScreenWindow(*this);
  window_->setObjectName(QString::fromStdString(def_.name));
  window_->setWindowTitle(QString::fromStdString(def_.caption));
  window_->setAttribute(Qt::WA_DeleteOnClose, false);
  if (!def_.help.empty()) window_->setWhatsThis(QString::fromStdString(def_.help));
  window_->resize(kDesignWidth, kDesignHeight);
  window_->setBackground(background_);
  createControls();
  dispatch("", EventKind::Load, {});
}

QMenu* QtScreen::parentMenuOf(const ControlDefinition& def) const {
  if (def.parentMenu.empty()) return nullptr;
  QtControl* parent = find(def.parentMenu, -1);
  return parent ? parent->menu() : nullptr;
}

QButtonGroup* QtScreen::optionGroupFor(const ControlDefinition& def) {
  if (def.kind != ControlKind::OptionButton) return nullptr;
  auto& group = optionGroups_[def.frame];
  if (!group) group = new QButtonGroup(window_);
  return group;
}

void QtScreen::createControls() {
  std::set<std::string> menusWithEntries;
  for (const auto& c : def_.controls)
    if (!c.parentMenu.empty()) menusWithEntries.insert(c.parentMenu);
  QWidget* area = drawingArea();
  const float w = kDesignWidth, h = kDesignHeight;
  for (const auto& c : def_.controls) {
    auto control = std::make_unique<QtControl>(*this, c);
    control->create(area, parentMenuOf(c), optionGroupFor(c), menusWithEntries.count(c.name) > 0);
    if (c.kind == ControlKind::Line) {
      control->setLine(float(c.x * w), float(c.y * h), float(c.w * w), float(c.h * h));
    } else if (hasGeometry(c.kind)) {
      control->widget()->setGeometry(qRound(c.x * w), qRound(c.y * h), qRound(c.w * w),
                                     qRound(c.h * h));
    }
    controls_.push_back(std::move(control));
  }
  // Frames stand behind the controls placed on them, and show and enable
  // them with themselves.
  for (auto& c : controls_) {
    if (c->kind() == ControlKind::Frame) c->widget()->lower();
    if (QtControl* frame = c->definition().frame.empty() ? nullptr : find(c->definition().frame, -1))
      c->setFrame(frame);
  }
}

QWidget* QtScreen::drawingArea() const {
  ensureLoaded();
  return window_->centralWidget();
}

QtControl* QtScreen::find(const std::string& name, int index) const {
  for (const auto& c : controls_)
    if (c->name() == name && c->index() == index) return c.get();
  return nullptr;
}

bool QtScreen::hasControl(const std::string& name, int index) const {
  ensureLoaded();
  return find(name, index) != nullptr;
}

Control& QtScreen::control(const std::string& name, int index) {
  ensureLoaded();
  QtControl* c = find(name, index);
  if (!c)
    throw ProgramError("Screen '" + def_.name + "' has no control '" + name +
                       (index >= 0 ? "(" + std::to_string(index) + ")" : std::string()) + "'");
  return *c;
}

int QtScreen::controlCount() const {
  ensureLoaded();
  return static_cast<int>(controls_.size());
}

Control& QtScreen::controlAt(int ordinal) {
  ensureLoaded();
  if (ordinal < 0 || ordinal >= static_cast<int>(controls_.size()))
    throw ProgramError("Screen '" + def_.name + "' has no control number " +
                       std::to_string(ordinal));
  return *controls_[ordinal];
}

Control& QtScreen::loadElement(const std::string& name, int index) {
  ensureLoaded();
  if (QtControl* existing = find(name, index)) return *existing;
  QtControl* first = find(name, 0);
  if (!first) throw ProgramError("Screen '" + def_.name + "' has no control array '" + name + "'");
  ControlDefinition def = first->definition();
  def.index = index;
  def.visible = false;  // a new element shows only when the logic says so
  auto control = std::make_unique<QtControl>(*this, def);
  control->create(drawingArea(), nullptr, optionGroupFor(def), false);
  if (first->widget() && control->widget()) control->widget()->setGeometry(first->widget()->geometry());
  controls_.push_back(std::move(control));
  return *controls_.back();
}

void QtScreen::unloadElement(const std::string& name, int index) {
  if (index == 0) throw ProgramError("Element 0 of '" + name + "' is designed and stays loaded");
  for (auto it = controls_.begin(); it != controls_.end(); ++it) {
    if ((*it)->name() == name && (*it)->index() == index) {
      if (QWidget* w = (*it)->widget()) {
        w->hide();
        w->deleteLater();
      }
      controls_.erase(it);
      return;
    }
  }
}

int QtScreen::elementCount(const std::string& name) const {
  ensureLoaded();
  int n = 0;
  for (const auto& c : controls_)
    if (c->name() == name && c->index() >= 0) ++n;
  return n;
}

// --- geometry ---------------------------------------------------------------
// Geometry is the outer frame of the window. A maximised window that is not
// shown yet reports the desktop's available area, which is what it will have.

namespace {
QRect availableArea() {
  QScreen* s = QGuiApplication::primaryScreen();
  return s ? s->availableGeometry() : QRect(0, 0, 1366, 768);
}
}  // namespace

float QtScreen::left() const {
  ensureLoaded();
  if (window_->isMaximized() && !window_->isVisible()) return float(availableArea().x());
  return float(window_->frameGeometry().x());
}
float QtScreen::top() const {
  ensureLoaded();
  if (window_->isMaximized() && !window_->isVisible()) return float(availableArea().y());
  return float(window_->frameGeometry().y());
}
float QtScreen::width() const {
  ensureLoaded();
  if (window_->isMaximized() && !window_->isVisible()) return float(availableArea().width());
  return float(window_->frameGeometry().width());
}
float QtScreen::height() const {
  ensureLoaded();
  if (window_->isMaximized() && !window_->isVisible()) return float(availableArea().height());
  return float(window_->frameGeometry().height());
}
QRect& QtScreen::requestedGeometry() {
  ensureLoaded();
  if (!requestedGeometry_) requestedGeometry_ = window_->frameGeometry();
  return *requestedGeometry_;
}

// Moves and sizes the window to the requested outer geometry.
void QtScreen::applyRequestedGeometry() {
  if (!requestedGeometry_ || !window_) return;
  const QRect& r = *requestedGeometry_;
  int frameW = window_->frameGeometry().width() - window_->width();
  int frameH = window_->frameGeometry().height() - window_->height();
  window_->resize(std::max(1, r.width() - frameW), std::max(1, r.height() - frameH));
  window_->move(r.x(), r.y());
}

void QtScreen::setLeft(float v) {
  requestedGeometry().moveLeft(qRound(v));
  applyRequestedGeometry();
}
void QtScreen::setTop(float v) {
  requestedGeometry().moveTop(qRound(v));
  applyRequestedGeometry();
}
void QtScreen::setWidth(float v) {
  requestedGeometry().setWidth(std::max(1, qRound(v)));
  applyRequestedGeometry();
}
void QtScreen::setHeight(float v) {
  requestedGeometry().setHeight(std::max(1, qRound(v)));
  applyRequestedGeometry();
}

int QtScreen::windowState() const {
  ensureLoaded();
  if (window_->isMinimized()) return 1;
  if (window_->isMaximized()) return 2;
  return 0;
}

void QtScreen::setWindowState(int state) {
  ensureLoaded();
  Qt::WindowStates s = window_->windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
  if (state == 1) s |= Qt::WindowMinimized;
  if (state == 2) s |= Qt::WindowMaximized;
  window_->setWindowState(s);
}

bool QtScreen::visible() const {
  if (pendingVisible_) return *pendingVisible_;
  return window_ && window_->isVisible();
}

// Showing and hiding take effect when the current event is done: the screen
// manager shows a window, sizes it and hides it again before it shows it for
// good, and a window system that saw the first showing would report its old
// size late and undo the new one.
void QtScreen::setVisible(bool on) {
  ensureLoaded();
  if (!pendingVisible_)
    QTimer::singleShot(0, window_.data(), [this] { applyPendingVisibility(); });
  pendingVisible_ = on;
}

void QtScreen::applyPendingVisibility() {
  if (!pendingVisible_ || !window_) return;
  bool on = *pendingVisible_;
  pendingVisible_.reset();
  if (on && !window_->isMaximized() && !window_->isMinimized()) applyRequestedGeometry();
  if (on) requestedGeometry_.reset();
  window_->setVisible(on);
}

std::string QtScreen::caption() const { return def_.caption; }

void QtScreen::setCaption(const std::string& text) {
  def_.caption = text;
  if (window_) window_->setWindowTitle(QString::fromStdString(text));
}

void QtScreen::setPicture(const std::string& path) {
  background_ = QPixmap(QString::fromStdString(path));
  if (window_) window_->setBackground(background_);
}

void QtScreen::setMousePointer(int pointer) {
  ensureLoaded();
  if (pointer == kPointerHourglass)
    window_->setCursor(Qt::WaitCursor);
  else
    window_->unsetCursor();
}

// --- showing and unloading --------------------------------------------------

void QtScreen::show() {
  ensureLoaded();
  pendingVisible_.reset();
  if (!window_->isMaximized() && !window_->isMinimized()) applyRequestedGeometry();
  requestedGeometry_.reset();
  window_->show();
  window_->raise();
  window_->activateWindow();
}

void QtScreen::showModal() {
  ensureLoaded();
  window_->setWindowModality(Qt::ApplicationModal);
  QPointer<ScreenWindow> watched = window_;
  QEventLoop loop;
  QObject::connect(watched, &QObject::destroyed, &loop, &QEventLoop::quit);
  window_->show();
  loop.exec();
}

bool QtScreen::runUnloadEvents(int unloadMode) {
  bool cancel = false;
  Event query;
  query.unloadMode = unloadMode;
  query.cancel = &cancel;
  dispatch("", EventKind::QueryUnload, query);
  if (cancel) return false;
  Event unloadEvent;
  unloadEvent.unloadMode = unloadMode;
  unloadEvent.cancel = &cancel;
  dispatch("", EventKind::Unload, unloadEvent);
  return !cancel;
}

void QtScreen::windowCloseRequested(QCloseEvent* event) {
  if (unloading_) {
    event->accept();
    return;
  }
  event->ignore();
  if (runUnloadEvents(0)) destroyWindow();
}

void QtScreen::unload() {
  if (!window_ || unloading_) return;
  unloading_ = true;
  bool go = runUnloadEvents(1);
  unloading_ = false;
  if (go) destroyWindow();
}

// The widgets go at once from the screen; the objects themselves are deleted
// once the current event has finished, since the handler that unloads a
// screen often belongs to one of its own controls.
void QtScreen::destroyWindow() {
  if (!window_) return;
  ScreenWindow* window = window_;
  window_ = nullptr;
  requestedGeometry_.reset();
  pendingVisible_.reset();
  for (QObject* child : window->findChildren<QObject*>()) child->blockSignals(true);
  for (auto& c : controls_) c->silence();
  window->hide();
  auto doomed = std::make_shared<std::vector<std::unique_ptr<QtControl>>>(std::move(controls_));
  controls_.clear();
  optionGroups_.clear();
  QTimer::singleShot(0, [doomed, window] {
    doomed->clear();
    delete window;
  });
  if (def_.formId == 1) QTimer::singleShot(0, [] { QCoreApplication::quit(); });
}

void QtScreen::enterWhatsThisMode() { QWhatsThis::enterWhatsThisMode(); }

void QtScreen::showContextHelp() {
  ensureLoaded();
  QWidget* focus = QApplication::focusWidget();
  QString text;
  if (focus && focus->window() == window_) text = focus->whatsThis();
  if (text.isEmpty()) text = window_->whatsThis();
  if (text.isEmpty()) return;
  QPoint at = focus ? focus->mapToGlobal(QPoint(0, focus->height())) : window_->pos();
  QWhatsThis::showText(at, text, window_);
}

// --- events -----------------------------------------------------------------

void QtScreen::on(const std::string& control, EventKind kind, EventHandler handler) {
  handlers_[{control, kind}] = std::move(handler);
}

void QtScreen::dispatch(const std::string& control, EventKind kind, const Event& event) {
  auto it = handlers_.find({control, kind});
  if (it == handlers_.end()) return;
  EventHandler handler = it->second;  // a handler may rebind its own event
  runAtEventBoundary([&] { handler(event); });
}

void QtScreen::windowResized() {
  if (window_ && !unloading_) dispatch("", EventKind::Resize, {});
}

// An activation that arrives after the window went (it was queued while the
// window was still shown) reaches no handler: the handler reads the window's
// state, which would load the screen afresh.
void QtScreen::windowActivated() {
  if (window_ && !unloading_) dispatch("", EventKind::Activate, {});
}

}  // namespace platform
