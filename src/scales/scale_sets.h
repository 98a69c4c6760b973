// User-defined scales: one row of "Scale Shift Specs" and two of "ONPR"
// (main set and drone set) each, in the user store gDbB. Storing, removing
// and renaming them, each change one transaction that is durable when it
// returns, and the period under the tuning slider. Reads gBaseSPC,
// gSPCOfNoteAbove, gSPCOfNoteBelow, gScaleShiftSpec, gMainAdjust,
// gDroneAdjust, gCurrTonicNoteId and gMainSetName; fSaveScaleData sets
// gCurrMusicSetId.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The phrases that try a scale out, in stored form (durations in hundredths
// of a second, so each "100" is one second).
extern const char* const kMajorScaleNotes;  // 16 notes
extern const char* const kFullScaleNotes;   // 26 notes
std::string fScaleDurations(int noteCount);

// The SPC of slider position `slider` for the note being tuned, from
// gBaseSPC towards gSPCOfNoteBelow (negative) or gSPCOfNoteAbove
// (positive), rounded to one decimal.
double fGetNewValue(std::int16_t slider);

// The longest name a scale may have, in characters.
constexpr std::size_t kLongestScaleName = 60;
// `typed` without blanks at either end.
std::string fTrimmedScaleName(const std::string& typed);
// Why a trimmed name cannot be used, as the message to show: too long (the
// list and the status line could not show it). Empty names are the
// caller's, with their own box. Nothing when it can be used; quotes and
// Devanagari are kept as typed.
std::optional<std::string> fScaleNameProblem(const std::string& name);

// Adds the scale `name` under newId without a transaction of its own: the
// "Scale Shift Specs" row from gScaleShiftSpec and the tonic, the "ONPR"
// rows (newId, 1) from gMainAdjust and (newId, 2) from gDroneAdjust. 1 when
// stored (gCurrMusicSetId is then newId), 0, writing nothing, when the name
// exists.
std::int16_t fSaveScaleData(const std::string& name, std::int16_t newId);

// Removes the scale `name` and its "ONPR" rows, without a transaction of
// its own; its id, or 0 when there is no such scale.
std::int16_t fDeleteScaleEntry(const std::string& name);

// Stores the scale being made under `name` in one transaction. A new name
// gets the next id (store/scale_ids.h); with `redefine` an existing scale
// of that name is replaced under its own id, so that what names the id (a
// saved setting) still finds it, and a kill part-way leaves the old scale
// whole. 1 when stored, 0 when the name exists and `redefine` is false.
std::int16_t fStoreScale(const std::string& name, bool redefine);

// Deletes the scale `name` in one transaction; its id, 0 when missing.
std::int16_t fRemoveScale(const std::string& name);

// Renames the scale `oldName` to `newName` in all three rows, in one
// transaction. 1 when renamed; 0, writing nothing, when another scale has
// that name or `oldName` is gone. A change of capitals only is a rename.
std::int16_t fRenameScale(const std::string& oldName, const std::string& newName);

// The id and tonic of the scale `name`; nothing when there is none.
struct StoredScale {
  std::int16_t id = 0;
  std::int16_t tonicNoteId = 0;
};
std::optional<StoredScale> fFindScale(const std::string& name);
// The name of the scale `id`; nothing when there is none.
std::optional<std::string> fScaleNameOfId(std::int16_t id);
