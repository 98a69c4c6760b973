// The shipped screen definitions (screens/*.screen): each parses with its
// form id and help, fits its window, shows no overlapping controls at
// opening, hangs its menu entries under earlier menus and explains every
// control a user can work. (The controls the logic reaches by name, whole
// menu groups and the trace entries are seen by the screens' own tests and
// program_test, which enters every screen: a control missing from a
// definition is a program error there.)
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "platform/screendef.h"

namespace platform {
namespace {

// The part of the outer height below the title and menu bars that the
// client area keeps at 1366x768; nothing may be placed lower.
constexpr double kClientBottom = 0.92;
constexpr double kEps = 1e-9;

struct ScreenSpec {
  const char* name;
  int formId;
};

// Names the test in failure messages instead of printing the bytes.
void PrintTo(const ScreenSpec& format, std::ostream* out) { *out << format.name; }

const ScreenSpec kScreens[] = {
    {"Nadavik", 1},       {"OpeningScreen", 0}, {"ReviewRagas", 3}, {"RagaInfoSummary", 15},
    {"RagaSelection1", 9}, {"MainOperations", 28}, {"PlayComposition1", 14}, {"Quiz", 20},
    {"Workshop", 13},     {"Composer", 27},      {"ScaleShifting", 7}, {"NVSampler", 22},
};

const ControlDefinition* find(const ScreenDefinition& def, const std::string& name, int index = -1) {
  for (const auto& c : def.controls)
    if (c.name == name && c.index == index) return &c;
  return nullptr;
}

bool interactive(const ControlDefinition& c) {
  switch (c.kind) {
    case ControlKind::TextBox:
    case ControlKind::CommandButton:
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
    case ControlKind::ListBox:
    case ControlKind::ComboBox:
    case ControlKind::Grid:
    case ControlKind::Slider:
      return true;
    case ControlKind::Menu:
      return c.caption != "-";  // a named separator is not clicked
    default:
      return false;
  }
}

bool inside(const ControlDefinition& a, const ControlDefinition& b) {
  return a.x >= b.x - kEps && a.y >= b.y - kEps && a.x + a.w <= b.x + b.w + kEps &&
         a.y + a.h <= b.y + b.h + kEps;
}

bool overlaps(const ControlDefinition& a, const ControlDefinition& b) {
  return a.x + a.w > b.x + kEps && b.x + b.w > a.x + kEps && a.y + a.h > b.y + kEps &&
         b.y + b.h > a.y + kEps;
}

class ScreenFile : public ::testing::TestWithParam<ScreenSpec> {};

TEST_P(ScreenFile, IsWholeAndFitsItsWindow) {
  const ScreenSpec& format = GetParam();
  ScreenParseError error;
  const auto parsed = loadScreenDefinition(std::string(NADAVIK_SCREENS_DIR) + "/" + format.name + ".screen", &error);
  ASSERT_TRUE(parsed) << error.message;
  const ScreenDefinition& def = *parsed;
  EXPECT_EQ(def.name, format.name);
  EXPECT_EQ(def.formId, format.formId);
  EXPECT_FALSE(def.caption.empty() || def.help.empty());

  std::map<std::string, std::set<bool>> arrayness;
  std::set<std::string> menusSoFar;
  std::vector<const ControlDefinition*> shown;  // at opening; a hidden frame hides its controls
  for (const auto& c : def.controls) {
    SCOPED_TRACE(c.name);
    arrayness[c.name].insert(c.index >= 0);
    if (interactive(c)) {
      EXPECT_FALSE(c.help.empty()) << "explains nothing";
    }
    if (c.kind == ControlKind::Menu) {
      EXPECT_TRUE(c.parentMenu.empty() || menusSoFar.count(c.parentMenu)) << "under " << c.parentMenu;
      menusSoFar.insert(c.name);
    } else {
      EXPECT_TRUE(c.parentMenu.empty());
    }
    if (!hasGeometry(c.kind)) {
      EXPECT_EQ(c.x + c.y + c.w + c.h, 0.0) << "menus, timers and devices have no place";
      continue;
    }
    for (double ratio : {c.x, c.y, c.w, c.h}) EXPECT_TRUE(ratio >= 0.0 && ratio <= 1.0) << ratio;
    if (c.kind == ControlKind::Line) {
      EXPECT_LE(std::max(c.y, c.h), kClientBottom);  // a line's second end point is in its size
      continue;
    }
    EXPECT_TRUE(c.w > 0.0 && c.h > 0.0 && c.x + c.w <= 1.0 && c.y + c.h <= kClientBottom);
    const ControlDefinition* frame = c.frame.empty() ? nullptr : find(def, c.frame);
    if (!c.frame.empty()) {
      // Controls in a frame are placed in window coordinates like all others.
      ASSERT_NE(frame, nullptr) << "unknown frame " << c.frame;
      EXPECT_EQ(frame->kind, ControlKind::Frame);
      EXPECT_TRUE(inside(c, *frame)) << "sticks out of " << c.frame;
    }
    if (c.visible && (!frame || frame->visible)) shown.push_back(&c);
  }
  for (const auto& [name, forms] : arrayness) EXPECT_EQ(forms.size(), 1u) << name << " is single and array";
  // Controls that the logic shows later share places by design; a frame
  // and its controls may overlap.
  for (size_t i = 0; i < shown.size(); ++i)
    for (size_t j = i + 1; j < shown.size(); ++j) {
      const ControlDefinition &a = *shown[i], &b = *shown[j];
      EXPECT_FALSE(a.frame != b.name && b.frame != a.name && overlaps(a, b)) << a.name << " and " << b.name;
    }

}

// Relative luminance of a 0xBBGGRR colour, by the sRGB formula of WCAG 2.
double luminance(int bgr) {
  double sum = 0;
  const double weights[] = {0.2126, 0.7152, 0.0722};  // red, green, blue
  for (int channel = 0; channel < 3; ++channel) {
    const double c = ((bgr >> (8 * channel)) & 0xFF) / 255.0;
    sum += weights[channel] * (c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4));
  }
  return sum;
}

double contrast(int a, int b) {
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The background pictures run from pale to dark, so text drawn straight on
// them is unreadable on some: on the quiz and the sampler every label,
// check box and frame brings its own background, and its text stands out
// from it by at least 4.5 to 1 (buttons, lists and text boxes are opaque).
TEST(ScreenFiles, TextOnTheQuizAndSamplerPicturesHasAReadableBackground) {
  for (const char* name : {"Quiz", "NVSampler"}) {
    ScreenParseError error;
    const auto def = loadScreenDefinition(std::string(NADAVIK_SCREENS_DIR) + "/" + name + ".screen", &error);
    ASSERT_TRUE(def) << error.message;
    for (const ControlDefinition& c : def->controls) {
      if (c.kind != ControlKind::Label && c.kind != ControlKind::CheckBox && c.kind != ControlKind::Frame) continue;
      ASSERT_TRUE(c.backColor) << name << "." << c.name;
      EXPECT_GE(contrast(c.foreColor.value_or(0), *c.backColor), 4.5) << name << "." << c.name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Shipped, ScreenFile, ::testing::ValuesIn(kScreens),
                         [](const ::testing::TestParamInfo<ScreenSpec>& param) { return param.param.name; });

}  // namespace
}  // namespace platform
