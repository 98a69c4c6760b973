// User-defined scales in the user store (see scale_sets.h). No state.
#include "scales/scale_sets.h"

#include <memory>

#include "core/errors.h"
#include "core/session.h"
#include "platform/store.h"
#include "scales/scale_math.h"
#include "scales/scale_state.h"
#include "sound/onpr_rows.h"
#include "sound/sound_state.h"
#include "store/positioning.h"
#include "store/scale_ids.h"

namespace {

using platform::RecordsetType;
using platform::Value;

const char* const kScales = "Scale Shift Specs";
const char* const kTunings = "ONPR";
const char* const kNameIndex = "Set Name";

std::unique_ptr<platform::Recordset> openUserTable(const char* table) {
  return gDbB->openRecordset(table, RecordsetType::Table);
}

// Writes the "ONPR" row (id, instrumentType), editing it when there is one.
void writeTuning(std::int16_t id, std::int16_t instrumentType, const std::string& name,
                 const NoteAdjustVector& adjust) {
  auto rs = openUserTable(kTunings);
  sSetTablePKRecord2(*rs, Value(id), Value(instrumentType));
  if (rs->noMatch()) {
    rs->addNew();
  } else {
    rs->edit();
  }
  rs->setField("NPSetId", Value(id));
  rs->setField("InstrumentType", Value(instrumentType));
  rs->setField("NPSetName", Value(name));
  rs->setField("TonicNoteId", Value(gCurrTonicNoteId));
  sUpdateNoteAdjustmentSPCs(*rs, adjust);
  rs->update();
  rs->close();
}

// Applies `change` to the "ONPR" rows of the scale `id` that exist.
template <typename Change>
void forEachTuning(std::int16_t id, Change change) {
  auto rs = openUserTable(kTunings);
  for (std::int16_t type : {kMainInstrument, kDroneInstrument}) {
    sSetTablePKRecord2(*rs, Value(id), Value(type));
    if (!rs->noMatch()) change(*rs);
  }
  rs->close();
}

}  // namespace

const char* const kMajorScaleNotes = "S R G m P D N S> S> N D P m G R S";
const char* const kFullScaleNotes =
    "S r R g G m M P d D n N S> S> N n D d P M m G g R r S";

std::string fScaleDurations(int noteCount) {
  std::string durations;
  for (int i = 0; i < noteCount; ++i) durations += i == 0 ? "100" : " 100";
  return durations;
}

double fGetNewValue(std::int16_t slider) {
  return fSliderSPC(slider, gBaseSPC, gSPCOfNoteBelow, gSPCOfNoteAbove);
}

std::string fTrimmedScaleName(const std::string& typed) {
  const auto first = typed.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return "";
  return typed.substr(first, typed.find_last_not_of(" \t\r\n") - first + 1);
}

std::optional<std::string> fScaleNameProblem(const std::string& name) {
  std::size_t characters = 0;
  for (unsigned char c : name) characters += (c & 0xC0) != 0x80;  // UTF-8 lead bytes
  if (characters > kLongestScaleName)
    return "The Name is " + std::to_string(characters) + " characters long; please use at most " +
           std::to_string(kLongestScaleName) + ".";
  return std::nullopt;
}

std::optional<StoredScale> fFindScale(const std::string& name) {
  auto rs = openUserTable(kScales);
  sSetTableIndexRecord(*rs, kNameIndex, Value(name));
  std::optional<StoredScale> found;
  if (!rs->noMatch())
    found = StoredScale{static_cast<std::int16_t>(rs->field("NPSetId").asInteger()),
                        static_cast<std::int16_t>(rs->field("TonicNoteId").asInteger())};
  rs->close();
  return found;
}

std::optional<std::string> fScaleNameOfId(std::int16_t id) {
  auto rs = openUserTable(kScales);
  sSetTablePKRecord(*rs, Value(id));
  std::optional<std::string> name;
  if (!rs->noMatch()) name = rs->field("NPSetName").asText();
  rs->close();
  return name;
}

std::int16_t fSaveScaleData(const std::string& name, std::int16_t newId) {
  NV_PROC("fSaveScaleData");
  if (fFindScale(name)) return 0;
  auto rs = openUserTable(kScales);
  rs->addNew();
  rs->setField("NPSetId", Value(newId));
  gCurrMusicSetId = newId;
  rs->setField("NPSetName", Value(name));
  rs->setField("InstrumentName", Value(gMainSetName));
  rs->setField("TonicNoteId", Value(gCurrTonicNoteId));
  rs->setField("BaseSPC", Value(static_cast<double>(gScaleShiftSpec.BaseSPC)));
  rs->setField("NewSPC", Value(static_cast<double>(gScaleShiftSpec.NewSPC)));
  rs->update();
  rs->close();
  writeTuning(newId, kMainInstrument, name, gMainAdjust);
  writeTuning(newId, kDroneInstrument, name, gDroneAdjust);
  return 1;
}

std::int16_t fDeleteScaleEntry(const std::string& name) {
  NV_PROC("fDeleteScaleEntry");
  auto rs = openUserTable(kScales);
  sSetTableIndexRecord(*rs, kNameIndex, Value(name));
  if (rs->noMatch()) return 0;
  const auto id = static_cast<std::int16_t>(rs->field("NPSetId").asInteger());
  rs->remove();
  rs->close();
  forEachTuning(id, [](platform::Recordset& tuning) { tuning.remove(); });
  return id;
}

std::int16_t fStoreScale(const std::string& name, bool redefine) {
  NV_PROC("fStoreScale");
  platform::Transaction transaction(*gDbB);
  std::int16_t id = 0;
  if (redefine) id = fDeleteScaleEntry(name);
  if (id == 0) {
    id = static_cast<std::int16_t>(fNextScaleId(*gDbB));
    sRecordScaleId(*gDbB, id);
  }
  if (fSaveScaleData(name, id) != 1) return 0;
  transaction.commit();
  return 1;
}

std::int16_t fRemoveScale(const std::string& name) {
  NV_PROC("fRemoveScale");
  platform::Transaction transaction(*gDbB);
  const std::int16_t id = fDeleteScaleEntry(name);
  transaction.commit();
  return id;
}

std::int16_t fRenameScale(const std::string& oldName, const std::string& newName) {
  NV_PROC("fRenameScale");
  const std::optional<StoredScale> scale = fFindScale(oldName);
  const std::optional<StoredScale> holder = fFindScale(newName);
  if (!scale || (holder && holder->id != scale->id)) return 0;
  platform::Transaction transaction(*gDbB);
  auto rs = openUserTable(kScales);
  sSetTablePKRecord(*rs, Value(scale->id));
  rs->edit();
  rs->setField("NPSetName", Value(newName));
  rs->update();
  rs->close();
  forEachTuning(scale->id, [&newName](platform::Recordset& tuning) {
    tuning.edit();
    tuning.setField("NPSetName", Value(newName));
    tuning.update();
  });
  transaction.commit();
  return 1;
}
