// Qt backend of a control: one class for every kind, holding the widget,
// action or timer that stands for it. Properties a kind lacks throw
// platform::ProgramError, as the screen model requires.
#pragma once

#include <QPointer>
#include <QString>
#include <memory>
#include <vector>

#include "platform/screen.h"
#include "platform/screendef.h"

class QWidget;
class QAction;
class QMenu;
class QTimer;
class QButtonGroup;

namespace platform {

class QtScreen;

// Widget property that is true while a control paints a background of its
// own (a BackColor); text without one stands on the screen's picture.
inline constexpr char kOwnBackgroundProperty[] = "nadavikOwnBackground";

class QtControl : public Control {
 public:
  QtControl(QtScreen& screen, const ControlDefinition& def);
  ~QtControl() override;

  // Creates the Qt object inside `parent` (the window's drawing area) or, for
  // menu entries, in the menu bar or parent menu; holdsEntries makes a menu
  // entry a menu of its own.
  void create(QWidget* parent, QMenu* parentMenu, QButtonGroup* optionGroup, bool holdsEntries);
  QWidget* widget() const { return widget_; }
  QMenu* menu() const { return menu_; }
  const ControlDefinition& definition() const { return def_; }

  ControlKind kind() const override { return def_.kind; }
  const std::string& name() const override { return def_.name; }
  int index() const override { return def_.index; }

  std::string caption() const override;
  void setCaption(const std::string& text) override;
  std::string text() const override;
  void setText(const std::string& text) override;
  bool visible() const override;
  void setVisible(bool on) override;
  bool enabled() const override;
  void setEnabled(bool on) override;
  bool locked() const override;
  void setLocked(bool on) override;
  float left() const override;
  float top() const override;
  float width() const override;
  float height() const override;
  void setLeft(float v) override;
  void setTop(float v) override;
  void setWidth(float v) override;
  void setHeight(float v) override;
  int foreColor() const override;
  void setForeColor(int bgr) override;
  int backColor() const override;
  void setBackColor(int bgr) override;
  int borderStyle() const override;
  void setBorderStyle(int style) override;
  std::string fontName() const override;
  void setFontName(const std::string& family) override;
  float fontSize() const override;
  void setFontSize(float points) override;
  bool fontBold() const override;
  void setFontBold(bool on) override;
  void setFocus() override;
  void refresh() override;

  int value() const override;
  void setValue(int v) override;
  int minValue() const override;
  int maxValue() const override;

  bool checked() const override;
  void setChecked(bool on) override;

  void addItem(const std::string& item) override;
  void clear() override;
  int listCount() const override;
  std::string list(int i) const override;
  int listIndex() const override;
  void setListIndex(int i) override;

  int rows() const override;
  void setRows(int n) override;
  int cols() const override;
  void setCols(int n) override;
  int row() const override;
  void setRow(int r) override;
  int rowSel() const override;
  void setRowSel(int r) override;
  int col() const override;
  void setCol(int c) override;
  std::string textMatrix(int r, int c) const override;
  void setTextMatrix(int r, int c, const std::string& text) override;
  void setColWidth(int c, float width) override;
  int fixedRows() const override;

  int interval() const override;
  void setInterval(int ms) override;

  float x1() const override;
  float y1() const override;
  float x2() const override;
  float y2() const override;
  void setLine(float x1, float y1, float x2, float y2) override;

  void setPicture(const std::string& path) override;
  int osPlatform() const override;
  AudioDevice& device() override;

  // Places the control in a frame: it shows and takes input only while the
  // frame does. Its coordinates stay those of the window.
  void setFrame(QtControl* frame);

  // Stops timers and sound and drops notifications: the window is going.
  void silence();

  // Delivers an event of this control to the screen's handlers.
  void fire(EventKind kind, Event event = {});

 private:
  [[noreturn]] void unsupported(const char* property) const;
  bool isDevanagari() const;
  QString shown(const std::string& stored) const;
  std::string stored(const QString& shown) const;
  void applyColors();
  void applyFont();
  void applyHeight();
  void createWidget(QWidget* parent, QButtonGroup* optionGroup);
  void createMenuEntry(QMenu* parentMenu, QWidget* menuBarOwner, bool holdsEntries);
  bool hasCaption() const;
  // Visible and Enabled as shown: the control's own value and its frame's.
  bool shownVisible() const;
  bool shownEnabled() const;
  void applyVisibility();
  void applyEnabled();
  void connectSignals();

  QtScreen& screen_;
  ControlDefinition def_;
  QPointer<QWidget> widget_;
  QPointer<QAction> action_;
  QPointer<QMenu> menu_;
  QTimer* timer_ = nullptr;
  std::unique_ptr<AudioDevice> device_;
  QtControl* frame_ = nullptr;
  std::vector<QtControl*> members_;  // a frame's controls
  bool ownVisible_ = true;
  bool ownEnabled_ = true;
  std::string caption_;        // as the logic set it (key-map text for Shusha)
  std::string fontFamily_;
  float fontPoints_ = 0;
  bool fontBold_ = false;
  int foreColor_ = -1;         // -1: the style's own colour
  int backColor_ = -1;
  int borderStyle_ = 0;
  bool locked_ = false;
  int value_ = 0;              // option and check box value as the logic sees it
  // An option or check box between its press and its release: a change of
  // its checked state then belongs to the click that follows.
  bool pressed_ = false;
  bool settingValue_ = false;  // inside setValue, which fires its own Click
  float lineX1_ = 0, lineY1_ = 0, lineX2_ = 0, lineY2_ = 0;
  int fixedRows_ = 0;
  int requestedHeight_ = -1;  // the height the logic asked for; -1 none yet
};

}  // namespace platform
