// Screens and controls: the window model the logic is written against.
//
// A screen is a full window with named controls in a fixed order (its
// Controls collection). A control has a kind and the properties of that kind;
// the logic reads and writes them by name through the screen. Booleans use
// -1 for true and 0 for false where the logic stores them, so the accessors
// take and give plain bools and the logic converts at its own edge.
//
// Reading or writing a property that a control's kind does not have is a
// program error: the backend throws platform::ProgramError, which reaches the
// common error trap at the event boundary.
//
// Backends: src/platform/qt draws screens as Qt widgets. Tests use the same
// Qt backend on the offscreen platform.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace platform {

class AudioDevice;

// A fault in the use of the screen model (unknown control, property the kind
// lacks). It is a program error, never an expected failure.
struct ProgramError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

enum class ControlKind {
  Label,
  TextBox,
  CommandButton,
  OptionButton,
  CheckBox,
  Frame,
  ListBox,
  ComboBox,
  Grid,
  Slider,
  Picture,
  Timer,
  MediaControl,
  SysInfo,
  Menu,
  Line,
};

enum class EventKind {
  Click,
  DblClick,
  Change,      // text box text, slider value
  KeyPress,    // key.ascii holds the character code
  KeyDown,     // key.code holds the key code
  MouseDown,
  Timer,
  Done,        // media control: the file played out (notifyCode)
  Status,      // media control: periodic status while playing
  Load,        // screen events: control name ""
  Resize,
  Activate,
  Unload,
  QueryUnload,
};

struct Event {
  EventKind kind = EventKind::Click;
  int index = -1;       // element of a control array, -1 for a single control
  int keyAscii = 0;     // KeyPress
  int keyCode = 0;      // KeyDown
  int shift = 0;        // KeyDown, MouseDown: 1 shift, 2 ctrl, 4 alt
  int button = 0;       // MouseDown: 1 left, 2 right
  float x = 0, y = 0;   // MouseDown, inside the control
  int notifyCode = 0;   // Done
  // QueryUnload: 0 = the user's close box, 1 = the program's own unload.
  int unloadMode = 0;
  // QueryUnload/Unload handlers set this to keep the window open.
  bool* cancel = nullptr;
};

using EventHandler = std::function<void(const Event&)>;

// Mouse pointers the logic uses.
constexpr int kPointerDefault = 0;
constexpr int kPointerHourglass = 11;

class Control {
 public:
  virtual ~Control() = default;

  virtual ControlKind kind() const = 0;
  virtual const std::string& name() const = 0;
  virtual int index() const = 0;  // element of a control array, -1 if single

  // Common to most kinds.
  virtual std::string caption() const = 0;
  virtual void setCaption(const std::string& text) = 0;
  virtual std::string text() const = 0;
  virtual void setText(const std::string& text) = 0;
  virtual bool visible() const = 0;
  virtual void setVisible(bool on) = 0;
  virtual bool enabled() const = 0;
  virtual void setEnabled(bool on) = 0;
  virtual bool locked() const = 0;
  virtual void setLocked(bool on) = 0;
  virtual float left() const = 0;
  virtual float top() const = 0;
  virtual float width() const = 0;
  virtual float height() const = 0;
  virtual void setLeft(float v) = 0;
  virtual void setTop(float v) = 0;
  virtual void setWidth(float v) = 0;
  virtual void setHeight(float v) = 0;
  // Colours are 24-bit with blue in the high byte (0x0000FF is red).
  virtual int foreColor() const = 0;
  virtual void setForeColor(int bgr) = 0;
  virtual int backColor() const = 0;
  virtual void setBackColor(int bgr) = 0;
  virtual int borderStyle() const = 0;
  virtual void setBorderStyle(int style) = 0;
  virtual std::string fontName() const = 0;
  virtual void setFontName(const std::string& family) = 0;
  virtual float fontSize() const = 0;
  virtual void setFontSize(float points) = 0;
  virtual bool fontBold() const = 0;
  virtual void setFontBold(bool on) = 0;
  virtual void setFocus() = 0;
  virtual void refresh() = 0;

  // Option button, check box (0 off, 1 on; option -1 on), slider.
  virtual int value() const = 0;
  virtual void setValue(int v) = 0;
  virtual int minValue() const = 0;
  virtual int maxValue() const = 0;

  // Menu entry.
  virtual bool checked() const = 0;
  virtual void setChecked(bool on) = 0;

  // List and combo box. listIndex -1 means nothing selected.
  virtual void addItem(const std::string& item) = 0;
  virtual void clear() = 0;
  virtual int listCount() const = 0;
  virtual std::string list(int i) const = 0;
  virtual int listIndex() const = 0;
  virtual void setListIndex(int i) = 0;

  // Grid.
  virtual int rows() const = 0;
  virtual void setRows(int n) = 0;
  virtual int cols() const = 0;
  virtual void setCols(int n) = 0;
  virtual int row() const = 0;
  virtual void setRow(int r) = 0;
  virtual int rowSel() const = 0;
  virtual void setRowSel(int r) = 0;
  virtual int col() const = 0;
  virtual void setCol(int c) = 0;
  virtual std::string textMatrix(int r, int c) const = 0;
  virtual void setTextMatrix(int r, int c, const std::string& text) = 0;
  virtual void setColWidth(int c, float width) = 0;
  virtual int fixedRows() const = 0;

  // Timer.
  virtual int interval() const = 0;
  virtual void setInterval(int ms) = 0;

  // Line: end points.
  virtual float x1() const = 0;
  virtual float y1() const = 0;
  virtual float x2() const = 0;
  virtual float y2() const = 0;
  virtual void setLine(float x1, float y1, float x2, float y2) = 0;

  // Picture box.
  virtual void setPicture(const std::string& path) = 0;

  // System-information control.
  virtual int osPlatform() const = 0;

  // Media control: the audio device behind it.
  virtual AudioDevice& device() = 0;
};

class Screen {
 public:
  virtual ~Screen() = default;

  virtual const std::string& name() const = 0;
  virtual int formId() const = 0;

  // Controls by name. index -1 for a single control, else the array element.
  virtual bool hasControl(const std::string& name, int index = -1) const = 0;
  virtual Control& control(const std::string& name, int index = -1) = 0;
  // The ordered Controls collection (the order of the layout rows).
  virtual int controlCount() const = 0;
  virtual Control& controlAt(int ordinal) = 0;
  // Control arrays: element 0 is designed; further elements are created at
  // run time as copies of element 0 and removed again by unloadElement.
  virtual Control& loadElement(const std::string& name, int index) = 0;
  virtual void unloadElement(const std::string& name, int index) = 0;
  virtual int elementCount(const std::string& name) const = 0;

  // Window geometry in logical pixels; windowState 0 normal, 1 min, 2 max.
  virtual float left() const = 0;
  virtual float top() const = 0;
  virtual float width() const = 0;
  virtual float height() const = 0;
  virtual void setLeft(float v) = 0;
  virtual void setTop(float v) = 0;
  virtual void setWidth(float v) = 0;
  virtual void setHeight(float v) = 0;
  virtual int windowState() const = 0;
  virtual void setWindowState(int state) = 0;
  virtual bool visible() const = 0;
  virtual void setVisible(bool on) = 0;
  virtual std::string caption() const = 0;
  virtual void setCaption(const std::string& text) = 0;
  virtual void setPicture(const std::string& path) = 0;
  virtual void setMousePointer(int pointer) = 0;

  // Loaded means the window exists; unload destroys its widgets (array
  // elements beyond 0 too) and the next use loads it afresh.
  virtual bool loaded() const = 0;
  virtual void load() = 0;
  virtual void show() = 0;
  virtual void showModal() = 0;
  virtual void unload() = 0;

  // Context help: what's-this mode until the next click.
  virtual void enterWhatsThisMode() = 0;

  // The logic's handlers. Screen-level events use the control name "".
  virtual void on(const std::string& control, EventKind kind, EventHandler handler) = 0;
};

// Message box styles and answers as the logic uses them.
enum MessageStyle {
  kMsgOkOnly = 0,
  kMsgYesNo = 4,
  kMsgCritical = 16,
  kMsgQuestion = 32,
  kMsgExclamation = 48,
  kMsgInformation = 64,
};
constexpr int kAnswerOk = 1;
constexpr int kAnswerYes = 6;
constexpr int kAnswerNo = 7;

// The window system: creates screens from their definitions and offers the
// few services around them.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  // The screen of that name (definition file screens/<name>.screen), created
  // on first use and kept for the life of the process.
  virtual Screen& screen(const std::string& name) = 0;

  // Shows a modal message box; returns kAnswerOk, kAnswerYes or kAnswerNo.
  virtual int messageBox(const std::string& text, int style, const std::string& title) = 0;
  // The same box with a detailed text the user can unfold under the message
  // (a fatal error's cause and the file concerned). A window system that
  // has no such place shows the box without it.
  virtual int messageBoxWithDetail(const std::string& text, int style, const std::string& title,
                                   const std::string& detail) {
    (void)detail;
    return messageBox(text, style, title);
  }

  // A modal box that offers `choices` as its buttons, in order; answers the
  // index of the one pressed, -1 when the box is closed without one.
  virtual int askChoice(const std::string& text, const std::string& title,
                        const std::vector<std::string>& choices) = 0;

  // A modal dialog for choosing an existing file to read, starting in
  // `folder` and showing the files `nameFilter` admits (for example
  // "Nadavik user stores (*.nvy)"); answers the path, "" when cancelled.
  virtual std::string chooseFileToOpen(const std::string& title, const std::string& folder,
                                       const std::string& nameFilter) = 0;

  // A modal dialog for choosing where to save a new file, starting in
  // `folder` with `proposedName` filled in; answers the path, "" when
  // cancelled. A window system without one answers "".
  virtual std::string chooseFileToSave(const std::string& title, const std::string& folder,
                                       const std::string& proposedName, const std::string& nameFilter) {
    (void)title, (void)folder, (void)proposedName, (void)nameFilter;
    return "";
  }

  // Runs `job` on a thread of its own while a modal box shows `caption`, a
  // progress bar and Cancel; answers once the job has returned. The job
  // reports how far it has got (0 to 1) through its argument, which answers
  // false once Cancel has been pressed, and then stops as soon as it can. A
  // window system without such a box runs the job at once, never cancelled.
  using ProgressReport = std::function<bool(double fraction)>;
  virtual void runWithProgress(const std::string& caption, const std::function<void(const ProgressReport&)>& job) {
    (void)caption;
    job([](double) { return true; });
  }

  // Size of the desktop in logical pixels.
  virtual float screenWidth() const = 0;
  virtual float screenHeight() const = 0;

  // Font families the screens can use, and making a font file available for
  // this run (returns the number of families added, 0 on failure).
  virtual std::vector<std::string> fontFamilies() const = 0;
  virtual int addFontResource(const std::string& path) = 0;

  // Opens a document (the user guide's HTML page) in the desktop's own
  // viewer; false when none could be started.
  virtual bool openDocument(const std::string& path) = 0;

  // Lets pending events through (timers, device notifications, paints).
  virtual void processEvents() = 0;

  // Ends the process at once with the given code, without further events.
  [[noreturn]] virtual void endProcess(int code) = 0;
};

// The window system of this process, set once by main() (or a test).
WindowSystem& windowSystem();
void setWindowSystem(WindowSystem* system);

// Every event handler runs through this boundary, so that a fault raised
// anywhere inside a handler reaches the common error trap. The application
// installs its trap at start; by default the handler just runs.
using EventBoundary = std::function<void(const std::function<void()>&)>;
void setEventBoundary(EventBoundary boundary);
void runAtEventBoundary(const std::function<void()>& handler);

}  // namespace platform
