// Carrying the user's own data from the user store of an older installation
// into the current one (gDbB): compositions and the user's other items,
// phrases, patterns, pitch-shifted scales and, when the user wants them, the
// usage parameters.
//
// What is carried, and how:
// - Items ("Raga - Additional Information") with their compositions' two
//   notation rows: a carried composition gets the next free "Notation Index"
//   of the current store.
// - Scales ("Scale Shift Specs" with their "ONPR" rows): a carried scale gets
//   one more than the largest set id ever given in the current store (its
//   high-water mark, store/scale_ids.h), as a new scale does, so no id is
//   ever given twice, not even that of a scale deleted before. The older
//   store's mark is not carried: the current store keeps its own.
// - Patterns ("User Patterns"): a carried pattern gets the next free id.
// - Phrases ("Raga - ALT Phrases", one row of comma-separated phrases per
//   raga and kind): the older phrases the current row lacks are added to it,
//   so phrases never clash.
// - Usage parameters: the current ones stay unless the user takes the older
//   ones; a carried CurrMusicSetId follows its scale to its new id.
// An item, scale or pattern whose name the current store already has (for
// an item: the same raga and kind) is a clash, resolved by the user's
// choice: keep both (the older one under a new name, "<name> (2)"), keep the
// current one, or take the older one in its place (under the current one's
// id, so that what refers to it still does).
//
// The older store is read from a copy brought up to this version's schema
// first (as a start would bring it), so that what is carried has this
// version's meaning. Everything is written in one transaction: a fault or a
// kill part-way leaves the current store as it was.
#pragma once

#include <functional>
#include <optional>
#include <string>

enum class ClashChoice { KeepBoth = 0, KeepCurrent = 1, TakeOlder = 2 };

// The user's answers: how to resolve each clash (told as a sentence naming
// the thing, such as "the composition 'Saanjh' of Yaman"), and whether to
// take the older usage parameters.
struct CarryOverAnswers {
  std::function<ClashChoice(const std::string& clash)> resolve;
  bool takeOlderParameters = false;
};

// What was done, counted.
struct CarryOverCounts {
  int items = 0;
  int phraseSets = 0;
  int scales = 0;
  int patterns = 0;
  int keptCurrent = 0;  // clashes where the older one was left behind
  bool parameters = false;
};

// Why `path` cannot be carried over, as one message that names the file, or
// nullopt when it can: it is the current store itself, cannot be opened as a
// store, lacks a table or column of a user store, was made by a newer
// version, or is damaged.
std::optional<std::string> fCarryOverRefusal(const std::string& path);

// Carries the data of the older store at `olderPath`, which
// fCarryOverRefusal admitted, into gDbB in one transaction (see above). A
// store fault part-way is thrown on as platform::StoreError, with nothing
// written.
CarryOverCounts fCarryOverUserData(const std::string& olderPath, const CarryOverAnswers& answers);

// The summary the user is shown afterwards.
std::string fCarryOverSummary(const std::string& path, const CarryOverCounts& counts);

// The main window's menu entry: asks for the older store, refuses what cannot
// be carried, asks about the settings and each clash, carries and shows the
// summary.
void sCarryOverFromOlderInstallation();
