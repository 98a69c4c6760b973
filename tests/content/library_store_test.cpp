// The built library store answers the program's own look-ups through the
// store engine: seeks by primary key and by the named indexes, in the key
// order the program passes, and the query texts of the catalogue.
#include <gtest/gtest.h>

#include <string>

#include "platform/store.h"

namespace {

using platform::RecordsetType;
using platform::Value;

class LibraryStore : public ::testing::Test {
 protected:
  void SetUp() override {
    // shared and read-only: the test cases run in parallel processes
    db = platform::defaultWorkspace().openDatabase(NADAVIK_LIBRARY_STORE, false, true, "");
  }
  void TearDown() override { db->close(); }

  // Seeks keys in a table by an index; the named field, or "<no match>".
  std::string seek(const char* table, const char* index, std::vector<Value> keys, const char* field) {
    auto rs = db->openRecordset(table, RecordsetType::Table);
    rs->setIndex(index);
    rs->seek("=", keys);
    const std::string out = rs->noMatch() ? "<no match>" : rs->field(field).asText();
    rs->close();
    return out;
  }

  long count(const std::string& query) {
    auto rs = db->openRecordset(query, RecordsetType::Snapshot);
    if (!rs->eof()) rs->moveLast();
    const long n = rs->recordCount();
    rs->close();
    return n;
  }

  std::unique_ptr<platform::Database> db;
};

TEST_F(LibraryStore, RagasAreFoundByNameAndByIndex) {
  EXPECT_EQ(seek("RagaNameList", "PrimaryKey", {"Yaman"}, "Raga Index"), "1");
  EXPECT_EQ(seek("RagaNameList", "PrimaryKey", {"yaman"}, "Raga Index"), "1");  // letter case is free
  EXPECT_EQ(seek("RagaNameList", "RagaIndex", {10}, "Raga"), "Poorvi");
  EXPECT_EQ(seek("RagaNameList", "PrimaryKey", {"Nadavik"}, "Raga"), "<no match>");
  EXPECT_EQ(seek("Raga - Technical Information", "PrimaryKey", {2}, "Pakad"), "G R S D< : S R G : P G : D P G R S");
  EXPECT_EQ(seek("Raga - ALT Phrases", "PrimaryKey", {6, 3}, "PhraseType"), "3");
}

TEST_F(LibraryStore, CompositionsAndSimilarRagasAreFoundAsTheExplorationScreenSeeksThem) {
  EXPECT_EQ(seek("Raga - Additional Information", "PrimaryKey", {1, "Saanjh bhayi", 2}, "Notation Index"), "101");
  EXPECT_EQ(seek("Raga - Additional Information", "AddInfoType", {2, 1}, "Add Info"), "Deshkar");
  EXPECT_EQ(seek("Raga - Additional Information", "CompositionId", {301}, "Add Info"), "Bhor bhayi");
  EXPECT_EQ(seek("Raga - Composition Notations", "PrimaryKey", {101, 2}, "Starting Beat"), "9");
  // entry 7 of the query catalogue: the compositions of Yaman
  EXPECT_EQ(count("SELECT [Raga - Additional Information].[Add Info] From [Raga - Additional Information] "
                  "WHERE ((([Raga - Additional Information].[Raga Index])=1) AND "
                  "(([Raga - Additional Information].[Add Info Type])=2) AND "
                  "(([Raga - Additional Information].[Notation Index])>0));"),
            2);
}

TEST_F(LibraryStore, ThekasAreSoughtByTalaThekaTypeAndBeat) {
  // Teentaal, default kit (type 4): sam is Dha, the khali (beat 9) Dha, beat 10 Tin
  EXPECT_EQ(seek("ThekaTypeBolsForTaal", "PrimaryKey", {1, 4, 1}, "Theka Bol Id"), "1");
  EXPECT_EQ(seek("ThekaTypeBolsForTaal", "PrimaryKey", {1, 4, 10}, "Theka Bol Id"), "4");
  EXPECT_EQ(seek("ThekaTypeBolsForTaal", "PrimaryKey", {2, 1, 3}, "Theka Bol Id"), "17");  // Ektaal DhaGe
  EXPECT_EQ(seek("Tala - Technical Information", "TalaByName", {"Jhaptaal"}, "Beat Count"), "10");
}

TEST_F(LibraryStore, CaptionsColoursAndThatasAreThere) {
  EXPECT_EQ(seek("IllustrationsList", "PrimaryKey", {3}, "IllustrationName").rfind("Alap", 0), 0u);
  EXPECT_EQ(seek("Reed Colors", "PrimaryKey", {12}, "Color Code"), "2");
  EXPECT_EQ(count("SELECT [Reed Colors].[Reed Number] From [Reed Colors] Where ((([Reed Colors].[Reed Number]) >= 4 "
                  "And ([Reed Colors].[Reed Number]) <= 32) And (([Reed Colors].[Color Code]) = 1))ORDER BY "
                  "[Reed Colors].[Reed Number];"),
            17);
  EXPECT_EQ(seek("ThataScales", "PrimaryKey", {"Todi"}, "ThataScale"), "S r g M P d N S>");
}

}  // namespace
