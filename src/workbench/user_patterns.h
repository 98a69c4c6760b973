// The user's own patterns: saved under a name in the user store's table
// "User Patterns" (index "PatternByName", names compared without regard to
// letter case), listed, played like a standard pattern, renamed and
// deleted. Every change is one transaction, durable when it returns.
//
// Renaming and deleting are our own addition: a pattern saved under a
// mistaken name could otherwise never be corrected or removed. Both act on
// the user's pattern in force (the one last chosen or saved) and ask first.
//
// State: gUserPatternName, the name of the user's pattern in force;
// gPatNameUse, what cOK confirms.
#pragma once

#include <cstdint>
#include <string>

extern std::string gUserPatternName;
extern std::int16_t gPatNameUse;  // 1 the name of a new pattern, 2 a new name for one saved

// Fills cRagaList with the names in table order and shows it (gWBListUse 4);
// the number of patterns, 0 when there is none.
std::int16_t fLoadUserPatternsList();
// The name picked in cRagaList: its pattern and kind become the pattern in
// force, and it plays (event 6).
void sProcessSelectedUserPattern();
// cOK: saves the defined pattern under cPatName's text, or renames.
void sPatNameConfirmed();
// Saves gPatternSpec and gPatternKind under cPatName's text; a name in use
// is refused with "Pattern Name already used. Enter different Name.".
void sSavePattern();
// Asks for a new name of the pattern in force in cPatName (cOK confirms).
void sAskNewPatternName();
// Deletes the pattern in force, once the user has confirmed it.
void sDeleteUserPattern();

// The store's side, for the screen above and the tests. fAddUserPattern
// adds a row with PatternId = rows + 1: false when the name is in use.
// fRenameUserPattern: false when the old name is missing or the new one is
// in use (another pattern's). fDeleteUserPattern: false when missing.
bool fAddUserPattern(const std::string& name, const std::string& patternText, std::int32_t kind);
bool fRenameUserPattern(const std::string& oldName, const std::string& newName);
bool fDeleteUserPattern(const std::string& name);
