// The query catalogue: the only place where query texts stand. The texts
// run unchanged on SQLite (bracketed names, double-quoted text values).
// State: the gSQLStr pieces and finished texts.
#include "store/queries.h"

#include <cstdint>

#include "core/errors.h"
#include "core/session.h"

std::string gSQLStr1, gSQLStr2, gSQLStr3;
std::string gSQLStr4a, gSQLStr4b, gSQLStr4;
std::string gSQLStr5a, gSQLStr5b, gSQLStr5c, gSQLStr5;
std::string gSQLStr7a, gSQLStr7b, gSQLStr7c, gSQLStr7;
std::string gSQLStr11a, gSQLStr11b, gSQLStr11;
std::string gSQLStr12a, gSQLStr12b, gSQLStr12c, gSQLStr12;
std::string gSQLStr13a, gSQLStr13b, gSQLStr13;
std::string gSQLStr16a, gSQLStr16b, gSQLStr16;
std::string gSQLStr19a, gSQLStr19b, gSQLStr19c, gSQLStr19;
std::string gSQLStr24a, gSQLStr24b, gSQLStr24c, gSQLStr24d, gSQLStr24;

namespace {

// The composer's tests on the notation of entry 5, put before its last piece.
const char* const kWithNotation = ") AND (([Raga - Additional Information].[Notation Index]) <> 0";
const char* const kWithoutNotation =
    ") AND (([Raga - Additional Information].[Notation Index]) = 0";

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

// Entry 5 up to its last piece, for `type` and the current raga.
std::string entry5Head(int type) {
  return gSQLStr5a + std::to_string(type) + gSQLStr5b + std::to_string(gCurrRagaId);
}

// The sort column of the raga grid for gSortingMode; "" for 0 or unknown.
const char* gridSortColumn() {
  switch (gSortingMode) {
    case 1:
      return " [Raga - Technical Information].Thata, ";
    case 2:
      return " [Raga - Technical Information].Jati, ";
    case 3:
      return " [Raga - Technical Information].VadiNum, ";
    case 4:
      return " [Raga - Technical Information].SamvadiNum, ";
    case 5:  // the clock from dawn (the text alone sorted "Any hour" before "Dawn")
      return " [Raga - Technical Information].TimeNum, ";
    default:
      return "";
  }
}

}  // namespace

void sSetSQLStrings() {
  NV_PROC("sSetSQLStrings");
  gSQLStr1 =
      "SELECT RagaNameList.Raga FROM [Raga - Technical Information] INNER JOIN RagaNameList ON "
      "[Raga - Technical Information].[Raga Index] = RagaNameList.[Raga Index] ORDER BY "
      "RagaNameList.Raga;";
  gSQLStr2 =
      "SELECT [Scale Shift Specs].NPSetName From [Scale Shift Specs] ORDER BY "
      "[Scale Shift Specs].NPSetName;";
  gSQLStr3 =
      "SELECT [Tala - Technical Information].[Tala Name] From [Tala - Technical Information] "
      "ORDER BY [Tala - Technical Information].[Tala Name];";

  gSQLStr4a = "SELECT RagaNameList.Raga From RagaNameList WHERE (((RagaNameList.Level)=";
  gSQLStr4b = "));";

  gSQLStr5a =
      "SELECT [Raga - Additional Information].[Add Info] From [Raga - Additional Information] "
      "WHERE ((([Raga - Additional Information].[Add Info Type])=";
  gSQLStr5b = ") AND (([Raga - Additional Information].[Raga Index])=";
  gSQLStr5c = "));";

  gSQLStr7a =
      "SELECT [Raga - Additional Information].[Add Info] From [Raga - Additional Information] "
      "WHERE ((([Raga - Additional Information].[Raga Index])=";
  gSQLStr7b = ") AND (([Raga - Additional Information].[Add Info Type])=";
  gSQLStr7c = ") AND (([Raga - Additional Information].[Notation Index])>0));";

  gSQLStr11a =
      "SELECT [Note Specifications].[Note Id], [Note Specifications].SamPerCyc, "
      "[Note Specifications].[Fractional Value] From [Note Specifications] WHERE "
      "((([Note Specifications].[Instr Name]) = ";
  gSQLStr11b = " )) ORDER BY [Note Specifications].[Note Id];";

  gSQLStr12a =
      "SELECT [Sample Values].[Sample Value] From [Sample Values] Where "
      "((([Sample Values].[Instr Name]) = ";
  gSQLStr12b = " ) And (([Sample Values].[Note Id]) = ";
  gSQLStr12c = ")) ORDER BY [Sample Values].[Sample Id];";

  gSQLStr13a =
      "SELECT RagaNameList.Raga  FROM RagaNameList INNER JOIN [Raga - Technical Information] ON "
      "RagaNameList.[Raga Index] = [Raga - Technical Information].[Raga Index]  Where "
      "(((RagaNameList.Level) <";
  gSQLStr13b = ")) ORDER BY RagaNameList.Raga;";

  gSQLStr16a = "SELECT RagaNameList.Raga From RagaNameList WHERE (((RagaNameList.Level)<=";
  gSQLStr16b = "));";

  gSQLStr19a =
      "SELECT [Raga - Technical Information].Thata, [Raga - Technical Information].Jati, "
      "[Raga - Technical Information].Vadi, [Raga - Technical Information].VadiNum, "
      "[Raga - Technical Information].Samvadi, [Raga - Technical Information].SamvadiNum, "
      "[Raga - Technical Information].[Appropriate time], [Raga - Technical Information].TimeNum, "
      "RagaNameList.Raga FROM "
      "[Raga - Technical Information] INNER JOIN RagaNameList ON "
      "[Raga - Technical Information].[Raga Index] = RagaNameList.[Raga Index] Where "
      "(((RagaNameList.Level) <= ";
  gSQLStr19b = " )) ORDER BY";
  gSQLStr19c = " RagaNameList.Raga;";

  gSQLStr24a =
      "SELECT [Reed Colors].[Reed Number] From [Reed Colors] Where "
      "((([Reed Colors].[Reed Number]) >= ";
  gSQLStr24b = " And ([Reed Colors].[Reed Number]) <= ";
  gSQLStr24c = ") And (([Reed Colors].[Color Code]) = ";
  gSQLStr24d = "))ORDER BY [Reed Colors].[Reed Number];";
}

void sPatchSQLStr4(int group) {
  NV_PROC("sPatchSQLStr4");
  gSQLStr4 = gSQLStr4a + std::to_string(group) + gSQLStr4b;
}

void sPatchSQLStr5(int type) {
  NV_PROC("sPatchSQLStr5");
  gSQLStr5 = entry5Head(type) + gSQLStr5c;
}

void sPatchSQLStr5ForExi(int type) {
  NV_PROC("sPatchSQLStr5ForExi");
  gSQLStr5 = entry5Head(type) + kWithNotation + gSQLStr5c;
}

void sPatchSQLStr5ForNew(int type) {
  NV_PROC("sPatchSQLStr5ForNew");
  gSQLStr5 = entry5Head(type) + kWithoutNotation + gSQLStr5c;
}

void sPatchSQLStr7(int ragaId, int type) {
  NV_PROC("sPatchSQLStr7");
  gSQLStr7 = gSQLStr7a + std::to_string(ragaId) + gSQLStr7b + std::to_string(type) + gSQLStr7c;
}

void sPatchSQLStr11(const std::string& name) {
  NV_PROC("sPatchSQLStr11");
  gSQLStr11 = gSQLStr11a + quoted(name) + gSQLStr11b;
}

void sPatchSQLStr12(const std::string& name, int noteId) {
  NV_PROC("sPatchSQLStr12");
  gSQLStr12 = gSQLStr12a + quoted(name) + gSQLStr12b + std::to_string(noteId) + gSQLStr12c;
}

void sPatchSQLStr13(int group) {
  NV_PROC("sPatchSQLStr13");
  gSQLStr13 = gSQLStr13a + std::to_string(group) + gSQLStr13b;
}

void sPatchSQLStr16(int group) {
  NV_PROC("sPatchSQLStr16");
  gSQLStr16 = gSQLStr16a + std::to_string(group) + gSQLStr16b;
}

void sPatchSQLStr19() {
  NV_PROC("sPatchSQLStr19");
  // The highest curriculum group is always in force; the raga name is the
  // last sort key of every order.
  gSQLStr19 = gSQLStr19a + "3" + gSQLStr19b + gridSortColumn() + gSQLStr19c;
}

void sPatchSQLStr24(int colour, int firstReed, int lastReed) {
  NV_PROC("sPatchSQLStr24");
  gSQLStr24 = gSQLStr24a + std::to_string(firstReed) + gSQLStr24b + std::to_string(lastReed) +
              gSQLStr24c + std::to_string(colour) + gSQLStr24d;
}
