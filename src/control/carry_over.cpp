// Carrying the user's data from an older installation (see carry_over.h).
#include "control/carry_over.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

#include "control/parameters.h"
#include "control/user_store.h"
#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "notation/text_utils.h"
#include "notation/tokenizer.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/lookups.h"
#include "store/scale_ids.h"
#include "store/schema_check.h"

namespace {

using platform::Database;
using platform::RecordsetType;
using platform::Value;
using Row = std::map<std::string, Value>;

const char* const kItems = "Raga - Additional Information";
const char* const kNotations = "Raga - Composition Notations";
const char* const kPhrases = "Raga - ALT Phrases";
const char* const kScales = "Scale Shift Specs";
const char* const kTunings = "ONPR";
const char* const kPatterns = "User Patterns";
const char* const kParameters = "User Parameters";

constexpr int kLastLibrarySetId = 12;

std::string lowered(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

bool sameName(const Value& a, const Value& b) { return lowered(a.asText()) == lowered(b.asText()); }

std::vector<std::string> columnsOf(const std::string& table) {
  for (const SchemaTable& t : fSchemaTables(kUserStoreSchema))
    if (t.name == table) return t.columns;
  return {};
}

std::vector<Row> readRows(Database& store, const std::string& table) {
  const std::vector<std::string> columns = columnsOf(table);
  std::vector<Row> rows;
  auto rs = store.openRecordset(table, RecordsetType::Table);
  for (; !rs->eof(); rs->moveNext()) {
    Row row;
    for (const std::string& column : columns) row[column] = rs->field(column);
    rows.push_back(std::move(row));
  }
  return rows;
}

void writeFields(platform::Recordset& rs, const Row& row) {
  for (const auto& [column, value] : row) rs.setField(column, value);
  rs.update();
}

void addRow(Database& store, const std::string& table, const Row& row) {
  auto rs = store.openRecordset(table, RecordsetType::Table);
  rs->addNew();
  writeFields(*rs, row);
}

// Seeks `keys` on an index of `table`; a recordset on the row found, or
// nullptr on a miss.
std::unique_ptr<platform::Recordset> seekRow(Database& store, const std::string& table,
                                             const std::string& index, const std::vector<Value>& keys) {
  auto rs = store.openRecordset(table, RecordsetType::Table);
  rs->setIndex(index);
  rs->seek("=", keys);
  if (rs->noMatch()) return nullptr;
  return rs;
}

// Writes `row` over the row of `keys` on the primary key, or adds it.
void putRow(Database& store, const std::string& table, const std::vector<Value>& keys, const Row& row) {
  if (auto rs = seekRow(store, table, "PrimaryKey", keys)) {
    rs->edit();
    writeFields(*rs, row);
  } else {
    addRow(store, table, row);
  }
}

std::int64_t largest(const std::vector<Row>& rows, const std::string& column, std::int64_t floor) {
  for (const Row& row : rows) floor = std::max(floor, row.at(column).asInteger());
  return floor;
}

const Row* findByName(const std::vector<Row>& rows, const std::string& column, const Value& name,
                      const std::function<bool(const Row&)>& alsoSame = nullptr) {
  for (const Row& row : rows)
    if (sameName(row.at(column), name) && (!alsoSame || alsoSame(row))) return &row;
  return nullptr;
}

// "<name> (2)", "(3)"... the first that none of `rows` holds in `column`.
std::string freeName(const std::vector<Row>& rows, const std::string& column, const std::string& name,
                     const std::function<bool(const Row&)>& sameGroup = nullptr) {
  for (int n = 2;; ++n) {
    const std::string candidate = name + " (" + std::to_string(n) + ")";
    if (!findByName(rows, column, Value(candidate), sameGroup)) return candidate;
  }
}

std::string itemKind(std::int64_t type) {
  switch (type) {
    case 1: return "similar raga";
    case 2: return "composition";
    case 3: return "film song";
    default: return "item";
  }
}

std::string ragaName(std::int64_t ragaId) {
  const std::string name = gDbA ? fGetRagaName(static_cast<std::int16_t>(ragaId)) : "";
  return name.empty() ? "raga " + std::to_string(ragaId) : name;
}

class CarryOver {
 public:
  CarryOver(Database& older, Database& current, const CarryOverAnswers& answers)
      : older_(older), current_(current), answers_(answers) {}

  CarryOverCounts run() {
    platform::Transaction transaction(current_);
    carryItems();
    carryPhrases();
    carryScales();
    carryPatterns();
    if (answers_.takeOlderParameters) carryParameters();
    transaction.commit();
    return counts_;
  }

 private:
  ClashChoice resolve(const std::string& clash) {
    const ClashChoice choice = answers_.resolve(clash);
    if (choice == ClashChoice::KeepCurrent) ++counts_.keptCurrent;
    return choice;
  }

  // The notation rows of an older composition, written under `index`.
  void addNotations(const std::vector<Row>& notations, std::int64_t olderIndex, std::int64_t index) {
    for (Row row : notations) {
      if (row.at("Notation Index").asInteger() != olderIndex) continue;
      row["Notation Index"] = Value(index);
      addRow(current_, kNotations, row);
    }
  }

  void removeNotations(std::int64_t index) {
    auto rs = current_.openRecordset(kNotations, RecordsetType::Table);
    for (; !rs->eof(); rs->moveNext())
      if (rs->field("Notation Index").asInteger() == index) rs->remove();
  }

  void carryItems() {
    const std::vector<Row> notations = readRows(older_, kNotations);
    std::vector<Row> current = readRows(current_, kItems);
    std::int64_t nextIndex =
        std::max(largest(current, "Notation Index", 0), largest(readRows(current_, kNotations), "Notation Index", 0)) + 1;
    for (Row item : readRows(older_, kItems)) {
      const std::int64_t ragaId = item.at("Raga Index").asInteger(), type = item.at("Add Info Type").asInteger();
      const std::int64_t olderIndex = item.at("Notation Index").asInteger();
      const auto sameGroup = [&](const Row& r) {
        return r.at("Raga Index").asInteger() == ragaId && r.at("Add Info Type").asInteger() == type;
      };
      if (const Row* same = findByName(current, "Add Info", item.at("Add Info"), sameGroup)) {
        const ClashChoice choice = resolve("the " + itemKind(type) + " '" + item.at("Add Info").asText() + "' of " +
                                           ragaName(ragaId));
        if (choice == ClashChoice::KeepCurrent) continue;
        if (choice == ClashChoice::TakeOlder) {
          takeOlderItem(*same, olderIndex, notations, nextIndex);
          continue;
        }
        item["Add Info"] = Value(freeName(current, "Add Info", item.at("Add Info").asText(), sameGroup));
      }
      const std::int64_t index = olderIndex == 0 ? 0 : nextIndex++;
      item["Notation Index"] = Value(index);
      addRow(current_, kItems, item);
      if (index != 0) addNotations(notations, olderIndex, index);
      current.push_back(item);
      ++counts_.items;
    }
  }

  // The older item's notation in place of the current one's, under the
  // current one's index when it has one.
  void takeOlderItem(const Row& same, std::int64_t olderIndex, const std::vector<Row>& notations,
                     std::int64_t& nextIndex) {
    std::int64_t index = same.at("Notation Index").asInteger();
    if (index != 0) removeNotations(index);
    if (olderIndex == 0) {
      index = 0;
    } else {
      if (index == 0) index = nextIndex++;
      addNotations(notations, olderIndex, index);
    }
    Row updated = same;
    updated["Notation Index"] = Value(index);
    putRow(current_, kItems, {same.at("Raga Index"), same.at("Add Info"), same.at("Add Info Type")}, updated);
    ++counts_.items;
  }

  // Adds the older phrases the current row of the raga and kind lacks.
  void carryPhrases() {
    for (const Row& row : readRows(older_, kPhrases)) {
      const std::vector<Value> key = {row.at("RagaIndex"), row.at("PhraseType")};
      auto rs = seekRow(current_, kPhrases, "PrimaryKey", key);
      if (!rs) {
        addRow(current_, kPhrases, row);
        ++counts_.phraseSets;
        continue;
      }
      std::vector<std::string> notes = fSplitWords(rs->field("NotesPhrase").asText(), ",");
      std::vector<std::string> durations = fSplitWords(rs->field("DurationPhrase").asText(), ",");
      const std::vector<std::string> olderNotes = fSplitWords(row.at("NotesPhrase").asText(), ",");
      const std::vector<std::string> olderDurations = fSplitWords(row.at("DurationPhrase").asText(), ",");
      bool added = false;
      for (std::size_t i = 0; i < olderNotes.size(); ++i) {
        if (std::find(notes.begin(), notes.end(), olderNotes[i]) != notes.end()) continue;
        notes.push_back(olderNotes[i]);
        durations.push_back(i < olderDurations.size() ? olderDurations[i] : "");
        added = true;
      }
      if (!added) continue;
      rs->edit();
      writeFields(*rs, {{"NotesPhrase", Value(fJoinWords(notes, ","))}, {"DurationPhrase", Value(fJoinWords(durations, ","))}});
      ++counts_.phraseSets;
    }
  }

  void carryScales() {
    const std::vector<Row> tunings = readRows(older_, kTunings);
    std::vector<Row> current = readRows(current_, kScales);
    // The rule of every new scale (store/scale_ids.h): one more than the
    // largest id ever given here, so a carried scale never takes the id of
    // one the user deleted.
    std::int64_t nextId = fNextScaleId(current_);
    for (Row scale : readRows(older_, kScales)) {
      const std::int64_t olderId = scale.at("NPSetId").asInteger();
      std::int64_t id = nextId;
      if (const Row* same = findByName(current, "NPSetName", scale.at("NPSetName"))) {
        const ClashChoice choice = resolve("the scale '" + scale.at("NPSetName").asText() + "'");
        if (choice == ClashChoice::KeepCurrent) {
          scaleIds_[olderId] = same->at("NPSetId").asInteger();
          continue;
        }
        if (choice == ClashChoice::TakeOlder)
          id = same->at("NPSetId").asInteger();
        else
          scale["NPSetName"] = Value(freeName(current, "NPSetName", scale.at("NPSetName").asText()));
      }
      if (id == nextId) sRecordScaleId(current_, nextId++);
      scale["NPSetId"] = Value(id);
      putRow(current_, kScales, {Value(id)}, scale);
      for (Row tuning : tunings) {
        if (tuning.at("NPSetId").asInteger() != olderId) continue;
        tuning["NPSetId"] = Value(id);
        tuning["NPSetName"] = scale.at("NPSetName");
        putRow(current_, kTunings, {Value(id), tuning.at("InstrumentType")}, tuning);
      }
      scaleIds_[olderId] = id;
      current.push_back(scale);
      ++counts_.scales;
    }
  }

  void carryPatterns() {
    std::vector<Row> current = readRows(current_, kPatterns);
    std::int64_t nextId = largest(current, "PatternId", 0) + 1;
    for (Row pattern : readRows(older_, kPatterns)) {
      if (const Row* same = findByName(current, "PatternName", pattern.at("PatternName"))) {
        const ClashChoice choice = resolve("the pattern '" + pattern.at("PatternName").asText() + "'");
        if (choice == ClashChoice::KeepCurrent) continue;
        if (choice == ClashChoice::TakeOlder) {
          auto rs = seekRow(current_, kPatterns, "PatternByName", {same->at("PatternName")});
          rs->edit();
          writeFields(*rs, {{"PatternPhrase", pattern.at("PatternPhrase")}, {"PatternMode", pattern.at("PatternMode")}});
          ++counts_.patterns;
          continue;
        }
        pattern["PatternName"] = Value(freeName(current, "PatternName", pattern.at("PatternName").asText()));
      }
      pattern["PatternId"] = Value(nextId++);
      addRow(current_, kPatterns, pattern);
      current.push_back(pattern);
      ++counts_.patterns;
    }
  }

  // The older values that were ever saved; a user scale chosen there follows
  // the scale to its id here, or the current choice stays.
  void carryParameters() {
    for (Row row : readRows(older_, kParameters)) {
      Value& value = row["Parameter Value"];
      if (value.isNull() || lowered(row.at("Parameter Name").asText()) == "lastscaleid") continue;
      if (lowered(row.at("Parameter Name").asText()) == "currmusicsetid" && value.asInteger() > kLastLibrarySetId) {
        const auto carried = scaleIds_.find(value.asInteger());
        if (carried == scaleIds_.end()) continue;
        value = Value(carried->second);
      }
      putRow(current_, kParameters, {row.at("Parameter Name")}, row);
    }
    counts_.parameters = true;
  }

  Database& older_;
  Database& current_;
  const CarryOverAnswers& answers_;
  CarryOverCounts counts_;
  std::map<std::int64_t, std::int64_t> scaleIds_;  // older set id -> id here
};

std::unique_ptr<Database> openOlder(const std::string& path) {
  return platform::defaultWorkspace().openDatabase(path, false, true, "");
}

// A copy of the older store in a folder of its own, brought up to this
// version; the folder goes with the object.
class UpgradedCopy {
 public:
  explicit UpgradedCopy(const std::string& path)
      : folder_(std::filesystem::temp_directory_path() / ("nadavik-carry-over-" + std::to_string(::getpid()))) {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    const std::filesystem::path copy = folder_ / "older.nvy";
    std::filesystem::copy_file(path, copy);
    store_ = platform::defaultWorkspace().openDatabase(copy.string(), false, false, "");
    fUpgradeUserStore(*store_);
  }
  ~UpgradedCopy() {
    store_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  UpgradedCopy(const UpgradedCopy&) = delete;
  UpgradedCopy& operator=(const UpgradedCopy&) = delete;
  Database& store() { return *store_; }

 private:
  std::filesystem::path folder_;
  std::unique_ptr<Database> store_;
};

// An engine message without its closing full stop, to go inside a sentence.
std::string clause(std::string text) {
  while (!text.empty() && (text.back() == '.' || text.back() == '\n')) text.pop_back();
  return text;
}

std::string counted(int n, const std::string& one, const std::string& many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

}  // namespace

std::optional<std::string> fCarryOverRefusal(const std::string& path) {
  NV_PROC("fCarryOverRefusal");
  const std::string nothing = " Nothing was changed.";
  std::error_code ec;
  if (std::filesystem::equivalent(path, gStoreBPath, ec))
    return "'" + path + "' is the user file Nadavik is using now. Please choose the user file (mrB.nvy) of the "
           "older installation." + nothing;
  try {
    auto older = openOlder(path);
    if (auto missing = fFirstMissingSchemaItem(*older, kUserStoreSchema))
      return "'" + path + "' is not a Nadavik user file: it has no " +
             (missing->column.empty() ? "table '" + missing->table + "'"
                                      : "column '" + missing->column + "' in the table '" + missing->table + "'") +
             "." + nothing;
    if (const int version = fUserStoreVersion(*older); version > kUserStoreVersion)
      return "'" + path + "' was written by a newer version of Nadavik (file version " + std::to_string(version) +
             "; this version reads up to " + std::to_string(kUserStoreVersion) +
             "). Please carry it over with that version." + nothing;
    auto check = older->openRecordset("PRAGMA quick_check", RecordsetType::Snapshot);
    if (check->field("quick_check").asText() != "ok")
      return "'" + path + "' is damaged: its integrity check failed." + nothing;
  } catch (const platform::StoreError& e) {
    return "'" + path + "' cannot be read as a Nadavik user file: " + clause(e.what()) + "." + nothing;
  }
  return std::nullopt;
}

CarryOverCounts fCarryOverUserData(const std::string& olderPath, const CarryOverAnswers& answers) {
  NV_PROC("fCarryOverUserData");
  UpgradedCopy older(olderPath);
  return CarryOver(older.store(), *gDbB, answers).run();
}

std::string fCarryOverSummary(const std::string& path, const CarryOverCounts& counts) {
  std::string text = "Carried over from '" + path + "': " + counted(counts.items, "item", "items") + " (compositions and others), " +
                     counted(counts.phraseSets, "set of phrases", "sets of phrases") + ", " +
                     counted(counts.scales, "scale", "scales") + ", " + counted(counts.patterns, "pattern", "patterns") + ".";
  if (counts.keptCurrent > 0)
    text += " Where both had the same name, the current one was kept " + counted(counts.keptCurrent, "time", "times") +
            " and the older one left behind.";
  text += counts.parameters ? " The settings of the older installation take effect when Nadavik starts again."
                            : " Your current settings were kept.";
  return text;
}

void sCarryOverFromOlderInstallation() {
  NV_PROC("sCarryOverFromOlderInstallation");
  platform::WindowSystem& windows = platform::windowSystem();
  const std::string path = windows.chooseFileToOpen("Choose the user file of an older Nadavik installation",
                                                    gDataPath, "Nadavik user files (*.nvy);;All files (*)");
  if (path.empty()) return;
  if (auto refusal = fCarryOverRefusal(path)) return sShowMessage(*refusal);
  CarryOverAnswers answers;
  answers.takeOlderParameters =
      windows.messageBox("Take the settings of the older installation as well (tonic, scale, script, window, tips "
                         "and synchronisation)? No keeps your current settings.",
                         platform::kMsgYesNo | platform::kMsgQuestion, "Carry Over") == platform::kAnswerYes;
  answers.resolve = [&windows](const std::string& clash) {
    const int answer = windows.askChoice(
        "Both installations have " + clash +
            ". Keep both (the older one under a new name), keep the current one, or take the older one in its place?",
        "Carry Over", {"Keep Both", "Keep Current", "Take Older"});
    return answer < 0 ? ClashChoice::KeepCurrent : static_cast<ClashChoice>(answer);
  };
  try {
    const CarryOverCounts counts = fCarryOverUserData(path, answers);
    if (counts.parameters) sKeepStoredParametersAtStop();
    sShowMessage(fCarryOverSummary(path, counts));
  } catch (const platform::StoreError& e) {
    sShowMessage("Nothing was carried over from '" + path + "': " + clause(e.what()) +
                 ". Your current data is as it was.");
  }
}
