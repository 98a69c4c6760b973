// Fuzz target: arbitrary text through the screen definition parser. A
// definition it accepts keeps every number within the bounds screendef.h
// promises the backends, and a refusal names its line.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/screendef.h"

namespace {

void check(bool ok) {
  if (!ok) __builtin_trap();
}

bool isRatio(double v) { return v >= 0 && v <= 1; }

void checkControl(const platform::ControlDefinition& c) {
  check(!c.name.empty() && c.index >= -1 && c.index <= platform::kMaxControlIndex);
  check(isRatio(c.x) && isRatio(c.y) && isRatio(c.w) && isRatio(c.h));
  check(c.rows >= 0 && c.rows <= platform::kMaxGridRows);
  check(c.cols >= 0 && c.cols <= platform::kMaxGridCols);
  // A grid given no rows has one, which may be fixed.
  check(c.fixedRows >= 0 && c.fixedRows <= std::max(c.rows, 1));
  check(c.minValue <= c.value && c.value <= c.maxValue);
  check(c.minValue >= platform::kMinSliderValue && c.maxValue <= platform::kMaxSliderValue);
  check(c.interval >= 0 && c.interval <= platform::kMaxTimerIntervalMs);
  check(c.fontPoints >= 0 && c.fontPoints <= platform::kMaxFontPoints);
  for (const auto& color : {c.foreColor, c.backColor})
    check(!color || (*color >= 0 && *color <= platform::kMaxColor));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  platform::ScreenParseError error;
  const auto definition = platform::parseScreenDefinition(text, &error);
  if (!definition) {
    check(error.line >= 0 && !error.message.empty());
    return 0;
  }
  check(definition->formId >= 0 && definition->formId <= platform::kMaxFormId);
  for (const auto& control : definition->controls) checkControl(control);
  return 0;
}
