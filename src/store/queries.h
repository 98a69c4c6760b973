// The query catalogue: every list read of the program, as query texts in
// the store's query language. Texts that take values are kept in pieces;
// a patch procedure joins the pieces around the values and leaves the
// finished text in the entry's gSQLStrN for the caller to open. The
// entries that no procedure runs (10, 15, 17, 18 and 20 of the numbering)
// are left out.
// State: the pieces and finished texts below, built once by sSetSQLStrings.
#pragma once

#include <string>

// Entry 1: names of the ragas with technical data (library store).
extern std::string gSQLStr1;
// Entry 2: user scale names (user store).
extern std::string gSQLStr2;
// Entry 3: tala names.
extern std::string gSQLStr3;
// Entry 4: names of the ragas of one group.
extern std::string gSQLStr4a, gSQLStr4b, gSQLStr4;
// Entry 5: items of one type of the current raga.
extern std::string gSQLStr5a, gSQLStr5b, gSQLStr5c, gSQLStr5;
// Entry 7: items of one type of a raga that have a notation.
extern std::string gSQLStr7a, gSQLStr7b, gSQLStr7c, gSQLStr7;
// Entry 11: note seeds of an instrument.
extern std::string gSQLStr11a, gSQLStr11b, gSQLStr11;
// Entry 12: samples of one note of an instrument.
extern std::string gSQLStr12a, gSQLStr12b, gSQLStr12c, gSQLStr12;
// Entry 13: ragas below a group.
extern std::string gSQLStr13a, gSQLStr13b, gSQLStr13;
// Entry 16: ragas up to a group.
extern std::string gSQLStr16a, gSQLStr16b, gSQLStr16;
// Entry 19: the raga grid.
extern std::string gSQLStr19a, gSQLStr19b, gSQLStr19c, gSQLStr19;
// Entry 24: reeds of a range with a colour.
extern std::string gSQLStr24a, gSQLStr24b, gSQLStr24c, gSQLStr24d, gSQLStr24;

// Builds all pieces and complete texts; called once at start, before any query.
void sSetSQLStrings();

// Each fills the finished text of its entry. Numbers are written plainly,
// texts between double quotes (a text holding one is not supported).
void sPatchSQLStr4(int group);
void sPatchSQLStr5(int type);        // with gCurrRagaId
void sPatchSQLStr5ForExi(int type);  // only items with a notation
void sPatchSQLStr5ForNew(int type);  // only items without one
void sPatchSQLStr7(int ragaId, int type);
void sPatchSQLStr11(const std::string& name);
void sPatchSQLStr12(const std::string& name, int noteId);
void sPatchSQLStr13(int group);
void sPatchSQLStr16(int group);
void sPatchSQLStr19();            // group 3, sorted by gSortingMode
void sPatchSQLStr24(int colour, int firstReed, int lastReed);  // reeds in a range
