// Parser of screen definition files (see screendef.h for the format).
#include "platform/screendef.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <utility>

namespace platform {

namespace {

constexpr std::array<std::pair<const char*, ControlKind>, 16> kKinds = {{
    {"label", ControlKind::Label},
    {"textbox", ControlKind::TextBox},
    {"button", ControlKind::CommandButton},
    {"option", ControlKind::OptionButton},
    {"check", ControlKind::CheckBox},
    {"frame", ControlKind::Frame},
    {"list", ControlKind::ListBox},
    {"combo", ControlKind::ComboBox},
    {"grid", ControlKind::Grid},
    {"slider", ControlKind::Slider},
    {"picture", ControlKind::Picture},
    {"timer", ControlKind::Timer},
    {"media", ControlKind::MediaControl},
    {"sysinfo", ControlKind::SysInfo},
    {"menu", ControlKind::Menu},
    {"line", ControlKind::Line},
}};

// Splits a line into words; a double-quoted run (with \" and \n escapes)
// may appear inside a word, as in caption="Raga Info".
bool splitWords(const std::string& line, std::vector<std::string>& words, std::string& problem) {
  std::string word;
  bool inWord = false;
  for (size_t i = 0; i < line.size(); ++i) {
    char c = line[i];
    if (c == '"') {
      inWord = true;
      for (++i; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) {
          char e = line[++i];
          word += (e == 'n') ? '\n' : e;
        } else {
          word += line[i];
        }
      }
      if (i >= line.size()) {
        problem = "unterminated quoted text";
        return false;
      }
    } else if (std::isspace(static_cast<unsigned char>(c))) {
      if (inWord) words.push_back(std::move(word));
      word.clear();
      inWord = false;
    } else {
      word += c;
      inWord = true;
    }
  }
  if (inWord) words.push_back(std::move(word));
  return true;
}

bool toInt(const std::string& text, int& out) {
  const char* first = text.data();
  const char* last = text.data() + text.size();
  int base = 10;
  if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
    first += 2;
    base = 16;
  }
  auto [p, ec] = std::from_chars(first, last, out, base);
  return ec == std::errc() && p == last;
}

bool toDouble(const std::string& text, double& out) {
  std::istringstream in(text);
  in >> out;
  return !in.fail() && in.eof();
}

bool toPair(const std::string& text, double& a, double& b) {
  auto comma = text.find(',');
  return comma != std::string::npos && toDouble(text.substr(0, comma), a) &&
         toDouble(text.substr(comma + 1), b);
}

// The problem of a number outside low..high, in the words of the file.
std::string outOfRange(const std::string& key, const std::string& value, double low, double high) {
  std::ostringstream text;
  text << std::setprecision(10) << key << '=' << value << " is out of range (" << low << " to "
       << high << ")";
  return text.str();
}

// An integer of low..high; a bad or outlying value is the problem.
bool toIntIn(const std::string& key, const std::string& value, int low, int high, int& out,
             std::string& problem) {
  int n = 0;
  if (!toInt(value, n)) return false;  // the caller names the bad value
  if (n < low || n > high) {
    problem = outOfRange(key, value, low, high);
    return false;
  }
  out = n;
  return true;
}

// Two ratios of the window, each 0 to 1 (NaN is outside).
bool toRatioPair(const std::string& key, const std::string& value, double& a, double& b,
                 std::string& problem) {
  if (!toPair(value, a, b)) return false;
  const bool inside = a >= 0 && a <= 1 && b >= 0 && b <= 1;
  if (!inside) problem = outOfRange(key, value, 0, 1);
  return inside;
}

bool toFlag(const std::string& text, bool& out) {
  int v = 0;
  if (!toInt(text, v)) return false;
  out = v != 0;
  return true;
}

// Applies one key=value of a control line.
bool applyControlKey(ControlDefinition& c, const std::string& key, const std::string& value,
                     std::string& problem) {
  auto sliderNumber = [&](int& out) {
    return toIntIn(key, value, kMinSliderValue, kMaxSliderValue, out, problem);
  };
  int n = 0;
  bool ok = true;
  if (key == "caption") c.caption = value;
  else if (key == "text") c.text = value;
  else if (key == "at") ok = toRatioPair(key, value, c.x, c.y, problem);
  else if (key == "size") ok = toRatioPair(key, value, c.w, c.h, problem);
  else if (key == "font") {
    auto comma = value.rfind(',');
    double points = 0;
    ok = comma != std::string::npos && toDouble(value.substr(comma + 1), points);
    if (ok && !(points >= 0 && points <= kMaxFontPoints)) {
      problem = outOfRange(key, value, 0, kMaxFontPoints);
      ok = false;
    }
    c.fontFamily = value.substr(0, comma);
    if (ok) c.fontPoints = static_cast<float>(points);
  } else if (key == "visible") ok = toFlag(value, c.visible);
  else if (key == "enabled") ok = toFlag(value, c.enabled);
  else if (key == "locked") ok = toFlag(value, c.locked);
  else if (key == "multiline") ok = toFlag(value, c.multiline);
  else if (key == "border") ok = toFlag(value, c.border);
  else if (key == "centred") ok = toFlag(value, c.centred);
  else if (key == "checked") ok = toFlag(value, c.checked);
  else if (key == "forecolor") {
    ok = toIntIn(key, value, 0, kMaxColor, n, problem);
    c.foreColor = n;
  } else if (key == "backcolor") {
    ok = toIntIn(key, value, 0, kMaxColor, n, problem);
    c.backColor = n;
  } else if (key == "in") c.frame = value;
  else if (key == "parent") c.parentMenu = value;
  else if (key == "min") ok = sliderNumber(c.minValue);
  else if (key == "max") ok = sliderNumber(c.maxValue);
  else if (key == "value") ok = sliderNumber(c.value);
  else if (key == "interval") ok = toIntIn(key, value, 0, kMaxTimerIntervalMs, c.interval, problem);
  else if (key == "cols") ok = toIntIn(key, value, 0, kMaxGridCols, c.cols, problem);
  else if (key == "rows") ok = toIntIn(key, value, 0, kMaxGridRows, c.rows, problem);
  else if (key == "fixedrows") ok = toIntIn(key, value, 0, kMaxGridRows, c.fixedRows, problem);
  else if (key == "help") c.help = value;
  else {
    problem = "unknown key '" + key + "'";
    return false;
  }
  if (!ok && problem.empty()) problem = "bad value '" + value + "' for '" + key + "'";
  return ok;
}

// The bounds that tie one number of a control to another.
bool checkControlRelations(const ControlDefinition& c, std::string& problem) {
  std::ostringstream text;
  if (c.minValue > c.maxValue)
    text << "min=" << c.minValue << " is above max=" << c.maxValue;
  else if (c.value < c.minValue || c.value > c.maxValue)
    text << "value=" << c.value << " is outside min to max (" << c.minValue << " to "
         << c.maxValue << ")";
  else if (c.fixedRows > std::max(c.rows, 1))
    text << "fixedrows=" << c.fixedRows << " is more than rows=" << c.rows;
  problem = text.str();
  return problem.empty();
}

bool splitKeyValue(const std::string& word, std::string& key, std::string& value) {
  auto eq = word.find('=');
  if (eq == std::string::npos || eq == 0) return false;
  key = word.substr(0, eq);
  value = word.substr(eq + 1);
  return true;
}

bool parseNameAndIndex(const std::string& word, ControlDefinition& c) {
  auto colon = word.find(':');
  c.name = word.substr(0, colon);
  if (c.name.empty()) return false;
  return colon == std::string::npos || (toInt(word.substr(colon + 1), c.index) && c.index >= 0 &&
                                        c.index <= kMaxControlIndex);
}

bool parseScreenLine(const std::vector<std::string>& words, ScreenDefinition& def,
                     std::string& problem) {
  if (words.size() < 2) {
    problem = "screen needs a name";
    return false;
  }
  def.name = words[1];
  for (size_t i = 2; i < words.size(); ++i) {
    std::string key, value;
    if (!splitKeyValue(words[i], key, value)) {
      problem = "expected key=value, got '" + words[i] + "'";
      return false;
    }
    if (key == "id") {
      if (!toInt(value, def.formId)) {
        problem = "bad form id '" + value + "'";
        return false;
      }
      if (def.formId < 0 || def.formId > kMaxFormId) {
        problem = outOfRange(key, value, 0, kMaxFormId);
        return false;
      }
    } else if (key == "caption") {
      def.caption = value;
    } else if (key == "help") {
      def.help = value;
    } else {
      problem = "unknown key '" + key + "'";
      return false;
    }
  }
  return true;
}

std::optional<ControlKind> kindFromKeyword(const std::string& word) {
  for (const auto& [keyword, kind] : kKinds)
    if (word == keyword) return kind;
  return std::nullopt;
}

bool sameControl(const ControlDefinition& a, const ControlDefinition& b) {
  return a.name == b.name && a.index == b.index;
}

}  // namespace

const char* kindKeyword(ControlKind kind) {
  for (const auto& [keyword, k] : kKinds)
    if (k == kind) return keyword;
  return "?";
}

bool hasGeometry(ControlKind kind) {
  return kind != ControlKind::Menu && kind != ControlKind::Timer &&
         kind != ControlKind::MediaControl && kind != ControlKind::SysInfo;
}

std::optional<ScreenDefinition> parseScreenDefinition(const std::string& text,
                                                      ScreenParseError* error) {
  ScreenDefinition def;
  std::istringstream in(text);
  std::string line;
  int lineNo = 0;
  int pendingSeparators = 0;
  auto fail = [&](const std::string& message) -> std::optional<ScreenDefinition> {
    if (error) *error = {lineNo, message};
    return std::nullopt;
  };
  while (std::getline(in, line)) {
    ++lineNo;
    std::vector<std::string> words;
    std::string problem;
    if (!splitWords(line, words, problem)) return fail(problem);
    if (words.empty() || words[0][0] == '#') continue;
    if (words[0] == "screen") {
      if (!def.name.empty()) return fail("a second screen line");
      if (!parseScreenLine(words, def, problem)) return fail(problem);
      continue;
    }
    if (def.name.empty()) return fail("the file must begin with a screen line");
    if (words[0] == "separator") {
      ++pendingSeparators;
      continue;
    }
    auto kind = kindFromKeyword(words[0]);
    if (!kind) return fail("unknown control kind '" + words[0] + "'");
    ControlDefinition c;
    c.kind = *kind;
    if (words.size() < 2 || !parseNameAndIndex(words[1], c))
      return fail("a control needs a name (name or name:index, the index 0 to " +
                  std::to_string(kMaxControlIndex) + ")");
    for (size_t i = 2; i < words.size(); ++i) {
      std::string key, value;
      if (!splitKeyValue(words[i], key, value))
        return fail("expected key=value, got '" + words[i] + "'");
      if (!applyControlKey(c, key, value, problem)) return fail(problem);
    }
    if (!checkControlRelations(c, problem)) return fail(problem);
    for (const auto& other : def.controls)
      if (sameControl(other, c)) return fail("duplicate control '" + words[1] + "'");
    if (c.kind == ControlKind::Menu) {
      c.separatorsBefore = pendingSeparators;
      pendingSeparators = 0;
    }
    def.controls.push_back(std::move(c));
  }
  if (def.name.empty()) return fail("no screen line");
  return def;
}

std::optional<ScreenDefinition> loadScreenDefinition(const std::string& path,
                                                     ScreenParseError* error) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    if (error) *error = {0, "cannot read " + path + ": the file is missing or unreadable"};
    return std::nullopt;
  }
  std::stringstream buffer;
  buffer << file.rdbuf();
  auto def = parseScreenDefinition(buffer.str(), error);
  if (!def && error)
    error->message = path + ", line " + std::to_string(error->line) + ": " + error->message;
  return def;
}

}  // namespace platform
