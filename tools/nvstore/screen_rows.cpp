// Layout rows of a screen definition: see screen_rows.h. The definition is
// read by the same parser that gives the screen backend its widgets, so the
// layout rows and the widgets always agree on the controls and their order.
#include "screen_rows.h"

#include <charconv>

#include "platform/screendef.h"
#include "source_files.h"

namespace nvstore {
namespace {

// The shortest text that reads back as the same double.
std::string number(double v) {
  char buf[32];
  const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v);
  return ec == std::errc() ? std::string(buf, end) : "0";
}

Row controlRow(const platform::ControlDefinition& c, int formId, int index,
               const std::string& fileName) {
  const bool placed = platform::hasGeometry(c.kind);
  return {"NVFormControls",
          fileName,
          0,
          {{"Form Id", std::to_string(formId), 0},
           {"Control Index", std::to_string(index), 0},
           {"LocRatX", number(placed ? c.x : 0), 0},
           {"LocRatY", number(placed ? c.y : 0), 0},
           {"SizRatWidth", number(placed ? c.w : 0), 0},
           {"SizRatHeight", number(placed ? c.h : 0), 0}}};
}

}  // namespace

RecordFile screenLayoutRows(const std::string& text, const std::string& fileName) {
  RecordFile out;
  platform::ScreenParseError error;
  const auto def = platform::parseScreenDefinition(text, &error);
  if (!def) {
    out.errors.push_back({fileName, error.line, error.message});
    return out;
  }
  if (def->formId == 0) return out;  // a screen without a form id has no layout rows
  const int count = static_cast<int>(def->controls.size());
  out.rows.push_back({"NVForms",
                      fileName,
                      1,
                      {{"Form Name", def->name, 1},
                       {"Form Id", std::to_string(def->formId), 1},
                       {"TotalControlCount", std::to_string(count), 1}}});
  for (int i = 0; i < count; ++i)
    out.rows.push_back(controlRow(def->controls[static_cast<std::size_t>(i)], def->formId, i, fileName));
  return out;
}

RecordFile readScreenFile(const std::string& path) {
  std::string text;
  if (!readText(path, text)) return {{}, {{path, 0, "cannot read the file"}}};
  return screenLayoutRows(text, path);
}

}  // namespace nvstore
