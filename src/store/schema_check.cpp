// Checking a store against the schema text it was built from (see
// schema_check.h): a small reader of CREATE TABLE statements, and a probe of
// each table that reads no row.
#include "store/schema_check.h"

#include <cctype>
#include <memory>

#include "platform/store.h"

namespace {

// Engine faults that mean "not there" (see platform/store.h).
constexpr long kNoSuchTable = 3078;
constexpr long kNoSuchField = 3265;
constexpr long kNoCurrentRecord = 3021;

// A token of a schema text: a name (double-quoted, bracketed or bare), a
// quoted text value, or one punctuation character.
struct Token {
  enum Kind { Name, Text, Punct } kind;
  std::string text;
  bool quoted = false;  // a name written in quotes or brackets
};

bool isNameChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

bool sameWord(const Token& t, const char* word) {
  if (t.kind != Token::Name || t.quoted) return false;
  std::size_t i = 0;
  for (; word[i] != '\0'; ++i)
    if (i >= t.text.size() ||
        std::toupper(static_cast<unsigned char>(t.text[i])) != static_cast<unsigned char>(word[i]))
      return false;
  return i == t.text.size();
}

// Reads a run closed by `close`, a doubled `close` standing for itself.
std::string quotedRun(const std::string& sql, std::size_t& at, char close) {
  std::string text;
  for (++at; at < sql.size(); ++at) {
    if (sql[at] != close) {
      text += sql[at];
    } else if (at + 1 < sql.size() && sql[at + 1] == close && close != ']') {
      text += close;
      ++at;
    } else {
      ++at;
      break;
    }
  }
  return text;
}

std::vector<Token> tokens(const std::string& sql) {
  std::vector<Token> out;
  std::size_t at = 0;
  while (at < sql.size()) {
    const char c = sql[at];
    if (std::isspace(static_cast<unsigned char>(c))) {
      ++at;
    } else if (c == '-' && at + 1 < sql.size() && sql[at + 1] == '-') {
      while (at < sql.size() && sql[at] != '\n') ++at;
    } else if (c == '"' || c == '`') {
      out.push_back({Token::Name, quotedRun(sql, at, c), true});
    } else if (c == '[') {
      out.push_back({Token::Name, quotedRun(sql, at, ']'), true});
    } else if (c == '\'') {
      out.push_back({Token::Text, quotedRun(sql, at, '\'')});
    } else if (isNameChar(c)) {
      const std::size_t from = at;
      while (at < sql.size() && isNameChar(sql[at])) ++at;
      out.push_back({Token::Name, sql.substr(from, at - from)});
    } else {
      out.push_back({Token::Punct, std::string(1, c)});
      ++at;
    }
  }
  return out;
}

bool isPunct(const Token& t, char c) { return t.kind == Token::Punct && t.text[0] == c; }

// A table item that is a constraint, not a column.
bool isConstraint(const Token& t) {
  for (const char* word : {"PRIMARY", "UNIQUE", "CHECK", "FOREIGN", "CONSTRAINT"})
    if (sameWord(t, word)) return true;
  return false;
}

// Reads the column list that opens at t[at] ("("); leaves `at` after its ")".
std::vector<std::string> columnList(const std::vector<Token>& t, std::size_t& at) {
  std::vector<std::string> columns;
  int depth = 0;
  bool itemStart = false;
  for (; at < t.size(); ++at) {
    if (isPunct(t[at], '(')) {
      if (++depth == 1) itemStart = true;
      continue;
    }
    if (isPunct(t[at], ')')) {
      if (--depth == 0) {
        ++at;
        break;
      }
      continue;
    }
    if (depth == 1 && isPunct(t[at], ',')) {
      itemStart = true;
      continue;
    }
    if (itemStart && t[at].kind == Token::Name && !isConstraint(t[at]))
      columns.push_back(t[at].text);
    itemStart = false;
  }
  return columns;
}

}  // namespace

std::vector<SchemaTable> fSchemaTables(const std::string& schemaSql) {
  const std::vector<Token> t = tokens(schemaSql);
  std::vector<SchemaTable> tables;
  for (std::size_t at = 0; at + 2 < t.size(); ++at) {
    if (!sameWord(t[at], "CREATE") || !sameWord(t[at + 1], "TABLE")) continue;
    at += 2;
    if (at + 2 < t.size() && sameWord(t[at], "IF") && sameWord(t[at + 1], "NOT") &&
        sameWord(t[at + 2], "EXISTS"))
      at += 3;
    if (at + 1 >= t.size() || t[at].kind != Token::Name || !isPunct(t[at + 1], '(')) continue;
    SchemaTable table{t[at].text, {}};
    ++at;
    table.columns = columnList(t, at);
    tables.push_back(std::move(table));
  }
  return tables;
}

std::optional<MissingSchemaItem> fFirstMissingSchemaItem(platform::Database& store,
                                                         const std::string& schemaSql) {
  for (const SchemaTable& table : fSchemaTables(schemaSql)) {
    // A query that reads no row still names every column of the table.
    std::unique_ptr<platform::Recordset> probe;
    try {
      probe = store.openRecordset("SELECT * FROM [" + table.name + "] WHERE 0;",
                                  platform::RecordsetType::Snapshot);
    } catch (const platform::StoreError& e) {
      if (e.number == kNoSuchTable) return MissingSchemaItem{table.name, ""};
      throw;
    }
    for (const std::string& column : table.columns) {
      try {
        probe->field(column);
      } catch (const platform::StoreError& e) {
        // A present field of a recordset without rows has no current record.
        if (e.number == kNoCurrentRecord) continue;
        if (e.number != kNoSuchField) throw;
        probe->close();
        return MissingSchemaItem{table.name, column};
      }
    }
    probe->close();
  }
  return std::nullopt;
}
