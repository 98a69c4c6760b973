// Qt backend of a screen: a QMainWindow built from the screen's definition,
// with a menu bar, a drawing area on which every control is placed in
// absolute window coordinates, and the background picture scaled behind.
//
// The Screen object lives for the whole process; the window and its widgets
// exist only while the screen is loaded, and touching a control of an
// unloaded screen loads it, as the screen model expects.
#pragma once

#include <QMainWindow>
#include <QPixmap>
#include <QPointer>
#include <map>
#include <memory>
#include <vector>

#include "platform/screen.h"
#include "platform/screendef.h"

class QButtonGroup;
class QCloseEvent;

namespace platform {

class QtControl;
class QtScreen;

// The window of a loaded screen; forwards window events to its screen.
class ScreenWindow : public QMainWindow {
 public:
  explicit ScreenWindow(QtScreen& screen);
  void setBackground(const QPixmap& picture);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QtScreen& screen_;
};

class QtScreen : public Screen {
 public:
  explicit QtScreen(ScreenDefinition definition);
  ~QtScreen() override;

  const std::string& name() const override { return def_.name; }
  int formId() const override { return def_.formId; }

  bool hasControl(const std::string& name, int index) const override;
  Control& control(const std::string& name, int index) override;
  int controlCount() const override;
  Control& controlAt(int ordinal) override;
  Control& loadElement(const std::string& name, int index) override;
  void unloadElement(const std::string& name, int index) override;
  int elementCount(const std::string& name) const override;

  float left() const override;
  float top() const override;
  float width() const override;
  float height() const override;
  void setLeft(float v) override;
  void setTop(float v) override;
  void setWidth(float v) override;
  void setHeight(float v) override;
  int windowState() const override;
  void setWindowState(int state) override;
  bool visible() const override;
  void setVisible(bool on) override;
  std::string caption() const override;
  void setCaption(const std::string& text) override;
  void setPicture(const std::string& path) override;
  void setMousePointer(int pointer) override;

  bool loaded() const override { return window_ != nullptr; }
  void load() override;
  void show() override;
  void showModal() override;
  void unload() override;
  void enterWhatsThisMode() override;

  void on(const std::string& control, EventKind kind, EventHandler handler) override;

  // Called by controls and the window.
  void dispatch(const std::string& control, EventKind kind, const Event& event);
  void windowCloseRequested(QCloseEvent* event);
  void windowResized();
  void windowActivated();
  QWidget* drawingArea() const;
  // Help text shown for F1 on the focused widget, or the screen's own.
  void showContextHelp();

 private:
  void ensureLoaded() const;
  QtControl* find(const std::string& name, int index) const;
  bool runUnloadEvents(int unloadMode);
  void destroyWindow();
  void createControls();
  QButtonGroup* optionGroupFor(const ControlDefinition& def);
  QMenu* parentMenuOf(const ControlDefinition& def) const;

  ScreenDefinition def_;
  QPointer<ScreenWindow> window_;
  QPixmap background_;
  std::vector<std::unique_ptr<QtControl>> controls_;  // the Controls collection
  std::map<std::string, QButtonGroup*> optionGroups_;
  std::map<std::pair<std::string, EventKind>, EventHandler> handlers_;
  bool unloading_ = false;
};

}  // namespace platform
