// Screen definitions: the parsed form of a screens/<Name>.screen file.
//
// One file gives both the widgets of a screen (to the Qt backend) and the
// rows of the layout tables (to the store tool), so the two can never
// disagree. The format is line based:
//   screen <Name> id=<formId> caption="..." help="..."
//   <kind> <name>[:<index>] key=value ...
//   separator parent=<menu>
// Controls keep their file order: that order is the Controls collection and
// the ordinal of each layout row.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/screen.h"

namespace platform {

// Bounds of the numbers a definition gives. A file with a number outside
// them is refused, naming its line, so that no backend is ever asked for a
// grid of two thousand million rows or a timer it cannot keep.
inline constexpr int kMaxFormId = 32767;
inline constexpr int kMaxControlIndex = 32767;
inline constexpr int kMaxGridRows = 10000;
inline constexpr int kMaxGridCols = 100;
inline constexpr int kMinSliderValue = -32768;
inline constexpr int kMaxSliderValue = 32767;
inline constexpr int kMaxTimerIntervalMs = 65535;
inline constexpr int kMaxColor = 0xFFFFFF;    // 0xBBGGRR
inline constexpr double kMaxFontPoints = 200;  // 0 is the backend's default
// Positions and sizes (`at`, `size`) are ratios of the window: 0 to 1.

struct ControlDefinition {
  ControlKind kind = ControlKind::Label;
  std::string name;
  int index = -1;           // array element, -1 for a single control
  std::string caption;
  std::string text;
  // Ratios of the window's outer width and height; for a line the size
  // fields hold the second end point.
  double x = 0, y = 0, w = 0, h = 0;
  std::string fontFamily;
  float fontPoints = 0;     // 0: the backend's default
  bool visible = true;
  bool enabled = true;
  bool locked = false;
  bool multiline = false;
  bool border = false;
  bool centred = false;     // a label's text centred in its box (else top left)
  bool checked = false;
  std::optional<int> foreColor;
  std::optional<int> backColor;
  std::string frame;        // the frame the control sits in
  std::string parentMenu;   // menu entries: the menu they belong to
  int minValue = 0, maxValue = 10, value = 0;
  int interval = 0;
  int cols = 0, rows = 0, fixedRows = 0;
  std::string help;
  // Separators that stand in a menu before this entry.
  int separatorsBefore = 0;
};

struct ScreenDefinition {
  std::string name;
  int formId = 0;
  std::string caption;
  std::string help;
  std::vector<ControlDefinition> controls;
};

struct ScreenParseError {
  int line = 0;
  std::string message;
};

// Parses a definition; on error (a malformed line, a number outside the
// bounds above, a slider value outside its min and max, more fixed rows than
// rows) returns nothing and fills `error`.
std::optional<ScreenDefinition> parseScreenDefinition(const std::string& text,
                                                      ScreenParseError* error = nullptr);

// Reads and parses screens/<file>; error.message names the file and, when
// the text is at fault, its line ("<path>, line 18: rows=... is out of range").
std::optional<ScreenDefinition> loadScreenDefinition(const std::string& path,
                                                     ScreenParseError* error = nullptr);

// Whether a control of this kind has a place on the window (menus, timers,
// media and system-information controls do not; their layout rows are
// stepped over).
bool hasGeometry(ControlKind kind);

const char* kindKeyword(ControlKind kind);

}  // namespace platform
