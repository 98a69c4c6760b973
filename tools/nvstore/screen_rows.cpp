// Layout rows of a screen definition: see screen_rows.h.
// Syntax handled: "screen <Name> id=<n> ..." first, then one
// "<kind> <name>[:<index>] key=value ..." line per control; values may be
// double-quoted with \" and \n inside; "separator" lines are no control.
#include "screen_rows.h"

#include "source_files.h"

#include <array>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace nvstore {
namespace {

const std::array<const char*, 16> kControlKinds = {
    "label", "textbox", "button", "option", "check", "frame", "list",  "combo",
    "grid",  "slider",  "picture", "timer", "media", "sysinfo", "menu", "line"};

bool isControlKind(const std::string& word) {
  for (const char* kind : kControlKinds)
    if (word == kind) return true;
  return false;
}

// Splits a declaration into words; a double-quoted stretch belongs to its
// word, quotes removed. Returns false on an unterminated quote.
bool splitWords(const std::string& line, std::vector<std::string>& words) {
  std::string word;
  bool inWord = false, quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (quoted) {
      if (c == '\\' && i + 1 < line.size()) {
        ++i;
        word += line[i] == 'n' ? '\n' : line[i];
      } else if (c == '"') {
        quoted = false;
      } else {
        word += c;
      }
    } else if (c == '"') {
      quoted = inWord = true;
    } else if (c == ' ' || c == '\t' || c == '\r') {
      if (inWord) words.push_back(word);
      word.clear();
      inWord = false;
    } else {
      word += c;
      inWord = true;
    }
  }
  if (inWord) words.push_back(word);
  return !quoted;
}

// The value of key=value among the words, or "" when absent.
std::string keyValue(const std::vector<std::string>& words, const std::string& key) {
  for (std::size_t i = 2; i < words.size(); ++i)
    if (words[i].rfind(key + "=", 0) == 0) return words[i].substr(key.size() + 1);
  return "";
}

// "x,y" into two numbers; false when it is not two numbers.
bool numberPair(const std::string& text, std::string& a, std::string& b) {
  const auto comma = text.find(',');
  if (comma == std::string::npos) return false;
  a = text.substr(0, comma);
  b = text.substr(comma + 1);
  for (const std::string* s : {&a, &b}) {
    char* end = nullptr;
    std::strtod(s->c_str(), &end);
    if (s->empty() || *end != '\0') return false;
  }
  return true;
}

}  // namespace

RecordFile screenLayoutRows(const std::string& text, const std::string& fileName) {
  RecordFile out;
  auto error = [&](int line, const std::string& m) { out.errors.push_back({fileName, line, m}); };
  std::istringstream in(text);
  std::string raw, formId;
  int lineNo = 0, headerLine = 0, controls = 0;
  std::vector<Row> controlRows;
  std::string formName;
  while (std::getline(in, raw)) {
    ++lineNo;
    std::vector<std::string> words;
    if (!splitWords(raw, words)) {
      error(lineNo, "unterminated quoted value");
      continue;
    }
    if (words.empty() || words[0][0] == '#') continue;
    if (headerLine == 0) {
      if (words[0] != "screen" || words.size() < 2) {
        error(lineNo, "the first declaration must be 'screen <Name> id=<n> ...'");
        return out;
      }
      headerLine = lineNo;
      formName = words[1];
      formId = keyValue(words, "id");
      continue;
    }
    if (words[0] == "separator") continue;
    if (!isControlKind(words[0]) || words.size() < 2) {
      error(lineNo, "unknown control kind '" + words[0] + "'");
      continue;
    }
    std::string x = "0", y = "0", w = "0", h = "0";
    const std::string at = keyValue(words, "at"), size = keyValue(words, "size");
    if ((!at.empty() && !numberPair(at, x, y)) || (!size.empty() && !numberPair(size, w, h)))
      error(lineNo, "at= and size= take two numbers: at=x,y size=w,h");
    controlRows.push_back({"NVFormControls", fileName, lineNo,
                           {{"Form Id", formId, lineNo},
                            {"Control Index", std::to_string(controls), lineNo},
                            {"LocRatX", x, lineNo},
                            {"LocRatY", y, lineNo},
                            {"SizRatWidth", w, lineNo},
                            {"SizRatHeight", h, lineNo}}});
    ++controls;
  }
  if (headerLine == 0) error(lineNo, "no 'screen' declaration");
  if (formId.empty() || !out.errors.empty()) return out;
  out.rows.push_back({"NVForms", fileName, headerLine,
                      {{"Form Name", formName, headerLine},
                       {"Form Id", formId, headerLine},
                       {"TotalControlCount", std::to_string(controls), headerLine}}});
  out.rows.insert(out.rows.end(), controlRows.begin(), controlRows.end());
  return out;
}

RecordFile readScreenFile(const std::string& path) {
  std::string text;
  if (!readText(path, text)) return {{}, {{path, 0, "cannot read the file"}}};
  return screenLayoutRows(text, path);
}

}  // namespace nvstore
