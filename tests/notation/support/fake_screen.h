// A screen of plain controls for tests of the procedures that write notation
// boxes: controls remember text, font, value, and enabled and shown state;
// anything else a test did not expect throws platform::ProgramError.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/screen.h"

class FakeControl : public platform::Control {
 public:
  explicit FakeControl(std::string name) : name_(std::move(name)) {}

  platform::ControlKind kind() const override { return platform::ControlKind::TextBox; }
  const std::string& name() const override { return name_; }
  int index() const override { return -1; }
  std::string text() const override { return text_; }
  void setText(const std::string& text) override { text_ = text; }
  bool enabled() const override { return enabled_; }
  void setEnabled(bool on) override { enabled_ = on; }
  bool visible() const override { return visible_; }
  void setVisible(bool on) override { visible_ = on; }
  std::string fontName() const override { return fontName_; }
  void setFontName(const std::string& family) override { fontName_ = family; }
  float fontSize() const override { return fontSize_; }
  void setFontSize(float points) override { fontSize_ = points; }
  bool fontBold() const override { return bold_; }
  void setFontBold(bool on) override { bold_ = on; }
  int value() const override { return value_; }
  void setValue(int v) override { value_ = v; }

  // Everything else is unexpected here.
  std::string caption() const override { return fail<std::string>(); }
  void setCaption(const std::string&) override { fail<void>(); }
  bool locked() const override { return fail<bool>(); }
  void setLocked(bool) override { fail<void>(); }
  float left() const override { return fail<float>(); }
  float top() const override { return fail<float>(); }
  float width() const override { return fail<float>(); }
  float height() const override { return fail<float>(); }
  void setLeft(float) override { fail<void>(); }
  void setTop(float) override { fail<void>(); }
  void setWidth(float) override { fail<void>(); }
  void setHeight(float) override { fail<void>(); }
  int foreColor() const override { return fail<int>(); }
  void setForeColor(int) override { fail<void>(); }
  int backColor() const override { return fail<int>(); }
  void setBackColor(int) override { fail<void>(); }
  int borderStyle() const override { return fail<int>(); }
  void setBorderStyle(int) override { fail<void>(); }
  void setFocus() override { fail<void>(); }
  void refresh() override { fail<void>(); }
  int minValue() const override { return fail<int>(); }
  int maxValue() const override { return fail<int>(); }
  bool checked() const override { return fail<bool>(); }
  void setChecked(bool) override { fail<void>(); }
  void addItem(const std::string&) override { fail<void>(); }
  void clear() override { fail<void>(); }
  int listCount() const override { return fail<int>(); }
  std::string list(int) const override { return fail<std::string>(); }
  int listIndex() const override { return fail<int>(); }
  void setListIndex(int) override { fail<void>(); }
  int rows() const override { return fail<int>(); }
  void setRows(int) override { fail<void>(); }
  int cols() const override { return fail<int>(); }
  void setCols(int) override { fail<void>(); }
  int row() const override { return fail<int>(); }
  void setRow(int) override { fail<void>(); }
  int rowSel() const override { return fail<int>(); }
  void setRowSel(int) override { fail<void>(); }
  int col() const override { return fail<int>(); }
  void setCol(int) override { fail<void>(); }
  std::string textMatrix(int, int) const override { return fail<std::string>(); }
  void setTextMatrix(int, int, const std::string&) override { fail<void>(); }
  void setColWidth(int, float) override { fail<void>(); }
  int fixedRows() const override { return fail<int>(); }
  int interval() const override { return fail<int>(); }
  void setInterval(int) override { fail<void>(); }
  float x1() const override { return fail<float>(); }
  float y1() const override { return fail<float>(); }
  float x2() const override { return fail<float>(); }
  float y2() const override { return fail<float>(); }
  void setLine(float, float, float, float) override { fail<void>(); }
  void setPicture(const std::string&) override { fail<void>(); }
  int osPlatform() const override { return fail<int>(); }
  platform::AudioDevice& device() override { return fail<platform::AudioDevice&>(); }

 private:
  template <typename T>
  T fail() const {
    throw platform::ProgramError("unexpected property of " + name_);
  }

  std::string name_;
  std::string text_;
  std::string fontName_;
  float fontSize_ = 0;
  bool bold_ = false;
  int value_ = 0;
  bool enabled_ = true;
  bool visible_ = false;
};

class FakeScreen : public platform::Screen {
 public:
  // The control of that name, created on first use.
  platform::Control& control(const std::string& name, int = -1) override {
    auto& slot = controls_[name];
    if (!slot) slot = std::make_unique<FakeControl>(name);
    return *slot;
  }
  bool hasControl(const std::string& name, int = -1) const override {
    return controls_.count(name) > 0;
  }

  const std::string& name() const override { return name_; }
  int formId() const override { return 0; }
  int controlCount() const override { return static_cast<int>(controls_.size()); }
  platform::Control& controlAt(int) override { return fail<platform::Control&>(); }
  platform::Control& loadElement(const std::string&, int) override {
    return fail<platform::Control&>();
  }
  void unloadElement(const std::string&, int) override { fail<void>(); }
  int elementCount(const std::string&) const override { return fail<int>(); }
  float left() const override { return fail<float>(); }
  float top() const override { return fail<float>(); }
  float width() const override { return fail<float>(); }
  float height() const override { return fail<float>(); }
  void setLeft(float) override { fail<void>(); }
  void setTop(float) override { fail<void>(); }
  void setWidth(float) override { fail<void>(); }
  void setHeight(float) override { fail<void>(); }
  int windowState() const override { return fail<int>(); }
  void setWindowState(int) override { fail<void>(); }
  bool visible() const override { return fail<bool>(); }
  void setVisible(bool) override { fail<void>(); }
  std::string caption() const override { return fail<std::string>(); }
  void setCaption(const std::string&) override { fail<void>(); }
  void setPicture(const std::string&) override { fail<void>(); }
  void setMousePointer(int) override { fail<void>(); }
  bool loaded() const override { return true; }
  void load() override {}
  void show() override {}
  void showModal() override {}
  void unload() override {}
  void enterWhatsThisMode() override { fail<void>(); }
  void on(const std::string&, platform::EventKind, platform::EventHandler) override {}

 private:
  template <typename T>
  T fail() const {
    throw platform::ProgramError("unexpected use of the screen");
  }

  std::string name_ = "fake";
  std::map<std::string, std::unique_ptr<FakeControl>> controls_;
};
