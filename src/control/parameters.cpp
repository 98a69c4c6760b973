// Usage parameters and defaults (see parameters.h).
#include "control/parameters.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <limits>

#include "control/errors.h"
#include "control/screen_manager.h"
#include "control/session.h"
#include "control/startup.h"
#include "keyboard/reeds.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/lookups.h"
#include "store/positioning.h"

namespace {

using platform::RecordsetType;
using platform::Value;

// One parameter as sSetDefaultOptions reads it: the defaults for a Null
// value and for an empty text, and where the number goes.
struct ParameterRule {
  const char* name;
  std::function<double()> nullDefault;
  std::function<double()> emptyDefault;
  std::function<void(double)> assign;
};

// A stored number as a 16-bit whole number: rounded to the nearest (halves
// away from zero) and clamped to -32768..32767; NaN gives 0. A stored 1e10 or
// -40000 must not reach a cast whose result would be undefined. Whether the
// value makes sense for its parameter is judged where it is used.
std::int16_t asInt16(double v) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (std::isnan(v)) return 0;
  const double r = std::round(v);
  if (r <= Limits::min()) return Limits::min();
  if (r >= Limits::max()) return Limits::max();
  return static_cast<std::int16_t>(r);
}

void readParameter(platform::Recordset& rs, const ParameterRule& rule) {
  sSetTablePKRecord(rs, Value(rule.name));
  if (rs.noMatch()) {
    sRaiseError(3021, std::string("No current record: parameter ") + rule.name);
    return;
  }
  Value v = rs.field("Parameter Value");
  if (v.isNull())
    rule.assign(rule.nullDefault());
  else if (v.isText() && v.asText().empty())
    rule.assign(rule.emptyDefault());
  else
    rule.assign(v.asDouble());
}

void setPlainDefaults() {
  gCurrDbSelector = 1;
  gGraceNotes = 2;
  gCurrDroneType = 1;
  gWavOption = 1;
  gDroneMode = 1;
  gDroneSetName = "e";
  gCurrDroneFactor = 1.0;
  gSynthNames = "ce";
  gMainSetName = "c";
  gSynthVolume = 1;
  gThekaInstrument = 4;
  gThekaMode = 1;
  gCompPart = 1;
  gKeyboardDisplay = 1;
  gImageIndex = 6;
  gTimerPurpose = 1;
  gInternalClose = 0;
  gTipCount = fGetNVTipCount();
}

}  // namespace

std::string fNumberText(double value) {
  char buffer[32];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return ec == std::errc() ? std::string(buffer, end) : "0";
}

void sSetDefaultOptions() {
  NV_PROC("sSetDefaultOptions");
  sInitScales();
  sInitReedsDisplayedData();
  sInitReedColorType();
  setPlainDefaults();
  auto rs = gDbB->openRecordset("User Parameters", RecordsetType::Table);
  auto constant = [](double v) { return [v] { return v; }; };
  const float screenW = platform::windowSystem().screenWidth();
  const float screenH = platform::windowSystem().screenHeight();
  const ParameterRule rules[] = {
      {"CurrTonicNoteId", constant(3), constant(3), [](double v) { gCurrTonicNoteId = asInt16(v); }},
      {"CurrMusicSetId", [] { return double(gCurrTonicNoteId); },
       [] { return double(gCurrTonicNoteId); },
       [](double v) {
         gCurrMusicSetId = asInt16(v);
         if (gCurrMusicSetId > 12) gCurrMusicSetName = fGetMusicSetName(gCurrMusicSetId);
       }},
      {"KeyboardDisplay", constant(1), constant(1), [](double v) { gKeyboardDisplay = asInt16(v); }},
      {"FormL", constant(screenW * 0.05), constant(screenW * 0.05), [](double v) { gFormL = float(v); }},
      {"FormT", constant(screenH * 0.05), constant(screenH * 0.05), [](double v) { gFormT = float(v); }},
      {"FormW", constant(screenW * 0.9), constant(screenW * 0.9), [](double v) { gFormW = float(v); }},
      {"FormH", constant(screenH * 0.9), constant(screenH * 0.9), [](double v) { gFormH = float(v); }},
      {"FormState", constant(0), constant(0), [](double v) { gFormState = asInt16(v); }},
      {"SortingMode", constant(0), constant(0), [](double v) { gSortingMode = asInt16(v); }},
      {"NotationScript", constant(1), constant(1), [](double v) { gNotationScript = asInt16(v); }},
      {"LastTip", [] { return double(gTipCount); }, [] { return double(gTipCount); },
       [](double v) { gLastTip = asInt16(v); }},
      {"TipSignal", constant(1), constant(1), [](double v) { gTipSignal = asInt16(v); }},
      {"DelayC", constant(10), constant(10), [](double v) { gDelayC = asInt16(v); }},
      {"DelayMO", constant(10), constant(0), [](double v) { gDelayMO = asInt16(v); }},
      {"DelayPC", constant(10), constant(10), [](double v) { gDelayPC = asInt16(v); }},
      {"DelayW", constant(10), constant(10), [](double v) { gDelayW = asInt16(v); }},
  };
  for (const auto& rule : rules) {
    if (std::string(rule.name) == "NotationScript" && gDevnagariOk == 0) {
      gNotationScript = 2;
      continue;
    }
    readParameter(*rs, rule);
  }
  rs->close();
}

void sSaveUsageParameters() {
  NV_PROC("sSaveUsageParameters");
  const std::pair<const char*, double> values[] = {
      {"CurrMusicSetId", gCurrMusicSetId},
      {"CurrTonicNoteId", gCurrTonicNoteId},
      {"SortingMode", gSortingMode},
      {"KeyboardDisplay", gKeyboardDisplay},
      {"FormH", gFormH},
      {"FormL", gFormL},
      {"FormT", gFormT},
      {"FormW", gFormW},
      {"FormState", gCurrForm ? gCurrForm->windowState() : gFormState},
      {"CurrDroneFactor", gCurrDroneFactor},
      {"NotationScript", gNotationScript},
      {"LastTip", gLastTip},
      {"TipSignal", gTipSignal},
      {"DelayC", gDelayC},
      {"DelayMO", gDelayMO},
      {"DelayPC", gDelayPC},
      {"DelayW", gDelayW},
  };
  auto rs = gDbB->openRecordset("User Parameters", RecordsetType::Table);
  for (const auto& [name, value] : values) {
    sSetTablePKRecord(*rs, Value(name));
    if (rs->noMatch()) {
      sRaiseError(3021, std::string("No current record: parameter ") + name);
      continue;
    }
    rs->edit();
    rs->setField("Parameter Value", Value(fNumberText(value)));
    rs->update();
  }
  rs->close();
}

std::string fGetUserParameter(const std::string& name) {
  NV_PROC("fGetUserParameter");
  auto rs = gDbB->openRecordset("User Parameters", RecordsetType::Table);
  sSetTablePKRecord(*rs, Value(name));
  std::string value = rs->noMatch() ? "" : rs->field("Parameter Value").asText();
  rs->close();
  return value;
}

void sClearParameterValue(platform::Recordset& parameters) {
  NV_PROC("sClearParameterValue");
  if (parameters.recordCount() == 0) return;
  parameters.moveFirst();
  while (!parameters.eof()) {
    parameters.edit();
    parameters.setField("Parameter Value", Value());
    parameters.update();
    parameters.moveNext();
  }
}

void sClearUpTpETables() {
  NV_PROC("sClearUpTpETables");
  auto rs = gDbB->openRecordset("User Parameters", RecordsetType::Table);
  sClearParameterValue(*rs);
  rs->close();
}

std::string fGetNVVerString() { return "2.2"; }

namespace {

// Reopens the library store writable, lets `write` stamp it, and reopens it
// read-only again: the only writes ever made to the library store.
void stampLibraryStore(const std::function<void(platform::Recordset&)>& write) {
  const std::string path = gDbA->path();
  gDbA->close();
  gDbA = gWorkspace->openDatabase(path, true, false, kConnectString);
  {
    auto rs = gDbA->openRecordset("NVVersion", RecordsetType::Table);
    write(*rs);
    rs->close();
  }
  gDbA->close();
  gDbA = gWorkspace->openDatabase(path, true, true, kConnectString);
}

void writeVersion(platform::Recordset& rs, const std::string& version, bool onlyWhenNull) {
  if (rs.recordCount() == 0) {
    rs.addNew();
  } else {
    rs.moveFirst();
    if (onlyWhenNull && !rs.field("Version").isNull()) return;
    rs.edit();
  }
  rs.setField("Version", Value(version));
  rs.update();
}

}  // namespace

void sCheckSetNVVersion() {
  NV_PROC("sCheckSetNVVersion");
  stampLibraryStore([](platform::Recordset& rs) { writeVersion(rs, fGetNVVerString(), true); });
}

void sUpdateVersionInfo(const std::string& version) {
  NV_PROC("sUpdateVersionInfo");
  stampLibraryStore([&](platform::Recordset& rs) { writeVersion(rs, version, false); });
}
