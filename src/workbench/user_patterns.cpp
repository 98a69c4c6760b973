// The user's own patterns (see user_patterns.h).
#include "workbench/user_patterns.h"

#include <memory>

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "display/fonts.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "workbench/pattern_expansion.h"
#include "workbench/pattern_language.h"
#include "workbench/workbench.h"
#include "workbench/workbench_state.h"

std::string gUserPatternName;
std::int16_t gPatNameUse = 1;

namespace {

const char* const kTable = "User Patterns";
const char* const kByName = "PatternByName";

platform::Control& ctl(const char* name) { return gCurrForm->control(name); }

std::unique_ptr<platform::Recordset> fOpenPatterns() {
  auto table = gDbB->openRecordset(kTable, platform::RecordsetType::Table);
  table->setIndex(kByName);
  return table;
}

// The patterns table positioned on `name`; noMatch() when it is missing.
std::unique_ptr<platform::Recordset> fSeekPattern(const std::string& name) {
  auto table = fOpenPatterns();
  table->seek("=", {platform::Value(name)});
  return table;
}

bool fNameInUse(const std::string& name) { return !fSeekPattern(name)->noMatch(); }

void sHideNameEntry() {
  for (const char* name : {"Label6", "cOK", "cPatName"}) ctl(name).setVisible(false);
}

void sNameInUse() {
  sShowMessage("Pattern Name already used. Enter different Name.");
  ctl("cPatName").setText("");
}

void sRenameConfirmed(const std::string& newName) {
  if (fAskYesNo("Rename your pattern '" + gUserPatternName + "' to '" + newName + "'?") !=
      platform::kAnswerYes)
    return;
  if (!fRenameUserPattern(gUserPatternName, newName)) {
    sNameInUse();
    return;
  }
  gUserPatternName = newName;
  sShowMessage("Pattern Renamed as " + newName);
  sHideNameEntry();
  gPatNameUse = 1;
}

}  // namespace

bool fAddUserPattern(const std::string& name, const std::string& patternText, std::int32_t kind) {
  NV_PROC("fAddUserPattern");
  platform::Transaction transaction(*gDbB);
  auto table = fSeekPattern(name);
  if (!table->noMatch()) return false;
  const long count = table->recordCount();
  table->addNew();
  table->setField("PatternId", platform::Value(static_cast<std::int64_t>(count + 1)));
  table->setField("PatternName", platform::Value(name));
  table->setField("PatternPhrase", platform::Value(patternText));
  table->setField("PatternMode", platform::Value(static_cast<std::int64_t>(kind)));
  table->update();
  transaction.commit();
  return true;
}

bool fRenameUserPattern(const std::string& oldName, const std::string& newName) {
  NV_PROC("fRenameUserPattern");
  platform::Transaction transaction(*gDbB);
  auto clash = fSeekPattern(newName);
  const bool sameOne = !clash->noMatch() && clash->field("PatternName").asText() == oldName;
  if (!clash->noMatch() && !sameOne) return false;  // a letter-case change of one name is allowed
  auto table = fSeekPattern(oldName);
  if (table->noMatch()) return false;
  table->edit();
  table->setField("PatternName", platform::Value(newName));
  table->update();
  transaction.commit();
  return true;
}

bool fDeleteUserPattern(const std::string& name) {
  NV_PROC("fDeleteUserPattern");
  platform::Transaction transaction(*gDbB);
  auto table = fSeekPattern(name);
  if (table->noMatch()) return false;
  table->remove();
  transaction.commit();
  return true;
}

std::int16_t fLoadUserPatternsList() {
  NV_PROC("fLoadUserPatternsList");
  auto table = gDbB->openRecordset(kTable, platform::RecordsetType::Table);
  const auto count = static_cast<std::int16_t>(table->recordCount());
  if (count == 0) return 0;
  platform::Control& list = ctl("cRagaList");
  list.clear();
  for (; !table->eof(); table->moveNext()) list.addItem(table->field("PatternName").asText());
  ctl("Label6").setCaption("Select Pattern");
  list.setVisible(true);
  ctl("Label6").setVisible(true);
  gWBListUse = 4;
  return count;
}

void sProcessSelectedUserPattern() {
  NV_PROC("sProcessSelectedUserPattern");
  auto table = fSeekPattern(ctl("cRagaList").text());
  if (table->noMatch()) return;  // gone since the list was filled
  gUserPatternName = table->field("PatternName").asText();
  gPatternSpec = table->field("PatternPhrase").asText();
  gPatternKind = static_cast<std::int32_t>(table->field("PatternMode").asInteger());
  gBaseNoteIndex = kPlaceOfSa;
  gPatternSource = 2;
  sWorkshop(6);
}

void sSavePattern() {
  NV_PROC("sSavePattern");
  const std::string name = ctl("cPatName").text();
  if (!fAddUserPattern(name, gPatternSpec, gPatternKind)) {
    sNameInUse();
    return;
  }
  gUserPatternName = name;
  sShowMessage("Pattern Saved as " + name);
  sHideNameEntry();
  gPatternSource = 2;
  sWorkshop(6);
}

void sPatNameConfirmed() {
  if (gPatNameUse == 2)
    sRenameConfirmed(ctl("cPatName").text());
  else
    sSavePattern();
}

void sAskNewPatternName() {
  if (gUserPatternName.empty() || !fNameInUse(gUserPatternName)) {
    sShowMessage("Please choose one of your patterns with 'User's Pattern' first.");
    return;
  }
  gPatNameUse = 2;
  platform::Control& name = ctl("cPatName");
  name.setVisible(true);
  name.setText("");
  sSetEnglishFont(name);
  ctl("cOK").setVisible(true);
  ctl("Label6").setCaption("Enter New Name for '" + gUserPatternName + "' and click OK");
  ctl("Label6").setVisible(true);
}

void sDeleteUserPattern() {
  NV_PROC("sDeleteUserPattern");
  if (gUserPatternName.empty() || !fNameInUse(gUserPatternName)) {
    sShowMessage("Please choose one of your patterns with 'User's Pattern' first.");
    return;
  }
  if (fAskYesNo("Delete your pattern '" + gUserPatternName + "'? It cannot be brought back.") !=
      platform::kAnswerYes)
    return;
  fDeleteUserPattern(gUserPatternName);
  sShowMessage("Pattern Deleted: " + gUserPatternName);
  gUserPatternName.clear();
  if (gPatternSource == 2) gPatternSource = 0;
}
