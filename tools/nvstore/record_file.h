// Reader of record files (*.rec), the readable source of the library
// store's rows. A row is a "[Table Name]" header followed by
// "Column Name = value" lines; an indented line continues the previous
// value, joined with one blank; `""` is the empty text; a column that is
// not given is Null. A line holding a NUL byte is a fault. Keeps no
// state: each call reads one text.
#pragma once

#include <string>
#include <vector>

namespace nvstore {

// One "Column = value" of a row, with the line it started on.
struct Field {
  std::string column;
  std::string value;
  int line = 0;
};

// One row of a table as written in a source file.
struct Row {
  std::string table;
  std::string file;
  int line = 0;  // line of the "[Table]" header
  std::vector<Field> fields;

  // The field of that column, or nullptr when the row leaves it Null.
  const Field* find(const std::string& column) const;
};

// A fault in a source file, to be shown as "file:line: message".
struct SourceError {
  std::string file;
  int line = 0;
  std::string message;
  std::string text() const;
};

struct RecordFile {
  std::vector<Row> rows;
  std::vector<SourceError> errors;
};

// Parses the text of one record file; `fileName` only labels rows and errors.
RecordFile parseRecordText(const std::string& text, const std::string& fileName);

// Reads and parses a file; an unreadable file gives one error.
RecordFile readRecordFile(const std::string& path);

}  // namespace nvstore
