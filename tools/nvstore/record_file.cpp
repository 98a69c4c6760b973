// Reader of record files: see record_file.h for the format.
#include "record_file.h"

#include <sstream>

#include "source_files.h"

namespace nvstore {
namespace {

std::string trim(const std::string& s) {
  const auto first = s.find_first_not_of(" \t\r");
  if (first == std::string::npos) return "";
  const auto last = s.find_last_not_of(" \t\r");
  return s.substr(first, last - first + 1);
}

// The state of one parse: the rows so far and the value being continued.
struct Parser {
  RecordFile out;
  std::string fileName;
  Field* open = nullptr;      // field whose value a continuation extends
  bool openQuoted = false;    // that field was written as ""

  void error(int line, const std::string& message) {
    out.errors.push_back({fileName, line, message});
  }

  // An open field whose value stayed empty has neither value nor "".
  void closeField() {
    if (open != nullptr && open->value.empty() && !openQuoted)
      error(open->line, "column '" + open->column +
                            "' has no value (omit it for Null, write \"\" for the empty text)");
    open = nullptr;
    openQuoted = false;
  }

  void header(const std::string& line, int lineNo) {
    closeField();
    // A bad header still opens a row, so that its columns do not each
    // report a second fault.
    const bool closed = line.back() == ']' && line.size() >= 3;
    if (!closed) error(lineNo, "a table header must read [Table Name]");
    out.rows.push_back({trim(line.substr(1, line.size() - (closed ? 2 : 1))), fileName, lineNo, {}});
  }

  void continuation(const std::string& piece, int lineNo) {
    if (open == nullptr) {
      error(lineNo, "continuation line without a value to continue");
      return;
    }
    if (openQuoted) {
      error(lineNo, "the empty text \"\" cannot be continued");
      return;
    }
    open->value += open->value.empty() ? piece : " " + piece;
  }

  void field(const std::string& line, int lineNo) {
    closeField();
    if (out.rows.empty()) {
      error(lineNo, "column value before the first [Table] header");
      return;
    }
    const auto eq = line.find('=');
    if (eq == std::string::npos) {
      error(lineNo, "expected 'Column Name = value'");
      return;
    }
    Row& row = out.rows.back();
    Field f{trim(line.substr(0, eq)), trim(line.substr(eq + 1)), lineNo};
    if (f.column.empty()) {
      error(lineNo, "missing column name before '='");
      return;
    }
    if (row.find(f.column) != nullptr) {
      error(lineNo, "column '" + f.column + "' given twice in one row");
      return;
    }
    const bool quoted = f.value == "\"\"";
    if (quoted) f.value.clear();
    row.fields.push_back(f);
    open = &row.fields.back();
    openQuoted = quoted;
  }

  void line(const std::string& raw, int lineNo) {
    // The store keeps a text whole, but the program reads it only up to a
    // NUL byte: a value holding one would be cut short without a word.
    if (raw.find('\0') != std::string::npos) {
      error(lineNo, "the line holds a NUL byte, which no name or value may contain");
      return;
    }
    const std::string text = trim(raw);
    if (text.empty() || raw[0] == '#') return;
    if (raw[0] == ' ' || raw[0] == '\t') {
      continuation(text, lineNo);
    } else if (raw[0] == '[') {
      header(text, lineNo);
    } else {
      field(raw, lineNo);
    }
  }
};

}  // namespace

const Field* Row::find(const std::string& column) const {
  for (const Field& f : fields)
    if (f.column == column) return &f;
  return nullptr;
}

std::string SourceError::text() const {
  return file + ":" + std::to_string(line) + ": " + message;
}

RecordFile parseRecordText(const std::string& text, const std::string& fileName) {
  Parser p;
  p.fileName = fileName;
  std::istringstream in(text);
  std::string raw;
  int lineNo = 0;
  while (std::getline(in, raw)) {
    ++lineNo;
    p.line(raw, lineNo);
  }
  p.closeField();
  return std::move(p.out);
}

RecordFile readRecordFile(const std::string& path) {
  std::string text;
  if (!readText(path, text)) return {{}, {{path, 0, "cannot read the file"}}};
  return parseRecordText(text, path);
}

}  // namespace nvstore
