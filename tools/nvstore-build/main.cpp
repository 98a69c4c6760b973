// nvstore-build: compiles a store file from its schema and readable sources.
//
//   nvstore-build --schema <schema.sql> [--schema <more.sql> ...] --out <store>
//                 [--content <folder>] [--screens <folder>] [--depfile <file>]
//                 [--stamp-version <version>] [--keep-existing] [more.rec ...]
//
// The schema files run in the order given, as one script (a store's own
// tables and those it shares with the other store).
// Every *.rec under --content, every *.screen under --screens (their layout
// rows) and each record file named on the line go into the store. Faults are
// printed as "file:line: message" and end the program with status 1, so the
// build fails. --stamp-version writes the program's version as the one
// row of NVVersion, so that the library is complete when it is built and
// the program never has to write to it. --keep-existing leaves a store that
// is already there alone (the user store is made once and then belongs to
// the user). --depfile writes the sources and their folders for the build
// system, so that editing, adding or removing a source rebuilds the store.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "record_file.h"
#include "screen_rows.h"
#include "source_files.h"
#include "store_writer.h"

namespace {

struct Options {
  std::string out, content, screens, depfile, version;
  std::vector<std::string> schemas;
  bool keepExisting = false;
  std::vector<std::string> extraRecords;
};

bool parseOptions(int argc, char** argv, Options& o) {
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    auto next = [&](std::string& into) {
      if (i + 1 >= argc) return false;
      into = argv[++i];
      return true;
    };
    bool ok = true;
    if (a == "--schema") ok = next(o.schemas.emplace_back());
    else if (a == "--out") ok = next(o.out);
    else if (a == "--content") ok = next(o.content);
    else if (a == "--screens") ok = next(o.screens);
    else if (a == "--depfile") ok = next(o.depfile);
    else if (a == "--stamp-version") ok = next(o.version) && !o.version.empty();
    else if (a == "--keep-existing") o.keepExisting = true;
    else if (a.rfind("--", 0) == 0) ok = false;
    else o.extraRecords.push_back(a);
    if (!ok) return false;
  }
  const auto named = [](const std::string& schema) { return !schema.empty(); };
  return !o.schemas.empty() && std::all_of(o.schemas.begin(), o.schemas.end(), named) &&
         !o.out.empty();
}

// Escapes a path for a make-style depfile.
std::string depPath(const std::string& path) {
  std::string e;
  for (char c : path) {
    if (c == ' ' || c == '#') e += '\\';
    if (c == '$') e += '$';
    e += c;
  }
  return e;
}

bool writeDepfile(const Options& o, const std::vector<std::string>& inputs) {
  std::ofstream dep(o.depfile);
  dep << depPath(o.out) << ":";
  for (const std::string& in : inputs) dep << " \\\n  " << depPath(in);
  dep << "\n";
  return static_cast<bool>(dep);
}

void add(nvstore::RecordFile&& part, std::vector<nvstore::Row>& rows,
         std::vector<nvstore::SourceError>& errors) {
  rows.insert(rows.end(), part.rows.begin(), part.rows.end());
  errors.insert(errors.end(), part.errors.begin(), part.errors.end());
}

}  // namespace

int main(int argc, char** argv) {
  Options o;
  if (!parseOptions(argc, argv, o)) {
    std::cerr << "usage: nvstore-build --schema <schema.sql> [--schema <more.sql> ...] --out <store>\n"
                 "       [--content <folder>] [--screens <folder>] [--depfile <file>]\n"
                 "       [--stamp-version <version>] [--keep-existing] [more.rec ...]\n";
    return 2;
  }
  if (o.keepExisting && std::filesystem::exists(o.out)) return 0;

  std::vector<nvstore::Row> rows;
  std::vector<nvstore::SourceError> errors;
  std::vector<std::string> inputs = o.schemas;
  std::string schemaSql, schemaName;
  for (const std::string& schema : o.schemas) {
    std::string text;
    if (!nvstore::readText(schema, text)) errors.push_back({schema, 0, "cannot read the schema"});
    schemaSql += text + "\n";
    schemaName += (schemaName.empty() ? "" : " + ") + schema;
  }

  std::vector<std::string> records = nvstore::filesUnder(o.content, ".rec");
  records.insert(records.end(), o.extraRecords.begin(), o.extraRecords.end());
  for (const std::string& f : records) add(nvstore::readRecordFile(f), rows, errors);
  const std::vector<std::string> screens = nvstore::filesUnder(o.screens, ".screen");
  for (const std::string& f : screens) add(nvstore::readScreenFile(f), rows, errors);
  if (!o.version.empty()) rows.push_back({"NVVersion", "--stamp-version", 0, {{"Version", o.version, 0}}});

  inputs.insert(inputs.end(), records.begin(), records.end());
  inputs.insert(inputs.end(), screens.begin(), screens.end());
  for (const std::string& folder : {o.content, o.screens}) {
    const auto folders = nvstore::foldersUnder(folder);
    inputs.insert(inputs.end(), folders.begin(), folders.end());
  }
  if (!o.depfile.empty() && !writeDepfile(o, inputs)) errors.push_back({o.depfile, 0, "cannot write"});

  if (errors.empty()) nvstore::writeStoreFile(o.out, schemaSql, schemaName, rows, errors);
  for (const auto& e : errors) std::cerr << e.text() << "\n";
  if (!errors.empty()) {
    std::cerr << "nvstore-build: " << errors.size() << " error(s); " << o.out << " not written\n";
    return 1;
  }
  std::cout << "nvstore-build: " << o.out << ": " << rows.size() << " rows from "
            << records.size() + screens.size() << " files\n";
  return 0;
}
