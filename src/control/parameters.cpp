// Usage parameters and defaults (see parameters.h).
//
// One table, kUsageParameters, drives both ends: sSetDefaultOptions reads
// every row of it into its session variable at the start, and
// sSaveUsageParameters writes every variable back at the stop, so a
// parameter cannot be saved and never restored, or the reverse.
// State: none of its own; the screen size is read once per start.
#include "control/parameters.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <type_traits>
#include <variant>

#include "control/screen_manager.h"
#include "control/startup.h"
#include "core/errors.h"
#include "core/session.h"
#include "core/trace.h"
#include "keyboard/reeds.h"
#include "notation/vocabulary.h"
#include "platform/screen.h"
#include "platform/store.h"
#include "store/lookups.h"
#include "store/positioning.h"

namespace {

using platform::RecordsetType;
using platform::Value;

// What a default or a bound is a multiple of.
enum class Basis { One, ScreenWidth, ScreenHeight, TonicNoteId, TipCount };

// A number worked out when the row is read: `times` x the basis.
struct Amount {
  double times;
  Basis basis = Basis::One;
};

// The screen in the window system's logical pixels, read once per start.
struct ScreenSize {
  double width;
  double height;
};

// One usage parameter: its row name, its session variable, the defaults for
// a Null value and for an empty text, and the range a stored value must lie
// in (both ends included). `exists`, when given, is a further check that the
// value names something that is there.
struct UsageParameter {
  const char* name;
  std::variant<std::int16_t*, float*, double*> variable;
  Amount nullDefault;
  Amount emptyDefault;
  Amount lowest;
  Amount highest;
  bool (*exists)(double value) = nullptr;
};

// Music sets 1 to 12 are the library's scales, one for each keyboard tonic;
// a set above 12 is the user's own, a row of "Scale Shift Specs" in the user
// store. A saved id whose set was deleted by hand would otherwise stop every
// start at the look-up of its name.
bool musicSetExists(double setId) {
  if (setId <= 12) return true;
  auto rs = gDbB->openRecordset("Scale Shift Specs", RecordsetType::Table);
  sSetTablePKRecord(*rs, Value(static_cast<int>(setId)));
  const bool found = !rs->noMatch();
  rs->close();
  return found;
}

// The per-note lead of the marks (t = note start - note number x lead) by
// default. It was 10 ms, made up for a lag between the device's position and
// the ear that grew with each note; our device has no such lag: its position
// is what the listener hears (the sound server's delay is taken off it
// already), so a lead ran the marks 10 ms per note ahead of the sound, 134
// ms by the fifteenth note. With no lead every mark comes with its note's
// onset; the Synchronization menu still trims from there.
constexpr double kMarkLeadDefaultMs = 0;
// A store saved before holds the old default, 10, for each screen: the
// upgrade of the user store to version 2 moves it to the new default once
// (sMoveOldMarkLeads).
constexpr double kOldMarkLeadDefaultMs = 10;
const char* const kMarkLeadParameters[] = {"DelayC", "DelayMO", "DelayPC", "DelayW"};

constexpr Basis kScreenW = Basis::ScreenWidth;
constexpr Basis kScreenH = Basis::ScreenHeight;
constexpr Basis kTonic = Basis::TonicNoteId;
constexpr Basis kTips = Basis::TipCount;

// The usage parameters, in the order sSetDefaultOptions reads them (a
// default may name a parameter read before it: the music set defaults to
// the tonic). Units and ranges:
//   CurrTonicNoteId  tonic of the keyboard, 1 to 12 (1 is B, 3 is C#)
//   CurrMusicSetId   1 to 12 a library scale, 13 and above a user scale
//                    that must be in "Scale Shift Specs"; when above 12 its
//                    name is loaded into gCurrMusicSetName
//   KeyboardDisplay  1 keyboard shown, 2 hidden
//   FormL, FormT     left and top of the window in logical pixels, 0 to
//                    3/4 of the screen's width or height
//   FormW, FormH     width and height in logical pixels, 1/4 of the
//                    screen's width or height up to all of it; after the
//                    four are read the window is moved back onto the screen
//                    if it reaches past its right or bottom edge
//   FormState        0 normal, 1 minimised, 2 maximised
//   SortingMode      sort column of the raga grid, 0 (by name) to 5
//   NotationScript   1 Devanagari, 2 English; not read (always 2) when the
//                    notation font is not available
//   LastTip          number of the tip shown last, 0 to the number of tips;
//                    the first tip of a new installation is thus number 1
//   TipSignal        1 tips shown at the start, 0 not
//   DelayC, DelayMO, DelayPC, DelayW   synchronisation delays of the
//                    screens (the per-note lead of the marks), 0 to 1000
//                    ms, default kMarkLeadDefaultMs (see there)
//   CurrDroneFactor  loudness of the drone, 0.5 to 1.5 in steps of 0.1 (the
//                    steps are counted in whole tenths, so they end exactly
//                    there; an older store's 0.4 falls back to 1.0)
// CurrDroneFactor used to be written at the stop and never read (the drone
// was at 1.0 after every start, whatever the user had set); it is restored
// like the others now, and read last so the other rows keep their order.
const UsageParameter kUsageParameters[] = {
    // name, variable, default for Null, default for "", lowest, highest[, check]
    {"CurrTonicNoteId", &gCurrTonicNoteId, {3}, {3}, {1}, {12}},
    {"CurrMusicSetId", &gCurrMusicSetId, {1, kTonic}, {1, kTonic}, {1}, {32767}, musicSetExists},
    {"KeyboardDisplay", &gKeyboardDisplay, {1}, {1}, {1}, {2}},
    {"FormL", &gFormL, {0.05, kScreenW}, {0.05, kScreenW}, {0}, {0.75, kScreenW}},
    {"FormT", &gFormT, {0.05, kScreenH}, {0.05, kScreenH}, {0}, {0.75, kScreenH}},
    {"FormW", &gFormW, {0.9, kScreenW}, {0.9, kScreenW}, {0.25, kScreenW}, {1, kScreenW}},
    {"FormH", &gFormH, {0.9, kScreenH}, {0.9, kScreenH}, {0.25, kScreenH}, {1, kScreenH}},
    {"FormState", &gFormState, {0}, {0}, {0}, {2}},
    {"SortingMode", &gSortingMode, {0}, {0}, {0}, {5}},
    {"NotationScript", &gNotationScript, {1}, {1}, {1}, {2}},
    {"LastTip", &gLastTip, {1, kTips}, {1, kTips}, {0}, {1, kTips}},
    {"TipSignal", &gTipSignal, {1}, {1}, {0}, {1}},
    {"DelayC", &gDelayC, {kMarkLeadDefaultMs}, {kMarkLeadDefaultMs}, {0}, {1000}},
    {"DelayMO", &gDelayMO, {kMarkLeadDefaultMs}, {kMarkLeadDefaultMs}, {0}, {1000}},
    {"DelayPC", &gDelayPC, {kMarkLeadDefaultMs}, {kMarkLeadDefaultMs}, {0}, {1000}},
    {"DelayW", &gDelayW, {kMarkLeadDefaultMs}, {kMarkLeadDefaultMs}, {0}, {1000}},
    {"CurrDroneFactor", &gCurrDroneFactor, {1.0}, {1.0}, {0.5}, {1.5}},
};

// Whether `p` is the row of `variable`.
template <class T>
bool fIsRowOf(const UsageParameter& p, T* variable) {
  T* const* held = std::get_if<T*>(&p.variable);
  return held && *held == variable;
}

double fAmountValue(Amount amount, const ScreenSize& screen) {
  switch (amount.basis) {
    case Basis::ScreenWidth: return amount.times * screen.width;
    case Basis::ScreenHeight: return amount.times * screen.height;
    case Basis::TonicNoteId: return amount.times * gCurrTonicNoteId;
    case Basis::TipCount: return amount.times * gTipCount;
    case Basis::One: break;
  }
  return amount.times;
}

// Sets the parameter's variable; whole-number variables take the value
// without its fraction, as a plain conversion to the variable's type would.
void sAssign(const UsageParameter& p, double value) {
  std::visit([value](auto* variable) {
    using Target = std::remove_pointer_t<decltype(variable)>;
    *variable = static_cast<Target>(value);
  }, p.variable);
}

double fVariableValue(const UsageParameter& p) {
  return std::visit([](auto* variable) { return static_cast<double>(*variable); }, p.variable);
}

std::string fRangeText(const UsageParameter& p, const ScreenSize& screen) {
  return fNumberText(fAmountValue(p.lowest, screen)) + " to " +
         fNumberText(fAmountValue(p.highest, screen));
}

// The value a row gives its parameter: the Null or the empty-text default,
// else the text's leading number if it lies in the range and passes the
// further check, else the Null default with a trace line.
double fParameterValue(const UsageParameter& p, const Value& stored, const ScreenSize& screen) {
  if (stored.isNull()) return fAmountValue(p.nullDefault, screen);
  if (stored.isText() && stored.asText().empty()) return fAmountValue(p.emptyDefault, screen);
  const double value = stored.asDouble();
  // Written so that a NaN fails too.
  const bool inRange = value >= fAmountValue(p.lowest, screen) &&
                       value <= fAmountValue(p.highest, screen);
  if (inRange && (!p.exists || p.exists(value))) return value;
  const double fallback = fAmountValue(p.nullDefault, screen);
  sTraceLine("Usage parameter " + std::string(p.name) + ": the saved value '" + stored.asText() +
             "' is " + (inRange ? "no music set" : "outside " + fRangeText(p, screen)) + "; " +
             fNumberText(fallback) + " is used.");
  return fallback;
}

void sReadParameter(platform::Recordset& rs, const UsageParameter& p, const ScreenSize& screen) {
  sSetTablePKRecord(rs, Value(p.name));
  if (rs.noMatch()) {
    sRaiseError(3021, std::string("No current record: parameter ") + p.name);
    return;
  }
  sAssign(p, fParameterValue(p, rs.field("Parameter Value"), screen));
}

// Moves the window back onto the screen when its saved place and size,
// each in range, together reach past the screen's right or bottom edge.
void sKeepWindowOnScreen(const ScreenSize& screen) {
  const float left = std::min(gFormL, float(screen.width) - gFormW);
  const float top = std::min(gFormT, float(screen.height) - gFormH);
  if (left == gFormL && top == gFormT) return;
  sTraceLine("Usage parameters FormL, FormT: the saved window reaches off the screen; it is "
             "moved to " + fNumberText(left) + ", " + fNumberText(top) + ".");
  gFormL = left;
  gFormT = top;
}

// The value saved for a parameter: its variable's, except that FormState is
// the window's state at this moment rather than the last one noted.
double fSavedValue(const UsageParameter& p) {
  if (fIsRowOf(p, &gFormState) && gCurrForm) return gCurrForm->windowState();
  return fVariableValue(p);
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

void sMoveOldMarkLeads(platform::Database& store) {
  NV_PROC("sMoveOldMarkLeads");
  auto rs = store.openRecordset("User Parameters", RecordsetType::Table);
  std::string moved;
  for (const char* name : kMarkLeadParameters) {
    sSetTablePKRecord(*rs, Value(name));
    if (rs->noMatch() || rs->field("Parameter Value").isNull() ||
        rs->field("Parameter Value").asDouble() != kOldMarkLeadDefaultMs)
      continue;
    rs->edit();
    rs->setField("Parameter Value", Value(fNumberText(kMarkLeadDefaultMs)));
    rs->update();
    moved += (moved.empty() ? "" : ", ") + std::string(name);
  }
  rs->close();
  if (!moved.empty())
    sTraceLine("Usage parameters " + moved + ": the old default lead of " +
               fNumberText(kOldMarkLeadDefaultMs) + " ms per note is now " +
               fNumberText(kMarkLeadDefaultMs) + " ms, the new default (moved once).");
}

void sSetDefaultOptions() {
  NV_PROC("sSetDefaultOptions");
  sInitScales();
  sInitReedsDisplayedData();
  sInitReedColorType();
  setPlainDefaults();
  auto rs = gDbB->openRecordset("User Parameters", RecordsetType::Table);
  const ScreenSize screen{platform::windowSystem().screenWidth(),
                          platform::windowSystem().screenHeight()};
  for (const UsageParameter& p : kUsageParameters) {
    if (fIsRowOf(p, &gNotationScript) && gDevnagariOk == 0) {
      gNotationScript = 2;
      continue;
    }
    sReadParameter(*rs, p, screen);
    if (fIsRowOf(p, &gCurrMusicSetId) && gCurrMusicSetId > 12)
      gCurrMusicSetName = fGetMusicSetName(gCurrMusicSetId);
  }
  sKeepWindowOnScreen(screen);
  rs->close();
}

// Writes every parameter in one transaction: a kill or a fault part-way
// leaves the whole set of the last run (the transaction rolls back), never a
// mixture. Inside one transaction the order of the rows is not seen by
// anyone, so they are written in the order of the table.
namespace {
bool gKeepStoredParameters = false;
}  // namespace

void sKeepStoredParametersAtStop() { gKeepStoredParameters = true; }

void sSaveUsageParameters() {
  NV_PROC("sSaveUsageParameters");
  if (gKeepStoredParameters) return;
  platform::Transaction transaction(*gDbB);
  auto rs = gDbB->openRecordset("User Parameters", RecordsetType::Table);
  for (const UsageParameter& p : kUsageParameters) {
    sSetTablePKRecord(*rs, Value(p.name));
    if (rs->noMatch()) {
      sRaiseError(3021, std::string("No current record: parameter ") + p.name);
      continue;
    }
    rs->edit();
    rs->setField("Parameter Value", Value(fNumberText(fSavedValue(p))));
    rs->update();
  }
  rs->close();
  transaction.commit();
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

// The library's version stamp is written when the library is built
// (nvstore-build --stamp-version), so the program opens the library
// read-only and never writes to it: an installed, read-only library starts,
// and no start changes a byte of it. (It used to reopen the library
// writable at every start to stamp a Null version, and sUpdateVersionInfo,
// called by nothing, to overwrite it; both writes are gone.) A library of
// another version is still used, with a line in the trace file.
void sCheckSetNVVersion() {
  NV_PROC("sCheckSetNVVersion");
  auto rs = gDbA->openRecordset("NVVersion", RecordsetType::Table);
  std::string stamp;
  if (rs->recordCount() > 0) {
    rs->moveFirst();
    stamp = rs->field("Version").asText();
  }
  rs->close();
  if (stamp != fGetNVVerString())
    sTraceLine("The library file '" + gStoreAPath + "' is stamped with version '" + stamp +
               "'; this program is version " + fGetNVVerString() + ".");
}
